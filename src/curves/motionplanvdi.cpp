#include "motionplanvdi.h"

#include "camsectionfifthpolynomial.h"
#include "camsectionlaw.h"
#include "model/motionpoint.h"

#include <algorithm>
#include <cmath>

namespace {

// Weighting of all weighted boundary values. The factor applies to the
// velocity and the half acceleration alike; stored tables depend on it.
constexpr double K = 1.5;

} // namespace

MotionPlanVdi::MotionPlanVdi(QList<MotionPoint *> motionPoints, bool cyclic, double circularLength,
                             QObject *parent, Scaling *scaling)
    : MotionPlan(std::move(motionPoints), cyclic, circularLength, parent, scaling)
    , m_cyclic(cyclic)
{
    const QList<MotionPoint *> points = MotionPlan::motionPoints();
    for (int i = 0; i + 1 < points.size(); ++i) {
        auto *section = new CamSectionFifthPolynomial(this, points.at(i)->master(), points.at(i + 1)->master());
        m_sections.append(section);
        section->setA0(points.at(i)->slave());
        setStartConditions(i);
    }
    for (int i = 0; i < m_sections.size(); ++i)
        setEndCoefficients(i);
    for (int i = 0; i < m_sections.size(); ++i)
        applySectionLaw(i);

    m_boundaries.reserve(size_t(points.size()));
    for (const MotionPoint *point : points)
        m_boundaries.push_back(point->master());
    m_ascending = std::none_of(m_boundaries.begin(), m_boundaries.end(), [](double m) { return std::isnan(m); })
        && std::is_sorted(m_boundaries.begin(), m_boundaries.end());
    findStraightStretches();
}

MotionPlanVdi::~MotionPlanVdi() = default;

void MotionPlanVdi::setStartConditions(int i)
{
    const QList<MotionPoint *> points = motionPoints();
    const MotionPoint *point = points.at(i);
    const MotionPoint *next = points.at(i + 1);
    const MotionPoint *previous = i > 0 ? points.at(i - 1) : nullptr;
    CamSectionFifthPolynomial *section = m_sections.at(i);

    const double T = next->master() - point->master();
    const double s = (next->slave() - point->slave()) / T;
    const double P = previous ? point->master() - previous->master() : 0.0;
    const double Q = previous ? (point->slave() - previous->slave()) / P : 0.0;
    const bool firstOfOpenCam = i == 0 && !m_cyclic;

    switch (point->type()) {
    case MotionPoint::rest:
        section->setA1(0.0);
        section->setA2(0.0);
        break;
    case MotionPoint::speed:
        section->setA2(0.0);
        if (point->hasVelocity())
            section->setA1(point->velocity());
        else if (previous && previous->type() == MotionPoint::speed)
            section->setA1((point->slave() - previous->slave()) / (point->master() - previous->master()));
        else if (next->type() == MotionPoint::speed)
            section->setA1((next->slave() - point->slave()) / (next->master() - point->master()));
        else
            section->setA1(K * (s * P + Q * T) / (P + T));
        break;
    case MotionPoint::turningPoint:
        section->setA1(0.0);
        section->setA2(firstOfOpenCam ? K * s / T : K * (s - Q) / (P + T));
        break;
    case MotionPoint::acceleration:
        if (firstOfOpenCam) {
            section->setA1(0.0);
            section->setA2(K * s / T);
        } else {
            section->setA1(K * (s * P + Q * T) / (P + T));
            section->setA2(K * (s - Q) / (P + T));
        }
        break;
    default:
        // Unknown types prescribe nothing: start velocity and half
        // acceleration stay 0.
        break;
    }
}

void MotionPlanVdi::setEndCoefficients(int i)
{
    const QList<MotionPoint *> points = motionPoints();
    const MotionPoint *point = points.at(i);
    const MotionPoint *next = points.at(i + 1);
    CamSectionFifthPolynomial *section = m_sections.at(i);
    const bool last = i == m_sections.size() - 1;

    // Straight sections between constant-velocity points. The rule is
    // asymmetric on purpose (it looks at the point before, never after) and
    // is kept: stored tables were computed with it.
    // A set velocity at either end is what the user wants there, so such a
    // section is never taken as straight.
    if (point->type() == MotionPoint::speed && next->type() == MotionPoint::speed && !point->hasVelocity()
        && !next->hasVelocity()) {
        const bool straight = last ? !m_cyclic : (i == 0 || points.at(i - 1)->type() != MotionPoint::speed);
        if (straight)
            return;
    }

    const double T = next->master() - point->master();
    const double s = (next->slave() - point->slave()) / T;
    const double vs = section->a1();
    const double cs = section->a2();
    double ve = 0.0;
    double ce = 0.0;
    endConditions(i, &ve, &ce);
    section->setA3(std::pow(T, -2) * (10.0 * s - 6.0 * vs - 4.0 * ve - 3.0 * T * cs + T * ce));
    section->setA4(std::pow(T, -3) * (8.0 * vs - 15.0 * s + 7.0 * ve + 3.0 * T * cs - 2.0 * T * ce));
    section->setA5(std::pow(T, -4) * (6.0 * s - 3.0 * vs - 3.0 * ve - T * cs + T * ce));
}

