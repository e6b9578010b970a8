#pragma once

#include "model/motionpoint.h"

// The values of a point as a command first saw it, for putting back an equal
// point when the command's own object is gone.
struct MotionPointValues {
    explicit MotionPointValues(const MotionPoint *point)
        : master(point ? point->master() : 0.0)
        , slave(point ? point->slave() : 0.0)
        , type(point ? point->type() : MotionPoint::rest)
    {
    }
    MotionPoint *create() const { return new MotionPoint(master, slave, MotionPoint::movementRules(type)); }

    double master;
    double slave;
    int type;
};
