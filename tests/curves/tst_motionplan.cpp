#include "curves/motionplan.h"
#include "model/fixedscaling.h"
#include "model/motionpoint.h"
#include "planpoints.h"
#include "referencesampling.h"

#include <QSignalSpy>
#include <QtTest>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <vector>

namespace {

using Function = std::function<double(double)>;

// A plan whose law is given by functions, so that the sampling rules can be
// tested apart from the real laws.
class FunctionPlan : public MotionPlan
{
public:
    FunctionPlan(const QList<MotionPoint *> &points, Function position, Function acceleration,
                 Scaling *scaling, bool cyclic = false, double circularLength = 0.0)
        : MotionPlan(points, cyclic, circularLength, nullptr, scaling)
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

using Points = PlanPoints;

QVector<double> mastersOf(const QPolygonF &points)
{
    QVector<double> masters;
    for (const QPointF &point : points)
        masters.append(point.x());
    return masters;
}

} // namespace

class TestMotionPlan : public QObject
{
    Q_OBJECT
private slots:
    void closingPoint_data();
    void closingPoint();
    void closingPointIsDeletedWithThePlan();
    void masterRange_data();
    void masterRange();
    void minimumStepSize_data();
    void minimumStepSize();

    void staticGridByRepeatedAddition();
    void restStretchGetsNoGridPoints();
    void quarterStepRule_data();
    void quarterStepRule();
    void resolutionTestLooksOneMasterUnitBack_data();
    void resolutionTestLooksOneMasterUnitBack();
    void differenceQuotient();
    void fewerThanTwoPointsChangeNothing();

    void dynamicNotAboveMotionPointCountOnlyNotifies();
    void dynamicRefinesOnce();
    void dynamicDerivativesAreAppended();

