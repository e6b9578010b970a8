#include "densesolve.h"
#include "planpoints.h"

#include "curves/curvereport.h"
#include "curves/motionplan.h"
#include "curves/motionplanfactory.h"
#include "model/motionlaw.h"

#include <QTest>

#include <array>
#include <cmath>
#include <functional>
#include <memory>

// The laws are checked against models written out here from their textbook
// closed forms, not against the code that computes them.
namespace {

const double Pi = std::acos(-1.0);
using Derivatives = std::array<double, 4>; // value, first, second, third derivative

// The normalised rest-in-rest law f(u) and its derivatives by u.
Derivatives textbook(int law, double u)
{
    switch (law) {
    case MotionPoint::Cycloid:
        return { u - std::sin(2 * Pi * u) / (2 * Pi), 1 - std::cos(2 * Pi * u), 2 * Pi * std::sin(2 * Pi * u),
                 4 * Pi * Pi * std::cos(2 * Pi * u) };
    case MotionPoint::Harmonic:
        return { (1 - std::cos(Pi * u)) / 2, Pi / 2 * std::sin(Pi * u), Pi * Pi / 2 * std::cos(Pi * u),
                 -Pi * Pi * Pi / 2 * std::sin(Pi * u) };
    case MotionPoint::ModifiedSine: {
        const double n = 4 + Pi;
        if (u < 1.0 / 8 || u > 7.0 / 8) {
            const double c = u < 0.5 ? 0 : 4;
            return { (c + Pi * u - std::sin(4 * Pi * u) / 4) / n, (Pi - Pi * std::cos(4 * Pi * u)) / n,
                     4 * Pi * Pi * std::sin(4 * Pi * u) / n, 16 * Pi * Pi * Pi * std::cos(4 * Pi * u) / n };
        }
        const double a = 4 * Pi * u / 3 + Pi / 3;
        return { (2 + Pi * u - 2.25 * std::sin(a)) / n, (Pi - 3 * Pi * std::cos(a)) / n,
                 4 * Pi * Pi * std::sin(a) / n, 16 * Pi * Pi * Pi / 3 * std::cos(a) / n };
    }
    case MotionPoint::ModifiedTrapezoid: {
        // The first half integrated piece by piece; the second by the law's
        // point symmetry about (1/2, 1/2).
        if (u > 0.5) {
            const Derivatives d = textbook(law, 1 - u);
            return { 1 - d[0], d[1], -d[2], d[3] };
        }
        const double am = 8 * Pi / (Pi + 2);
        const double w = 4 * Pi;
        if (u <= 1.0 / 8)
            return { am * (u / w - std::sin(w * u) / (w * w)), am * (1 - std::cos(w * u)) / w, am * std::sin(w * u),
                     am * w * std::cos(w * u) };
        const double v1 = am / w;
        const double p1 = am * (1.0 / 8 / w - 1 / (w * w));
        if (u <= 3.0 / 8) {
            const double t = u - 1.0 / 8;
            return { p1 + v1 * t + am * t * t / 2, v1 + am * t, am, 0 };
        }
        const double v2 = v1 + am / 4;
        const double p2 = p1 + v1 / 4 + am / 32;
        const double t = u - 3.0 / 8;
        return { p2 + v2 * t + am * (1 - std::cos(w * t)) / (w * w), v2 + am * std::sin(w * t) / w,
                 am * std::cos(w * t), -am * w * std::sin(w * t) };
    }
    }
    return {};
}

// g with the inflection λ, derivatives by u.
Derivatives inflected(int law, double lambda, double u)
{
    if (u <= lambda) {
        const Derivatives f = textbook(law, u / (2 * lambda));
        return { 2 * lambda * f[0], f[1], f[2] / (2 * lambda), f[3] / (4 * lambda * lambda) };
    }
    const double m = 1 - lambda;
    const Derivatives f = textbook(law, 0.5 + (u - lambda) / (2 * m));
    return { lambda + 2 * m * (f[0] - 0.5), f[1], f[2] / (2 * m), f[3] / (4 * m * m) };
}

// ∫0^u g by Simpson's rule, split at the law's own break points.
double integral(int law, double lambda, double u)
{
    std::vector<double> bounds { 0.0 };
    for (double b : { 1.0 / 8, 3.0 / 8, 0.5, 5.0 / 8, 7.0 / 8 }) {
        const double left = 2 * lambda * b;
        const double right = lambda + 2 * (1 - lambda) * (b - 0.5);
        for (double x : { left, right })
            if (x > bounds.back() && x < u && (b <= 0.5 ? x == left : x == right))
                bounds.push_back(x);
    }
    bounds.push_back(u);
    double sum = 0;
    for (std::size_t k = 0; k + 1 < bounds.size(); ++k) {
        const int n = 2000;
        const double h = (bounds[k + 1] - bounds[k]) / n;
        for (int i = 0; i <= n; ++i) {
            const double weight = i == 0 || i == n ? 1 : (i % 2 ? 4 : 2);
            sum += weight * h / 3 * inflected(law, lambda, bounds[k] + i * h)[0];
        }
    }
    return sum;
}

// A section from (x0, y0) to (x1, y1) with boundary velocities v0, v1 and
// zero boundary accelerations, derivatives by master.
Derivatives normalisedSection(int law, double lambda, double x0, double y0, double x1, double y1, double v0,
                              double v1, double x)
{
    const double T = x1 - x0;
    const double u = (x - x0) / T;
    const Derivatives g = inflected(law, lambda, u);
    const double rest = y1 - y0 - v0 * T - (v1 - v0) * T * integral(law, lambda, 1.0);
    return { y0 + v0 * T * u + (v1 - v0) * T * integral(law, lambda, u) + rest * g[0],
             v0 + (v1 - v0) * g[0] + rest * g[1] / T, (v1 - v0) * g[1] / T + rest * g[2] / (T * T),
             (v1 - v0) * g[2] / (T * T) + rest * g[3] / (T * T * T) };
}

// The seventh-degree polynomial with position, velocity and acceleration
// given at both ends and zero jerk there, from its eight conditions.
Derivatives poly7Section(const std::array<double, 4> &start, const std::array<double, 4> &end, double x0, double x1,
                         double x)
{
    std::vector<std::vector<double>> a;
    std::vector<double> b;
    const double T = x1 - x0;
    for (int atEnd = 0; atEnd < 2; ++atEnd) {
        for (int k = 0; k < 4; ++k) {
            std::vector<double> row(8, 0.0);
            for (int p = k; p < 8; ++p) {
                double factor = 1;
                for (int j = 0; j < k; ++j)
                    factor *= p - j;
                row[std::size_t(p)] = factor * std::pow(atEnd ? T : 0.0, p - k);
            }
            a.push_back(row);
            b.push_back(atEnd ? end[std::size_t(k)] : start[std::size_t(k)]);
        }
    }
    const std::vector<double> c = solve(a, b);
    Derivatives d {};
    const double t = x - x0;
    for (int k = 0; k < 4; ++k)
        for (int p = k; p < 8; ++p) {
            double factor = 1;
            for (int j = 0; j < k; ++j)
                factor *= p - j;
            d[std::size_t(k)] += factor * c[std::size_t(p)] * std::pow(t, p - k);
        }
    return d;
}

Derivatives planAt(const MotionPlan &plan, double x)
{
    return { plan.position(x), plan.velocity(x), plan.acceleration(x), plan.jerk(x) };
}

std::unique_ptr<MotionPlan> planOf(int law, const PlanPoints &points, bool cyclic = false, double circular = 0)
{
    return std::unique_ptr<MotionPlan>(MotionPlanFactory::create(law, points.list, cyclic, circular, nullptr, nullptr));
}

MotionPoint *withLaw(PlanPoints &points, double master, double slave, MotionPoint::movementRules type, int law,
                     double lambda = 0.5)
{
    points.add(master, slave, type);
    MotionPoint *point = points.list.constLast();
    point->setSectionLaw(law);
    point->setInflection(lambda);
    return point;
}

// Compares a section of a plan with a model at many points inside it, each
// derivative relative to its largest magnitude there.
void compareSection(const MotionPlan &plan, double x0, double x1, const std::function<Derivatives(double)> &model)
{
    constexpr int Points = 97;
    std::array<double, 4> scale {};
    std::vector<Derivatives> expected;
    for (int i = 0; i < Points; ++i) {
        expected.push_back(model(x0 + (x1 - x0) * (i + 0.5) / Points));
        for (std::size_t k = 0; k < 4; ++k)
            scale[k] = std::max(scale[k], std::abs(expected.back()[k]));
    }
    for (int i = 0; i < Points; ++i) {
        const double x = x0 + (x1 - x0) * (i + 0.5) / Points;
        const Derivatives actual = planAt(plan, x);
        for (std::size_t k = 0; k < 4; ++k) {
            if (!(std::abs(actual[k] - expected[std::size_t(i)][k]) <= 1e-9 * std::max(scale[k], 1e-6)))
                QFAIL(qPrintable(QStringLiteral("x %1 derivative %2: %3, expected %4")
                                     .arg(x).arg(k).arg(actual[k], 0, 'g', 17).arg(expected[std::size_t(i)][k], 0, 'g', 17)));
        }
    }
}

} // namespace

