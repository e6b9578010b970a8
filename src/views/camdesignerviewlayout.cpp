#include "camdesignerviewimplementation.h"

#include "ui_camdesignerview.h"

#include "camdesigner/controller.h"
#include "model/cameditormodel.h"
#include "parameters/calculatedtableview.h"
#include "parameters/gridpointparameterview.h"
#include "parameters/parametermodelimplementation.h"
#include "plots/curveplotstack.h"
#include "plots/measuringtool.h"
#include "comparisonview.h"
#include "curvereportview.h"
#include "motionplantreeeditor.h"
#include "scalingview.h"
#include "windowplacement.h"

#include <qtadvanceddocking/DockAreaTabBar.h>
#include <qtadvanceddocking/DockAreaTitleBar.h>
#include <qtadvanceddocking/DockAreaWidget.h>
#include <qtadvanceddocking/DockManager.h>
#include <qtadvanceddocking/DockWidget.h>
#include <qtadvanceddocking/DockWidgetTab.h>

#include <QFile>
#include <QPushButton>
#include <QSettings>
#include <QToolBar>
#include <QVBoxLayout>

// The editor window's panels as docks: how they are arranged at first, and
// the layout the user leaves, kept in the host's settings.

namespace {

const char GeometryKey[] = "CamDesigner/geometry";
const char WindowStateKey[] = "CamDesigner/windowState";
const char DockManagerKey[] = "CamDesigner/CDockManager";
const char GridPointViewKey[] = "CamDesigner/GridPointParameterView/state";
const char PositionPlotKey[] = "CamDesigner/ShowPositionPlot";
const char VelocityPlotKey[] = "CamDesigner/ShowVeloCityPlot";
const char AccelerationPlotKey[] = "CamDesigner/ShowAccelerationPlot";
const char JerkPlotKey[] = "CamDesigner/ShowJerkPlot";
constexpr int DockManagerStateVersion = 1;
constexpr int WindowStateVersion = 0;
constexpr int LeftAreaShare = 1;
constexpr int RightAreaShare = 1;
const char InactiveTabRule[] = "ads--CDockWidgetTab[activeTab=\"false\"] QLabel{color: palette(foreground);}";

// In the order of CamDesignerViewImplementation::Dock.
const struct {
    const char *title;
    const char *icon;
    const char *objectName;
} DockDefinitions[] = {
    { QT_TRANSLATE_NOOP("CamDesignerViewImplementation", "Kurvendefinitionsdaten"), ":/Resources/Movementplan.png",
      "motionPlanDock" },
    { QT_TRANSLATE_NOOP("CamDesignerViewImplementation", "Skalierung"), ":/Resources/Scaling.png", "scalingDock" },
    { QT_TRANSLATE_NOOP("CamDesignerViewImplementation", "Stützstellen berechnet"), ":/Resources/CalculatedTable.png",
      "calculatedDock" },
    { QT_TRANSLATE_NOOP("CamDesignerViewImplementation", "Stützstellen Vergleich"), ":/Resources/DeltaTable.png",
      "comparisonDock" },
    { QT_TRANSLATE_NOOP("CamDesignerViewImplementation", "Stützstellen Parameter"), ":/Resources/AxisTable.png",
      "parameterDock" },
    { QT_TRANSLATE_NOOP("CamDesignerViewImplementation", "Kennwerte"), ":/Resources/CurveReport.png", "reportDock" },
    { QT_TRANSLATE_NOOP("CamDesignerViewImplementation", "Kurvenscheibe"), ":/Resources/CamView.png", "plotDock" },
};

} // namespace

void CamDesignerViewImplementation::createDocks()
{
    static_assert(sizeof(DockDefinitions) / sizeof(DockDefinitions[0]) == DockCount, "a definition per dock");
    for (int i = 0; i < DockCount; ++i) {
        auto *dock = new ads::CDockWidget(tr(DockDefinitions[i].title));
        dock->setObjectName(QLatin1String(DockDefinitions[i].objectName));
        dock->setIcon(QIcon(QLatin1String(DockDefinitions[i].icon)));
        // A title cut to "Sk…" names nothing: the tab bar scrolls instead,
        // and the area's tab menu lists every tab.
        dock->tabWidget()->setElideMode(Qt::ElideNone);
        m_docks[i] = dock;
    }
}

