#pragma once

#include <QCoreApplication>
#include <QString>

class MotionPointEditing;
class QWidget;

// Pasted text as new motion points: one undo entry for the whole paste (a
// parent command with one AddMotionPointCommand per point). Lines whose
// master is taken, repeats within the paste or lies outside the drive's
// limits, or that are no point, are refused and counted in one message
// box. A point without a segment type takes that of the cam's point before
// it, or "rest" before the first.
class MotionPointPaste
{
    Q_DECLARE_TR_FUNCTIONS(MotionPointPaste)
public:
    // The number of points added; 0 (after one message) when the text
    // holds no point that can be added.
    static int paste(QWidget *parent, const MotionPointEditing &editing, const QString &text);
};
