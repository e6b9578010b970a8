#pragma once

// Straightforward sampling as the grid point rules describe it: a std::set,
// a linear scan over all motion points for the quarter-step test, no
// shortcuts. The plans must give the same bits.

#include "curves/motionplan.h"
#include "model/motionpoint.h"

#include <QPolygonF>
#include <QtTest>

#include <cmath>
#include <cstring>
#include <set>

namespace Reference {

inline QPolygonF sample(const MotionPlan &plan, double h, double resolution)
{
    const QList<MotionPoint *> points = plan.motionPoints();
    std::set<double> positions;
    double x = points.first()->master();
    const double end = plan.maximumMasterPosition();
    while (x <= end) {
        const double before = plan.acceleration(x - h);
        const double here = plan.acceleration(x);
        const double after = plan.acceleration(x + h);
        bool worth = !(before == 0.0 && here == 0.0 && after == 0.0);
        for (const MotionPoint *point : points) {
            if (worth && std::abs(point->master() - x) < h / 4)
                worth = false;
        }
        if (worth)
            positions.insert(x);
        x = x + h;
    }
    for (const MotionPoint *point : points)
        positions.insert(point->master());

    QPolygonF grid;
    for (auto it = positions.begin(); it != positions.end(); ++it) {
        const double m = *it;
        const bool inner = it != positions.begin() && std::next(it) != positions.end();
        if (inner && resolution > std::abs(m - plan.position(m - 1.0)))
            continue;
        grid.append(QPointF(m, plan.position(m)));
    }
    return grid;
}

inline QPolygonF staticPositions(const MotionPlan &plan, double h, double resolution)
{
    const int n = plan.motionPoints().size();
    if (plan.masterRange() / h > MotionPlan::MaximumGridPoints - n)
        h = plan.masterRange() / (MotionPlan::MaximumGridPoints - n);
    return sample(plan, h, resolution);
}

inline QPolygonF dynamicPositions(const MotionPlan &plan, int count, double resolution)
{
    const int n = plan.motionPoints().size();
    const double h = plan.masterRange() / (count - n);
    QPolygonF points = sample(plan, h, resolution);
    if (count * 0.9 > points.size())
        points = sample(plan, points.size() * h / count, resolution);
    return points;
}

inline bool sameBits(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

// Compares two point lists bit for bit and says where they first differ.
inline bool samePoints(const QPolygonF &actual, const QPolygonF &expected)
{
    if (actual.size() != expected.size()) {
        qWarning("sizes differ: %d, expected %d", actual.size(), expected.size());
        return false;
    }
    for (int i = 0; i < actual.size(); ++i) {
        if (!sameBits(actual.at(i).x(), expected.at(i).x()) || !sameBits(actual.at(i).y(), expected.at(i).y())) {
            qWarning("point %d differs: (%.17g, %.17g), expected (%.17g, %.17g)", i, actual.at(i).x(),
                     actual.at(i).y(), expected.at(i).x(), expected.at(i).y());
            return false;
        }
    }
    return true;
}

} // namespace Reference
