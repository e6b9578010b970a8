#include "model/cameditormodel.h"

#include "boundtable.h"
#include "camdesigner/camdescriptionimplementation.h"
#include "curves/motionplancubicspline.h"
#include "curves/motionplanvdi.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"
#include "model/scaling.h"
#include "model/steps.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

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
        const QList<MotionPoint *> points = description.motionPoints();
        if (description.motionLaw()->law() == MotionLaw::Spline)
            return std::make_unique<MotionPlanCubicSpline>(points, description.isCyclic(),
                                                           description.circularLength(), nullptr, model->scaling());
        return std::make_unique<MotionPlanVdi>(points, description.isCyclic(), description.circularLength(), nullptr,
                                               model->scaling());
    }
};

class tst_CamEditorModel : public QObject
{
    Q_OBJECT
private slots:
    void constructionBuildsASampledPlan();
    void scalingFollowsTheDrive();
    void masterEnd_data();
    void masterEnd();
    void tooManyGridPoints_data();
    void tooManyGridPoints();
    void lawSwitchReplacesThePlanClass();
    void samplingRule_data();
    void samplingRule();
    void changedSignals_data();
    void changedSignals();
    void coarseStepsWhileDragging();
    void setRealStepsIgnoresCoarseSteps();
    void descriptionGoneLeavesAnEmptyPlan();
};

void tst_CamEditorModel::constructionBuildsASampledPlan()
{
    EditedCam cam({ { 0, 0 }, { 100, 50 }, { 200, 0 } });
    MotionPlan *plan = cam.model->motionPlan();
    QVERIFY(qobject_cast<MotionPlanVdi *>(plan));
    QCOMPARE(plan->parent(), cam.model.get());
    QCOMPARE(cam.model->motionPoints(), cam.description.motionPoints());
    QCOMPARE(cam.model->steps(), cam.description.steps());
    QCOMPARE(cam.model->motionLaw(), cam.description.motionLaw());
    QCOMPARE(cam.model->camDescription(), &cam.description);

    std::unique_ptr<MotionPlan> fresh = cam.freshPlan();
    fresh->calculateWithResolution(Steps::DefaultDynamicStepResolution);
    QVERIFY(!plan->positions().isEmpty());
    QCOMPARE(plan->positions(), fresh->positions());
    QCOMPARE(plan->velocities(), fresh->velocities());
}

void tst_CamEditorModel::scalingFollowsTheDrive()
{
    BoundTable bound;
    QVERIFY(bound.drive.writeValue(0, coordinate("G46"), 0, QStringLiteral("2")));
    CamDescriptionImplementation description(nullptr, QByteArray());
    CamEditorModel model(nullptr, &bound.model(), &description);
    QCOMPARE(model.scaling()->parent(), &model);
    QCOMPARE(model.scaling()->decimalPlaces(), 2);
    QCOMPARE(model.scaling()->masterPositionToText(1.0 / 3.0), QStringLiteral("0.33"));
}

void tst_CamEditorModel::masterEnd_data()
{
    QTest::addColumn<QList<QPointF>>("points");
    QTest::addColumn<bool>("cyclic");
    QTest::addColumn<double>("end");
    QTest::newRow("no points") << QList<QPointF>() << false << 1.0;
    QTest::newRow("no points, cyclic 360") << QList<QPointF>() << true << 360.0;
    QTest::newRow("last point 200") << QList<QPointF> { { 0, 0 }, { 200, 5 } } << false << 200.0;
    QTest::newRow("last point 200, cyclic 360") << QList<QPointF> { { 0, 0 }, { 200, 5 } } << true << 360.0;
    QTest::newRow("last point 400, cyclic 360") << QList<QPointF> { { 0, 0 }, { 400, 5 } } << true << 400.0;
}

void tst_CamEditorModel::masterEnd()
{
    QFETCH(QList<QPointF>, points);
    QFETCH(bool, cyclic);
    QFETCH(double, end);
    EditedCam cam(points, cyclic, 360.0);
    QCOMPARE(cam.model->masterEnd(), end);
}

