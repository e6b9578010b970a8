#include "positionlineedit.h"

#include "model/decimaltext.h"
#include "model/scaling.h"

#include <QKeyEvent>

PositionLineEdit::PositionLineEdit(Axis axis, Scaling *scaling, QWidget *parent)
    : QLineEdit(parent)
    , m_axis(axis)
    , m_scaling(scaling)
{
    setAlignment(Qt::AlignRight);
    connect(this, &QLineEdit::editingFinished, this, &PositionLineEdit::onEditingFinished);
}

void PositionLineEdit::setValue(double value)
{
    m_value = value;
    revert();
}

void PositionLineEdit::revert()
{
    setText(format(m_value));
    setModified(false);
}

bool PositionLineEdit::parse(QString text, const QString &unit, double *value)
{
    if (!unit.isEmpty())
        text.remove(unit);
    double parsed = 0.0;
    if (!DecimalText::parse(text, &parsed))
        return false;
    if (value)
        *value = parsed;
    return true;
}

QString PositionLineEdit::numberHint()
{
    return tr("Zahlen bitte mit Dezimalkomma oder Dezimalpunkt und ohne Tausendertrennzeichen eingeben, "
              "zum Beispiel 1234,5 oder 1234.5.");
}

void PositionLineEdit::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && isModified()) {
        revert();
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void PositionLineEdit::onEditingFinished()
{
    // Enter and the focus leaving both finish an edit; the second of the two
    // finds nothing modified.
    if (!isModified())
        return;
    setModified(false);
    if (text() == format(m_value))
        return;
    emit edited(text());
}

QString PositionLineEdit::format(double value) const
{
    if (!m_scaling)
        return QString::number(value);
    return m_axis == Master ? m_scaling->masterPositionToText(value) : m_scaling->slavePositionToText(value);
}
