#include "curves/ascendingsearch.h"
#include "curves/camsectionfifthpolynomial.h"
#include "curves/motionplancubicspline.h"
#include "curves/motionplanfactory.h"
#include "curves/motionplanvdi.h"
#include "curves/straightstretches.h"
#include "model/fixedscaling.h"
#include "planpoints.h"
#include "referencesampling.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <memory>

// The plans find sections and nearby motion points by binary search and pass
// over straight stretches quickly. These tests hold them, bit for bit, to the
// first-match rules taken literally, on random input.

namespace {

enum class Order { Ascending, WithDuplicates, Unsorted };

// Masters on a coarse grid so that duplicates and exact boundaries occur.
PlanPoints randomPoints(QRandomGenerator &random, int count, Order order, bool straightRuns)
{
    QVector<double> masters;
    double master = random.bounded(20) * 0.5;
    for (int i = 0; i < count; ++i) {
        masters.append(master);
        const bool repeat = order == Order::WithDuplicates && random.bounded(4) == 0;
        master += repeat ? 0.0 : 0.25 * (1 + random.bounded(40));
    }
    if (order == Order::Unsorted)
        std::shuffle(masters.begin(), masters.end(), random);
    PlanPoints points;
    double slave = 0.0;
    for (int i = 0; i < count; ++i) {
        const int type = straightRuns && random.bounded(3) != 0 ? int(MotionPoint::speed) : random.bounded(4);
        slave += straightRuns && type == MotionPoint::speed ? 2.0 : random.bounded(100) * 0.1 - 5.0;
        points.add(masters.at(i), slave, MotionPoint::movementRules(type));
    }
    return points;
}

struct Evaluations {
    double position;
    double velocity;
    double acceleration;
    double jerk;
};

// Position from the first containing section in list order; the others from
// the first, replaced by any later containing section's exact zero.
Evaluations referenceEvaluation(const MotionPlanVdi &plan, double x)
{
    Evaluations result{ 0.0, 0.0, 0.0, 0.0 };
    bool found = false;
    for (const CamSectionFifthPolynomial *section : plan.sections()) {
        if (!section->contains(x))
            continue;
        const Evaluations value{ section->position(x), section->velocity(x), section->acceleration(x),
                                 section->jerk(x) };
        if (!found) {
            result = value;
            found = true;
            continue;
        }
        if (value.velocity == 0.0)
            result.velocity = value.velocity;
        if (value.acceleration == 0.0)
            result.acceleration = value.acceleration;
        if (value.jerk == 0.0)
            result.jerk = value.jerk;
    }
    return result;
}

// Counts the evaluations of the acceleration, the plans' curvature test.
template <typename Plan>
class Counting : public Plan
{
public:
    using Plan::Plan;
    double acceleration(double master) const override
    {
        ++evaluations;
        return Plan::acceleration(master);
    }
    mutable qint64 evaluations = 0;
};

std::unique_ptr<MotionPlan> makePlan(int law, const PlanPoints &points, bool cyclic, Scaling *scaling)
{
    return std::unique_ptr<MotionPlan>(MotionPlanFactory::create(law, points.list, cyclic, 1000.0, nullptr, scaling));
}

} // namespace

Q_DECLARE_METATYPE(Order)

