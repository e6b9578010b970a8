// Cost of one edit of a motion point, as the editor does it on every drag
// step and every typed value: the edit command is pushed on the undo stack,
// the point changes, and the model rebuilds and samples its plan until it
// has announced the new curve. And the cost of loading a large cam through
// the undo stack and of undoing that load, against one plan build.

#include "camdesigner/camdescriptionimplementation.h"
#include "camdesigner/controller.h"
#include "commands/editmotionpointcommand.h"
#include "commands/loadnewmotionplancommand.h"
#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"
#include "model/steps.h"

#include <QJsonArray>

#include <benchmark/benchmark.h>

#include <random>

namespace {

constexpr int PointCount = 100;
constexpr double MasterEnd = 360.0;
// Old commands are of no interest here; the limit keeps memory flat.
constexpr int UndoLimit = 100;

void editPoint(benchmark::State &state)
{
    const int law = int(state.range(0));
    const int resolution = int(state.range(1));

    CamDescriptionImplementation description(nullptr, QByteArray());
    std::mt19937 random(4711u);
    std::uniform_real_distribution<double> slave(-50.0, 50.0);
    std::uniform_int_distribution<int> type(0, 3);
    for (int i = 0; i < PointCount; ++i)
        description.appendPoint(new MotionPoint(i * MasterEnd / PointCount, slave(random), MotionPoint::movementRules(type(random))));
    description.motionLaw()->setLaw(law);
    description.steps()->setDynamicStepResolution(resolution);

    CamEditorModel model(nullptr, nullptr, &description);
    Controller stack;
    stack.setUndoLimit(UndoLimit);
    description.setUndoStack(&stack);

    int announcements = 0;
    QObject::connect(&model, &CamEditorModel::changed, [&announcements] { ++announcements; });

    MotionPoint *point = description.pointAt(50 * MasterEnd / PointCount);
    const double master = point->master();
    bool up = false;
    for (auto _ : state) {
        up = !up;
        // A drag step: the slave position moves a little, the master stays.
        stack.push(new EditMotionPointCommand(&description, point,
                                              MotionPoint(master, up ? 10.0 : 10.5, MotionPoint::movementRules(point->type())),
                                              model.scaling()));
        benchmark::DoNotOptimize(model.motionPlan()->positions().size());
    }
    state.counters["gridPoints"] = double(model.motionPlan()->positions().size());
    state.counters["changedPerEdit"] =
        benchmark::Counter(double(announcements) / double(state.iterations()));
}

constexpr int LargeCamPoints = 5000;

QJsonObject largeCam(double amplitude)
{
    QJsonArray points;
    for (int i = 0; i < LargeCamPoints; ++i)
        points.append(QJsonArray { i * 0.1, amplitude * ((i * 7919) % 101) / 100.0,
                                   MotionPoint::typeDataName(i % 4) });
    // Sampled at the limit, so that the one plan build has its full weight.
    const QJsonObject steps { { "dynamicSteps", MotionPlan::MaximumGridPoints }, { "isDynamicStepSize", true } };
    return QJsonObject { { "MotionPoints", points }, { "Steps", steps } };
}

// range(0): 0 times one plan build and sampling of the large cam (the part
// of a load that cannot go), 1 a load through the undo stack, 2 its undo.
void loadLargeCam(benchmark::State &state)
{
    const int what = int(state.range(0));
    CamDescriptionImplementation description(nullptr, QByteArray());
    description.fromJson(largeCam(10.0));
    CamEditorModel model(nullptr, nullptr, &description);
    Controller stack;
    stack.setUndoLimit(UndoLimit);
    description.setUndoStack(&stack);
    const QJsonObject other = largeCam(20.0);

    int announcements = 0;
    QObject::connect(&model, &CamEditorModel::changed, [&announcements] { ++announcements; });
    for (auto _ : state) {
        if (what == 0) {
            model.update();
            continue;
        }
        if (what == 2) {
            state.PauseTiming();
            stack.push(new LoadNewMotionPlanCommand(&description, other, QStringLiteral("other")));
            state.ResumeTiming();
            stack.undo();
        } else {
            stack.push(new LoadNewMotionPlanCommand(&description, other, QStringLiteral("other")));
            state.PauseTiming();
            stack.undo();
            state.ResumeTiming();
        }
    }
    state.counters["gridPoints"] = double(model.motionPlan()->positions().size());
    if (what != 0)
        state.counters["changedPerLoad"] = double(announcements) / double(2 * state.iterations());
}

} // namespace

BENCHMARK(loadLargeCam)->ArgName("buildLoadUndo")->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

BENCHMARK(editPoint)
    ->ArgNames({ "law", "resolution" })
    ->Args({ MotionLaw::Vdi, 500 })
    ->Args({ MotionLaw::Spline, 500 })
    ->Args({ MotionLaw::Vdi, MotionPlan::MaximumGridPoints })
    ->Args({ MotionLaw::Spline, MotionPlan::MaximumGridPoints })
    ->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
