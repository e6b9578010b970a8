#include "changestepmodecommand.h"

#include "model/steps.h"

ChangeStepModeCommand::ChangeStepModeCommand(Steps *steps, bool dynamic, QUndoCommand *parent)
    : ValueCommand(steps, &Steps::setIsDynamicStepSize, !dynamic, dynamic, parent)
{
    setText(dynamic ? tr("Aktiviere dynamische Schrittweite")
                    : tr("Aktiviere statische Schrittweite"));
}
