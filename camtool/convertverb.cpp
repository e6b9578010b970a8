#include "import/curvetextconverter.h"
#include "textformatoptions.h"
#include "toolsupport.h"
#include "verbs.h"

#include <QCommandLineParser>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

namespace {

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
    const CamTool::TextFormatOptions formatOptions(QStringLiteral("servosoft, twincat2, codesys or free (default)."));
    formatOptions.addTo(parser);
    const int parsed = CamTool::parseArguments(parser, arguments, 1, 1);
    if (parsed >= 0)
        return parsed;

    CurveTextConverter converter;
    const int applied = formatOptions.applyTo(parser, converter);
    if (applied >= 0)
        return applied;

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
