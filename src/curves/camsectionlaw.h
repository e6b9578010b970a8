#pragma once

#include "camsection.h"
#include "normalisedlaw.h"

#include <array>

// A section of the VDI plan under a law other than the quintic: one of the
// normalised rest-in-rest laws (with inflection and boundary velocities),
// the seventh-degree polynomial or the straight line. It only evaluates and
// extrapolates its formula outside its interval.
class CamSectionLaw : public CamSection
{
    Q_OBJECT
public:
    // The section from (start, startPosition) to (end, endPosition) with the
    // given boundary velocities and accelerations; law is a
    // MotionPoint::SectionLaw other than Poly5. The normalised laws use the
    // velocities only (their boundary accelerations are zero), Line neither.
    struct Boundary {
        double start = 0.0;
        double end = 0.0;
        double startPosition = 0.0;
        double endPosition = 0.0;
        double startVelocity = 0.0;
        double endVelocity = 0.0;
        double startAcceleration = 0.0;
        double endAcceleration = 0.0;
    };
    CamSectionLaw(QObject *parent, int law, const Boundary &boundary, double inflection);
    ~CamSectionLaw() override;

    bool contains(double master) const override;
    double position(double master) const override;
    double velocity(double master) const override;
    double acceleration(double master) const override;
    double jerk(double master) const override;

    int law() const { return m_law; }
    double start() const { return m_start; }
    double end() const { return m_end; }
    double inflection() const { return m_inflection; }

    // Poly7 and Line are polynomials in t = master - start: their
    // coefficients of t^0 to t^7. False for the normalised laws.
    bool polynomial(std::array<double, 8> *coefficients) const;

private:
    // g, its derivatives by u and G, the integral of g from 0.
    NormalisedLaw::Values inflected(double u) const;
    std::array<double, 4> derivatives(double master, int highest) const;

    int m_law;
    double m_start;
    double m_end;
    double m_length;
    double m_startPosition;
    double m_startVelocity;
    double m_velocityChange;
    double m_stroke;
    double m_inflection;
    double m_integralAtInflection = 0.0; // F(1/2)
    NormalisedLaw m_normalised;
    // Poly7 and Line in t.
    std::array<double, 8> m_t {};
};
