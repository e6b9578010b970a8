#pragma once

#include "model/motionpointvalues.h"

#include <QCoreApplication>
#include <QPointer>
#include <QUndoCommand>

class CamDescriptionImplementation;
class QWidget;

// Adds a new motion point. A point at exactly the same master position is
// refused with a message box; the command then turns obsolete and the stack
// drops it, so nothing is recorded.
class AddMotionPointCommand : public QUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(AddMotionPointCommand)
public:
    AddMotionPointCommand(CamDescriptionImplementation *camDescription, const QPointer<MotionPoint> &motionPoint,
                          QUndoCommand *parent = nullptr);
    ~AddMotionPointCommand() override;

    void undo() override;
    void redo() override;

    // The box that refuses a point onto another point's exact master
    // position; views show it too when an edit would do the same.
    static void showMasterTaken(QWidget *parent, double master);

private:
    QPointer<CamDescriptionImplementation> m_camDescription;
    QPointer<MotionPoint> m_motionPoint;
    // The point belongs to the command while it is not in the description.
    bool m_owned = true;
    // The point as it was added, for when a whole-data load in between has
    // replaced the point object by an equal one.
    MotionPointValues m_values;
};
