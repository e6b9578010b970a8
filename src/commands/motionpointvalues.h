#pragma once

#include "model/motionpoint.h"

// The values of a point as a command first saw it, for putting back an equal
// point when the command's own object is gone.
struct MotionPointValues {
    explicit MotionPointValues(const MotionPoint *point)
        : master(point ? point->master() : 0.0)
        , slave(point ? point->slave() : 0.0)
        , type(point ? point->type() : MotionPoint::rest)
        , sectionLaw(point ? point->sectionLaw() : MotionPoint::Poly5)
        , inflection(point ? point->inflection() : MotionPoint::DefaultInflection)
        , hasVelocity(point && point->hasVelocity())
        , velocity(point ? point->velocity() : 0.0)
    {
    }
    MotionPoint *create() const
    {
        auto *point = new MotionPoint(master, slave, MotionPoint::movementRules(type));
        point->setSectionLaw(sectionLaw);
        point->setInflection(inflection);
        if (hasVelocity)
            point->setVelocity(velocity);
        return point;
    }

    double master;
    double slave;
    int type;
    int sectionLaw;
    double inflection;
    bool hasVelocity;
    double velocity;
};
