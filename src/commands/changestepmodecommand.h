#pragma once

#include "valuecommand.h"

#include <QCoreApplication>

class Steps;

// Switches between dynamic and static step size. Undo applies the negation of
// the requested mode, not a captured one: pushed with the mode already in
// force, its undo leaves the opposite. Deliberate; views push it only on a
// real change of their check box.
class ChangeStepModeCommand : public ValueCommand<Steps, bool>
{
    Q_DECLARE_TR_FUNCTIONS(ChangeStepModeCommand)
public:
    ChangeStepModeCommand(Steps *steps, bool dynamic, QUndoCommand *parent = nullptr);
};
