#include "model/cameditormodel.h"

#include "boundtable.h"
#include "camdesigner/camdescriptionimplementation.h"
#include "curves/motionplancubicspline.h"
#include "curves/motionplanfactory.h"
#include "curves/motionplanvdi.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"
#include "model/scaling.h"
#include "model/steps.h"

#include <QAbstractItemModelTester>
#include <QAbstractListModel>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

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

// The smallest item model over the model's rows, as a list view builds it:
// the description's row notifications map one to one onto Qt's.
class PointListModel : public QAbstractListModel
{
public:
    explicit PointListModel(CamEditorModel *model)
        : m_model(model)
    {
        using Description = CamDescriptionImplementation;
        Description *d = model->camDescription();
        connect(d, &Description::pointsAboutToBeInserted, this, [this](int f, int l) { beginInsertRows({}, f, l); });
        connect(d, &Description::pointsInserted, this, [this] { endInsertRows(); });
        connect(d, &Description::pointsAboutToBeRemoved, this, [this](int f, int l) { beginRemoveRows({}, f, l); });
        connect(d, &Description::pointsRemoved, this, [this] { endRemoveRows(); });
        connect(d, &Description::pointAboutToBeMoved, this, [this](int from, int to) {
            QVERIFY(beginMoveRows({}, from, from, {}, to > from ? to + 1 : to));
        });
        connect(d, &Description::pointMoved, this, [this] { endMoveRows(); });
        connect(d, &Description::pointsChanged, this, [this](int f, int l) { emit dataChanged(index(f), index(l)); });
        connect(d, &Description::pointsAboutToBeReset, this, [this] { beginResetModel(); });
        connect(d, &Description::pointsReset, this, [this] { endResetModel(); });
    }
    int rowCount(const QModelIndex &parent) const override
    {
        return parent.isValid() ? 0 : m_model->motionPointCount();
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        const MotionPoint *point = m_model->motionPointAt(index.row());
        return point && role == Qt::DisplayRole ? QVariant(point->master()) : QVariant();
    }

private:
    CamEditorModel *m_model;
};

class tst_CamEditorModel : public QObject
{
    Q_OBJECT
private slots:
    void scalingFollowsTheDrive();
    void masterEndAndBudget_data();
    void masterEndAndBudget();
    void lawSwitchReplacesThePlanClass();
    void samplingRule_data();
    void samplingRule();
    void changedSignals_data();
    void changedSignals();
    void pointRowsForItemModels();
    void coarseStepsWhileDragging();
    void descriptionGoneLeavesAnEmptyPlan();
};

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
    const QList<QPointF> none;
    const QList<QPointF> one { { 0, 0 } };
    const QList<QPointF> to200 { { 0, 0 }, { 200, 5 } };
    QTest::newRow("no points") << none << false << 360.0 << true << 1.0 << 1.0 << false;
    QTest::newRow("no points, cyclic 360") << none << true << 360.0 << true << 1.0 << 360.0 << false;
    QTest::newRow("last point 200") << to200 << false << 360.0 << true << 1.0 << 200.0 << false;
    QTest::newRow("last point 200, cyclic 360") << to200 << true << 360.0 << true << 1.0 << 360.0 << false;
    QTest::newRow("last point 400, cyclic 360") << QList<QPointF> { { 0, 0 }, { 400, 5 } } << true << 360.0 << true << 1.0
                                                << 400.0 << false;
    QTest::newRow("0.1 over 1600, one point") << one << true << 1600.0 << false << 0.1 << 1600.0 << true;
    QTest::newRow("0.1001 over 1600, one point") << one << true << 1600.0 << false << 0.1001 << 1600.0 << false;
    QTest::newRow("dynamic never") << one << true << 1600.0 << true << 0.1 << 1600.0 << false;
    // Strictly greater: 15998 steps fit two points exactly.
    const QList<QPointF> two { { 0, 0 }, { 15998, 1 } };
    QTest::newRow("exactly the budget") << two << false << 1.0 << false << 1.0 << 15998.0 << false;
    const QList<QPointF> longer { { 0, 0 }, { 15999, 1 } };
    QTest::newRow("one step over the budget") << longer << false << 1.0 << false << 1.0 << 15999.0 << true;
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

