#include "setiscycliccamcommand.h"

#include "camdesigner/camdescriptionimplementation.h"

#include <QObject>

SetIsCyclicCamCommand::SetIsCyclicCamCommand(CamDescriptionImplementation *camDescription, bool cyclic, QUndoCommand *parent)
    : ValueCommand(camDescription, &CamDescriptionImplementation::setCyclic, !cyclic, cyclic, parent)
{
    setText(cyclic ? QObject::tr("Aktiviere zyklische Umlauflänge")
                   : QObject::tr("Deaktiviere zyklische Umlauflänge"));
}
