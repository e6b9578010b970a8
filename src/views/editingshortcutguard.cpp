#include "editingshortcutguard.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

#include <iterator>

namespace {

const QKeySequence::StandardKey EditingKeys[] = {
    QKeySequence::Paste,           QKeySequence::Cut,
    QKeySequence::Copy,            QKeySequence::Undo,
    QKeySequence::Redo,            QKeySequence::SelectAll,
    QKeySequence::Delete,          QKeySequence::DeleteEndOfWord,
    QKeySequence::DeleteStartOfWord, QKeySequence::DeleteCompleteLine,
};

bool takesText(const QWidget *widget)
{
    if (auto *edit = qobject_cast<const QLineEdit *>(widget))
        return !edit->isReadOnly();
    if (auto *spin = qobject_cast<const QAbstractSpinBox *>(widget))
        return !spin->isReadOnly();
    if (auto *combo = qobject_cast<const QComboBox *>(widget))
        return combo->isEditable();
    if (auto *text = qobject_cast<const QTextEdit *>(widget))
        return !text->isReadOnly();
    if (auto *plain = qobject_cast<const QPlainTextEdit *>(widget))
        return !plain->isReadOnly();
    return false;
}

} // namespace

EditingShortcutGuard::EditingShortcutGuard(QWidget *window)
    : QObject(window)
    , m_window(window)
{
    // On the application, not on the window: a floating panel may be a tool
    // window of its own, where the override never reaches the main window,
    // while the main window's shortcuts still apply there.
    qApp->installEventFilter(this);
}

bool EditingShortcutGuard::keyBelongsTo(const QWidget *widget, const QKeyEvent *key)
{
    if (!takesText(widget))
        return false;
    for (QKeySequence::StandardKey editingKey : EditingKeys) {
        if (key->matches(editingKey))
            return true;
    }
    return false;
}

bool EditingShortcutGuard::eventFilter(QObject *watched, QEvent *event)
{
    // The override goes to the focus widget first, then to its parents.
    if (event->type() != QEvent::ShortcutOverride || watched != QApplication::focusWidget())
        return false;
    const auto *widget = static_cast<const QWidget *>(watched);
    if (!isInWindow(widget) || !keyBelongsTo(widget, static_cast<QKeyEvent *>(event)))
        return false;
    event->accept();
    return true;
}

bool EditingShortcutGuard::isInWindow(const QWidget *widget) const
{
    // Parent by parent, across the floating panels' own windows.
    for (; widget; widget = widget->parentWidget()) {
        if (widget == m_window)
            return true;
    }
    return false;
}
