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
#include "plots/curveplotstack.h"
#include "plots/measuringtool.h"
#include "views/camdesignerviewimplementation.h"

#include "simulateddrive.h"
#include "widgetbenchmarkmain.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
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

// One step of a drag on the position plot of a 100-point cam: the mouse
// moves, the model samples coarsely, the visible plots are replotted.
void dragStep(benchmark::State &state)
{
    Editor editor;
    editor.click();
    CamDesignerViewImplementation *window = editor.implementation()->view();
    window->resize(1400, 900);
    QApplication::processEvents();
    CurvePlot *plot = window->plots()->plot(CurvePlot::Position);
    QWidget *canvas = plot->canvas();
    const MotionPoint *point = editor.editorModel()->motionPointAt(50);
    const QPoint start(int(plot->transform(QwtPlot::xBottom, point->master())),
                       int(plot->transform(QwtPlot::yLeft, point->slave())));
    QMouseEvent press(QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(canvas, &press);
    int offset = 0;
    for (auto _ : state) {
        offset = (offset + 1) % 20;
        QMouseEvent move(QEvent::MouseMove, start + QPoint(0, offset - 10), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(canvas, &move);
        QApplication::processEvents();
    }
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(canvas, &escape);
    state.counters["gridPoints"] = double(editor.editorModel()->motionPlan()->positions().size());
}

// One step of a measuring cursor drag on 16000 calculated and stored
// points. range(0): 0 the cursor and the box of values only, 1 until the
// plots have been redrawn as well.
void measuringStep(benchmark::State &state)
{
    Editor editor;
    editor.click();
    CamDesignerViewImplementation *window = editor.implementation()->view();
    window->resize(1400, 900);
    QApplication::processEvents();
    window->plots()->measuringTool()->setActive(true);
    CurvePlot *plot = window->plots()->plot(CurvePlot::Velocity);
    QWidget *canvas = plot->canvas();
    const QPoint start(canvas->width() / 3, canvas->height() / 2);
    QMouseEvent press(QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(canvas, &press);
    QApplication::processEvents();
    int offset = 0;
    for (auto _ : state) {
        offset = (offset + 1) % 20;
        QMouseEvent move(QEvent::MouseMove, start + QPoint(offset, 0), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(canvas, &move);
        if (state.range(0) == 1)
            QApplication::processEvents();
    }
    QApplication::processEvents();
    QMouseEvent release(QEvent::MouseButtonRelease, start, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(canvas, &release);
    state.counters["gridPoints"] = double(editor.editorModel()->motionPlan()->positions().size());
}

// The four plots replotted on 16000 calculated and 16000 stored points.
void replotAll(benchmark::State &state)
{
    Editor editor;
    editor.click();
    CamDesignerViewImplementation *window = editor.implementation()->view();
    window->resize(1400, 900);
    window->plots()->setPlotVisible(CurvePlot::Jerk, true);
    QApplication::processEvents();
    for (auto _ : state) {
        for (int quantity = 0; quantity < CurvePlot::QuantityCount; ++quantity) {
            CurvePlot *plot = window->plots()->plot(CurvePlot::Quantity(quantity));
            plot->replot();
            plot->repaint();
        }
    }
}

} // namespace

BENCHMARK(dragStep)->Unit(benchmark::kMillisecond);
BENCHMARK(replotAll)->Unit(benchmark::kMillisecond);
BENCHMARK(measuringStep)->ArgName("redrawn")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(openEditor)->Unit(benchmark::kMillisecond);
BENCHMARK(editPoint)->ArgName("viewsOpen")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    return runWidgetBenchmarks(argc, argv);
}
