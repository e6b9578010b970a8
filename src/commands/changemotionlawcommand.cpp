#include "changemotionlawcommand.h"

#include "model/motionlaw.h"

ChangeMotionLawCommand::ChangeMotionLawCommand(MotionLaw *motionLaw, int law, QUndoCommand *parent)
    : ValueCommand(motionLaw, &MotionLaw::setLaw, motionLaw ? motionLaw->law() : law, law, parent)
{
    QString text = tr("Ändere Bewegungsgesetz von %MotionLawOld% -> %MotionLawNew%");
    text.replace(QLatin1String("%MotionLawOld%"), MotionLaw::displayName(oldValue()));
    text.replace(QLatin1String("%MotionLawNew%"), MotionLaw::displayName(newValue()));
    setText(text);
}
