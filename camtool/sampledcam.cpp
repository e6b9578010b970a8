#include "sampledcam.h"

#include "camdesigner/camdescriptionimplementation.h"
#include "curves/motionplan.h"
#include "curves/motionplanfactory.h"
#include "model/fixedscaling.h"
#include "model/steps.h"
#include "toolsupport.h"
#include "verbs.h"

#include <QCommandLineParser>

namespace CamTool {

namespace {

constexpr int DefaultDecimals = 3;
// Beyond this the decimal places no longer fit a double's digits.
constexpr int MaximumDecimals = 15;

} // namespace

SampledCam::SampledCam()
    : m_description(new CamDescriptionImplementation(nullptr, QByteArray()))
    , m_chosenSteps(new Steps)
{
}

SampledCam::~SampledCam() = default;

const Steps &SampledCam::steps() const
{
    return m_stepsChosen ? *m_chosenSteps : *m_description->steps();
}

int SampledCam::load(const QStringList &arguments, const HelpTexts &texts)
{
    QCommandLineParser parser;
    const QCommandLineOption decimalsOption(QStringLiteral("decimals"), texts.decimals, QStringLiteral("D"),
                                            QString::number(DefaultDecimals));
    const QCommandLineOption staticOption(QStringLiteral("static"), texts.staticStep, QStringLiteral("H"));
    const QCommandLineOption dynamicOption(QStringLiteral("dynamic"), texts.dynamicResolution, QStringLiteral("N"));
    parser.addOptions({ decimalsOption, staticOption, dynamicOption });
    const int parsed = parseCamFileArguments(parser, arguments, texts.description);
    if (parsed >= 0)
        return parsed;
    if (parser.isSet(staticOption) && parser.isSet(dynamicOption)) {
        printError(QStringLiteral("camtool: --static and --dynamic exclude each other\n") + parser.helpText());
        return UsageError;
    }
    bool ok = false;
    const int decimals = parser.value(decimalsOption).trimmed().toInt(&ok);
    if (!ok || decimals < 0 || decimals > MaximumDecimals) {
        printError(QStringLiteral("camtool: --decimals needs a whole number from 0 to %1, not '%2'\n")
                       .arg(MaximumDecimals)
                       .arg(parser.value(decimalsOption)));
        return Failure;
    }
    // The step options stand in for the file's step settings.
    if (!chooseSteps(parser, staticOption, dynamicOption, m_chosenSteps.get()))
        return Failure;
    m_stepsChosen = parser.isSet(staticOption) || parser.isSet(dynamicOption);

    if (!loadCamFile(parser.positionalArguments().constFirst(), *m_description))
        return Failure;
    m_scaling.reset(new FixedScaling(decimals));
    m_plan = createPlan(*m_description, m_scaling.get());
    MotionPlanFactory::sample(m_plan.get(), &steps(), false);
    return -1;
}

} // namespace CamTool
