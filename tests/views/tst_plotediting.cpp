#include "editorfixture.h"
#include "messagecapture.h"

#include "camdesigner/controller.h"
#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "model/motionpoint.h"
#include "parameters/parametermodelimplementation.h"
#include "plots/curveplotstack.h"
#include "plots/cursoroverlay.h"
#include "plots/measuringtool.h"
#include "plots/motionpointdragger.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QJsonDocument>
#include <QLabel>
#include <QMenu>
#include <QTest>
#include <QTimer>


#include <cmath>

namespace {

QPoint pixel(const CurvePlot *plot, double master, double slave)
{
    return QPoint(int(std::lround(plot->transform(QwtPlot::xBottom, master))),
                  int(std::lround(plot->transform(QwtPlot::yLeft, slave))));
}

// At a master position, halfway down the canvas.
QPoint atMaster(const CurvePlot *plot, double master)
{
    return QPoint(int(std::lround(plot->transform(QwtPlot::xBottom, master))), plot->canvas()->height() / 2);
}

// Right-clicks the canvas and picks the action of that text from the menu
// when it is enabled (else closes the menu). Whether it was enabled.
bool chooseFromContextMenu(QWidget *canvas, const QPoint &position, const QString &text)
{
    bool enabled = false;
    bool shown = false;
    QTimer::singleShot(0, canvas, [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        shown = true;
        for (QAction *action : menu->actions()) {
            if (action->text() == text && action->isEnabled()) {
                enabled = true;
                menu->setActiveAction(action);
            }
        }
        if (enabled)
            QTest::keyClick(menu, Qt::Key_Return);
        else
            menu->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, position, canvas->mapToGlobal(position));
    QApplication::sendEvent(canvas, &event);
    return shown && enabled;
}

QString stateOf(const EditorFixture &editor)
{
    return QString::fromUtf8(QJsonDocument(editor.camDescription()->toJson()).toJson(QJsonDocument::Compact));
}

struct PlotEditor {
    EditorFixture editor;
    MessageCapture messages;
    CamDesignerViewImplementation *window;
    CurvePlotStack *plots;
    CurvePlot *position;
    CamEditorModel *model;

    PlotEditor()
        : window(editor.open())
        , plots(window->plots())
        , position(plots->plot(CurvePlot::Position))
        , model(editor.implementation()->editorModel())
    {
        window->resize(1200, 900);
        if (!QTest::qWaitForWindowExposed(window))
            qWarning("window not exposed");
        plots->replotNow();
    }
    ~PlotEditor() { window->close(); }
};

} // namespace

class tst_PlotEditing : public QObject
{
    Q_OBJECT
private slots:
    void cleanup();
    void insertFromContextMenu_data();
    void insertFromContextMenu();
    void removeFromContextMenu();
    void measuringCursors();
};

void tst_PlotEditing::cleanup()
{
    QCOMPARE(QApplication::topLevelWidgets().size(), 0);
}

void tst_PlotEditing::insertFromContextMenu_data()
{
    QTest::addColumn<double>("master");
    QTest::addColumn<int>("type");
    QTest::addColumn<qint64>("masterLimit");
    QTest::addColumn<double>("circularLength");  // 0: not cyclic
    QTest::addColumn<QString>("refusal");
    // The segment type is the one that keeps the curve best (tst_linkedviews).
    QTest::newRow("after a rest") << 45.0 << int(MotionPoint::acceleration) << qint64(0) << 0.0 << "";
    QTest::newRow("after a speed") << 135.0 << int(MotionPoint::acceleration) << qint64(0) << 0.0 << "";
    // The drive takes master positions up to 100.000: refused with the panels' box.
    QTest::newRow("beyond the master limit") << 135.0 << -1 << qint64(100000) << 0.0
                                             << "Master-Position außerhalb der Grenzen";
    // The axis of a cyclic cam reaches to its circular length and beyond.
    QTest::newRow("beyond the circular length") << 135.0 << -1 << qint64(0) << 130.0
                                                << "Master-Position außerhalb der Umlauflänge";
}

void tst_PlotEditing::insertFromContextMenu()
{
    QFETCH(double, master);
    QFETCH(int, type);
    QFETCH(qint64, masterLimit);
    QFETCH(double, circularLength);
    QFETCH(QString, refusal);
    PlotEditor p;
    if (masterLimit > 0)
        QVERIFY(p.editor.drive.setNativeLimits(
            ParameterModelImplementation::masterArrayOf(EditorFixture::Table).toText(), -masterLimit, masterLimit));
    if (circularLength > 0.0) {
        p.editor.camDescription()->setCyclic(true);
        p.editor.camDescription()->setCircularLength(circularLength);
        p.plots->replotNow();
    }
    const ParameterModel *drive = p.editor.implementation()->parameterModel();
    const QString before = stateOf(p.editor);
    // Away from the curve: the point goes onto it, at the clicked master.
    const QPoint click = pixel(p.position, master, 5.0);
    const double expectedMaster = drive->roundMaster(p.position->invTransform(QwtPlot::xBottom, click.x()));
    const double expectedSlave = drive->roundSlave(p.model->motionPlan()->position(expectedMaster));
    QVERIFY(chooseFromContextMenu(p.position->canvas(), click, QStringLiteral("Bewegungspunkt hier einfügen")));
    if (type < 0) {
        QCOMPARE(p.messages.count(), 1);
        QCOMPARE(p.messages.last().title, refusal);
        QCOMPARE(p.window->undoStack()->count(), 0);
        QCOMPARE(stateOf(p.editor), before);
        return;
    }
    QCOMPARE(p.messages.count(), 0);
    QCOMPARE(p.window->undoStack()->count(), 1);
    const MotionPoint *point = p.editor.camDescription()->pointAt(expectedMaster);
    QVERIFY(point);
    QCOMPARE(point->slave(), expectedSlave);
    QCOMPARE(point->type(), type);
    p.window->undoStack()->undo();
    QCOMPARE(stateOf(p.editor), before);
}

void tst_PlotEditing::removeFromContextMenu()
{
    PlotEditor p;
    const QString before = stateOf(p.editor);
    QWidget *canvas = p.position->canvas();
    // Off every marker the removal is offered disabled.
    QVERIFY(!chooseFromContextMenu(canvas, pixel(p.position, 45, 5), QStringLiteral("Bewegungspunkt entfernen")));
    QCOMPARE(p.window->undoStack()->count(), 0);
    // A few pixels beside the marker still takes it.
    QVERIFY(chooseFromContextMenu(canvas, pixel(p.position, 90, 40) + QPoint(3, -2),
                                  QStringLiteral("Bewegungspunkt entfernen")));
    QCOMPARE(p.window->undoStack()->count(), 1);
    QCOMPARE(p.window->undoStack()->text(0), QStringLiteral("Entferne Bewegungspunkt [90,40] hinzu"));
    QVERIFY(!p.editor.camDescription()->pointAt(90));
    p.window->undoStack()->undo();
    QCOMPARE(stateOf(p.editor), before);
    QCOMPARE(p.messages.count(), 0);
}

// Two clicks place the cursors; the box shows the plan's exact values and
// their differences; further clicks move the nearer cursor; Escape ends it.
void tst_PlotEditing::measuringCursors()
{
    PlotEditor p;
    ParameterModelImplementation *drive = p.editor.implementation()->parameterModel();
    drive->writeGridPoints(p.model->motionPlan()->positions());
    MeasuringTool *tool = p.plots->measuringTool();
    QLabel *box = p.plots->findChild<QLabel *>(QStringLiteral("measurementLabel"));
    QVERIFY(box);
    QVERIFY(!box->isVisible());
    QVERIFY(chooseFromContextMenu(p.position->canvas(), pixel(p.position, 45, 5), QStringLiteral("Messen")));
    QVERIFY(tool->isActive());
    QVERIFY(box->isVisible());
    p.plots->replotNow();

    CurvePlot *velocity = p.plots->plot(CurvePlot::Velocity);
    // A click on the marker measures instead of dragging the point.
    QTest::mouseClick(p.position->canvas(), Qt::LeftButton, {}, pixel(p.position, 90, 40));
    QVERIFY(!p.plots->dragger()->isDragging());
    QTest::mouseClick(velocity->canvas(), Qt::LeftButton, {}, atMaster(velocity, 30));
    QCOMPARE(tool->placedCount(), 2);
    const double first = tool->cursorMaster(0);
    const double second = tool->cursorMaster(1);
    QCOMPARE(first, drive->roundMaster(first));
    QVERIFY(std::abs(first - 90.0) < 1.0);
    QVERIFY(std::abs(second - 30.0) < 1.0);
    // Both cursors over every plot, wherever they were placed.
    const QList<CursorOverlay *> overlays = p.plots->findChildren<CursorOverlay *>();
    QCOMPARE(overlays.size(), int(CurvePlot::QuantityCount));
    for (const CursorOverlay *overlay : overlays) {
        QCOMPARE(overlay->cursors().size(), 2);
        QCOMPARE(overlay->cursors().at(1).master, second);
    }
    const MotionPlan *plan = p.model->motionPlan();
    const QString text = box->text();
    QVERIFY2(text.contains(QString::number(second - first, 'f', 3)), qPrintable(text));
    QVERIFY2(text.contains(QString::number(plan->position(second) - plan->position(first), 'f', 3)), qPrintable(text));
    QVERIFY2(text.contains(QString::number(plan->velocity(first), 'g', 6)), qPrintable(text));
    // The stored table, between its points, lies on the calculated curve.
    QVERIFY(std::abs(tool->valueAt(CurvePlot::Position, false, second) - plan->position(second)) < 0.01);
    QVERIFY(std::abs(tool->valueAt(CurvePlot::Velocity, false, second) - plan->velocity(second)) < 0.01);
    QCOMPARE(p.window->undoStack()->count(), 0);

    // A third click moves the nearer cursor: the second.
    QTest::mouseClick(p.position->canvas(), Qt::LeftButton, {}, atMaster(p.position, 50));
    QCOMPARE(tool->cursorMaster(0), first);
    QVERIFY(std::abs(tool->cursorMaster(1) - 50.0) < 1.0);

    QTest::keyClick(p.position->canvas(), Qt::Key_Escape);
    QVERIFY(!tool->isActive());
    QVERIFY(!box->isVisible());
    QCOMPARE(tool->placedCount(), 0);
    for (const CursorOverlay *overlay : p.plots->findChildren<CursorOverlay *>())
        QVERIFY(overlay->cursors().isEmpty());
    // Out of the mode a press on a marker drags again.
    QTest::mousePress(p.position->canvas(), Qt::LeftButton, {}, pixel(p.position, 90, 40));
    QVERIFY(p.plots->dragger()->isDragging());
    QTest::keyClick(p.position->canvas(), Qt::Key_Escape);
    QTest::mouseRelease(p.position->canvas(), Qt::LeftButton, {}, pixel(p.position, 90, 40));
    // The window closes with the cursors on.
    tool->setActive(true);
    tool->placeAt(10.0);
}

QTEST_MAIN(tst_PlotEditing)
#include "tst_plotediting.moc"
