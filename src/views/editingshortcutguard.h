#pragma once

#include <QObject>

class QKeyEvent;
class QWidget;

// The window binds keys that every text field also uses: Ctrl+V writes the
// grid points into the drive and Ctrl+Del deletes them. Where the focus is in
// a field the user can type into (also a cell's editor, also in a floating
// panel), the field's own editing keys win over the window's shortcuts: the
// key reaches the field as a key press and the drive is left alone.
class EditingShortcutGuard : public QObject
{
    Q_OBJECT
public:
    // Watches the application's shortcut overrides on behalf of the window
    // (its parent); only widgets inside the window are considered.
    explicit EditingShortcutGuard(QWidget *window);

    // Whether the widget takes typed text and the key is one of its standard
    // editing keys (paste, cut, delete a word, ...).
    static bool keyBelongsTo(const QWidget *widget, const QKeyEvent *key);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isInWindow(const QWidget *widget) const;

    QWidget *m_window;
};
