#include "motionplancubicspline.h"

#include "model/motionpoint.h"

MotionPlanCubicSpline::MotionPlanCubicSpline(QList<MotionPoint *> motionPoints, bool cyclic,
                                             double circularLength, QObject *parent, Scaling *scaling)
    : MotionPlan(motionPoints, cyclic, circularLength, parent, scaling)
{
    std::vector<double> knots;
    std::vector<double> values;
    for (const MotionPoint *point : qAsConst(motionPoints)) {
        if (!point)
            continue;
        knots.push_back(point->master());
        values.push_back(point->slave());
    }
    // A natural spline that ends where it starts, not a periodic one: velocity
    // and acceleration at the two ends are not matched.
    if (cyclic && !knots.empty() && circularLength > knots.back()) {
        knots.push_back(circularLength);
        values.push_back(values.front());
    }
    m_spline.setPoints(std::move(knots), std::move(values));
}

MotionPlanCubicSpline::~MotionPlanCubicSpline() = default;

double MotionPlanCubicSpline::position(double master) const
{
    return m_spline.position(master);
}

double MotionPlanCubicSpline::velocity(double master) const
{
    return m_spline.velocity(master);
}

double MotionPlanCubicSpline::acceleration(double master) const
{
    return m_spline.acceleration(master);
}

double MotionPlanCubicSpline::jerk(double master) const
{
    return m_spline.jerk(master);
}

std::pair<double, double> MotionPlanCubicSpline::straightStretch(double master) const
{
    return m_spline.straightStretch(master);
}
