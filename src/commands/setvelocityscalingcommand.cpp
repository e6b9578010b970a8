#include "setvelocityscalingcommand.h"

#include "model/scaling.h"

#include <QObject>

SetVelocityScalingCommand::SetVelocityScalingCommand(Scaling *scaling, int velocityScaling, QUndoCommand *parent)
    : ValueCommand(scaling, &Scaling::setVelocityScaling, scaling ? scaling->velocityScaling() : velocityScaling, velocityScaling, parent)
{
    setText(QObject::tr("Ändere Geschwindigkeitsskala von %1 zu %2")
                .arg(Scaling::velocityScalingText(oldValue()), Scaling::velocityScalingText(newValue())));
}
