// Cost of sampling a cam curve into grid points, for both motion laws and
// for each section law:
// full dynamic sampling at the grid point limit over growing numbers of
// motion points, static sampling at the limit, and the coarse sampling that
// runs on every mouse move while a point is dragged.

#include "curves/motionplan.h"
#include "curves/motionplanfactory.h"
#include "model/fixedscaling.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <random>
#include <vector>

namespace {

constexpr double CircularLength = 360.0;

// A cam of the given number of points over 0..360 with mixed segment types,
// the same for every run.
struct Cam {
    std::vector<std::unique_ptr<MotionPoint>> owned;
    QList<MotionPoint *> points;

    explicit Cam(int count)
    {
        std::mt19937 random(12345u + unsigned(count));
        std::uniform_real_distribution<double> jitter(0.1, 0.9);
        std::uniform_real_distribution<double> slave(-50.0, 50.0);
        std::uniform_int_distribution<int> type(0, 3);
        const double spacing = CircularLength / count;
        for (int i = 0; i < count; ++i) {
            const double master = i == 0 ? 0.0 : (i + jitter(random) - 0.5) * spacing;
            owned.push_back(std::make_unique<MotionPoint>(master, slave(random), MotionPoint::movementRules(type(random))));
            points.append(owned.back().get());
        }
    }
};

std::unique_ptr<MotionPlan> makePlan(int law, const Cam &cam, Scaling *scaling)
{
    return std::unique_ptr<MotionPlan>(
        MotionPlanFactory::create(law, cam.points, true, CircularLength, nullptr, scaling));
}

// The model builds a new plan before every calculation; so do these.
template<typename Sample>
void sampling(benchmark::State &state, int law, Sample sample)
{
    const Cam cam(int(state.range(0)));
    FixedScaling scaling(3);
    qsizetype gridPoints = 0;
    for (auto _ : state) {
        const std::unique_ptr<MotionPlan> plan = makePlan(law, cam, &scaling);
        sample(plan.get());
        gridPoints = plan->positions().size();
        benchmark::DoNotOptimize(gridPoints);
    }
    state.counters["gridPoints"] = double(gridPoints);
}

void dynamicSampling(benchmark::State &state, int law)
{
    sampling(state, law, [](MotionPlan *plan) { plan->calculateWithResolution(MotionPlan::MaximumGridPoints); });
}

void staticSamplingAtLimit(benchmark::State &state, int law)
{
    sampling(state, law, [](MotionPlan *plan) {
        plan->calculate(plan->masterRange() / (MotionPlan::MaximumGridPoints - plan->motionPoints().size()));
    });
}

// Every section of a 10-point rest cam on one section law (the argument,
// MotionPoint::SectionLaw; 0 is the quintic). Argument -1 is a straight
// quintic (two "speed" points of an open cam), for comparison with the law
// "Line". Both cams span the same master range.
//
// Dynamic: sampled as the editor samples at the grid point limit. The grid
// then depends on the curve: a straight one has few grid points, so the
// refinement ends at a tiny step that walks over the straight stretches, and
// the laws are not compared on the same points.
// Static: one step for every law, 16000 grid points on the same masters,
// each evaluated as the sampling evaluates a grid point (position and three
// derivatives), so that the cost of the laws themselves is compared. The
// plan's own static sampling cannot serve: it leaves the straight stretches
// without step positions, and a cam of lines keeps its motion points only.
constexpr int SectionLawCamPoints = 10;
constexpr int SectionLawStaticGridPoints = MotionPlan::MaximumGridPoints;
constexpr double SectionLawStaticStep = CircularLength / (SectionLawStaticGridPoints - 1);

void sectionLawSampling(benchmark::State &state, bool dynamic)
{
    std::vector<std::unique_ptr<MotionPoint>> owned;
    QList<MotionPoint *> points;
    const bool straightQuintic = state.range(0) < 0;
    for (int i = 0; i < (straightQuintic ? 2 : SectionLawCamPoints); ++i) {
        owned.push_back(straightQuintic
                            ? std::make_unique<MotionPoint>(i * CircularLength, i * 100.0, MotionPoint::speed)
                            : std::make_unique<MotionPoint>(i * 36.0, i % 2 ? 40.0 : -10.0 * i, MotionPoint::rest));
        owned.back()->setSectionLaw(int(state.range(0)));
        owned.back()->setInflection(0.4);
        points.append(owned.back().get());
    }
    FixedScaling scaling(3);
    qsizetype gridPoints = 0;
    for (auto _ : state) {
        const std::unique_ptr<MotionPlan> plan(
            MotionPlanFactory::create(MotionLaw::Vdi, points, !straightQuintic, CircularLength, nullptr, &scaling));
        if (dynamic) {
            plan->calculateWithResolution(MotionPlan::MaximumGridPoints);
            gridPoints = plan->positions().size();
        } else {
            double sum = 0.0;
            for (int i = 0; i < SectionLawStaticGridPoints; ++i) {
                const double master = i * SectionLawStaticStep;
                sum += plan->position(master) + plan->velocity(master) + plan->acceleration(master)
                    + plan->jerk(master);
            }
            benchmark::DoNotOptimize(sum);
            gridPoints = SectionLawStaticGridPoints;
        }
        benchmark::DoNotOptimize(gridPoints);
    }
    state.counters["gridPoints"] = double(gridPoints);
    state.SetLabel(straightQuintic ? "straight Poly5" : MotionPoint::sectionLawDataName(int(state.range(0))).toStdString());
}

// A drag step: a new plan, sampled coarsely.
void coarseSampling(benchmark::State &state, int law)
{
    sampling(state, law, [](MotionPlan *plan) { MotionPlanFactory::sample(plan, nullptr, true); });
}

} // namespace

BENCHMARK_CAPTURE(dynamicSampling, Vdi, int(MotionLaw::Vdi))->Arg(10)->Arg(100)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dynamicSampling, Spline, int(MotionLaw::Spline))->Arg(10)->Arg(100)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(staticSamplingAtLimit, Vdi, int(MotionLaw::Vdi))->Arg(10)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(staticSamplingAtLimit, Spline, int(MotionLaw::Spline))->Arg(10)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(coarseSampling, Vdi, int(MotionLaw::Vdi))->Arg(100)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(coarseSampling, Spline, int(MotionLaw::Spline))->Arg(100)->Unit(benchmark::kMicrosecond);

BENCHMARK_CAPTURE(sectionLawSampling, dynamic, true)->DenseRange(-1, MotionPoint::SectionLawCount - 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(sectionLawSampling, static, false)->DenseRange(-1, MotionPoint::SectionLawCount - 1)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
