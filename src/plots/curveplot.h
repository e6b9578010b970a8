#pragma once

#include <qwt_plot.h>

class DenseCurve;
class QwtPlotCurve;
class QwtPlotPicker;

// One quantity of the cam over the master axis (position, velocity,
// acceleration or jerk): the calculated curve in front of the curve stored in
// the drive, and a tracker that names the value of every visible curve under
// the mouse. The legend that shows or hides the curves is the stack's.
class CurvePlot : public QwtPlot
{
    Q_OBJECT
public:
    enum Quantity { Position, Velocity, Acceleration, Jerk, QuantityCount };

    explicit CurvePlot(Quantity quantity, QWidget *parent = nullptr);
    ~CurvePlot() override;

    Quantity quantity() const { return m_quantity; }
    // The quantity's short symbol, as the value axis names it ("s", "v" ...).
    QString symbol() const;
    QwtPlotCurve *calculatedCurve() const;
    QwtPlotCurve *storedCurve() const;
    QwtPlotPicker *tracker() const { return m_tracker; }

    // The curves as the plan and the drive hold them, shown times the
    // factor. A list that is still the one last given (shared, not a
    // copy) with the same factor is not handed to Qwt again, so that the
    // stored curve keeps its drawn picture while only the plan changes.
    void setCurves(const QPolygonF &calculated, const QPolygonF &stored, double factor = 1.0);
    // The master title shows only where showMaster is set (the lowest plot);
    // it names the time where the master axis reads in seconds.
    void setAxisTitles(const QString &master, const QString &value, bool showMaster, bool time = false);
    // The tracker's text at a master position: every visible curve's value.
    QString trackerText(double master) const;

    // The value of a curve at a master position, linear between its samples;
    // NaN outside them or for an empty curve.
    static double valueAt(const QwtPlotCurve *curve, double master);

protected:
    // The curves' titles follow a change of language; the axis titles are
    // set anew by the stack's refresh.
    void changeEvent(QEvent *event) override;

private:
    Quantity m_quantity;
    DenseCurve *m_stored;
    DenseCurve *m_calculated;
    QwtPlotPicker *m_tracker;
};
