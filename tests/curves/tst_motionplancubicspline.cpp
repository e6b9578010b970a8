#include "curves/curvereport.h"
#include "curves/motionplancubicspline.h"
#include "model/motionlaw.h"
#include "model/fixedscaling.h"
#include "densesolve.h"
#include "planpoints.h"

Q_DECLARE_METATYPE(std::vector<double>)

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <vector>

class TestMotionPlanCubicSpline : public QObject
{
    Q_OBJECT
    FixedScaling m_scaling{ 3 };

private slots:
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
        const CurveReport report(plan);
        QCOMPARE(report.motionLaw(), int(periodic ? MotionLaw::SplinePeriodic : MotionLaw::Spline));
        if (periodic) {
            // The seam: velocity and acceleration at the end are those at the start.
            QVERIFY(std::abs(plan.velocity(x.back()) - plan.velocity(x.front())) < scale);
            QVERIFY(std::abs(plan.acceleration(x.back()) - plan.acceleration(x.front())) < scale);
            QVERIFY(report.joints().back().seam && report.joints().back().continuity >= 2);
        }
    }
};

QTEST_GUILESS_MAIN(TestMotionPlanCubicSpline)
#include "tst_motionplancubicspline.moc"