void CamDesignerViewImplementation::arrangeDocks()
{
    setDockOptions(AnimatedDocks | AllowNestedDocks | AllowTabbedDocks | ForceTabbedDocks | VerticalTabs
                   | GroupedDragging);
    m_dockManager = new ads::CDockManager(this);
    ads::CDockAreaWidget *left = m_dockManager->addDockWidget(ads::LeftDockWidgetArea, m_docks[MotionPlanDock]);
    for (Dock tab : { ScalingDock, CalculatedDock, ComparisonDock, ParameterDock, ReportDock })
        m_dockManager->addDockWidget(ads::CenterDockWidgetArea, m_docks[tab], left);

    // The motion plan tree editor goes above the second write control.
    auto *motionPlan = new QWidget;
    auto *motionPlanLayout = new QVBoxLayout(motionPlan);
    motionPlanLayout->setContentsMargins(0, 0, 0, 0);
    if (m_editorModel) {
        m_motionPlanEditor = new MotionPlanTreeEditor(m_editorModel, m_parameterModel, m_undoStack.get());
        motionPlanLayout->addWidget(m_motionPlanEditor, 1);
    } else {
        motionPlanLayout->addStretch();
    }
    // A button of its own, not one bound to the action: its tool tip must be
    // empty while writing is possible, where an action's falls back to its text.
    m_writeButton = new QPushButton(m_ui->actionSaveParameters->icon(), m_ui->actionSaveParameters->text());
    m_writeButton->setObjectName(QStringLiteral("writeButton"));
    connect(m_writeButton, &QPushButton::clicked, this, &CamDesignerViewImplementation::saveParameterValues);
    motionPlanLayout->addWidget(m_writeButton, 0, Qt::AlignRight);
    // In a scroll area: on a small screen the fields scroll instead of
    // being pressed onto each other.
    m_docks[MotionPlanDock]->setWidget(motionPlan, ads::CDockWidget::ForceScrollArea);
    if (m_editorModel) {
        m_scalingView = new ScalingView(m_editorModel, m_undoStack.get());
    }
    m_docks[ScalingDock]->setWidget(m_scalingView ? static_cast<QWidget *>(m_scalingView) : new QWidget);
    m_gridPointView = new GridPointParameterView(m_parameterModel, m_provider,
                                                 m_parameterModel ? m_parameterModel->livingSpace() : 0);
    m_docks[ParameterDock]->setWidget(m_gridPointView, ads::CDockWidget::ForceNoScrollArea);
    m_comparisonView = new ComparisonView(m_editorModel, m_parameterModel);
    m_docks[ComparisonDock]->setWidget(m_comparisonView, ads::CDockWidget::ForceNoScrollArea);
    m_calculatedTable = new CalculatedTableView(m_editorModel, m_parameterModel);
    m_docks[CalculatedDock]->setWidget(m_calculatedTable, ads::CDockWidget::ForceNoScrollArea);
    m_reportView = new CurveReportView(m_editorModel);
    m_docks[ReportDock]->setWidget(m_reportView, ads::CDockWidget::ForceNoScrollArea);
    m_plots = new CurvePlotStack(m_editorModel, m_parameterModel, m_undoStack.get());
    m_docks[PlotDock]->setWidget(m_plots, ads::CDockWidget::ForceNoScrollArea);
    QToolBar *plotBar = m_docks[PlotDock]->createDefaultToolBar();
    for (int quantity = 0; quantity < CurvePlot::QuantityCount; ++quantity) {
        plotBar->addAction(plotAction(quantity));
        connect(plotAction(quantity), &QAction::toggled, m_plots,
                [this, quantity](bool on) { m_plots->setPlotVisible(CurvePlot::Quantity(quantity), on); });
    }
    plotBar->addSeparator();
    plotBar->addAction(m_plots->wholeCurveAction());
    plotBar->addAction(m_plots->measuringTool()->action());
    plotBar->addAction(m_plots->exportAction());
    m_dockManager->addDockWidget(ads::RightDockWidgetArea, m_docks[PlotDock]);
    m_docks[MotionPlanDock]->setAsCurrentTab();

    for (ads::CDockWidget *dock : m_docks) {
        // The docking library leaves checkable view actions without the icon.
        dock->toggleViewAction()->setIcon(dock->icon());
        m_ui->menuAnsicht->addAction(dock->toggleViewAction());
        m_ui->toolBarKurve->addAction(dock->toggleViewAction());
    }
    m_ui->toolBarKurve->insertSeparator(m_docks[0]->toggleViewAction());
    m_defaultDockState = m_dockManager->saveState(DockManagerStateVersion);
}

void CamDesignerViewImplementation::applyStyleSheet()
{
    QFile file(QStringLiteral(":/Resources/CamDesigner.qss"));
    QString sheet = m_dockManager->styleSheet();
    if (file.open(QIODevice::ReadOnly))
        sheet += QString::fromUtf8(file.readAll());
    sheet += QLatin1String(InactiveTabRule);
    m_dockManager->setStyleSheet(sheet);
}

QAction *CamDesignerViewImplementation::plotAction(int quantity) const
{
    QAction *const actions[CurvePlot::QuantityCount] = { m_ui->actionShowPositionPlot, m_ui->actionShowVelocityPlot,
                                                         m_ui->actionShowAccelerationPlot, m_ui->actionShowJerkPlot };
    return actions[quantity];
}

