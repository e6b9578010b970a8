#include "editorfixture.h"
#include "testfiles.h"

#include "commands/changemotionlawcommand.h"
#include "model/motionlaw.h"
#include "model/steps.h"
#include "commands/editmotionpointcommand.h"
#include "plots/curveplotstack.h"
#include "plots/densecurve.h"

#include <QMap>

#include <qwt_plot_curve.h>
#include <qwt_scale_map.h>

#include <algorithm>
#include <cmath>

namespace {

// The samples of a plot curve, to compare with the model's lists.
QPolygonF samplesOf(const QwtPlotCurve *curve)
{
    QPolygonF points;
    for (size_t i = 0; i < curve->dataSize(); ++i)
        points.append(curve->sample(int(i)));
    return points;
}

} // namespace

class tst_CurvePlots : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { QCOMPARE(QApplication::topLevelWidgets().size(), 0); }
    void plotsHoldTheModelsLists();
    void exportWritesOnePlot();
    void denseLineKeepsEachColumnsSpan_data();
    void denseLineKeepsEachColumnsSpan();
    void storedCurveKeepsItsPicture();
};

// Calculated and stored lists of every quantity, after a write, an undo, a
// load and a law switch. (The plot actions: the window's layout test.)
void tst_CurvePlots::plotsHoldTheModelsLists()
{
    EditorFixture editor;
    CamDesignerViewImplementation *window = editor.open();
    CurvePlotStack *plots = window->plots();
    CamEditorModel *model = editor.model();
    ParameterModelImplementation *parameters = editor.parameters();
    const auto check = [&] {
        const MotionPlan *plan = model->motionPlan();
        const QPolygonF stored[] = { parameters->storedGridPoints(), parameters->storedVelocities(),
                                     parameters->storedAccelerations(), parameters->storedJerks() };
        // The position as sampled; the derivatives as the plan evaluates them
        // (at the pixel columns), in a visible plot.
        QCOMPARE(samplesOf(plots->plot(CurvePlot::Position)->calculatedCurve()), plan->positions());
        using Evaluation = double (MotionPlan::*)(double) const;
        const Evaluation exact[] = { &MotionPlan::position, &MotionPlan::velocity, &MotionPlan::acceleration,
                                     &MotionPlan::jerk };
        for (int quantity = 0; quantity < CurvePlot::QuantityCount; ++quantity) {
            const CurvePlot *plot = plots->plot(CurvePlot::Quantity(quantity));
            const QPolygonF shown = samplesOf(plot->calculatedCurve());
            QCOMPARE(shown.isEmpty(), plot->isHidden());
            QVERIFY(quantity == CurvePlot::Position || shown.isEmpty() || shown.size() >= plot->canvas()->width());
            for (const QPointF &point : shown)
                QCOMPARE(point.y(), (plan->*exact[quantity])(point.x()) * plots->valueFactor(quantity));
            QCOMPARE(samplesOf(plot->storedCurve()), stored[quantity]);
        }
        QCOMPARE(int(plots->markers(MotionPoint::rest)->dataSize() + plots->markers(MotionPoint::speed)->dataSize()
                     + plots->markers(-1)->dataSize()),
                 model->motionPointCount());
    };
    // A coarse static step: still the plan's derivatives at every pixel
    // column, not the grid's difference quotients, with a spike at a joint.
    editor.camDescription()->steps()->setIsDynamicStepSize(false);
    editor.camDescription()->steps()->setStaticStepSize(7.0);
    check();
    // Drawn once (the axes report their range back), then a shorter cam:
    // the master axis follows it, as nobody zoomed.
    plots->replotNow();
    CurvePlot *position = plots->plot(CurvePlot::Position);
    const auto shownEnd = [&] {
        plots->replotNow();
        return position->axisInterval(QwtPlot::xBottom).maxValue();
    };
    editor.description->loadWithUndo(parseJson(R"({"MotionPoints": [[0, 0], [50, 10], [100, 0]]})"), QStringLiteral("x"));
    check();
    QVERIFY(shownEnd() > 100.0 && shownEnd() < 110.0);
    parameters->writeGridPoints(model->motionPlan()->positions());
    QVERIFY(plots->plot(CurvePlot::Position)->storedCurve()->dataSize() > 2);
    check();
    // The whole curve is both curves: the stored table reaches further.
    editor.description->loadWithUndo(parseJson(R"({"MotionPoints": [[0, 0], [50, 10]]})"), QStringLiteral("y"));
    QVERIFY(shownEnd() > 100.0);
    window->undoStack()->undo();
    window->undoStack()->undo();
    window->undoStack()->push(new ChangeMotionLawCommand(editor.camDescription()->motionLaw(), MotionLaw::Spline));
    check();
    // Under the spline the segment types do not apply: one plain symbol.
    QCOMPARE(int(plots->markers(-1)->dataSize()), 3);

    // The tracker names each visible curve's value under the mouse.
    CurvePlot *velocity = plots->plot(CurvePlot::Velocity);
    const QString tracked = velocity->trackerText(45.0);
    QVERIFY(tracked.contains(QString::number(CurvePlot::valueAt(velocity->calculatedCurve(), 45.0), 'f', 3)));

    // Zoom on one plot is zoom on all, kept across changes until the whole
    // curve is asked for again.
    velocity->setAxisScale(QwtPlot::xBottom, 10.0, 20.0);
    velocity->replot();
    window->undoStack()->undo();
    plots->replotNow();
    QCOMPARE(plots->plot(CurvePlot::Acceleration)->axisInterval(QwtPlot::xBottom).minValue(), 10.0);
    plots->wholeCurveAction()->trigger();
    plots->replotNow();
    QVERIFY(plots->plot(CurvePlot::Acceleration)->axisInterval(QwtPlot::xBottom).maxValue() > 100.0);
}

