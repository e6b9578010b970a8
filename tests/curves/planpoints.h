#pragma once

#include "model/motionpoint.h"

#include <QList>

#include <memory>
#include <vector>

// Owns the motion points handed to a plan, as the cam description does.
struct PlanPoints {
    std::vector<std::unique_ptr<MotionPoint>> owned;
    QList<MotionPoint *> list;

    void add(double master, double slave, movementRules type = rest)
    {
        owned.push_back(std::make_unique<MotionPoint>(master, slave, type));
        list.append(owned.back().get());
    }
};
