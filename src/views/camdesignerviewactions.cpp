#include "camdesignerviewimplementation.h"

#include "ui_camdesignerview.h"

#include "camdesigner/camdescriptionimplementation.h"
#include "commands/undoview.h"
#include "curves/motionplan.h"
#include "defaultpathsetting.h"
#include "import/externalcurveimportview.h"
#include "import/gridpointexportdialog.h"
#include "camdesigner/controller.h"
#include "model/cameditormodel.h"
#include "parameters/parametermodelimplementation.h"
#include "seamquestion.h"

#include <filedialog.h>
#include <messagebox.h>

#include <QMenuBar>
#include <QToolBar>

// The editor window's file and drive actions: loading and saving the cam
// definition data, importing and exporting grid point tables, writing to the
// drive and deleting its table.

namespace {

const char DefaultPathKind[] = "CamDesigner";

} // namespace

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
