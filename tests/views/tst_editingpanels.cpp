#include "editorfixture.h"

#include "commands/loadnewmotionplancommand.h"
#include "model/scaling.h"
#include "views/camsettingsview.h"
#include "views/comparisontablemodel.h"
#include "views/comparisonview.h"
#include "views/motionplantreeeditor.h"
#include "views/pointeditview.h"
#include "views/positionlineedit.h"
#include "views/scalingview.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QGuiApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTreeView>

#include <functional>

namespace {

// Cyclic over 360 (the closing point makes the range 360 with 4 points), so
// that every settings field applies in one mode or the other.
const char CyclicCam[] = R"({"Cyclic": true, "CircularLength": 360,
    "MotionPoints": [[0, 0, "rest"], [90, 40, "speed"], [180, 0, "rest"]]})";
const char LawCam[] = R"({"Cyclic": true, "CircularLength": 360,
    "MotionPoints": [[0, 0, "rest", {"law": "Cycloid"}], [90, 40, "speed"], [180, 0, "rest"]]})";
const char StaticCam[] = R"({"Cyclic": true, "CircularLength": 360, "Steps": {"isDynamicStepSize": false},
    "MotionPoints": [[0, 0, "rest"], [90, 40, "speed"], [180, 0, "rest"]]})";

// A choice from the open list, as a click makes it.
void choose(QComboBox *box, int index)
{
    box->showPopup();
    QAbstractItemView *list = box->view();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->model()->index(index, 0)).center());
    QTRY_VERIFY(!list->isVisible());
}

struct Panels {
    EditorFixture editor;
    CamDesignerViewImplementation *window;
    MotionPlanTreeEditor *tree;
    CamSettingsView *settings;
    PointEditView *point;
    Controller *stack;

    explicit Panels(const char *cam = CyclicCam)
        : editor(cam)
        , window(editor.open())
        , tree(window->motionPlanEditor())
        , settings(tree->settingsView())
        , point(tree->pointEditView())
        , stack(window->undoStack())
    {
        QVERIFY(QTest::qWaitForWindowActive(window));
    }
};

using Action = std::function<void(Panels &)>;

} // namespace

Q_DECLARE_METATYPE(Action)

class tst_EditingPanels : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { QCOMPARE(QApplication::topLevelWidgets().size(), 0); }
    void commands_data();
    void commands();
    void refusals_data();
    void refusals();
    void addAndRemoveMoveTheSelection();
    void pointEditCommitsOnLeavingAndRevertsOnEscape();
    void changedRefreshesEveryPanelWithoutPushing();
    void changesElsewhereShowInEveryPanel();
    void comparisonMarksWhatAWriteWouldChange();
    void cyclicCamKeepsEveryPointInsideTheCycle();
};

// Each user action pushes exactly one command (its undo and redo:
// tst_undorandom and the random user test). The plain settings, scaling,
// segment type and position edits, rounded or not, are the random user
// test's (tst_randomuseractions), which checks the undo text of each; here
// what it does not do: decimal commas, the section columns, the periodic
// spline.
void tst_EditingPanels::commands_data()
{
    QTest::addColumn<QByteArray>("cam");
    QTest::addColumn<Action>("action");
    QTest::addColumn<QString>("undoText");
    QTest::addColumn<QString>("after");  // a part of the state that only the new one has
    const QByteArray cyclic(CyclicCam);
    // Decimal commas as well as points: the test runs under the C locale,
    // where a comma was no decimal mark before.
    // A cell opened by F2: a text typed, or else an entry of its list chosen.
    const auto editCell = [](int row, int column, const QString &text, int choice = 0) {
        return Action([row, column, text, choice](Panels &p) {
            QTreeView *view = p.tree->pointTree();
            view->setFocus();
            view->setCurrentIndex(view->model()->index(row, column));
            QTest::keyClick(view, Qt::Key_F2);
            if (text.isEmpty())
                choose(view->viewport()->findChild<QComboBox *>(), choice);
            else
                type(view->viewport()->findChild<QLineEdit *>(), text);
        });
    };
    QTest::newRow("tree slave cell")
        << cyclic << editCell(1, 1, "45,5") << "Ändere Bewegungspunkt [90.000;40.000,Konstante Geschwindigkeit]) -> [90.000;45.500;Konstante Geschwindigkeit]"
        << "[90,45.5,\"speed\"]";
    QTest::newRow("tree section law cell") << cyclic << editCell(0, 3, QString(), 2)
                                           << "Ändere Abschnittsgesetz [0.000] von Polynom 5. Grades -> Zykloide"
                                           << "[0,0,\"rest\",{\"law\":\"Cycloid\"}]";
    QTest::newRow("tree inflection cell") << QByteArray(LawCam) << editCell(0, 4, "0.3")
                                          << "Ändere Wendepunkt [0.000] von 0.5 -> 0.3" << "\"inflection\":0.3";
    QTest::newRow("tree velocity cell") << cyclic << editCell(1, 5, "0.75")
                                        << "Ändere Geschwindigkeit [90.000] von automatisch -> 0.75" << "\"velocity\":0.75";
    QTest::newRow("periodic spline") << cyclic << Action([](Panels &p) { choose(p.settings->motionLawBox(), 2); })
                                     << "Ändere Bewegungsgesetz von Polynom fünften Grades -> Kubischer Spline (periodisch)"
                                     << "\"MotionLaw\":\"SplinePeriodic\"";
    QTest::newRow("point master keeps the section") << QByteArray(LawCam) << Action([](Panels &p) {
        p.tree->selectRow(0);
        type(p.point->masterEdit(), "4,5");
    }) << "Ändere Bewegungspunkt [0.000;0.000,Rast]) -> [4.500;0.000;Rast]" << "[4.5,0,\"rest\",{\"law\":\"Cycloid\"}]";
}

