#include "import/curvetextconverter.h"
#include "toolsupport.h"
#include "verbs.h"

#include <QCommandLineParser>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

namespace {

struct Choice {
    const char *name;
    int index;
};

// Indices as the converter (and the import dialog's selectors) count them.
const Choice Formats[] = {
    { "servosoft", CurveTextConverter::ServoSoft },
    { "twincat2", CurveTextConverter::TwinCat2 },
    { "codesys", CurveTextConverter::CodeSys },
    { "free", CurveTextConverter::FreeFormat },
};
const Choice DecimalSeparators[] = {
    { "point", CurveTextConverter::DecimalPoint },
    { "comma", CurveTextConverter::DecimalComma },
};
const Choice ValueSeparators[] = {
    { "semicolon", CurveTextConverter::Semicolon },
    { "comma", CurveTextConverter::Comma },
    { "tab", CurveTextConverter::Tab },
    { "blank", CurveTextConverter::Blank },
};

template<size_t N>
int lookUp(const Choice (&choices)[N], const QString &name)
{
    for (const Choice &choice : choices) {
        if (name.compare(QLatin1String(choice.name), Qt::CaseInsensitive) == 0)
            return choice.index;
    }
    return -1;
}

int usageError(const QCommandLineParser &parser, const QString &message)
{
    CamTool::printError(QStringLiteral("camtool: %1\n").arg(message) + parser.helpText());
    return CamTool::UsageError;
}

int runConvert(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Converts the curve table in FILE as the import dialog does and prints\n"
        "{\"points\": [[master, slave], ...], \"error\": \"<last error or empty>\"}.\n"
        "Without --format the free format with decimal point and semicolon is used.\n"
        "A named format fixes its own separators, so --decimal and --separator are\n"
        "taken only together with --format free (or without --format); with a named\n"
        "format they are a usage error."));
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("Curve text file (*.txt, *.csv)."));
    const QCommandLineOption formatOption(QStringLiteral("format"),
        QStringLiteral("servosoft, twincat2, codesys or free (default)."), QStringLiteral("format"));
    const QCommandLineOption decimalOption(QStringLiteral("decimal"),
        QStringLiteral("Decimal mark of the free format: point (default) or comma."), QStringLiteral("mark"));
    const QCommandLineOption separatorOption(QStringLiteral("separator"),
        QStringLiteral("Value separator of the free format: semicolon (default), comma, tab or blank."),
        QStringLiteral("separator"));
    parser.addOptions({ formatOption, decimalOption, separatorOption });
    const int parsed = CamTool::parseArguments(parser, arguments, 1, 1);
    if (parsed >= 0)
        return parsed;

    CurveTextConverter converter;
    if (parser.isSet(formatOption)) {
        const int format = lookUp(Formats, parser.value(formatOption));
        if (format < 0)
            return usageError(parser, QStringLiteral("unknown format '%1'").arg(parser.value(formatOption)));
        converter.setFormat(format);
    }
    // Applied after the format, since choosing a format presets the separators.
    const bool separatorsChosen = parser.isSet(decimalOption) || parser.isSet(separatorOption);
    if (separatorsChosen && converter.format() != CurveTextConverter::FreeFormat)
        return usageError(parser, QStringLiteral("--decimal and --separator apply to the free format only"));
    if (parser.isSet(decimalOption)) {
        const int decimal = lookUp(DecimalSeparators, parser.value(decimalOption));
        if (decimal < 0)
            return usageError(parser, QStringLiteral("unknown decimal mark '%1'").arg(parser.value(decimalOption)));
        converter.setDecimalSeparator(decimal);
    }
    if (parser.isSet(separatorOption)) {
        const int separator = lookUp(ValueSeparators, parser.value(separatorOption));
        if (separator < 0)
            return usageError(parser, QStringLiteral("unknown separator '%1'").arg(parser.value(separatorOption)));
        converter.setValueSeparator(separator);
    }

    // Read as the import dialog reads it: text mode, the stream's default codec.
    const QString path = parser.positionalArguments().constFirst();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        CamTool::printError(QStringLiteral("camtool: cannot open '%1': %2\n").arg(path, file.errorString()));
        return CamTool::Failure;
    }
    QTextStream stream(&file);
    converter.setText(stream.readAll());
    file.close();

    const QPolygonF points = converter.convert();
    QJsonArray pairs;
    for (const QPointF &point : points)
        pairs.append(QJsonArray { point.x(), point.y() });
    QJsonObject result;
    result.insert(QStringLiteral("points"), pairs);
    result.insert(QStringLiteral("error"), converter.errorMessage());
    CamTool::printJson(QJsonDocument(result));
    return CamTool::Success;
}

const CamTool::Registration registration({ "convert", "convert an external curve text file into pairs", runConvert });

} // namespace
