#include "editorfixture.h"
#include "fileanswer.h"
#include "testfiles.h"

#include "commands/undoview.h"
#include "plots/curveplotstack.h"
#include "views/curvereportview.h"
#include "views/windowplacement.h"

#include <QLabel>
#include <QSignalSpy>
#include <QStatusBar>
#include <QToolBar>
#include <QPushButton>
#include <QScreen>
#include <QTableView>

#include <qtadvanceddocking/DockAreaWidget.h>
#include <qtadvanceddocking/DockWidget.h>

#include <cmath>

class tst_CamDesignerView : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { QCOMPARE(QApplication::topLevelWidgets().size(), 0); }
    void layoutPersistsAndResets();
    void reportDockFollowsEditsAndOldLayouts();
    void writeNeedsTwoPointsAndAWritableDrive();
    void writeHoldsTheWindow();
    void writeNamesAJumpAtTheSeam();
    void deleteAsksOfflineAndRefusesOnline();
    void exportAndImportCamFiles();
    void undoOverviewPopsUp();
    void decimalPlacesChangeClosesTheEditor();
    void windowFitsTheScreen();
};

// The plots shown by their actions, the size and the docks come back.
void tst_CamDesignerView::layoutPersistsAndResets()
{
    EditorFixture editor;
    CamDesignerViewImplementation *window = editor.open();
    window->resize(700, 500);
    actionNamed(window, QStringLiteral("&Ruck ein-/ausblenden"))->trigger();
    window->dock(CamDesignerViewImplementation::ScalingDock)->toggleView(false);
    window->close();
    QTRY_VERIFY(!editor.implementation()->view());

    window = editor.open();
    QCOMPARE(window->size(), QSize(700, 500));
    QVERIFY(window->plots()->plot(CurvePlot::Jerk)->isVisibleTo(window->plots()));
    QVERIFY(window->dock(CamDesignerViewImplementation::ScalingDock)->isClosed());
    actionNamed(window, QStringLiteral("Zurücksetzen"))->trigger();
    QVERIFY(!window->dock(CamDesignerViewImplementation::ScalingDock)->isClosed());
}

// The report dock is on the tool bar, follows an edit, and a layout
// saved before it existed still restores, with the dock among the tabs.
void tst_CamDesignerView::reportDockFollowsEditsAndOldLayouts()
{
    EditorFixture editor;
    CamDesignerViewImplementation *window = editor.open();
    ads::CDockWidget *dock = window->dock(CamDesignerViewImplementation::ReportDock);
    QVERIFY(window->findChild<QToolBar *>(QStringLiteral("toolBarKurve"))->actions().contains(dock->toggleViewAction()));
    dock->setAsCurrentTab();
    QTableView *sections = window->reportView()->sectionTable();
    editor.camDescription()->appendPoint(new MotionPoint(270, 10, MotionPoint::rest));
    QTRY_COMPARE(sections->model()->rowCount(), 3);
    // The sampling limit follows once the edits have settled.
    QTRY_VERIFY(window->reportView()->samplingLabel()->text().contains(QStringLiteral("statische Schrittweite")));
    window->close();
    QTRY_VERIFY(!editor.implementation()->view());

    // The saved arrangement without the report dock, as older editors wrote it.
    QSettings settings;
    QByteArray state = qUncompress(settings.value(QStringLiteral("CamDesigner/CDockManager")).toByteArray());
    const QByteArray entry = QByteArrayLiteral("<Widget Name=\"reportDock\" Closed=\"0\"/>");
    QVERIFY2(state.contains(entry), state.constData());
    settings.setValue(QStringLiteral("CamDesigner/CDockManager"), qCompress(state.replace(entry, QByteArray()), 9));
    window = editor.open();
    dock = window->dock(CamDesignerViewImplementation::ReportDock);
    QVERIFY(!dock->isClosed());
    QCOMPARE(dock->dockAreaWidget(), window->dock(CamDesignerViewImplementation::ParameterDock)->dockAreaWidget());
}

