#include "camtablecell.h"
#include "camtablepage.h"
#include "driveconfiguratorwindow.h"
#include "driveproject.h"
#include "importdescriptiondialog.h"

#include "fileanswer.h"
#include "messagecapture.h"

#include "camdesigner/camdescription.h"
#include "camdesigner/camdesignerimplementation.h"
#include "camdesigner/controller.h"
#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "model/motionpoint.h"
#include "import/curvetextconverter.h"
#include "plots/curveplot.h"
#include "simulateddrive.h"
#include "views/camdesignerviewimplementation.h"
#include "views/motionplantreeeditor.h"
#include "views/pointeditview.h"
#include "views/positionlineedit.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

namespace {

const QString ExampleProject = QStringLiteral(MX_EXAMPLES "/example-project.mxdrive");
const QString WriteText = QStringLiteral("Schreibt die berechneten Stützstellen in Parameter");
const QString DeleteText = QStringLiteral("Entfernt Stützstellen aus Parametern (nur offline)");
const QString ImportText = QStringLiteral("&Kurvendefinitionsdaten aus Projekt importieren");

QAction *actionNamed(QWidget *window, const QString &text)
{
    for (QAction *action : window->findChildren<QAction *>()) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

QList<CamDesignerViewImplementation *> editorWindows()
{
    QList<CamDesignerViewImplementation *> editors;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *editor = qobject_cast<CamDesignerViewImplementation *>(widget); editor && editor->isVisible())
            editors.append(editor);
    }
    return editors;
}

// A click on the table's button, as the user opens the editor.
CamDesignerViewImplementation *openEditor(DriveConfiguratorWindow &window, int table)
{
    QAbstractButton *button = window.page()->cell(table)->button();
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(button->width() / 2, button->height() / 2));
    for (CamDesignerViewImplementation *editor : editorWindows()) {
        if (editor->windowTitle() == window.page()->cell(table)->editorTitle())
            return editor;
    }
    return nullptr;
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QString pointsOf(const CamTableCell *cell)
{
    return QString::fromUtf8(QJsonDocument(cell->description()->toJson().value(QStringLiteral("MotionPoints")).toArray())
                                 .toJson(QJsonDocument::Compact));
}

} // namespace

class tst_DriveConfigurator : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void cleanup();
    void exampleProject();
    void editWriteSaveAndReload();
    void damagedProjectIsRefused_data();
    void damagedProjectIsRefused();
    void openingAnotherProjectClosesTheEditors();
    void closingAsks_data();
    void closingAsks();
    void refusalsOfTheDrive_data();
    void refusalsOfTheDrive();
    void importFromAnotherProject();
    void stampFollowsTheDrive();
    void language();

private:
    QString copyOfExample();

    QTemporaryDir m_directory;
};

void tst_DriveConfigurator::initTestCase()
{
    QVERIFY(m_directory.isValid());
    QCoreApplication::setOrganizationName(QStringLiteral("MxTest"));
    QCoreApplication::setApplicationName(QStringLiteral("DriveConfiguratorTest"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_directory.filePath(QStringLiteral("settings")));
}

void tst_DriveConfigurator::init()
{
    QSettings().clear();
}

void tst_DriveConfigurator::cleanup()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(QApplication::topLevelWidgets().size(), 0);
}

QString tst_DriveConfigurator::copyOfExample()
{
    const QString path = m_directory.filePath(QStringLiteral("beispiel.mxdrive"));
    QFile::remove(path);
    if (!QFile::copy(ExampleProject, path))
        return QString();
    QFile(path).setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    return path;
}

