#pragma once

#include "valuecommand.h"

#include <QCoreApplication>

class Steps;

// Sets the number of steps of the dynamic step size.
class ChangeDynamicStepResolutionCommand : public ValueCommand<Steps, int>
{
    Q_DECLARE_TR_FUNCTIONS(ChangeDynamicStepResolutionCommand)
public:
    ChangeDynamicStepResolutionCommand(int resolution, Steps *steps, QUndoCommand *parent = nullptr);
};
