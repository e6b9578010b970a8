#include "curvepolynomial.h"

#include <cmath>

namespace {

// The root of a monotone polynomial with a sign change between from and to:
// Newton steps while they stay inside the bracket, bisection otherwise, until
// the bracket holds no double between its ends or a step no longer moves.
double bisect(const CurvePolynomial &p, double from, double to, double valueAtFrom)
{
    const CurvePolynomial slope = p.derivative();
    const bool risingFromBelow = valueAtFrom < 0.0;
    double x = from + (to - from) / 2.0;
    for (;;) {
        const double value = p(x);
        if (value == 0.0)
            return x;
        if ((value < 0.0) == risingFromBelow)
            from = x;
        else
            to = x;
        const double middle = from + (to - from) / 2.0;
        if (!(middle > from && middle < to))
            break; // from and to are neighbouring doubles
        const double d = slope(x);
        const double newton = d != 0.0 ? x - value / d : middle;
        if (newton > from && newton < to && newton != x) {
            x = newton;
        } else if (newton == x) {
            break; // Newton stands still: x is the root to rounding
        } else {
            x = middle;
        }
    }
    const double valueFrom = std::abs(p(from));
    const double valueTo = std::abs(p(to));
    const double valueX = std::abs(p(x));
    if (valueX <= valueFrom && valueX <= valueTo)
        return x;
    return valueFrom <= valueTo ? from : to;
}

} // namespace

int CurvePolynomial::degree() const
{
    for (int power = MaximumDegree; power > 0; --power) {
        if (m_c[std::size_t(power)] != 0.0)
            return power;
    }
    return 0;
}

double CurvePolynomial::operator()(double t) const
{
    double value = 0.0;
    for (int power = degree(); power >= 0; --power)
        value = value * t + m_c[std::size_t(power)];
    return value;
}

CurvePolynomial CurvePolynomial::derivative() const
{
    Coefficients d {};
    for (int power = 1; power <= MaximumDegree; ++power)
        d[std::size_t(power - 1)] = power * m_c[std::size_t(power)];
    return CurvePolynomial(d);
}

std::vector<double> CurvePolynomial::roots(double from, double to) const
{
    if (degree() <= 1 || !(from <= to))
        return roots(from, to, {});
    return roots(from, to, derivative().roots(from, to));
}

std::vector<double> CurvePolynomial::roots(double from, double to, const std::vector<double> &derivativeRoots) const
{
    std::vector<double> result;
    if (!(from <= to))
        return result;
    const int n = degree();
    if (n == 0)
        return result; // a constant: no isolated roots, even when it is zero
    if (n == 1) {
        const double t = -m_c[0] / m_c[1];
        if (t >= from && t <= to)
            result.push_back(t);
        return result;
    }
    // The monotone pieces, bounded by the derivative's roots.
    double left = from;
    double valueLeft = (*this)(left);
    if (valueLeft == 0.0)
        result.push_back(left);
    const auto piece = [&](double right) {
        const double valueRight = (*this)(right);
        if (valueRight == 0.0)
            result.push_back(right);
        else if (valueLeft != 0.0 && (valueLeft < 0.0) != (valueRight < 0.0))
            result.push_back(bisect(*this, left, right, valueLeft));
        left = right;
        valueLeft = valueRight;
    };
    for (double bound : derivativeRoots) {
        if (bound > left && bound < to)
            piece(bound);
    }
    if (to > left)
        piece(to);
    return result;
}

CurvePolynomial::Extreme CurvePolynomial::largestMagnitude(double from, double to,
                                                           const std::vector<double> &derivativeRoots) const
{
    Extreme best { (*this)(from), from };
    const auto consider = [&](double t) {
        const double value = (*this)(t);
        if (std::abs(value) > std::abs(best.value))
            best = { value, t };
    };
    for (double t : derivativeRoots) {
        if (t > from && t < to)
            consider(t);
    }
    consider(to);
    return best;
}