void tst_CamDesignerView::writeNeedsTwoPointsAndAWritableDrive()
{
    EditorFixture editor(R"({"MotionPoints": [[0, 0, "rest"]]})");
    CamDesignerViewImplementation *window = editor.open();
    QAction *write = actionNamed(window, QStringLiteral("Schreibt die berechneten Stützstellen in Parameter"));
    const QString twoPoints = QStringLiteral("Damit Stützpunkte berechnet werden können, fügen sie den "
                                             "Kurvendefinitionsdaten, mindestens zwei Bewegungspunkte hinzu.");
    // Enabled with the count of points: the random user test, after every step.
    QCOMPARE(write->toolTip(), twoPoints);

    editor.camDescription()->appendPoint(new MotionPoint(100, 10, MotionPoint::rest));
    QCOMPARE(window->writeButton()->toolTip(), QString());

    // A slave that is not a number (as a binary file may bring it) gives a
    // table the drive cannot take: the controls are off and say why.
    auto *broken = new MotionPoint(50, std::nan(""), MotionPoint::rest);
    editor.camDescription()->appendPoint(broken);
    QVERIFY(!write->isEnabled());
    QVERIFY2(write->toolTip().contains(QStringLiteral("keinen endlichen Wert")), qPrintable(write->toolTip()));
    QCOMPARE(window->writeButton()->toolTip(), write->toolTip());
    delete editor.camDescription()->takePoint(broken);

    auto *label = window->statusBar()->findChild<QLabel *>(QStringLiteral("readOnlyLabel"));
    // The other write controls while a write runs: writeHoldsTheWindow.
    for (bool readOnly : { true, false }) {
        editor.drive.setReadOnly(readOnly);
        QCOMPARE(label->text(), readOnly ? QStringLiteral("Antriebsregler ist schreibgeschützt.") : QString());
        QCOMPARE(window->writeButton()->isEnabled(), !readOnly);
    }
}

// While the write runs, nothing else writes and the window stays open.
// (What the drive then holds: the random user test, after every write.)
void tst_CamDesignerView::writeHoldsTheWindow()
{
    EditorFixture editor;
    CamDesignerViewImplementation *window = editor.open();
    int checked = 0;
    connect(editor.parameters(), &ParameterModelImplementation::saveProgressed, this, [&] {
        if (checked++ > 0)
            return;
        QVERIFY(!window->writeButton()->isEnabled());
        QVERIFY(!actionNamed(window, QStringLiteral("Entfernt Stützstellen aus Parametern (nur offline)"))->isEnabled());
        QVERIFY(!window->close());
    });
    window->writeButton()->click();
    QVERIFY(checked > 0);
}

// The drive runs a cyclic table round and round: a jump where its end meets
// its start is named, and the write waits for a yes. (Whether it asks, and
// what yes and no do: the random user test.)
void tst_CamDesignerView::writeNamesAJumpAtTheSeam()
{
    // The spline ends with another slope than it starts with.
    EditorFixture editor(R"({"Cyclic": true, "CircularLength": 360, "MotionLaw": "Spline",
        "MotionPoints": [[0, 0, "rest"], [90, 40, "speed"], [180, 0, "rest"]]})");
    MessageCapture messages { QMessageBox::No };
    editor.open()->writeButton()->click();
    QCOMPARE(messages.count(), 1);
    QVERIFY2(messages.last().text.contains(QStringLiteral("Nahtstelle bei der Master-Position 360.000 nicht stetig"))
                 && messages.last().text.contains(QStringLiteral("Geschwindigkeit springt um 0.4638"))
                 && !messages.last().text.contains(QStringLiteral("Position springt")),
             qPrintable(messages.last().text));
}

void tst_CamDesignerView::deleteAsksOfflineAndRefusesOnline()
{
    EditorFixture editor;
    CamDesignerViewImplementation *window = editor.open();
    ParameterModelImplementation *parameters = editor.parameters();
    parameters->writeGridPoints(editor.model()->motionPlan()->positions());
    const int stored = parameters->storedGridPointCount();
    QVERIFY(stored > 2);
    QAction *remove = actionNamed(window, QStringLiteral("Entfernt Stützstellen aus Parametern (nur offline)"));

    MessageCapture messages(QMessageBox::No);
    editor.drive.setOnline(true);
    remove->trigger();
    QCOMPARE(messages.last().title, QStringLiteral("Stützstellen löschen nicht möglich"));
    editor.drive.setOnline(false);
    remove->trigger();
    QCOMPARE(messages.last().text, QStringLiteral("Wollen die alle gespeicherten Stützstellen löschen?"));
    QCOMPARE(parameters->storedGridPointCount(), stored);
    messages.setAnswer(QMessageBox::Yes);
    remove->trigger();
    QVERIFY(parameters->storedGridPointCount() < 2);
}