class tst_SectionLaws : public QObject
{
    Q_OBJECT
private slots:
    void normalisedLaws_data();
    void normalisedLaws();
    void poly7AndLine();
    void cyclicCamMixingLaws();
    void fallbackToPoly5();
    void textbookCoefficients_data();
    void textbookCoefficients();
};

void tst_SectionLaws::normalisedLaws_data()
{
    QTest::addColumn<int>("law");
    QTest::addColumn<double>("lambda");
    QTest::addColumn<double>("v0");
    QTest::addColumn<double>("v1");
    const std::array<std::pair<const char *, int>, 4> laws { { { "cycloid", MotionPoint::Cycloid },
                                                              { "harmonic", MotionPoint::Harmonic },
                                                              { "modified sine", MotionPoint::ModifiedSine },
                                                              { "modified trapezoid", MotionPoint::ModifiedTrapezoid } } };
    for (const auto &law : laws) {
        QTest::addRow("%s rest in rest", law.first) << law.second << 0.5 << 0.0 << 0.0;
        QTest::addRow("%s inflection 0.8, velocities 0.2 and -0.1", law.first) << law.second << 0.8 << 0.2 << -0.1;
        QTest::addRow("%s velocities 0.9 and 0.4", law.first) << law.second << 0.5 << 0.9 << 0.4;
    }
}

