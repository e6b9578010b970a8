// Long seeded random sequences of every editing command, with undo and redo
// and whole loads mixed in, on points with and without a section of their
// own: after every step the model's plan must equal a plan built from
// scratch for the current data, and every undo or redo must bring back
// exactly the data that stood at that place of the stack.

#include "commandfixture.h"
#include "messagecapture.h"

#include "commands/addmotionpointcommand.h"
#include "commands/changedynamicstepresolutioncommand.h"
#include "commands/changemotionlawcommand.h"
#include "commands/changesectioncommand.h"
#include "commands/changestepmodecommand.h"
#include "commands/editmotionpointcommand.h"
#include "commands/removemotionpointcommand.h"
#include "commands/setcircularlengthcommand.h"
#include "commands/setcyletimecommand.h"
#include "commands/setiscycliccamcommand.h"
#include "commands/setmasteraxisscalingcommand.h"
#include "commands/setstepscommand.h"
#include "commands/setvelocityscalingcommand.h"
#include "curves/motionplan.h"
#include "model/motionlaw.h"
#include "model/scaling.h"
#include "model/steps.h"

#include <QJsonArray>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <random>
#include <tuple>
#include <vector>

namespace {

// What the stack must restore at one index: the cam definition data and the
// scaling settings, which are not part of it (cycle time, master axis and
// velocity scaling).
using State = std::tuple<QJsonObject, double, int, int>;

// Exact, not fuzzy: both plans must have computed the very same numbers.
bool identical(const QPolygonF &a, const QPolygonF &b)
{
    const auto same = [](double x, double y) { return x == y || (std::isnan(x) && std::isnan(y)); };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](const QPointF &p, const QPointF &q) { return same(p.x(), q.x()) && same(p.y(), q.y()); });
}

class RandomEditor
{
public:
    RandomEditor(CommandFixture &cam, unsigned seed)
        : m_cam(cam)
        , m_random(seed)
    {
    }

    QJsonObject randomDocument()
    {
        QJsonArray points;
        const int count = pick(0, 12);
        for (int i = 0; i < count; ++i) {
            QJsonArray point { master(), slave(), MotionPoint::typeDataName(pick(0, 3)) };
            // Now and then a section of its own, which every command beneath
            // a load must bring back with its point.
            if (chance(0.3)) {
                MotionPoint section(0, 0, MotionPoint::rest);
                changeSection(section);
                point.append(section.sectionData());
            }
            points.append(point);
        }
        QJsonObject steps { { "dynamicSteps", pick(2, 2000) },
                            { "isDynamicStepSize", chance(0.5) },
                            { "staticStepSize", uniform(0.05, 3.0) } };
        return QJsonObject { { "CircularLength", uniform(50.0, 150.0) },
                             { "Cyclic", chance(0.5) },
                             { "MotionLaw", MotionLaw::dataName(pick(0, 1)) },
                             { "MotionPoints", points },
                             { "Steps", steps } };
    }

    enum Action { Push, UndoOrRedo, Nothing };

    // Performs one random action: a push (which may be refused), undos or
    // redos.
    Action step()
    {
        CamDescriptionImplementation &description = m_cam.description;
        Controller &stack = *m_cam.stack;
        const QList<MotionPoint *> points = description.motionPoints();
        MotionPoint *point = points.isEmpty() ? nullptr : points.at(pick(0, points.size() - 1));
        Scaling *scaling = m_cam.model->scaling();
        switch (pick(0, 15)) {
        case 0:
        case 1: {
            // Now and then exactly on an existing point: refused.
            const double at = point && chance(0.2) ? point->master() : master();
            stack.push(new AddMotionPointCommand(&description, new MotionPoint(at, slave(), MotionPoint::movementRules(pick(0, 3)))));
            break;
        }
        case 2:
            if (!point)
                return Nothing;
            stack.push(new RemoveMotionPointCommand(point, &description));
            break;
        case 3:
        case 4:
            if (!point)
                return Nothing;
            {
                // Now and then onto another point's master position.
                const double to = chance(0.15) ? points.at(pick(0, points.size() - 1))->master() : master();
                const MotionPoint value(to, slave(), MotionPoint::movementRules(pick(0, 3)));
                // Both constructors: the one without the description finds it
                // through the point, also for points a load created.
                if (chance(0.5))
                    stack.push(new EditMotionPointCommand(point, value, scaling));
                else
                    stack.push(new EditMotionPointCommand(&description, point, value, scaling));
            }
            break;
        case 5:
            stack.push(new ChangeMotionLawCommand(description.motionLaw(), pick(0, 1)));
            break;
        case 6:
            // Toggles are pushed on real changes only, as the views do.
            stack.push(new ChangeStepModeCommand(description.steps(), !description.steps()->isDynamicStepSize()));
            break;
        case 7:
            stack.push(new ChangeDynamicStepResolutionCommand(pick(2, 3000), description.steps()));
            break;
        case 8:
            stack.push(new SetStepsCommand(description.steps(), uniform(0.05, 3.0)));
            break;
        case 9:
            stack.push(new SetCircularLengthCommand(&description, uniform(50.0, 150.0)));
            break;
        case 10:
            stack.push(new SetIsCyclicCamCommand(&description, !description.isCyclic()));
            break;
        case 11:
            description.loadWithUndo(randomDocument(), QStringLiteral("zufall.json"));
            break;
        case 12:
            switch (pick(0, 2)) {
            case 0: stack.push(new SetCyleTimeCommand(scaling, uniform(0.001, 2.0))); break;
            case 1: stack.push(new SetMasterAxisScalingCommand(scaling, pick(0, 1))); break;
            default: stack.push(new SetVelocityScalingCommand(scaling, pick(0, 2))); break;
            }
            break;
        case 13:
            if (!point)
                return Nothing;
            {
                MotionPoint changed(*point);
                changeSection(changed);
                stack.push(new ChangeSectionCommand(point, changed, scaling));
            }
            break;
        case 14:
            for (int n = pick(1, 4); n > 0 && stack.canUndo(); --n)
                stack.undo();
            return UndoOrRedo;
        default:
            for (int n = pick(1, 3); n > 0 && stack.canRedo(); --n)
                stack.redo();
            return UndoOrRedo;
        }
        return Push;
    }

private:
    int pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }
    double uniform(double low, double high) { return std::uniform_real_distribution<double>(low, high)(m_random); }
    bool chance(double p) { return std::bernoulli_distribution(p)(m_random); }
    // Half on a coarse grid, so that positions meet; half anywhere.
    double master() { return chance(0.5) ? 2.5 * pick(0, 40) : uniform(0.0, 100.0); }
    double slave() { return uniform(-50.0, 50.0); }
    void changeSection(MotionPoint &point)
    {
        point.setSectionLaw(pick(0, MotionPoint::SectionLawCount - 1));
        point.setInflection(uniform(0.1, 0.9));
        if (chance(0.5))
            point.setVelocity(uniform(-2.0, 2.0));
        else
            point.clearVelocity();
    }

    CommandFixture &m_cam;
    std::mt19937 m_random;
};

