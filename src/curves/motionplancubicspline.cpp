#include "motionplancubicspline.h"

#include "model/motionpoint.h"

MotionPlanCubicSpline::MotionPlanCubicSpline(QList<MotionPoint *> motionPoints, bool cyclic,
                                             double circularLength, QObject *parent, Scaling *scaling,
                                             bool periodic)
    : MotionPlan(std::move(motionPoints), cyclic, circularLength, parent, scaling)
{
    // The plan's points, with the closing point of a cyclic cam. The natural
    // spline ends where it starts without matching velocity and acceleration
    // at the two ends; the periodic one matches them.
    std::vector<double> knots;
    std::vector<double> values;
    for (const MotionPoint *point : MotionPlan::motionPoints()) {
        knots.push_back(point->master());
        values.push_back(point->slave());
    }
    if (periodic && cyclic)
        m_spline.setPeriodicPoints(std::move(knots), std::move(values));
    else
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
