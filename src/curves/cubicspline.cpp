#include "cubicspline.h"

#include <algorithm>
#include <cmath>

namespace {

// The band factors of the spline equations, kept as the stored constants
// rather than written as divisions, for the same last digits as before.
constexpr double OneThird = 1.0 / 3.0;
constexpr double TwoThirds = 2.0 / 3.0;

// Solves a tridiagonal system by LU decomposition without pivoting; the
// spline equations are diagonally dominant. lower[0] and upper[n - 1] are unused.
std::vector<double> solveTridiagonal(std::vector<double> lower, std::vector<double> diagonal,
                                     const std::vector<double> &upper, std::vector<double> rhs)
{
    const size_t n = diagonal.size();
    for (size_t i = 1; i < n; ++i) {
        lower[i] /= diagonal[i - 1];
        diagonal[i] -= lower[i] * upper[i - 1];
        rhs[i] -= lower[i] * rhs[i - 1];
    }
    std::vector<double> x(n);
    x[n - 1] = rhs[n - 1] / diagonal[n - 1];
    for (size_t i = n - 1; i-- > 0;)
        x[i] = (rhs[i] - upper[i] * x[i + 1]) / diagonal[i];
    return x;
}

} // namespace

void CubicSpline::setPoints(std::vector<double> knots, std::vector<double> values)
{
    m_knots = std::move(knots);
    m_values = std::move(values);
    m_cubic.clear();
    m_quadratic.clear();
    m_linear.clear();
    m_straightStretches.clear();
    m_search = AscendingSearch();
    m_ascending = std::none_of(m_knots.begin(), m_knots.end(), [](double knot) { return std::isnan(knot); })
        && std::is_sorted(m_knots.begin(), m_knots.end());
    if (m_knots.size() >= 2 && m_knots.size() == m_values.size()) {
        computeCoefficients();
        findStraightStretches();
    }
}

void CubicSpline::computeCoefficients()
{
    const size_t n = m_knots.size();
    std::vector<double> lower(n, 0.0);
    std::vector<double> diagonal(n, 0.0);
    std::vector<double> upper(n, 0.0);
    std::vector<double> rhs(n, 0.0);

    // Boundary rows: the prescribed second derivative 2 * q at either end.
    diagonal[0] = 2.0;
    rhs[0] = m_leftBoundaryValue;
    diagonal[n - 1] = 2.0;
    rhs[n - 1] = m_rightBoundaryValue;
    for (size_t i = 1; i + 1 < n; ++i) {
        const double hBefore = m_knots[i] - m_knots[i - 1];
        const double h = m_knots[i + 1] - m_knots[i];
        lower[i] = OneThird * hBefore;
        diagonal[i] = TwoThirds * (hBefore + h);
        upper[i] = OneThird * h;
        rhs[i] = (m_values[i + 1] - m_values[i]) / h - (m_values[i] - m_values[i - 1]) / hBefore;
    }
    m_quadratic = solveTridiagonal(std::move(lower), std::move(diagonal), upper, std::move(rhs));

    m_cubic.assign(n, 0.0);
    m_linear.assign(n, 0.0);
    for (size_t i = 0; i + 1 < n; ++i) {
        const double h = m_knots[i + 1] - m_knots[i];
        m_cubic[i] = (m_quadratic[i + 1] - m_quadratic[i]) / (3.0 * h);
        m_linear[i] = (m_values[i + 1] - m_values[i]) / h - (2.0 * m_quadratic[i] + m_quadratic[i + 1]) * h / 3.0;
    }
    // Beyond the last knot the curve goes on as a quadratic with the slope
    // of the last piece at its end.
    const double h = m_knots[n - 1] - m_knots[n - 2];
    m_cubic[n - 1] = 0.0;
    if (m_linearExtrapolation)
        m_quadratic[n - 1] = 0.0;
    m_linear[n - 1] = (3.0 * m_cubic[n - 2] * h + 2.0 * m_quadratic[n - 2]) * h + m_linear[n - 2];
    m_leftQuadratic = m_linearExtrapolation ? 0.0 : m_quadratic[0];
    m_leftLinear = m_linear[0];
}

// The last knot smaller than x, but at least the first.
std::size_t CubicSpline::pieceIndex(double x) const
{
    const std::size_t lower = m_ascending
        ? m_search.lowerBound(m_knots, x)
        : std::size_t(std::lower_bound(m_knots.begin(), m_knots.end(), x) - m_knots.begin());
    return lower == 0 ? 0 : lower - 1;
}

double CubicSpline::position(double x) const
{
    if (isEmpty())
        return 0.0;
    const size_t i = pieceIndex(x);
    const double h = x - m_knots[i];
    if (x < m_knots.front())
        return (m_leftQuadratic * h + m_leftLinear) * h + m_values.front();
    if (x > m_knots.back())
        return (m_quadratic.back() * h + m_linear.back()) * h + m_values.back();
    return ((m_cubic[i] * h + m_quadratic[i]) * h + m_linear[i]) * h + m_values[i];
}

double CubicSpline::velocity(double x) const
{
    if (isEmpty())
        return 0.0;
    const size_t i = pieceIndex(x);
    const double h = x - m_knots[i];
    if (x < m_knots.front())
        return 2.0 * m_leftQuadratic * h + m_leftLinear;
    if (x > m_knots.back())
        return 2.0 * m_quadratic.back() * h + m_linear.back();
    return (3.0 * m_cubic[i] * h + 2.0 * m_quadratic[i]) * h + m_linear[i];
}

double CubicSpline::acceleration(double x) const
{
    if (isEmpty())
        return 0.0;
    const size_t i = pieceIndex(x);
    const double h = x - m_knots[i];
    // Left of the first knot the value is multiplied by h, so it grows with
    // the distance. Deliberate and kept: only the plots' left edge and the
    // curvature look-ahead of one step ever see it.
    if (x < m_knots.front())
        return 2.0 * m_leftQuadratic * h;
    if (x > m_knots.back())
        return 2.0 * m_quadratic.back();
    return 2.0 * m_quadratic[i] + 6.0 * m_cubic[i] * h;
}

double CubicSpline::jerk(double x) const
{
    if (isEmpty() || x < m_knots.front() || x > m_knots.back())
        return 0.0;
    return 6.0 * m_cubic[pieceIndex(x)];
}

// A piece without quadratic and cubic terms is straight. Only finite,
// strictly ascending knots have pieces that can be told apart.
void CubicSpline::findStraightStretches()
{
    for (size_t i = 0; i < m_knots.size(); ++i) {
        if (!std::isfinite(m_knots[i]) || (i > 0 && !(m_knots[i - 1] < m_knots[i]))) {
            m_straightStretches.assign(m_knots.size() - 1, StraightStretches::None);
            return;
        }
    }
    m_straightStretches = StraightStretches::find(m_knots, StraightStretches::Bounds::OpenLeft, [this](size_t i) {
        return m_quadratic[i] == 0.0 && m_cubic[i] == 0.0;
    });
}

MasterInterval CubicSpline::straightStretch(double x) const
{
    if (m_straightStretches.empty() || !(x >= m_knots.front()) || !(x <= m_knots.back()))
        return StraightStretches::None;
    const MasterInterval &stretch = m_straightStretches[pieceIndex(x)];
    if (stretch.first <= x && x <= stretch.second)
        return stretch;
    return StraightStretches::None;
}
