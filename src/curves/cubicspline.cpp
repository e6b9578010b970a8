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

void CubicSpline::setPeriodicPoints(std::vector<double> knots, std::vector<double> values)
{
    m_periodic = true;
    setPoints(std::move(knots), std::move(values));
}

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

// The half second derivatives q of a periodic spline: with m intervals, the
// rows of the natural spline for every knot, the indices taken modulo m, so
// that the system is tridiagonal with two corner elements. Solved by the
// bordering method: eliminate down the band while carrying the last column,
// then the last row.
std::vector<double> CubicSpline::periodicQuadratics() const
{
    const size_t m = m_knots.size() - 1;
    std::vector<double> q(m + 1, 0.0);
    if (m < 2)
        return q; // one interval that closes on itself: a straight line
    const auto h = [this, m](size_t i) { return m_knots[i % m + 1] - m_knots[i % m]; };
    const auto slope = [this, m](size_t i) {
        return (m_values[i % m + 1] - m_values[i % m]) / (m_knots[i % m + 1] - m_knots[i % m]);
    };
    std::vector<double> lower(m), diagonal(m), upper(m), rhs(m);
    for (size_t i = 0; i < m; ++i) {
        const double before = h(i + m - 1);
        lower[i] = OneThird * before;
        diagonal[i] = TwoThirds * (before + h(i));
        upper[i] = OneThird * h(i);
        rhs[i] = slope(i) - slope(i + m - 1);
    }
    if (m == 2) {
        // Both neighbours of each knot are the other knot.
        const double a = diagonal[0];
        const double b = lower[0] + upper[0];
        const double c = lower[1] + upper[1];
        const double d = diagonal[1];
        const double det = a * d - b * c;
        q[0] = (rhs[0] * d - b * rhs[1]) / det;
        q[1] = (a * rhs[1] - c * rhs[0]) / det;
        q[2] = q[0];
        return q;
    }
    // Rows 0..m-2 with the column of the last unknown carried along.
    std::vector<double> last(m, 0.0);
    last[0] = lower[0];
    last[m - 2] = upper[m - 2];
    std::vector<double> bottom(m, 0.0); // the last row, reduced as we go
    bottom[0] = upper[m - 1];
    bottom[m - 2] = lower[m - 1];
    double bottomDiagonal = diagonal[m - 1];
    double bottomRhs = rhs[m - 1];
    for (size_t i = 0; i + 1 < m - 1; ++i) {
        const double factor = lower[i + 1] / diagonal[i];
        diagonal[i + 1] -= factor * upper[i];
        rhs[i + 1] -= factor * rhs[i];
        if (i + 1 == m - 2)
            last[i + 1] = upper[m - 2] - factor * last[i];
        else
            last[i + 1] -= factor * last[i];
        const double bottomFactor = bottom[i] / diagonal[i];
        bottom[i + 1] -= bottomFactor * upper[i];
        bottomDiagonal -= bottomFactor * last[i];
        bottomRhs -= bottomFactor * rhs[i];
    }
    // The last row now holds bottom[m - 2] and its own diagonal.
    const double factor = bottom[m - 2] / diagonal[m - 2];
    bottomDiagonal -= factor * last[m - 2];
    bottomRhs -= factor * rhs[m - 2];
    q[m - 1] = bottomRhs / bottomDiagonal;
    q[m - 2] = (rhs[m - 2] - last[m - 2] * q[m - 1]) / diagonal[m - 2];
    for (size_t i = m - 2; i-- > 0;)
        q[i] = (rhs[i] - upper[i] * q[i + 1] - last[i] * q[m - 1]) / diagonal[i];
    q[m] = q[0];
    return q;
}

void CubicSpline::computeCoefficients()
{
    const size_t n = m_knots.size();
    if (m_periodic) {
        m_quadratic = periodicQuadratics();
        finishCoefficients();
        return;
    }
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
    finishCoefficients();
}

void CubicSpline::finishCoefficients()
{
    const size_t n = m_knots.size();
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