// A first section whose ends are "speed" points with set velocities (or rest
// points), followed by a rest section; the mixed cyclic cam below takes
// more inflections.
void tst_SectionLaws::normalisedLaws()
{
    QFETCH(int, law);
    QFETCH(double, lambda);
    QFETCH(double, v0);
    QFETCH(double, v1);
    const bool moving = v0 != 0.0 || v1 != 0.0;
    const auto type = moving ? MotionPoint::speed : MotionPoint::rest;
    PlanPoints points;
    MotionPoint *first = withLaw(points, 10, -5, type, law, lambda);
    MotionPoint *second = withLaw(points, 110, 55, type, MotionPoint::Poly5);
    points.add(160, 80, MotionPoint::rest);
    if (moving) {
        first->setVelocity(v0);
        second->setVelocity(v1);
    }
    const auto plan = planOf(MotionLaw::Vdi, points);
    compareSection(*plan, 10, 110,
                   [&](double x) { return normalisedSection(law, lambda, 10, -5, 110, 55, v0, v1, x); });
}

void tst_SectionLaws::poly7AndLine()
{
    // Rest in rest: zero velocity, acceleration and jerk at both ends.
    PlanPoints rest;
    withLaw(rest, 0, 0, MotionPoint::rest, MotionPoint::Poly7);
    rest.add(50, 20);
    const auto restPlan = planOf(MotionLaw::Vdi, rest);
    compareSection(*restPlan, 0, 50, [](double x) { return poly7Section({ 0, 0, 0, 0 }, { 20, 0, 0, 0 }, 0, 50, x); });

    // Between an acceleration point and a turning point: the boundary values
    // of the quintic plan, met by a polynomial of degree seven.
    PlanPoints general;
    general.add(0, 0, MotionPoint::rest);
    general.add(40, 30, MotionPoint::acceleration);
    general.add(100, 80, MotionPoint::turningPoint);
    general.add(130, 10, MotionPoint::rest);
    const auto poly5 = planOf(MotionLaw::Vdi, general);
    const std::array<double, 4> start { 30, poly5->velocity(40), poly5->acceleration(40), 0 };
    const std::array<double, 4> end { 80, 0, poly5->acceleration(100), 0 };
    QVERIFY(start[1] != 0 && start[2] != 0 && end[2] != 0);
    general.list.at(1)->setSectionLaw(MotionPoint::Poly7);
    general.list.at(2)->setSectionLaw(MotionPoint::Line);
    const auto plan = planOf(MotionLaw::Vdi, general);
    compareSection(*plan, 40, 100, [&](double x) { return poly7Section(start, end, 40, 100, x); });
    compareSection(*plan, 100, 130, [](double x) { return Derivatives { 80 - 70 * (x - 100) / 30, -70.0 / 30, 0, 0 }; });
}

// Every law in one cyclic cam, the closing section by the last point's law.
void tst_SectionLaws::cyclicCamMixingLaws()
{
    PlanPoints points;
    withLaw(points, 0, 0, MotionPoint::rest, MotionPoint::Cycloid, 0.3);
    MotionPoint *speed = withLaw(points, 90, 50, MotionPoint::speed, MotionPoint::ModifiedSine, 0.6);
    speed->setVelocity(0.8);
    withLaw(points, 180, 100, MotionPoint::rest, MotionPoint::ModifiedTrapezoid);
    withLaw(points, 270, 40, MotionPoint::rest, MotionPoint::Harmonic, 0.4);
    const auto plan = planOf(MotionLaw::Vdi, points, true, 360);
    compareSection(*plan, 0, 90, [](double x) { return normalisedSection(MotionPoint::Cycloid, 0.3, 0, 0, 90, 50, 0, 0.8, x); });
    compareSection(*plan, 90, 180,
                   [](double x) { return normalisedSection(MotionPoint::ModifiedSine, 0.6, 90, 50, 180, 100, 0.8, 0, x); });
    compareSection(*plan, 180, 270, [](double x) {
        return normalisedSection(MotionPoint::ModifiedTrapezoid, 0.5, 180, 100, 270, 40, 0, 0, x);
    });
    compareSection(*plan, 270, 360,
                   [](double x) { return normalisedSection(MotionPoint::Harmonic, 0.4, 270, 40, 360, 0, 0, 0, x); });
}

