#pragma once

#include <QCoreApplication>

class CamEditorModel;
class QWidget;

// Before a cyclic cam goes into the drive: the drive runs the table round
// and round, so a jump where the end of the cam meets its start is felt in
// every cycle. Where the curve's report finds the seam not continuous in
// position, velocity or acceleration, the user is asked first, with the jumps
// named.
class SeamQuestion
{
    Q_DECLARE_TR_FUNCTIONS(SeamQuestion)
public:
    // True when the write may go ahead: no cyclic cam, a smooth seam, or the
    // user's yes.
    static bool confirmWrite(QWidget *parent, const CamEditorModel *model);
};
