#include "configuratortest.h"
#include "fulldisk.h"

#include "plots/previewview.h"
#include "views/scalingview.h"

#include <QComboBox>
#include <QLineEdit>
#include <QProcess>

using namespace ConfiguratorTest;

class tst_ConfiguratorProject : public ConfiguratorTestCase
{
    Q_OBJECT
private slots:
    void damagedProjectIsRefused_data();
    void damagedProjectIsRefused();
    void openingAnotherProjectClosesTheEditors();
    void closingAsks_data();
    void closingAsks();
    void language();
    void fullDiskKeepsTheProject();
    void unattendedRunRefusesADamagedProject();
    void scalingIsSavedWithTheProject();
};

void tst_ConfiguratorProject::damagedProjectIsRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("no JSON") << QByteArray("{ \"Format\": \"MxDriveProject\", ");
    QTest::newRow("another format") << QByteArray(R"({"Drive": "MxSimulatedDrive", "Version": 1})");
    QTest::newRow("cam table 16") << QByteArray(
        R"({"Format": "MxDriveProject", "Version": 1, "Drive": {}, "CamDescriptions": {"16": {}}})");
    QTest::newRow("damaged drive") << QByteArray();  // the example with a broken parameter
}

// Opening a damaged file from the menu shows why and keeps the open project.
void tst_ConfiguratorProject::damagedProjectIsRefused()
{
    QFETCH(QByteArray, content);
    const QString path = copyOfExample();
    if (content.isEmpty()) {
        QJsonObject root = QJsonDocument::fromJson(readFile(path)).object();
        QJsonObject drive = root.value("Drive").toObject();
        QJsonObject parameters = drive.value("Parameters").toObject();
        parameters.insert("G68", QStringLiteral("viele"));
        drive.insert("Parameters", parameters);
        root.insert("Drive", drive);
        content = QJsonDocument(root).toJson();
    }
    const QString damaged = m_directory.filePath(QStringLiteral("kaputt.mxdrive"));
    QVERIFY(writeFile(damaged, content));

    DriveConfiguratorWindow window;
    QVERIFY(window.openProject(path));
    window.project()->setDescription(5, QJsonObject { { "MotionPoints", QJsonArray { QJsonArray { 0, 0 } } } });
    CamTablePage *page = window.page();
    const DriveProject *project = window.project();
    const QByteArray before = project->toJson();
    MessageCapture messages(QMessageBox::Discard);
    FileAnswer answer(damaged);
    actionNamed(&window, QStringLiteral("Ö&ffnen…"))->trigger();
    // Unsaved changes first: kept for now, then the refusal.
    QCOMPARE(messages.count(), 2);
    QCOMPARE(messages.last().title, QStringLiteral("Projekt kann nicht geöffnet werden"));
    QVERIFY2(messages.last().text.startsWith(
                 QStringLiteral("Die Datei „kaputt.mxdrive“ ist kein Antriebsprojekt oder ist beschädigt.")),
             qPrintable(messages.last().text));
    QCOMPARE(window.page(), page);
    QCOMPARE(window.project(), project);
    QCOMPARE(project->toJson(), before);
    QVERIFY(window.isWindowModified());
}

// The old project's editors close (keeping their layout) and their designers go.

void tst_ConfiguratorProject::openingAnotherProjectClosesTheEditors()
{
    DriveConfiguratorWindow window;
    QVERIFY(window.openProject(copyOfExample()));
    window.show();
    QPointer<CamDesignerViewImplementation> editor = openEditor(window, 3);
    QVERIFY(editor);
    editor->resize(700, 500);
    const QPointer<CamDesigner> designer = window.page()->cell(3)->designer();
    FileAnswer answer(ExampleProject);
    actionNamed(&window, QStringLiteral("Ö&ffnen…"))->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!editor);
    QVERIFY(!designer);
    QCOMPARE(window.project()->path(), QFileInfo(ExampleProject).absoluteFilePath());
    QCOMPARE(QSettings().value(QStringLiteral("CamDesigner/geometry")).isNull(), false);
    QVERIFY(openEditor(window, 3));
    QCOMPARE(editorWindows().constFirst()->size(), QSize(700, 500));
}

