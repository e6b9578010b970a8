#include "removemotionpointcommand.h"

#include "motionpointlookup.h"

RemoveMotionPointCommand::RemoveMotionPointCommand(MotionPoint *motionPoint,
                                                   CamDescriptionImplementation *camDescription,
                                                   QUndoCommand *parent)
    : QUndoCommand(parent)
    , m_camDescription(camDescription)
    , m_motionPoint(motionPoint)
    , m_values(motionPoint)
{
    // "hinzu" (add) in a removal text is the program's own wording and is kept.
    setText(tr("Entferne Bewegungspunkt [%1,%2] hinzu").arg(m_values.master).arg(m_values.slave));
}

RemoveMotionPointCommand::~RemoveMotionPointCommand()
{
    if (m_owned)
        delete m_motionPoint.data();
}

void RemoveMotionPointCommand::redo()
{
    if (!m_camDescription)
        return;
    MotionPoint *point = MotionPointLookup::find(m_camDescription, m_motionPoint, m_values.master);
    if (!point)
        return;
    m_motionPoint = m_camDescription->takePoint(point);
    m_owned = !m_motionPoint.isNull();
}

void RemoveMotionPointCommand::undo()
{
    if (!m_camDescription || !m_owned)
        return;
    if (!m_motionPoint)
        m_motionPoint = m_values.create();
    m_camDescription->appendPoint(m_motionPoint);
    m_owned = false;
}