// The bundled project: three tables stamped by the editor, the curve table
// as the import path converts the TwinCat2 file.
void tst_DriveConfigurator::exampleProject()
{
    DriveConfiguratorWindow window;
    QVERIFY(window.openProject(ExampleProject));
    QVERIFY(!window.isWindowModified());
    QCOMPARE(window.windowTitle(), QStringLiteral("example-project.mxdrive[*] – Antriebskonfigurator"));
    for (int table = 0; table < DriveProject::TableCount; ++table) {
        const CamTableCell *cell = window.page()->cell(table);
        const bool used = table == 0 || table == 3 || table == 7;
        QVERIFY2(used == (cell->storedCount() > 1), qPrintable(QString::number(table)));
        QCOMPARE(cell->stamp(), used ? CamTableCell::Stamp::Editor : CamTableCell::Stamp::None);
        QCOMPARE(cell->description()->isEmpty(), table != 0 && table != 3);
    }
    QStringList types;
    for (const QJsonValue &point : window.project()->description(0).value(QStringLiteral("MotionPoints")).toArray())
        types << point.toArray().at(2).toString();
    types.sort();
    QCOMPARE(types, (QStringList { "acceleration", "rest", "speed", "turningPoint" }));
    QVERIFY(window.project()->description(0).value(QStringLiteral("Cyclic")).toBool());
    QCOMPARE(window.project()->description(3).value(QStringLiteral("MotionLaw")).toString(), QStringLiteral("Spline"));

    CurveTextConverter converter;
    converter.setFormat(CurveTextConverter::TwinCat2);
    converter.setText(QString::fromUtf8(readFile(QStringLiteral(MX_EXAMPLES "/curve-twincat2.txt"))));
    const QPolygonF curve = converter.convert();
    QCOMPARE(window.page()->cell(7)->storedCount(), curve.size());
    const MxSimulation::SimulatedDrive *drive = window.project()->drive();
    const QString last = drive->readValue(DriveProject::LivingSpace, MxParameterDefinition::ParameterCoordinate("G420"),
                                          curve.size() - 1);
    QCOMPARE(QLocale::system().toDouble(last), curve.constLast().y());
}

// The whole way of one cam: edit in the tree and the plot, undo and redo,
// write, reopen the editor, save, and read the file into a fresh window.
void tst_DriveConfigurator::editWriteSaveAndReload()
{
    const QString path = copyOfExample();
    MessageCapture messages;
    const QString savedPath = m_directory.filePath(QStringLiteral("gespeichert.mxdrive"));
    QFile::remove(savedPath);
    {
        DriveConfiguratorWindow window;
        QVERIFY(window.openProject(path));
        window.show();
        CamTableCell *cell = window.page()->cell(0);
        CamDesignerViewImplementation *editor = openEditor(window, 0);
        QVERIFY(editor);
        QCOMPARE(editor->windowTitle(), QStringLiteral("Kurvenscheibe 0 – beispiel.mxdrive"));
        QVERIFY(cell->button()->isChecked());
        editor->resize(1200, 850);
        QVERIFY(QTest::qWaitForWindowExposed(editor));

        auto *tree = editor->findChild<MotionPlanTreeEditor *>();
        QVERIFY(tree);
        tree->selectRow(0);
        QTest::mouseClick(tree->addButton(), Qt::LeftButton);
        QCOMPARE(cell->description()->toJson().value(QStringLiteral("MotionPoints")).toArray().size(), 5);
        QVERIFY(window.isWindowModified());
        PositionLineEdit *slave = editor->findChild<PointEditView *>()->slaveEdit();
        slave->setFocus();
        slave->selectAll();
        QTest::keyClicks(slave, QStringLiteral("12"));
        QTest::keyClick(slave, Qt::Key_Return);
        QVERIFY2(pointsOf(cell).contains(QStringLiteral("[45,12,")), qPrintable(pointsOf(cell)));

        // The point at 90 dragged to 100 in the position plot.
        auto *plot = editor->findChild<CurvePlot *>(QStringLiteral("curvePlot0"));
        QVERIFY(plot);
        plot->replot();
        const auto pixel = [plot](double master, double slaveValue) {
            return QPoint(int(std::lround(plot->transform(QwtPlot::xBottom, master))),
                          int(std::lround(plot->transform(QwtPlot::yLeft, slaveValue))));
        };
        QWidget *canvas = plot->canvas();
        QTest::mousePress(canvas, Qt::LeftButton, Qt::NoModifier, pixel(90, 50));
        const QPoint target = pixel(100, 50);
        QMouseEvent move(QEvent::MouseMove, target, canvas->mapToGlobal(target), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(canvas, &move);
        QTest::mouseRelease(canvas, Qt::LeftButton, Qt::NoModifier, target);
        const QString dragged = pointsOf(cell);
        QVERIFY2(!dragged.contains(QStringLiteral("[90,50,")), qPrintable(dragged));
        QCOMPARE(editor->undoStack()->count(), 3);

        actionNamed(editor, QStringLiteral("&Rückgängig"))->trigger();
        QVERIFY(pointsOf(cell).contains(QStringLiteral("[90,50,")));
        actionNamed(editor, QStringLiteral("Wiederholen"))->trigger();
        QCOMPARE(pointsOf(cell), dragged);
        QCOMPARE(window.project()->description(0), cell->description()->toJson());

        actionNamed(editor, WriteText)->trigger();
        QCOMPARE(messages.count(), 0);
        const int calculated = static_cast<CamDesignerImplementation *>(cell->designer())
                                   ->editorModel()->motionPlan()->positions().size();
        QTRY_COMPARE(cell->storedCount(), calculated);
        QTRY_COMPARE(cell->stamp(), CamTableCell::Stamp::Editor);
        const int written = cell->storedCount();
        QVERIFY(written > 2);

        // Closed and opened again: one window, with the size and plot choice it had.
        actionNamed(editor, QStringLiteral("&Ruck ein-/ausblenden"))->trigger();
        editor->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!cell->button()->isChecked());
        QCOMPARE(editorWindows().size(), 0);
        editor = openEditor(window, 0);
        QVERIFY(editor);
        QCOMPARE(editorWindows().size(), 1);
        QCOMPARE(editor->size(), QSize(1200, 850));
        QVERIFY(actionNamed(editor, QStringLiteral("&Ruck ein-/ausblenden"))->isChecked());
        openEditor(window, 0);
        QCOMPARE(editorWindows().size(), 1);

        FileAnswer answer(savedPath);
        actionNamed(&window, QStringLiteral("Speichern &unter…"))->trigger();
        QCOMPARE(answer.requests.size(), 1);
        QVERIFY(!window.isWindowModified());
        QCOMPARE(editor->windowTitle(), QStringLiteral("Kurvenscheibe 0 – gespeichert.mxdrive"));

        DriveConfiguratorWindow fresh;
        QVERIFY(fresh.openProject(savedPath));
        for (int table = 0; table < DriveProject::TableCount; ++table) {
            const CamTableCell *before = window.page()->cell(table);
            const CamTableCell *after = fresh.page()->cell(table);
            QCOMPARE(after->description()->toJson(), before->description()->toJson());
            QCOMPARE(after->storedCount(), before->storedCount());
            QCOMPARE(after->storedCrc(), before->storedCrc());
            QCOMPARE(after->computedCrc(), before->computedCrc());
        }
        QCOMPARE(fresh.page()->cell(0)->storedCount(), written);
        QCOMPARE(fresh.page()->cell(0)->stamp(), CamTableCell::Stamp::Editor);
        // Another host window's project leaves this window's editor open.
        QCOMPARE(editorWindows(), QList<CamDesignerViewImplementation *> { editor });
    }
    QCOMPARE(messages.count(), 0);
}