void tst_ConfiguratorProject::closingAsks_data()
{
    QTest::addColumn<bool>("modified");
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<bool>("saved");
    QTest::newRow("save") << true << int(QMessageBox::Save) << true << true;
    QTest::newRow("discard") << true << int(QMessageBox::Discard) << true << false;
    QTest::newRow("cancel") << true << int(QMessageBox::Cancel) << false << false;
    QTest::newRow("nothing changed") << false << int(QMessageBox::Cancel) << true << false;
}

void tst_ConfiguratorProject::closingAsks()
{
    QFETCH(bool, modified);
    QFETCH(int, answer);
    QFETCH(bool, closes);
    QFETCH(bool, saved);
    const QString path = copyOfExample();
    const QByteArray before = readFile(path);
    DriveConfiguratorWindow window;
    QVERIFY(window.openProject(path));
    window.show();
    CamTableCell *cell = window.page()->cell(2);
    // Changed in the editor: its own table loaded from table 3.
    if (modified) {
        QVERIFY(openEditor(window, 2));
        cell->description()->loadWithUndo(window.project()->description(3), QStringLiteral("3"));
    }
    MessageCapture messages(static_cast<QMessageBox::StandardButton>(answer));
    QCOMPARE(window.close(), closes);
    QCOMPARE(messages.count(), modified ? 1 : 0);
    if (modified) {
        QCOMPARE(messages.last().title, QStringLiteral("Ungespeicherte Änderungen"));
        QCOMPARE(messages.last().buttons, QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    }
    // Closing the host closes its editors; cancelling keeps them.
    QCOMPARE(editorWindows().size(), modified && !closes ? 1 : 0);
    QCOMPARE(readFile(path) != before, saved);
    if (saved) {
        QVERIFY(!window.isWindowModified());
        QString errorString;
        QCOMPARE(DriveProject::open(path, &errorString)->description(2), window.project()->description(3));
    }
}

void tst_ConfiguratorProject::language()
{
    {
        DriveConfiguratorWindow window;
        window.show();
        QCOMPARE(window.menuBar()->actions().at(0)->text(), QStringLiteral("&Datei"));
        // An editor open while the language changes follows it, as the page's buttons do.
        CamDesignerViewImplementation *editor = openEditor(window, 5);
        QVERIFY(editor);
        const auto preview = [&window] { return window.page()->cell(5)->findChild<PreviewView *>()->labelText(); };
        QCOMPARE(preview(), QStringLiteral("Kurvenscheibe 5\nKurveneditor ist geöffnet."));
        actionNamed(&window, QStringLiteral("English"))->trigger();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
        QCOMPARE(editor->windowTitle(), QStringLiteral("Cam table 5 – Untitled"));
        // The editor's own texts are the editor's test; the cell's label
        // follows as its preview does.
        QVERIFY2(preview().startsWith(QStringLiteral("Cam 5\n")), qPrintable(preview()));
        editor->close();
        QCOMPARE(window.menuBar()->actions().at(0)->text(), QStringLiteral("&File"));
        QCOMPARE(window.windowTitle(), QStringLiteral("Untitled[*] – Drive Configurator"));
        QCOMPARE(window.findChild<QLabel *>(QStringLiteral("driveStateLabel"))->text(),
                 QStringLiteral("Drive controller: offline, writable"));
    }
    DriveConfiguratorWindow again;
    QVERIFY(actionNamed(&again, QStringLiteral("English"))->isChecked());
    QCOMPARE(again.menuBar()->actions().at(1)->text(), QStringLiteral("&Drive"));
    actionNamed(&again, QStringLiteral("Deutsch"))->trigger();
    QCOMPARE(again.menuBar()->actions().at(1)->text(), QStringLiteral("&Antrieb"));
    QCOMPARE(QSettings().value(QStringLiteral("DriveConfigurator/language")).toString(), QStringLiteral("de"));
}

// A project saved onto a full disk: the user is told why, with the system's
// reason, the file on disk is the old one and the changes are still unsaved.
void tst_ConfiguratorProject::fullDiskKeepsTheProject()
{
    FullDisk disk;
    if (!disk.isMounted())
        QSKIP("a tmpfs cannot be mounted here (needs root)");
    const QString path = disk.filePath(QStringLiteral("projekt.mxdrive"));
    QVERIFY(QFile::copy(ExampleProject, path));
    QFile(path).setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    const QByteArray before = readFile(path);
    QVERIFY(disk.fill());

    DriveConfiguratorWindow window;
    QVERIFY(window.openProject(path));
    window.project()->setDescription(5, window.project()->description(3));
    MessageCapture messages;
    actionNamed(&window, QStringLiteral("&Speichern"))->trigger();
    QCOMPARE(messages.count(), 1);
    QCOMPARE(messages.last().title, QStringLiteral("Projekt kann nicht gespeichert werden"));
    QCOMPARE(messages.last().text, QStringLiteral("Das Projekt kann nicht nach „projekt.mxdrive“ gespeichert werden: ")
                                       + FullDisk::noSpaceText());
    QCOMPARE(readFile(path), before);
    QCOMPARE(disk.files(), QStringList{ QStringLiteral("projekt.mxdrive") });
    QVERIFY(window.isWindowModified());
    window.project()->setModified(false);
}

// Screenshots and measurements run without a user: a damaged project is not
// a box waiting for a click but a message on stderr and a failed run. Both
// options take the one way; --measure stands for them.
void tst_ConfiguratorProject::unattendedRunRefusesADamagedProject()
{
    const QString damaged = m_directory.filePath(QStringLiteral("kaputt.mxdrive"));
    QVERIFY(writeFile(damaged, "{ \"Format\": \"MxDriveProject\", "));
    QProcess run;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    run.setProcessEnvironment(environment);
    run.start(QStringLiteral(DRIVECONFIGURATOR_PATH), { QStringLiteral("--measure"), damaged });
    // Only a guard against a hang: a run that waits for a click never ends.
    if (!run.waitForFinished(120000)) {
        run.kill();
        run.waitForFinished();
        QFAIL("the run waited for a user");
    }
    QCOMPARE(run.exitStatus(), QProcess::NormalExit);
    QCOMPARE(run.exitCode(), 1);
    const QString errors = QString::fromLocal8Bit(run.readAllStandardError());
    QVERIFY2(errors.contains(QStringLiteral("Die Datei „kaputt.mxdrive“ ist kein Antriebsprojekt oder ist beschädigt.")),
             qPrintable(errors));
    QVERIFY(run.readAllStandardOutput().isEmpty());
}

// The cycle time and the selectors of the scaling are the drive's settings
// of the table: changed in the editor, they are in the saved project and
// come back in a fresh window.
void tst_ConfiguratorProject::scalingIsSavedWithTheProject()
{
    const QString path = copyOfExample();
    const auto fields = [](CamDesignerViewImplementation *editor) {
        ScalingView *view = editor->scalingView();
        return std::make_tuple(view->masterAxisBox(), view->cycleTimeEdit(), view->velocityBox());
    };
    {
        DriveConfiguratorWindow window;
        QVERIFY(window.openProject(path));
        window.show();
        CamDesignerViewImplementation *editor = openEditor(window, 4);
        QVERIFY(editor);
        auto [masterAxis, cycleTime, velocity] = fields(editor);
        // Chosen and typed as the user does: arrow keys in the boxes, the
        // time typed and confirmed.
        masterAxis->setFocus();
        QTest::keyClick(masterAxis, Qt::Key_Down);
        velocity->setFocus();
        QTest::keyClick(velocity, Qt::Key_Down);
        QTest::keyClick(velocity, Qt::Key_Down);
        cycleTime->setFocus();
        cycleTime->selectAll();
        QTest::keyClicks(cycleTime, QStringLiteral("0.0125"));
        QTest::keyClick(cycleTime, Qt::Key_Return);
        QCOMPARE(editor->undoStack()->count(), 4);
        QVERIFY(window.isWindowModified());
        actionNamed(&window, QStringLiteral("&Speichern"))->trigger();
        QVERIFY(!window.isWindowModified());
        editor->close();
        // Another table keeps its own settings.
        editor = openEditor(window, 5);
        QCOMPARE(std::get<0>(fields(editor))->currentIndex(), 0);
        editor->close();
    }
    DriveConfiguratorWindow fresh;
    QVERIFY(fresh.openProject(path));
    fresh.show();
    CamDesignerViewImplementation *editor = openEditor(fresh, 4);
    QVERIFY(editor);
    const auto [masterAxis, cycleTime, velocity] = fields(editor);
    QCOMPARE(masterAxis->currentIndex(), 1);
    QCOMPARE(cycleTime->text(), QStringLiteral("0.0125"));
    QCOMPARE(velocity->currentIndex(), 2);
    editor->close();
}

QTEST_MAIN(tst_ConfiguratorProject)
#include "tst_configuratorproject.moc"
