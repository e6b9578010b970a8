#pragma once

#include "curveplot.h"

#include <QPointer>
#include <QWidget>

#include <memory>

class CamEditorModel;
class MeasuringTool;
class MotionPointDragger;
class ParameterModel;
class PlotContextMenu;
class PlotZoom;
class PointMarkers;
class PointSelection;
class SectionWarnings;
class WarningBands;
class QAction;
class QUndoStack;
class QwtPlotCurve;

// The four curve plots of the editor, stacked over one master axis: the
// canvases aligned, zoom (rubber band, wheel) and pan of one applied to all,
// the motion points as markers on the position plot, where they can be
// dragged, inserted and removed from the context menu, and the measuring
// cursors. Follows the editor model, the drive's table and the scaling.
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
    QAction *wholeCurveAction() const;
    QAction *exportAction() const;
    QAction *insertPointAction() const;
    QAction *removePointAction() const;
    MeasuringTool *measuringTool() const { return m_measuring; }
    // How a quantity is shown: derivatives times the scaling's factor, in its unit.
    double valueFactor(int quantity) const;
    QString valueUnit(int quantity) const;
    // One legend for the stack: its entries show or hide the calculated and
    // the stored curve in every plot.
    QWidget *legend() const { return m_legend; }
    // With "Zykluszeit" the master axis reads in seconds: the seconds one
    // master unit stands for (cycle time / master range), else 0.
    double secondsPerMaster() const;
    QString masterAxisUnit() const;
    // The ring around the current point's marker in a plot.
    QwtPlotCurve *highlight(CurvePlot::Quantity quantity) const;
    // The largest slave position change of the last insert from the
    // context menu; NaN before one.
    double lastInsertDeviation() const;
    // The warning bands and joint lines drawn, summed over the plots.
    int warningMarkCount() const;
    void setCurvesVisible(bool calculated, bool visible);

    // Renders the visible plots stacked (or the one given) as shown, into a
    // PNG, SVG or PDF file as its suffix says. False when it cannot be
    // written, with the system's reason where there is one.
    bool exportTo(const QString &path, const QSize &size, int quantity = -1, QString *errorString = nullptr);
    // The curves are up to date at once; the drawing follows once the event
    // loop has handled the change.
    bool isReplotPending() const;
    void replotNow();
    void scheduleReplot();

public slots:
    void refresh();
    void showWholeCurve();

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    // Every text set here, again after a change of language.
    void retranslate();
    void updateHighlight();
    // The calculated derivatives, from the plan at the shown resolution.
    void updateExactCurves();
    void updateScales();

    QPointer<CamEditorModel> m_editorModel;
    QPointer<ParameterModel> m_parameterModel;
    CurvePlot *m_plots[CurvePlot::QuantityCount];
    std::unique_ptr<PointMarkers> m_points;
    // The master range the calculated derivatives were last evaluated over.
    double m_exactFrom = 0.0;
    double m_exactTo = 0.0;
    QWidget *m_legend;
    MotionPointDragger *m_dragger;
    PlotZoom *m_zoom;
    std::unique_ptr<PlotContextMenu> m_menu;
    QPointer<PointSelection> m_selection;
    QPointer<SectionWarnings> m_warnings;
    std::unique_ptr<WarningBands> m_warningBands;
    MeasuringTool *m_measuring = nullptr;
    bool m_replotPending = false;
};
