// The "report" verb: the figures of the "Kennwerte" dock as JSON: per
// section extremes and coefficients, continuity at the joints, the error of
// the linear interpolation between grid points, and the coarsest sampling
// that stays under the position resolution.

#include "camdesigner/camdescriptionimplementation.h"
#include "curves/curvereport.h"
#include "curves/motionplan.h"
#include "curves/samplinglimit.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"
#include "model/steps.h"
#include "sampledcam.h"
#include "toolsupport.h"
#include "verbs.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace {

QJsonObject extremeToJson(const CurveExtreme &extreme)
{
    return QJsonObject { { QStringLiteral("value"), CamTool::jsonNumber(extreme.value) },
                         { QStringLiteral("master"), CamTool::jsonNumber(extreme.master) } };
}

// A coefficient of a section without stroke is not defined.
QJsonValue coefficientToJson(double value)
{
    return std::isnan(value) ? QJsonValue() : CamTool::jsonNumber(value);
}

QJsonValue segmentTypeToJson(int type)
{
    return type == CurveReport::NoSegmentType ? QJsonValue() : QJsonValue(MotionPoint::typeDataName(type));
}

QJsonValue sectionLawToJson(int law)
{
    return law == CurveReport::NoSegmentType ? QJsonValue() : QJsonValue(MotionPoint::sectionLawDataName(law));
}

QJsonObject reportToJson(const CurveReport &report)
{
    QJsonArray sections;
    for (const CurveSectionReport &s : report.sections()) {
        sections.append(QJsonObject {
            { QStringLiteral("start"), CamTool::jsonNumber(s.start) },
            { QStringLiteral("end"), CamTool::jsonNumber(s.end) },
            { QStringLiteral("stroke"), CamTool::jsonNumber(s.stroke) },
            { QStringLiteral("startType"), segmentTypeToJson(s.startType) },
            { QStringLiteral("endType"), segmentTypeToJson(s.endType) },
            { QStringLiteral("law"), sectionLawToJson(s.law) },
            { QStringLiteral("lawApplied"), sectionLawToJson(s.lawApplied) },
            { QStringLiteral("velocity"), extremeToJson(s.velocity) },
            { QStringLiteral("acceleration"), extremeToJson(s.acceleration) },
            { QStringLiteral("jerk"), extremeToJson(s.jerk) },
            { QStringLiteral("cv"), coefficientToJson(s.cv) },
            { QStringLiteral("ca"), coefficientToJson(s.ca) },
            { QStringLiteral("cj"), coefficientToJson(s.cj) },
            { QStringLiteral("samplingError"), extremeToJson(s.samplingError) },
        });
    }
    QJsonArray joints;
    for (const CurveJointReport &j : report.joints()) {
        QJsonArray jumps;
        for (double jump : j.jumps)
            jumps.append(CamTool::jsonNumber(jump));
        joints.append(QJsonObject { { QStringLiteral("master"), CamTool::jsonNumber(j.master) },
                                    { QStringLiteral("seam"), j.seam },
                                    { QStringLiteral("jumps"), jumps },
                                    { QStringLiteral("continuity"), j.continuity } });
    }
    QJsonArray tolerances;
    for (int k = 0; k < CurveReport::DerivativeCount; ++k)
        tolerances.append(CamTool::jsonNumber(report.tolerance(k)));
    return QJsonObject { { QStringLiteral("sections"), sections },
                         { QStringLiteral("joints"), joints },
                         { QStringLiteral("tolerances"), tolerances } };
}

QJsonObject limitToJson(const SamplingLimit &limit)
{
    QJsonObject staticStep { { QStringLiteral("reachable"), limit.staticReachable } };
    if (limit.staticReachable) {
        staticStep.insert(QStringLiteral("stepSize"), CamTool::jsonNumber(limit.staticStepSize));
        staticStep.insert(QStringLiteral("error"), extremeToJson(limit.staticError));
    }
    QJsonObject dynamic { { QStringLiteral("reachable"), limit.dynamicReachable } };
    if (limit.dynamicReachable) {
        dynamic.insert(QStringLiteral("gridPoints"), limit.dynamicResolution);
        dynamic.insert(QStringLiteral("error"), extremeToJson(limit.dynamicError));
    }
    return QJsonObject { { QStringLiteral("resolution"), CamTool::jsonNumber(limit.resolution) },
                         { QStringLiteral("static"), staticStep },
                         { QStringLiteral("dynamic"), dynamic } };
}

int runReport(const QStringList &arguments)
{
    CamTool::SampledCam cam;
    const int loaded = cam.load(
        arguments,
        { QStringLiteral("Reports the curve of FILE as JSON: per section the extremes of velocity, acceleration and "
                         "jerk and their coefficients, the continuity at every joint (continuity: -1 none, 0 "
                         "position ... 3 jerk), the error of the linear interpolation between the grid points, and "
                         "the coarsest static step and dynamic resolution that keep it under the resolution."),
          QStringLiteral("Decimal places of positions (default 3); the position resolution is 10^-D."),
          QStringLiteral("Measure the sampling error of static step size H instead of the file's steps."),
          QStringLiteral("Measure the sampling error of dynamic resolution N instead of the file's steps.") });
    if (loaded >= 0)
        return loaded;
    const MotionPlan *plan = &cam.plan();
    const Steps *steps = &cam.steps();
    const CamDescriptionImplementation &description = cam.description();

    const CurveReport report(*plan);
    QJsonObject result = reportToJson(report);
    result.insert(QStringLiteral("law"), description.motionLaw()->dataName());
    result.insert(QStringLiteral("cyclic"), plan->isCyclic());
    QJsonObject sampling { { QStringLiteral("gridPoints"), report.gridPointCount() },
                           { QStringLiteral("error"), extremeToJson(report.samplingError()) } };
    if (steps->isDynamicStepSize())
        sampling.insert(QStringLiteral("dynamicSteps"), steps->dynamicStepResolution());
    else
        sampling.insert(QStringLiteral("staticStepSize"), CamTool::jsonNumber(steps->staticStepSize()));
    result.insert(QStringLiteral("sampling"), sampling);
    result.insert(QStringLiteral("smallestStep"), limitToJson(SamplingLimit::find(*plan)));
    CamTool::printJson(QJsonDocument(result));
    return CamTool::Success;
}

const CamTool::Registration reportRegistration(
    { "report", "figures of the curve of a file: extremes, continuity, sampling error", runReport });

} // namespace