void tst_DriveConfigurator::damagedProjectIsRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("no JSON") << QByteArray("{ \"Format\": \"MxDriveProject\", ");
    QTest::newRow("another format") << QByteArray(R"({"Drive": "MxSimulatedDrive", "Version": 1})");
    QTest::newRow("cam table 16") << QByteArray(
        R"({"Format": "MxDriveProject", "Version": 1, "Drive": {}, "CamDescriptions": {"16": {}}})");
    QTest::newRow("damaged drive") << QByteArray();  // the example with a broken parameter
}

// Opening a damaged file from the menu shows why and keeps the open project.
void tst_DriveConfigurator::damagedProjectIsRefused()
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
    writeFile(damaged, content);

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
void tst_DriveConfigurator::openingAnotherProjectClosesTheEditors()
{
    DriveConfiguratorWindow window;
    QVERIFY(window.openProject(copyOfExample()));
    window.show();
    QPointer<CamDesignerViewImplementation> editor = openEditor(window, 3);
    QVERIFY(editor);
    editor->resize(900, 700);
    const QPointer<CamDesigner> designer = window.page()->cell(3)->designer();
    FileAnswer answer(ExampleProject);
    actionNamed(&window, QStringLiteral("Ö&ffnen…"))->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!editor);
    QVERIFY(!designer);
    QCOMPARE(window.project()->path(), QFileInfo(ExampleProject).absoluteFilePath());
    QCOMPARE(QSettings().value(QStringLiteral("CamDesigner/geometry")).isNull(), false);
    QVERIFY(openEditor(window, 3));
    QCOMPARE(editorWindows().constFirst()->size(), QSize(900, 700));
}

