#pragma once

#include "model/motionpointvalues.h"

#include <QCoreApplication>
#include <QPointer>
#include <QUndoCommand>

class CamDescriptionImplementation;

// Removes a motion point and keeps the very point object for undo, which
// puts it back; the point is never copied while it lives.
class RemoveMotionPointCommand : public QUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(RemoveMotionPointCommand)
public:
    RemoveMotionPointCommand(MotionPoint *motionPoint, CamDescriptionImplementation *camDescription,
                             QUndoCommand *parent = nullptr);
    ~RemoveMotionPointCommand() override;

    void undo() override;
    void redo() override;

private:
    QPointer<CamDescriptionImplementation> m_camDescription;
    QPointer<MotionPoint> m_motionPoint;
    // The point belongs to the command while it is removed.
    bool m_owned = false;
    // Kept for when a whole-data load has deleted the point object while it
    // was in the description: undo then puts back an equal point.
    MotionPointValues m_values;
};
