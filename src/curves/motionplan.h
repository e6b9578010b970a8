#pragma once

#include "straightstretches.h"

#include <QList>
#include <QObject>
#include <QPolygonF>

#include <cstddef>
#include <memory>
#include <vector>

class MotionPoint;
class Scaling;

// The curve of one set of motion points and its sampling into grid points.
// Subclasses supply the motion law (the four evaluations); this class owns
// the cyclic closing point, the master range, the choice of grid point
// positions and the result lists. A plan is built for one set of points and
// thrown away when they change.
class MotionPlan : public QObject
{
    Q_OBJECT
public:
    // Grid points and motion points together never exceed this count.
    static constexpr int MaximumGridPoints = 16000;

    MotionPlan(QList<MotionPoint *> motionPoints, bool cyclic, double circularLength, QObject *parent,
               Scaling *scaling);
    ~MotionPlan() override;

    virtual double position(double master) const = 0;
    virtual double velocity(double master) const = 0;
    virtual double acceleration(double master) const = 0;
    virtual double jerk(double master) const = 0;

    void calculate(double stepSize);
    void calculateWithResolution(int gridPointCount);

    double minimumStepSize() const;
    double masterRange() const;
    double maximumMasterPosition() const;

    QList<MotionPoint *> motionPoints() const { return m_motionPoints; }
    QPolygonF positions() const { return m_positions; }
    QPolygonF velocities() const { return m_velocities; }
    QPolygonF accelerations() const { return m_accelerations; }
    QPolygonF jerks() const { return m_jerks; }

    // The difference rule of a point list, the one home of it: each point but
    // the last gets the slope to its successor.
    static QPolygonF differenceQuotient(const QPolygonF &points);

    bool isCyclic() const { return m_cyclic; }
    double circularLength() const { return m_circularLength; }
    Scaling *scaling() const { return m_scaling; }

signals:
    void stepSizeChanged();

protected:
    // A closed master interval around the given position on which
    // acceleration() is exactly 0.0 for every argument, or an empty interval
    // (first > second) when the law cannot tell. Only used to pass over
    // straight stretches quickly; it never changes a result.
    virtual MasterInterval straightStretch(double master) const;

private:
    enum class Curvature { Straight, NearMotionPoint, Bends };

    int decimalPlaces() const;
    double positionResolution() const;
    std::vector<double> sortedMotionPointMasters() const;
    Curvature curvature(double master, double stepSize, const std::vector<double> &sortedMasters,
                        std::size_t above) const;
    std::vector<double> stepPositions(double stepSize, const std::vector<double> &sortedMasters) const;
    QPolygonF gridPoints(const std::vector<double> &sortedPositions) const;
    QPolygonF sample(double stepSize, const std::vector<double> &sortedMasters) const;

    Scaling *m_scaling;
    bool m_cyclic;
    double m_circularLength;
    QPolygonF m_positions;
    QPolygonF m_velocities;
    QPolygonF m_accelerations;
    QPolygonF m_jerks;
    QList<MotionPoint *> m_motionPoints;
    std::unique_ptr<MotionPoint> m_closingPoint;
};
