#include "changestepmodecommand.h"

#include "model/steps.h"

#include <QObject>

ChangeStepModeCommand::ChangeStepModeCommand(Steps *steps, bool dynamic, QUndoCommand *parent)
    : ValueCommand(steps, &Steps::setIsDynamicStepSize, !dynamic, dynamic, parent)
{
    setText(dynamic ? QObject::tr("Aktiviere dynamische Schrittweite")
                    : QObject::tr("Aktiviere statische Schrittweite"));
}