void tst_DriveConfigurator::closingAsks_data()
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

void tst_DriveConfigurator::closingAsks()
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

void tst_DriveConfigurator::refusalsOfTheDrive_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("status");
    QTest::newRow("write while read-only") << "readOnlyAction" << WriteText << "Schreiben in Parameter nicht möglich"
                                           << "Antriebsregler: offline, schreibgeschützt";
    QTest::newRow("growing while online") << "onlineAction" << WriteText << "Ändern des Parameters nicht möglich"
                                          << "Antriebsregler: online, beschreibbar";
    QTest::newRow("deleting while online") << "onlineAction" << DeleteText << "Stützstellen löschen nicht möglich"
                                           << "Antriebsregler: online, beschreibbar";
}

// The drive's states from the host's tool bar; the editor of table 1, which
// takes table 0's cam from the project, refuses what the state forbids.
void tst_DriveConfigurator::refusalsOfTheDrive()
{
    QFETCH(QString, state);
    QFETCH(QString, action);
    QFETCH(QString, title);
    QFETCH(QString, status);
    DriveConfiguratorWindow window;
    QVERIFY(window.openProject(copyOfExample()));
    window.show();
    CamDesignerViewImplementation *editor = openEditor(window, 1);
    QVERIFY(editor);
    actionNamed(editor, ImportText)->trigger();
    auto *dialog = editor->findChild<ImportDescriptionDialog *>();
    QVERIFY(dialog && dialog->isVisible());
    auto *list = dialog->findChild<QListWidget *>(QStringLiteral("descriptionList"));
    QCOMPARE(list->count(), 2);  // tables 0 and 3; table 7 has no cam definition data
    QCOMPARE(list->item(0)->text(), QStringLiteral("Kurvenscheibe 0: 4 Bewegungspunkte, Vdi2142, zyklisch"));
    QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
    QCOMPARE(window.project()->description(1), window.project()->description(0));
    QCOMPARE(editor->undoStack()->text(0), QStringLiteral("Lade Kurvendefinitionsdaten : Kurvenscheibe 0 aus beispiel.mxdrive"));
    if (action == DeleteText) {  // something to delete: written while offline
        actionNamed(editor, WriteText)->trigger();
        QTRY_VERIFY(window.page()->cell(1)->storedCount() > 1);
    }
    const int stored = window.page()->cell(1)->storedCount();

    QAction *toggle = window.findChild<QAction *>(state);
    for (QWidget *widget : toggle->associatedWidgets()) {
        if (auto *button = qobject_cast<QAbstractButton *>(widget))
            QTest::mouseClick(button, Qt::LeftButton);
    }
    QVERIFY(toggle->isChecked());
    QCOMPARE(window.findChild<QLabel *>(QStringLiteral("driveStateLabel"))->text(), status);
    MessageCapture messages(QMessageBox::Yes);
    actionNamed(editor, action)->trigger();
    QCOMPARE(messages.count(), 1);
    QCOMPARE(messages.last().title, title);
    QTest::qWait(150);
    QCOMPARE(window.page()->cell(1)->storedCount(), stored);

    MessageCapture discard(QMessageBox::Discard);
    window.close();
}

