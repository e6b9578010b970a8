#pragma once

#include "valuecommand.h"

#include "mxcamdesigner_export.h"

class MotionLaw;

// Switches the plan-wide motion law.
class MXCAMDESIGNER_EXPORT ChangeMotionLawCommand : public ValueCommand<MotionLaw, int>
{
public:
    ChangeMotionLawCommand(MotionLaw *motionLaw, int law, QUndoCommand *parent = nullptr);
};
