// The curve calculation verbs: "sample" prints the grid points and their
// derivatives, "eval" the curve at given master positions.

#include "camdesigner/camdescriptionimplementation.h"
#include "curves/motionplan.h"
#include "model/fixedscaling.h"
#include "sampledcam.h"
#include "toolsupport.h"
#include "verbs.h"

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <memory>

namespace {

// The curve of "eval" is not sampled; its decimal places only matter to the plan's resolution.
constexpr int DefaultDecimals = 3;
const QString NonFiniteNote = QStringLiteral(" Non-finite numbers are written as \"NaN\", \"Infinity\", \"-Infinity\".");

bool parseDouble(const QString &text, double *value)
{
    bool ok = false;
    *value = text.trimmed().toDouble(&ok);
    return ok;
}

int failure(const QString &text)
{
    CamTool::printError(QStringLiteral("camtool: %1\n").arg(text));
    return CamTool::Failure;
}

int runSample(const QStringList &arguments)
{
    CamTool::SampledCam cam;
    const int loaded = cam.load(
        arguments,
        { QStringLiteral("Samples the curve of FILE into grid points as the editor does and prints them with their "
                         "derivatives as JSON.")
              + NonFiniteNote,
          QStringLiteral("Decimal places of positions (default 3)."),
          QStringLiteral("Sample with static step size H instead of the file's steps."),
          QStringLiteral("Sample with dynamic resolution N instead of the file's steps.") });
    if (loaded >= 0)
        return loaded;
    const MotionPlan *plan = &cam.plan();
    const CamDescriptionImplementation &description = cam.description();

    QJsonObject result;
    result.insert(QStringLiteral("law"), description.motionLaw()->dataName());
    result.insert(QStringLiteral("masterRange"), CamTool::jsonNumber(plan->masterRange()));
    result.insert(QStringLiteral("maximumMasterPosition"), CamTool::jsonNumber(plan->maximumMasterPosition()));
    result.insert(QStringLiteral("minimumStepSize"), CamTool::jsonNumber(plan->minimumStepSize()));
    result.insert(QStringLiteral("positions"), CamTool::pointsToJson(plan->positions()));
    result.insert(QStringLiteral("velocities"), CamTool::pointsToJson(plan->velocities()));
    result.insert(QStringLiteral("accelerations"), CamTool::pointsToJson(plan->accelerations()));
    result.insert(QStringLiteral("jerks"), CamTool::pointsToJson(plan->jerks()));
    CamTool::printJson(QJsonDocument(result));
    return CamTool::Success;
}

int runEval(const QStringList &arguments)
{
    QCommandLineParser parser;
    const QCommandLineOption atOption(QStringLiteral("at"),
                                      QStringLiteral("Master positions, separated by commas."),
                                      QStringLiteral("X[,X...]"));
    parser.addOption(atOption);
    const int parsed = CamTool::parseCamFileArguments(
        parser, arguments,
        QStringLiteral("Evaluates the curve of FILE and its derivatives at master positions and prints them as "
                       "JSON.")
            + NonFiniteNote);
    if (parsed >= 0)
        return parsed;
    if (!parser.isSet(atOption)) {
        CamTool::printError(QStringLiteral("camtool: --at is required\n") + parser.helpText());
        return CamTool::UsageError;
    }

    QVector<double> masters;
    for (const QString &value : parser.values(atOption)) {
        for (const QString &text : value.split(QLatin1Char(','))) {
            double master = 0.0;
            if (!parseDouble(text, &master))
                return failure(QStringLiteral("--at needs numbers, not '%1'").arg(text));
            masters.append(master);
        }
    }

    CamDescriptionImplementation description(nullptr, QByteArray());
    if (!CamTool::loadCamFile(parser.positionalArguments().constFirst(), description))
        return CamTool::Failure;
    FixedScaling scaling(DefaultDecimals);
    const std::unique_ptr<MotionPlan> plan = CamTool::createPlan(description, &scaling);
    QJsonArray result;
    for (double master : qAsConst(masters)) {
        result.append(QJsonObject{
            { QStringLiteral("master"), CamTool::jsonNumber(master) },
            { QStringLiteral("position"), CamTool::jsonNumber(plan->position(master)) },
            { QStringLiteral("velocity"), CamTool::jsonNumber(plan->velocity(master)) },
            { QStringLiteral("acceleration"), CamTool::jsonNumber(plan->acceleration(master)) },
            { QStringLiteral("jerk"), CamTool::jsonNumber(plan->jerk(master)) },
        });
    }
    CamTool::printJson(QJsonDocument(result));
    return CamTool::Success;
}

const CamTool::Registration sampleRegistration({ "sample", "sample the curve of a file into grid points", runSample });
const CamTool::Registration evalRegistration({ "eval", "evaluate the curve of a file at master positions", runEval });

} // namespace