// "Anderes Projekt…" lists every table of the chosen file; a damaged one is refused.
void tst_DriveConfigurator::importFromAnotherProject()
{
    DriveConfiguratorWindow window;
    window.show();
    CamDesignerViewImplementation *editor = openEditor(window, 4);
    QVERIFY(editor);
    actionNamed(editor, ImportText)->trigger();
    auto *dialog = editor->findChild<ImportDescriptionDialog *>();
    QVERIFY(dialog);
    auto *list = dialog->findChild<QListWidget *>(QStringLiteral("descriptionList"));
    QCOMPARE(list->count(), 1);
    QCOMPARE(list->item(0)->flags(), Qt::NoItemFlags);
    QPushButton *load = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
    QVERIFY(!load->isEnabled());

    auto *other = dialog->findChild<QPushButton *>(QStringLiteral("otherProjectButton"));
    const QString damaged = m_directory.filePath(QStringLiteral("leer.mxdrive"));
    writeFile(damaged, "[]");
    MessageCapture messages;
    {
        FileAnswer answer(damaged);
        QTest::mouseClick(other, Qt::LeftButton);
    }
    QCOMPARE(messages.count(), 1);
    QCOMPARE(messages.last().title, QStringLiteral("Projekt kann nicht gelesen werden"));
    QCOMPARE(list->count(), 1);
    {
        FileAnswer answer(ExampleProject);
        QTest::mouseClick(other, Qt::LeftButton);
    }
    QCOMPARE(list->count(), 2);
    list->setCurrentRow(1);
    QTest::mouseClick(load, Qt::LeftButton);
    const QJsonObject spline = window.page()->cell(4)->description()->toJson();
    QCOMPARE(spline.value("MotionLaw").toString(), QStringLiteral("Spline"));
    QCOMPARE(editor->undoStack()->text(0), QStringLiteral("Lade Kurvendefinitionsdaten : Kurvenscheibe 3 aus example-project.mxdrive"));
    actionNamed(editor, QStringLiteral("&Rückgängig"))->trigger();
    QVERIFY(window.page()->cell(4)->description()->isEmpty());
    QCOMPARE(messages.count(), 1);
    MessageCapture discard(QMessageBox::Discard);
    window.close();
}

// The stamp and the count follow the drive, whoever changes it.
void tst_DriveConfigurator::stampFollowsTheDrive()
{
    DriveConfiguratorWindow window;
    QVERIFY(window.openProject(copyOfExample()));
    CamTableCell *cell = window.page()->cell(3);
    auto *label = cell->findChild<QLabel *>(QStringLiteral("stampLabel"));
    QCOMPARE(label->text(), QStringLiteral("CRC: Kurvenscheibeneditor"));
    MxSimulation::SimulatedDrive *drive = window.project()->drive();
    QVERIFY(drive->writeValueNative(DriveProject::LivingSpace, MxParameterDefinition::ParameterCoordinate("G293"), 3,
                                    QString::number(cell->computedCrc() ^ 1u)));
    QTRY_COMPARE(label->text(), QStringLiteral("CRC: fremd"));
    QVERIFY(window.isWindowModified());
    QVERIFY(drive->writeValue(DriveProject::LivingSpace, MxParameterDefinition::ParameterCoordinate("G68"), 3,
                              QStringLiteral("1")));
    QTRY_COMPARE(cell->findChild<QLabel *>(QStringLiteral("countLabel"))->text(), QStringLiteral("Stützstellen: 1"));
    QCOMPARE(label->text(), QStringLiteral("CRC: –"));
    QCOMPARE(window.page()->cell(0)->stamp(), CamTableCell::Stamp::Editor);
}

// English from the menu: the host's texts change at once and the choice is kept.
void tst_DriveConfigurator::language()
{
    {
        DriveConfiguratorWindow window;
        QCOMPARE(window.menuBar()->actions().at(0)->text(), QStringLiteral("&Datei"));
        actionNamed(&window, QStringLiteral("English"))->trigger();
        QCOMPARE(window.menuBar()->actions().at(0)->text(), QStringLiteral("&File"));
        QCOMPARE(window.windowTitle(), QStringLiteral("Untitled[*] – Drive Configurator"));
        QCOMPARE(window.findChild<QLabel *>(QStringLiteral("driveStateLabel"))->text(),
                 QStringLiteral("Drive controller: offline, writable"));
        QCOMPARE(window.page()->cell(5)->findChild<QLabel *>(QStringLiteral("tableLabel"))->text(),
                 QStringLiteral("Cam table 5"));
        QCOMPARE(window.page()->cell(5)->editorTitle(), QStringLiteral("Cam table 5 – Untitled"));
    }
    DriveConfiguratorWindow again;
    QCOMPARE(again.language(), DriveConfiguratorWindow::Language::English);
    QVERIFY(actionNamed(&again, QStringLiteral("English"))->isChecked());
    QCOMPARE(again.menuBar()->actions().at(1)->text(), QStringLiteral("&Drive"));
    actionNamed(&again, QStringLiteral("Deutsch"))->trigger();
    QCOMPARE(again.menuBar()->actions().at(1)->text(), QStringLiteral("&Antrieb"));
    QCOMPARE(QSettings().value(QStringLiteral("DriveConfigurator/language")).toString(), QStringLiteral("de"));
}

QTEST_MAIN(tst_DriveConfigurator)
#include "tst_driveconfigurator.moc"
