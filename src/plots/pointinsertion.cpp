#include "pointinsertion.h"

#include "camdesigner/camdescriptionimplementation.h"
#include "curves/motionplan.h"
#include "curves/motionplanfactory.h"
#include "model/cameditormodel.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"

#include <cmath>
#include <limits>
#include <vector>

namespace {

std::unique_ptr<MotionPoint> candidate(double master, double slave, int type, const MotionPoint *before)
{
    auto point = std::make_unique<MotionPoint>(master, slave, MotionPoint::movementRules(type));
    if (before)
        point->setSectionFrom(*before);
    point->clearVelocity();
    return point;
}

} // namespace

double PointInsertion::largestDeviation(const MotionPlan &before, const MotionPlan &after)
{
    double largest = 0.0;
    const QPolygonF grid = before.positions();
    for (const QPointF &point : grid) {
        const double difference = std::abs(after.position(point.x()) - point.y());
        if (!(difference <= largest))
            largest = difference;
    }
    return largest;
}

PointInsertion::Choice PointInsertion::choose(const CamEditorModel &editorModel, double master, double slave)
{
    const CamDescriptionImplementation *description = editorModel.camDescription();
    const MotionPlan *plan = editorModel.motionPlan();
    const QList<MotionPoint *> points = description ? description->motionPoints() : QList<MotionPoint *>();
    const MotionPoint *before = nullptr;
    for (const MotionPoint *point : points) {
        if (point->master() < master)
            before = point;
    }
    Choice choice { candidate(master, slave, before ? before->type() : MotionPoint::rest, before),
                    std::numeric_limits<double>::quiet_NaN() };
    if (!plan || points.size() < 2 || plan->positions().isEmpty())
        return choice;

    // The type the point before has comes first: where it keeps the curve as
    // well as any, the table keeps the user's style.
    std::vector<std::unique_ptr<MotionPoint>> candidates;
    candidates.push_back(candidate(master, slave, before ? before->type() : MotionPoint::rest, before));
    if (description->motionLaw()->law() == MotionLaw::Vdi) {
        auto speed = candidate(master, slave, MotionPoint::speed, before);
        speed->setVelocity(plan->velocity(master));
        candidates.push_back(std::move(speed));
        for (int type : { MotionPoint::acceleration, MotionPoint::speed, MotionPoint::turningPoint, MotionPoint::rest })
            candidates.push_back(candidate(master, slave, type, before));
    }
    for (auto &point : candidates) {
        QList<MotionPoint *> trial;
        bool placed = false;
        for (MotionPoint *existing : points) {
            if (!placed && existing->master() > master) {
                trial.append(point.get());
                placed = true;
            }
            trial.append(existing);
        }
        if (!placed)
            trial.append(point.get());
        std::unique_ptr<MotionPlan> after(MotionPlanFactory::create(description->motionLaw()->law(), trial,
                                                                    description->isCyclic(),
                                                                    description->circularLength(), nullptr,
                                                                    plan->scaling()));
        if (!after)
            continue;
        const double deviation = largestDeviation(*plan, *after);
        if (std::isnan(choice.deviation) || deviation < choice.deviation) {
            choice.deviation = deviation;
            choice.point = std::move(point);
        }
    }
    return choice;
}
