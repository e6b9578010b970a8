#include "camdesigner/camdescriptionimplementation.h"
#include "curves/motionplan.h"
#include "curves/motionplanfactory.h"
#include "model/scalingimplementation.h"
#include "import/curvetextconverter.h"
#include "drivesession.h"
#include "textformatoptions.h"
#include "toolsupport.h"
#include "verbs.h"

#include <QCommandLineParser>
#include <QFile>
#include <QTextStream>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <memory>

namespace {

const QCommandLineOption OnlineOption(QStringLiteral("online"), QStringLiteral("Treat the drive as online."));
const QCommandLineOption ReadOnlyOption(QStringLiteral("read-only"), QStringLiteral("Treat the drive as read-only."));
const QCommandLineOption CurveOption(QStringLiteral("curve"),
                                     QStringLiteral("Write the curve table in FILE, converted as 'camtool "
                                                    "convert' converts it, instead of the grid points of a cam."),
                                     QStringLiteral("FILE"));

// The offscreen platform warns each time the progress dialog is shown; the
// warning says nothing about the write.
void dropPlatformNoise(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (message.contains(QLatin1String("propagateSizeHints")))
        return;
    CamTool::printError(qFormatLogMessage(type, context, message) + QLatin1Char('\n'));
}

void printRefusal(const CamTool::DriveSession &session)
{
    for (const QString &message : session.messages())
        CamTool::printError(message + QLatin1Char('\n'));
}

// Saves the project and prints the table's new state.
int saveAndReport(CamTool::DriveSession &session, QJsonObject result)
{
    if (!session.save())
        return CamTool::Failure;
    result.insert(QStringLiteral("table"), session.table());
    result.insert(QStringLiteral("count"), session.model().storedGridPointCount());
    CamTool::printJson(QJsonDocument(result));
    return CamTool::Success;
}

// The pairs of a curve text file, converted as the import dialog converts
// them: -1 to go on, otherwise the exit code (with the reason printed).
int readCurve(const QCommandLineParser &parser, const CamTool::TextFormatOptions &formatOptions,
              QVector<QPointF> *points)
{
    CurveTextConverter converter;
    const int applied = formatOptions.applyTo(parser, converter);
    if (applied >= 0)
        return applied;
    const QString path = parser.value(CurveOption);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        CamTool::printError(QStringLiteral("camtool: cannot open '%1': %2\n").arg(path, file.errorString()));
        return CamTool::Failure;
    }
    QTextStream stream(&file);
    converter.setText(stream.readAll());
    const QPolygonF converted = converter.convert();
    if (!converter.errorMessage().isEmpty())
        CamTool::printError(QStringLiteral("camtool: '%1': %2\n").arg(path, converter.errorMessage()));
    // The import dialog takes no table of fewer than two pairs.
    if (converted.size() < 2) {
        CamTool::printError(QStringLiteral("camtool: '%1' gives %2 pairs; a curve table needs at least two\n")
                                .arg(path)
                                .arg(converted.size()));
        return CamTool::Failure;
    }
    *points = QVector<QPointF>(converted.cbegin(), converted.cend());
    return -1;
}

// The grid points of the cam in a file as the editor computes them, with the
// drive's decimal places: -1 to go on, otherwise the exit code.
int sampleCam(const QString &path, CamTool::DriveSession &session, QVector<QPointF> *points)
{
    CamDescriptionImplementation description(nullptr, QByteArray());
    if (!CamTool::loadCamFile(path, description))
        return CamTool::Failure;
    if (description.motionPoints().size() < 2) {
        CamTool::printError(QStringLiteral("camtool: the cam needs at least two motion points\n"));
        return CamTool::Failure;
    }
    ScalingImplementation scaling(&session.model());
    const std::unique_ptr<MotionPlan> plan = CamTool::createPlan(description, &scaling);
    MotionPlanFactory::sample(plan.get(), description.steps(), false);
    *points = plan->positions();
    return -1;
}

