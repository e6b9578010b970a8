#include "driveconfiguratorwindow.h"

#include "camtablecell.h"
#include "camtablepage.h"
#include "driveproject.h"
#include "importdescriptiondialog.h"

#include "filedialog.h"
#include "messagebox.h"
#include "simulateddrive.h"

#include <camdesigner/camdescription.h>
#include <camdesigner/camdesigner.h>

#include <QAbstractButton>
#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QLibraryInfo>
#include <QMenuBar>
#include <QPointer>
#include <QScreen>
#include <QScrollArea>
#include <QSettings>
#include <QStatusBar>
#include <QToolBar>

namespace {

const QString LanguageKey = QStringLiteral("DriveConfigurator/language");
const QString EnglishCode = QStringLiteral("en");
const QString GermanCode = QStringLiteral("de");
const QString ProjectSuffix = QStringLiteral("mxdrive");

} // namespace

DriveConfiguratorWindow::DriveConfiguratorWindow(QWidget *parent)
    : QMainWindow(parent)
    , m_scrollArea(new QScrollArea(this))
    , m_stateLabel(new QLabel(this))
{
    setObjectName(QStringLiteral("driveConfiguratorWindow"));
    m_scrollArea->setWidgetResizable(true);
    m_scrollArea->setFrameShape(QFrame::NoFrame);
    setCentralWidget(m_scrollArea);
    m_stateLabel->setObjectName(QStringLiteral("driveStateLabel"));
    statusBar()->addPermanentWidget(m_stateLabel);
    createActions();
    setProject(std::make_unique<DriveProject>());
    setLanguage(storedLanguage());
    retranslate();
    // The page's size where the screen has room, else the screen's.
    const QSize wanted(1400, 900);
    resize(screen() ? wanted.boundedTo(screen()->availableGeometry().size()) : wanted);
}

// The page goes first: its designers delete their editors while the drive lives.
DriveConfiguratorWindow::~DriveConfiguratorWindow()
{
    delete m_page;
}

void DriveConfiguratorWindow::createActions()
{
    m_newAction = new QAction(this);
    m_newAction->setShortcut(QKeySequence::New);
    connect(m_newAction, &QAction::triggered, this, &DriveConfiguratorWindow::newProject);
    m_openAction = new QAction(this);
    m_openAction->setShortcut(QKeySequence::Open);
    connect(m_openAction, &QAction::triggered, this, &DriveConfiguratorWindow::openFile);
    m_saveAction = new QAction(this);
    m_saveAction->setShortcut(QKeySequence::Save);
    connect(m_saveAction, &QAction::triggered, this, &DriveConfiguratorWindow::save);
    m_saveAsAction = new QAction(this);
    m_saveAsAction->setShortcut(QKeySequence::SaveAs);
    connect(m_saveAsAction, &QAction::triggered, this, &DriveConfiguratorWindow::saveAs);
    m_quitAction = new QAction(this);
    m_quitAction->setShortcut(QKeySequence::Quit);
    connect(m_quitAction, &QAction::triggered, this, &QWidget::close);

    m_fileMenu = menuBar()->addMenu(QString());
    m_fileMenu->addActions({ m_newAction, m_openAction, m_saveAction, m_saveAsAction });
    m_fileMenu->addSeparator();
    m_fileMenu->addAction(m_quitAction);

    m_onlineAction = new QAction(this);
    m_onlineAction->setObjectName(QStringLiteral("onlineAction"));
    m_onlineAction->setCheckable(true);
    connect(m_onlineAction, &QAction::toggled, this, [this](bool online) { m_project->drive()->setOnline(online); });
    m_readOnlyAction = new QAction(this);
    m_readOnlyAction->setObjectName(QStringLiteral("readOnlyAction"));
    m_readOnlyAction->setCheckable(true);
    connect(m_readOnlyAction, &QAction::toggled, this,
            [this](bool readOnly) { m_project->drive()->setReadOnly(readOnly); });
    m_driveMenu = menuBar()->addMenu(QString());
    m_driveMenu->addActions({ m_onlineAction, m_readOnlyAction });
    m_driveToolBar = addToolBar(QString());
    m_driveToolBar->setObjectName(QStringLiteral("driveToolBar"));
    m_driveToolBar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_driveToolBar->addActions({ m_onlineAction, m_readOnlyAction });

    // The language names stay in their own language, whatever is shown.
    m_germanAction = new QAction(QStringLiteral("Deutsch"), this);
    m_englishAction = new QAction(QStringLiteral("English"), this);
    m_languageGroup = new QActionGroup(this);
    for (QAction *action : { m_germanAction, m_englishAction }) {
        action->setCheckable(true);
        m_languageGroup->addAction(action);
    }
    m_germanAction->setChecked(true);
    connect(m_germanAction, &QAction::triggered, this, [this] { setLanguage(Language::German); });
    connect(m_englishAction, &QAction::triggered, this, [this] { setLanguage(Language::English); });
    m_languageMenu = menuBar()->addMenu(QString());
    m_languageMenu->addActions(m_languageGroup->actions());
}

