#pragma once

#include <QLineEdit>
#include <QPointer>

class Scaling;

// A line edit for a master or slave position: shows the value as the drive
// formats it and reads the user's text with a decimal comma or point, the
// unit text removed. A finished edit, by Enter or by
// leaving the field, is reported once as edited(); Escape reverts the field.
class PositionLineEdit : public QLineEdit
{
    Q_OBJECT
public:
    enum Axis { Master, Slave };

    PositionLineEdit(Axis axis, Scaling *scaling, QWidget *parent = nullptr);

    Axis axis() const { return m_axis; }
    // Shows the value and forgets any unfinished edit.
    void setValue(double value);
    double value() const { return m_value; }
    // Shows the last value set again.
    void revert();

    // Reads a position text: the unit (case-sensitive) and blanks removed,
    // a decimal comma or point (DecimalText). False for no (finite) number.
    static bool parse(QString text, const QString &unit, double *value);
    // The sentence that tells the user how numbers are typed, for the
    // messages that refuse a text.
    static QString numberHint();

signals:
    // The user finished an edit with a text that differs from the one shown;
    // the owner checks and applies it, or reverts the field.
    void edited(const QString &text);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void onEditingFinished();
    QString format(double value) const;

    Axis m_axis;
    QPointer<Scaling> m_scaling;
    double m_value = 0.0;
};
