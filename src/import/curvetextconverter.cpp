#include "curvetextconverter.h"

#include <QRegularExpressionMatchIterator>

namespace {

// One pair per match. Only the slave value may carry an exponent: a master
// written as "1e3" is not read as such, the search simply goes on behind the
// "1" (so "1e3;5" gives the pair 3, 5). Files from the field rely on these
// patterns as they are, quirks included.
const char ServoSoftPattern[] = R"re(([-+]?[0-9]+[,]?[0-9]*)\;+(([-+]?[0-9]+[,]?[0-9]*)([eE][-+]?[0-9]+)?))re";
const char TwinCat2Pattern[] = R"re(([-+]?[0-9]+[.]?[0-9]*)\,([-+]?[0-9]+[.]?[0-9]*))re";
const char CodeSysPattern[] = R"re(([-+]?[0-9]+[.]?[0-9]*)\;\ +(([-+]?[0-9]+[.]?[0-9]*)([eE][-+]?[0-9]+)?))re";
const char FreeFormatPattern[] =
    R"re(([-+]?[0-9]+[%decimalSeparator%]?[0-9]*)%valueSeparator%(([-+]?[0-9]+[%decimalSeparator%]?[0-9]*)([eE][-+]?[0-9]+)?))re";

const QLatin1String DecimalSeparatorPlaceholder("%decimalSeparator%");
const QLatin1String ValueSeparatorPlaceholder("%valueSeparator%");

const int MasterGroup = 1;
const int SlaveGroup = 2;

} // namespace

CurveTextConverter::CurveTextConverter(QObject *parent)
    : QObject(parent)
    , m_decimalSeparators { { DecimalPoint, QStringLiteral(".") }, { DecimalComma, QStringLiteral(",") } }
    , m_valueSeparators { { Semicolon, QStringLiteral("\\;") },
                          { Comma, QStringLiteral("\\,") },
                          { Tab, QStringLiteral("\\t") },
                          { Blank, QStringLiteral("\\ ") } }
    , m_formats { { 0, ServoSoft }, { 1, TwinCat2 }, { 2, CodeSys }, { 3, FreeFormat } }
{
}

void CurveTextConverter::setText(const QString &text)
{
    m_text = text;
}

void CurveTextConverter::setFormat(int selectorIndex)
{
    const auto found = m_formats.constFind(selectorIndex);
    m_format = found != m_formats.constEnd() ? found.value() : ServoSoft;
    switch (m_format) {
    case ServoSoft:
        m_decimalSeparator = DecimalComma;
        m_valueSeparator = Semicolon;
        break;
    case TwinCat2:
        m_decimalSeparator = DecimalPoint;
        m_valueSeparator = Comma;
        break;
    case CodeSys:
        m_decimalSeparator = DecimalPoint;
        m_valueSeparator = Semicolon;
        break;
    default:
        // The free format keeps whatever the user chose.
        break;
    }
}

void CurveTextConverter::setDecimalSeparator(int index)
{
    m_decimalSeparator = index;
}

void CurveTextConverter::setValueSeparator(int index)
{
    m_valueSeparator = index;
}

QString CurveTextConverter::pattern() const
{
    switch (m_format) {
    case ServoSoft:
        return QString::fromLatin1(ServoSoftPattern);
    case TwinCat2:
        return QString::fromLatin1(TwinCat2Pattern);
    case CodeSys:
        return QString::fromLatin1(CodeSysPattern);
    case FreeFormat: {
        // An index missing from its table stands for an empty text.
        QString free = QString::fromLatin1(FreeFormatPattern);
        free.replace(DecimalSeparatorPlaceholder, m_decimalSeparators.value(m_decimalSeparator));
        free.replace(ValueSeparatorPlaceholder, m_valueSeparators.value(m_valueSeparator));
        return free;
    }
    default:
        return QString();
    }
}

const QRegularExpression &CurveTextConverter::expression()
{
    const QString current = pattern();
    if (m_expression.pattern() != current)
        m_expression = QRegularExpression(current, QRegularExpression::DotMatchesEverythingOption);
    return m_expression;
}

double CurveTextConverter::toNumber(const QStringRef &capture, QString *buffer, bool *ok)
{
    // Most files need no comma replacement; those are read straight from the
    // text without a copy.
    if (!capture.contains(QLatin1Char(',')))
        return capture.toDouble(ok);
    buffer->resize(0);
    buffer->append(capture);
    buffer->replace(QLatin1Char(','), QLatin1Char('.'));
    return buffer->toDouble(ok);
}

QPolygonF CurveTextConverter::convert()
{
    // The message tells about this run only.
    m_errorMessage.clear();
    QPolygonF points;
    const QRegularExpression &regularExpression = expression();
    // setFormat() keeps the format one of the four, so the pattern is never
    // empty; if it were, it would match at every position and yield a pair
    // of zeros for each instead of nothing.
    if (regularExpression.pattern().isEmpty() || !regularExpression.isValid())
        return points;

    QString buffer;
    QRegularExpressionMatchIterator matches = regularExpression.globalMatch(m_text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const QStringRef masterText = match.capturedRef(MasterGroup);
        const QStringRef slaveText = match.capturedRef(SlaveGroup);

        bool ok = false;
        double master = toNumber(masterText, &buffer, &ok);
        if (!ok) {
            // toDouble gives infinity on overflow; a failed value is 0.
            master = 0.0;
            m_errorMessage = tr("Master-Position %1 konnte nicht konvertiert werden.")
                                 .arg(masterText.toString().replace(QLatin1Char(','), QLatin1Char('.')));
        }
        double slave = toNumber(slaveText, &buffer, &ok);
        if (!ok) {
            slave = 0.0;
            m_errorMessage = tr("Slave-Position %1 konnte nicht konvertiert werden.")
                                 .arg(slaveText.toString().replace(QLatin1Char(','), QLatin1Char('.')));
        }
        points.append(QPointF(master, slave));
    }
    return points;
}
