#pragma once

#include <QWidget>

class QUndoStack;
class QUndoView;

// A frameless pop-up listing the editor's undo stack. It hides itself as soon
// as the focus leaves it and tells the main window, which unchecks the action
// that showed it.
class UndoView : public QWidget
{
    Q_OBJECT
public:
    explicit UndoView(QUndoStack *undoStack);
    ~UndoView() override;

    QUndoView *undoList() const { return m_undoList; }

signals:
    void isVisibleChanged(bool visible);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void hideUnlessFocusInside();

    QUndoView *m_undoList;
};
