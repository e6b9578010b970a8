#include "camsectionlaw.h"

#include "model/motionpoint.h"

CamSectionLaw::CamSectionLaw(QObject *parent, int law, const Boundary &b, double inflection)
    : CamSection(parent)
    , m_law(law)
    , m_start(b.start)
    , m_end(b.end)
    , m_length(b.end - b.start)
    , m_startPosition(b.startPosition)
    , m_startVelocity(b.startVelocity)
    , m_velocityChange(b.endVelocity - b.startVelocity)
    , m_stroke(b.endPosition - b.startPosition)
    , m_inflection(MotionPoint::validInflection(inflection))
    , m_normalised(law)
{
    const double T = m_length;
    if (law == MotionPoint::Line) {
        m_t[0] = b.startPosition;
        m_t[1] = m_stroke / T;
    } else if (law == MotionPoint::Poly7) {
        // In u = t / T: c0..c3 from the start, c4..c7 so that position,
        // velocity and acceleration meet the end and the jerk is zero at both.
        std::array<double, 8> c {};
        c[0] = b.startPosition;
        c[1] = b.startVelocity * T;
        c[2] = b.startAcceleration * T * T / 2.0;
        const double r0 = b.endPosition - c[0] - c[1] - c[2];
        const double r1 = b.endVelocity * T - c[1] - 2.0 * c[2];
        const double r2 = b.endAcceleration * T * T - 2.0 * c[2];
        c[4] = 35.0 * r0 - 15.0 * r1 + 2.5 * r2;
        c[5] = -84.0 * r0 + 39.0 * r1 - 7.0 * r2;
        c[6] = 70.0 * r0 - 34.0 * r1 + 6.5 * r2;
        c[7] = -20.0 * r0 + 10.0 * r1 - 2.0 * r2;
        double scale = 1.0;
        for (std::size_t k = 0; k < c.size(); ++k) {
            m_t[k] = c[k] / scale;
            scale *= T;
        }
    } else {
        m_integralAtInflection = m_normalised.at(0.5).integral;
        // The share of the stroke that the boundary velocities leave to g:
        // y = y0 + v0·T·u + (v1 - v0)·T·G(u) + rest·g(u).
        const double g1 = inflected(1.0).integral;
        m_stroke = m_stroke - m_startVelocity * T - m_velocityChange * T * g1;
    }
}

CamSectionLaw::~CamSectionLaw() = default;

bool CamSectionLaw::contains(double master) const
{
    return m_start <= master && master <= m_end;
}

bool CamSectionLaw::polynomial(std::array<double, 8> *coefficients) const
{
    if (m_law != MotionPoint::Line && m_law != MotionPoint::Poly7)
        return false;
    *coefficients = m_t;
    return true;
}

// The inflection λ stretches the first half of f over [0, λ] and the second
// over [λ, 1]: g(u) = 2λ·f(u/2λ) below λ, λ + 2(1-λ)·(f(1/2 + (u-λ)/2(1-λ)) - 1/2)
// above. Its integral G follows piece by piece.
NormalisedLaw::Values CamSectionLaw::inflected(double u) const
{
    const double lambda = m_inflection;
    NormalisedLaw::Values g;
    if (u <= lambda) {
        const double width = 2.0 * lambda;
        const NormalisedLaw::Values f = m_normalised.at(u / width);
        g.integral = width * width * f.integral;
        g.position = width * f.position;
        g.velocity = f.velocity;
        g.acceleration = f.acceleration / width;
        g.jerk = f.jerk / (width * width);
        return g;
    }
    const double width = 2.0 * (1.0 - lambda);
    const double w = 0.5 + (u - lambda) / width;
    const NormalisedLaw::Values f = m_normalised.at(w);
    g.integral = 4.0 * lambda * lambda * m_integralAtInflection + lambda * (u - lambda)
        + width * width * (f.integral - m_integralAtInflection - 0.5 * (w - 0.5));
    g.position = lambda + width * (f.position - 0.5);
    g.velocity = f.velocity;
    g.acceleration = f.acceleration / width;
    g.jerk = f.jerk / (width * width);
    return g;
}

// Position and derivatives up to the highest asked for, by master.
std::array<double, 4> CamSectionLaw::derivatives(double master, int highest) const
{
    std::array<double, 4> d {};
    const double t = master - m_start;
    const double T = m_length;
    if (m_law == MotionPoint::Line || m_law == MotionPoint::Poly7) {
        for (int k = 0; k <= highest; ++k) {
            double value = 0.0;
            for (int power = 7; power >= k; --power) {
                double factor = 1.0;
                for (int j = 0; j < k; ++j)
                    factor *= double(power - j);
                value = value * t + factor * m_t[std::size_t(power)];
            }
            d[std::size_t(k)] = value;
        }
        if (m_law == MotionPoint::Line)
            d[0] = m_startPosition + m_stroke * (t / T);
        return d;
    }
    const double u = t / T;
    const NormalisedLaw::Values g = inflected(u);
    d[0] = m_startPosition + m_startVelocity * T * u + m_velocityChange * T * g.integral + m_stroke * g.position;
    d[1] = m_startVelocity + m_velocityChange * g.position + m_stroke * g.velocity / T;
    d[2] = m_velocityChange * g.velocity / T + m_stroke * g.acceleration / (T * T);
    d[3] = m_velocityChange * g.acceleration / (T * T) + m_stroke * g.jerk / (T * T * T);
    return d;
}

double CamSectionLaw::position(double master) const
{
    return derivatives(master, 0)[0];
}

double CamSectionLaw::velocity(double master) const
{
    return derivatives(master, 1)[1];
}

double CamSectionLaw::acceleration(double master) const
{
    return derivatives(master, 2)[2];
}

double CamSectionLaw::jerk(double master) const
{
    return derivatives(master, 3)[3];
}
