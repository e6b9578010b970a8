#include "textformatoptions.h"

#include "import/curvetextconverter.h"
#include "toolsupport.h"
#include "verbs.h"

#include <QCommandLineParser>

namespace CamTool {

namespace {

struct Name {
    const char *name;
    int index;
};

const Name Formats[] = {
    { "servosoft", CurveTextConverter::ServoSoft },
    { "twincat2", CurveTextConverter::TwinCat2 },
    { "codesys", CurveTextConverter::CodeSys },
    { "free", CurveTextConverter::FreeFormat },
};
const Name DecimalSeparators[] = {
    { "point", CurveTextConverter::DecimalPoint },
    { "comma", CurveTextConverter::DecimalComma },
};
const Name ValueSeparators[] = {
    { "semicolon", CurveTextConverter::Semicolon },
    { "comma", CurveTextConverter::Comma },
    { "tab", CurveTextConverter::Tab },
    { "blank", CurveTextConverter::Blank },
};

template<size_t N>
int lookUp(const Name (&names)[N], const QString &name)
{
    for (const Name &entry : names) {
        if (name.compare(QLatin1String(entry.name), Qt::CaseInsensitive) == 0)
            return entry.index;
    }
    return -1;
}

int usageError(const QCommandLineParser &parser, const QString &message)
{
    printError(QStringLiteral("camtool: %1\n").arg(message) + parser.helpText());
    return UsageError;
}

} // namespace

TextFormatOptions::TextFormatOptions(const QString &formatDescription)
    : m_format(QStringLiteral("format"), formatDescription, QStringLiteral("format"))
    , m_decimal(QStringLiteral("decimal"), QStringLiteral("Decimal mark of the free format: point (default) or comma."),
                QStringLiteral("mark"))
    , m_separator(QStringLiteral("separator"),
                  QStringLiteral("Value separator of the free format: semicolon (default), comma, tab or blank."),
                  QStringLiteral("separator"))
{
}

void TextFormatOptions::addTo(QCommandLineParser &parser) const
{
    parser.addOptions({ m_format, m_decimal, m_separator });
}

int TextFormatOptions::read(const QCommandLineParser &parser, Choice *choice) const
{
    if (parser.isSet(m_format)) {
        choice->format = lookUp(Formats, parser.value(m_format));
        if (choice->format < 0)
            return usageError(parser, QStringLiteral("unknown format '%1'").arg(parser.value(m_format)));
    }
    const bool separatorsChosen = parser.isSet(m_decimal) || parser.isSet(m_separator);
    if (separatorsChosen && choice->format >= 0 && choice->format != CurveTextConverter::FreeFormat)
        return usageError(parser, QStringLiteral("--decimal and --separator apply to the free format only"));
    if (parser.isSet(m_decimal)) {
        choice->decimalSeparator = lookUp(DecimalSeparators, parser.value(m_decimal));
        if (choice->decimalSeparator < 0)
            return usageError(parser, QStringLiteral("unknown decimal mark '%1'").arg(parser.value(m_decimal)));
    }
    if (parser.isSet(m_separator)) {
        choice->valueSeparator = lookUp(ValueSeparators, parser.value(m_separator));
        if (choice->valueSeparator < 0)
            return usageError(parser, QStringLiteral("unknown separator '%1'").arg(parser.value(m_separator)));
    }
    return -1;
}

} // namespace CamTool
