#include "camsectionfifthpolynomial.h"

#include <cmath>

// The powers go through std::pow and the terms are summed lowest power first.
// Stored grid point tables were computed this way; a Horner scheme would change
// the last digits and make unchanged tables look edited.

CamSectionFifthPolynomial::CamSectionFifthPolynomial(QObject *parent, double start, double end)
    : CamSection(parent)
    , m_start(start)
    , m_end(end)
{
}

CamSectionFifthPolynomial::~CamSectionFifthPolynomial() = default;

bool CamSectionFifthPolynomial::contains(double master) const
{
    return m_start <= master && master <= m_end;
}

double CamSectionFifthPolynomial::position(double master) const
{
    const double t = master - m_start;
    return m_a0 + m_a1 * std::pow(t, 1) + m_a2 * std::pow(t, 2) + m_a3 * std::pow(t, 3)
        + m_a4 * std::pow(t, 4) + m_a5 * std::pow(t, 5);
}

double CamSectionFifthPolynomial::velocity(double master) const
{
    const double t = master - m_start;
    return m_a1 + 2.0 * m_a2 * std::pow(t, 1) + 3.0 * m_a3 * std::pow(t, 2)
        + 4.0 * m_a4 * std::pow(t, 3) + 5.0 * m_a5 * std::pow(t, 4);
}

double CamSectionFifthPolynomial::acceleration(double master) const
{
    const double t = master - m_start;
    return 2.0 * m_a2 + 6.0 * m_a3 * std::pow(t, 1) + 12.0 * m_a4 * std::pow(t, 2)
        + 20.0 * m_a5 * std::pow(t, 3);
}

double CamSectionFifthPolynomial::jerk(double master) const
{
    const double t = master - m_start;
    return 6.0 * m_a3 + 24.0 * m_a4 * std::pow(t, 1) + 60.0 * m_a5 * std::pow(t, 2);
}
