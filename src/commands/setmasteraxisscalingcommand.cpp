#include "setmasteraxisscalingcommand.h"

#include "model/scaling.h"

#include <QObject>

SetMasterAxisScalingCommand::SetMasterAxisScalingCommand(Scaling *scaling, int masterAxisScaling, QUndoCommand *parent)
    : ValueCommand(scaling, &Scaling::setMasterAxisScaling, scaling ? scaling->masterAxisScaling() : masterAxisScaling, masterAxisScaling, parent)
{
    setText(QObject::tr("Ändere Master-Skala von %1 zu %2")
                .arg(Scaling::masterAxisScalingText(oldValue()), Scaling::masterAxisScalingText(newValue())));
}
