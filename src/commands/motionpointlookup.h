#pragma once

#include "camdesigner/camdescriptionimplementation.h"
#include "model/motionpoint.h"

namespace MotionPointLookup {

// The point a command refers to: its own point object while that is in the
// description, else the point at the master position where the command left
// it. A whole-data load deletes every point object and creates new ones, so
// after undoing a load the command's object may be gone while an equal point
// stands in its place.
inline MotionPoint *find(const CamDescriptionImplementation *camDescription, MotionPoint *known, double master)
{
    if (known && camDescription->pointAt(known->master()) == known)
        return known;
    return camDescription->pointAt(master);
}

} // namespace MotionPointLookup
