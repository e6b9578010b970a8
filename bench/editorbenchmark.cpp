// The editor as a user meets it, on a cam of 16000 calculated grid points
// with a 16000-point table stored in the drive: opening the window from the
// host's button, and one point edit until every open view has repainted,
// against the same edit with no view open.

#include "camdesigner/camdescriptionimplementation.h"
#include "camdesigner/camdesigner.h"
#include "camdesigner/camdesignerimplementation.h"
#include "camdesigner/controller.h"
#include "commands/editmotionpointcommand.h"
#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "parameters/parametermodelimplementation.h"
#include "views/camdesignerviewimplementation.h"

#include "simulateddrive.h"
#include "widgetbenchmarkmain.h"

#include <QAbstractButton>
#include <QApplication>
#include <QJsonArray>

#include <benchmark/benchmark.h>

#include <memory>

namespace {

constexpr int PointCount = 100;
constexpr int LivingSpace = 1;

// A designer on a drive whose table already holds the full calculated table.
struct Editor {
    MxSimulation::SimulatedDrive drive { 2 };
    std::unique_ptr<CamDescription> description;
    std::unique_ptr<CamDesigner> designer;
    std::unique_ptr<QWidget> button;

    Editor()
    {
        QJsonArray points;
        for (int i = 0; i < PointCount; ++i)
            points.append(QJsonArray { i * 3.6, (i * 37) % 100, MotionPoint::typeDataName(i % 4) });
        const QJsonObject cam { { "MotionPoints", points },
                                { "Steps", QJsonObject { { "dynamicSteps", MotionPlan::MaximumGridPoints } } } };
        description.reset(CamDescription::createCamDescription(nullptr, QByteArray()));
        description->fromJson(cam);
        designer.reset(CamDesigner::createCamDesigner(nullptr, 5));
        designer->initialize(&drive, LivingSpace, description.get());
        implementation()->parameterModel()->writeGridPoints(editorModel()->motionPlan()->positions());
        button.reset(CamDesigner::openCamDesignerButton(designer.get()));
        button->show();
        QApplication::processEvents();
    }
    CamDesignerImplementation *implementation() const { return static_cast<CamDesignerImplementation *>(designer.get()); }
    CamEditorModel *editorModel() const { return implementation()->editorModel(); }
    void click() const { static_cast<QAbstractButton *>(button.get())->click(); }
};

void openEditor(benchmark::State &state)
{
    Editor editor;
    for (auto _ : state) {
        editor.click();
        QApplication::processEvents();
        state.PauseTiming();
        editor.implementation()->view()->close();
        QApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
    state.counters["gridPoints"] = double(editor.editorModel()->motionPlan()->positions().size());
    state.counters["stored"] = double(editor.implementation()->parameterModel()->storedGridPointCount());
}

// range(0): 1 with the editor window and the button open, 0 with neither.
void editPoint(benchmark::State &state)
{
    Editor editor;
    if (state.range(0) == 0)
        editor.button.reset();
    else
        editor.click();
    QApplication::processEvents();
    CamDescriptionImplementation *description = editor.editorModel()->camDescription();
    Controller stack;
    stack.setUndoLimit(10);
    MotionPoint *point = description->pointAt(50 * 3.6);
    bool up = false;
    for (auto _ : state) {
        up = !up;
        stack.push(new EditMotionPointCommand(point, MotionPoint(point->master(), up ? 10.0 : 12.0,
                                                                 MotionPoint::movementRules(point->type())),
                                              editor.editorModel()->scaling()));
        // Until the views have repainted.
        QApplication::processEvents();
    }
}

} // namespace

BENCHMARK(openEditor)->Unit(benchmark::kMillisecond);
BENCHMARK(editPoint)->ArgName("viewsOpen")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    return runWidgetBenchmarks(argc, argv);
}
