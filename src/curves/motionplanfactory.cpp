#include "motionplanfactory.h"

#include "model/motionlaw.h"
#include "model/steps.h"
#include "motionplancubicspline.h"
#include "motionplanvdi.h"

namespace MotionPlanFactory {

MotionPlan *create(int motionLaw, const QList<MotionPoint *> &points, bool cyclic, double circularLength,
                   QObject *parent, Scaling *scaling)
{
    // Any other value (only possible through the programming interface) gets
    // the segment law, the default of the data.
    if (motionLaw == MotionLaw::Spline || motionLaw == MotionLaw::SplinePeriodic) {
        return new MotionPlanCubicSpline(points, cyclic, circularLength, parent, scaling,
                                         motionLaw == MotionLaw::SplinePeriodic);
    }
    return new MotionPlanVdi(points, cyclic, circularLength, parent, scaling);
}

void sample(MotionPlan *plan, const Steps *steps, bool coarse)
{
    if (coarse)
        plan->calculate(plan->masterRange() / CoarseStepCount);
    else if (!steps)
        plan->calculateWithResolution(Steps::DefaultDynamicStepResolution);
    else if (steps->isDynamicStepSize())
        plan->calculateWithResolution(steps->dynamicStepResolution());
    else
        plan->calculate(steps->staticStepSize());
}

} // namespace MotionPlanFactory