// The model owns a plan of the law in force, sampled as a fresh one.
void tst_CamEditorModel::lawSwitchReplacesThePlanClass()
{
    EditedCam cam({ { 0, 0 }, { 90, 10 }, { 180, 0 } });
    QPointer<MotionPlan> vdi = cam.model->motionPlan();
    QVERIFY(qobject_cast<MotionPlanVdi *>(vdi));
    QCOMPARE(vdi->parent(), cam.model.get());
    std::unique_ptr<MotionPlan> fresh = cam.freshPlan();
    fresh->calculateWithResolution(Steps::DefaultDynamicStepResolution);
    QVERIFY(!vdi->positions().isEmpty());
    QCOMPARE(vdi->positions(), fresh->positions());
    QCOMPARE(vdi->velocities(), fresh->velocities());

    cam.description.motionLaw()->setLaw(MotionLaw::Spline);
    QVERIFY(vdi.isNull());
    QPointer<MotionPlan> spline = cam.model->motionPlan();
    QVERIFY(qobject_cast<MotionPlanCubicSpline *>(spline));
    fresh = cam.freshPlan();
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
    QTest::newRow("cyclic flag") << 0 << 1 << 1;
    QTest::newRow("law") << 1 << 2 << 1;
    QTest::newRow("point edited") << 2 << 1 << 1;
    QTest::newRow("point moved") << 3 << 0 << 1;
    QTest::newRow("static step size") << 4 << 1 << 1;
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
    const QJsonObject loaded { { "Cyclic", true },
                               { "MotionLaw", "Spline" },
                               { "MotionPoints", QJsonArray { QJsonArray { 0, 5 }, QJsonArray { 45, 1 } } } };
    switch (change) {
    case 0: cam.description.setCyclic(true); break;
    case 1: cam.description.motionLaw()->setLaw(MotionLaw::Spline); break;
    case 2: point->setFrom(MotionPoint(95, 12, MotionPoint::acceleration)); break;
    case 3: point->setPosition(QPointF(95, 12)); break;
    case 4: cam.description.steps()->setStaticStepSize(2.0); break;
    case 6: cam.model->endCoarseSteps(); break;
    case 7: cam.description.fromJson(loaded); break;
    case 8: cam.description.fromJson(cam.description.toJson()); break;
    }
    QCOMPARE(changed.count(), changedSignals);
    QCOMPARE(rebuilt.count(), rebuilds);
    std::unique_ptr<MotionPlan> fresh = cam.freshPlan();
    fresh->calculateWithResolution(Steps::DefaultDynamicStepResolution);
    if (change != 3)
        QCOMPARE(cam.model->motionPlan()->positions(), fresh->positions());
}

// Inserts, removals, a point passing its neighbours, an edit in place, a move
// onto another point and a load, checked against Qt's item model rules; a
// persistent index keeps following its point wherever its row goes.
void tst_CamEditorModel::pointRowsForItemModels()
{
    EditedCam cam({ { 0, 0 }, { 10, 1 }, { 20, 2 } });
    PointListModel list(cam.model.get());
    QAbstractItemModelTester tester(&list, QAbstractItemModelTester::FailureReportingMode::QtTest);
    CamDescriptionImplementation &description = cam.description;
    MotionPoint *followed = description.pointAt(20);
    QPersistentModelIndex index = list.index(2);
    const auto check = [&] {
        for (int row = 0; row < cam.model->motionPointCount(); ++row)
            QCOMPARE(cam.model->rowOfMotionPoint(cam.model->motionPointAt(row)), row);
        QCOMPARE(list.data(index, Qt::DisplayRole).toDouble(), followed->master());
    };

    description.appendPoint(new MotionPoint(5, 0, MotionPoint::rest));
    QCOMPARE(index.row(), 3);
    check();
    followed->setFrom(MotionPoint(7, 3, MotionPoint::speed));
    QCOMPARE(index.row(), 2);
    check();
    followed->setPosition(QPointF(30, 3));
    QCOMPARE(index.row(), 3);
    check();
    followed->setTypeByIndex(2);
    delete description.takePoint(description.pointAt(0));
    QCOMPARE(index.row(), 2);
    check();
    QCOMPARE(cam.model->rowOfMotionPoint(nullptr), -1);
    MotionPoint outside(30, 3, MotionPoint::rest);
    QCOMPARE(cam.model->rowOfMotionPoint(&outside), -1);

    // Pushes the point at 10 out of the map: the rows start again.
    description.pointAt(5)->setPosition(QPointF(10, 0));
    QCOMPARE(cam.model->motionPointCount(), 2);
    QVERIFY(!index.isValid());
    description.fromJson(QJsonObject { { "MotionPoints", QJsonArray { QJsonArray { 1, 1 } } } });
    QCOMPARE(list.rowCount({}), 1);
    QCOMPARE(cam.model->motionPointAt(0)->camDescription(), &description);
    QCOMPARE(cam.model->motionPointAt(1), nullptr);
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
    coarse->calculate(coarse->masterRange() / MotionPlanFactory::CoarseStepCount);
    QCOMPARE(cam.model->motionPlan()->positions(), coarse->positions());

    std::unique_ptr<MotionPlan> full = cam.freshPlan();
    full->calculate(1.0);
    QVERIFY(full->positions() != coarse->positions());

    QSignalSpy changed(cam.model.get(), &CamEditorModel::changed);
    cam.model->endCoarseSteps();
    QVERIFY(!cam.model->isCoarseSteps());
    QCOMPARE(changed.count(), 1);
    QCOMPARE(cam.model->motionPlan()->positions(), full->positions());
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
