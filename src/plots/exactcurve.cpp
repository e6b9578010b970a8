#include "exactcurve.h"

#include "curves/motionplan.h"
#include "model/motionpoint.h"

#include <algorithm>
#include <vector>

namespace {

// Both sides of a joint, this fraction of the range apart: far below a pixel
// at any zoom the axes allow, far above the doubles' resolution.
constexpr double JointSide = 1e-9;

double valueOf(const MotionPlan &plan, int order, double master)
{
    switch (order) {
    case 0: return plan.position(master);
    case 1: return plan.velocity(master);
    case 2: return plan.acceleration(master);
    default: return plan.jerk(master);
    }
}

} // namespace

QPolygonF ExactCurve::evaluate(const MotionPlan &plan, int order, double from, double to, int columns)
{
    const QList<MotionPoint *> points = plan.motionPoints();
    if (points.size() < 2)
        return QPolygonF();
    const double first = points.constFirst()->master();
    const double last = plan.maximumMasterPosition();
    const double range = last - first;
    from = std::max(from, first);
    to = std::min(to, last);
    if (!(range > 0.0) || !(to > from) || columns < 1)
        return QPolygonF();
    std::vector<double> masters;
    masters.reserve(size_t(columns) + 3 * size_t(points.size()) + 1);
    for (int column = 0; column <= columns; ++column)
        masters.push_back(from + (to - from) * column / columns);
    const double side = JointSide * range;
    for (const MotionPoint *point : points) {
        const double joint = point->master();
        for (double master : { joint - side, joint, joint + side }) {
            if (master >= from && master <= to)
                masters.push_back(master);
        }
    }
    std::sort(masters.begin(), masters.end());
    masters.erase(std::unique(masters.begin(), masters.end()), masters.end());
    QPolygonF curve;
    curve.reserve(int(masters.size()));
    for (double master : masters)
        curve.append(QPointF(master, valueOf(plan, order, master)));
    return curve;
}