void DriveConfiguratorWindow::retranslate()
{
    m_fileMenu->setTitle(tr("&Datei"));
    m_newAction->setText(tr("&Neu"));
    m_newAction->setStatusTip(tr("Ein neues Antriebsprojekt beginnen."));
    m_openAction->setText(tr("Ö&ffnen…"));
    m_openAction->setStatusTip(tr("Ein Antriebsprojekt aus einer Datei öffnen."));
    m_saveAction->setText(tr("&Speichern"));
    m_saveAction->setStatusTip(tr("Das Antriebsprojekt speichern."));
    m_saveAsAction->setText(tr("Speichern &unter…"));
    m_saveAsAction->setStatusTip(tr("Das Antriebsprojekt in eine andere Datei speichern."));
    m_quitAction->setText(tr("&Beenden"));
    m_driveMenu->setTitle(tr("&Antrieb"));
    m_onlineAction->setText(tr("Online"));
    m_onlineAction->setStatusTip(tr("Verbindung zum Antriebsregler: online können die Stützstellen-Arrays nicht "
                                    "vergrößert und nicht gelöscht werden."));
    m_readOnlyAction->setText(tr("Schreibgeschützt"));
    m_readOnlyAction->setStatusTip(tr("Der Antriebsregler nimmt keine Werte an."));
    m_driveToolBar->setWindowTitle(tr("Antrieb"));
    m_languageMenu->setTitle(tr("&Sprache"));
    updateTitle();
    updateDriveState();
    if (m_page)
        m_page->updateTexts();
}

void DriveConfiguratorWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QMainWindow::changeEvent(event);
}

void DriveConfiguratorWindow::setProject(std::unique_ptr<DriveProject> project)
{
    closeEditors();
    // The old designers go before the drive they are bound to.
    delete m_page;
    m_page = nullptr;
    m_project = std::move(project);
    MxSimulation::SimulatedDrive *drive = m_project->drive();
    connect(drive, &MxSimulation::SimulatedDrive::onlineChanged, this, &DriveConfiguratorWindow::updateDriveState);
    connect(drive, &MxSimulation::SimulatedDrive::readOnlyChanged, this,
            &DriveConfiguratorWindow::updateDriveState);
    connect(m_project.get(), &DriveProject::modifiedChanged, this, &QWidget::setWindowModified);
    m_page = new CamTablePage(m_project.get());
    connect(m_page, &CamTablePage::importDescriptionRequested, this, &DriveConfiguratorWindow::showImportDialog);
    m_scrollArea->setWidget(m_page);
    setWindowModified(m_project->isModified());
    updateTitle();
    updateDriveState();
}

void DriveConfiguratorWindow::closeEditors()
{
    if (!m_page)
        return;
    // Closed as the user closes them, so that each keeps its layout; the
    // designers delete what is left. The library hands out no window, so an
    // open table's editor is known by the title this host gave it.
    QStringList titles;
    for (int table = 0; table < DriveProject::TableCount; ++table) {
        const CamTableCell *cell = m_page->cell(table);
        if (cell->button()->isChecked())
            titles << cell->editorTitle();
    }
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget != this && qobject_cast<QMainWindow *>(widget) && widget->isVisible()
            && titles.contains(widget->windowTitle()))
            widget->close();
    }
}

void DriveConfiguratorWindow::updateTitle()
{
    setWindowTitle(tr("%1[*] – Antriebskonfigurator").arg(m_project->displayName()));
}

void DriveConfiguratorWindow::updateDriveState()
{
    const MxSimulation::SimulatedDrive *drive = m_project->drive();
    {
        const QSignalBlocker onlineBlocker(m_onlineAction);
        const QSignalBlocker readOnlyBlocker(m_readOnlyAction);
        m_onlineAction->setChecked(drive->isOnline());
        m_readOnlyAction->setChecked(drive->isReadOnly());
    }
    const QString connection = drive->isOnline() ? tr("online") : tr("offline");
    const QString access = drive->isReadOnly() ? tr("schreibgeschützt") : tr("beschreibbar");
    m_stateLabel->setText(tr("Antriebsregler: %1, %2").arg(connection, access));
}

