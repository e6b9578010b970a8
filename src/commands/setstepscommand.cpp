#include "setstepscommand.h"

#include "model/steps.h"

SetStepsCommand::SetStepsCommand(Steps *steps, double stepSize, QUndoCommand *parent)
    : ValueCommand(steps, &Steps::setStaticStepSize, steps ? steps->staticStepSize() : stepSize, stepSize, parent)
{
    setText(tr("Ändere Schrittweite von %1 -> %2").arg(oldValue()).arg(newValue()));
}
