#pragma once

#include "valuecommand.h"

class Steps;

// Sets the static step size.
class SetStepsCommand : public ValueCommand<Steps, double>
{
public:
    SetStepsCommand(Steps *steps, double stepSize, QUndoCommand *parent = nullptr);
};
