#include "setvelocityscalingcommand.h"

#include "model/scaling.h"

SetVelocityScalingCommand::SetVelocityScalingCommand(Scaling *scaling, int velocityScaling, QUndoCommand *parent)
    : ValueCommand(scaling, &Scaling::setVelocityScaling, scaling ? scaling->velocityScaling() : velocityScaling, velocityScaling, parent)
{
    setText(tr("Ändere Geschwindigkeitsskala von %1 zu %2")
                .arg(Scaling::velocityScalingText(oldValue()), Scaling::velocityScalingText(newValue())));
}
