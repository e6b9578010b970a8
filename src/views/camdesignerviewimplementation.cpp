#include "camdesignerviewimplementation.h"

#include "ui_camdesignerview.h"

#include "camdesigner/camdescriptionimplementation.h"
#include "camdesigner/controller.h"
#include "commands/undoview.h"
#include "curves/motionplan.h"
#include "editingshortcutguard.h"
#include "model/cameditormodel.h"
#include "parameters/parametermodelimplementation.h"
#include "resources/camdesignerresources.h"

#include <messagebox.h>

#include <QCloseEvent>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>

// The window's construction, the state of its controls and its events. The
// dock layout and its settings, and the file and drive actions, each have a
// source file of their own.

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
    retranslateDocks();
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
