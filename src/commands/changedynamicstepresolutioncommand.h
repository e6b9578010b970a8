#pragma once

#include "valuecommand.h"

class Steps;

// Sets the number of steps of the dynamic step size.
class ChangeDynamicStepResolutionCommand : public ValueCommand<Steps, int>
{
public:
    ChangeDynamicStepResolutionCommand(int resolution, Steps *steps, QUndoCommand *parent = nullptr);
};
