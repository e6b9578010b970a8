#include "model/cameditormodel.h"

#include "boundtable.h"
#include "camdesigner/camdescriptionimplementation.h"
#include "curves/motionplan.h"
#include "curves/motionplanfactory.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"
#include "model/steps.h"
#include "views/motionpointediting.h"
#include "views/motionpointtablemodel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>
#include <QUndoStack>

#include <QJsonArray>
#include <QJsonObject>

#include <memory>

// A cam description on a drive, with an editor model following it.
struct EditedCam {
    BoundTable bound;
    CamDescriptionImplementation description { nullptr, QByteArray() };
    std::unique_ptr<CamEditorModel> model;

    explicit EditedCam(const QList<QPointF> &points = {}, bool cyclic = false, double circularLength = 360.0)
    {
        description.setCyclic(cyclic);
        description.setCircularLength(circularLength);
        for (const QPointF &point : points)
            description.appendPoint(new MotionPoint(point.x(), point.y(), MotionPoint::rest));
        model = std::make_unique<CamEditorModel>(nullptr, &bound.model(), &description);
    }

    // A plan built from scratch for the description's current data.
    std::unique_ptr<MotionPlan> freshPlan() const
    {
        return std::unique_ptr<MotionPlan>(MotionPlanFactory::create(description.motionLaw()->law(),
                                                                     description.motionPoints(), description.isCyclic(),
                                                                     description.circularLength(), nullptr,
                                                                     model->scaling()));
    }
};

class tst_CamEditorModel : public QObject
{
    Q_OBJECT
private slots:
    void masterEndAndBudget_data();
    void masterEndAndBudget();
    void changedSignals_data();
    void changedSignals();
    void pointRowsForItemModels();
    void coarseStepsWhileDragging();
    void descriptionGoneLeavesAnEmptyPlan();
};

// The end of the master axis, and whether a static step exceeds the grid
// point budget.
void tst_CamEditorModel::masterEndAndBudget_data()
{
    QTest::addColumn<QList<QPointF>>("points");
    QTest::addColumn<bool>("cyclic");
    QTest::addColumn<double>("circularLength");
    QTest::addColumn<bool>("dynamic");
    QTest::addColumn<double>("stepSize");
    QTest::addColumn<double>("end");
    QTest::addColumn<bool>("tooMany");
    const QList<QPointF> one { { 0, 0 } };
    QTest::newRow("last point 400, cyclic 360") << QList<QPointF> { { 0, 0 }, { 400, 5 } } << true << 360.0 << true << 1.0
                                                << 400.0 << false;
    // The budget counts the description's one point, not the plan's closing point.
    QTest::newRow("0.1 over 1600, one point") << one << true << 1600.0 << false << 0.1 << 1600.0 << true;
    QTest::newRow("dynamic never") << one << true << 1600.0 << true << 0.1 << 1600.0 << false;
    // Strictly greater: 15998 steps fit two points exactly; the range starts
    // at the first point.
    const QList<QPointF> two { { 2, 0 }, { 16000, 1 } };
    QTest::newRow("exactly the budget") << two << false << 1.0 << false << 1.0 << 16000.0 << false;
}

void tst_CamEditorModel::masterEndAndBudget()
{
    QFETCH(QList<QPointF>, points);
    QFETCH(bool, cyclic);
    QFETCH(double, circularLength);
    QFETCH(bool, dynamic);
    QFETCH(double, stepSize);
    EditedCam cam(points, cyclic, circularLength);
    cam.description.steps()->setStaticStepSize(stepSize);
    cam.description.steps()->setIsDynamicStepSize(dynamic);
    QTEST(cam.model->masterEnd(), "end");
    QTEST(cam.model->tooManyGridPoints(), "tooMany");
}

// How often the model announces a change and rebuilds its plan, for each
// kind of change. A point moved by setPosition only rebuilds the plan: the new
// plan is connected after its sampling, so changed() waits for the next
// sampling, while motionPlanRebuilt() tells a plot at once. A load emits a
// signal per removed point, yet the model builds and announces once. An edit
// or a law switch reaches the model by two signals and builds one plan.
void tst_CamEditorModel::changedSignals_data()
{
    QTest::addColumn<int>("change");
    QTest::addColumn<int>("changedSignals");
    QTest::addColumn<int>("rebuilds");
    QTest::newRow("law") << 1 << 2 << 1;
    QTest::newRow("point edited") << 2 << 1 << 1;
    QTest::newRow("point moved") << 3 << 0 << 1;
    QTest::newRow("static steps") << 4 << 1 << 1;
    QTest::newRow("endCoarseSteps, no coarse plan to replace") << 6 << 1 << 0;
    QTest::newRow("load") << 7 << 1 << 1;
    QTest::newRow("load of the same data") << 8 << 1 << 1;
}