class TestCurvesReference : public QObject
{
    Q_OBJECT
    FixedScaling m_scaling{ 3 };

private slots:
    void ascendingSearch_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("distinct");
        QTest::newRow("empty") << 0 << 1;
        QTest::newRow("one") << 1 << 1;
        QTest::newRow("two") << 2 << 2;
        QTest::newRow("many distinct") << 3000 << 100000;
        QTest::newRow("many equal runs") << 3000 << 40;
        QTest::newRow("all equal") << 50 << 1;
    }

    // Random walks, jumps and repeated positions against std::lower_bound.
    void ascendingSearch()
    {
        QFETCH(int, count);
        QFETCH(int, distinct);
        QRandomGenerator random(quint32(count * 7 + distinct));
        std::vector<double> values;
        for (int i = 0; i < count; ++i)
            values.push_back(random.bounded(distinct) * 0.5);
        std::sort(values.begin(), values.end());
        const double top = distinct * 0.5;
        const AscendingSearch search;
        double walk = -1.0;
        for (int i = 0; i < 20000; ++i) {
            double x = 0.0;
            switch (random.bounded(6)) {
            case 0: x = random.bounded(top + 2.0) - 1.0; break;
            case 1: x = values.empty() ? 0.0 : values[random.bounded(int(values.size()))]; break;
            case 2: x = walk = walk + random.bounded(top / 50.0 + 0.01); break;
            case 3: x = walk - 1.0; break;
            case 4: x = i % 2 ? qInf() : -qInf(); break;
            default: x = i % 3 ? std::nan("") : std::nextafter(walk, -1e9); break;
            }
            const size_t expected = size_t(std::lower_bound(values.begin(), values.end(), x) - values.begin());
            const size_t found = search.lowerBound(values, x);
            if (found != expected)
                qWarning("at %.17g: %zu, expected %zu", x, found, expected);
            QCOMPARE(found, expected);
        }
    }

    void vdiSectionSearch_data()
    {
        QTest::addColumn<Order>("order");
        QTest::addColumn<bool>("cyclic");
        QTest::addColumn<quint32>("seed");
        for (quint32 seed = 1; seed <= 6; ++seed) {
            QTest::addRow("ascending %u", seed) << Order::Ascending << (seed % 2 == 0) << seed;
            QTest::addRow("with duplicates %u", seed) << Order::WithDuplicates << (seed % 2 == 0) << seed;
            QTest::addRow("unsorted %u", seed) << Order::Unsorted << (seed % 2 == 0) << seed;
            QTest::addRow("straight runs %u", seed) << Order::Ascending << (seed % 2 == 0) << seed + 100;
        }
    }

    void vdiSectionSearch()
    {
        QFETCH(Order, order);
        QFETCH(bool, cyclic);
        QFETCH(quint32, seed);
        QRandomGenerator random(seed);
        const PlanPoints points = randomPoints(random, 2 + random.bounded(40), order, seed > 100);
        MotionPlanVdi plan(points.list, cyclic, 1000.0, nullptr, &m_scaling);

        QVector<double> probes{ std::nan(""), -1e300, 1e300 };
        for (const MotionPoint *point : plan.motionPoints()) {
            probes << point->master() << std::nextafter(point->master(), -1e300)
                   << std::nextafter(point->master(), 1e300);
        }
        for (int i = 0; i < 2000; ++i)
            probes << random.bounded(1200.0) - 50.0 << random.bounded(4000) * 0.25 - 10.0;

        for (double x : qAsConst(probes)) {
            const Evaluations expected = referenceEvaluation(plan, x);
            const bool same = Reference::sameBits(plan.position(x), expected.position)
                && Reference::sameBits(plan.velocity(x), expected.velocity)
                && Reference::sameBits(plan.acceleration(x), expected.acceleration)
                && Reference::sameBits(plan.jerk(x), expected.jerk);
            if (!same)
                qWarning("at %.17g", x);
            QVERIFY(same);
        }
    }

    void sampling_data()
    {
        QTest::addColumn<int>("law");
        QTest::addColumn<Order>("order");
        QTest::addColumn<bool>("straightRuns");
        QTest::addColumn<quint32>("seed");
        for (quint32 seed = 1; seed <= 4; ++seed) {
            for (int law : { 0, 1 }) {
                const char *name = law == 0 ? "vdi" : "spline";
                QTest::addRow("%s ascending %u", name, seed) << law << Order::Ascending << false << seed;
                QTest::addRow("%s with duplicates %u", name, seed) << law << Order::WithDuplicates << false << seed;
                QTest::addRow("%s unsorted %u", name, seed) << law << Order::Unsorted << false << seed;
                QTest::addRow("%s straight runs %u", name, seed) << law << Order::Ascending << true << seed;
            }
        }
    }

    // Static steps on one plan, dynamic resolutions on fresh plans of the
    // other cyclic setting.
    void sampling()
    {
        QFETCH(int, law);
        QFETCH(Order, order);
        QFETCH(bool, straightRuns);
        QFETCH(quint32, seed);
        QRandomGenerator random(seed);
        const PlanPoints points = randomPoints(random, 2 + random.bounded(60), order, straightRuns);
        const bool cyclic = seed % 2 == 0;
        const std::unique_ptr<MotionPlan> plan = makePlan(law, points, cyclic, &m_scaling);
        for (double step : { 0.37, 1.0 / 7.0, 2.5, 0.01 }) {
            plan->calculate(step);
            QVERIFY(Reference::samePoints(plan->positions(), Reference::staticPositions(*plan, step, 0.001)));
        }
        for (int resolution : { 100, 777, 4000 }) {
            const std::unique_ptr<MotionPlan> fresh = makePlan(law, points, !cyclic, &m_scaling);
            fresh->calculateWithResolution(resolution);
            if (resolution <= fresh->motionPoints().size())
                continue;
            QVERIFY(Reference::samePoints(fresh->positions(), Reference::dynamicPositions(*fresh, resolution, 0.001)));
        }
    }

    void straightStretches_data()
    {
        QTest::addColumn<int>("owner");
        QTest::addColumn<QVector<double>>("stretches");  // first, last per piece
        const double after2 = std::nextafter(2.0, 3.0);
        // Pieces 0, 2 and 3 of five are straight.
        QTest::newRow("closed") << int(StraightStretches::Bounds::Closed)
                                << QVector<double>{ 0, 1, 1, 0, 2, 4, 2, 4, 1, 0 };
        QTest::newRow("open left, first piece closed") << int(StraightStretches::Bounds::OpenLeft)
                                                       << QVector<double>{ 0, 1, 1, 0, after2, 4, after2, 4, 1, 0 };
    }

    // Runs of straight pieces make one stretch; a piece that bends has none.
    void straightStretches()
    {
        QFETCH(int, owner);
        QFETCH(QVector<double>, stretches);
        const std::vector<double> bounds{ 0.0, 1.0, 2.0, 3.0, 4.0, 6.0 };
        const auto isStraight = [](std::size_t piece) { return piece == 0 || piece == 2 || piece == 3; };
        const std::vector<MasterInterval> found =
            StraightStretches::find(bounds, StraightStretches::Bounds(owner), isStraight);
        QVector<double> flat;
        for (const MasterInterval &stretch : found)
            flat << stretch.first << stretch.second;
        QCOMPARE(flat, stretches);
    }

    void straightCurvesStayCheap_data()
    {
        QTest::addColumn<int>("law");
        QTest::addColumn<int>("type");
        QTest::newRow("two speed points") << 0 << int(MotionPoint::speed);
        QTest::newRow("spline through two points") << 1 << int(MotionPoint::rest);
    }

    // A straight curve gets no step positions, so the refinement makes the step
    // tiny; the walk passes over it (some 128 million positions at the limit)
    // and gives what the rules give.
    void straightCurvesStayCheap()
    {
        QFETCH(int, law);
        QFETCH(int, type);
        PlanPoints points;
        points.add(0.0, 0.0, MotionPoint::movementRules(type));
        points.add(360.0, 720.0, MotionPoint::movementRules(type));
        std::unique_ptr<MotionPlan> plan = makePlan(law, points, false, &m_scaling);
        plan->calculateWithResolution(600);
        QVERIFY(Reference::samePoints(plan->positions(), Reference::dynamicPositions(*plan, 600, 0.001)));
        QCOMPARE(plan->positions().size(), 2);
        plan = makePlan(law, points, false, &m_scaling);
        plan->calculateWithResolution(MotionPlan::MaximumGridPoints);
        QCOMPARE(plan->positions().size(), 2);
    }

    void brokenOrderStaysBounded_data()
    {
        QTest::addColumn<QVector<double>>("masters");
        QTest::newRow("not a number inside") << QVector<double>{ 0.0, std::nan(""), 100.0 };
        QTest::newRow("not a number among many") << [] {
            QVector<double> masters;
            for (int i = 0; i < 100; ++i)
                masters << i << (i == 50 ? std::nan("") : i + 0.5);
            return masters;
        }();
        QTest::newRow("descending") << QVector<double>{ 100.0, 50.0, 0.0, 200.0 };
    }

    // Without ascending masters the plans fall back to the literal rules, which
    // cost a pass over all sections per evaluation. A straight curve then makes
    // the refinement walk a tiny step; the number of curvature tests is bounded
    // (three evaluations each), far below the tens of millions of an unbounded walk.
    void brokenOrderStaysBounded()
    {
        QFETCH(QVector<double>, masters);
        PlanPoints points;
        for (int i = 0; i < masters.size(); ++i)
            points.add(masters.at(i), 2.0 * masters.at(i), MotionPoint::speed);
        Counting<MotionPlanVdi> vdi(points.list, false, 1000.0, nullptr, &m_scaling);
        Counting<MotionPlanCubicSpline> spline(points.list, false, 1000.0, nullptr, &m_scaling);
        for (MotionPlan *plan : std::initializer_list<MotionPlan *>{ &vdi, &spline }) {
            plan->calculateWithResolution(MotionPlan::MaximumGridPoints);
            QVERIFY(plan->positions().size() <= MotionPlan::MaximumGridPoints);
            plan->calculate(0.0);
            QVERIFY(plan->positions().size() <= MotionPlan::MaximumGridPoints);
        }
        QVERIFY2(vdi.evaluations < 60 * MotionPlan::MaximumGridPoints, qPrintable(QString::number(vdi.evaluations)));
        QVERIFY2(spline.evaluations < 60 * MotionPlan::MaximumGridPoints, qPrintable(QString::number(spline.evaluations)));
    }

    void fewerThanTwoPointsEvaluateToZero()
    {
        PlanPoints none;
        PlanPoints one;
        one.add(5.0, 10.0, MotionPoint::acceleration);
        for (int law : { 0, 1 }) {
            for (const PlanPoints *points : { &none, &one }) {
                const std::unique_ptr<MotionPlan> plan = makePlan(law, *points, points == &none, &m_scaling);
                for (double m : { 0.0, 1.0, 5.0 })
                    QVERIFY(plan->position(m) == 0.0 && plan->velocity(m) == 0.0 && plan->acceleration(m) == 0.0
                            && plan->jerk(m) == 0.0);
            }
        }
    }
};


QTEST_GUILESS_MAIN(TestCurvesReference)
#include "tst_curvesreference.moc"
