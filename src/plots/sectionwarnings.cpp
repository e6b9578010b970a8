#include "sectionwarnings.h"

#include "curves/curvereport.h"
#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "model/motionpoint.h"
#include "parameters/parametermodel.h"

#include <QLocale>

#include <algorithm>

namespace {

const char ObjectName[] = "sectionWarnings";
// Positions looked at per section for the limits: the slave may overshoot
// between its points.
constexpr int LimitSamples = 64;
// Below this derivative a joint jumps in a way the drive feels, as the
// report's joint table marks it.
constexpr int FeltContinuity = 2;
// What jumps, by the continuity the report finds (-1, 0, 1).
const char *const Jumped[] = {
    QT_TRANSLATE_NOOP("SectionWarnings", "Position"),
    QT_TRANSLATE_NOOP("SectionWarnings", "Geschwindigkeit"),
    QT_TRANSLATE_NOOP("SectionWarnings", "Beschleunigung"),
};

} // namespace

SectionWarnings::SectionWarnings(CamEditorModel *editorModel, ParameterModel *parameterModel, QObject *parent)
    : QObject(parent)
    , m_editorModel(editorModel)
    , m_parameterModel(parameterModel)
{
    setObjectName(QLatin1String(ObjectName));
    if (editorModel) {
        connect(editorModel, &CamEditorModel::changed, this, &SectionWarnings::update);
        connect(editorModel, &CamEditorModel::motionPlanRebuilt, this, &SectionWarnings::update);
    }
    update();
}

SectionWarnings *SectionWarnings::of(CamEditorModel *editorModel, ParameterModel *parameterModel)
{
    if (!editorModel)
        return nullptr;
    auto *warnings = editorModel->findChild<SectionWarnings *>(QLatin1String(ObjectName), Qt::FindDirectChildrenOnly);
    if (!warnings)
        return new SectionWarnings(editorModel, parameterModel, editorModel);
    if (!warnings->m_parameterModel && parameterModel) {
        warnings->m_parameterModel = parameterModel;
        warnings->m_plan = nullptr;
        warnings->update();
    }
    return warnings;
}

QString SectionWarnings::textForRow(int row) const
{
    QStringList lines;
    for (const Warning &warning : m_warnings) {
        if (warning.row == row)
            lines.append(warning.text);
    }
    return lines.join(QLatin1Char('\n'));
}

void SectionWarnings::update()
{
    const MotionPlan *plan = m_editorModel ? m_editorModel->motionPlan() : nullptr;
    // A drag step builds a plan with every mouse move: the figures follow
    // when it ends.
    if (plan == m_plan || (plan && m_editorModel->isCoarseSteps()))
        return;
    m_plan = plan;
    const QVector<Warning> before = m_warnings;
    m_warnings.clear();
    if (plan && plan->motionPoints().size() > 1)
        collect(*plan);
    const bool same = before.size() == m_warnings.size()
        && std::equal(before.begin(), before.end(), m_warnings.begin(), [](const Warning &a, const Warning &b) {
               return a.start == b.start && a.end == b.end && a.row == b.row && a.text == b.text;
           });
    if (!same)
        emit changed();
}

void SectionWarnings::collect(const MotionPlan &plan)
{
    const int rows = m_editorModel->motionPointCount();
    const auto rowAt = [&](double master) {
        for (int row = 0; row < rows; ++row) {
            if (m_editorModel->motionPointAt(row)->master() == master)
                return row;
        }
        // The closing point of a cyclic cam is its first point again.
        return plan.isCyclic() ? 0 : -1;
    };
    const QLocale locale;
    // No grid points: the joints and laws do not depend on the sampling.
    const CurveReport report(plan, QPolygonF());
    for (const CurveJointReport &joint : report.joints()) {
        if (joint.continuity >= FeltContinuity)
            continue;
        Warning warning;
        warning.start = warning.end = joint.master;
        warning.row = rowAt(joint.master);
        warning.joint = true;
        const QString at = locale.toString(joint.master);
        const QString what = tr(Jumped[std::max(joint.continuity, -1) + 1]);
        warning.text = joint.seam ? tr("Die Nahtstelle bei %1 springt in der %2.").arg(at, what)
                                  : tr("Der Übergang bei %1 springt in der %2.").arg(at, what);
        m_warnings.append(warning);
    }
    for (const CurveSectionReport &section : report.sections()) {
        const int row = rowAt(section.start);
        if (section.law != section.lawApplied) {
            Warning warning;
            warning.start = section.start;
            warning.end = section.end;
            warning.row = row;
            warning.text = tr("Das Bewegungsgesetz „%1“ ist hier nicht anwendbar; berechnet mit „%2“.")
                               .arg(MotionPoint::sectionLawDisplayName(section.law),
                                    MotionPoint::sectionLawDisplayName(section.lawApplied));
            m_warnings.append(warning);
        }
        if (!m_parameterModel || !(section.end > section.start))
            continue;
        double lowest = plan.position(section.start);
        double highest = lowest;
        for (int i = 1; i <= LimitSamples; ++i) {
            const double value = plan.position(section.start + (section.end - section.start) * i / LimitSamples);
            lowest = std::min(lowest, value);
            highest = std::max(highest, value);
        }
        QString message = m_parameterModel->checkSlaveValue(lowest);
        if (message.isEmpty())
            message = m_parameterModel->checkSlaveValue(highest);
        if (!message.isEmpty()) {
            Warning warning;
            warning.start = section.start;
            warning.end = section.end;
            warning.row = row;
            warning.text = tr("Die Kurve verlässt hier die Grenzen des Antriebs: %1").arg(message);
            m_warnings.append(warning);
        }
    }
}
