#pragma once

#include "valuecommand.h"

#include "mxcamdesigner_export.h"

class Scaling;

// Selects how the master axis is scaled.
class MXCAMDESIGNER_EXPORT SetMasterAxisScalingCommand : public ValueCommand<Scaling, int>
{
public:
    SetMasterAxisScalingCommand(Scaling *scaling, int masterAxisScaling, QUndoCommand *parent = nullptr);
};
