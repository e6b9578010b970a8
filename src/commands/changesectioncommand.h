#pragma once

#include "editmotionpointcommand.h"

// Gives the section that starts at a motion point a new law, inflection or
// set velocity. The exchange is that of the point edit; only the undo text
// names what changed.
class ChangeSectionCommand : public EditMotionPointCommand
{
    Q_DECLARE_TR_FUNCTIONS(ChangeSectionCommand)
public:
    // newValue: the point with the changed section (its position and type
    // as the point's own).
    ChangeSectionCommand(MotionPoint *motionPoint, const MotionPoint &newValue, Scaling *scaling,
                         QUndoCommand *parent = nullptr);
};
