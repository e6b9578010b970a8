#pragma once

#include <QObject>
#include <QPointF>
#include <QPointer>

class CamEditorModel;
class CurvePlot;
class MotionPoint;
class ParameterModel;
class QUndoStack;
class QWidget;

// Drags motion points on the position plot. While the mouse is held the
// point follows it, held strictly between its neighbours (and below the
// circular length of a cyclic cam) and rounded to the drive's decimal places, and the model samples coarsely so that every plot
// follows live. The release leaves exactly one edit command on the undo
// stack; Escape, or a release outside the drive's limits, puts the point
// back and leaves nothing.
class MotionPointDragger : public QObject
{
    Q_OBJECT
public:
    // How near (in pixels) a press must come to a marker to take it.
    static constexpr int CatchDistance = 8;

    MotionPointDragger(CurvePlot *plot, CamEditorModel *editorModel, ParameterModel *parameterModel,
                       QUndoStack *undoStack);

    bool isDragging() const { return !m_point.isNull(); }
    // The row of the motion point whose marker is nearest to a canvas
    // position, within CatchDistance; -1 when none is.
    int pointNear(const QPoint &position) const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool press(const QPoint &position);
    void move(const QPoint &position);
    void release();
    void cancel();
    void finish();

    CurvePlot *m_plot;
    QPointer<CamEditorModel> m_editorModel;
    QPointer<ParameterModel> m_parameterModel;
    QPointer<QUndoStack> m_undoStack;
    QPointer<MotionPoint> m_point;
    QWidget *m_canvas;
    QPointF m_start;
    double m_lowest = 0.0;
    double m_highest = 0.0;
};