void tst_CamEditorModel::tooManyGridPoints_data()
{
    QTest::addColumn<QList<QPointF>>("points");
    QTest::addColumn<bool>("cyclic");
    QTest::addColumn<double>("circularLength");
    QTest::addColumn<bool>("dynamic");
    QTest::addColumn<double>("stepSize");
    QTest::addColumn<bool>("tooMany");
    const QList<QPointF> one { { 0, 0 } };
    QTest::newRow("0.1 over 1600, one point") << one << true << 1600.0 << false << 0.1 << true;
    QTest::newRow("0.1001 over 1600, one point") << one << true << 1600.0 << false << 0.1001 << false;
    QTest::newRow("dynamic never") << one << true << 1600.0 << true << 0.1 << false;
    // Strictly greater: 15998 steps fit two points exactly.
    const QList<QPointF> two { { 0, 0 }, { 15998, 1 } };
    QTest::newRow("exactly the budget") << two << false << 1.0 << false << 1.0 << false;
    const QList<QPointF> longer { { 0, 0 }, { 15999, 1 } };
    QTest::newRow("one step over the budget") << longer << false << 1.0 << false << 1.0 << true;
}

void tst_CamEditorModel::tooManyGridPoints()
{
    QFETCH(QList<QPointF>, points);
    QFETCH(bool, cyclic);
    QFETCH(double, circularLength);
    QFETCH(bool, dynamic);
    QFETCH(double, stepSize);
    QFETCH(bool, tooMany);
    EditedCam cam(points, cyclic, circularLength);
    cam.description.steps()->setStaticStepSize(stepSize);
    cam.description.steps()->setIsDynamicStepSize(dynamic);
    QCOMPARE(cam.model->tooManyGridPoints(), tooMany);
}

void tst_CamEditorModel::lawSwitchReplacesThePlanClass()
{
    EditedCam cam({ { 0, 0 }, { 90, 10 }, { 180, 0 } });
    QPointer<MotionPlan> vdi = cam.model->motionPlan();
    QVERIFY(qobject_cast<MotionPlanVdi *>(vdi));

    cam.description.motionLaw()->setLaw(MotionLaw::Spline);
    QVERIFY(vdi.isNull());
    QPointer<MotionPlan> spline = cam.model->motionPlan();
    QVERIFY(qobject_cast<MotionPlanCubicSpline *>(spline));
    std::unique_ptr<MotionPlan> fresh = cam.freshPlan();
    fresh->calculateWithResolution(Steps::DefaultDynamicStepResolution);
    QCOMPARE(spline->positions(), fresh->positions());

    cam.description.motionLaw()->setLaw(MotionLaw::Vdi);
    QVERIFY(spline.isNull());
    QVERIFY(qobject_cast<MotionPlanVdi *>(cam.model->motionPlan()));
}

void tst_CamEditorModel::samplingRule_data()
{
    QTest::addColumn<bool>("dynamic");
    QTest::addColumn<int>("resolution");
    QTest::addColumn<double>("stepSize");
    QTest::newRow("dynamic 200") << true << 200 << 1.0;
    QTest::newRow("dynamic 3000") << true << 3000 << 1.0;
    QTest::newRow("static 0.7") << false << 500 << 0.7;
    QTest::newRow("static 25") << false << 500 << 25.0;
}

void tst_CamEditorModel::samplingRule()
{
    QFETCH(bool, dynamic);
    QFETCH(int, resolution);
    QFETCH(double, stepSize);
    EditedCam cam({ { 0, 0 }, { 150, 40 }, { 400, -20 }, { 500, 0 } });
    cam.description.steps()->setIsDynamicStepSize(dynamic);
    cam.description.steps()->setDynamicStepResolution(resolution);
    cam.description.steps()->setStaticStepSize(stepSize);

    std::unique_ptr<MotionPlan> fresh = cam.freshPlan();
    if (dynamic)
        fresh->calculateWithResolution(resolution);
    else
        fresh->calculate(stepSize);
    QCOMPARE(cam.model->motionPlan()->positions(), fresh->positions());
    QCOMPARE(cam.model->motionPlan()->jerks(), fresh->jerks());
}

// How often the model announces a change, for each kind of change. A point
// moved by setPosition only rebuilds the plan: the new plan is connected
// after its sampling, so nothing is forwarded until the next sampling.
void tst_CamEditorModel::changedSignals_data()
{
    QTest::addColumn<int>("change");
    QTest::addColumn<int>("changedSignals");
    QTest::addColumn<bool>("newPlan");
    QTest::newRow("cyclic flag") << 0 << 1 << true;
    QTest::newRow("law, rebuilt twice") << 1 << 2 << true;
    QTest::newRow("point edited") << 2 << 1 << true;
    QTest::newRow("point moved") << 3 << 0 << true;
    QTest::newRow("static step size") << 4 << 1 << true;
    QTest::newRow("applySteps") << 5 << 1 << false;
    QTest::newRow("endCoarseSteps") << 6 << 1 << true;
}