    void badStaticStepHeldToTheLimit_data();
    void badStaticStepHeldToTheLimit();
    void hugeDynamicResolutionTakenAsLimit();
    void degenerateInputsTerminate_data();
    void degenerateInputsTerminate();
    void tooManyMotionPointsLeaveNoStepPositions();

private:
    FixedScaling m_scaling{ 3 };
};

void TestMotionPlan::closingPoint_data()
{
    QTest::addColumn<bool>("cyclic");
    QTest::addColumn<double>("circularLength");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("maximum");

    QTest::newRow("cyclic, longer circle closes at 360") << true << 360.0 << 3 << 360.0;
    QTest::newRow("cyclic, circle ends at last point") << true << 200.0 << 2 << 200.0;
    QTest::newRow("cyclic, circle shorter than points") << true << 150.0 << 2 << 200.0;
    QTest::newRow("not cyclic") << false << 360.0 << 2 << 200.0;
    QTest::newRow("cyclic, circle not a number") << true << std::nan("") << 2 << 200.0;
}

void TestMotionPlan::closingPoint()
{
    QFETCH(bool, cyclic);
    QFETCH(double, circularLength);
    QFETCH(int, count);
    Points points;
    points.add(0.0, 7.5, MotionPoint::turningPoint);
    points.add(200.0, 30.0, MotionPoint::rest);
    FunctionPlan plan(points.list, Parabola, Bending, &m_scaling, cyclic, circularLength);

    const QList<MotionPoint *> planPoints = plan.motionPoints();
    QCOMPARE(planPoints.size(), count);
    QCOMPARE(planPoints.mid(0, 2), points.list);
    QFETCH(double, maximum);
    QCOMPARE(plan.maximumMasterPosition(), maximum);
    if (count == 3) {
        const MotionPoint *closing = planPoints.last();
        QCOMPARE(closing->master(), 360.0);
        QCOMPARE(closing->slave(), 7.5);
        QCOMPARE(closing->type(), int(MotionPoint::turningPoint));
        QCOMPARE(closing->parent(), nullptr);
    }
}

void TestMotionPlan::closingPointIsDeletedWithThePlan()
{
    Points points({ 0.0, 200.0 });
    auto plan = std::make_unique<FunctionPlan>(points.list, Parabola, Bending, &m_scaling, true, 360.0);
    QPointer<MotionPoint> closing = plan->motionPoints().last();
    QPointer<MotionPoint> own = points.list.first();
    plan.reset();
    QVERIFY(closing.isNull());
    QVERIFY(!own.isNull());
}

void TestMotionPlan::masterRange_data()
{
    QTest::addColumn<QVector<double>>("masters");
    QTest::addColumn<bool>("cyclic");
    QTest::addColumn<double>("circularLength");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("range");

    QTest::newRow("no points") << QVector<double>{} << true << 360.0 << 0.0 << 0.0;
    QTest::newRow("one point, even cyclic") << QVector<double>{ 50.0 } << true << 360.0 << 360.0 << 310.0;
    QTest::newRow("one point") << QVector<double>{ 50.0 } << false << 360.0 << 0.0 << 0.0;
    QTest::newRow("open") << QVector<double>{ 20.0, 50.0, 80.0 } << false << 360.0 << 80.0 << 60.0;
    QTest::newRow("cyclic") << QVector<double>{ 20.0, 50.0, 80.0 } << true << 360.0 << 360.0 << 340.0;
}

void TestMotionPlan::masterRange()
{
    QFETCH(QVector<double>, masters);
    QFETCH(bool, cyclic);
    QFETCH(double, circularLength);
    Points points(masters);
    FunctionPlan plan(points.list, Parabola, Bending, &m_scaling, cyclic, circularLength);
    QTEST(plan.maximumMasterPosition(), "maximum");
    QTEST(plan.masterRange(), "range");
}

void TestMotionPlan::minimumStepSize_data()
{
    QTest::addColumn<double>("last");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<double>("expected");

    QTest::newRow("360 over 15998, three places") << 360.0 << 3 << 0.023;
    QTest::newRow("360 over 15998, one place") << 360.0 << 1 << 0.0;
    QTest::newRow("360 over 15998, five places") << 360.0 << 5 << 0.0225;
    QTest::newRow("half rounds away from zero") << 15998.0 * 0.0125 << 2 << 0.01;
    QTest::newRow("half rounds up to next") << 15998.0 * 0.5 << 0 << 1.0;
}

void TestMotionPlan::minimumStepSize()
{
    QFETCH(double, last);
    QFETCH(int, decimals);
    Points points({ 0.0, last });
    FixedScaling scaling(decimals);
    FunctionPlan plan(points.list, Parabola, Bending, &scaling);
    QTEST(plan.minimumStepSize(), "expected");
}

void TestMotionPlan::staticGridByRepeatedAddition()
{
    Points points({ 0.0, 100.0 });
    FunctionPlan plan(points.list, Parabola, Bending, &m_scaling);
    QSignalSpy spy(&plan, &MotionPlan::stepSizeChanged);
    plan.calculate(10.0);
    QCOMPARE(spy.count(), 1);

    QVector<double> expected;
    double x = 0.0;
    for (int i = 0; i < 10; ++i, x = x + 10.0)
        expected.append(x);
    expected.append(100.0);
    const QPolygonF positions = plan.positions();
    QCOMPARE(mastersOf(positions), expected);
    for (const QPointF &point : positions)
        QCOMPARE(point.y(), Parabola(point.x()));
    QCOMPARE(plan.velocities().size(), 10);
    QCOMPARE(plan.accelerations().size(), 9);
    QCOMPARE(plan.jerks().size(), 8);

    // With a step that does not add up exactly the running sum decides.
    plan.calculate(0.1 * 100.0 / 7.0);
    const QPolygonF fine = plan.positions();
    double sum = 0.0;
    for (int i = 0; i + 1 < fine.size(); ++i, sum = sum + 0.1 * 100.0 / 7.0)
        QCOMPARE(Reference::sameBits(fine.at(i).x(), sum), true);
}

void TestMotionPlan::restStretchGetsNoGridPoints()
{
    // The slave rests between 30 and 70: no acceleration there.
    const Function acceleration = [](double x) { return x > 30.0 && x < 70.0 ? 0.0 : 1.0; };
    Points points({ 0.0, 30.0, 70.0, 100.0 });
    FunctionPlan plan(points.list, Parabola, acceleration, &m_scaling);
    for (double step : { 10.0, 1.0, 0.37 }) {
        plan.calculate(step);
        int between = 0;
        for (const QPointF &point : plan.positions())
            between += point.x() > 30.0 + step && point.x() < 70.0 - step ? 1 : 0;
        QCOMPARE(between, 0);
        QVERIFY(mastersOf(plan.positions()).contains(30.0));
        if (step >= 1.0)
            QVERIFY(mastersOf(plan.positions()).contains(20.0));
    }
}

void TestMotionPlan::quarterStepRule_data()
{
    QTest::addColumn<double>("motionPoint");
    QTest::addColumn<bool>("stepAt20Kept");

    QTest::newRow("exactly a quarter step above is kept") << 22.5 << true;
    QTest::newRow("exactly a quarter step below is kept") << 17.5 << true;
    QTest::newRow("closer above is dropped") << 22.4 << false;
    QTest::newRow("closer below is dropped") << 17.6 << false;
    QTest::newRow("on the step position") << 20.0 << true;
}

void TestMotionPlan::quarterStepRule()
{
    QFETCH(double, motionPoint);
    QFETCH(bool, stepAt20Kept);
    Points points({ 0.0, motionPoint, 100.0 });
    FunctionPlan plan(points.list, Parabola, Bending, &m_scaling);
    plan.calculate(10.0);
    const QVector<double> masters = mastersOf(plan.positions());
    // A motion point at 20 is a grid point itself.
    QCOMPARE(masters.contains(20.0), stepAt20Kept);
    QVERIFY(masters.contains(motionPoint));
    QVERIFY(masters.contains(30.0));
    QVERIFY(masters.contains(10.0));
}

void TestMotionPlan::resolutionTestLooksOneMasterUnitBack_data()
{
    QTest::addColumn<double>("offset");
    QTest::addColumn<int>("count");

    // position(x - 1) equals x: inner grid points vanish, the ends stay.
    QTest::newRow("slave one unit earlier equals master") << 1.0 << 2;
    QTest::newRow("ten resolution steps apart is kept") << 1.01 << 11;
    QTest::newRow("far apart") << 5.0 << 11;
}

void TestMotionPlan::resolutionTestLooksOneMasterUnitBack()
{
    QFETCH(double, offset);
    Points points({ 0.0, 50.0, 100.0 });
    FunctionPlan plan(points.list, [offset](double x) { return x + offset; }, Bending, &m_scaling);
    plan.calculate(10.0);
    QTEST(plan.positions().size(), "count");
    QCOMPARE(plan.positions().first().x(), 0.0);
    QCOMPARE(plan.positions().last().x(), 100.0);
}

void TestMotionPlan::differenceQuotient()
{
    const QPolygonF points(QVector<QPointF>{ QPointF(0.0, 0.0), QPointF(2.0, 4.0), QPointF(3.0, 10.0), QPointF(7.0, 2.0) });
    const QPolygonF expected(QVector<QPointF>{ QPointF(0.0, 2.0), QPointF(2.0, 6.0), QPointF(3.0, -2.0) });
    QCOMPARE(MotionPlan::differenceQuotient(points), expected);
    QVERIFY(MotionPlan::differenceQuotient(QPolygonF(QVector<QPointF>{ QPointF(1.0, 1.0) })).isEmpty());
    QVERIFY(MotionPlan::differenceQuotient(QPolygonF()).isEmpty());
}

void TestMotionPlan::fewerThanTwoPointsChangeNothing()
{
    Points points({ 5.0 });
    FunctionPlan plan(points.list, Parabola, Bending, &m_scaling);
    QSignalSpy spy(&plan, &MotionPlan::stepSizeChanged);
    plan.calculate(1.0);
    plan.calculateWithResolution(100);
    QCOMPARE(spy.count(), 0);
    QVERIFY(plan.positions().isEmpty());
    QVERIFY(plan.velocities().isEmpty());
}

void TestMotionPlan::dynamicNotAboveMotionPointCountOnlyNotifies()
{
    Points points({ 0.0, 10.0, 20.0, 30.0 });
    FunctionPlan plan(points.list, Parabola, Bending, &m_scaling);
    plan.calculate(1.0);
    const QPolygonF before = plan.positions();
    const QPolygonF velocitiesBefore = plan.velocities();
    QSignalSpy spy(&plan, &MotionPlan::stepSizeChanged);
    plan.calculateWithResolution(4);
    plan.calculateWithResolution(-3);
    QCOMPARE(spy.count(), 2);
    QCOMPARE(plan.positions(), before);
    QCOMPARE(plan.velocities(), velocitiesBefore);
}

void TestMotionPlan::dynamicRefinesOnce()
{
    // Only the second half bends: the first run gets about half the wanted
    // points, the refinement halves the step once.
    const Function acceleration = [](double x) { return x > 500.0 ? 1.0 : 0.0; };
    Points points({ 0.0, 1000.0 });
    FunctionPlan plan(points.list, Parabola, acceleration, &m_scaling);
    plan.calculateWithResolution(1000);
    const QPolygonF positions = plan.positions();

    const QPolygonF firstRun = Reference::sample(plan, 1000.0 / 998.0, 0.001);
    QVERIFY(firstRun.size() > 450 && firstRun.size() < 550);
    QVERIFY(Reference::samePoints(positions, Reference::sample(plan, firstRun.size() * (1000.0 / 998.0) / 1000, 0.001)));
    QVERIFY(positions.size() > 900 && positions.size() < 1100);
    QCOMPARE(positions.at(1).x() > 499.0, true);
}

void TestMotionPlan::dynamicDerivativesAreAppended()
{
    Points points({ 0.0, 100.0 });
    FunctionPlan plan(points.list, Parabola, Bending, &m_scaling);
    plan.calculateWithResolution(50);
    const QPolygonF positions = plan.positions();
    QCOMPARE(plan.velocities().size(), positions.size());
    QCOMPARE(plan.jerks().size(), positions.size());
    for (int i = 0; i < positions.size(); ++i) {
        QCOMPARE(plan.velocities().at(i), QPointF(positions.at(i).x(), 2.0 * positions.at(i).x()));
        QCOMPARE(plan.accelerations().at(i), QPointF(positions.at(i).x(), 1.0));
        QCOMPARE(plan.jerks().at(i), QPointF(positions.at(i).x(), -positions.at(i).x()));
    }
    plan.calculateWithResolution(50);
    QCOMPARE(plan.positions(), positions);
    QCOMPARE(plan.velocities().size(), 2 * positions.size());
    QCOMPARE(plan.accelerations().size(), 2 * positions.size());
    QCOMPARE(plan.jerks().mid(positions.size()), plan.jerks().mid(0, positions.size()));

    // The static path replaces them.
    plan.calculate(10.0);
    QCOMPARE(plan.velocities().size(), plan.positions().size() - 1);
}

void TestMotionPlan::badStaticStepHeldToTheLimit_data()
{
    QTest::addColumn<QVector<double>>("masters");
    QTest::addColumn<double>("step");
    // The step the plan must take instead: the range over the grid points
    // left after the motion points.
    QTest::addColumn<double>("limit");
    const QVector<double> two{ 0.0, 360.0 };
    QTest::newRow("zero") << two << 0.0 << 360.0 / 15998.0;
    QTest::newRow("negative") << two << -1.0 << 360.0 / 15998.0;
    QTest::newRow("negative infinity") << two << -std::numeric_limits<double>::infinity() << 360.0 / 15998.0;
    QTest::newRow("not a number") << two << std::nan("") << 360.0 / 15998.0;
    QTest::newRow("too small") << two << 1e-9 << 360.0 / 15998.0;
    QTest::newRow("too small for five motion points")
        << QVector<double>{ 0.0, 100.0, 300.0, 700.0, 1000.0 } << 0.001 << 1000.0 / 15995.0;
}

void TestMotionPlan::badStaticStepHeldToTheLimit()
{
    QFETCH(QVector<double>, masters);
    QFETCH(double, step);
    QFETCH(double, limit);
    Points points(masters);
    FunctionPlan plan(points.list, Parabola, Bending, &m_scaling);
    plan.calculate(step);
    const QPolygonF positions = plan.positions();
    QVERIFY(positions.size() <= MotionPlan::MaximumGridPoints);
    QVERIFY(positions.size() > 15000);
    QCOMPARE(positions.at(1).x(), limit);
    QVERIFY(Reference::samePoints(positions, Reference::sample(plan, limit, 0.001)));
}

void TestMotionPlan::hugeDynamicResolutionTakenAsLimit()
{
    Points points({ 0.0, 360.0 });
    FunctionPlan plan(points.list, Parabola, Bending, &m_scaling);
    plan.calculateWithResolution(2000000000);
    const QPolygonF positions = plan.positions();
    QVERIFY(positions.size() <= MotionPlan::MaximumGridPoints);
    QVERIFY(Reference::samePoints(positions, Reference::dynamicPositions(plan, 16000, 0.001)));
    QCOMPARE(plan.velocities().size(), positions.size());
}

void TestMotionPlan::degenerateInputsTerminate_data()
{
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::nan("");
    QTest::addColumn<QVector<double>>("masters");
    QTest::addColumn<double>("step");
    QTest::addColumn<int>("resolution");

    QTest::newRow("equal masters, zero step") << QVector<double>{ 5.0, 5.0 } << 0.0 << 16000;
    QTest::newRow("equal masters, step") << QVector<double>{ 5.0, 5.0, 5.0 } << 1.0 << 500;
    QTest::newRow("descending masters") << QVector<double>{ 10.0, 5.0 } << 0.0 << 16000;
    QTest::newRow("infinite end") << QVector<double>{ 0.0, inf } << 1.0 << 16000;
    QTest::newRow("infinite start") << QVector<double>{ -inf, 0.0 } << 0.0 << 16000;
    QTest::newRow("not a number") << QVector<double>{ 0.0, nan, 10.0 } << 1.0 << 16000;
    QTest::newRow("not a number first") << QVector<double>{ nan, 10.0 } << 1.0 << 16000;
    QTest::newRow("step lost in rounding") << QVector<double>{ 1e17, 1e17 + 64.0 } << 1e-3 << 16000;
    QTest::newRow("tiny range") << QVector<double>{ 0.0, 1e-310 } << 0.0 << 16000;
}

void TestMotionPlan::degenerateInputsTerminate()
{
    QFETCH(QVector<double>, masters);
    QFETCH(double, step);
    QFETCH(int, resolution);
    Points points(masters);
    FunctionPlan plan(points.list, Parabola, Bending, &m_scaling);
    QSignalSpy spy(&plan, &MotionPlan::stepSizeChanged);
    plan.calculate(step);
    QVERIFY(plan.positions().size() <= MotionPlan::MaximumGridPoints);
    plan.calculateWithResolution(resolution);
    QVERIFY(plan.positions().size() <= MotionPlan::MaximumGridPoints);
    QCOMPARE(spy.count(), 2);
}

void TestMotionPlan::tooManyMotionPointsLeaveNoStepPositions()
{
    Points points;
    for (int i = 0; i < MotionPlan::MaximumGridPoints + 5; ++i)
        points.add(i * 0.5, 0.0);
    FunctionPlan plan(points.list, [](double) { return -1.0; }, Bending, &m_scaling);
    plan.calculate(0.01);
    QCOMPARE(plan.positions().size(), points.list.size());
    plan.calculateWithResolution(16000);
    QCOMPARE(plan.positions().size(), points.list.size());
}

QTEST_GUILESS_MAIN(TestMotionPlan)
#include "tst_motionplan.moc"
