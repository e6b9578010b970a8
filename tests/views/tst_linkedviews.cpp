#include "editorfixture.h"
#include "testfiles.h"

#include "model/scaling.h"
#include "plots/curveplotstack.h"
#include "plots/cursoroverlay.h"
#include "plots/measuringtool.h"
#include "plots/motionpointdragger.h"
#include "views/curvereportview.h"
#include "views/motionplantreeeditor.h"
#include "views/motionpointediting.h"

#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QTableView>
#include <QTimer>
#include <QTreeView>

#include <qwt_plot_curve.h>
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

// Right-clicks the canvas and picks the action of that text from the menu
// when it is enabled (else closes the menu). Whether it was enabled.
bool chooseFromContextMenu(QWidget *canvas, const QPoint &position, const QString &text)
{
    bool enabled = false;
    QTimer::singleShot(0, canvas, [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        for (QAction *action : menu->actions()) {
            if (action->text() == text && action->isEnabled()) {
                enabled = true;
                menu->setActiveAction(action);
            }
        }
        QTest::keyClick(menu, enabled ? Qt::Key_Return : Qt::Key_Escape);
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, position, canvas->mapToGlobal(position));
    QApplication::sendEvent(canvas, &event);
    return enabled;
}

struct Editor {
    EditorFixture editor;
    MessageCapture messages;
    CamDesignerViewImplementation *window;
    CurvePlotStack *plots;
    CurvePlot *position;
    CamEditorModel *model;
    QTreeView *tree;

    explicit Editor(const QByteArray &cam = EditorFixture::DefaultCam)
        : editor(cam.constData())
        , window(editor.open())
        , plots(window->plots())
        , position(plots->plot(CurvePlot::Position))
        , model(editor.model())
        , tree(window->motionPlanEditor()->pointTree())
    {
        window->resize(1280, 800);
        if (!QTest::qWaitForWindowExposed(window))
            qWarning("window not exposed");
        plots->replotNow();
    }
};

} // namespace

class tst_LinkedViews : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { QCOMPARE(QApplication::topLevelWidgets().size(), 0); }
    void tableSelectionRingsTheMarkers();
    void dragPushesOneEdit();
    void insertKeepsCurve_data();
    void insertKeepsCurve();
    void insertRefusedBeyondTheCycle();
    void removeFromContextMenu();
    void measuringCursors();
    void timeAxis();
    void warningsMarked();
};

// A row selected in the table rings its marker in every plot (the other way,
// a marker pressed in the plot, in the drag test).
void tst_LinkedViews::tableSelectionRingsTheMarkers()
{
    Editor e;
    // A click into the slave cell: the row is selected and the cell stays
    // the current one (the selection does not echo back to the table).
    const QModelIndex row2 = e.tree->model()->index(2, 1);
    QTest::mouseClick(e.tree->viewport(), Qt::LeftButton, {}, e.tree->visualRect(row2).center());
    QCOMPARE(e.tree->currentIndex(), row2);
    for (int quantity = 0; quantity < CurvePlot::QuantityCount; ++quantity) {
        const QwtPlotCurve *ring = e.plots->highlight(CurvePlot::Quantity(quantity));
        QCOMPARE(ring->dataSize(), size_t(1));
        QCOMPARE(ring->sample(0).x(), 180.0);
    }
}

