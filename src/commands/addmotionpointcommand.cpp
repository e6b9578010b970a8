#include "addmotionpointcommand.h"

#include <messagebox.h>
#include "motionpointlookup.h"

AddMotionPointCommand::AddMotionPointCommand(CamDescriptionImplementation *camDescription,
                                             const QPointer<MotionPoint> &motionPoint, QUndoCommand *parent)
    : QUndoCommand(parent)
    , m_camDescription(camDescription)
    , m_motionPoint(motionPoint)
    , m_values(motionPoint)
{
    setText(tr("Füge Bewegungspunkt [%1,%2] hinzu").arg(m_values.master).arg(m_values.slave));
    // Without a point there is nothing to record.
    if (!motionPoint)
        setObsolete(true);
}

AddMotionPointCommand::~AddMotionPointCommand()
{
    if (m_owned)
        delete m_motionPoint.data();
}

void AddMotionPointCommand::redo()
{
    if (!m_camDescription || isObsolete())
        return;
    // Exact comparison on purpose: the map is keyed by the exact master
    // value, so a position one bit away is a different point.
    if (m_camDescription->pointAt(m_values.master)) {
        showMasterTaken(nullptr, m_values.master);
        delete m_motionPoint.data();
        m_motionPoint = nullptr;
        m_owned = false;
        setObsolete(true);
        return;
    }
    if (!m_motionPoint)
        m_motionPoint = m_values.create();
    m_camDescription->appendPoint(m_motionPoint);
    m_owned = false;
}

void AddMotionPointCommand::undo()
{
    if (!m_camDescription || isObsolete())
        return;
    MotionPoint *point = MotionPointLookup::find(m_camDescription, m_motionPoint, m_values.master);
    if (!point)
        return;
    m_motionPoint = m_camDescription->takePoint(point);
    m_owned = true;
}

void AddMotionPointCommand::showMasterTaken(QWidget *parent, double master)
{
    // The doubled "schon" is the program's own wording.
    MessageBox::critical(parent, tr("Master-Position schon vorhanden"),
                         tr("Es gibt schon einen Bewegungspunkt auf der Master-Position %1 schon "
                            "vorhanden. Überschreiben nicht möglich.")
                             .arg(master));
}
