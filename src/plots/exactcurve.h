#pragma once

#include <QPolygonF>

class MotionPlan;

// The calculated curve as the plan defines it, not as its grid points
// sample it: the plan's own evaluation of a quantity at about one point per
// pixel column of the shown master range, plus both sides of every motion
// point, where a derivative of the law may jump. The sampled lists stay what
// the tables show and the drive receives.
namespace ExactCurve {

// order 1 velocity, 2 acceleration, 3 jerk (0 the position); from..to is
// the shown master range, clipped to the plan's; columns the pixel width.
QPolygonF evaluate(const MotionPlan &plan, int order, double from, double to, int columns);

} // namespace ExactCurve
