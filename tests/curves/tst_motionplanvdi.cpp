#include "curves/camsectionfifthpolynomial.h"
#include "curves/motionplanvdi.h"
#include "model/fixedscaling.h"
#include "planpoints.h"

#include <QtTest>

#include <cmath>

namespace {

struct PointData {
    double master;
    double slave;
    MotionPoint::movementRules type;
};

PlanPoints planPointsOf(const QVector<PointData> &data)
{
    PlanPoints points;
    for (const PointData &point : data)
        points.add(point.master, point.slave, point.type);
    return points;
}

} // namespace

Q_DECLARE_METATYPE(QVector<PointData>)

class TestMotionPlanVdi : public QObject
{
    Q_OBJECT
    FixedScaling m_scaling{ 3 };

private slots:
    void twoRestPoints()
    {
        PlanPoints points;
        points.add(0.0, 0.0, MotionPoint::rest);
        points.add(100.0, 50.0, MotionPoint::rest);
        MotionPlanVdi plan(points.list, false, 0.0, nullptr, &m_scaling);
        QCOMPARE(plan.sections().size(), 1);
        const CamSectionFifthPolynomial *section = plan.sections().first();
        QCOMPARE(QPointF(section->start(), section->end()), QPointF(0.0, 100.0));
        QCOMPARE(section->a0() + section->a1() + section->a2(), 0.0);
        QCOMPARE(section->a3(), 0.0005);
        QCOMPARE(section->a4(), -0.0000075);
        QCOMPARE(section->a5(), 0.00000003);
        QCOMPARE(plan.position(50.0), 25.0);
        QCOMPARE(plan.position(100.0), 50.0);
        QCOMPARE(plan.velocity(100.0) + 1.0, 1.0);
    }

    void straightSectionRule_data()
    {
        QTest::addColumn<QVector<PointData>>("points");
        QTest::addColumn<bool>("cyclic");
        QTest::addColumn<int>("section");
        QTest::addColumn<bool>("straight");

        // The slopes differ (1, 2, 0), so the general formulas bend the section.
        const auto cam = [](MotionPoint::movementRules a, MotionPoint::movementRules b, MotionPoint::movementRules c, MotionPoint::movementRules d) {
            return QVector<PointData>{ { 0, 0, a }, { 10, 10, b }, { 20, 30, c }, { 30, 30, d } };
        };
        QTest::newRow("speed pair after a rest point") << cam(MotionPoint::rest, MotionPoint::speed, MotionPoint::speed, MotionPoint::rest) << false << 1 << true;
        QTest::newRow("speed pair after a speed point") << cam(MotionPoint::speed, MotionPoint::speed, MotionPoint::speed, MotionPoint::rest) << false << 1 << false;
        QTest::newRow("first section") << cam(MotionPoint::speed, MotionPoint::speed, MotionPoint::rest, MotionPoint::rest) << false << 0 << true;
        QTest::newRow("last section of open cam") << cam(MotionPoint::rest, MotionPoint::rest, MotionPoint::speed, MotionPoint::speed) << false << 2 << true;
        QTest::newRow("last section after a speed point") << cam(MotionPoint::rest, MotionPoint::speed, MotionPoint::speed, MotionPoint::speed) << false << 2 << true;
        QTest::newRow("rest to speed") << cam(MotionPoint::rest, MotionPoint::rest, MotionPoint::speed, MotionPoint::rest) << false << 1 << false;
        QTest::newRow("speed to rest") << cam(MotionPoint::rest, MotionPoint::speed, MotionPoint::rest, MotionPoint::rest) << false << 1 << false;
        QTest::newRow("last section of cyclic cam") << cam(MotionPoint::speed, MotionPoint::speed, MotionPoint::speed, MotionPoint::speed) << true << 2 << false;
        QTest::newRow("same cam open") << cam(MotionPoint::speed, MotionPoint::speed, MotionPoint::speed, MotionPoint::speed) << false << 2 << true;
    }

    void straightSectionRule()
    {
        QFETCH(QVector<PointData>, points);
        QFETCH(bool, cyclic);
        QFETCH(int, section);
        QFETCH(bool, straight);
        const PlanPoints planPoints = planPointsOf(points);
        // Circular length 30 adds no closing point: the last section ends at 30.
        MotionPlanVdi plan(planPoints.list, cyclic, 30.0, nullptr, &m_scaling);
        const CamSectionFifthPolynomial *s = plan.sections().at(section);
        const bool withoutHigherTerms = s->a3() == 0.0 && s->a4() == 0.0 && s->a5() == 0.0;
        QCOMPARE(withoutHigherTerms, straight);
    }

