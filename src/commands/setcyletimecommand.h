#pragma once

#include "valuecommand.h"

#include <QCoreApplication>

class Scaling;

// Sets the cycle time of the scaling. The class name's spelling is the
// program's own and is kept: views and translations refer to it.
class SetCyleTimeCommand : public ValueCommand<Scaling, double>
{
    Q_DECLARE_TR_FUNCTIONS(SetCyleTimeCommand)
public:
    SetCyleTimeCommand(Scaling *scaling, double cycleTime, QUndoCommand *parent = nullptr);
};
