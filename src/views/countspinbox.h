#pragma once

#include <QSpinBox>

// A spin box for a count that refuses what lies outside its range with a
// word to the user. QSpinBox's own validation drops the key that leaves the
// range, so that 20000 typed into a field up to 16000 silently becomes 2000;
// here any whole number may be typed, and one outside the range is reported
// by refused() when the edit ends (Enter or leaving the field), after the
// field has gone back to its value.
class CountSpinBox : public QSpinBox
{
    Q_OBJECT
public:
    using QSpinBox::QSpinBox;

    QValidator::State validate(QString &text, int &pos) const override;

signals:
    void refused(const QString &typed);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    // The typed number without prefix and suffix; empty when it is none.
    QString typedNumber(const QString &text) const;
    // False (after refused()) when the text is a number outside the range.
    bool acceptTyped();
};
