#pragma once

#include "valuecommand.h"

class Scaling;

// Selects how the master axis is scaled.
class SetMasterAxisScalingCommand : public ValueCommand<Scaling, int>
{
public:
    SetMasterAxisScalingCommand(Scaling *scaling, int masterAxisScaling, QUndoCommand *parent = nullptr);
};