void CamDesignerViewImplementation::restoreSettings()
{
    QSettings settings;
    // Empty settings keep the arrangement of construction.
    const QByteArray dockState = settings.value(QLatin1String(DockManagerKey)).toByteArray();
    m_layoutRestored = !dockState.isEmpty() && m_dockManager->restoreState(dockState, DockManagerStateVersion);
    if (m_layoutRestored)
        addMissingReportDock();
    restoreGeometry(settings.value(QLatin1String(GeometryKey)).toByteArray());
    restoreState(settings.value(QLatin1String(WindowStateKey)).toByteArray(), WindowStateVersion);
    // The default size and a saved geometry alike: within the screen.
    WindowPlacement::fitIntoScreen(this);
    m_gridPointView->restoreState(settings.value(QLatin1String(GridPointViewKey)).toByteArray());
    m_ui->actionShowPositionPlot->setChecked(settings.value(QLatin1String(PositionPlotKey), true).toBool());
    m_ui->actionShowVelocityPlot->setChecked(settings.value(QLatin1String(VelocityPlotKey), true).toBool());
    m_ui->actionShowAccelerationPlot->setChecked(settings.value(QLatin1String(AccelerationPlotKey), true).toBool());
    m_ui->actionShowJerkPlot->setChecked(settings.value(QLatin1String(JerkPlotKey), false).toBool());
    for (int quantity = 0; quantity < CurvePlot::QuantityCount; ++quantity)
        m_plots->setPlotVisible(CurvePlot::Quantity(quantity), plotAction(quantity)->isChecked());
}

// A layout saved before the report dock existed leaves it outside every dock
// area, closed; it joins the tabs of the stored grid points.
void CamDesignerViewImplementation::addMissingReportDock()
{
    ads::CDockWidget *report = m_docks[ReportDock];
    if (report->dockAreaWidget())
        return;
    ads::CDockAreaWidget *area = m_docks[ParameterDock]->dockAreaWidget();
    // The tab the user left in front stays in front.
    ads::CDockWidget *current = area ? area->currentDockWidget() : nullptr;
    if (area)
        m_dockManager->addDockWidget(ads::CenterDockWidgetArea, report, area);
    else
        m_dockManager->addDockWidget(ads::LeftDockWidgetArea, report);
    report->toggleView(true);
    if (current)
        current->setAsCurrentTab();
}

void CamDesignerViewImplementation::saveSettings() const
{
    QSettings settings;
    settings.setValue(QLatin1String(DockManagerKey), m_dockManager->saveState(DockManagerStateVersion));
    settings.setValue(QLatin1String(GeometryKey), saveGeometry());
    settings.setValue(QLatin1String(WindowStateKey), saveState(WindowStateVersion));
    settings.setValue(QLatin1String(GridPointViewKey), m_gridPointView->saveState());
    settings.setValue(QLatin1String(PositionPlotKey), m_ui->actionShowPositionPlot->isChecked());
    settings.setValue(QLatin1String(VelocityPlotKey), m_ui->actionShowVelocityPlot->isChecked());
    settings.setValue(QLatin1String(AccelerationPlotKey), m_ui->actionShowAccelerationPlot->isChecked());
    settings.setValue(QLatin1String(JerkPlotKey), m_ui->actionShowJerkPlot->isChecked());
}

void CamDesignerViewImplementation::resetView()
{
    m_dockManager->restoreState(m_defaultDockState, DockManagerStateVersion);
    shareWidthWithPlots();
}

void CamDesignerViewImplementation::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    if (m_shown)
        return;
    m_shown = true;
    // Shown, the window may have its frame: the frame fits too.
    WindowPlacement::fitIntoScreen(this);
    // Splitter sizes take only once the window has its size: the panels and
    // the curves share the width, and that is what "Zurücksetzen" restores.
    // A restored layout is rebuilt once more now that it is shown (its tabs
    // and tool bars take their look only then); the default arrangement is
    // given its split when "Zurücksetzen" restores it, not built here too.
    if (m_layoutRestored) {
        m_dockManager->restoreState(m_dockManager->saveState(DockManagerStateVersion), DockManagerStateVersion);
    } else {
        m_dockManager->restoreState(m_defaultDockState, DockManagerStateVersion);
        shareWidthWithPlots();
        m_defaultDockState = m_dockManager->saveState(DockManagerStateVersion);
    }
    // Tab bars scroll rather than cut titles: once laid out, each shows its
    // current tab whole.
    QMetaObject::invokeMethod(this, &CamDesignerViewImplementation::showCurrentTabs, Qt::QueuedConnection);
}

void CamDesignerViewImplementation::shareWidthWithPlots()
{
    ads::CDockAreaWidget *plots = m_docks[PlotDock]->dockAreaWidget();
    if (!plots)
        return;
    const int width = m_dockManager->width();
    m_dockManager->setSplitterSizes(plots, { width * LeftAreaShare / (LeftAreaShare + RightAreaShare),
                                             width * RightAreaShare / (LeftAreaShare + RightAreaShare) });
}

void CamDesignerViewImplementation::showCurrentTabs()
{
    for (ads::CDockWidget *dock : m_docks) {
        ads::CDockAreaWidget *area = dock->dockAreaWidget();
        if (area && area->currentDockWidget() == dock)
            area->titleBar()->tabBar()->ensureWidgetVisible(dock->tabWidget(), 0, 0);
    }
}

void CamDesignerViewImplementation::retranslateDocks()
{
    for (int i = 0; i < DockCount; ++i)
        m_docks[i]->setWindowTitle(tr(DockDefinitions[i].title));
}
