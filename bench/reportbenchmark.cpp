// Cost of the curve report ("Kennwerte"): the figures of a cam of 5000
// motion points sampled at the grid point limit (extremes, joints and the
// exact interpolation error of every grid interval), and separately the
// search for the coarsest sufficient sampling, which samples the curve
// repeatedly and is computed only when the curve is not being dragged.

#include "curves/curvereport.h"
#include "curves/motionplan.h"
#include "curves/motionplanfactory.h"
#include "curves/samplinglimit.h"
#include "model/fixedscaling.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace {

// The edit benchmark's large cam: 5000 points 0.1 apart, all segment types.
struct Cam {
    std::vector<std::unique_ptr<MotionPoint>> owned;
    QList<MotionPoint *> points;

    explicit Cam(int count)
    {
        for (int i = 0; i < count; ++i) {
            owned.push_back(std::make_unique<MotionPoint>(i * 0.1, 20.0 * ((i * 7919) % 101) / 100.0,
                                                          MotionPoint::movementRules(i % 4)));
            points.append(owned.back().get());
        }
    }
};

std::unique_ptr<MotionPlan> sampledPlan(int law, const Cam &cam, Scaling *scaling, int gridPoints)
{
    std::unique_ptr<MotionPlan> plan(
        MotionPlanFactory::create(law, cam.points, true, cam.points.size() * 0.1, nullptr, scaling));
    // Zero: the coarse sampling of a drag step.
    if (gridPoints == 0)
        MotionPlanFactory::sample(plan.get(), nullptr, true);
    else
        plan->calculateWithResolution(gridPoints);
    return plan;
}

void report(benchmark::State &state, int law)
{
    const Cam cam(int(state.range(0)));
    FixedScaling scaling(3);
    const std::unique_ptr<MotionPlan> plan = sampledPlan(law, cam, &scaling, int(state.range(1)));
    for (auto _ : state) {
        const CurveReport figures(*plan);
        benchmark::DoNotOptimize(figures.samplingError().value);
    }
    state.counters["gridPoints"] = double(plan->positions().size());
}

void samplingLimit(benchmark::State &state, int law)
{
    const Cam cam(int(state.range(0)));
    FixedScaling scaling(int(state.range(1)));
    const std::unique_ptr<MotionPlan> plan = sampledPlan(law, cam, &scaling, 500);
    int samplings = 0;
    for (auto _ : state) {
        const SamplingLimit limit = SamplingLimit::find(*plan);
        samplings = limit.samplings;
        benchmark::DoNotOptimize(limit.staticStepSize);
    }
    state.counters["samplings"] = double(samplings);
}

} // namespace

BENCHMARK_CAPTURE(report, vdi, int(MotionLaw::Vdi))
    ->Args({ 5000, MotionPlan::MaximumGridPoints })
    ->Args({ 5000, 0 })
    ->Args({ 20, 500 })
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(report, spline, int(MotionLaw::Spline))
    ->Args({ 5000, MotionPlan::MaximumGridPoints })
    ->Unit(benchmark::kMillisecond);
// Second argument: decimal places, so the resolution the search aims at.
BENCHMARK_CAPTURE(samplingLimit, vdi, int(MotionLaw::Vdi))
    ->Args({ 5000, 3 })
    ->Args({ 20, 3 })
    ->Args({ 20, 6 })
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(samplingLimit, spline, int(MotionLaw::Spline))
    ->Args({ 5000, 3 })
    ->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
