// Cost of one edit of a motion point, as the editor does it on every drag
// step and every typed value: the edit command is pushed on the undo stack,
// the point changes, and the model rebuilds and samples its plan until it
// has announced the new curve.

#include "camdesigner/camdescriptionimplementation.h"
#include "camdesigner/controller.h"
#include "commands/editmotionpointcommand.h"
#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"
#include "model/steps.h"

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

} // namespace

BENCHMARK(editPoint)
    ->ArgNames({ "law", "resolution" })
    ->Args({ MotionLaw::Vdi, 500 })
    ->Args({ MotionLaw::Spline, 500 })
    ->Args({ MotionLaw::Vdi, MotionPlan::MaximumGridPoints })
    ->Args({ MotionLaw::Spline, MotionPlan::MaximumGridPoints })
    ->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