void tst_CamEditorModel::changedSignals()
{
    QFETCH(int, change);
    QFETCH(int, changedSignals);
    QFETCH(bool, newPlan);
    EditedCam cam({ { 0, 0 }, { 90, 10 }, { 180, 0 } });
    MotionPoint *point = cam.description.pointAt(90);
    QSignalSpy changed(cam.model.get(), &CamEditorModel::changed);
    QPointer<MotionPlan> before = cam.model->motionPlan();
    switch (change) {
    case 0: cam.description.setCyclic(true); break;
    case 1: cam.description.motionLaw()->setLaw(MotionLaw::Spline); break;
    case 2: point->setFrom(MotionPoint(95, 12, MotionPoint::acceleration)); break;
    case 3: point->setPosition(QPointF(95, 12)); break;
    case 4: cam.description.steps()->setStaticStepSize(2.0); break;
    case 5: cam.model->applySteps(); break;
    case 6: cam.model->endCoarseSteps(); break;
    }
    QCOMPARE(changed.count(), changedSignals);
    QCOMPARE(before.isNull(), newPlan);
}

void tst_CamEditorModel::coarseStepsWhileDragging()
{
    EditedCam cam({ { 0, 0 }, { 300, 80 }, { 1000, 0 } });
    cam.description.steps()->setIsDynamicStepSize(false);
    cam.description.steps()->setStaticStepSize(1.0);
    MotionPoint *point = cam.description.pointAt(300);

    cam.model->beginCoarseSteps();
    QVERIFY(cam.model->isCoarseSteps());
    point->setPosition(QPointF(320, 90));
    std::unique_ptr<MotionPlan> coarse = cam.freshPlan();
    coarse->calculate(coarse->masterRange() / CamEditorModel::CoarseStepCount);
    QCOMPARE(cam.model->motionPlan()->positions(), coarse->positions());

    QSignalSpy changed(cam.model.get(), &CamEditorModel::changed);
    cam.model->endCoarseSteps();
    QVERIFY(!cam.model->isCoarseSteps());
    QCOMPARE(changed.count(), 1);
    std::unique_ptr<MotionPlan> full = cam.freshPlan();
    full->calculate(1.0);
    QCOMPARE(cam.model->motionPlan()->positions(), full->positions());
    QVERIFY(full->positions() != coarse->positions());
}

void tst_CamEditorModel::setRealStepsIgnoresCoarseSteps()
{
    EditedCam cam({ { 0, 0 }, { 300, 80 }, { 1000, 0 } });
    cam.description.steps()->setIsDynamicStepSize(false);
    cam.description.steps()->setStaticStepSize(0.5);
    cam.model->beginCoarseSteps();
    cam.model->createNewMotionPlan();
    cam.model->setRealSteps();
    std::unique_ptr<MotionPlan> full = cam.freshPlan();
    full->calculate(0.5);
    QCOMPARE(cam.model->motionPlan()->positions(), full->positions());
    QVERIFY(cam.model->isCoarseSteps());
}

void tst_CamEditorModel::descriptionGoneLeavesAnEmptyPlan()
{
    BoundTable bound;
    auto *description = new CamDescriptionImplementation(nullptr, QByteArray());
    description->appendPoint(new MotionPoint(0, 0, MotionPoint::rest));
    description->appendPoint(new MotionPoint(50, 5, MotionPoint::rest));
    CamEditorModel model(nullptr, &bound.model(), description);
    QCOMPARE(model.motionPlan()->motionPoints().size(), 2);

    QSignalSpy changed(&model, &CamEditorModel::changed);
    delete description;
    QCOMPARE(changed.count(), 1);
    QVERIFY(model.motionPlan()->motionPoints().isEmpty());
    QCOMPARE(model.camDescription(), nullptr);
    QCOMPARE(model.masterEnd(), CamEditorModel::DefaultMasterEnd);
    QVERIFY(!model.tooManyGridPoints());
}

QTEST_GUILESS_MAIN(tst_CamEditorModel)
#include "tst_cameditormodel.moc"
