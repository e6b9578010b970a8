#include "motionplan.h"
#include "positionrounding.h"

#include "model/motionpoint.h"
#include "model/scaling.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

// Ascending motion points never need more curvature tests per sampling than
// this: each test either yields a grid point, sits next to a motion point or
// enters a straight stretch, which is then passed over untested. Motion points
// out of order (only possible through the programming interface) defeat the
// stretch detection; the limit keeps a straight curve from walking millions of
// tiny steps with them.
constexpr int CurvatureTestLimit = 8 * MotionPlan::MaximumGridPoints;

} // namespace

MotionPlan::MotionPlan(QList<MotionPoint *> motionPoints, bool cyclic, double circularLength, QObject *parent,
                       Scaling *scaling)
    : QObject(parent)
    , m_scaling(scaling)
    , m_cyclic(cyclic)
    , m_circularLength(circularLength)
    , m_motionPoints(std::move(motionPoints))
{
    m_motionPoints.removeAll(nullptr);
    // The closing point makes a cyclic curve end where it starts; the laws
    // take it from this list. It is the plan's own; the other points belong
    // to the caller.
    if (m_cyclic && !m_motionPoints.isEmpty() && m_circularLength > m_motionPoints.constLast()->master()) {
        const MotionPoint *first = m_motionPoints.constFirst();
        m_closingPoint = std::make_unique<MotionPoint>(*first);
        m_closingPoint->setPosition(QPointF(m_circularLength, first->slave()));
        m_motionPoints.append(m_closingPoint.get());
    }
}

MotionPlan::~MotionPlan() = default;

double MotionPlan::maximumMasterPosition() const
{
    // A cyclic cam whose circle reaches beyond its points ends at the
    // closing point, the last in the list.
    return m_motionPoints.size() <= 1 ? 0.0 : m_motionPoints.constLast()->master();
}

double MotionPlan::masterRange() const
{
    if (m_motionPoints.size() <= 1)
        return 0.0;
    return maximumMasterPosition() - m_motionPoints.constFirst()->master();
}

double MotionPlan::minimumStepSize() const
{
    const int budget = MaximumGridPoints - m_motionPoints.size();
    return PositionRounding::rounded(masterRange() / budget, decimalPlaces());
}

int MotionPlan::decimalPlaces() const
{
    return m_scaling ? m_scaling->decimalPlaces() : 0;
}

double MotionPlan::positionResolution() const
{
    return m_scaling ? m_scaling->positionResolution() : 1.0;
}

MasterInterval MotionPlan::straightStretch(double) const
{
    return StraightStretches::None;
}

void MotionPlan::calculate(double stepSize)
{
    const int count = m_motionPoints.size();
    if (count <= 1)
        return;
    // Cam files are taken as they come: a step that is not a positive number
    // is held to the grid point limit just like a too small one.
    const int budget = MaximumGridPoints - count;
    const double range = masterRange();
    if (!(stepSize > 0.0) || range / stepSize > budget)
        stepSize = range / budget;

    m_positions = sample(stepSize, sortedMotionPointMasters());
    m_velocities = differenceQuotient(m_positions);
    m_accelerations = differenceQuotient(m_velocities);
    m_jerks = differenceQuotient(m_accelerations);
    emit stepSizeChanged();
}

void MotionPlan::calculateWithResolution(int gridPointCount)
{
    const int count = m_motionPoints.size();
    if (count <= 1)
        return;
    gridPointCount = std::min(gridPointCount, int(MaximumGridPoints));
    const std::vector<double> masters = sortedMotionPointMasters();
    if (gridPointCount <= count) {
        // Deliberately samples the motion points alone and drops the result:
        // this branch changes nothing but the notification.
        sample(0.0, masters);
        emit stepSizeChanged();
        return;
    }

    const double stepSize = masterRange() / (gridPointCount - count);
    QPolygonF points = sample(stepSize, masters);
    // Straight stretches get no step positions, so the first run falls short
    // of the wanted count; one refinement only, whatever it yields.
    if (gridPointCount * 0.9 > points.size()) {
        const double refinedStepSize = points.size() * stepSize / gridPointCount;
        points = sample(refinedStepSize, masters);
    }
    m_positions = points;
    // Appended, not replaced: a second dynamic run on the same plan adds a
    // second run of points. Deliberate and kept; the model builds a new plan
    // before every dynamic run that follows a change of the points.
    m_velocities.reserve(m_velocities.size() + points.size());
    m_accelerations.reserve(m_accelerations.size() + points.size());
    m_jerks.reserve(m_jerks.size() + points.size());
    for (const QPointF &point : qAsConst(points)) {
        const double x = point.x();
        m_velocities.append(QPointF(x, velocity(x)));
        m_accelerations.append(QPointF(x, acceleration(x)));
        m_jerks.append(QPointF(x, jerk(x)));
    }
    emit stepSizeChanged();
}

