#include "camdesigner/camdescriptionimplementation.h"
#include "curves/motionplan.h"
#include "curves/motionplanfactory.h"
#include "model/scalingimplementation.h"
#include "drivesession.h"
#include "toolsupport.h"
#include "verbs.h"

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <memory>

namespace {

const QCommandLineOption OnlineOption(QStringLiteral("online"), QStringLiteral("Treat the drive as online."));
const QCommandLineOption ReadOnlyOption(QStringLiteral("read-only"), QStringLiteral("Treat the drive as read-only."));

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

int runWrite(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Computes the grid points of the cam in CAMFILE and writes them into a cam table of a\n"
        "simulated drive, as the editor's write action does. A missing drive project is\n"
        "created; a refusal of the drive leaves the project as it was."));
    parser.addPositionalArgument(QStringLiteral("CAMFILE"), QStringLiteral("Cam definition data."));
    parser.addOptions({ OnlineOption, ReadOnlyOption });
    CamTool::DriveSession session;
    const int opened = session.open(parser, arguments, 1, true);
    if (opened >= 0)
        return opened;
    CamDescriptionImplementation description(nullptr, QByteArray());
    if (!CamTool::loadCamFile(parser.positionalArguments().constFirst(), description))
        return CamTool::Failure;
    if (description.motionPoints().size() < 2) {
        CamTool::printError(QStringLiteral("camtool: the cam needs at least two motion points\n"));
        return CamTool::Failure;
    }
    session.drive().setOnline(parser.isSet(OnlineOption));
    session.drive().setReadOnly(parser.isSet(ReadOnlyOption));

    // The grid points as the editor computes them, with the drive's decimal places.
    ScalingImplementation scaling(&session.model());
    const std::unique_ptr<MotionPlan> plan = CamTool::createPlan(description, &scaling);
    MotionPlanFactory::sample(plan.get(), description.steps(), false);
    const QtMessageHandler previousHandler = qInstallMessageHandler(dropPlatformNoise);
    session.model().writeGridPoints(plan->positions());
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
        "{\"count\", \"points\": [[master, slave], ...], \"storedCrc\", \"computedCrc\", \"summary\"}."));
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
const CamTool::Registration writeRegistration({ "write", "write the grid points of a cam into a simulated drive",
                                                runWrite, true });
const CamTool::Registration readRegistration({ "read", "read a cam table back from a simulated drive", runRead });
const CamTool::Registration deleteRegistration({ "delete", "delete a cam table of a simulated drive", runDelete });

} // namespace
