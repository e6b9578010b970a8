#include "curves/camsectionfifthpolynomial.h"
#include "curves/motionplanvdi.h"
#include "model/fixedscaling.h"
#include "planpoints.h"

#include <QtTest>

#include <array>
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
    // A fifth-degree section on its own (which sections contain a position is
    // held by the reference tests): the terms of the position, which stored
    // tables hold, are summed a0 + a1 t + ... + a5 t^5 with std::pow, in this
    // order, t measured from the start, also before the start and after the
    // end. Coefficients of mixed magnitude make other orders or a Horner
    // scheme give other last digits for at least one of these positions. The
    // derivatives are held to the closed forms by the section law tests.
    void sumsPowersLowestFirst()
    {
        const std::array<double, 6> a{ 0.1, -1.0 / 3.0, 0.7, 1e-3 / 7.0, -2.0 / 9.0 * 1e-4, 3e-7 / 11.0 };
        CamSectionFifthPolynomial section(nullptr, 1.25, 200.0);
        section.setA0(a[0]);
        section.setA1(a[1]);
        section.setA2(a[2]);
        section.setA3(a[3]);
        section.setA4(a[4]);
        section.setA5(a[5]);
        bool hornerDiffers = false;
        for (double master : { -40.0, 1.25, 3.3, 17.1, 42.42, 77.7, 123.456, 199.9, 260.0 }) {
            const double t = master - 1.25;
            const double position = a[0] + a[1] * std::pow(t, 1) + a[2] * std::pow(t, 2) + a[3] * std::pow(t, 3)
                + a[4] * std::pow(t, 4) + a[5] * std::pow(t, 5);
            QCOMPARE(qint64(qFloatDistance(section.position(master), position)), qint64(0));
            const double horner = ((((a[5] * t + a[4]) * t + a[3]) * t + a[2]) * t + a[1]) * t + a[0];
            hornerDiffers = hornerDiffers || horner != position;
        }
        // Guards the test itself: the data must be able to tell the orders apart.
        QVERIFY(hornerDiffers);
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
        QTest::newRow("rest to speed") << cam(MotionPoint::rest, MotionPoint::rest, MotionPoint::speed, MotionPoint::rest) << false << 1 << false;
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
};

QTEST_GUILESS_MAIN(TestMotionPlanVdi)
#include "tst_motionplanvdi.moc"
