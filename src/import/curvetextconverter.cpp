#include "curvetextconverter.h"

#include <QTextCodec>

// We read line by line, and a line must be one pair and nothing else,
// instead of searching the whole text for anything that looks like a pair:
// such a search took a digit, a decimal mark and a digit for a pair ("0,5;1.5"
// gave 5 and 1.5 under decimal points, "1e300;1e300" gave 300 and 1e300,
// "0x10;0x20" gave 10 and 0, "1 000;2" gave 0 and 2), read a pair out of a
// comment, and backtracked quadratically on long runs of digits. A line that
// the format cannot read is now left out and counted, so that the user is
// told; the scan below looks at every character a bounded number of times.
//
// The grammar is the one of the four formats: a number is an optional sign,
// at least one digit, at most one decimal mark and any digits; only the
// slave may carry an exponent ([eE], optional sign, digits), and in TwinCat2
// neither may. SERVOsoft separates by one or more semicolons, CodeSys by a
// semicolon and one or more blanks, TwinCat2 and the free format by exactly
// one separator. Blanks and tabs around the pair are allowed.

namespace {

const QChar ByteOrderMark(0xFEFF);
const QChar Ellipsis(0x2026);

bool isDigit(const QChar *p) { return p->unicode() >= '0' && p->unicode() <= '9'; }

bool isSign(const QChar *p) { return p->unicode() == '-' || p->unicode() == '+'; }

bool isSpace(const QChar *p) { return p->unicode() == ' ' || p->unicode() == '\t'; }

const QChar *skipDigits(const QChar *p, const QChar *end)
{
    while (p != end && isDigit(p))
        ++p;
    return p;
}

QString shortened(const QChar *begin, const QChar *end)
{
    const int length = int(end - begin);
    if (length <= CurveTextConverter::ShownLineLength)
        return QString(begin, length);
    return QString(begin, CurveTextConverter::ShownLineLength) + Ellipsis;
}

} // namespace

struct CurveTextConverter::Grammar {
    enum SeparatorRun { Once, Repeated, FollowedByBlanks };
    // Null for a choice missing from its table: then no line is read.
    QChar decimalMark;
    QChar separator;
    SeparatorRun run = Once;
    bool slaveExponent = true;

    bool isValid() const { return !decimalMark.isNull() && !separator.isNull(); }

    // Where the slave starts when the separator stands at p; null if it does not.
    const QChar *afterSeparator(const QChar *p, const QChar *end) const
    {
        if (p == end || *p != separator)
            return nullptr;
        ++p;
        switch (run) {
        case Repeated:
            while (p != end && *p == separator)
                ++p;
            return p;
        case FollowedByBlanks:
            if (p == end || p->unicode() != ' ')
                return nullptr;
            while (p != end && p->unicode() == ' ')
                ++p;
            return p;
        default:
            return p;
        }
    }

    // Whether [p, end) is one slave value, the whole of it.
    bool isSlave(const QChar *p, const QChar *end) const
    {
        if (p != end && isSign(p))
            ++p;
        const QChar *digits = skipDigits(p, end);
        if (digits == p)
            return false;
        p = digits;
        if (p != end && *p == decimalMark)
            p = skipDigits(p + 1, end);
        if (slaveExponent && p != end && (p->unicode() == 'e' || p->unicode() == 'E')) {
            ++p;
            if (p != end && isSign(p))
                ++p;
            digits = skipDigits(p, end);
            if (digits == p)
                return false;
            p = digits;
        }
        return p == end;
    }
};

CurveTextConverter::CurveTextConverter(QObject *parent)
    : QObject(parent)
    , m_decimalSeparators { { DecimalPoint, QLatin1Char('.') }, { DecimalComma, QLatin1Char(',') } }
    , m_valueSeparators { { Semicolon, QLatin1Char(';') },
                          { Comma, QLatin1Char(',') },
                          { Tab, QLatin1Char('\t') },
                          { Blank, QLatin1Char(' ') } }
    , m_formats { { 0, ServoSoft }, { 1, TwinCat2 }, { 2, CodeSys }, { 3, FreeFormat } }
{
}

