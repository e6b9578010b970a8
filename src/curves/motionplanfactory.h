#pragma once

#include <QList>

class MotionPlan;
class MotionPoint;
class QObject;
class Scaling;
class Steps;

// Which plan a motion law calls for and how it is sampled, in one place for
// the editor, the command-line tool and everything else that builds plans.
namespace MotionPlanFactory {

// While a point is dragged the curve is sampled in this many steps over the
// master range, whatever the step settings say.
constexpr double CoarseStepCount = 500.0;

// A cubic spline plan for law 1 ("Spline") and 2 ("SplinePeriodic", periodic
// only for a cyclic cam), a VDI plan for any other law;
// not yet sampled.
MotionPlan *create(int motionLaw, const QList<MotionPoint *> &points, bool cyclic, double circularLength,
                   QObject *parent, Scaling *scaling);

// The sampling rule: coarse (master range / CoarseStepCount) when asked, else
// the steps' dynamic resolution or static step size (the default resolution
// when steps is null).
void sample(MotionPlan *plan, const Steps *steps, bool coarse);

} // namespace MotionPlanFactory
