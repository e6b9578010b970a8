#pragma once

#include "cubicspline.h"
#include "motionplan.h"

// The motion laws "Spline" and "SplinePeriodic": one cubic spline through
// all motion points, natural, or periodic for a cyclic cam; the points'
// segment types and section laws have no effect.
class MotionPlanCubicSpline : public MotionPlan
{
    Q_OBJECT
public:
    MotionPlanCubicSpline(QList<MotionPoint *> motionPoints, bool cyclic, double circularLength,
                          QObject *parent, Scaling *scaling, bool periodic = false);
    ~MotionPlanCubicSpline() override;

    double position(double master) const override;
    double velocity(double master) const override;
    double acceleration(double master) const override;
    double jerk(double master) const override;

    const CubicSpline &spline() const { return m_spline; }

protected:
    MasterInterval straightStretch(double master) const override;

private:
    CubicSpline m_spline;
};
