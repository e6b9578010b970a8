#include "camdesignerviewimplementation.h"

#include "ui_camdesignerview.h"

#include "camdesigner/camdescriptionimplementation.h"
#include "camdesigner/controller.h"
#include <filedialog.h>
#include <messagebox.h>
#include "commands/undoview.h"
#include "curves/motionplan.h"
#include "import/externalcurveimportview.h"
#include "import/gridpointexportdialog.h"
#include "defaultpathsetting.h"
#include "model/cameditormodel.h"
#include "parameters/calculatedtableview.h"
#include "parameters/gridpointparameterview.h"
#include "parameters/parametermodelimplementation.h"
#include "plots/curveplotstack.h"
#include "plots/measuringtool.h"
#include "resources/camdesignerresources.h"
#include "comparisonview.h"
#include "curvereportview.h"
#include "editingshortcutguard.h"
#include "motionplantreeeditor.h"
#include "scalingview.h"
#include "seamquestion.h"
#include "windowplacement.h"

#include <qtadvanceddocking/DockAreaTabBar.h>
#include <qtadvanceddocking/DockAreaTitleBar.h>
#include <qtadvanceddocking/DockAreaWidget.h>
#include <qtadvanceddocking/DockManager.h>
#include <qtadvanceddocking/DockWidget.h>
#include <qtadvanceddocking/DockWidgetTab.h>

#include <QCloseEvent>
#include <QEvent>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QSettings>
#include <QToolBar>
#include <QPushButton>
#include <QVBoxLayout>

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
const char DefaultPathKind[] = "CamDesigner";
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

CamDesignerViewImplementation::CamDesignerViewImplementation(ParameterModelImplementation *parameterModel,
                                                             CamEditorModel *editorModel,
                                                             MxParameterInstance::ParameterProvider *provider,
                                                             QWidget *parent)
    : QMainWindow(parent)
    , m_ui(std::make_unique<Ui::CamDesignerView>())
    , m_undoStack(std::make_unique<Controller>())
    , m_parameterModel(parameterModel)
    , m_editorModel(editorModel)
    , m_provider(provider)
{
    if (CamDescriptionImplementation *description = editorModel ? editorModel->camDescription() : nullptr)
        description->setUndoStack(m_undoStack.get());

    initializeCamDesignerResources();
    m_ui->setupUi(this);
    createDocks();
    setAttribute(Qt::WA_DeleteOnClose);
    arrangeDocks();
    applyStyleSheet();
    connectActions();
    restoreSettings();
    onMotionPointsChanged();
    checkReadOnly();
}

CamDesignerViewImplementation::~CamDesignerViewImplementation()
{
    // The description outlives the window; its undo stack goes with it.
    if (m_editorModel && m_editorModel->camDescription())
        m_editorModel->camDescription()->setUndoStack(nullptr);
}

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

