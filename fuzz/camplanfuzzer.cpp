// Takes arbitrary text JSON as a cam definition file, as the editor loads it,
// and follows it all the way into a drive: builds and samples the motion
// plan with the drive's decimal places, reports the curve (extremes,
// continuity, sampling error), and writes the grid points into a cam table
// of a simulated drive through the parameter model, then reads them back.
//
// Input layout: byte 0 chooses the table (low nibble) and whether the
// coarsest sampling is searched as well (bit 4, slow: it samples the plan
// many times); the rest is the JSON text.
#include "camdesigner/camdescriptionimplementation.h"
#include <messagebox.h>
#include "curves/curvereport.h"
#include "curves/motionplan.h"
#include "curves/motionplanfactory.h"
#include "curves/samplinglimit.h"
#include "model/motionlaw.h"
#include "model/scalingimplementation.h"
#include "parameters/parametermodelimplementation.h"
#include "simulateddrive.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

namespace {

constexpr int LivingSpace = 1;
constexpr uint8_t TableBits = 0x0f;
constexpr uint8_t SearchLimitBit = 0x10;

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    // The model reports refusals through the message box seam; without a
    // widget application no box may be shown.
    MessageBox::setHandler([](QWidget *, const MessageBox::Message &) { return QMessageBox::Ok; });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1)
        return 0;
    const unsigned short table = data[0] & TableBits;
    const bool searchLimit = (data[0] & SearchLimitBit) != 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data + 1), static_cast<int>(size - 1));
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    if (!document.isObject())
        return 0;

    CamDescriptionImplementation description(nullptr, QByteArray());
    description.fromJson(document.object());

    MxSimulation::SimulatedDrive drive;
    ParameterModelImplementation model(nullptr, &drive, table, LivingSpace);
    ScalingImplementation scaling(&model);
    const std::unique_ptr<MotionPlan> plan(MotionPlanFactory::create(description.motionLaw()->law(),
                                                                     description.motionPoints(), description.isCyclic(),
                                                                     description.circularLength(), nullptr, &scaling));
    MotionPlanFactory::sample(plan.get(), description.steps(), false);
    const QPolygonF positions = plan->positions();
    // The grid point limit holds whatever the file says.
    if (positions.size() > MotionPlan::MaximumGridPoints)
        std::abort();

    const CurveReport report(*plan);
    report.samplingErrorOf(positions);
    if (searchLimit)
        SamplingLimit::find(*plan);

    model.writeGridPoints(positions);
    const QPolygonF stored = model.storedGridPoints();
    if (stored.size() > MotionPlan::MaximumGridPoints)
        std::abort();
    model.storedTableSummary();
    return 0;
}
