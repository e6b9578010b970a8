#pragma once

#include "ascendingsearch.h"
#include "motionplan.h"
#include "straightstretches.h"

#include <QList>

#include <vector>

class CamSectionFifthPolynomial;

// The segment motion law: one fifth-degree polynomial section per pair of
// neighbouring motion points, with position, velocity and acceleration fixed
// at both ends by the points' segment types.
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

protected:
    MasterInterval straightStretch(double master) const override;

private:
    using Evaluation = double (CamSectionFifthPolynomial::*)(double) const;

    void setStartConditions(int index);
    void setEndCoefficients(int index);
    bool containingSections(double master, int *first, int *last) const;
    double evaluate(double master, Evaluation evaluation, bool zeroWins) const;
    void findStraightStretches();

    QList<CamSectionFifthPolynomial *> m_sections;
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