void CamDesignerViewImplementation::connectActions()
{
    Ui::CamDesignerView &ui = *m_ui;
    connect(ui.actionExportMotionPlan, &QAction::triggered, this, &CamDesignerViewImplementation::openExportMotionPlanDialog);
    connect(ui.actionImportParameterExtern, &QAction::triggered, this,
            &CamDesignerViewImplementation::openParameterImportExternDialog);
    connect(ui.actionSaveParameters, &QAction::triggered, this, &CamDesignerViewImplementation::saveParameterValues);
    addGridPointExport();
    connect(ui.actionDeleteGrid, &QAction::triggered, this, &CamDesignerViewImplementation::deleteGrid);
    connect(ui.actionImportMotionPlanProject, &QAction::triggered, this,
            &CamDesignerViewImplementation::openImportParameterDialog);
    connect(ui.actionImportMotionPlanExternal, &QAction::triggered, this,
            &CamDesignerViewImplementation::openImportMotionPlanDialog);
    ui.actionClose->setShortcuts(QKeySequence::Quit);
    connect(ui.actionClose, &QAction::triggered, this, &CamDesignerViewImplementation::openCloseDialog);
    connect(ui.actionResetView, &QAction::triggered, this, &CamDesignerViewImplementation::resetView);

    connect(ui.actionUndo, &QAction::triggered, m_undoStack.get(), &QUndoStack::undo);
    connect(ui.actionRedo, &QAction::triggered, m_undoStack.get(), &QUndoStack::redo);
    connect(m_undoStack.get(), &QUndoStack::canUndoChanged, ui.actionUndo, &QAction::setEnabled);
    connect(m_undoStack.get(), &QUndoStack::canRedoChanged, ui.actionRedo, &QAction::setEnabled);
    ui.actionUndo->setEnabled(false);
    ui.actionRedo->setEnabled(false);
    connect(ui.actionShowUndoView, &QAction::toggled, this, &CamDesignerViewImplementation::showUndoView);
    // Ctrl+V and Ctrl+Del stay bound to writing and deleting the grid points,
    // but a text field (and the point table, for Ctrl+V) keeps its own meaning
    // of them: a paste never ends in the drive.
    new EditingShortcutGuard(this);

    if (m_editorModel)
        connect(m_editorModel, &CamEditorModel::changed, this, &CamDesignerViewImplementation::onMotionPointsChanged);
    if (m_parameterModel) {
        connect(m_parameterModel, &ParameterModel::readOnlyChanged, this, &CamDesignerViewImplementation::checkReadOnly);
        // A write keeps the window alive by processing events: nothing that
        // writes to the drive, and no closing, until it has ended.
        connect(m_parameterModel, &ParameterModel::writeProcessStarted, this, &CamDesignerViewImplementation::checkReadOnly);
        connect(m_parameterModel, &ParameterModel::writeProcessFinished, this, &CamDesignerViewImplementation::checkReadOnly);
        connect(m_parameterModel, &ParameterModel::decimalPlacesChanged, this,
                &CamDesignerViewImplementation::onDecimalPlacesChanged);
    }
    m_readOnlyLabel = new QLabel;
    m_readOnlyLabel->setObjectName(QStringLiteral("readOnlyLabel"));
    statusBar()->addPermanentWidget(m_readOnlyLabel);
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

void CamDesignerViewImplementation::showUndoView(bool show)
{
    if (!show) {
        if (m_undoView)
            m_undoView->hide();
        return;
    }
    if (!m_undoView) {
        m_undoView = std::make_unique<UndoView>(m_undoStack.get());
        connect(m_undoView.get(), &UndoView::isVisibleChanged, m_ui->actionShowUndoView, &QAction::setChecked);
    }
    // Below the tool button that opened it, or below the menu bar.
    QWidget *anchor = m_ui->toolBarBearbeiten->widgetForAction(m_ui->actionShowUndoView);
    if (!anchor || !anchor->isVisible())
        anchor = menuBar();
    m_undoView->move(anchor->mapToGlobal(QPoint(0, anchor->height())));
    m_undoView->show();
}

void CamDesignerViewImplementation::openImportMotionPlanDialog()
{
    CamDescriptionImplementation *description = m_editorModel ? m_editorModel->camDescription() : nullptr;
    if (!description)
        return;
    VxUtilities::DefaultPathSetting defaultPath { QLatin1String(DefaultPathKind) };
    const QString path = FileDialog::getOpenFileName(this, tr("Kurvendefinitionsdaten öffnen"), defaultPath.path(),
                                                     tr("Mx6-Kurvendefinitionsdaten (*.json *.dat)"));
    // A cancelled dialog is tried as a file too and ends in the log: kept.
    QString message;
    if (description->loadFromFile(path, &message)) {
        defaultPath.setPath(path);
        return;
    }
    // A damaged file is not silently taken as the defaults: the user is told
    // what is wrong and the cam stays as it was.
    if (!message.isEmpty())
        MessageBox::warning(this, tr("Kurvendefinitionsdaten nicht geladen"), message);
}

void CamDesignerViewImplementation::openExportMotionPlanDialog()
{
    CamDescriptionImplementation *description = m_editorModel ? m_editorModel->camDescription() : nullptr;
    if (!description)
        return;
    VxUtilities::DefaultPathSetting defaultPath { QLatin1String(DefaultPathKind) };
    // The caption is not translated, as it always was.
    const QString path = FileDialog::getSaveFileName(this, QStringLiteral("Kurvendefinitionsdaten speichern"),
                                                     defaultPath.path(), tr("Mx6-Bewegungspläne (*.json *.dat)"));
    if (path.isEmpty())
        return;
    QString error;
    if (!description->saveToFile(path, &error)) {
        // Title and text the wrong way round on purpose: the box always read so.
        MessageBox::information(this, tr("Speichern der Datei Fehlgeschlagen. Datei eventuell schreibgeschützt."),
                                error);
        return;
    }
    defaultPath.setPath(path);
}

void CamDesignerViewImplementation::openImportParameterDialog()
{
    emit showImportDescriptionDialogRequest();
}

void CamDesignerViewImplementation::saveParameterValues()
{
    if (!m_parameterModel || !m_editorModel || !m_editorModel->motionPlan())
        return;
    if (!SeamQuestion::confirmWrite(this, m_editorModel))
        return;
    m_parameterModel->writeGridPoints(m_editorModel->motionPlan()->positions());
}

void CamDesignerViewImplementation::openCloseDialog()
{
    close();
}

void CamDesignerViewImplementation::openParameterImportExternDialog()
{
    if (!m_parameterModel)
        return;
    for (ExternalCurveImportView *shown : findChildren<ExternalCurveImportView *>()) {
        if (shown->isVisible()) {
            shown->raise();
            return;
        }
    }
    // Modal to this window, without a nested event loop: the write on
    // acceptance runs from the dialog, which then deletes itself.
    auto *dialog = new ExternalCurveImportView(m_parameterModel, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void CamDesignerViewImplementation::addGridPointExport()
{
    // Only reads: stays enabled while the drive is read-only.
    auto *action = new QAction(QIcon(QStringLiteral(":/Resources/exportGridPointsText.png")), QString(), this);
    action->setObjectName(QStringLiteral("actionExportGridPointsText"));
    retranslateGridPointExport(action);
    m_ui->menuKurve->insertAction(m_ui->actionSaveParameters, action);
    m_ui->toolBarKurve->insertAction(m_ui->actionSaveParameters, action);
    connect(action, &QAction::triggered, this, [this] {
        if (!m_parameterModel)
            return;
        const MotionPlan *plan = m_editorModel ? m_editorModel->motionPlan() : nullptr;
        auto *dialog = new GridPointExportDialog(plan ? plan->positions() : QPolygonF(),
                                                 m_parameterModel->storedGridPoints(),
                                                 m_parameterModel->masterDecimalPlaces(),
                                                 m_parameterModel->slaveDecimalPlaces(), this);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->open();
    });
}

void CamDesignerViewImplementation::retranslateGridPointExport(QAction *action)
{
    action->setText(tr("Stützstellentabelle als Text exportieren"));
    action->setStatusTip(tr("Berechnete oder gespeicherte Stützstellen als Textdatei für andere Programme speichern."));
}

void CamDesignerViewImplementation::resetView()
{
    m_dockManager->restoreState(m_defaultDockState, DockManagerStateVersion);
    shareWidthWithPlots();
}

void CamDesignerViewImplementation::deleteGrid()
{
    if (!m_parameterModel)
        return;
    if (m_parameterModel->isOnline()) {
        MessageBox::warning(this, tr("Stützstellen löschen nicht möglich"),
                            tr("Beim Löschen der Stützstellen wird die Konfiguration geändert. Bitte gehen Sie "
                               "Offline und versuchen Sie erneut zu löschen."));
        return;
    }
    if (MessageBox::question(this, tr("Stützstellen Parameter löschen."),
                             tr("Wollen die alle gespeicherten Stützstellen löschen?"))
        == QMessageBox::Yes)
        m_parameterModel->deleteGridPoints();
}

void CamDesignerViewImplementation::checkReadOnly()
{
    const bool readOnly = m_parameterModel && m_parameterModel->isReadOnly();
    m_readOnlyLabel->setText(readOnly ? tr("Antriebsregler ist schreibgeschützt.") : QString());
    m_readOnlyLabel->setVisible(readOnly);
    const bool writing = m_parameterModel && m_parameterModel->isWriting();
    m_ui->actionDeleteGrid->setEnabled(!readOnly && !writing);
    m_ui->actionImportParameterExtern->setEnabled(!readOnly && !writing);
    m_ui->actionClose->setEnabled(!writing);
    updateWriteControls();
}

void CamDesignerViewImplementation::onMotionPointsChanged()
{
    updateWriteControls();
}

void CamDesignerViewImplementation::updateWriteControls()
{
    const bool enoughPoints = m_editorModel && m_editorModel->motionPointCount() > 1;
    const bool writable = m_parameterModel && !m_parameterModel->isReadOnly() && !m_parameterModel->isWriting();
    // A sampling that gives no grid point, or one that is not a number, is
    // never written; the controls say why they are off.
    const QString refusal = enoughPoints && m_parameterModel && m_editorModel->motionPlan()
        ? m_parameterModel->tableRefusal(m_editorModel->motionPlan()->positions())
        : QString();
    m_ui->actionSaveParameters->setEnabled(enoughPoints && refusal.isEmpty() && writable);
    m_writeButton->setEnabled(enoughPoints && refusal.isEmpty() && writable);
    const QString why = enoughPoints ? refusal
                                     : tr("Damit Stützpunkte berechnet werden können, fügen sie den "
                                          "Kurvendefinitionsdaten, mindestens zwei Bewegungspunkte hinzu.");
    m_ui->actionSaveParameters->setToolTip(why);
    m_writeButton->setToolTip(why);
}

void CamDesignerViewImplementation::msgBoxClosed(QAbstractButton *)
{
    // The box asks the user to close the editor; its button does so.
    close();
}

void CamDesignerViewImplementation::onDecimalPlacesChanged()
{
    MessageBox::openWindowModal(
        this,
        { QMessageBox::Warning, tr("Nachkommastellen wurden geändert"),
          tr("Die Nachkommastellen der Master/Slave-Position wurden geändert. Der Kurvenscheibeneditor muss "
             "geschlossen werden. Sobald die Parameteränderungen aktiv sind, können sie den Editor wieder öffnen."),
          QMessageBox::Ok },
        this, SLOT(msgBoxClosed(QAbstractButton *)));
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

void CamDesignerViewImplementation::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QMainWindow::changeEvent(event);
}

void CamDesignerViewImplementation::retranslate()
{
    // The generated form would also set its own window title; the host's stays.
    const QString title = windowTitle();
    m_ui->retranslateUi(this);
    setWindowTitle(title);
    for (int i = 0; i < DockCount; ++i)
        m_docks[i]->setWindowTitle(tr(DockDefinitions[i].title));
    if (auto *exportAction = findChild<QAction *>(QStringLiteral("actionExportGridPointsText")))
        retranslateGridPointExport(exportAction);
    m_writeButton->setText(m_ui->actionSaveParameters->text());
    // Headers are read from their models as they are painted; the cached
    // sizes are measured again.
    for (QHeaderView *header : findChildren<QHeaderView *>()) {
        if (header->model())
            header->headerDataChanged(header->orientation(), 0, header->count() - 1);
    }
    checkReadOnly();
}

void CamDesignerViewImplementation::closeEvent(QCloseEvent *event)
{
    if (m_parameterModel && m_parameterModel->isWriting()) {
        event->ignore();
        return;
    }
    saveSettings();
    if (m_undoView)
        m_undoView->hide();
    QMainWindow::closeEvent(event);
    emit closed();
}
