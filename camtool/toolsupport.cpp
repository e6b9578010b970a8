#include "toolsupport.h"

#include "camdesigner/camdatafile.h"
#include "camdesigner/camdescriptionimplementation.h"
#include "curves/motionplan.h"
#include "curves/motionplanfactory.h"
#include "model/steps.h"
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
    // A damaged file is an error, not the defaults: a result computed from
    // them would look like one of the file.
    if (status == CamDataFile::ReadStatus::Invalid) {
        // One line, as every error of the tool.
        const QString message = CamDataFile::damagedFileMessage(path, errorString).replace(QLatin1Char('\n'), QLatin1Char(' '));
        printError(QStringLiteral("camtool: %1\n").arg(message));
        return false;
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

bool chooseSteps(const QCommandLineParser &parser, const QCommandLineOption &staticOption,
                 const QCommandLineOption &dynamicOption, Steps *chosen)
{
    bool ok = false;
    if (parser.isSet(staticOption)) {
        const double step = parser.value(staticOption).trimmed().toDouble(&ok);
        if (!ok) {
            printError(QStringLiteral("camtool: --static needs a number, not '%1'\n").arg(parser.value(staticOption)));
            return false;
        }
        chosen->setIsDynamicStepSize(false);
        chosen->setStaticStepSize(step);
    }
    if (parser.isSet(dynamicOption)) {
        const int resolution = parser.value(dynamicOption).trimmed().toInt(&ok);
        if (!ok) {
            printError(
                QStringLiteral("camtool: --dynamic needs a whole number, not '%1'\n").arg(parser.value(dynamicOption)));
            return false;
        }
        chosen->setDynamicStepResolution(resolution);
    }
    return true;
}

} // namespace CamTool
