#include "samplinglimit.h"

#include "model/scaling.h"
#include "motionplan.h"
#include "motionplanfactory.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>

namespace {

// Each bracket step widens by this factor: the first guess from amax·h²/8 is
// close, and halving the step quarters the error, so a narrow bracket holds.
constexpr double BracketGrowth = 1.25;

// Steps and counts are searched as whole numbers. From 2^53 on a double no
// longer holds every whole number, and a quotient like a master range of
// 1e300 over the resolution does not fit a long long at all (converting it
// would be undefined), so every count is taken through here.
constexpr double LargestCount = 9007199254740992.0;

long long toCount(double value)
{
    if (!(value > 0.0))
        return 0;
    return value < LargestCount ? static_cast<long long>(value) : static_cast<long long>(LargestCount);
}

std::unique_ptr<MotionPlan> copyOf(const MotionPlan &plan, int law)
{
    // The plan's own points include a cyclic cam's closing point, so the copy
    // adds none and computes the same sections.
    return std::unique_ptr<MotionPlan>(MotionPlanFactory::create(law, plan.motionPoints(), plan.isCyclic(),
                                                                  plan.circularLength(), nullptr, plan.scaling()));
}

// The last k in [low, high] for which the predicate holds, when it holds
// for small k and fails for large ones; low - 1 when it fails at low. Starts
// at a guess, widens a bracket around it and bisects.
long long lastTrue(long long guess, long long low, long long high, const std::function<bool(long long)> &holds)
{
    long long probe = std::clamp(guess, low, high);
    long long yes = low - 1;
    long long no = high + 1;
    if (holds(probe)) {
        yes = probe;
        while (probe < high) {
            probe = std::min(high, (long long)std::ceil(double(probe) * BracketGrowth) + 1);
            if (!holds(probe)) {
                no = probe;
                break;
            }
            yes = probe;
        }
    } else {
        no = probe;
        while (probe > low) {
            probe = std::max(low, (long long)std::floor(double(probe) / BracketGrowth));
            if (holds(probe)) {
                yes = probe;
                break;
            }
            no = probe;
        }
    }
    if (yes < low || no > high)
        return yes;
    while (no - yes > 1) {
        const long long middle = yes + (no - yes) / 2;
        if (holds(middle))
            yes = middle;
        else
            no = middle;
    }
    return yes;
}

} // namespace

CurveExtreme SamplingLimit::errorWithStaticStep(const MotionPlan &plan, double stepSize)
{
    const CurveReport curve(plan, QPolygonF());
    return measureStatic(plan, curve, stepSize);
}

CurveExtreme SamplingLimit::errorWithDynamicResolution(const MotionPlan &plan, int gridPointCount)
{
    const CurveReport curve(plan, QPolygonF());
    return measureDynamic(plan, curve, gridPointCount);
}

CurveExtreme SamplingLimit::measureStatic(const MotionPlan &plan, const CurveReport &curve, double stepSize)
{
    std::unique_ptr<MotionPlan> copy = copyOf(plan, curve.motionLaw());
    copy->calculate(stepSize);
    return curve.samplingErrorOf(copy->positions());
}

CurveExtreme SamplingLimit::measureDynamic(const MotionPlan &plan, const CurveReport &curve, int gridPointCount)
{
    // A new plan for every count: a dynamic run appends to a plan's lists.
    std::unique_ptr<MotionPlan> copy = copyOf(plan, curve.motionLaw());
    copy->calculateWithResolution(gridPointCount);
    return curve.samplingErrorOf(copy->positions());
}

SamplingLimit SamplingLimit::find(const MotionPlan &plan)
{
    SamplingLimit limit;
    const Scaling *scaling = plan.scaling();
    limit.resolution = scaling ? scaling->positionResolution() : 1.0;
    const int count = plan.motionPoints().size();
    const double range = plan.masterRange();
    if (count < 2 || !(range > 0.0) || !std::isfinite(range) || count >= MotionPlan::MaximumGridPoints)
        return limit;

    const CurveReport report(plan, QPolygonF());
    const int law = report.motionLaw();
    const double quantum = limit.resolution;
    const double r = limit.resolution;
    std::unique_ptr<MotionPlan> staticPlan = copyOf(plan, law);
    const auto staticGood = [&](long long k) {
        ++limit.samplings;
        staticPlan->calculate(double(k) * quantum);
        return std::abs(report.samplingErrorOf(staticPlan->positions()).value) < r;
    };

    // Static steps are multiples of the master resolution, from the finest
    // the grid point limit allows up to the whole range.
    // A range of more whole resolution steps than a double counts has no
    // static step to offer: it is reported as not reachable.
    const double finest = range / (MotionPlan::MaximumGridPoints - count);
    const bool countable = range / quantum < LargestCount;
    const long long kMin = std::max(1LL, toCount(std::ceil(finest / quantum)));
    const long long kMax = std::max(kMin, toCount(std::floor(range / quantum)));
    const double amax = report.scale()[2];
    // Error ≈ amax·h²/8 for a step h.
    const long long guess = amax > 0.0 ? toCount(std::sqrt(8.0 * r / amax) / quantum) : kMax;
    const long long k = countable ? lastTrue(guess, kMin, kMax, staticGood) : kMin - 1;
    if (k >= kMin) {
        limit.staticReachable = true;
        limit.staticStepSize = double(k) * quantum;
        limit.staticError = measureStatic(plan, report, limit.staticStepSize);
    }

    // Dynamic: the smallest grid point count, from just above the motion
    // points up to the limit; too few points is the predicate that holds
    // for small counts.
    const auto tooFew = [&](long long n) {
        ++limit.samplings;
        return !(std::abs(measureDynamic(plan, report, int(n)).value) < r);
    };
    const long long nMin = count + 1;
    const long long nMax = MotionPlan::MaximumGridPoints;
    const long long nGuess = limit.staticReachable ? count + toCount(std::ceil(range / limit.staticStepSize)) : nMax;
    const long long n = lastTrue(nGuess, nMin, nMax, tooFew) + 1;
    if (n <= nMax) {
        limit.dynamicReachable = true;
        limit.dynamicResolution = int(n);
        limit.dynamicError = measureDynamic(plan, report, limit.dynamicResolution);
    }
    return limit;
}