// A normalised law does not apply where a boundary acceleration is not zero:
// the section is the quintic, bit for bit, and the report says so.
void tst_SectionLaws::fallbackToPoly5()
{
    PlanPoints points;
    withLaw(points, 0, 0, MotionPoint::rest, MotionPoint::ModifiedSine);
    MotionPoint *turning = withLaw(points, 50, 40, MotionPoint::turningPoint, MotionPoint::Cycloid);
    withLaw(points, 100, 10, MotionPoint::rest, MotionPoint::Cycloid);
    points.add(150, 0, MotionPoint::rest);
    const auto plan = planOf(MotionLaw::Vdi, points);
    const CurveReport report(*plan);
    turning->setSectionLaw(MotionPoint::Poly5);
    const auto reference = planOf(MotionLaw::Vdi, points);
    for (double x = 50; x <= 100; x += 0.37)
        QCOMPARE(planAt(*plan, x), planAt(*reference, x));
    QCOMPARE(report.sections()[1].law, int(MotionPoint::Cycloid));
    QCOMPARE(report.sections()[1].lawApplied, int(MotionPoint::Poly5));
    QCOMPARE(report.sections()[2].lawApplied, int(MotionPoint::Cycloid));
}

void tst_SectionLaws::textbookCoefficients_data()
{
    QTest::addColumn<int>("law");
    QTest::addColumn<double>("cv");
    QTest::addColumn<double>("ca");
    QTest::addColumn<double>("cj");
    QTest::addColumn<double>("tolerance");  // relative; the normalised laws' extremes are searched
    QTest::newRow("poly5") << int(MotionPoint::Poly5) << 1.875 << 10.0 / std::sqrt(3.0) << 60.0 << 1e-9;
    QTest::newRow("cycloid") << int(MotionPoint::Cycloid) << 2.0 << 2 * Pi << 4 * Pi * Pi << 1e-3;
    QTest::newRow("modified sine") << int(MotionPoint::ModifiedSine) << 4 * Pi / (4 + Pi) << 4 * Pi * Pi / (4 + Pi)
                                   << 16 * Pi * Pi * Pi / (4 + Pi) << 1e-3;
    QTest::newRow("modified trapezoid") << int(MotionPoint::ModifiedTrapezoid) << 2.0 << 8 * Pi / (Pi + 2)
                                        << 32 * Pi * Pi / (Pi + 2) << 1e-3;
    QTest::newRow("harmonic") << int(MotionPoint::Harmonic) << Pi / 2 << Pi * Pi / 2 << Pi * Pi * Pi / 2 << 1e-3;
    QTest::newRow("poly7") << int(MotionPoint::Poly7) << 35.0 / 16 << 84 * std::sqrt(5.0) / 25 << 52.5 << 1e-9;
}

// Rest in rest, every law is fastest in the middle of its section.
void tst_SectionLaws::textbookCoefficients()
{
    QFETCH(int, law);
    QFETCH(double, cv);
    QFETCH(double, ca);
    QFETCH(double, cj);
    QFETCH(double, tolerance);
    PlanPoints points;
    withLaw(points, 20, 3, MotionPoint::rest, law);
    points.add(65, -9, MotionPoint::rest);
    const auto plan = planOf(MotionLaw::Vdi, points);
    const CurveReport report(*plan);
    QCOMPARE(int(report.sections().size()), 1);
    const CurveSectionReport &section = report.sections().front();
    QCOMPARE(section.lawApplied, law);
    QVERIFY2(std::abs(section.cv / cv - 1) < tolerance, qPrintable(QString::number(section.cv)));
    QVERIFY2(std::abs(section.ca / ca - 1) < tolerance, qPrintable(QString::number(section.ca)));
    QVERIFY2(std::abs(section.cj / cj - 1) < tolerance, qPrintable(QString::number(section.cj)));
    QVERIFY(section.velocity.value < 0.0);
    QVERIFY2(std::abs(section.velocity.master - 42.5) < 45 * tolerance, qPrintable(QString::number(section.velocity.master)));
}

QTEST_GUILESS_MAIN(tst_SectionLaws)
#include "tst_sectionlaws.moc"
