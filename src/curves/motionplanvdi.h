#pragma once

#include "ascendingsearch.h"
#include "motionplan.h"
#include "straightstretches.h"

#include <QList>

#include <vector>

class CamSection;
class CamSectionFifthPolynomial;

// The segment motion law: one section per pair of neighbouring motion points,
// with position, velocity and acceleration fixed at both ends by the points'
// segment types. The section follows the law its start point asks for; the
// fifth-degree polynomial is always built, since its boundary values are
// what the neighbouring sections meet, and evaluates where the law is Poly5
// or does not apply.
class MotionPlanVdi : public MotionPlan
{
    Q_OBJECT
public:
    MotionPlanVdi(QList<MotionPoint *> motionPoints, bool cyclic, double circularLength, QObject *parent,
                  Scaling *scaling);
    ~MotionPlanVdi() override;

    double position(double master) const override;
    double velocity(double master) const override;
    double acceleration(double master) const override;
    double jerk(double master) const override;

    QList<CamSectionFifthPolynomial *> sections() const { return m_sections; }
    // The section that evaluates between point i and i + 1, the law its
    // start point asks for and the law applied (Poly5 where a normalised law
    // meets a non-zero boundary acceleration).
    const CamSection *evaluatingSection(int i) const { return m_evaluators.at(i); }
    int askedLaw(int i) const { return m_askedLaws.at(std::size_t(i)); }
    int appliedLaw(int i) const { return m_appliedLaws.at(std::size_t(i)); }

protected:
    MasterInterval straightStretch(double master) const override;

private:
    using Evaluation = double (CamSection::*)(double) const;

    void setStartConditions(int index);
    void endConditions(int index, double *velocity, double *halfAcceleration) const;
    void setEndCoefficients(int index);
    void applySectionLaw(int index);
    bool containingSections(double master, int *first, int *last) const;
    double evaluate(double master, Evaluation evaluation, bool zeroWins) const;
    void findStraightStretches();

    QList<CamSectionFifthPolynomial *> m_sections;
    QList<const CamSection *> m_evaluators;
    std::vector<int> m_askedLaws;
    std::vector<int> m_appliedLaws;
    bool m_cyclic;
    // The section boundaries as built. When they ascend, the sections that
    // contain a position are found by binary search.
    std::vector<double> m_boundaries;
    bool m_ascending = false;
    AscendingSearch m_search;
    // Per section: the closed interval of the straight stretch it belongs to,
    // empty (first > second) for a bending section.
    std::vector<MasterInterval> m_straightStretches;
};
