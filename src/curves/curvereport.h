#pragma once

#include "curvepolynomial.h"

#include <QPolygonF>

#include <array>
#include <vector>

class CamSection;
class MotionPlan;

// A value of largest magnitude (signed) and the master position where it occurs.
struct CurveExtreme {
    double value = 0.0;
    double master = 0.0;
};

// One section of the curve, from motion point i to i + 1.
struct CurveSectionReport {
    double start = 0.0;
    double end = 0.0;
    double stroke = 0.0;
    // Segment types at both ends (VDI law); NoSegmentType for the spline.
    int startType = 0;
    int endType = 0;
    // The section law its start point asks for and the one applied
    // (MotionPoint::SectionLaw); NoSegmentType for the spline.
    int law = 0;
    int lawApplied = 0;
    CurveExtreme velocity;
    CurveExtreme acceleration;
    CurveExtreme jerk;
    // Dimensionless coefficients vmax·T/|h|, amax·T²/|h|, jmax·T³/|h|; NaN
    // for a section without stroke.
    double cv = 0.0;
    double ca = 0.0;
    double cj = 0.0;
    // Largest deviation of the linear interpolation between the grid points
    // from the exact curve (exact minus interpolated) inside this section.
    CurveExtreme samplingError;
};

// Where two sections meet; the seam of a cyclic cam joins the last section's
// end with the first one's start.
struct CurveJointReport {
    double master = 0.0;
    bool seam = false;
    // Right-hand value minus left-hand value of position and its derivatives.
    std::array<double, 4> jumps {};
    // Continuous up to this derivative: -1 not even in position, 0 position,
    // 1 velocity, 2 acceleration, 3 jerk.
    int continuity = -1;
};

// The figures of a curve computed from its plan's exact sections: extremes
// per section, continuity at the joints, and the error of the drive's linear
// interpolation between grid points.
class CurveReport
{
public:
    static constexpr int NoSegmentType = -1;
    static constexpr int DerivativeCount = 4;
    // A jump counts as continuous within this share of the largest magnitude
    // of that derivative over the whole cam (rounding of the coefficients
    // grows with the curve's own scale), but never below the floor, so that a
    // derivative that is zero everywhere still compares sensibly.
    static constexpr double RelativeTolerance = 1e-9;
    static constexpr double ToleranceFloor = 1e-12;

    // The plan's sections, and the error of its own grid points.
    explicit CurveReport(const MotionPlan &plan);
    // The same with other grid points (ascending master positions).
    CurveReport(const MotionPlan &plan, const QPolygonF &gridPoints);

    int motionLaw() const { return m_motionLaw; }
    bool isCyclic() const { return m_cyclic; }
    const std::vector<CurveSectionReport> &sections() const { return m_sections; }
    const std::vector<CurveJointReport> &joints() const { return m_joints; }
    // The largest magnitude of position, velocity, acceleration and jerk over the cam.
    const std::array<double, 4> &scale() const { return m_scale; }
    double tolerance(int derivative) const;
    // The largest interpolation error over the whole cam.
    CurveExtreme samplingError() const { return m_samplingError; }
    int gridPointCount() const { return m_gridPointCount; }

    // The largest interpolation error of other grid points of the same curve.
    CurveExtreme samplingErrorOf(const QPolygonF &gridPoints) const;

private:
    struct Piece {
        double start;
        double end;
        // Position and its derivatives up to the fourth.
        std::array<CurvePolynomial, DerivativeCount + 1> derivatives;
        // Roots inside the piece (t from 0 to its length) of derivative k + 1,
        // the bounds of the monotone runs of derivative k.
        std::array<std::vector<double>, DerivativeCount> roots;
        // A section that is no polynomial (a normalised law) evaluates itself;
        // its extremes are searched, not solved. Null for polynomial pieces.
        const CamSection *section = nullptr;
        // Where a searched section's derivatives may jump (its inflection).
        double kink = 0.0;
    };
    static double value(const Piece &piece, int derivative, double t);
    static CurvePolynomial::Extreme searchedExtreme(const Piece &piece, int derivative, double from, double to);
    static Piece piece(double start, double end, const CurvePolynomial &position);
    static std::vector<Piece> pieces(const MotionPlan &plan, int *law);
    static CurveExtreme deviation(const std::vector<Piece> &pieces, const QPolygonF &gridPoints,
                                  std::vector<CurveExtreme> *perPiece);
    void describeSections(const MotionPlan &plan);
    void describeJoints();

    int m_motionLaw = 0;
    bool m_cyclic = false;
    std::vector<Piece> m_pieces;
    std::vector<CurveSectionReport> m_sections;
    std::vector<CurveJointReport> m_joints;
    std::array<double, 4> m_scale {};
    CurveExtreme m_samplingError;
    int m_gridPointCount = 0;
};
