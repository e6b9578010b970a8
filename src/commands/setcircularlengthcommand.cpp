#include "setcircularlengthcommand.h"

#include "camdesigner/camdescriptionimplementation.h"

SetCircularLengthCommand::SetCircularLengthCommand(CamDescriptionImplementation *camDescription, double circularLength, QUndoCommand *parent)
    : ValueCommand(camDescription, &CamDescriptionImplementation::setCircularLength, camDescription ? camDescription->circularLength() : circularLength, circularLength, parent)
{
    QString text = tr("Ändere Umlauflänge %oldCircularLength% -> %newCircularLength%");
    text.replace(QLatin1String("%oldCircularLength%"), QString::number(oldValue(), 'g', 6));
    text.replace(QLatin1String("%newCircularLength%"), QString::number(newValue(), 'g', 6));
    setText(text);
}
