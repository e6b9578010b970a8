#include "commandfixture.h"
#include "messagecapture.h"

#include "commands/addmotionpointcommand.h"
#include "commands/changestepmodecommand.h"
#include "commands/editmotionpointcommand.h"
#include "commands/removemotionpointcommand.h"
#include "commands/setcyletimecommand.h"
#include "commands/setiscycliccamcommand.h"
#include "commands/setmasteraxisscalingcommand.h"
#include "commands/setvelocityscalingcommand.h"
#include "model/scaling.h"
#include "model/steps.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <cmath>

class tst_EditingCommands : public QObject
{
    Q_OBJECT
private slots:
    void init();

    void scalingCommandsRecalculateNothing();
    void togglesUndoToTheNegation();

    void commandsKeepTheVeryPoints();
    void addComparesMastersExactly();
    void loadWithUndoNeedsALivingStack();

private:
    // Declared before the spies, so that the spies go first.
    std::unique_ptr<CommandFixture> m_cam;
    std::unique_ptr<QSignalSpy> m_descriptionChanged;
    std::unique_ptr<QSignalSpy> m_modelChanged;
};

void tst_EditingCommands::init()
{
    m_cam = std::make_unique<CommandFixture>();
    m_cam->description.fromJson(parseJson(R"({"MotionPoints": [[0, 0, "rest"], [10, 5, "speed"], [20, 0, "rest"]]})"));
    m_descriptionChanged = std::make_unique<QSignalSpy>(&m_cam->description, &CamDescription::changed);
    m_modelChanged = std::make_unique<QSignalSpy>(m_cam->model.get(), &CamEditorModel::changed);
}

// Every command kind is pushed, undone and redone by the panels
// (tst_editingpanels) and in tst_undorandom, which also finds that no push
// merges with the one before; the model's signals per change, a load's
// included, are tst_cameditormodel's. The scaling is not cam definition data:
// its commands recalculate nothing.
void tst_EditingCommands::scalingCommandsRecalculateNothing()
{
    const QJsonObject start = m_cam->description.toJson();
    Scaling *scaling = m_cam->model->scaling();
    m_cam->stack->push(new SetCyleTimeCommand(scaling, 0.004));
    m_cam->stack->push(new SetMasterAxisScalingCommand(scaling, Scaling::CycleTime));
    m_cam->stack->push(new SetVelocityScalingCommand(scaling, Scaling::RpmOutput));
    m_cam->stack->undo();
    m_cam->stack->undo();
    m_cam->stack->undo();
    QCOMPARE(m_cam->description.toJson(), start);
    QCOMPARE(m_descriptionChanged->count(), 0);
    QCOMPARE(m_modelChanged->count(), 0);
}

// Pushed with the value already in force, the toggles change nothing and
// then undo to the opposite of what was there (deliberate, see the step mode
// command).
void tst_EditingCommands::togglesUndoToTheNegation()
{
    Steps *steps = m_cam->description.steps();
    const bool dynamic = steps->isDynamicStepSize();
    const bool cyclic = m_cam->description.isCyclic();
    m_cam->stack->push(new ChangeStepModeCommand(steps, dynamic));
    m_cam->stack->push(new SetIsCyclicCamCommand(&m_cam->description, cyclic));
    QCOMPARE(m_descriptionChanged->count(), 0);
    m_cam->stack->undo();
    m_cam->stack->undo();
    QCOMPARE(steps->isDynamicStepSize(), !dynamic);
    QCOMPARE(m_cam->description.isCyclic(), !cyclic);
}

// What each command brings back is checked after every step of
// tst_undorandom, the model's signals per change in tst_cameditormodel; here
// that the commands move the very point objects the views hold. That a point
// set aside goes with its command, and one in the description stays, is the
// sanitizer run's of tst_undorandom, whose stack drops both kinds often.
void tst_EditingCommands::commandsKeepTheVeryPoints()
{
    QPointer<MotionPoint> added = new MotionPoint(15, 2, MotionPoint::acceleration);
    m_cam->stack->push(new AddMotionPointCommand(&m_cam->description, added));
    QPointer<MotionPoint> removed = m_cam->description.pointAt(10);
    m_cam->stack->push(new RemoveMotionPointCommand(removed, &m_cam->description));
    MotionPoint *moved = m_cam->description.pointAt(0);
    QPointer<MotionPoint> covered = m_cam->description.pointAt(20);
    m_cam->stack->push(new EditMotionPointCommand(&m_cam->description, moved, MotionPoint(20, 8, MotionPoint::rest),
                                                  m_cam->model->scaling()));
    QCOMPARE(m_cam->description.pointAt(20), moved);

    m_cam->stack->undo();
    m_cam->stack->undo();
    m_cam->stack->undo();
    QCOMPARE(m_cam->description.pointAt(0), moved);
    QCOMPARE(m_cam->description.pointAt(10), removed.data());
    QCOMPARE(m_cam->description.pointAt(20), covered.data());
    m_cam->stack->redo();
    m_cam->stack->redo();
    m_cam->stack->redo();
    QCOMPARE(m_cam->description.pointAt(15), added.data());
}

// The map is keyed by the exact master: equal is refused, one bit away is not.
void tst_EditingCommands::addComparesMastersExactly()
{
    MessageCapture messages;
    const QJsonObject start = m_cam->description.toJson();
    QPointer<MotionPoint> point = new MotionPoint(10, 99, MotionPoint::rest);
    m_cam->stack->push(new AddMotionPointCommand(&m_cam->description, point));

    QCOMPARE(messages.count(), 1);
    QCOMPARE(messages.last().icon, QMessageBox::Critical);
    QCOMPARE(messages.last().text, QStringLiteral("Es gibt schon einen Bewegungspunkt auf der Master-Position 10 "
                                                  "schon vorhanden. Überschreiben nicht möglich."));
    QVERIFY(point.isNull());
    QCOMPARE(m_cam->description.toJson(), start);
    QCOMPARE(m_descriptionChanged->count(), 0);

    const double nextToTen = std::nextafter(10.0, 11.0);
    m_cam->stack->push(new AddMotionPointCommand(&m_cam->description, new MotionPoint(nextToTen, 5, MotionPoint::speed)));
    QCOMPARE(messages.count(), 1);
    QVERIFY(m_cam->description.pointAt(nextToTen));
}

void tst_EditingCommands::loadWithUndoNeedsALivingStack()
{
    const QJsonObject start = m_cam->description.toJson();
    // The stack is not owned: once it is gone, loads are ignored.
    m_cam->stack.reset();
    m_cam->description.loadWithUndo(parseJson(R"({"Cyclic": true})"), QStringLiteral("x"));
    QCOMPARE(m_cam->description.toJson(), start);
    QCOMPARE(m_descriptionChanged->count(), 0);
}

QTEST_GUILESS_MAIN(tst_EditingCommands)
#include "tst_editingcommands.moc"
