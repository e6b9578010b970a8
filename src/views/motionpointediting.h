#pragma once

#include <QCoreApplication>
#include <QPointer>
#include <QString>

class CamEditorModel;
class MotionPoint;
class ParameterModel;
class QUndoStack;
class QWidget;

// What the views of motion points share: reading a typed position, the
// checks that come before a command (the model applies values unchecked),
// building the command and pushing it. Every refusal shows its message box
// over the given widget and pushes nothing.
class MotionPointEditing
{
    Q_DECLARE_TR_FUNCTIONS(MotionPointEditing)
public:
    MotionPointEditing(CamEditorModel *editorModel, ParameterModel *parameterModel, QUndoStack *undoStack);

    CamEditorModel *editorModel() const;
    ParameterModel *parameterModel() const;
    QUndoStack *undoStack() const;

    // A typed position of one axis; false (after a message) when it is no
    // number or lies outside the drive's limits. Rounded to the drive's
    // decimal places, so that the point holds what the field shows.
    bool readMaster(QWidget *parent, const QString &text, double *master) const;
    bool readSlave(QWidget *parent, const QString &text, double *slave) const;
    bool checkMaster(QWidget *parent, double master) const;
    bool checkSlave(QWidget *parent, double slave) const;

    // A cyclic cam starts again at its circular length, so every point lies
    // below it; false (after a message) for a master at or beyond it.
    bool checkCycle(QWidget *parent, double master) const;
    // A circular length must lie beyond the last point; false after a message.
    bool checkCircularLength(QWidget *parent, double length) const;
    // Whether a master lies at or beyond the end of a cyclic cam: what a
    // loaded file may hold, and the table marks.
    bool isBeyondCycle(double master) const;
    // The message on such a point.
    QString beyondCycleText(double master) const;

    // One EditMotionPointCommand for new values of the point; nothing when
    // they equal the point's, or when another point stands at the master.
    bool edit(QWidget *parent, MotionPoint *point, double master, double slave, int type) const;
    // One AddMotionPointCommand; the point's master when it was added.
    bool add(QWidget *parent, double master, double slave, int type) const;
    // The same for a point with its section (law, set velocity) as given.
    bool add(QWidget *parent, const MotionPoint &point) const;
    bool remove(MotionPoint *point) const;

    // Where "Hinzufügen" puts a point after the given row (-1: after the
    // last): halfway to the next point, else halfway to the end of a cyclic
    // cam, else one spacing of the last two points past the last.
    void proposeNewPoint(int row, double *master, double *slave, int *type) const;
    // The segment type of the cam's last point before the master, "rest"
    // before the first: what a point inserted there continues.
    int typeBefore(double master) const;

private:
    double round(double value, bool master) const;
    // A master position as the fields show it, with the unit.
    QString masterText(double master) const;

    QPointer<CamEditorModel> m_editorModel;
    QPointer<ParameterModel> m_parameterModel;
    QPointer<QUndoStack> m_undoStack;
};
