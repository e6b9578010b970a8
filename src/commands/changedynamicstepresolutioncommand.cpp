#include "changedynamicstepresolutioncommand.h"

#include "model/steps.h"

ChangeDynamicStepResolutionCommand::ChangeDynamicStepResolutionCommand(int resolution, Steps *steps, QUndoCommand *parent)
    : ValueCommand(steps, &Steps::setDynamicStepResolution, steps ? steps->dynamicStepResolution() : resolution, resolution, parent)
{
    const QString points = tr("%1 Punkten");
    QString text = tr("Ändere Auflösung der dynamischen Schrittweite von %oldDynamicSteps% -> %newDynamicSteps%");
    text.replace(QLatin1String("%oldDynamicSteps%"), points.arg(oldValue()));
    text.replace(QLatin1String("%newDynamicSteps%"), points.arg(newValue()));
    setText(text);
}