void tst_EditingPanels::commands()
{
    QFETCH(QByteArray, cam);
    QFETCH(Action, action);
    QFETCH(QString, undoText);
    QFETCH(QString, after);
    Panels panels(cam.constData());
    MessageCapture messages;
    const QString before = panels.editor.state();
    action(panels);
    QCOMPARE(panels.stack->count(), 1);
    QCOMPARE(panels.stack->text(0), undoText);
    const QString changed = panels.editor.state();
    QVERIFY2(changed.contains(after) && !before.contains(after), qPrintable(changed));
}

// A refused input shows its message, pushes nothing, leaves the model, and
// the field shows the model's value again.
void tst_EditingPanels::refusals_data()
{
    QTest::addColumn<QByteArray>("cam");
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("message");
    enum { Master, Slave, StepSize, CircularLength, CycleTime, Resolution };
    const QByteArray cyclic(CyclicCam);
    // The drive's limits and a master already taken: their texts are the
    // parameter model's and the commands' tests, their boxes the random user's.
    // With grouping, a number could be read two ways: refused, with the hint.
    QTest::newRow("grouping") << cyclic << int(Master) << "1.000,5"
                              << "\"1.000,5\" ist keine gültige Master-Position. " + PositionLineEdit::numberHint();
    // round(360 / 15996 * 1000) / 1000 = 0.023
    QTest::newRow("step below minimum") << QByteArray(StaticCam) << int(StepSize) << "0.022"
                                        << "Die Schrittweite ist zu klein. Bitte wählen sie einen Wert größer 0.023";
    // A cyclic cam starts again at its circular length.
    const char *beyondCycle = "Die Master-Position %1.000 ° liegt nicht unterhalb der Umlauflänge 360.000 ° der "
                              "zyklischen Kurvenscheibe.";
    QTest::newRow("master 360 on a cycle of 360") << cyclic << int(Master) << "360"
                                                  << QString::fromUtf8(beyondCycle).arg(360);
    QTest::newRow("circular length 180 with a point at 180")
        << cyclic << int(CircularLength) << "180"
        << "Die Umlauflänge 180.000 ° muss größer sein als die Master-Position 180.000 ° des letzten Bewegungspunkts.";
    // Rounded to four places: zero. Zero and below take the same branch.
    const char *cycleMessage = "\"%1\" ist keine gültige Zykluszeit. Bitte geben Sie eine Zeit in Sekunden größer als 0 ein.";
    QTest::newRow("cycle time 0.00004") << cyclic << int(CycleTime) << "0.00004"
                                        << QString::fromUtf8(cycleMessage).arg("0.00004");
    // Refused as typed, not cut to the digits that fit (1600, 2000).
    const char *countMessage = "%1 Stützstellen sind nicht möglich. Die Anzahl Stützstellen muss zwischen 2 und 16000 liegen.";
    for (const char *input : { "16001", "1" })
        QTest::newRow(qPrintable(QStringLiteral("grid point count %1").arg(input)))
            << cyclic << int(Resolution) << input << QString::fromUtf8(countMessage).arg(input);
    // A trailing tab: the edit ends by leaving the field instead of Enter.
    QTest::newRow("grid point count 20000, field left") << cyclic << int(Resolution) << "20000\t"
                                                        << QString::fromUtf8(countMessage).arg("20000");
}

