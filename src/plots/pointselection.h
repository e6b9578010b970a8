#pragma once

#include <QObject>
#include <QPointer>

class CamEditorModel;
class MotionPoint;

// The motion point the user works on, shared by the point table and the
// plots: the table selects it, the plots ring its marker, and a press on a
// marker or a finished drag or insert makes it current, which selects its
// row. The views set it and listen to it, never each other; setting the
// point that is already current signals nothing, so no view hears its own
// change back.
class PointSelection : public QObject
{
    Q_OBJECT
public:
    explicit PointSelection(QObject *parent = nullptr);

    // The one selection of the editor of a model, made on first request.
    static PointSelection *of(CamEditorModel *editorModel);

    MotionPoint *current() const { return m_current; }
    void setCurrent(MotionPoint *point);

signals:
    void currentChanged();

private:
    QPointer<MotionPoint> m_current;
};