void tst_CamDesignerView::exportAndImportCamFiles()
{
    EditorFixture editor;
    CamDesignerViewImplementation *window = editor.open();
    QTemporaryDir files;
    const QString path = files.filePath(QStringLiteral("nocke.json"));
    const QJsonObject exported = editor.description->toJson();
    {
        FileAnswer answer(path);
        actionNamed(window, QStringLiteral("&Kurvendefinitionsdaten exportieren"))->trigger();
    }
    editor.camDescription()->setCyclic(true);
    {
        FileAnswer answer(path);
        actionNamed(window, QStringLiteral("&Kurvendefinitionsdaten aus Datei importieren"))->trigger();
        // The directory of the last file is where the next dialog starts.
        QCOMPARE(answer.requests.first().directory, files.path());
    }
    // Loaded with undo (its text: tst_camdatafile).
    QCOMPARE(editor.description->toJson(), exported);
    window->undoStack()->undo();
    QVERIFY(editor.camDescription()->isCyclic());

    MessageCapture messages;
    FileAnswer answer(files.filePath(QStringLiteral("fehlt/nocke.json")));
    actionNamed(window, QStringLiteral("&Kurvendefinitionsdaten exportieren"))->trigger();
    QCOMPARE(messages.count(), 1);
    QCOMPARE(messages.last().title, QStringLiteral("Speichern der Datei Fehlgeschlagen. Datei eventuell schreibgeschützt."));

    // A damaged file is refused with a box; what it says and that the cam and
    // the undo stack stay: tst_camdatafile.
    const QString damaged = files.filePath(QStringLiteral("kaputt.json"));
    QVERIFY(writeFile(damaged, R"({"MotionPoints": [[0, 0], [90, 5)"));
    FileAnswer damagedAnswer(damaged);
    actionNamed(window, QStringLiteral("&Kurvendefinitionsdaten aus Datei importieren"))->trigger();
    QCOMPARE(messages.count(), 2);
    QCOMPARE(messages.last().title, QStringLiteral("Kurvendefinitionsdaten nicht geladen"));
    QVERIFY(messages.last().text.startsWith(QStringLiteral("Die Datei „kaputt.json“ enthält keine gültigen")));
}

// Undo and redo by their actions: tst_randomuseractions, after every step.
void tst_CamDesignerView::undoOverviewPopsUp()
{
    EditorFixture editor;
    CamDesignerViewImplementation *window = editor.open();
    QAction *overview = actionNamed(window, QStringLiteral("Rückgängig Übersicht"));
    overview->trigger();
    UndoView *popUp = nullptr;
    for (QWidget *widget : QApplication::topLevelWidgets())
        popUp = popUp ? popUp : qobject_cast<UndoView *>(widget);
    QVERIFY(popUp && popUp->isVisible());
    popUp->hide();
    QVERIFY(!overview->isChecked());
}

// The box is window-modal and does not block; its button closes the editor.
void tst_CamDesignerView::decimalPlacesChangeClosesTheEditor()
{
    EditorFixture editor;
    editor.open();
    QSignalSpy closed(editor.implementation(), &CamDesignerImplementation::closed);
    MessageCapture messages;
    QVERIFY(editor.drive.writeValue(0, MxParameterDefinition::ParameterCoordinate(QStringLiteral("G46")), 0,
                                    QStringLiteral("2")));
    QCOMPARE(messages.count(), 1);
    QCOMPARE(messages.last().title, QStringLiteral("Nachkommastellen wurden geändert"));
    QCOMPARE(closed.count(), 1);
    QTRY_VERIFY(!editor.implementation()->view());
}

// The offscreen screen is 800 × 600, smaller than the default window. A
// geometry saved on a screen since removed, or below this one, has no screen
// under it; the window still comes up on this one, whole.
void tst_CamDesignerView::windowFitsTheScreen()
{
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    QVERIFY(available.width() < 1280 && available.height() < 800);
    EditorFixture editor;
    {
        // A geometry as an earlier run on another screen saved it.
        QWidget other;
        other.setGeometry(QRect(3000, 2000, 1280, 800));
        QSettings().setValue(QStringLiteral("CamDesigner/geometry"), other.saveGeometry());
    }
    CamDesignerViewImplementation *window = editor.open();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QCOMPARE(available.united(window->frameGeometry()), available);
    // Moved onto no screen at all, a window is brought back onto one.
    QWidget lost;
    lost.setGeometry(QRect(5000, 5000, 300, 200));
    WindowPlacement::fitIntoScreen(&lost);
    QCOMPARE(available.united(lost.frameGeometry()), available);

    QCOMPARE(WindowPlacement::fitted(QRect(0, 215, 1280, 800), QRect(0, 0, 1920, 1000)), QRect(0, 200, 1280, 800));
    QCOMPARE(WindowPlacement::fitted(QRect(100, 100, 400, 300), QRect(0, 0, 1920, 1000)), QRect(100, 100, 400, 300));
}

QTEST_MAIN(tst_CamDesignerView)
#include "tst_camdesignerview.moc"
