#include "editorfixture.h"
#include "messagecapture.h"

#include "camdesigner/controller.h"
#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "model/motionpoint.h"
#include "model/scaling.h"
#include "parameters/parametermodelimplementation.h"
#include "plots/curveplotstack.h"
#include "plots/measuringtool.h"
#include "plots/motionpointdragger.h"
#include "plots/pointinsertion.h"
#include "plots/sectionwarnings.h"
#include "views/curvereportview.h"
#include "views/motionplantreeeditor.h"
#include "views/motionpointediting.h"
#include "views/scalingview.h"

#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFile>
#include <QJsonDocument>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QStatusBar>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <qwt_plot_curve.h>
#include <qwt_plot_picker.h>
#include <qwt_scale_div.h>
#include <qwt_text.h>

#include <cmath>

namespace {

// The largest position change an insert on the curve may cause, as a share
// of the cam's stroke, on the cams below. The segment rules of the VDI law
// make a new point change its neighbours' boundary values, so a VDI cam
// moves by a few per cent; a spline by far less.
constexpr double InsertShareOfStroke = 0.1;

double largestChange(const QPolygonF &gridBefore, const MotionPlan &after)
{
    double largest = 0.0;
    for (const QPointF &point : gridBefore)
        largest = std::max(largest, std::abs(after.position(point.x()) - point.y()));
    return largest;
}

QPoint pixel(const CurvePlot *plot, double master, double slave)
{
    return QPoint(int(std::lround(plot->transform(QwtPlot::xBottom, master))),
                  int(std::lround(plot->transform(QwtPlot::yLeft, slave))));
}

void chooseFromContextMenu(QWidget *canvas, const QPoint &position, const QString &text)
{
    QTimer::singleShot(0, canvas, [text] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        for (QAction *action : menu->actions()) {
            if (action->text() == text && action->isEnabled())
                menu->setActiveAction(action);
        }
        QTest::keyClick(menu, menu->activeAction() ? Qt::Key_Return : Qt::Key_Escape);
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, position, canvas->mapToGlobal(position));
    QApplication::sendEvent(canvas, &event);
}

QByteArray example(const QString &name)
{
    QFile file(QStringLiteral(EXAMPLES_DIR "/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

struct Editor {
    QByteArray cam;
    EditorFixture editor;
    MessageCapture messages;
    CamDesignerViewImplementation *window;
    CurvePlotStack *plots;
    CurvePlot *position;
    CamEditorModel *model;
    QTreeView *tree;

    explicit Editor(const QByteArray &camText = QByteArray())
        : cam(camText)
        , editor(cam.isEmpty() ? R"({"MotionPoints": [[0, 0, "rest"], [90, 40, "speed"], [180, 0, "rest"]]})"
                               : cam.constData())
        , window(editor.open())
        , plots(window->plots())
        , position(plots->plot(CurvePlot::Position))
        , model(editor.implementation()->editorModel())
        , tree(window->motionPlanEditor()->pointTree())
    {
        window->resize(1280, 800);
        if (!QTest::qWaitForWindowExposed(window))
            qWarning("window not exposed");
        plots->replotNow();
    }
    ~Editor() { window->close(); }

    QString state() const
    {
        return QString::fromUtf8(QJsonDocument(editor.camDescription()->toJson()).toJson(QJsonDocument::Compact));
    }
};

} // namespace

class tst_LinkedViews : public QObject
{
    Q_OBJECT
private slots:
    void cleanup();
    void selectionBothWays();
    void insertKeepsCurve_data();
    void insertKeepsCurve();
    void derivativesFromThePlan();
    void timeAxis();
    void warningsMarked();
};

void tst_LinkedViews::cleanup()
{
    QCOMPARE(QApplication::topLevelWidgets().size(), 0);
}

// A row selected in the table rings its marker in every plot; a marker
// pressed in the plot selects its row; the label stays off while it moves.
void tst_LinkedViews::selectionBothWays()
{
    Editor e;
    for (int quantity = 0; quantity < CurvePlot::QuantityCount; ++quantity)
        QCOMPARE(e.plots->highlight(CurvePlot::Quantity(quantity))->dataSize(), size_t(0));
    // A click into the slave cell: the row is selected and the cell stays
    // the current one (the selection does not echo back to the table).
    const QModelIndex row2 = e.tree->model()->index(2, 1);
    QTest::mouseClick(e.tree->viewport(), Qt::LeftButton, {}, e.tree->visualRect(row2).center());
    QCOMPARE(e.window->motionPlanEditor()->currentRow(), 2);
    QCOMPARE(e.tree->currentIndex(), row2);
    const MotionPlan *plan = e.model->motionPlan();
    for (int quantity = 0; quantity < CurvePlot::QuantityCount; ++quantity) {
        const QwtPlotCurve *ring = e.plots->highlight(CurvePlot::Quantity(quantity));
        QCOMPARE(ring->dataSize(), size_t(1));
        QCOMPARE(ring->sample(0).x(), 180.0);
    }
    QCOMPARE(e.plots->highlight(CurvePlot::Position)->sample(0).y(), 0.0);
    QCOMPARE(e.plots->highlight(CurvePlot::Velocity)->sample(0).y(),
             plan->velocity(180.0) * e.plots->valueFactor(CurvePlot::Velocity));

    // The other way: a press on the marker at 90 selects row 1.
    QWidget *canvas = e.position->canvas();
    QTest::mousePress(canvas, Qt::LeftButton, {}, pixel(e.position, 90, 40));
    QVERIFY(e.plots->dragger()->isDragging());
    QCOMPARE(e.window->motionPlanEditor()->currentRow(), 1);
    QCOMPARE(e.plots->highlight(CurvePlot::Position)->sample(0).x(), 90.0);
    QCOMPARE(e.position->tracker()->trackerMode(), QwtPicker::AlwaysOff);
    const QPoint target = pixel(e.position, 100, 45);
    QMouseEvent move(QEvent::MouseMove, target, canvas->mapToGlobal(target), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(canvas, &move);
    QTest::mouseRelease(canvas, Qt::LeftButton, {}, pixel(e.position, 100, 45));
    QCOMPARE(e.position->tracker()->trackerMode(), QwtPicker::AlwaysOn);
    QCOMPARE(e.window->undoStack()->count(), 1);
    QCOMPARE(e.window->motionPlanEditor()->currentRow(), 1);
    QCOMPARE(e.plots->highlight(CurvePlot::Position)->sample(0),
             e.model->motionPointAt(1)->position());
}

void tst_LinkedViews::insertKeepsCurve_data()
{
    QTest::addColumn<QByteArray>("cam");
    QTest::addColumn<double>("master");
    // At most this share of what the type of the point before would change.
    QTest::addColumn<double>("shareOfCopied");
    // The falling flank of the cyclic example, where a "turningPoint" was
    // copied from the point before and forced v = 0.
    QTest::newRow("cyclic falling flank") << example(QStringLiteral("cyclic-cam.json")) << 220.0 << 0.5;
    QTest::newRow("cyclic rising flank") << example(QStringLiteral("cyclic-cam.json")) << 45.0 << 1.0;
    QTest::newRow("cyclic after turning point") << example(QStringLiteral("cyclic-cam.json")) << 135.0 << 1.0;
    QTest::newRow("cyclic seam section") << example(QStringLiteral("cyclic-cam.json")) << 315.0 << 1.0;
    QTest::newRow("spline") << example(QStringLiteral("spline-cam.json")) << 15.0 << 1.0;
    QTest::newRow("spline last section") << example(QStringLiteral("spline-cam.json")) << 31.0 << 1.0;
    QTest::newRow("rest to speed") << QByteArray() << 45.0 << 1.0;
    QTest::newRow("speed to rest") << QByteArray() << 135.0 << 1.0;
}

void tst_LinkedViews::insertKeepsCurve()
{
    QFETCH(QByteArray, cam);
    QFETCH(double, master);
    QFETCH(double, shareOfCopied);
    Editor e(cam);
    QVERIFY(e.model->motionPointCount() > 1);
    const QString before = e.state();
    const QPolygonF gridBefore = e.model->motionPlan()->positions();
    const double slave = e.model->motionPlan()->position(master);
    chooseFromContextMenu(e.position->canvas(), pixel(e.position, master, slave),
                          QStringLiteral("Bewegungspunkt hier einfügen"));
    QCOMPARE(e.window->undoStack()->count(), 1);
    QCOMPARE(e.messages.count(), 0);
    // Measured here against the new plan, not taken from the stack.
    const double largest = largestChange(gridBefore, *e.model->motionPlan());
    const QRectF bounds = gridBefore.boundingRect();
    qInfo("largest position change %g of a stroke of %g", largest, bounds.height());
    QVERIFY2(largest <= InsertShareOfStroke * bounds.height(), qPrintable(QString::number(largest)));
    QCOMPARE(e.plots->lastInsertDeviation(), largest);
    // Said in the status bar, and the new point's row selected.
    QVERIFY2(e.window->statusBar()->currentMessage().contains(QLocale().toString(largest, 'g', 3)),
             qPrintable(e.window->statusBar()->currentMessage()));
    const int row = e.window->motionPlanEditor()->currentRow();
    QVERIFY(row >= 0);
    QVERIFY(std::abs(e.model->motionPointAt(row)->master() - master) < 1.0);
    const double inserted = e.model->motionPointAt(row)->master();
    e.window->undoStack()->undo();
    QCOMPARE(e.state(), before);

    // The same point with the type of the point before, as inserts were made.
    MotionPointEditing editing(e.model, e.editor.implementation()->parameterModel(), e.window->undoStack());
    const double onCurve = e.editor.implementation()->parameterModel()->roundSlave(e.model->motionPlan()->position(inserted));
    QVERIFY(editing.add(e.window, inserted, onCurve, editing.typeBefore(inserted)));
    const double copied = largestChange(gridBefore, *e.model->motionPlan());
    qInfo("with the type before: %g", copied);
    QVERIFY2(largest <= shareOfCopied * copied, qPrintable(QStringLiteral("%1 %2").arg(largest).arg(copied)));
    e.window->undoStack()->undo();
    QCOMPARE(e.state(), before);
}

// The acceleration is drawn from the plan at every pixel column, not from
// difference quotients of the grid: with a coarse static step there is no
// spike at a joint.
void tst_LinkedViews::derivativesFromThePlan()
{
    Editor e(example(QStringLiteral("cyclic-cam.json")));
    e.editor.camDescription()->steps()->setIsDynamicStepSize(false);
    e.editor.camDescription()->steps()->setStaticStepSize(7.0);
    e.plots->replotNow();
    const MotionPlan *plan = e.model->motionPlan();
    for (int quantity = CurvePlot::Velocity; quantity < CurvePlot::Jerk; ++quantity) {
        const QwtPlotCurve *curve = e.plots->plot(CurvePlot::Quantity(quantity))->calculatedCurve();
        QVERIFY(int(curve->dataSize()) >= e.position->canvas()->width());
        const double factor = e.plots->valueFactor(quantity);
        for (size_t i = 0; i < curve->dataSize(); ++i) {
            const QPointF sample = curve->sample(i);
            const double exact = quantity == CurvePlot::Velocity ? plan->velocity(sample.x())
                                                                 : plan->acceleration(sample.x());
            QCOMPARE(sample.y(), exact * factor);
        }
    }
    // The table's own list is still the difference quotients.
    QCOMPARE(plan->accelerations(), MotionPlan::differenceQuotient(plan->velocities()));
}

// "Zykluszeit" shows the master axis in seconds: plots, measuring box, report.
void tst_LinkedViews::timeAxis()
{
    Editor e;
    CurvePlot *velocity = e.plots->plot(CurvePlot::Velocity);
    auto *box = e.window->scalingView()->findChildren<QComboBox *>().value(0);
    QVERIFY(box);
    const int cycleTime = box->findText(Scaling::masterAxisScalingText(Scaling::CycleTime));
    QVERIFY(cycleTime > 0);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Down);
    if (box->currentIndex() != cycleTime)
        QSKIP("the combo box does not step by key on this style");
    e.plots->replotNow();
    QCOMPARE(e.model->scaling()->masterAxisScaling(), int(Scaling::CycleTime));
    // The lowest visible plot names the axis; the master range 0..180 is one second.
    CurvePlot *lowest = e.plots->plot(CurvePlot::Acceleration);
    QCOMPARE(lowest->axisTitle(QwtPlot::xBottom).text(), QStringLiteral("Zeit [s]"));
    QCOMPARE(e.plots->secondsPerMaster(), 1.0 / 180.0);
    QVERIFY2(velocity->axisTitle(QwtPlot::yLeft).text().endsWith(QStringLiteral("/s]")),
             qPrintable(velocity->axisTitle(QwtPlot::yLeft).text()));
    // Ticks on round seconds.
    for (double tick : lowest->axisScaleDiv(QwtPlot::xBottom).ticks(QwtScaleDiv::MajorTick)) {
        const double seconds = tick / 180.0;
        QVERIFY2(std::abs(seconds * 10.0 - std::round(seconds * 10.0)) < 1e-9, qPrintable(QString::number(seconds)));
    }
    MeasuringTool *tool = e.plots->measuringTool();
    tool->setActive(true);
    tool->placeAt(90.0);
    QVERIFY2(tool->label()->text().contains(QStringLiteral("Zeit [s]")), qPrintable(tool->label()->text()));
    QVERIFY(tool->label()->text().contains(QStringLiteral("0.5000")));
    tool->setActive(false);
    CurveReportView *report = e.window->reportView();
    report->refreshNow();
    const QString end = report->sectionTable()->model()->index(0, 1).data().toString();
    QVERIFY2(end.contains(QLocale().toString(0.5, 'f', 4) + QStringLiteral(" s")), qPrintable(end));
    // Back to the master unit.
    QTest::keyClick(box, Qt::Key_Up);
    e.plots->replotNow();
    QVERIFY(lowest->axisTitle(QwtPlot::xBottom).text().startsWith(QStringLiteral("Master")));
}

// A section law that cannot apply marks its row and its range in the plots at once.
void tst_LinkedViews::warningsMarked()
{
    Editor e(R"({"MotionPoints": [[0, 0, "rest"], [90, 40, "turningPoint"], [180, 0, "rest"]]})");
    QCOMPARE(e.plots->warningMarkCount(), 0);
    QVERIFY(e.tree->model()->index(1, 0).data(Qt::ToolTipRole).toString().isEmpty());
    // A cycloid joins only where the accelerations vanish, not at a "turningPoint".
    const QModelIndex law = e.tree->model()->index(1, 3);
    QVERIFY(e.tree->model()->setData(law, int(MotionPoint::Cycloid)));
    QCOMPARE(e.window->undoStack()->count(), 1);
    const QString tip = e.tree->model()->index(1, 0).data(Qt::ToolTipRole).toString();
    QVERIFY2(tip.contains(QStringLiteral("nicht anwendbar")), qPrintable(tip));
    QVERIFY(!e.tree->model()->index(1, 0).data(Qt::DecorationRole).isNull());
    QCOMPARE(e.plots->warningMarkCount(), int(CurvePlot::QuantityCount));
    e.window->undoStack()->undo();
    QCOMPARE(e.plots->warningMarkCount(), 0);
    QVERIFY(e.tree->model()->index(1, 0).data(Qt::ToolTipRole).toString().isEmpty());
}

QTEST_MAIN(tst_LinkedViews)
#include "tst_linkedviews.moc"
