#include "toolsupport.h"

#include "camdesigner/camdatafile.h"
#include "camdesigner/camdescriptionimplementation.h"
#include "curves/motionplan.h"
#include "curves/motionplanfactory.h"
#include "verbs.h"

#include <QCommandLineParser>
#include <QJsonDocument>

#include <cmath>
#include <cstdio>

namespace CamTool {

void printError(const QString &text)
{
    const QByteArray bytes = text.toLocal8Bit();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stderr);
    std::fflush(stderr);
}

void printOutput(const QByteArray &bytes)
{
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
    std::fflush(stdout);
}

void printJson(const QJsonDocument &document)
{
    printOutput(document.toJson(QJsonDocument::Indented));
}

int parseArguments(QCommandLineParser &parser, const QStringList &arguments,
                   int minimumPositionals, int maximumPositionals)
{
    const QCommandLineOption helpOption = parser.addHelpOption();
    if (!parser.parse(arguments)) {
        printError(parser.errorText() + QLatin1Char('\n') + parser.helpText());
        return UsageError;
    }
    if (parser.isSet(helpOption)) {
        printOutput(parser.helpText().toLocal8Bit());
        return Success;
    }
    const int count = parser.positionalArguments().size();
    if (count < minimumPositionals || count > maximumPositionals) {
        printError(QStringLiteral("camtool: wrong number of arguments\n") + parser.helpText());
        return UsageError;
    }
    return -1;
}

int parseCamFileArguments(QCommandLineParser &parser, const QStringList &arguments, const QString &description)
{
    parser.setApplicationDescription(description);
    parser.addPositionalArgument(QStringLiteral("FILE"),
                                 QStringLiteral("Cam definition data (.json text, other suffixes binary)."));
    return parseArguments(parser, arguments, 1, 1);
}

bool loadCamFile(const QString &path, CamDescriptionImplementation &description)
{
    CamDataFile::ReadStatus status = CamDataFile::ReadStatus::Loaded;
    QString errorString;
    const QJsonObject data = CamDataFile::read(path, &status, &errorString);
    if (status == CamDataFile::ReadStatus::Unreadable) {
        printError(QStringLiteral("camtool: cannot open '%1': %2\n").arg(path, errorString));
        return false;
    }
    if (status == CamDataFile::ReadStatus::Invalid) {
        printError(QStringLiteral("camtool: warning: '%1' holds no cam definition data as %2 JSON; "
                                  "the defaults are loaded\n")
                       .arg(path, CamDataFile::isTextJsonPath(path) ? QStringLiteral("text")
                                                                    : QStringLiteral("binary")));
    }
    description.fromJson(data);
    return true;
}

std::unique_ptr<MotionPlan> createPlan(const CamDescriptionImplementation &description, Scaling *scaling)
{
    return std::unique_ptr<MotionPlan>(MotionPlanFactory::create(description.motionLaw()->law(),
                                                                 description.motionPoints(), description.isCyclic(),
                                                                 description.circularLength(), nullptr, scaling));
}

QJsonValue jsonNumber(double value)
{
    if (std::isnan(value))
        return QStringLiteral("NaN");
    if (std::isinf(value))
        return value > 0 ? QStringLiteral("Infinity") : QStringLiteral("-Infinity");
    return value;
}

QJsonArray pointsToJson(const QPolygonF &points)
{
    QJsonArray array;
    for (const QPointF &point : points)
        array.append(QJsonArray { jsonNumber(point.x()), jsonNumber(point.y()) });
    return array;
}

} // namespace CamTool
