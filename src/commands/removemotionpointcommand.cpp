#include "removemotionpointcommand.h"

#include "camdesigner/camdescriptionimplementation.h"
#include "model/motionpoint.h"
#include "motionpointlookup.h"

#include <QObject>

RemoveMotionPointCommand::RemoveMotionPointCommand(MotionPoint *motionPoint,
                                                   CamDescriptionImplementation *camDescription,
                                                   QUndoCommand *parent)
    : QUndoCommand(parent)
    , m_camDescription(camDescription)
    , m_motionPoint(motionPoint)
    , m_master(motionPoint ? motionPoint->master() : 0.0)
    , m_slave(motionPoint ? motionPoint->slave() : 0.0)
    , m_type(motionPoint ? motionPoint->type() : rest)
{
    // "hinzu" (add) in a removal text is the program's own wording and is kept.
    setText(QObject::tr("Entferne Bewegungspunkt [%1,%2] hinzu").arg(m_master).arg(m_slave));
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
    MotionPoint *point = MotionPointLookup::find(m_camDescription, m_motionPoint, m_master);
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
        m_motionPoint = new MotionPoint(m_master, m_slave, movementRules(m_type));
    m_camDescription->appendPoint(m_motionPoint);
    m_owned = false;
}
