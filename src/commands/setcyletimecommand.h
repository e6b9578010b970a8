#pragma once

#include "valuecommand.h"

class Scaling;

// Sets the cycle time of the scaling. The class name's spelling is the
// program's own and is kept: views and translations refer to it.
class SetCyleTimeCommand : public ValueCommand<Scaling, double>
{
public:
    SetCyleTimeCommand(Scaling *scaling, double cycleTime, QUndoCommand *parent = nullptr);
};