void tst_EditingPanels::refusals()
{
    QFETCH(QByteArray, cam);
    QFETCH(int, field);
    QFETCH(QString, input);
    QFETCH(QString, message);
    Panels panels(cam.constData());
    panels.editor.model()->scaling()->setMasterAxisScaling(Scaling::CycleTime);
    panels.tree->selectRow(0);
    QWidget *fields[] = { panels.point->masterEdit(), panels.point->slaveEdit(), panels.settings->stepSizeEdit(),
                          panels.settings->circularLengthEdit(), panels.window->scalingView()->cycleTimeEdit(),
                          panels.settings->resolutionBox() };
    QWidget *edit = fields[field];
    const auto shownText = [edit] { return edit->property("text").toString(); };
    const QString shown = shownText();
    const QString before = panels.editor.state();
    MessageCapture messages;
    const bool leave = input.endsWith(QLatin1Char('\t'));
    type(edit, input.trimmed(), leave ? Qt::Key_Tab : Qt::Key_Return);
    QCOMPARE(messages.count(), 1);
    QCOMPARE(messages.last().text, message);
    QCOMPARE(panels.stack->count(), 0);
    QCOMPARE(panels.editor.state(), before);
    QCOMPARE(shownText(), shown);
}

// A new point is selected; after a removal the neighbour is. An add that
// rounds onto an existing master is refused by the command. (The undo texts
// of adds and removals: tst_randomuseractions.)
void tst_EditingPanels::addAndRemoveMoveTheSelection()
{
    Panels panels;
    MessageCapture messages;
    panels.tree->selectRow(0);
    QTest::mouseClick(panels.tree->addButton(), Qt::LeftButton);
    QCOMPARE(panels.tree->currentRow(), 1);

    panels.tree->selectRow(2);
    QTest::mouseClick(panels.tree->removeButton(), Qt::LeftButton);
    QCOMPARE(panels.tree->currentRow(), 2);
    QTest::mouseClick(panels.tree->removeButton(), Qt::LeftButton);
    QCOMPARE(panels.tree->currentRow(), 1);  // the last one removed: the one before

    // Points 0.001 apart: halfway rounds onto the second.
    panels.stack->push(new LoadNewMotionPlanCommand(
        panels.editor.camDescription(), parseJson(R"({"MotionPoints": [[0, 0, "rest"], [0.001, 1, "rest"]]})"), "x"));
    const int count = panels.stack->count();
    panels.tree->selectRow(0);
    QTest::mouseClick(panels.tree->addButton(), Qt::LeftButton);
    QCOMPARE(messages.count(), 1);
    QCOMPARE(messages.last().title, QStringLiteral("Master-Position schon vorhanden"));
    QCOMPARE(panels.stack->count(), count);
}

void tst_EditingPanels::pointEditCommitsOnLeavingAndRevertsOnEscape()
{
    Panels panels;
    panels.tree->selectRow(1);
    PositionLineEdit *slave = panels.point->slaveEdit();
    type(slave, "77", Qt::Key_Escape);
    QCOMPARE(slave->text(), QStringLiteral("40.000"));
    QCOMPARE(panels.stack->count(), 0);
    type(slave, "55", Qt::Key_Tab);
    QCOMPARE(panels.stack->count(), 1);
}

// One changed() of the model brings the settings' labels up to date and
// pushes nothing. (Every panel after each refresh: the random user test.)
void tst_EditingPanels::changedRefreshesEveryPanelWithoutPushing()
{
    Panels panels;
    QSignalSpy pushes(panels.stack, &QUndoStack::indexChanged);
    CamEditorModel *model = panels.editor.model();
    {
        const QSignalBlocker steps(model->steps());
        const QSignalBlocker editor(model);
        model->steps()->setIsDynamicStepSize(false);
        model->steps()->setStaticStepSize(0.001);  // 360 / 0.001 grid points: too many
        model->calculateNewMotionPlan();
    }
    const int calculated = model->motionPlan()->positions().size();
    emit model->changed();
    QCOMPARE(pushes.count(), 0);
    QVERIFY(panels.settings->warningLabel()->isVisibleTo(panels.settings));
    QVERIFY(panels.settings->warningLabel()->text().contains(QStringLiteral("0.023")));
    // What the settings give, not the resolution asked for.
    QCOMPARE(panels.settings->gridPointCountLabel()->text(), QStringLiteral("ergibt %1 Stützstellen").arg(calculated));
}

