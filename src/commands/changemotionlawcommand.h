#pragma once

#include "valuecommand.h"

class MotionLaw;

// Switches the plan-wide motion law.
class ChangeMotionLawCommand : public ValueCommand<MotionLaw, int>
{
public:
    ChangeMotionLawCommand(MotionLaw *motionLaw, int law, QUndoCommand *parent = nullptr);
};
