#pragma once

#include "valuecommand.h"

#include <QCoreApplication>

class Scaling;

// Selects how velocities are scaled.
class SetVelocityScalingCommand : public ValueCommand<Scaling, int>
{
    Q_DECLARE_TR_FUNCTIONS(SetVelocityScalingCommand)
public:
    SetVelocityScalingCommand(Scaling *scaling, int velocityScaling, QUndoCommand *parent = nullptr);
};
