#pragma once

#include "valuecommand.h"

class Scaling;

// Selects how velocities are scaled.
class SetVelocityScalingCommand : public ValueCommand<Scaling, int>
{
public:
    SetVelocityScalingCommand(Scaling *scaling, int velocityScaling, QUndoCommand *parent = nullptr);
};
