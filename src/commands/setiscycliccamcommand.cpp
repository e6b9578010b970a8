#include "setiscycliccamcommand.h"

#include "camdesigner/camdescriptionimplementation.h"

SetIsCyclicCamCommand::SetIsCyclicCamCommand(CamDescriptionImplementation *camDescription, bool cyclic, QUndoCommand *parent)
    : ValueCommand(camDescription, &CamDescriptionImplementation::setCyclic, !cyclic, cyclic, parent)
{
    setText(cyclic ? tr("Aktiviere zyklische Umlauflänge")
                   : tr("Deaktiviere zyklische Umlauflänge"));
}
