#include "curves/camsectionfifthpolynomial.h"
#include "curves/curvereport.h"
#include "curves/motionplancubicspline.h"
#include "curves/motionplanvdi.h"
#include "densesolve.h"
#include "model/fixedscaling.h"
#include "model/motionlaw.h"
#include "planpoints.h"

#include <QtTest>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

Q_DECLARE_METATYPE(std::vector<double>)

// The two laws' plans: the fifth-degree sections by their rules, the cubic
// spline against the textbook.
class TestMotionPlanLaws : public QObject
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
        QTest::addColumn<QVector<int>>("types");
        QTest::addColumn<bool>("cyclic");
        QTest::addColumn<int>("section");
        QTest::addColumn<bool>("straight");

        const auto cam = [](int a, int b, int c, int d) { return QVector<int>{ a, b, c, d }; };
        QTest::newRow("speed pair after a rest point") << cam(MotionPoint::rest, MotionPoint::speed, MotionPoint::speed, MotionPoint::rest) << false << 1 << true;
        QTest::newRow("speed pair after a speed point") << cam(MotionPoint::speed, MotionPoint::speed, MotionPoint::speed, MotionPoint::rest) << false << 1 << false;
        QTest::newRow("first section") << cam(MotionPoint::speed, MotionPoint::speed, MotionPoint::rest, MotionPoint::rest) << false << 0 << true;
        QTest::newRow("rest to speed") << cam(MotionPoint::rest, MotionPoint::rest, MotionPoint::speed, MotionPoint::rest) << false << 1 << false;
        QTest::newRow("last section of cyclic cam") << cam(MotionPoint::speed, MotionPoint::speed, MotionPoint::speed, MotionPoint::speed) << true << 2 << false;
        QTest::newRow("same cam open") << cam(MotionPoint::speed, MotionPoint::speed, MotionPoint::speed, MotionPoint::speed) << false << 2 << true;
    }

    void straightSectionRule()
    {
        QFETCH(QVector<int>, types);
        QFETCH(bool, cyclic);
        QFETCH(int, section);
        QFETCH(bool, straight);
        // The slopes differ (1, 2, 0), so the general formulas bend the section.
        const double slaves[] = { 0, 10, 30, 30 };
        PlanPoints points;
        for (int i = 0; i < 4; ++i)
            points.add(10.0 * i, slaves[i], MotionPoint::movementRules(types.at(i)));
        // Circular length 30 adds no closing point: the last section ends at 30.
        MotionPlanVdi plan(points.list, cyclic, 30.0, nullptr, &m_scaling);
        const CamSectionFifthPolynomial *s = plan.sections().at(section);
        const bool withoutHigherTerms = s->a3() == 0.0 && s->a4() == 0.0 && s->a5() == 0.0;
        QCOMPARE(withoutHigherTerms, straight);
    }

    void startConditions_data()
    {
        QTest::addColumn<QVector<int>>("types");
        QTest::addColumn<bool>("cyclic");
        QTest::addColumn<int>("section");
        QTest::addColumn<double>("a1");
        QTest::addColumn<double>("a2");

        // Neighbouring slopes: Q = 2 over P = 10 behind, s = -1 over T = 30
        // ahead. A rest point's zeros are held by the rest-to-rest closed form.
        const auto around = [](int before, int type, int after) { return QVector<int>{ before, type, after }; };
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
    }

    void startConditions()
    {
        QFETCH(QVector<int>, types);
        QFETCH(bool, cyclic);
        QFETCH(int, section);
        PlanPoints points;
        points.add(0, 0, MotionPoint::movementRules(types.at(0)));
        points.add(10, 20, MotionPoint::movementRules(types.at(1)));
        points.add(40, -10, MotionPoint::movementRules(types.at(2)));
        MotionPlanVdi plan(points.list, cyclic, 0.0, nullptr, &m_scaling);
        QTEST(plan.sections().at(section)->a1(), "a1");
        QTEST(plan.sections().at(section)->a2(), "a2");
    }

    // One bend in the middle: the jerk up to the ends and the quadratic
    // continuation beyond them.
    void beyondTheKnots()
    {
        PlanPoints points;
        points.add(0.0, 0.0);
        points.add(10.0, 10.0);
        points.add(20.0, 0.0);
        MotionPlanCubicSpline plan(points.list, false, 0.0, nullptr, &m_scaling);
        const CubicSpline &spline = plan.spline();

        // The jerk belongs to the knots, not beyond.
        QVERIFY(spline.cubic().front() != 0.0);
        QVERIFY(plan.jerk(std::nextafter(0.0, -1.0)) == 0.0);
        QCOMPARE(plan.jerk(0.0), 6.0 * spline.cubic().front());
        QCOMPARE(plan.jerk(20.0), 6.0 * spline.cubic().at(1));
        QVERIFY(plan.jerk(std::nextafter(20.0, 21.0)) == 0.0);

        // Beyond the ends the curve goes on as a quadratic; left of the first knot
        // the acceleration is multiplied by the distance (deliberately kept).
        const double slope = spline.linear().front();
        QCOMPARE(plan.position(-4.0), -4.0 * slope);
        QCOMPARE(plan.velocity(-4.0), slope);
        QVERIFY(plan.acceleration(-4.0) == 0.0);
        const double endSlope = spline.linear().back();
        QCOMPARE(endSlope, plan.velocity(20.0));
        QCOMPARE(plan.position(25.0), (spline.quadratic().back() * 5.0 + endSlope) * 5.0 + spline.values().back());
        QCOMPARE(plan.acceleration(25.0), 2.0 * spline.quadratic().back());
    }

    void textbook_data()
    {
        QTest::addColumn<std::vector<double>>("masters");
        QTest::addColumn<std::vector<double>>("slaves");
        QTest::addColumn<bool>("cyclic");
        QTest::addColumn<double>("circularLength");
        QTest::addColumn<bool>("periodic");  // asked for; only a cyclic cam gets it
        // A cyclic cam: the closing point at the circular length is the last
        // knot, and the spline is natural there, not periodic.
        QTest::newRow("natural, cyclic") << std::vector<double> { 0, 3, 7.5, 9, 20 } << std::vector<double> { 1, -2, 4, 0, 8 } << true << 26.0 << false;
        QTest::newRow("periodic, two points") << std::vector<double> { 0, 200 } << std::vector<double> { 5, 30 } << true << 360.0 << true;
        QTest::newRow("periodic asked, open cam") << std::vector<double> { 0, 4, 9, 15 } << std::vector<double> { 1, 3, -2, 0.5 } << false << 20.0 << true;
        QTest::newRow("periodic, uneven") << std::vector<double> { 0, 10, 90, 180, 270 } << std::vector<double> { 0, 4, 50, 100, 40 } << true << 360.0 << true;
        QTest::newRow("periodic, closed by the last point") << std::vector<double> { 0, 1, 2.5, 4 } << std::vector<double> { 2, -1, 0, 2 } << true << 4.0 << true;
    }

    // Against the textbook spline: second derivatives M from
    // h[i-1]·M[i-1] + 2·(h[i-1] + h[i])·M[i] + h[i]·M[i+1] = 6·(d[i] - d[i-1]),
    // natural: M zero at both ends; periodic: indices modulo the number of
    // intervals. Solved as a dense system. The segment types mean nothing to
    // the spline.
    void textbook()
    {
        QFETCH(std::vector<double>, masters);
        QFETCH(std::vector<double>, slaves);
        QFETCH(bool, cyclic);
        QFETCH(double, circularLength);
        QFETCH(bool, periodic);
        PlanPoints points;
        for (size_t i = 0; i < masters.size(); ++i)
            points.add(masters[i], slaves[i], MotionPoint::movementRules(i % 4));
        MotionPlanCubicSpline plan(points.list, cyclic, circularLength, nullptr, &m_scaling, periodic);
        periodic = periodic && cyclic;

        std::vector<double> x = masters;
        std::vector<double> y = slaves;
        if (cyclic && circularLength > x.back()) {
            x.push_back(circularLength);
            y.push_back(y.front());
        }
        const size_t m = x.size() - 1;
        const auto h = [&](size_t i) { return x[i % m + 1] - x[i % m]; };
        const auto d = [&](size_t i) { return (y[i % m + 1] - y[i % m]) / h(i); };
        const size_t n = periodic ? m : m + 1;
        std::vector<std::vector<double>> a(n, std::vector<double>(n, 0.0));
        std::vector<double> b(n, 0.0);
        for (size_t i = 0; i < n; ++i) {
            if (!periodic && (i == 0 || i == m)) {
                a[i][i] = 1.0;
                continue;
            }
            a[i][(i + m - 1) % m] += h(i + m - 1);
            a[i][i] += 2 * (h(i + m - 1) + h(i));
            a[i][periodic ? (i + 1) % m : i + 1] += h(i);
            b[i] = 6 * (d(i) - d(i + m - 1));
        }
        std::vector<double> M = solve(a, b);
        if (periodic)
            M.push_back(M[0]);
        const double scale = 1e-10 * (1 + *std::max_element(y.begin(), y.end()) - *std::min_element(y.begin(), y.end()));
        for (size_t i = 0; i < m; ++i) {
            for (int k = 0; k <= 10; ++k) {
                const double t = x[i] + h(i) * k / 10;
                const double l = x[i + 1] - t;
                const double r = t - x[i];
                const double hi = h(i);
                const double position = M[i] * l * l * l / (6 * hi) + M[i + 1] * r * r * r / (6 * hi)
                    + (y[i] / hi - M[i] * hi / 6) * l + (y[i + 1] / hi - M[i + 1] * hi / 6) * r;
                const double velocity = -M[i] * l * l / (2 * hi) + M[i + 1] * r * r / (2 * hi) + d(i) - (M[i + 1] - M[i]) * hi / 6;
                const double acceleration = (M[i] * l + M[i + 1] * r) / hi;
                QVERIFY(std::abs(plan.position(t) - position) < scale);
                QVERIFY(std::abs(plan.velocity(t) - velocity) < scale);
                QVERIFY(std::abs(plan.acceleration(t) - acceleration) < scale);
                if (k > 0 && k < 10) // at a knot the piece before evaluates the jerk
                    QVERIFY(std::abs(plan.jerk(t) - (M[i + 1] - M[i]) / hi) < scale);
            }
        }
        QCOMPARE(CurveReport(plan).motionLaw(), int(periodic ? MotionLaw::SplinePeriodic : MotionLaw::Spline));
    }
};

QTEST_GUILESS_MAIN(TestMotionPlanLaws)
#include "tst_motionplanlaws.moc"
