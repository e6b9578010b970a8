#include "curves/motionplan.h"
#include "curves/motionplancubicspline.h"
#include "curves/motionplanfactory.h"
#include "model/fixedscaling.h"
#include "model/motionlaw.h"
#include "model/steps.h"
#include "planpoints.h"
#include "referencesampling.h"

#include <QSignalSpy>
#include <QtTest>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>

namespace {

using Function = std::function<double(double)>;

// A plan whose law is given by functions, so that the sampling rules can be
// tested apart from the real laws.
class FunctionPlan : public MotionPlan
{
public:
    FunctionPlan(const QList<MotionPoint *> &points, Function position, Function acceleration, Scaling *scaling)
        : MotionPlan(points, false, 0.0, nullptr, scaling)
        , m_position(std::move(position))
        , m_acceleration(std::move(acceleration))
    {
    }
    double position(double master) const override { return m_position(master); }
    double velocity(double master) const override { return 2.0 * master; }
    double acceleration(double master) const override { return m_acceleration(master); }
    double jerk(double master) const override { return -master; }

private:
    Function m_position;
    Function m_acceleration;
};

const Function Parabola = [](double x) { return x * x / 1000.0; };
const Function Bending = [](double) { return 1.0; };

} // namespace

class TestMotionPlan : public QObject
{
    Q_OBJECT
    FixedScaling m_scaling{ 3 };

private slots:
    void staticGrid_data()
    {
        QTest::addColumn<double>("motionPoint");  // between 0 and 100
        QTest::addColumn<double>("offset");       // position(x) = x + offset
        QTest::addColumn<int>("count");
        // A step position closer than a quarter step to a motion point is
        // dropped; the motion point is a grid point itself.
        QTest::newRow("exactly a quarter step below is kept") << 17.5 << 5.0 << 12;
        QTest::newRow("closer below is dropped") << 17.6 << 5.0 << 11;
        // Inner grid points closer than the resolution to the slave position
        // one master unit earlier are dropped: position(x - 1) equals x here.
        QTest::newRow("slave one unit earlier equals master") << 50.0 << 1.0 << 2;
        QTest::newRow("ten resolution steps apart is kept") << 50.0 << 1.01 << 11;
    }

    // Step 10 from 0 to 100, each position reached by repeated addition, by
    // the literal rules; the count tells which way each boundary went.
    void staticGrid()
    {
        QFETCH(double, motionPoint);
        QFETCH(double, offset);
        PlanPoints points({ 0.0, motionPoint, 100.0 });
        FunctionPlan plan(points.list, [offset](double x) { return x + offset; }, Bending, &m_scaling);
        plan.calculate(10.0);
        QTEST(int(plan.positions().size()), "count");
        QVERIFY(Reference::samePoints(plan.positions(), Reference::sample(plan, 10.0, 0.001)));
    }

    void dynamicDerivativesAreAppended()
    {
        PlanPoints points({ 0.0, 100.0 });
        FunctionPlan plan(points.list, Parabola, Bending, &m_scaling);
        plan.calculateWithResolution(50);
        const QPolygonF positions = plan.positions();
        for (int i = 0; i < positions.size(); ++i)
            QCOMPARE(plan.velocities().at(i), QPointF(positions.at(i).x(), 2.0 * positions.at(i).x()));
        plan.calculateWithResolution(50);
        QCOMPARE(plan.positions(), positions);
        QCOMPARE(plan.velocities().size(), 2 * positions.size());
        QCOMPARE(plan.velocities().mid(positions.size()), plan.velocities().mid(0, positions.size()));
    }

    // A step that is not a number and a count beyond the limit: the plan
    // takes the range over the grid points left after the motion points. A
    // step merely too small is held to the limit in the random reference
    // sampling.
    void badStepsHeldToTheLimit()
    {
        PlanPoints points({ 0.0, 360.0 });
        const double limit = 360.0 / 15998.0;
        FunctionPlan statically(points.list, Parabola, Bending, &m_scaling);
        statically.calculate(std::nan(""));
        FunctionPlan dynamically(points.list, Parabola, Bending, &m_scaling);
        dynamically.calculateWithResolution(2000000000);
        for (const FunctionPlan *plan : { &statically, &dynamically }) {
            QCOMPARE(plan->positions().at(1).x(), limit);
            QVERIFY(Reference::samePoints(plan->positions(), Reference::sample(*plan, limit, 0.001)));
        }
    }

