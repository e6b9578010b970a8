#pragma once

#include "valuecommand.h"

#include <QCoreApplication>

class CamDescriptionImplementation;

// Makes the cam cyclic or not. Like the step mode, undo applies the negation
// of the requested flag (deliberate; views push it only on a real change).
class SetIsCyclicCamCommand : public ValueCommand<CamDescriptionImplementation, bool>
{
    Q_DECLARE_TR_FUNCTIONS(SetIsCyclicCamCommand)
public:
    SetIsCyclicCamCommand(CamDescriptionImplementation *camDescription, bool cyclic, QUndoCommand *parent = nullptr);
};