    void startConditions_data()
    {
        QTest::addColumn<QVector<PointData>>("points");
        QTest::addColumn<bool>("cyclic");
        QTest::addColumn<int>("section");
        QTest::addColumn<double>("a1");
        QTest::addColumn<double>("a2");

        // Neighbouring slopes: Q = 2 over P = 10 behind, s = -1 over T = 30 ahead.
        const auto around = [](MotionPoint::movementRules before, MotionPoint::movementRules type, MotionPoint::movementRules after) {
            return QVector<PointData>{ { 0, 0, before }, { 10, 20, type }, { 40, -10, after } };
        };
        QTest::newRow("rest") << around(MotionPoint::rest, MotionPoint::rest, MotionPoint::rest) << false << 1 << 0.0 << 0.0;
        QTest::newRow("speed after speed takes the slope behind") << around(MotionPoint::speed, MotionPoint::speed, MotionPoint::rest) << false << 1 << 2.0 << 0.0;
        QTest::newRow("speed before speed takes the slope ahead") << around(MotionPoint::rest, MotionPoint::speed, MotionPoint::speed) << false << 1 << -1.0 << 0.0;
        QTest::newRow("speed between speeds prefers the slope behind") << around(MotionPoint::speed, MotionPoint::speed, MotionPoint::speed) << false << 1 << 2.0 << 0.0;
        QTest::newRow("speed alone takes the weighted mean")
            << around(MotionPoint::rest, MotionPoint::speed, MotionPoint::rest) << false << 1 << 1.5 * (-1.0 * 10.0 + 2.0 * 30.0) / 40.0 << 0.0;
        QTest::newRow("turning point") << around(MotionPoint::rest, MotionPoint::turningPoint, MotionPoint::rest) << false << 1 << 0.0 << 1.5 * (-1.0 - 2.0) / 40.0;
        QTest::newRow("acceleration")
            << around(MotionPoint::rest, MotionPoint::acceleration, MotionPoint::rest) << false << 1 << 1.5 * (-1.0 * 10.0 + 2.0 * 30.0) / 40.0
            << 1.5 * (-1.0 - 2.0) / 40.0;
        QTest::newRow("turning point first of open cam") << around(MotionPoint::turningPoint, MotionPoint::rest, MotionPoint::rest) << false << 0 << 0.0 << 1.5 * 2.0 / 10.0;
        QTest::newRow("acceleration first of open cam") << around(MotionPoint::acceleration, MotionPoint::rest, MotionPoint::rest) << false << 0 << 0.0 << 1.5 * 2.0 / 10.0;
        QTest::newRow("acceleration first of cyclic cam")
            << around(MotionPoint::acceleration, MotionPoint::rest, MotionPoint::rest) << true << 0 << 1.5 * (2.0 * 0.0 + 0.0 * 10.0) / 10.0 << 1.5 * 2.0 / 10.0;
        QTest::newRow("speed first without speed neighbour")
            << around(MotionPoint::speed, MotionPoint::rest, MotionPoint::rest) << false << 0 << 1.5 * (2.0 * 0.0 + 0.0) / 10.0 << 0.0;
    }

    void startConditions()
    {
        QFETCH(QVector<PointData>, points);
        QFETCH(bool, cyclic);
        QFETCH(int, section);
        const PlanPoints planPoints = planPointsOf(points);
        MotionPlanVdi plan(planPoints.list, cyclic, 0.0, nullptr, &m_scaling);
        QTEST(plan.sections().at(section)->a1(), "a1");
        QTEST(plan.sections().at(section)->a2(), "a2");
        QCOMPARE(plan.sections().at(section)->a0(), points.at(section).slave);
    }

    // The last section of a cyclic cam ends with the first section's start
    // velocity and acceleration, so the curve closes smoothly.
    void cyclicLastSectionClosesOnFirst()
    {
        PlanPoints points;
        points.add(0.0, 0.0, MotionPoint::acceleration);
        points.add(90.0, 50.0, MotionPoint::speed);
        points.add(180.0, 100.0, MotionPoint::turningPoint);
        points.add(270.0, 40.0, MotionPoint::acceleration);
        MotionPlanVdi plan(points.list, true, 360.0, nullptr, &m_scaling);
        QCOMPARE(plan.sections().size(), 4);
        const CamSectionFifthPolynomial *first = plan.sections().first();
        const CamSectionFifthPolynomial *last = plan.sections().last();
        QCOMPARE(last->end(), 360.0);
        QCOMPARE(last->parent(), &plan);  // deleted with the plan
        QCOMPARE(last->position(360.0) + 1.0, 1.0);
        QCOMPARE(last->velocity(360.0), first->a1());
        QCOMPARE(last->acceleration(360.0), 2.0 * first->a2());
        for (int i = 0; i + 1 < plan.sections().size(); ++i) {
            const CamSectionFifthPolynomial *left = plan.sections().at(i);
            const CamSectionFifthPolynomial *right = plan.sections().at(i + 1);
            QCOMPARE(left->position(left->end()), right->a0());
            QCOMPARE(left->velocity(left->end()), right->a1());
            QCOMPARE(left->acceleration(left->end()), 2.0 * right->a2());
        }
    }
};

QTEST_GUILESS_MAIN(TestMotionPlanVdi)
#include "tst_motionplanvdi.moc"