    void degenerateInputs_data()
    {
        const double inf = std::numeric_limits<double>::infinity();
        const double nan = std::nan("");
        QTest::addColumn<QVector<double>>("masters");
        QTest::addColumn<double>("step");
        QTest::addColumn<int>("resolution");
        QTest::addColumn<int>("notifications");

        // Fewer than two points: nothing to sample, nothing said.
        QTest::newRow("one point") << QVector<double>{ 5.0 } << 1.0 << 16000 << 0;
        // A wanted count not above the motion points only notifies.
        QTest::newRow("count not above the motion points") << QVector<double>{ 0.0, 10.0, 20.0, 30.0 } << 1.0 << 4 << 2;
        // The others must end, within the grid point limit or the motion points.
        QTest::newRow("infinite end") << QVector<double>{ 0.0, inf } << 1.0 << 16000 << 2;
        QTest::newRow("not a number first") << QVector<double>{ nan, 10.0 } << 1.0 << 16000 << 2;
        QTest::newRow("step lost in rounding") << QVector<double>{ 1e17, 1e17 + 64.0 } << 1e-3 << 16000 << 2;
        QTest::newRow("tiny range") << QVector<double>{ 0.0, 1e-310 } << 0.0 << 16000 << 2;
        // More motion points than the limit leave no room for step positions.
        QVector<double> many;
        for (int i = 0; i < MotionPlan::MaximumGridPoints + 5; ++i)
            many.append(i * 0.5);
        QTest::newRow("more motion points than grid points") << many << 0.01 << 16000 << 2;
    }

    void degenerateInputs()
    {
        QFETCH(QVector<double>, masters);
        QFETCH(double, step);
        QFETCH(int, resolution);
        PlanPoints points(masters);
        FunctionPlan plan(points.list, Parabola, Bending, &m_scaling);
        QSignalSpy spy(&plan, &MotionPlan::stepSizeChanged);
        plan.calculate(step);
        const int limit = std::max(int(MotionPlan::MaximumGridPoints), masters.size());
        const QPolygonF positions = plan.positions();
        const QPolygonF velocities = plan.velocities();
        QVERIFY(positions.size() <= limit);
        QCOMPARE(positions.isEmpty(), masters.size() < 2);
        plan.calculateWithResolution(resolution);
        QVERIFY(plan.positions().size() <= limit);
        QTEST(int(spy.count()), "notifications");
        if (resolution <= masters.size()) {
            QCOMPARE(plan.positions(), positions);
            QCOMPARE(plan.velocities(), velocities);
        }
    }

    void factory_data()
    {
        QTest::addColumn<int>("law");
        QTest::addColumn<bool>("spline");
        QTest::addColumn<bool>("periodic");
        QTest::addColumn<int>("steps");  // 0: none given, else the dynamic resolution
        QTest::newRow("VDI, no steps") << int(MotionLaw::Vdi) << false << false << 0;
        QTest::newRow("spline, dynamic 3000") << int(MotionLaw::Spline) << true << false << 3000;
        QTest::newRow("periodic spline, dynamic 800") << int(MotionLaw::SplinePeriodic) << true << true << 800;
    }

    // The plan of each law, sampled at the resolution the steps ask for, or
    // at the default one where none are given. The editor model's coarse
    // steps test holds the static step against a plan of its own.
    void factory()
    {
        QFETCH(int, law);
        QFETCH(bool, spline);
        QFETCH(bool, periodic);
        QFETCH(int, steps);
        PlanPoints points;
        points.add(0.0, 0.0, MotionPoint::acceleration);
        points.add(120.0, 40.0, MotionPoint::turningPoint);
        points.add(300.0, -10.0, MotionPoint::speed);
        const std::unique_ptr<MotionPlan> plan(MotionPlanFactory::create(law, points.list, true, 360.0, nullptr, &m_scaling));
        QCOMPARE(plan->metaObject()->className(), spline ? "MotionPlanCubicSpline" : "MotionPlanVdi");
        if (spline)
            QCOMPARE(static_cast<MotionPlanCubicSpline *>(plan.get())->spline().isPeriodic(), periodic);

        Steps settings;
        settings.setDynamicStepResolution(steps);
        MotionPlanFactory::sample(plan.get(), steps == 0 ? nullptr : &settings, false);
        const std::unique_ptr<MotionPlan> twin(MotionPlanFactory::create(law, points.list, true, 360.0, nullptr, &m_scaling));
        twin->calculateWithResolution(steps == 0 ? Steps::DefaultDynamicStepResolution : steps);
        QVERIFY(plan->positions().size() > 10);
        QVERIFY(Reference::samePoints(plan->positions(), twin->positions()));
    }
};

QTEST_GUILESS_MAIN(TestMotionPlan)
#include "tst_motionplan.moc"
