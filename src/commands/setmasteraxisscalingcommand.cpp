#include "setmasteraxisscalingcommand.h"

#include "model/scaling.h"

SetMasterAxisScalingCommand::SetMasterAxisScalingCommand(Scaling *scaling, int masterAxisScaling, QUndoCommand *parent)
    : ValueCommand(scaling, &Scaling::setMasterAxisScaling, scaling ? scaling->masterAxisScaling() : masterAxisScaling, masterAxisScaling, parent)
{
    setText(tr("Ändere Master-Skala von %1 zu %2")
                .arg(Scaling::masterAxisScalingText(oldValue()), Scaling::masterAxisScalingText(newValue())));
}