// A load made elsewhere and its undo: the selected point is found again and
// shown. (The other panels after a change: the random user test.)
void tst_EditingPanels::changesElsewhereShowInEveryPanel()
{
    Panels panels;
    panels.tree->selectRow(1);
    QSignalSpy pushes(panels.stack, &QUndoStack::indexChanged);
    panels.stack->push(new LoadNewMotionPlanCommand(
        panels.editor.camDescription(), parseJson(R"({"MotionPoints": [[0, 0, "rest"], [90, 10, "rest"], [300, 0, "rest"]]})"),
        "y"));
    QCOMPARE(panels.tree->currentRow(), 1);
    QCOMPARE(panels.point->slaveEdit()->text(), QStringLiteral("10.000"));
    panels.stack->undo();
    QCOMPARE(panels.point->slaveEdit()->text(), QStringLiteral("40.000"));
    QCOMPARE(pushes.count(), 2);  // the push and the undo only
}

void tst_EditingPanels::comparisonMarksWhatAWriteWouldChange()
{
    Panels panels;
    ComparisonView *comparison = panels.window->comparisonView();
    ComparisonTableModel *model = comparison->model();

    // Counts and the first differing row after a write: tst_randomuseractions;
    // the summary's content: tst_gridpointtable.
    panels.window->saveParameterValues();

    // Another tool changes one stored slave: that row alone differs.
    const MxParameterDefinition::ParameterCoordinate slave(MxSimulation::slaveArrayCoordinate(EditorFixture::Table));
    const QString old = panels.editor.drive.readValue(EditorFixture::LivingSpace, slave, 3);
    QVERIFY(panels.editor.drive.writeValue(EditorFixture::LivingSpace, slave, 3, QString::number(old.toDouble() + 0.5)));
    QTRY_COMPARE(model->firstDifferingRow(), 3);
    QCOMPARE(model->differingRowCount(), 1);
    QCOMPARE(model->index(3, ComparisonTableModel::SlaveDifference).data().toString(), QStringLiteral("-0.500"));
    QVERIFY(model->index(3, 0).data(Qt::BackgroundRole).isValid());
    QVERIFY(!model->index(3, 0).data(Qt::ToolTipRole).toString().isEmpty());
    QCOMPARE(comparison->summaryLabel()->text(), panels.editor.parameters()->storedTableSummary());
}

// A point at or beyond the circular length is refused in a paste as in the
// fields (refusals above; cells: the random user test); a file may still
// bring such points, which the table marks and whose slave may still change.
void tst_EditingPanels::cyclicCamKeepsEveryPointInsideTheCycle()
{
    Panels panels;
    MessageCapture messages;
    QGuiApplication::clipboard()->setText(QStringLiteral("200;1\n360;2\n500;3"));
    panels.tree->pasteAction()->trigger();
    QCOMPARE(messages.count(), 1);
    QCOMPARE(messages.last().text,
             QStringLiteral("2 von 3 Zeilen wurden nicht eingefügt: 2 nicht unterhalb der Umlauflänge."));
    QCOMPARE(panels.editor.model()->motionPointCount(), 4);
    // A refusal pushes nothing, so the paste can still be redone.
    panels.stack->undo();
    panels.tree->selectRow(1);
    type(panels.point->masterEdit(), "400");
    QCOMPARE(messages.count(), 2);
    QVERIFY(panels.stack->canRedo());

    panels.stack->push(new LoadNewMotionPlanCommand(
        panels.editor.camDescription(),
        parseJson(R"({"Cyclic": true, "CircularLength": 360,
                      "MotionPoints": [[0, 0, "rest"], [180, 10, "rest"], [400, 0, "rest"]]})"),
        "z"));
    const QAbstractItemModel *table = panels.tree->pointTree()->model();
    // The text is the fields' (refusals above).
    QVERIFY(table->index(2, 1).data(Qt::ToolTipRole).toString().contains(QStringLiteral("400.000 °")));
    panels.tree->selectRow(2);
    type(panels.point->slaveEdit(), "5");
    QCOMPARE(messages.count(), 2);
    QCOMPARE(panels.editor.model()->motionPointAt(2)->slave(), 5.0);
}

QTEST_MAIN(tst_EditingPanels)
#include "tst_editingpanels.moc"