// One plot alone; the whole stack in each format, and a refused path: the
// camtool test's plot verb.
void tst_CurvePlots::exportWritesOnePlot()
{
    EditorFixture editor;
    CamDesignerViewImplementation *window = editor.open();
    QTemporaryDir directory;
    const QString single = directory.filePath(QStringLiteral("position.png"));
    QVERIFY(window->plots()->exportTo(single, QSize(800, 300), CurvePlot::Position));
    QCOMPARE(readFile(single).left(4), QByteArray("\x89PNG"));
}

QTEST_MAIN(tst_CurvePlots)
#include "tst_curveplots.moc"

void tst_CurvePlots::denseLineKeepsEachColumnsSpan_data()
{
    QTest::addColumn<int>("samples");
    QTest::addColumn<double>("pixels");
    // 16000 samples on 600 pixels; and 1 % of them zoomed to the same width.
    QTest::newRow("whole table") << 16000 << 600.0;
    QTest::newRow("zoomed to 1 %") << 160 << 600.0;
}

// Against the pixel points Qwt itself draws (rounded, repeats dropped): every
// pixel column keeps its first and last point and its whole vertical span,
// and where a column holds one point (a zoom) every point is kept.
void tst_CurvePlots::denseLineKeepsEachColumnsSpan()
{
    QFETCH(int, samples);
    QFETCH(double, pixels);
    QVector<QPointF> points;
    for (int i = 0; i < samples; ++i)
        points.append(QPointF(i, 100.0 * std::sin(i * 0.37) + 30.0 * std::sin(i * 2.9)));
    DenseCurve curve;
    curve.setSamples(points);
    QwtScaleMap x;
    x.setScaleInterval(0.0, samples - 1);
    x.setPaintInterval(0.0, pixels);
    QwtScaleMap y;
    y.setScaleInterval(-150.0, 150.0);
    y.setPaintInterval(200.0, 0.0);
    QPolygonF drawn;
    for (const QPointF &point : points) {
        const QPointF pixel(std::round(x.transform(point.x())), std::round(y.transform(point.y())));
        if (drawn.isEmpty() || drawn.constLast() != pixel)
            drawn.append(pixel);
    }
    const QPolygonF thinned = curve.pixelPolyline(x, y, 0, samples - 1);
    if (drawn.size() <= pixels + 1) {
        QCOMPARE(thinned, drawn);
        return;
    }
    QVERIFY(thinned.size() <= 4 * (int(pixels) + 1));
    QCOMPARE(thinned.constFirst(), drawn.constFirst());
    QCOMPARE(thinned.constLast(), drawn.constLast());
    const auto spans = [](const QPolygonF &line) {
        QMap<double, QPair<double, double>> span;
        for (const QPointF &point : line) {
            auto found = span.find(point.x());
            if (found == span.end())
                span.insert(point.x(), { point.y(), point.y() });
            else
                *found = { std::min(found->first, point.y()), std::max(found->second, point.y()) };
        }
        return span;
    };
    QCOMPARE(spans(thinned), spans(drawn));
}

// The stored table is drawn once and then copied: an edit redraws only the
// calculated curve; a zoom or a new table draws it anew. (The line it
// draws: the thinned line's test above.)
void tst_CurvePlots::storedCurveKeepsItsPicture()
{
    EditorFixture editor;
    CamDesignerViewImplementation *window = editor.open();
    CamEditorModel *model = editor.model();
    editor.parameters()->writeGridPoints(model->motionPlan()->positions());
    CurvePlot *position = window->plots()->plot(CurvePlot::Position);
    auto *stored = static_cast<DenseCurve *>(position->storedCurve());
    QTRY_VERIFY(!window->plots()->isReplotPending());
    position->repaint();
    const int drawn = stored->pictureDrawCount();
    QVERIFY(drawn > 0);

    // Lower than the stored curve: the scales stay as they are.
    const QPolygonF before = samplesOf(position->calculatedCurve());
    MotionPoint *point = editor.camDescription()->pointAt(90);
    window->undoStack()->push(new EditMotionPointCommand(point, MotionPoint(90, 38, MotionPoint::speed), model->scaling()));
    QTRY_VERIFY(!window->plots()->isReplotPending());
    position->repaint();
    QVERIFY(samplesOf(position->calculatedCurve()) != before);
    QCOMPARE(stored->pictureDrawCount(), drawn);

    position->setAxisScale(QwtPlot::xBottom, 80.0, 100.0);
    position->replot();
    position->repaint();
    QCOMPARE(stored->pictureDrawCount(), drawn + 1);
    window->undoStack()->undo();
    editor.parameters()->writeGridPoints(model->motionPlan()->positions());
    QTRY_VERIFY(!window->plots()->isReplotPending());
    position->repaint();
    QCOMPARE(stored->pictureDrawCount(), drawn + 2);
}
