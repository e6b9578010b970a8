#pragma once

#include <memory>

class CamEditorModel;
class MotionPlan;
class MotionPoint;

// A motion point inserted on the curve should leave the curve where it is.
// Every segment type (and, for a "speed" point, the curve's own velocity
// there as its set velocity) is tried on a copy of the points; the one whose
// curve strays least from the current one is taken. The section that the
// point splits keeps its law on both halves.
namespace PointInsertion {

struct Choice {
    std::unique_ptr<MotionPoint> point;
    // The largest change of the slave position the insert causes, over the
    // current grid points' masters; NaN when there is no curve to compare.
    double deviation;
};

// The point to insert at master on the current curve (slave is where it
// will sit, rounded to the drive's places).
Choice choose(const CamEditorModel &editorModel, double master, double slave);

// The largest |position difference| of two plans over the first one's grid points.
double largestDeviation(const MotionPlan &before, const MotionPlan &after);

} // namespace PointInsertion