QString CurveTextConverter::decodedText(const QByteArray &bytes)
{
    // Curve files come from Windows tools as often as from others.
    QString text;
    if (QTextCodec *unicode = QTextCodec::codecForUtfText(bytes, nullptr)) {
        text = unicode->toUnicode(bytes);
    } else {
        QTextCodec::ConverterState state;
        text = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
        if (state.invalidChars > 0)
            text = QString::fromLatin1(bytes);
    }
    // The UTF-16 decoders keep the byte-order mark.
    if (text.startsWith(ByteOrderMark))
        text.remove(0, 1);
    return text;
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

CurveTextConverter::Grammar CurveTextConverter::grammar() const
{
    Grammar grammar;
    switch (m_format) {
    case ServoSoft:
        grammar.decimalMark = QLatin1Char(',');
        grammar.separator = QLatin1Char(';');
        grammar.run = Grammar::Repeated;
        break;
    case TwinCat2:
        grammar.decimalMark = QLatin1Char('.');
        grammar.separator = QLatin1Char(',');
        grammar.slaveExponent = false;
        break;
    case CodeSys:
        grammar.decimalMark = QLatin1Char('.');
        grammar.separator = QLatin1Char(';');
        grammar.run = Grammar::FollowedByBlanks;
        break;
    default:
        // Only the free format reads the separator choices.
        grammar.decimalMark = m_decimalSeparators.value(m_decimalSeparator);
        grammar.separator = m_valueSeparators.value(m_valueSeparator);
        break;
    }
    return grammar;
}

QString CurveTextConverter::skippedLinesMessage() const
{
    if (m_skippedLineCount == 0)
        return QString();
    return tr("Übersprungene Zeilen ohne Wertepaar: %1; die erste ist Zeile %2: „%3“")
        .arg(m_skippedLineCount)
        .arg(m_firstSkippedLineNumber)
        .arg(m_firstSkippedLine);
}

void CurveTextConverter::skip(const QChar *begin, const QChar *end)
{
    if (m_skippedLineCount++ == 0) {
        m_firstSkippedLineNumber = m_lineNumber;
        m_firstSkippedLine = shortened(begin, end);
    }
}

double CurveTextConverter::toNumber(const QChar *begin, const QChar *end, bool master)
{
    // QString::toDouble reads a point as decimal mark whatever the locale;
    // most files need no replacement and are read without a copy.
    const int length = int(end - begin);
    QString text = QString::fromRawData(begin, length);
    if (text.contains(QLatin1Char(','))) {
        m_buffer.resize(0);
        m_buffer.append(begin, length);
        m_buffer.replace(QLatin1Char(','), QLatin1Char('.'));
        text = m_buffer;
    }
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (ok)
        return value;
    // Out of a double's range: the pair is kept with 0 and the message says
    // which value failed.
    const QString shown = shortened(text.constData(), text.constData() + length);
    m_errorMessage = master ? tr("Master-Position %1 konnte nicht konvertiert werden.").arg(shown)
                            : tr("Slave-Position %1 konnte nicht konvertiert werden.").arg(shown);
    return 0.0;
}

void CurveTextConverter::readLine(const Grammar &grammar, const QChar *begin, const QChar *end, QPolygonF *points)
{
    while (begin != end && isSpace(begin))
        ++begin;
    while (end != begin && isSpace(end - 1))
        --end;
    if (begin == end)
        return;
    if (!grammar.isValid()) {
        skip(begin, end);
        return;
    }

    // Where the master may end, longest first: behind its decimals, behind a
    // bare decimal mark, behind its integer digits. Only where the separator
    // is also the decimal mark (a comma for both) can more than one of them
    // be followed by a separator, and then the longer master wins.
    const QChar *p = begin;
    if (isSign(p))
        ++p;
    const QChar *integerEnd = skipDigits(p, end);
    if (integerEnd == p) {
        skip(begin, end);
        return;
    }
    const QChar *candidates[3];
    int count = 0;
    if (integerEnd != end && *integerEnd == grammar.decimalMark) {
        const QChar *fractionEnd = skipDigits(integerEnd + 1, end);
        if (fractionEnd != integerEnd + 1)
            candidates[count++] = fractionEnd;
        candidates[count++] = integerEnd + 1;
    }
    candidates[count++] = integerEnd;

    for (int i = 0; i < count; ++i) {
        const QChar *masterEnd = candidates[i];
        const QChar *slave = grammar.afterSeparator(masterEnd, end);
        if (slave && grammar.isSlave(slave, end)) {
            const double master = toNumber(begin, masterEnd, true);
            points->append(QPointF(master, toNumber(slave, end, false)));
            return;
        }
    }
    skip(begin, end);
}

QPolygonF CurveTextConverter::convert()
{
    // Everything tells about this run only.
    m_errorMessage.clear();
    m_lineNumber = 0;
    m_skippedLineCount = 0;
    m_firstSkippedLineNumber = 0;
    m_firstSkippedLine.clear();

    QPolygonF points;
    const Grammar rules = grammar();
    const QChar *p = m_text.constData();
    const QChar *const end = p + m_text.size();
    if (p != end && *p == ByteOrderMark)
        ++p;
    // A line ends with a line feed, a carriage return or both: files from
    // old Mac tools end their lines with a carriage return alone.
    while (p != end) {
        const QChar *lineEnd = p;
        while (lineEnd != end && lineEnd->unicode() != '\n' && lineEnd->unicode() != '\r')
            ++lineEnd;
        ++m_lineNumber;
        readLine(rules, p, lineEnd, &points);
        p = lineEnd;
        if (p != end) {
            const bool carriageReturn = p->unicode() == '\r';
            ++p;
            if (carriageReturn && p != end && p->unicode() == '\n')
                ++p;
        }
    }
    return points;
}
