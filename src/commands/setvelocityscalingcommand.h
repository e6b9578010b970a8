#pragma once

#include "valuecommand.h"

#include "mxcamdesigner_export.h"

class Scaling;

// Selects how velocities are scaled.
class MXCAMDESIGNER_EXPORT SetVelocityScalingCommand : public ValueCommand<Scaling, int>
{
public:
    SetVelocityScalingCommand(Scaling *scaling, int velocityScaling, QUndoCommand *parent = nullptr);
};