void DriveConfiguratorWindow::newProject()
{
    if (maybeSave())
        setProject(std::make_unique<DriveProject>());
}

void DriveConfiguratorWindow::openFile()
{
    if (!maybeSave())
        return;
    const QString path = FileDialog::getOpenFileName(this, tr("Antriebsprojekt öffnen"),
                                                     QFileInfo(m_project->path()).path(),
                                                     tr("Antriebsprojekte (*.mxdrive);;Alle Dateien (*)"));
    if (!path.isEmpty())
        openProject(path);
}

bool DriveConfiguratorWindow::openProject(const QString &path)
{
    QString errorString;
    std::unique_ptr<DriveProject> project = DriveProject::open(path, &errorString);
    if (!project) {
        MessageBox::warning(this, tr("Projekt kann nicht geöffnet werden"), errorString);
        return false;
    }
    setProject(std::move(project));
    return true;
}

bool DriveConfiguratorWindow::save()
{
    if (m_project->path().isEmpty())
        return saveAs();
    QString errorString;
    if (!m_project->save(m_project->path(), &errorString)) {
        MessageBox::warning(this, tr("Projekt kann nicht gespeichert werden"), errorString);
        return false;
    }
    return true;
}

bool DriveConfiguratorWindow::saveAs()
{
    QString path = FileDialog::getSaveFileName(this, tr("Antriebsprojekt speichern unter"), m_project->path(),
                                               tr("Antriebsprojekte (*.mxdrive)"));
    if (path.isEmpty())
        return false;
    if (QFileInfo(path).suffix().isEmpty())
        path += QLatin1Char('.') + ProjectSuffix;
    QString errorString;
    if (!m_project->save(path, &errorString)) {
        MessageBox::warning(this, tr("Projekt kann nicht gespeichert werden"), errorString);
        return false;
    }
    updateTitle();
    m_page->updateTexts();
    return true;
}

bool DriveConfiguratorWindow::maybeSave()
{
    if (!m_project->isModified())
        return true;
    const QMessageBox::StandardButton answer = MessageBox::question(
        this, tr("Ungespeicherte Änderungen"),
        tr("Das Antriebsprojekt „%1“ wurde geändert. Sollen die Änderungen gespeichert werden?")
            .arg(m_project->displayName()),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    if (answer == QMessageBox::Save)
        return save();
    return answer == QMessageBox::Discard;
}

void DriveConfiguratorWindow::closeEvent(QCloseEvent *event)
{
    if (!maybeSave()) {
        event->ignore();
        return;
    }
    closeEditors();
    event->accept();
}

void DriveConfiguratorWindow::showImportDialog(int table, QWidget *parent, CamDescription *description)
{
    QVector<QJsonObject> descriptions;
    for (int other = 0; other < DriveProject::TableCount; ++other)
        descriptions.append(m_project->description(other));
    auto *dialog = new ImportDescriptionDialog(descriptions, m_project->displayName(), table,
                                               parent ? parent : this);
    dialog->setObjectName(QStringLiteral("importDescriptionDialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    const QPointer<CamDescription> target(description);
    connect(dialog, &QDialog::accepted, this, [dialog, target] {
        if (target)
            target->loadWithUndo(dialog->selectedDescription(), dialog->selectedName());
    });
    // Not exec(): the editor stays responsive and nothing waits in a nested loop.
    dialog->open();
}

DriveConfiguratorWindow::Language DriveConfiguratorWindow::storedLanguage()
{
    return QSettings().value(LanguageKey).toString() == EnglishCode ? Language::English : Language::German;
}

void DriveConfiguratorWindow::setLanguage(Language language)
{
    m_language = language;
    QSettings().setValue(LanguageKey, language == Language::English ? EnglishCode : GermanCode);
    (language == Language::English ? m_englishAction : m_germanAction)->setChecked(true);
    const QLocale locale(language == Language::English ? QLocale::English : QLocale::German);
    CamDesigner::installTranslator(locale);
    QCoreApplication::removeTranslator(&m_translator);
    QCoreApplication::removeTranslator(&m_qtTranslator);
    // The source texts are German; English comes from the host's translation.
    if (language == Language::English && m_translator.load(QStringLiteral(":/translations/driveconfigurator_en.qm")))
        QCoreApplication::installTranslator(&m_translator);
    // Qt's own texts (the buttons of message boxes) are English without one.
    if (language == Language::German
        && m_qtTranslator.load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                               QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_qtTranslator);
    retranslate();
}
