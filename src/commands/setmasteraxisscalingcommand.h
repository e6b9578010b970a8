#pragma once

#include "valuecommand.h"

#include <QCoreApplication>

class Scaling;

// Selects how the master axis is scaled.
class SetMasterAxisScalingCommand : public ValueCommand<Scaling, int>
{
    Q_DECLARE_TR_FUNCTIONS(SetMasterAxisScalingCommand)
public:
    SetMasterAxisScalingCommand(Scaling *scaling, int masterAxisScaling, QUndoCommand *parent = nullptr);
};
