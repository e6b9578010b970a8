// The "export" verb: a grid point table written as the curve text of another
// tool, as the editor's "Stützstellentabelle als Text exportieren" writes it.

#include "camdesigner/camdescriptionimplementation.h"
#include "curves/motionplan.h"
#include "curves/motionplanfactory.h"
#include "drivesession.h"
#include "import/curvetextwriter.h"
#include "model/fixedscaling.h"
#include "textformatoptions.h"
#include "toolsupport.h"
#include "verbs.h"

#include <QCommandLineParser>
#include <QJsonDocument>
#include <QJsonObject>

#include <memory>

namespace {

constexpr int DefaultDecimals = 3;

int usageError(const QCommandLineParser &parser, const QString &message)
{
    CamTool::printError(QStringLiteral("camtool: %1\n").arg(message) + parser.helpText());
    return CamTool::UsageError;
}

int runExport(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Writes the grid points of the cam in CAMFILE into PATH as a curve table in the text format\n"
        "of another tool, which the import reads back to the same pairs. With --drive and --table\n"
        "the table stored in that cam table is written instead, with the drive's decimal places.\n"
        "Settings that the import could not read back unambiguously (a decimal comma with the\n"
        "comma as separator) are refused and nothing is written; an existing PATH then stays as it was.\n"
        "Prints {\"count\", \"masterDecimalPlaces\", \"slaveDecimalPlaces\", \"output\"}."));
    parser.addPositionalArgument(QStringLiteral("CAMFILE"), QStringLiteral("Cam definition data."));
    const QCommandLineOption outputOption(QStringLiteral("output"), QStringLiteral("The text file to write."),
                                          QStringLiteral("PATH"));
    const QCommandLineOption decimalsOption(
        QStringLiteral("decimals"),
        QStringLiteral("Decimal places of master and slave positions without a drive (default 3)."),
        QStringLiteral("D"));
    parser.addOptions({ outputOption, decimalsOption });
    const CamTool::TextFormatOptions formatOptions(QStringLiteral("servosoft, twincat2, codesys or free."));
    formatOptions.addTo(parser);

    std::unique_ptr<CamTool::DriveSession> session;
    const int parsed = CamTool::DriveSession::openIfAsked(parser, arguments, &session);
    if (parsed >= 0)
        return parsed;
    if (!parser.isSet(outputOption))
        return usageError(parser, QStringLiteral("--output is required"));
    if (!parser.isSet(formatOptions.formatOption()))
        return usageError(parser, QStringLiteral("--format is required"));
    if (session && parser.isSet(decimalsOption))
        return usageError(parser, QStringLiteral("--decimals applies without a drive only; the drive has its own"));
    CurveTextWriter writer;
    const int applied = formatOptions.applyTo(parser, writer);
    if (applied >= 0)
        return applied;
    bool ok = true;
    const int decimals = parser.isSet(decimalsOption) ? parser.value(decimalsOption).trimmed().toInt(&ok) : DefaultDecimals;
    if (!ok || decimals < 0 || decimals > CurveTextWriter::MaximumDecimalPlaces)
        return usageError(parser, QStringLiteral("--decimals needs a whole number from 0 to %1, not '%2'")
                                      .arg(CurveTextWriter::MaximumDecimalPlaces)
                                      .arg(parser.value(decimalsOption)));

    CamDescriptionImplementation description(nullptr, QByteArray());
    if (!CamTool::loadCamFile(parser.positionalArguments().constFirst(), description))
        return CamTool::Failure;
    QPolygonF points;
    if (session) {
        // The table as the editor reads it back from the drive.
        writer.setDecimalPlaces(session->model().masterDecimalPlaces(), session->model().slaveDecimalPlaces());
        points = session->model().storedGridPoints();
    } else {
        writer.setDecimalPlaces(decimals, decimals);
        FixedScaling scaling(decimals);
        const std::unique_ptr<MotionPlan> plan = CamTool::createPlan(description, &scaling);
        MotionPlanFactory::sample(plan.get(), description.steps(), false);
        points = plan->positions();
    }

    const QString output = parser.value(outputOption);
    QString error;
    if (!writer.write(output, points, &error)) {
        CamTool::printError(QStringLiteral("camtool: %1\n").arg(error));
        return CamTool::Failure;
    }
    CamTool::printJson(QJsonDocument(QJsonObject{ { QStringLiteral("count"), points.size() },
                                                  { QStringLiteral("masterDecimalPlaces"), writer.masterDecimalPlaces() },
                                                  { QStringLiteral("slaveDecimalPlaces"), writer.slaveDecimalPlaces() },
                                                  { QStringLiteral("output"), output } }));
    return CamTool::Success;
}

const CamTool::Registration registration({ "export", "write grid points as a curve text file for another tool", runExport });

} // namespace
