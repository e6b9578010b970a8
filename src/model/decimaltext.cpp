#include "decimaltext.h"

#include <QLocale>

#include <cmath>

bool DecimalText::parse(const QString &text, double *value)
{
    QString number = text.trimmed();
    if (number.count(QLatin1Char(',')) + number.count(QLatin1Char('.')) > 1)
        return false;
    number.replace(QLatin1Char(','), QLatin1Char('.'));
    bool ok = false;
    // The C locale reads the point and nothing else; toDouble() also takes
    // "nan" and "inf", which pass every limit check.
    const double parsed = QLocale::c().toDouble(number, &ok);
    if (!ok || !std::isfinite(parsed))
        return false;
    *value = parsed;
    return true;
}

QString DecimalText::toString(double value, char format, int precision)
{
    QLocale locale;
    locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    return locale.toString(value, format, precision);
}