int runWrite(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Computes the grid points of the cam in CAMFILE, or converts the curve table given\n"
        "with --curve as the import dialog does, and writes them into a cam table of a\n"
        "simulated drive, as the editor's write action does. A missing drive project is\n"
        "created; a refusal of the drive leaves the project as it was. --format, --decimal\n"
        "and --separator belong to --curve and are read as 'camtool convert' reads them."));
    parser.addPositionalArgument(QStringLiteral("CAMFILE"), QStringLiteral("Cam definition data (not with --curve)."),
                                 QStringLiteral("[CAMFILE]"));
    parser.addOptions({ OnlineOption, ReadOnlyOption, CurveOption });
    const CamTool::TextFormatOptions formatOptions(
        QStringLiteral("With --curve: servosoft, twincat2, codesys or free (default)."));
    formatOptions.addTo(parser);
    CamTool::DriveSession session;
    const int opened = session.open(parser, arguments, 0, 1, true);
    if (opened >= 0)
        return opened;
    const bool curve = parser.isSet(CurveOption);
    const bool formatGiven = parser.isSet(formatOptions.formatOption()) || parser.isSet(QStringLiteral("decimal"))
        || parser.isSet(QStringLiteral("separator"));
    if (curve == !parser.positionalArguments().isEmpty() || (formatGiven && !curve)) {
        CamTool::printError(QStringLiteral("camtool: give either CAMFILE or --curve FILE (with its format "
                                           "options)\n")
                            + parser.helpText());
        return CamTool::UsageError;
    }
    QVector<QPointF> points;
    const int read = curve ? readCurve(parser, formatOptions, &points)
                           : sampleCam(parser.positionalArguments().constFirst(), session, &points);
    if (read >= 0)
        return read;
    session.drive().setOnline(parser.isSet(OnlineOption));
    session.drive().setReadOnly(parser.isSet(ReadOnlyOption));

    const QtMessageHandler previousHandler = qInstallMessageHandler(dropPlatformNoise);
    session.model().writeGridPoints(points);
    qInstallMessageHandler(previousHandler);
    if (!session.messages().isEmpty()) {
        printRefusal(session);
        return CamTool::Failure;
    }
    return saveAndReport(session, QJsonObject{ { QStringLiteral("crc"), double(session.model().computeCrc()) },
                                               { QStringLiteral("drive"), session.path() } });
}

int runRead(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Reads a cam table back from a simulated drive and prints\n"
        "{\"count\", \"points\": [[master, slave], ...], \"storedCrc\", \"computedCrc\", \"summary\",\n"
        "\"damage\"}; damage names what is wrong with a table whose count does not fit its arrays."));
    CamTool::DriveSession session;
    const int opened = session.open(parser, arguments, 0, false);
    if (opened >= 0)
        return opened;

    ParameterModelImplementation &model = session.model();
    const QString stored = session.drive().readValueNative(CamTool::DriveSession::LivingSpace,
                                                           MxParameterDefinition::ParameterCoordinate(QStringLiteral("G293")),
                                                           session.table());
    QJsonObject result;
    result.insert(QStringLiteral("count"), model.storedGridPointCount());
    result.insert(QStringLiteral("points"), CamTool::pointsToJson(model.storedGridPoints()));
    result.insert(QStringLiteral("storedCrc"), double(stored.toUInt(nullptr, 10)));
    result.insert(QStringLiteral("computedCrc"), double(model.computeCrc()));
    result.insert(QStringLiteral("summary"), model.storedTableSummary());
    // Empty while the count fits the arrays.
    result.insert(QStringLiteral("damage"), model.storedTableDamage());
    CamTool::printJson(QJsonDocument(result));
    return CamTool::Success;
}

int runDelete(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Deletes a cam table of a simulated drive (offline only), as the editor's delete action does."));
    parser.addOption(OnlineOption);
    CamTool::DriveSession session;
    const int opened = session.open(parser, arguments, 0, false);
    if (opened >= 0)
        return opened;
    session.drive().setOnline(parser.isSet(OnlineOption));
    if (session.drive().isOnline()) {
        // The editor window refuses with this message before the model is asked.
        CamTool::printError(QCoreApplication::translate(
                                "CamDesignerView", "Beim Löschen der Stützstellen wird die Konfiguration geändert. "
                                                   "Bitte gehen Sie Offline und versuchen Sie erneut zu löschen.")
                            + QLatin1Char('\n'));
        return CamTool::Failure;
    }
    session.model().deleteGridPoints();
    return saveAndReport(session, QJsonObject());
}

// The write shows the progress dialog, so it needs widgets.
const CamTool::Registration writeRegistration({ "write",
                                                "write the grid points of a cam, or a curve table (--curve), "
                                                "into a simulated drive",
                                                runWrite, true });
const CamTool::Registration readRegistration({ "read", "read a cam table back from a simulated drive", runRead });
const CamTool::Registration deleteRegistration({ "delete", "delete a cam table of a simulated drive", runDelete });

} // namespace
