#include "curvepolynomial.h"

#include <cmath>

namespace {

// The root of a monotone polynomial with a sign change between from and to.
double bisect(const CurvePolynomial &p, double from, double to, double valueAtFrom)
{
    const bool risingFromBelow = valueAtFrom < 0.0;
    for (;;) {
        const double middle = from + (to - from) / 2.0;
        if (!(middle > from && middle < to))
            break; // from and to are neighbouring doubles
        const double value = p(middle);
        if (value == 0.0)
            return middle;
        if ((value < 0.0) == risingFromBelow)
            from = middle;
        else
            to = middle;
    }
    return std::abs(p(from)) <= std::abs(p(to)) ? from : to;
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

CurvePolynomial CurvePolynomial::minus(const CurvePolynomial &other) const
{
    Coefficients d {};
    for (int power = 0; power <= MaximumDegree; ++power)
        d[std::size_t(power)] = m_c[std::size_t(power)] - other.m_c[std::size_t(power)];
    return CurvePolynomial(d);
}

std::vector<double> CurvePolynomial::roots(double from, double to) const
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
    std::vector<double> bounds { from };
    for (double t : derivative().roots(from, to)) {
        if (t > bounds.back())
            bounds.push_back(t);
    }
    if (to > bounds.back())
        bounds.push_back(to);
    double left = bounds.front();
    double valueLeft = (*this)(left);
    if (valueLeft == 0.0)
        result.push_back(left);
    for (std::size_t i = 1; i < bounds.size(); ++i) {
        const double right = bounds[i];
        const double valueRight = (*this)(right);
        if (valueRight == 0.0)
            result.push_back(right);
        else if (valueLeft != 0.0 && (valueLeft < 0.0) != (valueRight < 0.0))
            result.push_back(bisect(*this, left, right, valueLeft));
        left = right;
        valueLeft = valueRight;
    }
    return result;
}

CurvePolynomial::Extreme CurvePolynomial::largestMagnitude(double from, double to) const
{
    Extreme best { (*this)(from), from };
    const auto consider = [&](double t) {
        const double value = (*this)(t);
        if (std::abs(value) > std::abs(best.value))
            best = { value, t };
    };
    for (double t : derivative().roots(from, to))
        consider(t);
    consider(to);
    return best;
}
