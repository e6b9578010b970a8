#include "countspinbox.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>

QValidator::State CountSpinBox::validate(QString &text, int &pos) const
{
    const QValidator::State state = QSpinBox::validate(text, pos);
    // A whole number out of range stays in the field until the edit ends.
    if (state == QValidator::Invalid && !typedNumber(text).isEmpty())
        return QValidator::Intermediate;
    return state;
}

QString CountSpinBox::typedNumber(const QString &text) const
{
    static const QRegularExpression wholeNumber(QStringLiteral("^[+-]?\\d+$"));
    QString number = text;
    if (!prefix().isEmpty() && number.startsWith(prefix()))
        number.remove(0, prefix().size());
    if (!suffix().isEmpty() && number.endsWith(suffix()))
        number.chop(suffix().size());
    number = number.trimmed();
    return wholeNumber.match(number).hasMatch() ? number : QString();
}

bool CountSpinBox::acceptTyped()
{
    QString text = lineEdit()->text();
    int pos = lineEdit()->cursorPosition();
    const QString typed = typedNumber(text);
    // A number that is no acceptable value lies outside the range.
    if (typed.isEmpty() || QSpinBox::validate(text, pos) == QValidator::Acceptable)
        return true;
    setValue(value());  // shows the value again
    emit refused(typed);
    return false;
}

void CountSpinBox::keyPressEvent(QKeyEvent *event)
{
    const bool finish = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (finish && !acceptTyped()) {
        event->accept();
        return;
    }
    QSpinBox::keyPressEvent(event);
}

void CountSpinBox::focusOutEvent(QFocusEvent *event)
{
    acceptTyped();
    QSpinBox::focusOutEvent(event);
}
