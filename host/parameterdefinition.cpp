#include "parameterdefinition.h"

#include <QRegularExpression>

namespace MxParameterDefinition {

ParameterCoordinate::ParameterCoordinate(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("^([A-Z])(\\d{1,4})$"));
    const QRegularExpressionMatch match = pattern.match(text.trimmed());
    if (!match.hasMatch())
        return;
    m_group = match.captured(1).at(0);
    m_number = match.captured(2).toInt();
}

QString ParameterCoordinate::toText() const
{
    if (!isValid())
        return QString();
    return m_group + QString::number(m_number);
}

int ParameterCoordinate::toNumber() const
{
    if (!isValid())
        return 0;
    return (m_group.unicode() - u'A' + 1) * 10000 + m_number;
}

QString ParameterAddress::toText(TextFlags flags) const
{
    const QString coordinate = m_coordinate.toText();
    if (!(flags & WithAxis))
        return coordinate;
    const QString axis = m_axis < 0 ? QStringLiteral("-") : QString::number(m_axis);
    return QStringLiteral("A%1:%2").arg(axis, coordinate);
}

} // namespace MxParameterDefinition
