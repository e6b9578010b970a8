#pragma once

#include "curveplot.h"

#include <QPointer>
#include <QWidget>

class CamEditorModel;
class MotionPointDragger;
class ParameterModel;
class QAction;
class QUndoStack;
class QwtPlotCurve;

// The four curve plots of the editor, stacked over one master axis: the
// canvases aligned, zoom (rubber band, wheel) and pan of one applied to all,
// the motion points as markers on the position plot, where they can be
// dragged. Follows the editor model, the drive's table and the scaling.
class CurvePlotStack : public QWidget
{
    Q_OBJECT
public:
    CurvePlotStack(CamEditorModel *editorModel, ParameterModel *parameterModel, QUndoStack *undoStack,
                   QWidget *parent = nullptr);
    ~CurvePlotStack() override;

    CurvePlot *plot(CurvePlot::Quantity quantity) const { return m_plots[quantity]; }
    void setPlotVisible(CurvePlot::Quantity quantity, bool visible);
    bool isPlotVisible(CurvePlot::Quantity quantity) const;
    // The markers of the motion points whose segment type is the given one
    // (MotionPoint::rest ...), or, with -1, of all points under the spline.
    QwtPlotCurve *markers(int type) const;
    MotionPointDragger *dragger() const { return m_dragger; }
    QAction *wholeCurveAction() const { return m_wholeCurveAction; }
    QAction *exportAction() const { return m_exportAction; }
    // One legend for the stack: its entries show or hide the calculated and
    // the stored curve in every plot.
    QWidget *legend() const { return m_legend; }
    void setCurvesVisible(bool calculated, bool visible);

    // Renders the visible plots stacked (or the one given) as shown, into a
    // PNG, SVG or PDF file as its suffix says. False when it cannot be written.
    bool exportTo(const QString &path, const QSize &size, int quantity = -1);
    // The curves are up to date at once; the drawing follows once the event
    // loop has handled the change.
    bool isReplotPending() const;
    void replotNow();

public slots:
    void refresh();
    void showWholeCurve();
    void exportPlots();
    // Asks for a file and writes one plot (or, with -1, the visible ones).
    void exportPlot(int quantity);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void updateMarkers();
    void updateScales();
    void alignAxes();
    void onMasterAxisChanged(CurvePlot *source);
    void scheduleReplot();

    QPointer<CamEditorModel> m_editorModel;
    QPointer<ParameterModel> m_parameterModel;
    CurvePlot *m_plots[CurvePlot::QuantityCount];
    QwtPlotCurve *m_markers[5];
    QWidget *m_legend;
    MotionPointDragger *m_dragger;
    QAction *m_wholeCurveAction;
    QAction *m_exportAction;
    // The user zoomed or panned: refreshes keep the master range shown.
    bool m_zoomed = false;
    bool m_settingScales = false;
    bool m_replotPending = false;
};
