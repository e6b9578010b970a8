#include "normalisedlaw.h"

#include "model/motionpoint.h"

#include <cmath>

namespace {

constexpr double Pi = 3.14159265358979323846;

} // namespace

NormalisedLaw::NormalisedLaw(int law)
{
    switch (law) {
    case MotionPoint::Harmonic:
        // f = (1 - cos πu) / 2
        addPiece(0.0, 0.0, Pi * Pi / 2.0, Pi, Pi / 2.0);
        break;
    case MotionPoint::ModifiedSine: {
        // f'' = 4π²/(4+π) · sin 4πu, · sin(4πu/3 + π/3), · sin 4πu
        const double k = 4.0 * Pi * Pi / (4.0 + Pi);
        addPiece(0.0, 0.0, k, 4.0 * Pi, 0.0);
        addPiece(1.0 / 8.0, 0.0, k, 4.0 * Pi / 3.0, Pi / 2.0);
        addPiece(7.0 / 8.0, 0.0, k, 4.0 * Pi, -Pi / 2.0);
        break;
    }
    case MotionPoint::ModifiedTrapezoid: {
        const double am = 8.0 * Pi / (Pi + 2.0);
        addPiece(0.0, 0.0, am, 4.0 * Pi, 0.0);
        addPiece(1.0 / 8.0, am, 0.0, 1.0, 0.0);
        addPiece(3.0 / 8.0, 0.0, am, 4.0 * Pi, Pi / 2.0);
        addPiece(5.0 / 8.0, -am, 0.0, 1.0, 0.0);
        addPiece(7.0 / 8.0, 0.0, am, 4.0 * Pi, -Pi / 2.0);
        break;
    }
    default:
        // f = u - sin(2πu) / (2π)
        addPiece(0.0, 0.0, 2.0 * Pi, 2.0 * Pi, 0.0);
        break;
    }
}

void NormalisedLaw::addPiece(double from, double constant, double amplitude, double omega, double phase)
{
    Piece piece { from, constant, amplitude, omega, phase, std::sin(phase), std::cos(phase), 0.0, 0.0, 0.0 };
    if (!m_pieces.empty()) {
        const Values end = evaluate(m_pieces.back(), from - m_pieces.back().from);
        piece.startIntegral = end.integral;
        piece.startPosition = end.position;
        piece.startVelocity = end.velocity;
    }
    m_pieces.push_back(piece);
}

NormalisedLaw::Values NormalisedLaw::evaluate(const Piece &p, double tau)
{
    const double angle = p.omega * tau + p.phase;
    const double s = std::sin(angle);
    const double c = std::cos(angle);
    const double a = p.amplitude / p.omega;
    const double a2 = a / p.omega;
    const double a3 = a2 / p.omega;
    const double tau2 = tau * tau;
    Values v;
    v.jerk = p.amplitude * p.omega * c;
    v.acceleration = p.constant + p.amplitude * s;
    v.velocity = p.startVelocity + p.constant * tau + a * (p.cosPhase - c);
    v.position = p.startPosition + p.startVelocity * tau + p.constant * tau2 / 2.0 + a * p.cosPhase * tau
        - a2 * (s - p.sinPhase);
    v.integral = p.startIntegral + p.startPosition * tau + p.startVelocity * tau2 / 2.0
        + p.constant * tau2 * tau / 6.0 + a * p.cosPhase * tau2 / 2.0 + a2 * p.sinPhase * tau + a3 * (c - p.cosPhase);
    return v;
}

NormalisedLaw::Values NormalisedLaw::at(double u) const
{
    std::size_t i = m_pieces.size() - 1;
    while (i > 0 && u < m_pieces[i].from)
        --i;
    return evaluate(m_pieces[i], u - m_pieces[i].from);
}
