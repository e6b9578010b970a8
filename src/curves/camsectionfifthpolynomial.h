#pragma once

#include "camsection.h"

// A polynomial of degree five in t = master - start (not normalised to the
// section's length). The plan fills the coefficients; the section only
// evaluates, and extrapolates outside its interval.
class CamSectionFifthPolynomial : public CamSection
{
    Q_OBJECT
public:
    CamSectionFifthPolynomial(QObject *parent, double start, double end);
    ~CamSectionFifthPolynomial() override;

    bool contains(double master) const override;
    double position(double master) const override;
    double velocity(double master) const override;
    double acceleration(double master) const override;
    double jerk(double master) const override;

    double start() const { return m_start; }
    double end() const { return m_end; }

    double a0() const { return m_a0; }
    double a1() const { return m_a1; }
    double a2() const { return m_a2; }
    double a3() const { return m_a3; }
    double a4() const { return m_a4; }
    double a5() const { return m_a5; }
    void setA0(double a0) { m_a0 = a0; }
    void setA1(double a1) { m_a1 = a1; }
    void setA2(double a2) { m_a2 = a2; }
    void setA3(double a3) { m_a3 = a3; }
    void setA4(double a4) { m_a4 = a4; }
    void setA5(double a5) { m_a5 = a5; }

private:
    double m_start;
    double m_end;
    double m_a0 = 0.0;
    double m_a1 = 0.0;
    double m_a2 = 0.0;
    double m_a3 = 0.0;
    double m_a4 = 0.0;
    double m_a5 = 0.0;
};
