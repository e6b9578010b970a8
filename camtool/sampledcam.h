#pragma once

#include <QString>
#include <QStringList>

#include <memory>

class CamDescriptionImplementation;
class FixedScaling;
class MotionPlan;
class Steps;

namespace CamTool {

// The verbs that sample the curve of one cam file ("report", "sample") share
// their options (--decimals, --static, --dynamic), their checks, the loading
// of the file and the sampling; only what they print differs.
class SampledCam
{
public:
    // The verb's own wording of its help.
    struct HelpTexts {
        QString description;
        QString decimals;
        QString staticStep;
        QString dynamicResolution;
    };

    SampledCam();
    ~SampledCam();
    SampledCam(const SampledCam &) = delete;
    SampledCam &operator=(const SampledCam &) = delete;

    // Parses and checks the arguments, loads FILE and samples its plan as the
    // editor does, with the chosen steps in place of the file's. Returns -1
    // when the verb is to go on, otherwise the exit code (the reason printed).
    int load(const QStringList &arguments, const HelpTexts &texts);

    const CamDescriptionImplementation &description() const { return *m_description; }
    MotionPlan &plan() const { return *m_plan; }
    // The steps the plan was sampled with: the chosen ones or the file's.
    const Steps &steps() const;

private:
    std::unique_ptr<CamDescriptionImplementation> m_description;
    std::unique_ptr<Steps> m_chosenSteps;
    std::unique_ptr<FixedScaling> m_scaling;
    std::unique_ptr<MotionPlan> m_plan;
    bool m_stepsChosen = false;
};

} // namespace CamTool
