#pragma once

#include "motionpoint.h"

// The values of a point: as a command first saw it, for putting back an equal
// point when the command's own object is gone; as a plan was built from it,
// to tell whether the point has changed since.
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

    // Exact: any change, however small, counts.
    bool operator==(const MotionPointValues &other) const
    {
        return master == other.master && slave == other.slave && type == other.type
            && sectionLaw == other.sectionLaw && inflection == other.inflection && hasVelocity == other.hasVelocity
            && velocity == other.velocity;
    }

    double master;
    double slave;
    int type;
    int sectionLaw;
    double inflection;
    bool hasVelocity;
    double velocity;
};
