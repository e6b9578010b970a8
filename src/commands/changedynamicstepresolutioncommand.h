#pragma once

#include "valuecommand.h"

#include "mxcamdesigner_export.h"

class Steps;

// Sets the number of steps of the dynamic step size.
class MXCAMDESIGNER_EXPORT ChangeDynamicStepResolutionCommand : public ValueCommand<Steps, int>
{
public:
    ChangeDynamicStepResolutionCommand(int resolution, Steps *steps, QUndoCommand *parent = nullptr);
};
