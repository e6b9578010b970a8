#pragma once

#include "valuecommand.h"

class CamDescriptionImplementation;

// Makes the cam cyclic or not. Like the step mode, undo applies the negation
// of the requested flag (deliberate; views push it only on a real change).
class SetIsCyclicCamCommand : public ValueCommand<CamDescriptionImplementation, bool>
{
public:
    SetIsCyclicCamCommand(CamDescriptionImplementation *camDescription, bool cyclic, QUndoCommand *parent = nullptr);
};
