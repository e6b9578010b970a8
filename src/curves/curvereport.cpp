#include "curvereport.h"

#include "camsectionfifthpolynomial.h"
#include "camsectionlaw.h"
#include "cubicspline.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"
#include "motionplancubicspline.h"
#include "motionplanvdi.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

void keepLarger(CurveExtreme *kept, const CurveExtreme &candidate)
{
    if (std::abs(candidate.value) > std::abs(kept->value))
        *kept = candidate;
}

// The largest magnitude of a smooth function on [from, to]: the best of an
// even sampling, then a golden-section search between the samples beside it.
template<typename Function>
CurvePolynomial::Extreme searchLargestMagnitude(const Function &f, double from, double to, int samples)
{
    CurvePolynomial::Extreme best { f(from), from };
    int bestIndex = 0;
    for (int i = 1; i <= samples; ++i) {
        const double t = i == samples ? to : from + (to - from) * i / samples;
        const double value = f(t);
        if (std::abs(value) > std::abs(best.value)) {
            best = { value, t };
            bestIndex = i;
        }
    }
    double a = from + (to - from) * std::max(bestIndex - 1, 0) / samples;
    double b = bestIndex + 1 >= samples ? to : from + (to - from) * (bestIndex + 1) / samples;
    const double ratio = (std::sqrt(5.0) - 1.0) / 2.0;
    double c = b - ratio * (b - a);
    double d = a + ratio * (b - a);
    double fc = std::abs(f(c));
    double fd = std::abs(f(d));
    for (int i = 0; i < 100 && b - a > 0.0; ++i) {
        if (fc > fd) {
            b = d;
            d = c;
            fd = fc;
            c = b - ratio * (b - a);
            fc = std::abs(f(c));
        } else {
            a = c;
            c = d;
            fc = fd;
            d = a + ratio * (b - a);
            fd = std::abs(f(d));
        }
    }
    const double t = (a + b) / 2.0;
    const double value = f(t);
    if (std::abs(value) > std::abs(best.value))
        best = { value, t };
    return best;
}

constexpr int SearchSamples = 64;
// Between two grid points the deviation from the chord has one bulge.
constexpr int DeviationSamples = 4;

} // namespace

CurveReport::CurveReport(const MotionPlan &plan)
    : CurveReport(plan, plan.positions())
{
}

CurveReport::CurveReport(const MotionPlan &plan, const QPolygonF &gridPoints)
    : m_cyclic(plan.isCyclic())
    , m_pieces(pieces(plan, &m_motionLaw))
    , m_gridPointCount(gridPoints.size())
{
    describeSections(plan);
    describeJoints();
    std::vector<CurveExtreme> perSection;
    m_samplingError = deviation(m_pieces, gridPoints, &perSection);
    for (std::size_t i = 0; i < m_sections.size(); ++i)
        m_sections[i].samplingError = perSection[i];
}

double CurveReport::tolerance(int derivative) const
{
    return std::max(RelativeTolerance * m_scale[std::size_t(derivative)], ToleranceFloor);
}

CurveExtreme CurveReport::samplingErrorOf(const QPolygonF &gridPoints) const
{
    return deviation(m_pieces, gridPoints, nullptr);
}

std::vector<CurveReport::Piece> CurveReport::pieces(const MotionPlan &plan, int *law)
{
    std::vector<Piece> result;
    if (const auto *vdi = qobject_cast<const MotionPlanVdi *>(&plan)) {
        *law = MotionLaw::Vdi;
        const QList<CamSectionFifthPolynomial *> sections = vdi->sections();
        for (int i = 0; i < sections.size(); ++i) {
            const CamSectionFifthPolynomial *section = sections.at(i);
            const auto *lawSection = qobject_cast<const CamSectionLaw *>(vdi->evaluatingSection(i));
            std::array<double, 8> t {};
            if (!lawSection) {
                result.push_back(piece(section->start(), section->end(),
                                       CurvePolynomial({ section->a0(), section->a1(), section->a2(), section->a3(),
                                                         section->a4(), section->a5() })));
            } else if (lawSection->polynomial(&t)) {
                result.push_back(piece(section->start(), section->end(), CurvePolynomial(t)));
            } else {
                Piece searched { section->start(), section->end(), {}, {}, lawSection, 0.0 };
                searched.kink = (section->end() - section->start()) * lawSection->inflection();
                result.push_back(searched);
            }
        }
    } else if (const auto *spline = qobject_cast<const MotionPlanCubicSpline *>(&plan)) {
        *law = spline->spline().isPeriodic() ? MotionLaw::SplinePeriodic : MotionLaw::Spline;
        const CubicSpline &s = spline->spline();
        for (std::size_t i = 0; i + 1 < s.knots().size() && !s.isEmpty(); ++i) {
            result.push_back(piece(s.knots()[i], s.knots()[i + 1],
                                   CurvePolynomial({ s.values()[i], s.linear()[i], s.quadratic()[i], s.cubic()[i],
                                                     0.0, 0.0 })));
        }
    }
    return result;
}

