#include "import/curvetextconverter.h"
#include "textformatoptions.h"
#include "toolsupport.h"
#include "verbs.h"

#include <QCommandLineParser>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

int runConvert(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Converts the curve table in FILE as the import dialog does and prints\n"
        "{\"points\": [[master, slave], ...], \"error\": \"<last error or empty>\",\n"
        " \"skippedLines\": N, \"firstSkippedLine\": {\"line\": L, \"text\": \"...\"}}; a line that holds\n"
        "no pair in the format is skipped and counted (the first one is named only\n"
        "when there is one; its text is cut to 80 characters).\n"
        "Without --format the free format with decimal point and semicolon is used.\n"
        "A named format fixes its own separators, so --decimal and --separator are\n"
        "taken only together with --format free (or without --format); with a named\n"
        "format they are a usage error."));
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("Curve text file (*.txt, *.csv)."));
    const CamTool::TextFormatOptions formatOptions(QStringLiteral("servosoft, twincat2, codesys or free (default)."));
    formatOptions.addTo(parser);
    const int parsed = CamTool::parseArguments(parser, arguments, 1, 1);
    if (parsed >= 0)
        return parsed;

    CurveTextConverter converter;
    const int applied = formatOptions.applyTo(parser, converter);
    if (applied >= 0)
        return applied;

    // Read as the import dialog reads it. Not in text mode: that drops every
    // carriage return and so merged the lines of a file that ends its lines
    // with carriage returns alone.
    const QString path = parser.positionalArguments().constFirst();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        CamTool::printError(QStringLiteral("camtool: cannot open '%1': %2\n").arg(path, file.errorString()));
        return CamTool::Failure;
    }
    converter.setText(CurveTextConverter::decodedText(file.readAll()));
    file.close();

    const QPolygonF points = converter.convert();
    QJsonArray pairs;
    for (const QPointF &point : points)
        pairs.append(QJsonArray { point.x(), point.y() });
    QJsonObject result;
    result.insert(QStringLiteral("points"), pairs);
    result.insert(QStringLiteral("error"), converter.errorMessage());
    result.insert(QStringLiteral("skippedLines"), converter.skippedLineCount());
    if (converter.skippedLineCount() > 0)
        result.insert(QStringLiteral("firstSkippedLine"),
                      QJsonObject { { QStringLiteral("line"), converter.firstSkippedLineNumber() },
                                    { QStringLiteral("text"), converter.firstSkippedLine() } });
    CamTool::printJson(QJsonDocument(result));
    return CamTool::Success;
}

const CamTool::Registration registration({ "convert", "convert an external curve text file into pairs", runConvert });

} // namespace
