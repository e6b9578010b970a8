#pragma once

#include "ascendingsearch.h"
#include "straightstretches.h"

#include <cstddef>
#include <vector>

// A natural cubic spline through (knot, value) pairs, with ascending knots.
// Between knot i and i + 1, with h = x - knots[i], the curve is
// ((cubic[i] * h + quadratic[i]) * h + linear[i]) * h + values[i]; beyond the
// ends it continues as a quadratic.
class CubicSpline
{
public:
    // The second derivative is prescribed at an end.
    static constexpr int SecondDerivativeBoundary = 2;

    // Takes the knots and values; computes the coefficients when there are at
    // least two knots, otherwise the spline stays empty and evaluates to 0.0.
    void setPoints(std::vector<double> knots, std::vector<double> values);
    // The same with periodic end conditions: velocity and acceleration at the
    // last knot equal those at the first (a cyclic cam closes smoothly).
    void setPeriodicPoints(std::vector<double> knots, std::vector<double> values);

    bool isPeriodic() const { return m_periodic; }

    bool isEmpty() const { return m_cubic.empty(); }

    double position(double x) const;
    double velocity(double x) const;
    double acceleration(double x) const;
    double jerk(double x) const;

    // A closed interval around x on which acceleration() is exactly 0.0, or
    // an empty one (first > second).
    MasterInterval straightStretch(double x) const;

    const std::vector<double> &knots() const { return m_knots; }
    const std::vector<double> &values() const { return m_values; }
    const std::vector<double> &cubic() const { return m_cubic; }
    const std::vector<double> &quadratic() const { return m_quadratic; }
    const std::vector<double> &linear() const { return m_linear; }
    int leftBoundaryType() const { return m_leftBoundaryType; }
    int rightBoundaryType() const { return m_rightBoundaryType; }
    double leftQuadratic() const { return m_leftQuadratic; }
    double leftLinear() const { return m_leftLinear; }

private:
    void computeCoefficients();
    std::vector<double> periodicQuadratics() const;
    void finishCoefficients();
    std::size_t pieceIndex(double x) const;
    void findStraightStretches();

    std::vector<double> m_knots;
    std::vector<double> m_values;
    std::vector<double> m_cubic;
    std::vector<double> m_quadratic;
    std::vector<double> m_linear;
    int m_leftBoundaryType = SecondDerivativeBoundary;
    int m_rightBoundaryType = SecondDerivativeBoundary;
    double m_leftBoundaryValue = 0.0;
    double m_rightBoundaryValue = 0.0;
    double m_leftQuadratic = 0.0;
    double m_leftLinear = 0.0;
    bool m_linearExtrapolation = false;
    bool m_periodic = false;
    // Per piece: the straight stretch it belongs to, empty for a bending one.
    std::vector<MasterInterval> m_straightStretches;
    // While the knots ascend (equal ones allowed) the search remembers where
    // it found the last pieces.
    bool m_ascending = false;
    AscendingSearch m_search;
};
