#pragma once

#include "motionpointvalues.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QVector>

#include <optional>

class CamDescriptionImplementation;
class MotionLaw;
class MotionPlan;
class MotionPoint;
class ParameterModel;
class Scaling;
class ScalingImplementation;
class Steps;

// Follows one cam description and keeps a motion plan of its current data:
// every change of points, law, cyclic flag, circular length or steps throws
// the plan away, builds one of the class the law calls for and samples it.
// Listeners re-read the plan on changed().
//
// For views: the plan is replaced as a whole on every rebuild (motionPlanRebuilt()
// follows each one, also those that changed() does not follow, such as a point
// dragged in a plot), and motion points come and go with edits and loads. So a
// view re-reads motionPlan() and the points whenever it draws and never keeps a
// MotionPlan* or MotionPoint* across events: it keeps a QPointer, or a point's
// master position as its key. A load of the description rebuilds once, at its
// end, and changed() follows once for it.
class CamEditorModel : public QObject
{
    Q_OBJECT
public:
    // The master axis of a cam without points ends here.
    static constexpr double DefaultMasterEnd = 1.0;

    CamEditorModel(QObject *parent, ParameterModel *parameterModel, CamDescriptionImplementation *camDescription);
    ~CamEditorModel() override;

    void beginCoarseSteps();
    void endCoarseSteps();
    bool isCoarseSteps() const { return m_coarseSteps; }

    double masterEnd() const;
    bool tooManyGridPoints() const;

    CamDescriptionImplementation *camDescription() const;
    MotionLaw *motionLaw() const;
    QList<MotionPoint *> motionPoints() const;
    Steps *steps() const;
    // None while a load replaces the points: the plan still points at the
    // points being deleted until it is built again at the load's end.
    MotionPlan *motionPlan() const { return m_pointsReplaced ? nullptr : m_motionPlan; }
    Scaling *scaling() const;

    // The points by row, ascending master, for item models; the row
    // notifications are the description's (pointsInserted() and the others).
    int motionPointCount() const;
    MotionPoint *motionPointAt(int row) const;
    int rowOfMotionPoint(const MotionPoint *point) const;

signals:
    void changed();
    // A new plan has been built and sampled.
    void motionPlanRebuilt();

public slots:
    void update();
    void calculateNewMotionPlan();
    void createNewMotionPlan();

private:
    // What the current plan was built and sampled from. A change signal that
    // brings nothing new (the description's changed() after a point edit
    // that motionPointChanged() has already rebuilt for, or after the law's
    // own signal) then costs no second plan.
    struct PlanInputs {
        struct Point {
            const MotionPoint *point;
            // The section it starts shapes the curve as much as the position.
            MotionPointValues values;
            bool operator==(const Point &other) const
            {
                return point == other.point && values == other.values;
            }
        };
        // How the plan was sampled; none while it is built but not sampled.
        struct Sampling {
            bool coarse = false;
            bool dynamic = false;
            int resolution = 0;
            double staticStep = 0.0;
            int decimals = 0;
            bool operator==(const Sampling &other) const;
        };
        QVector<Point> points;
        int law = -1;
        bool cyclic = false;
        double circularLength = 0.0;
        std::optional<Sampling> sampling;
        bool operator==(const PlanInputs &other) const;
    };
    PlanInputs currentInputs(bool coarse) const;
    PlanInputs::Sampling currentSampling(bool coarse) const;
    void sample(bool coarse);
    bool waitsForBulkChange();
    void onBulkChangeFinished();

    ScalingImplementation *m_scaling;
    MotionPlan *m_motionPlan = nullptr;
    bool m_pointsReplaced = false;
    QPointer<CamDescriptionImplementation> m_camDescription;
    bool m_coarseSteps = false;
    // A rebuild asked for during a bulk change, done once at its end.
    bool m_rebuildPending = false;
    PlanInputs m_planInputs;
};
