#include "setcyletimecommand.h"

#include "model/scaling.h"

SetCyleTimeCommand::SetCyleTimeCommand(Scaling *scaling, double cycleTime, QUndoCommand *parent)
    : ValueCommand(scaling, &Scaling::setCycleTime, scaling ? scaling->cycleTime() : cycleTime, cycleTime, parent)
{
    setText(tr("Ändere Zykluszeit von %1 zu %2").arg(oldValue()).arg(newValue()));
}
