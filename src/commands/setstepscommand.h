#pragma once

#include "valuecommand.h"

#include "mxcamdesigner_export.h"

class Steps;

// Sets the static step size.
class MXCAMDESIGNER_EXPORT SetStepsCommand : public ValueCommand<Steps, double>
{
public:
    SetStepsCommand(Steps *steps, double stepSize, QUndoCommand *parent = nullptr);
};
