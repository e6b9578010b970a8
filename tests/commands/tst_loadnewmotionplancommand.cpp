#include "checkstate.h"
#include "jsontext.h"

#include "camdesigner/camdescriptionimplementation.h"
#include "camdesigner/controller.h"
#include "commands/loadnewmotionplancommand.h"

#include <QSignalSpy>
#include <QTest>

class tst_LoadNewMotionPlanCommand : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void pushUndoRedo();
    void loadWithUndoWithoutStackDoesNothing();
    void undoTextNamesTheData_data();
    void undoTextNamesTheData();

private:
    void checkState(const QJsonObject &data, int index, int count, int changedSignals, int pointSignals);

    CamDescriptionImplementation *m_description = nullptr;
    Controller *m_stack = nullptr;
    QSignalSpy *m_changed = nullptr;
    QSignalSpy *m_pointChanged = nullptr;
};

void tst_LoadNewMotionPlanCommand::init()
{
    m_description = new CamDescriptionImplementation(nullptr, QByteArray());
    m_stack = new Controller;
    m_description->setUndoStack(m_stack);
    m_changed = new QSignalSpy(m_description, &CamDescription::changed);
    m_pointChanged = new QSignalSpy(m_description, &CamDescriptionImplementation::motionPointChanged);
}

void tst_LoadNewMotionPlanCommand::cleanup()
{
    delete m_pointChanged;
    delete m_changed;
    delete m_stack;
    delete m_description;
}

// Checks the data, the stack and every spy after each push, undo and redo.
void tst_LoadNewMotionPlanCommand::checkState(const QJsonObject &data, int index, int count,
                                              int changedSignals, int pointSignals)
{
    QCOMPARE(m_description->toJson(), data);
    QCOMPARE(m_stack->index(), index);
    QCOMPARE(m_stack->count(), count);
    QCOMPARE(m_changed->count(), changedSignals);
    QCOMPARE(m_pointChanged->count(), pointSignals);
    m_changed->clear();
    m_pointChanged->clear();
}

void tst_LoadNewMotionPlanCommand::pushUndoRedo()
{
    const QJsonObject initial = m_description->toJson();
    const QJsonObject first = parseJson(R"({"CircularLength": 360, "Cyclic": true, "MotionLaw": "Spline",
        "MotionPoints": [[0, 0, "rest"], [90, 45, "speed"]],
        "Steps": {"dynamicSteps": 500, "isDynamicStepSize": true, "staticStepSize": 1}})");
    const QJsonObject second = parseJson(R"({"CircularLength": 360, "Cyclic": true, "MotionLaw": "Spline",
        "MotionPoints": [[0, 0, "rest"]],
        "Steps": {"dynamicSteps": 500, "isDynamicStepSize": true, "staticStepSize": 1}})");

    m_description->loadWithUndo(first, QStringLiteral("erste.json"));
    // law (relay + handling), cyclic, circular length, final changed; points rebuilt once
    CHECK_STATE(first, 1, 1, 4, 1);

    m_description->loadWithUndo(second, QStringLiteral("zweite.json"));
    // two removed points and the final changed
    CHECK_STATE(second, 2, 2, 3, 1);

    m_stack->undo();
    CHECK_STATE(first, 1, 2, 2, 1);
    m_stack->undo();
    CHECK_STATE(initial, 0, 2, 6, 1);
    m_stack->redo();
    CHECK_STATE(first, 1, 2, 4, 1);

    // A new load after undo drops the undone command.
    m_description->loadWithUndo(initial, QStringLiteral("leer.json"));
    CHECK_STATE(initial, 2, 2, 6, 1);
    QCOMPARE(m_stack->text(1), QStringLiteral("Lade Kurvendefinitionsdaten : leer.json"));
}

void tst_LoadNewMotionPlanCommand::loadWithUndoWithoutStackDoesNothing()
{
    m_description->setUndoStack(nullptr);
    m_description->loadWithUndo(parseJson(R"({"Cyclic": true})"), QStringLiteral("x"));
    QCOMPARE(m_description->isCyclic(), false);
    QCOMPARE(m_changed->count(), 0);

    // The stack is not owned: once it is gone, loads are ignored.
    m_description->setUndoStack(m_stack);
    delete m_stack;
    m_stack = nullptr;
    m_description->loadWithUndo(parseJson(R"({"Cyclic": true})"), QStringLiteral("x"));
    QCOMPARE(m_description->isCyclic(), false);
}

void tst_LoadNewMotionPlanCommand::undoTextNamesTheData_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("file name") << "plan.json" << "Lade Kurvendefinitionsdaten : plan.json";
    QTest::newRow("empty") << "" << "Lade Kurvendefinitionsdaten : ";
    QTest::newRow("placeholder-like name stays") << "%1 von %2" << "Lade Kurvendefinitionsdaten : %1 von %2";
}

void tst_LoadNewMotionPlanCommand::undoTextNamesTheData()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    LoadNewMotionPlanCommand command(m_description, QJsonObject(), name);
    QCOMPARE(command.text(), text);
}

QTEST_GUILESS_MAIN(tst_LoadNewMotionPlanCommand)
#include "tst_loadnewmotionplancommand.moc"