// A move held by its neighbours or the circular length, its undo and Escape
// are the random user test's (tst_randomuseractions); here what a drag keeps
// and the drive's limit.
void tst_LinkedViews::dragPushesOneEdit()
{
    Editor e;
    // The drive takes slave positions up to 50.000.
    QVERIFY(e.editor.drive.setNativeLimits(ParameterModelImplementation::slaveArrayOf(EditorFixture::Table).toText(),
                                           -50000, 50000));
    QWidget *canvas = e.position->canvas();
    // The section that starts at the point goes with it.
    e.editor.camDescription()->pointAt(90)->setSectionLaw(MotionPoint::Cycloid);
    const auto drag = [&](const QPoint &target) {
        e.plots->replotNow();
        QTest::mousePress(canvas, Qt::LeftButton, Qt::NoModifier, pixel(e.position, 90, 40));
        QVERIFY(e.plots->dragger()->isDragging());
        QVERIFY(e.model->isCoarseSteps());
        // The pressed marker's row is selected; the tracker's label stays off while it moves.
        QCOMPARE(e.window->motionPlanEditor()->currentRow(), 1);
        // QTest moves the cursor instead, which sends nothing offscreen.
        QMouseEvent move(QEvent::MouseMove, target, canvas->mapToGlobal(target), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(canvas, &move);
        QVERIFY(e.editor.camDescription()->pointAt(90) == nullptr);
        QTest::mouseRelease(canvas, Qt::LeftButton, Qt::NoModifier, target);
        QVERIFY(!e.model->isCoarseSteps());
    };
    // Beyond the slave limit: refused, the point returns.
    drag(pixel(e.position, 120, 60));
    QCOMPARE(e.messages.count(), 1);
    QCOMPARE(e.window->undoStack()->count(), 0);
    QVERIFY(e.editor.camDescription()->pointAt(90));

    // Past the next point: held one step of the drive's resolution before it.
    e.plots->replotNow();
    const QPoint target = pixel(e.position, 250, 45);
    // What the user points at, on the scales the press found.
    const double pointedSlave = std::round(e.position->invTransform(QwtPlot::yLeft, target.y()) * 1000.0) / 1000.0;
    drag(target);
    QCOMPARE(e.window->undoStack()->count(), 1);
    const MotionPoint *moved = e.model->motionPointAt(1);
    QCOMPARE(moved->master(), 179.999);
    QCOMPARE(moved->slave(), pointedSlave);
    QCOMPARE(moved->sectionLaw(), int(MotionPoint::Cycloid));
}

void tst_LinkedViews::insertKeepsCurve_data()
{
    QTest::addColumn<QByteArray>("cam");
    QTest::addColumn<double>("master");
    // At most this share of what the type of the point before would change.
    QTest::addColumn<double>("shareOfCopied");
    // The falling flank of the cyclic example, where a "turningPoint" was
    // copied from the point before and forced v = 0.
    QTest::newRow("cyclic falling flank") << readFile(QStringLiteral(EXAMPLES_DIR "/cyclic-cam.json")) << 220.0 << 0.5;
    // Past the last point, in the section that closes the cycle.
    QTest::newRow("cyclic seam section") << readFile(QStringLiteral(EXAMPLES_DIR "/cyclic-cam.json")) << 315.0 << 1.0;
    // No segment types to try: the type before only.
    QTest::newRow("spline") << readFile(QStringLiteral(EXAMPLES_DIR "/spline-cam.json")) << 15.0 << 1.0;
}

void tst_LinkedViews::insertKeepsCurve()
{
    QFETCH(QByteArray, cam);
    QFETCH(double, master);
    QFETCH(double, shareOfCopied);
    Editor e(cam);
    const QString before = e.editor.state();
    const QPolygonF gridBefore = e.model->motionPlan()->positions();
    // Off the curve. Where the point goes, and that its row is selected: the
    // random user test.
    QPoint click = pixel(e.position, master, e.model->motionPlan()->position(master));
    click.ry() += click.y() < e.position->canvas()->height() / 2 ? 15 : -15;
    QVERIFY(chooseFromContextMenu(e.position->canvas(), click, QStringLiteral("Bewegungspunkt hier einfügen")));
    QCOMPARE(e.window->undoStack()->count(), 1);
    // Measured here against the new plan, not taken from the stack.
    const double largest = largestChange(gridBefore, *e.model->motionPlan());
    QVERIFY2(largest <= InsertShareOfStroke * gridBefore.boundingRect().height(), qPrintable(QString::number(largest)));
    QCOMPARE(e.plots->lastInsertDeviation(), largest);
    const QPointF inserted = e.model->motionPointAt(e.window->motionPlanEditor()->currentRow())->position();
    e.window->undoStack()->undo();

    // The same point with the type of the point before, as inserts were made.
    MotionPointEditing editing(e.model, e.editor.parameters(), e.window->undoStack());
    QVERIFY(editing.add(e.window, inserted.x(), inserted.y(), editing.typeBefore(inserted.x())));
    const double copied = largestChange(gridBefore, *e.model->motionPlan());
    QVERIFY2(largest <= shareOfCopied * copied, qPrintable(QStringLiteral("%1 %2").arg(largest).arg(copied)));
    e.window->undoStack()->undo();
    QCOMPARE(e.editor.state(), before);
}

// The axis of a cyclic cam reaches to its circular length and beyond: an
// insert there is refused with the panels' box. (The drive's limits are the
// point fields' check, with its box in the random user test.)
void tst_LinkedViews::insertRefusedBeyondTheCycle()
{
    Editor e;
    e.editor.camDescription()->setCyclic(true);
    e.editor.camDescription()->setCircularLength(130.0);
    e.plots->replotNow();
    const QString before = e.editor.state();
    QVERIFY(chooseFromContextMenu(e.position->canvas(), pixel(e.position, 135, 5),
                                  QStringLiteral("Bewegungspunkt hier einfügen")));
    QCOMPARE(e.messages.count(), 1);
    QCOMPARE(e.messages.last().title, QStringLiteral("Master-Position außerhalb der Umlauflänge"));
    QCOMPARE(e.editor.state(), before);
}

void tst_LinkedViews::removeFromContextMenu()
{
    Editor e;
    QWidget *canvas = e.position->canvas();
    // A few pixels beside the marker still takes it.
    QVERIFY(chooseFromContextMenu(canvas, pixel(e.position, 90, 40) + QPoint(3, -2),
                                  QStringLiteral("Bewegungspunkt entfernen")));
    QCOMPARE(e.window->undoStack()->count(), 1);
    QVERIFY(!e.editor.camDescription()->pointAt(90));
}

// Two clicks place the cursors; the box shows the plan's exact values and
// their differences; further clicks move the nearer cursor; Escape ends it.
void tst_LinkedViews::measuringCursors()
{
    Editor e;
    ParameterModelImplementation *drive = e.editor.parameters();
    drive->writeGridPoints(e.model->motionPlan()->positions());
    MeasuringTool *tool = e.plots->measuringTool();
    QLabel *box = tool->label();
    QVERIFY(chooseFromContextMenu(e.position->canvas(), pixel(e.position, 45, 5), QStringLiteral("Messen")));
    e.plots->replotNow();

    CurvePlot *velocity = e.plots->plot(CurvePlot::Velocity);
    // A click on the marker measures instead of dragging the point.
    QTest::mouseClick(e.position->canvas(), Qt::LeftButton, {}, pixel(e.position, 90, 40));
    QVERIFY(!e.plots->dragger()->isDragging());
    QTest::mouseClick(velocity->canvas(), Qt::LeftButton, {}, pixel(velocity, 30, 0));
    QCOMPARE(tool->placedCount(), 2);
    const double first = tool->cursorMaster(0);
    const double second = tool->cursorMaster(1);
    QCOMPARE(first, drive->roundMaster(first));
    QVERIFY(std::abs(first - 90.0) < 1.0);
    // Both cursors over every plot, wherever they were placed.
    const QList<CursorOverlay *> overlays = e.plots->findChildren<CursorOverlay *>();
    for (const CursorOverlay *overlay : overlays)
        QCOMPARE(overlay->cursors().value(1).master, second);
    const MotionPlan *plan = e.model->motionPlan();
    const QString text = box->text();
    QVERIFY2(text.contains(QString::number(plan->position(second) - plan->position(first), 'f', 3)), qPrintable(text));

    // A third click moves the nearer cursor: the second.
    QTest::mouseClick(e.position->canvas(), Qt::LeftButton, {}, pixel(e.position, 50, 0));
    QCOMPARE(tool->cursorMaster(0), first);
    QVERIFY(std::abs(tool->cursorMaster(1) - 50.0) < 1.0);

    QTest::keyClick(e.position->canvas(), Qt::Key_Escape);
    QVERIFY(!box->isVisible());
    for (const CursorOverlay *overlay : overlays)
        QVERIFY(overlay->cursors().isEmpty());
    // The window closes with the cursors on.
    tool->setActive(true);
    tool->placeAt(10.0);
}

// "Zykluszeit" shows the master axis in seconds: plots, measuring box, report.
void tst_LinkedViews::timeAxis()
{
    Editor e;
    CurvePlot *velocity = e.plots->plot(CurvePlot::Velocity);
    // Chosen in the scaling box: the random user test.
    e.model->scaling()->setMasterAxisScaling(Scaling::CycleTime);
    e.plots->replotNow();
    // The lowest visible plot names the axis; the master range 0..180 is one second.
    CurvePlot *lowest = e.plots->plot(CurvePlot::Acceleration);
    QCOMPARE(lowest->axisTitle(QwtPlot::xBottom).text(), QStringLiteral("Zeit [s]"));
    QCOMPARE(e.plots->secondsPerMaster(), 1.0 / 180.0);
    // The derivatives over time through the scaling's one conversion.
    const double factor = e.model->scaling()->derivativeFactor(1, e.model->motionPlan()->masterRange());
    QVERIFY(factor != 1.0);
    const QPointF sample = velocity->calculatedCurve()->sample(7);
    QCOMPARE(sample.y(), e.model->motionPlan()->velocity(sample.x()) * factor);
    MeasuringTool *tool = e.plots->measuringTool();
    tool->setActive(true);
    tool->placeAt(90.0);
    QVERIFY2(tool->label()->text().contains(QStringLiteral("0.5000")), qPrintable(tool->label()->text()));
    CurveReportView *report = e.window->reportView();
    report->refreshNow();
    const QString end = report->sectionTable()->model()->index(0, 1).data().toString();
    QVERIFY2(end.contains(QLocale().toString(0.5, 'f', 4) + QStringLiteral(" s")), qPrintable(end));
}

// A section law that cannot apply marks its row and its range in the plots at once.
void tst_LinkedViews::warningsMarked()
{
    Editor e(R"({"MotionPoints": [[0, 0, "rest"], [90, 40, "turningPoint"], [180, 0, "rest"]]})");
    // A cycloid joins only where the accelerations vanish, not at a "turningPoint".
    const QModelIndex law = e.tree->model()->index(1, 3);
    QVERIFY(e.tree->model()->setData(law, int(MotionPoint::Cycloid)));
    const QString tip = e.tree->model()->index(1, 0).data(Qt::ToolTipRole).toString();
    QVERIFY2(tip.contains(QStringLiteral("nicht anwendbar")), qPrintable(tip));
    QCOMPARE(e.plots->warningMarkCount(), int(CurvePlot::QuantityCount));
    e.window->undoStack()->undo();
    QCOMPARE(e.plots->warningMarkCount(), 0);
}

QTEST_MAIN(tst_LinkedViews)
#include "tst_linkedviews.moc"
