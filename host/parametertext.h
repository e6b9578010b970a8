#pragma once

#include <QString>

namespace MxMultilingual {

// The texts of a parameter element in the user's language.
class ParameterText
{
public:
    ParameterText() = default;
    ParameterText(const QString &shortText, const QString &longText)
        : m_shortText(shortText)
        , m_longText(longText)
    {
    }

    QString shortText() const { return m_shortText; }
    QString longText() const { return m_longText; }

private:
    QString m_shortText;
    QString m_longText;
};

} // namespace MxMultilingual