void tst_CamEditorModel::changedSignals()
{
    QFETCH(int, change);
    QFETCH(int, changedSignals);
    QFETCH(int, rebuilds);
    EditedCam cam({ { 0, 0 }, { 90, 10 }, { 180, 0 } });
    MotionPoint *point = cam.description.pointAt(90);
    QSignalSpy changed(cam.model.get(), &CamEditorModel::changed);
    QSignalSpy rebuilt(cam.model.get(), &CamEditorModel::motionPlanRebuilt);
    const QJsonObject loaded { { "MotionLaw", "Spline" }, { "MotionPoints", QJsonArray { QJsonArray { 0, 5 }, QJsonArray { 45, 1 } } } };
    switch (change) {
    case 1: cam.description.motionLaw()->setLaw(MotionLaw::Spline); break;
    case 2: point->setFrom(MotionPoint(95, 12, MotionPoint::acceleration)); break;
    case 3: point->setPosition(QPointF(95, 12)); break;
    case 4: cam.description.steps()->setIsDynamicStepSize(false); break;
    case 6: cam.model->endCoarseSteps(); break;
    case 7: cam.description.fromJson(loaded); break;
    case 8: cam.description.fromJson(cam.description.toJson()); break;
    }
    QCOMPARE(changed.count(), changedSignals);
    QCOMPARE(rebuilt.count(), rebuilds);
    // Sampled as the steps ask; the factory's test and the coarse steps case
    // below hold that rule.
    std::unique_ptr<MotionPlan> fresh = cam.freshPlan();
    MotionPlanFactory::sample(fresh.get(), cam.description.steps(), false);
    if (change != 3)
        QCOMPARE(cam.model->motionPlan()->positions(), fresh->positions());
}

// Inserts, removals, a point passing its neighbours, an edit in place, a move
// onto another point and a load, checked against Qt's item model rules on the
// point table's model, which maps the description's row notifications one to
// one; a persistent index keeps following its point wherever its row goes.
void tst_CamEditorModel::pointRowsForItemModels()
{
    EditedCam cam({ { 0, 0 }, { 10, 1 }, { 20, 2 } });
    QUndoStack stack;
    MotionPointEditing editing(cam.model.get(), &cam.bound.model(), &stack);
    MotionPointTableModel list(&editing, nullptr);
    QAbstractItemModelTester tester(&list, QAbstractItemModelTester::FailureReportingMode::QtTest);
    CamDescriptionImplementation &description = cam.description;
    MotionPoint *followed = description.pointAt(20);
    QPersistentModelIndex index = list.index(2, 0);

    description.appendPoint(new MotionPoint(5, 0, MotionPoint::rest));
    QCOMPARE(index.row(), 3);
    followed->setFrom(MotionPoint(7, 3, MotionPoint::speed));
    QCOMPARE(index.row(), 2);
    followed->setPosition(QPointF(30, 3));
    QCOMPARE(index.row(), 3);
    followed->setTypeByIndex(2);
    delete description.takePoint(description.pointAt(0));
    QCOMPARE(index.row(), 2);
    QCOMPARE(cam.model->rowOfMotionPoint(followed), 2);
    MotionPoint outside(30, 3, MotionPoint::rest);
    QCOMPARE(cam.model->rowOfMotionPoint(&outside), -1);

    // Pushes the point at 10 out of the map: the rows start again.
    description.pointAt(5)->setPosition(QPointF(10, 0));
    QCOMPARE(cam.model->motionPointCount(), 2);
    QVERIFY(!index.isValid());
    description.fromJson(QJsonObject { { "MotionPoints", QJsonArray { QJsonArray { 1, 1 } } } });
    QCOMPARE(list.rowCount({}), 1);
}

void tst_CamEditorModel::coarseStepsWhileDragging()
{
    EditedCam cam({ { 0, 0 }, { 300, 80 }, { 1000, 0 } });
    cam.description.steps()->setIsDynamicStepSize(false);
    cam.description.steps()->setStaticStepSize(1.0);
    MotionPoint *point = cam.description.pointAt(300);

    cam.model->beginCoarseSteps();
    point->setPosition(QPointF(320, 90));
    std::unique_ptr<MotionPlan> coarse = cam.freshPlan();
    coarse->calculate(coarse->masterRange() / MotionPlanFactory::CoarseStepCount);
    QCOMPARE(cam.model->motionPlan()->positions(), coarse->positions());

    std::unique_ptr<MotionPlan> full = cam.freshPlan();
    full->calculate(1.0);
    QVERIFY(full->positions() != coarse->positions());

    cam.model->endCoarseSteps();
    QCOMPARE(cam.model->motionPlan()->positions(), full->positions());
}

void tst_CamEditorModel::descriptionGoneLeavesAnEmptyPlan()
{
    BoundTable bound;
    auto *description = new CamDescriptionImplementation(nullptr, QByteArray());
    description->appendPoint(new MotionPoint(0, 0, MotionPoint::rest));
    description->appendPoint(new MotionPoint(50, 5, MotionPoint::rest));
    CamEditorModel model(nullptr, &bound.model(), description);
    QSignalSpy changed(&model, &CamEditorModel::changed);
    delete description;
    QCOMPARE(changed.count(), 1);
    QVERIFY(model.motionPlan()->motionPoints().isEmpty());
    QCOMPARE(model.masterEnd(), CamEditorModel::DefaultMasterEnd);
    QVERIFY(!model.tooManyGridPoints());
}

QTEST_MAIN(tst_CamEditorModel)
#include "tst_cameditormodel.moc"
