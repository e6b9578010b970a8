#include "cameditormodel.h"

#include "camdesigner/camdescriptionimplementation.h"
#include "curves/motionplan.h"
#include "curves/motionplanfactory.h"
#include "motionlaw.h"
#include "motionpoint.h"
#include "scalingimplementation.h"
#include "steps.h"

#include <algorithm>

#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
#define MX_CLEAR_UPPER_VECTOR_STATE 1
#endif

namespace {

#ifdef MX_CLEAR_UPPER_VECTOR_STATE
__attribute__((target("avx"))) void zeroUpperHalves()
{
    __builtin_ia32_vzeroupper();
}
#endif

// On processors with AVX-512 the C library's memory functions (filling an
// image before it is painted, copying a table) may return with the upper
// halves of the vector registers in use, and until they are cleared every
// instruction of the plain SSE code that the curve calculation compiles to
// waits on them: a plan then takes seven to ten times as long to sample.
// Clearing them changes no result. Only where the processor has AVX at all;
// elsewhere there is nothing to clear.
void clearUpperVectorState()
{
#ifdef MX_CLEAR_UPPER_VECTOR_STATE
    static const bool hasAvx = __builtin_cpu_supports("avx");
    if (hasAvx)
        zeroUpperHalves();
#endif
}

} // namespace

CamEditorModel::CamEditorModel(QObject *parent, ParameterModel *parameterModel,
                               CamDescriptionImplementation *camDescription)
    : QObject(parent)
    , m_scaling(new ScalingImplementation(parameterModel, this))
    , m_camDescription(camDescription)
{
    if (camDescription) {
        connect(camDescription, &CamDescription::changed, this, &CamEditorModel::update);
        connect(camDescription, &CamDescriptionImplementation::motionPointChanged, this,
                &CamEditorModel::calculateNewMotionPlan);
        connect(camDescription->motionLaw(), &MotionLaw::motionLawChanged, this, &CamEditorModel::update);
        connect(camDescription, &CamDescriptionImplementation::bulkChangeFinished, this,
                &CamEditorModel::onBulkChangeFinished);
        // The plan points at the description's points; when the description
        // goes first, a plan without points takes its place so that nothing
        // is left pointing at deleted points.
        connect(camDescription, &QObject::destroyed, this, &CamEditorModel::update);
        // A load deletes the points the plan was built from. Views that hear
        // of the new rows before the load ends (a table restoring its
        // selection) must not evaluate the old plan; the inputs are forgotten
        // so that the end of the load builds a new one in any case.
        connect(camDescription, &CamDescriptionImplementation::pointsAboutToBeReset, this, [this] {
            m_pointsReplaced = true;
            m_planInputs = PlanInputs();
        });
    }
    calculateNewMotionPlan();
}

CamEditorModel::~CamEditorModel()
{
    delete m_motionPlan;
}

void CamEditorModel::update()
{
    if (waitsForBulkChange())
        return;
    calculateNewMotionPlan();
    emit changed();
}

void CamEditorModel::calculateNewMotionPlan()
{
    if (waitsForBulkChange())
        return;
    // One edit reaches the model by more than one signal; the plan is built
    // for the first and kept for the others.
    if (m_motionPlan && m_planInputs == currentInputs(m_coarseSteps))
        return;
    createNewMotionPlan();
    sample(m_coarseSteps);
    connect(m_motionPlan, &MotionPlan::stepSizeChanged, this, &CamEditorModel::changed);
    emit motionPlanRebuilt();
}

bool CamEditorModel::waitsForBulkChange()
{
    // A load emits a signal per removed point and several more; only the
    // state at its end counts, so the plan is built once, then.
    if (!m_camDescription || !m_camDescription->isInBulkChange())
        return false;
    m_rebuildPending = true;
    return true;
}

void CamEditorModel::onBulkChangeFinished()
{
    if (!m_rebuildPending)
        return;
    m_rebuildPending = false;
    update();
}

void CamEditorModel::createNewMotionPlan()
{
    delete m_motionPlan;
    m_motionPlan = nullptr;
    m_pointsReplaced = false;
    // Built from the data as it is now, not yet sampled.
    m_planInputs = currentInputs(m_coarseSteps);
    m_planInputs.sampling.reset();

    const CamDescriptionImplementation *description = m_camDescription;
    const double circularLength =
        description ? description->circularLength() : CamDescriptionImplementation::DefaultCircularLength;
    m_motionPlan = MotionPlanFactory::create(description ? description->motionLaw()->law() : MotionLaw::Vdi,
                                             motionPoints(), description && description->isCyclic(), circularLength,
                                             this, m_scaling);
}

