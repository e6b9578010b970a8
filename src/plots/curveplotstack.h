#pragma once

#include "curveplot.h"

#include <QPointer>
#include <QWidget>

#include <memory>

class CamEditorModel;
class MeasuringTool;
class MotionPointDragger;
class MotionPointEditing;
class ParameterModel;
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
    QAction *wholeCurveAction() const { return m_wholeCurveAction; }
    QAction *exportAction() const { return m_exportAction; }
    QAction *insertPointAction() const { return m_insertPointAction; }
    QAction *removePointAction() const { return m_removePointAction; }
    MeasuringTool *measuringTool() const { return m_measuring; }
    // How a quantity is shown: derivatives times the scaling's factor, in its unit.
    double valueFactor(int quantity) const;
    QString valueUnit(int quantity) const;
    // One legend for the stack: its entries show or hide the calculated and
    // the stored curve in every plot.
    QWidget *legend() const { return m_legend; }
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
    void exportPlots();
    // Asks for a file and writes one plot (or, with -1, the visible ones).
    void exportPlot(int quantity);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    // Every text set here, again after a change of language.
    void retranslate();
    void updateMarkers();
    void updateScales();
    void alignAxes();
    void onMasterAxisChanged(CurvePlot *source);
    // The context menu's point edits, at a position on the position plot's canvas.
    void insertPoint();
    void removePoint();

    QPointer<CamEditorModel> m_editorModel;
    QPointer<ParameterModel> m_parameterModel;
    CurvePlot *m_plots[CurvePlot::QuantityCount];
    QwtPlotCurve *m_markers[5];
    QWidget *m_legend;
    MotionPointDragger *m_dragger;
    QAction *m_wholeCurveAction;
    QAction *m_exportAction;
    QAction *m_insertPointAction;
    QAction *m_removePointAction;
    std::unique_ptr<MotionPointEditing> m_editing;
    MeasuringTool *m_measuring = nullptr;
    // Where the context menu was opened on the position plot's canvas.
    QPoint m_menuPosition;
    // The user zoomed or panned: refreshes keep the master range shown.
    bool m_zoomed = false;
    // The master range the whole curve takes; the axes report it back when
    // they are next drawn, which is no zoom of the user's.
    double m_wholeMasterFrom = 0.0;
    double m_wholeMasterTo = 0.0;
    bool m_settingScales = false;
    bool m_replotPending = false;
};