QPolygonF MotionPlan::differenceQuotient(const QPolygonF &points)
{
    QPolygonF result;
    if (points.size() < 2)
        return result;
    result.reserve(points.size() - 1);
    for (int i = 0; i + 1 < points.size(); ++i) {
        const QPointF &left = points.at(i);
        const QPointF &right = points.at(i + 1);
        result.append(QPointF(left.x(), (right.y() - left.y()) / (right.x() - left.x())));
    }
    return result;
}

// The masters in ascending order, in list order among equal ones, without
// NaN: a NaN is never near anything, and has no place in an ordered set.
std::vector<double> MotionPlan::sortedMotionPointMasters() const
{
    std::vector<double> masters;
    masters.reserve(size_t(m_motionPoints.size()));
    for (const MotionPoint *point : m_motionPoints) {
        if (!std::isnan(point->master()))
            masters.push_back(point->master());
    }
    std::stable_sort(masters.begin(), masters.end());
    return masters;
}

// above: the index of the first master not below the position.
MotionPlan::Curvature MotionPlan::curvature(double master, double stepSize,
                                            const std::vector<double> &sortedMasters, std::size_t above) const
{
    const double before = acceleration(master - stepSize);
    const double here = acceleration(master);
    const double after = acceleration(master + stepSize);
    // Linear interpolation between grid points is exact on a straight line.
    if (before == 0.0 && here == 0.0 && after == 0.0)
        return Curvature::Straight;

    // The motion point becomes a grid point itself; a step position closer
    // than a quarter step is dropped. For a finite position |m - x| rounds
    // monotonically in m, so the nearest masters on either side decide.
    const double quarterStep = stepSize / 4.0;
    const auto isNear = [master, quarterStep](double m) { return std::abs(m - master) < quarterStep; };
    if (std::isfinite(master)) {
        if ((above < sortedMasters.size() && isNear(sortedMasters[above]))
            || (above > 0 && isNear(sortedMasters[above - 1])))
            return Curvature::NearMotionPoint;
    } else if (std::any_of(sortedMasters.begin(), sortedMasters.end(), isNear)) {
        return Curvature::NearMotionPoint;
    }
    return Curvature::Bends;
}

std::vector<double> MotionPlan::stepPositions(double stepSize, const std::vector<double> &sortedMasters) const
{
    std::vector<double> positions;
    const double first = m_motionPoints.constFirst()->master();
    const double end = maximumMasterPosition();
    const int budget = MaximumGridPoints - m_motionPoints.size();
    if (!(stepSize > 0.0) || !std::isfinite(first) || !std::isfinite(end) || budget <= 0)
        return positions;

    // Repeated addition, not first + k * step: the grid follows the rounding
    // of the running sum, as stored tables do.
    double x = first;
    std::size_t above = 0; // first master not below x; x only grows
    int tests = 0;
    while (x <= end && tests++ < CurvatureTestLimit) {
        while (above < sortedMasters.size() && sortedMasters[above] < x)
            ++above;
        const Curvature test = curvature(x, stepSize, sortedMasters, above);
        if (test == Curvature::Bends) {
            positions.push_back(x);
            if (int(positions.size()) >= budget)
                break;
        } else if (test == Curvature::Straight) {
            // Pass over the positions whose whole look-around lies in a known
            // straight stretch: their test could only say "straight" again.
            const MasterInterval stretch = straightStretch(x);
            if (stretch.first <= stretch.second) {
                for (;;) {
                    const double next = x + stepSize;
                    if (!(next > x) || !(next <= end) || !(next - stepSize >= stretch.first)
                        || !(next + stepSize <= stretch.second))
                        break;
                    x = next;
                }
            }
        }
        const double next = x + stepSize;
        if (!(next > x))
            break; // the step is lost in the rounding of x: the sum would stand still
        x = next;
    }
    return positions;
}

QPolygonF MotionPlan::gridPoints(const std::vector<double> &sortedPositions) const
{
    QPolygonF points;
    points.reserve(int(sortedPositions.size()));
    const double resolution = positionResolution();
    const size_t last = sortedPositions.size() - 1;
    for (size_t i = 0; i < sortedPositions.size(); ++i) {
        const double x = sortedPositions[i];
        if (i != 0 && i != last) {
            // Compares the master position with the slave position one master
            // unit earlier. Mixing the two is deliberate and kept: stored tables
            // were thinned this way, and in practice it drops almost nothing.
            const double distance = std::abs(x - position(x - 1.0));
            if (resolution > distance)
                continue;
        }
        points.append(QPointF(x, position(x)));
    }
    return points;
}

QPolygonF MotionPlan::sample(double stepSize, const std::vector<double> &sortedMasters) const
{
    const std::vector<double> steps = stepPositions(stepSize, sortedMasters);
    // Both runs are ascending; merging keeps the step position where a motion
    // point has the same master, as inserting them first into a set would.
    std::vector<double> merged;
    merged.reserve(steps.size() + sortedMasters.size());
    std::merge(steps.begin(), steps.end(), sortedMasters.begin(), sortedMasters.end(),
               std::back_inserter(merged));
    merged.erase(std::unique(merged.begin(), merged.end()), merged.end());
    return gridPoints(merged);
}