State state(CommandFixture &cam)
{
    const Scaling *scaling = cam.model->scaling();
    return State(cam.description.toJson(), scaling->cycleTime(), scaling->masterAxisScaling(),
                 scaling->velocityScaling());
}

// The model's plan against a plan of a fresh model for the same data.
void checkPlan(CommandFixture &cam)
{
    CamDescriptionImplementation fresh(nullptr, QByteArray());
    fresh.fromJson(cam.description.toJson());
    CamEditorModel reference(nullptr, nullptr, &fresh);
    const MotionPlan *plan = cam.model->motionPlan();
    const MotionPlan *expected = reference.motionPlan();
    QCOMPARE(plan->metaObject()->className(), expected->metaObject()->className());
    for (auto quantity : { &MotionPlan::positions, &MotionPlan::velocities, &MotionPlan::accelerations,
                           &MotionPlan::jerks })
        QVERIFY(identical((plan->*quantity)(), (expected->*quantity)()));

    // The rows that item models show, and every point's link to the description.
    const QList<MotionPoint *> points = cam.description.motionPoints();
    QCOMPARE(cam.model->motionPointCount(), points.size());
    for (int row = 0; row < points.size(); ++row) {
        QCOMPARE(cam.model->motionPointAt(row), points.at(row));
        QCOMPARE(cam.model->rowOfMotionPoint(points.at(row)), row);
        QCOMPARE(points.at(row)->camDescription(), &cam.description);
    }
}

} // namespace

class tst_UndoRandom : public QObject
{
    Q_OBJECT
private slots:
    void randomSequences_data();
    void randomSequences();
};

void tst_UndoRandom::randomSequences_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed : { 1u, 2u, 3u, 20261122u })
        QTest::addRow("seed %u", seed) << seed;
}

void tst_UndoRandom::randomSequences()
{
    QFETCH(unsigned, seed);
    MessageCapture refusals;
    CommandFixture cam;
    RandomEditor editor(cam, seed);
    cam.description.fromJson(editor.randomDocument());

    // history[i]: what stack index i must show.
    std::vector<State> history { state(cam) };
    const int steps = qEnvironmentVariableIntValue("MX_RANDOM_UNDO_STEPS");
    for (int i = 0; i < (steps > 0 ? steps : 1000); ++i) {
        const int refusedBefore = refusals.count();
        const int indexBefore = cam.stack->index();
        const RandomEditor::Action action = editor.step();
        const int index = cam.stack->index();
        if (action == RandomEditor::Push) {
            // Even a refused push drops what was undone above the index.
            QCOMPARE(cam.stack->count(), index);
            if (refusals.count() > refusedBefore) {
                QCOMPARE(index, indexBefore);
                history.resize(size_t(index) + 1);
            } else {
                QCOMPARE(index, indexBefore + 1);
                history.resize(size_t(indexBefore) + 1);
                history.push_back(state(cam));
            }
        }
        QVERIFY2(state(cam) == history.at(size_t(index)), qPrintable(QStringLiteral("step %1").arg(i)));
        checkPlan(cam);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("seed %1, step %2").arg(seed).arg(i)));
    }
    QVERIFY(refusals.count() > 0);

    const State final = state(cam);
    const int top = cam.stack->index();
    while (cam.stack->canUndo())
        cam.stack->undo();
    QVERIFY(state(cam) == history.front());
    checkPlan(cam);
    while (cam.stack->index() < top)
        cam.stack->redo();
    QVERIFY(state(cam) == final);
    checkPlan(cam);
}

QTEST_GUILESS_MAIN(tst_UndoRandom)
#include "tst_undorandom.moc"
