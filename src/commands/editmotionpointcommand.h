#pragma once

#include "model/motionpoint.h"

#include <QCoreApplication>
#include <QPointer>
#include <QUndoCommand>

#include <memory>

class CamDescriptionImplementation;
class Scaling;

// Gives a motion point new master and slave positions and a new segment type.
// Redo and undo are one and the same exchange of the point's values with the
// values the command holds, so applying it twice restores the start.
class EditMotionPointCommand : public QUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(EditMotionPointCommand)
public:
    // The command follows the description that holds the point (found
    // through the point's link to it, or given): it finds an equal point that
    // a whole-data load put in the place of its own, and gives back a point
    // that the move would have pushed out of the map.
    EditMotionPointCommand(MotionPoint *motionPoint, const MotionPoint &newValue, Scaling *scaling,
                           QUndoCommand *parent = nullptr);
    EditMotionPointCommand(CamDescriptionImplementation *camDescription, MotionPoint *motionPoint,
                           const MotionPoint &newValue, Scaling *scaling, QUndoCommand *parent = nullptr);
    ~EditMotionPointCommand() override;

    void undo() override;
    void redo() override;

private:
    void exchange();
    MotionPoint *target() const;

    QPointer<CamDescriptionImplementation> m_camDescription;
    QPointer<MotionPoint> m_motionPoint;
    MotionPoint m_value;
    // Where the target stands now, to find its stand-in after a load.
    double m_targetMaster;
    // A point at the new master position, set aside while the edit is done.
    QPointer<MotionPoint> m_displaced;
    bool m_holdsDisplaced = false;
};
