#pragma once

#include "model/motionpoint.h"

#include <QList>
#include <QVector>

#include <memory>
#include <vector>

// Owns the motion points handed to a plan, as the cam description does.
struct PlanPoints {
    std::vector<std::unique_ptr<MotionPoint>> owned;
    QList<MotionPoint *> list;

    PlanPoints() = default;
    // Points at the given masters, slave 0.
    explicit PlanPoints(const QVector<double> &masters, MotionPoint::movementRules type = MotionPoint::rest)
    {
        for (double master : masters)
            add(master, 0.0, type);
    }

    void add(double master, double slave, MotionPoint::movementRules type = MotionPoint::rest)
    {
        owned.push_back(std::make_unique<MotionPoint>(master, slave, type));
        list.append(owned.back().get());
    }
};