double CurveReport::value(const Piece &piece, int derivative, double t)
{
    if (!piece.section)
        return piece.derivatives[std::size_t(derivative)](t);
    const double master = piece.start + t;
    switch (derivative) {
    case 0:
        return piece.section->position(master);
    case 1:
        return piece.section->velocity(master);
    case 2:
        return piece.section->acceleration(master);
    default:
        return piece.section->jerk(master);
    }
}

// On each side of the inflection separately, where a derivative may jump.
CurvePolynomial::Extreme CurveReport::searchedExtreme(const Piece &piece, int derivative, double from, double to)
{
    const auto f = [&](double t) { return value(piece, derivative, t); };
    if (!(piece.kink > from && piece.kink < to))
        return searchLargestMagnitude(f, from, to, SearchSamples);
    const CurvePolynomial::Extreme left = searchLargestMagnitude(f, from, piece.kink, SearchSamples);
    const CurvePolynomial::Extreme right = searchLargestMagnitude(f, piece.kink, to, SearchSamples);
    return std::abs(right.value) > std::abs(left.value) ? right : left;
}

CurveReport::Piece CurveReport::piece(double start, double end, const CurvePolynomial &position)
{
    Piece result { start, end, {}, {}, nullptr, 0.0 };
    result.derivatives[0] = position;
    for (int k = 1; k <= DerivativeCount; ++k)
        result.derivatives[std::size_t(k)] = result.derivatives[std::size_t(k - 1)].derivative();
    // From the top: the roots of the fifth derivative (none for a quintic)
    // bound the monotone runs of the fourth.
    const double length = end - start;
    std::vector<double> above = result.derivatives[DerivativeCount].derivative().roots(0.0, length);
    for (int k = DerivativeCount; k >= 1; --k) {
        above = result.derivatives[std::size_t(k)].roots(0.0, length, above);
        result.roots[std::size_t(k - 1)] = above;
    }
    return result;
}

void CurveReport::describeSections(const MotionPlan &plan)
{
    const QList<MotionPoint *> points = plan.motionPoints();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (std::size_t i = 0; i < m_pieces.size(); ++i) {
        const Piece &piece = m_pieces[i];
        const double length = piece.end - piece.start;
        CurveSectionReport section;
        section.start = piece.start;
        section.end = piece.end;
        section.stroke = value(piece, 0, length) - value(piece, 0, 0.0);
        const bool segments = m_motionLaw == MotionLaw::Vdi && int(i) + 1 < points.size();
        section.startType = segments ? points.at(int(i))->type() : NoSegmentType;
        section.endType = segments ? points.at(int(i) + 1)->type() : NoSegmentType;
        const auto *vdi = qobject_cast<const MotionPlanVdi *>(&plan);
        section.law = vdi ? vdi->askedLaw(int(i)) : NoSegmentType;
        section.lawApplied = vdi ? vdi->appliedLaw(int(i)) : NoSegmentType;

        CurveExtreme *extremes[DerivativeCount] = { nullptr, &section.velocity, &section.acceleration,
                                                    &section.jerk };
        for (int k = 0; k < DerivativeCount; ++k) {
            const CurvePolynomial::Extreme extreme = piece.section
                ? searchedExtreme(piece, k, 0.0, length)
                : piece.derivatives[std::size_t(k)].largestMagnitude(0.0, length, piece.roots[std::size_t(k)]);
            if (extremes[k])
                *extremes[k] = { extreme.value, piece.start + extreme.t };
            m_scale[std::size_t(k)] = std::max(m_scale[std::size_t(k)], std::abs(extreme.value));
        }
        const double h = std::abs(section.stroke);
        const bool hasStroke = h > 0.0;
        section.cv = hasStroke ? std::abs(section.velocity.value) * length / h : nan;
        section.ca = hasStroke ? std::abs(section.acceleration.value) * length * length / h : nan;
        section.cj = hasStroke ? std::abs(section.jerk.value) * length * length * length / h : nan;
        m_sections.push_back(section);
    }
}

