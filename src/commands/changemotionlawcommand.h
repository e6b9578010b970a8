#pragma once

#include "valuecommand.h"

#include <QCoreApplication>

class MotionLaw;

// Switches the plan-wide motion law.
class ChangeMotionLawCommand : public ValueCommand<MotionLaw, int>
{
    Q_DECLARE_TR_FUNCTIONS(ChangeMotionLawCommand)
public:
    ChangeMotionLawCommand(MotionLaw *motionLaw, int law, QUndoCommand *parent = nullptr);
};
