#include "changesectioncommand.h"

#include "model/scaling.h"

namespace {

QString velocityText(const MotionPoint &point)
{
    return point.hasVelocity() ? QString::number(point.velocity()) : ChangeSectionCommand::tr("automatisch");
}

} // namespace

ChangeSectionCommand::ChangeSectionCommand(MotionPoint *motionPoint, const MotionPoint &newValue, Scaling *scaling,
                                           QUndoCommand *parent)
    : EditMotionPointCommand(motionPoint, newValue, scaling, parent)
{
    if (!motionPoint)
        return;
    QString text;
    QString oldText;
    QString newText;
    if (motionPoint->sectionLaw() != newValue.sectionLaw()) {
        text = tr("Ändere Abschnittsgesetz [%MasterPos%] von %Old% -> %New%");
        oldText = MotionPoint::sectionLawDisplayName(motionPoint->sectionLaw());
        newText = MotionPoint::sectionLawDisplayName(newValue.sectionLaw());
    } else if (motionPoint->inflection() != newValue.inflection()) {
        text = tr("Ändere Wendepunkt [%MasterPos%] von %Old% -> %New%");
        oldText = QString::number(motionPoint->inflection());
        newText = QString::number(newValue.inflection());
    } else {
        text = tr("Ändere Geschwindigkeit [%MasterPos%] von %Old% -> %New%");
        oldText = velocityText(*motionPoint);
        newText = velocityText(newValue);
    }
    text.replace(QLatin1String("%MasterPos%"),
                 scaling ? scaling->masterPositionToText(motionPoint->master()) : QString::number(motionPoint->master()));
    text.replace(QLatin1String("%Old%"), oldText);
    text.replace(QLatin1String("%New%"), newText);
    setText(text);
}