void CurveReport::describeJoints()
{
    const std::size_t count = m_pieces.size();
    const std::size_t jointCount = count == 0 ? 0 : (m_cyclic ? count : count - 1);
    for (std::size_t i = 0; i < jointCount; ++i) {
        const Piece &left = m_pieces[i];
        const Piece &right = m_pieces[(i + 1) % count];
        CurveJointReport joint;
        joint.master = left.end;
        joint.seam = i + 1 == count;
        for (int k = 0; k < DerivativeCount; ++k) {
            const std::size_t d = std::size_t(k);
            joint.jumps[d] = value(right, k, 0.0) - value(left, k, left.end - left.start);
        }
        for (int k = 0; k < DerivativeCount && std::abs(joint.jumps[std::size_t(k)]) <= tolerance(k); ++k)
            joint.continuity = k;
        m_joints.push_back(joint);
    }
}

CurveExtreme CurveReport::deviation(const std::vector<Piece> &pieces, const QPolygonF &gridPoints,
                                    std::vector<CurveExtreme> *perPiece)
{
    CurveExtreme overall;
    if (perPiece)
        perPiece->assign(pieces.size(), CurveExtreme());
    std::size_t k = 0;
    for (int j = 0; j + 1 < gridPoints.size(); ++j) {
        const double x0 = gridPoints.at(j).x();
        const double x1 = gridPoints.at(j + 1).x();
        const double y0 = gridPoints.at(j).y();
        if (!(x1 > x0))
            continue;
        const double slope = (gridPoints.at(j + 1).y() - y0) / (x1 - x0);
        while (k < pieces.size() && !(pieces[k].end > x0))
            ++k;
        // A grid interval may reach over a joint when the thinning of the
        // grid dropped a motion point: each section measures its own part.
        for (std::size_t s = k; s < pieces.size() && pieces[s].start < x1; ++s) {
            const Piece &piece = pieces[s];
            const double from = std::max(x0, piece.start) - piece.start;
            const double to = std::min(x1, piece.end) - piece.start;
            if (to > from && piece.section) {
                const auto deviationAt = [&](double t) {
                    return value(piece, 0, t) - (y0 + slope * (piece.start + t - x0));
                };
                const CurvePolynomial::Extreme e = searchLargestMagnitude(deviationAt, from, to, DeviationSamples);
                const CurveExtreme found { e.value, piece.start + e.t };
                keepLarger(&overall, found);
                if (perPiece)
                    keepLarger(&(*perPiece)[s], found);
            } else if (to > from) {
                // deviation(t) = position(t) - chord(t); its slope is
                // velocity(t) - slope, monotone between the acceleration's roots.
                const double offset = y0 + slope * (piece.start - x0);
                const CurvePolynomial &position = piece.derivatives[0];
                CurvePolynomial::Coefficients c {};
                for (int power = 0; power <= CurvePolynomial::MaximumDegree; ++power)
                    c[std::size_t(power)] = piece.derivatives[1].coefficient(power);
                c[0] -= slope;
                const auto deviationAt = [&](double t) { return position(t) - (offset + slope * t); };
                CurveExtreme found { deviationAt(from), piece.start + from };
                const auto consider = [&](double t) {
                    const double value = deviationAt(t);
                    if (std::abs(value) > std::abs(found.value))
                        found = { value, piece.start + t };
                };
                for (double t : CurvePolynomial(c).roots(from, to, piece.roots[1]))
                    consider(t);
                consider(to);
                keepLarger(&overall, found);
                if (perPiece)
                    keepLarger(&(*perPiece)[s], found);
            }
            if (piece.end >= x1)
                break;
        }
    }
    return overall;
}
