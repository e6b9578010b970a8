#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

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
class CamEditorModel : public QObject
{
    Q_OBJECT
public:
    // While a point is dragged the curve is sampled in this many steps over
    // the master range, whatever the step settings say.
    static constexpr double CoarseStepCount = 500.0;
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
    MotionPlan *motionPlan() const { return m_motionPlan; }
    Scaling *scaling() const;

signals:
    void changed();

public slots:
    void update();
    void calculateNewMotionPlan();
    void applySteps();
    void setRealSteps();
    void createNewMotionPlan();

private:
    void sample(bool coarse);

    ScalingImplementation *m_scaling;
    MotionPlan *m_motionPlan = nullptr;
    QPointer<CamDescriptionImplementation> m_camDescription;
    bool m_coarseSteps = false;
};