void CamEditorModel::sample(bool coarse)
{
    clearUpperVectorState();
    MotionPlanFactory::sample(m_motionPlan, steps(), coarse);
    // The points are those the plan was built from; the sampling is this one.
    m_planInputs.sampling = currentSampling(coarse);
}

CamEditorModel::PlanInputs CamEditorModel::currentInputs(bool coarse) const
{
    PlanInputs inputs;
    const CamDescriptionImplementation *description = m_camDescription;
    if (description) {
        const QList<MotionPoint *> points = description->motionPoints();
        inputs.points.reserve(points.size());
        for (const MotionPoint *point : points)
            inputs.points.append({ point, MotionPointValues(point) });
        inputs.law = description->motionLaw()->law();
        inputs.cyclic = description->isCyclic();
        inputs.circularLength = description->circularLength();
    }
    inputs.sampling = currentSampling(coarse);
    return inputs;
}

CamEditorModel::PlanInputs::Sampling CamEditorModel::currentSampling(bool coarse) const
{
    PlanInputs::Sampling sampling;
    sampling.coarse = coarse;
    if (const CamDescriptionImplementation *description = m_camDescription) {
        const Steps *settings = description->steps();
        sampling.dynamic = settings->isDynamicStepSize();
        sampling.resolution = settings->dynamicStepResolution();
        sampling.staticStep = settings->staticStepSize();
    }
    sampling.decimals = m_scaling->decimalPlaces();
    return sampling;
}

bool CamEditorModel::PlanInputs::Sampling::operator==(const Sampling &other) const
{
    return coarse == other.coarse && dynamic == other.dynamic && resolution == other.resolution
        && staticStep == other.staticStep && decimals == other.decimals;
}

bool CamEditorModel::PlanInputs::operator==(const PlanInputs &other) const
{
    // Exact comparisons: any change, however small, gives a new plan.
    return points == other.points && law == other.law && cyclic == other.cyclic
        && circularLength == other.circularLength && sampling == other.sampling;
}

void CamEditorModel::beginCoarseSteps()
{
    m_coarseSteps = true;
}

void CamEditorModel::endCoarseSteps()
{
    m_coarseSteps = false;
    calculateNewMotionPlan();
    emit changed();
}

double CamEditorModel::masterEnd() const
{
    const int count = motionPointCount();
    const double last = count == 0 ? DefaultMasterEnd : motionPointAt(count - 1)->master();
    if (m_camDescription && m_camDescription->isCyclic())
        return std::max(last, m_camDescription->circularLength());
    return last;
}

bool CamEditorModel::tooManyGridPoints() const
{
    const Steps *settings = steps();
    if (!settings || settings->isDynamicStepSize())
        return false;
    const int budget = MotionPlan::MaximumGridPoints - motionPointCount();
    const MotionPlan *plan = motionPlan();
    return plan && plan->masterRange() / settings->staticStepSize() > budget;
}

CamDescriptionImplementation *CamEditorModel::camDescription() const
{
    return m_camDescription;
}

MotionLaw *CamEditorModel::motionLaw() const
{
    return m_camDescription ? m_camDescription->motionLaw() : nullptr;
}

QList<MotionPoint *> CamEditorModel::motionPoints() const
{
    return m_camDescription ? m_camDescription->motionPoints() : QList<MotionPoint *>();
}

Steps *CamEditorModel::steps() const
{
    return m_camDescription ? m_camDescription->steps() : nullptr;
}

Scaling *CamEditorModel::scaling() const
{
    return m_scaling;
}

int CamEditorModel::motionPointCount() const
{
    return m_camDescription ? m_camDescription->pointCount() : 0;
}

MotionPoint *CamEditorModel::motionPointAt(int row) const
{
    return m_camDescription ? m_camDescription->pointAtRow(row) : nullptr;
}

int CamEditorModel::rowOfMotionPoint(const MotionPoint *point) const
{
    return m_camDescription ? m_camDescription->rowOf(point) : -1;
}