// End velocity and half acceleration of section i: the next section's start,
// the first section's for the last one of a cyclic cam, rest for the last one
// of an open cam unless its end point is a "speed" point with a set velocity.
void MotionPlanVdi::endConditions(int i, double *velocity, double *halfAcceleration) const
{
    *velocity = 0.0;
    *halfAcceleration = 0.0;
    if (i + 1 < m_sections.size()) {
        *velocity = m_sections.at(i + 1)->a1();
        *halfAcceleration = m_sections.at(i + 1)->a2();
    } else if (m_cyclic) {
        *velocity = m_sections.constFirst()->a1();
        *halfAcceleration = m_sections.constFirst()->a2();
    } else {
        const MotionPoint *next = motionPoints().at(i + 1);
        if (next->type() == MotionPoint::speed && next->hasVelocity())
            *velocity = next->velocity();
    }
}

void MotionPlanVdi::applySectionLaw(int i)
{
    const MotionPoint *point = motionPoints().at(i);
    const MotionPoint *next = motionPoints().at(i + 1);
    CamSectionFifthPolynomial *section = m_sections.at(i);
    const int asked = point->sectionLaw();
    double ve = 0.0;
    double ce = 0.0;
    endConditions(i, &ve, &ce);
    int applied = asked;
    // The normalised laws join only where the boundary accelerations vanish.
    if (MotionPoint::takesInflection(asked) && (section->a2() != 0.0 || ce != 0.0))
        applied = MotionPoint::Poly5;
    if (applied != MotionPoint::Poly5 && (applied < 0 || applied >= MotionPoint::SectionLawCount))
        applied = MotionPoint::Poly5;
    m_askedLaws.push_back(asked);
    m_appliedLaws.push_back(applied);
    if (applied == MotionPoint::Poly5) {
        m_evaluators.append(section);
        return;
    }
    CamSectionLaw::Boundary boundary;
    boundary.start = point->master();
    boundary.end = next->master();
    boundary.startPosition = point->slave();
    boundary.endPosition = next->slave();
    boundary.startVelocity = section->a1();
    boundary.endVelocity = ve;
    boundary.startAcceleration = 2.0 * section->a2();
    boundary.endAcceleration = 2.0 * ce;
    m_evaluators.append(new CamSectionLaw(this, applied, boundary, point->inflection()));
}

// The sections first..last are those that contain the position, in list
// order. Only valid while the boundaries ascend: then section i contains x
// exactly when boundary i <= x <= boundary i + 1.
bool MotionPlanVdi::containingSections(double master, int *first, int *last) const
{
    if (m_sections.isEmpty() || std::isnan(master))
        return false;
    const size_t count = m_boundaries.size();
    const size_t lower = m_search.lowerBound(m_boundaries, master);
    const size_t upper = lower < count && master < m_boundaries[lower]
        ? lower
        : size_t(std::upper_bound(m_boundaries.begin() + std::ptrdiff_t(lower), m_boundaries.end(), master)
                 - m_boundaries.begin());
    *first = std::max(int(lower) - 1, 0);
    *last = std::min(int(upper) - 1, m_sections.size() - 1);
    return *first <= *last;
}

// The first containing section in list order gives the value. With zeroWins a
// later containing section that gives exactly 0.0 replaces it, so that at a
// shared boundary a zero from either side wins.
double MotionPlanVdi::evaluate(double master, Evaluation evaluation, bool zeroWins) const
{
    double result = 0.0;
    bool found = false;
    const auto take = [&](const CamSection *section) {
        if (found && !zeroWins)
            return false;
        const double value = (section->*evaluation)(master);
        if (!found || value == 0.0)
            result = value;
        found = true;
        return true;
    };
    if (m_ascending) {
        int first = 0;
        int last = -1;
        if (containingSections(master, &first, &last)) {
            for (int i = first; i <= last && take(m_evaluators.at(i)); ++i) {
            }
        }
        return result;
    }
    for (const CamSection *section : m_evaluators) {
        if (section->contains(master) && !take(section))
            break;
    }
    return result;
}

double MotionPlanVdi::position(double master) const
{
    return evaluate(master, &CamSection::position, false);
}

double MotionPlanVdi::velocity(double master) const
{
    return evaluate(master, &CamSection::velocity, true);
}

double MotionPlanVdi::acceleration(double master) const
{
    return evaluate(master, &CamSection::acceleration, true);
}

double MotionPlanVdi::jerk(double master) const
{
    return evaluate(master, &CamSection::jerk, true);
}

// A section is straight when its acceleration is exactly 0.0 everywhere in
// it: no quadratic or higher terms, and powers of t that stay finite. Runs of
// straight sections form one stretch; inside it, at shared boundaries too, the
// zero wins.
void MotionPlanVdi::findStraightStretches()
{
    if (!m_ascending) {
        m_straightStretches.assign(size_t(m_sections.size()), StraightStretches::None);
        return;
    }
    m_straightStretches = StraightStretches::find(m_boundaries, StraightStretches::Bounds::Closed, [this](size_t i) {
        const CamSectionFifthPolynomial *section = m_sections.at(int(i));
        if (m_appliedLaws[i] == MotionPoint::Line)
            return std::isfinite(std::pow(section->end() - section->start(), 3));
        if (m_appliedLaws[i] != MotionPoint::Poly5)
            return false;
        return section->a2() == 0.0 && section->a3() == 0.0 && section->a4() == 0.0 && section->a5() == 0.0
            && std::isfinite(std::pow(section->end() - section->start(), 3));
    });
}

MasterInterval MotionPlanVdi::straightStretch(double master) const
{
    int first = 0;
    int last = -1;
    if (m_ascending && containingSections(master, &first, &last)) {
        for (int i = first; i <= last; ++i) {
            if (m_straightStretches[size_t(i)].first <= m_straightStretches[size_t(i)].second)
                return m_straightStretches[size_t(i)];
        }
    }
    return StraightStretches::None;
}
