#pragma once

#include "curvereport.h"

class MotionPlan;

// The coarsest sampling whose linear interpolation stays under the slave
// position resolution: the largest static step size (in steps of the master
// resolution) and the smallest dynamic grid point count. Found by bisection
// on the plan's own sampling, so that grid alignment and the thinning of
// straight stretches count as they do in the drive's table.
struct SamplingLimit {
    double resolution = 0.0;
    bool staticReachable = false;
    double staticStepSize = 0.0;
    // The error with that step; the next larger step reaches the resolution.
    CurveExtreme staticError;
    bool dynamicReachable = false;
    int dynamicResolution = 0;
    CurveExtreme dynamicError;
    // How many samplings the search took.
    int samplings = 0;

    // Samples copies of the plan; the plan itself is left as it is. Its
    // points must live while the search runs.
    static SamplingLimit find(const MotionPlan &plan);
    // The largest interpolation error of a copy of the plan sampled with a
    // static step or a dynamic resolution.
    static CurveExtreme errorWithStaticStep(const MotionPlan &plan, double stepSize);
    static CurveExtreme errorWithDynamicResolution(const MotionPlan &plan, int gridPointCount);

private:
    static CurveExtreme measureStatic(const MotionPlan &plan, const CurveReport &curve, double stepSize);
    static CurveExtreme measureDynamic(const MotionPlan &plan, const CurveReport &curve, int gridPointCount);
};
