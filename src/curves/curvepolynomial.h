#pragma once

#include <array>
#include <vector>

// A polynomial of degree at most seven in t, with c[k] the coefficient of t^k:
// the polynomial pieces of all motion laws in one form, so that their extremes and
// roots are found by one exact method instead of by sampling.
class CurvePolynomial
{
public:
    static constexpr int MaximumDegree = 7;
    using Coefficients = std::array<double, MaximumDegree + 1>;

    CurvePolynomial() { m_c.fill(0.0); }
    explicit CurvePolynomial(const Coefficients &coefficients) : m_c(coefficients) {}

    double coefficient(int power) const { return m_c[std::size_t(power)]; }
    int degree() const;

    double operator()(double t) const;
    CurvePolynomial derivative() const;

    // The roots inside [from, to] in ascending order, each exact to the
    // rounding of the evaluation: between two neighbouring roots of the
    // derivative the polynomial is monotone, so a sign change there holds
    // exactly one root, which bisection narrows down to adjacent doubles.
    std::vector<double> roots(double from, double to) const;
    // The same with the derivative's roots already known (ascending; those
    // outside [from, to] are passed over), so that a ladder of derivatives
    // is solved once from the top.
    std::vector<double> roots(double from, double to, const std::vector<double> &derivativeRoots) const;

    struct Extreme {
        double value = 0.0; // signed, the largest in magnitude
        double t = 0.0;
    };
    // The value of largest magnitude on [from, to]: at an end or at one of the
    // derivative's roots there, which the caller has found once for all the
    // evaluations of a section. Ties go to the smaller t.
    Extreme largestMagnitude(double from, double to, const std::vector<double> &derivativeRoots) const;

private:
    Coefficients m_c;
};
