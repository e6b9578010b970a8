#pragma once

#include "valuecommand.h"

#include <QCoreApplication>

class Steps;

// Sets the static step size.
class SetStepsCommand : public ValueCommand<Steps, double>
{
    Q_DECLARE_TR_FUNCTIONS(SetStepsCommand)
public:
    SetStepsCommand(Steps *steps, double stepSize, QUndoCommand *parent = nullptr);
};
