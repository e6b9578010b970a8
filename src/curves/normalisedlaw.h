#pragma once

#include <vector>

// A rest-in-rest motion law on 0 <= u <= 1 with f(0) = 0 and f(1) = 1: cycloid,
// harmonic, modified sine or modified trapezoid. Each is written as pieces of
// acceleration C + A·sin(ω·τ + φ), τ the distance from the piece's start, and
// velocity, position and the integral of the position are the exact integrals
// of that form; each piece starts where the one before ends.
class NormalisedLaw
{
public:
    // law: MotionPoint::Cycloid, Harmonic, ModifiedSine or ModifiedTrapezoid;
    // any other law gives the cycloid.
    explicit NormalisedLaw(int law);

    struct Values {
        double integral = 0.0; // F(u), the integral of f from 0
        double position = 0.0; // f(u)
        double velocity = 0.0; // f'(u)
        double acceleration = 0.0;
        double jerk = 0.0;
    };
    Values at(double u) const;

private:
    struct Piece {
        double from;
        double constant;
        double amplitude;
        double omega;
        double phase;
        double sinPhase;
        double cosPhase;
        double startIntegral;
        double startPosition;
        double startVelocity;
    };
    void addPiece(double from, double constant, double amplitude, double omega, double phase);
    static Values evaluate(const Piece &piece, double tau);

    std::vector<Piece> m_pieces;
};
