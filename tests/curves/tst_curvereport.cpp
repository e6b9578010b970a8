#include "planpoints.h"

#include "curves/curvereport.h"
#include "curves/motionplan.h"
#include "curves/motionplanfactory.h"
#include "curves/samplinglimit.h"
#include "model/fixedscaling.h"
#include "model/motionlaw.h"

#include <QTest>

#include <array>
#include <cmath>
#include <memory>

namespace {

std::unique_ptr<MotionPlan> planOf(int law, const PlanPoints &points, bool cyclic, double circularLength,
                                   Scaling *scaling)
{
    return std::unique_ptr<MotionPlan>(
        MotionPlanFactory::create(law, points.list, cyclic, circularLength, nullptr, scaling));
}

// An open cam bent by an acceleration and a turning point.
PlanPoints bentCam()
{
    PlanPoints points;
    points.add(0.0, 0.0);
    points.add(90.0, 40.0, MotionPoint::acceleration);
    points.add(180.0, 10.0, MotionPoint::turningPoint);
    points.add(250.0, 30.0);
    return points;
}

// The largest interpolation error found by walking each grid interval in
// fine steps: a lower bound of the exact figure and close to it.
double walkedError(const MotionPlan &plan, const QPolygonF &grid)
{
    constexpr int Steps = 200;
    double largest = 0.0;
    for (int j = 0; j + 1 < grid.size(); ++j) {
        const QPointF a = grid.at(j);
        const QPointF b = grid.at(j + 1);
        for (int i = 0; i <= Steps; ++i) {
            const double x = a.x() + (b.x() - a.x()) * i / Steps;
            const double chord = a.y() + (b.y() - a.y()) * (x - a.x()) / (b.x() - a.x());
            largest = std::max(largest, std::abs(plan.position(x) - chord));
        }
    }
    return largest;
}

} // namespace

class tst_CurveReport : public QObject
{
    Q_OBJECT
private slots:
    void cyclicSeam_data();
    void cyclicSeam();
    void samplingErrorIsTheExactMaximum();
    void smallestStepKeepsTheErrorUnderTheResolution();
    void gridPointLimitCannotReachAFineResolution();
};

void tst_CurveReport::cyclicSeam_data()
{
    QTest::addColumn<int>("law");
    QTest::addColumn<int>("seam");
    // A natural spline closed in position only: its end slope differs from
    // its start slope.
    QTest::newRow("spline jumps in velocity") << int(MotionLaw::Spline) << 0;
    // The last VDI section ends with the first one's start velocity and
    // acceleration.
    QTest::newRow("vdi continuous in acceleration") << int(MotionLaw::Vdi) << 2;
}

// The last continuous derivative at the seam is not merely zero meeting
// zero, the next one jumps. The inner joints take the same rule; the
// reference values of both laws hold what meets there.
void tst_CurveReport::cyclicSeam()
{
    QFETCH(int, law);
    QFETCH(int, seam);
    PlanPoints points;
    points.add(0.0, 5.0, MotionPoint::acceleration);
    points.add(90.0, 40.0, MotionPoint::speed);
    points.add(180.0, 10.0, MotionPoint::turningPoint);
    const auto plan = planOf(law, points, true, 300.0, nullptr);
    const CurveReport report(*plan);
    QCOMPARE(report.sections().front().startType == CurveReport::NoSegmentType, law == MotionLaw::Spline);
    QCOMPARE(int(report.joints().size()), 3);
    const CurveJointReport &joint = report.joints().back();
    QVERIFY(joint.seam);
    QCOMPARE(joint.master, 300.0);
    QCOMPARE(joint.continuity, seam);
    const std::array<double, 4> start { plan->position(0.0), plan->velocity(0.0), plan->acceleration(0.0), plan->jerk(0.0) };
    QVERIFY(std::abs(start[std::size_t(seam)]) > 1e-6);
    QVERIFY(std::abs(joint.jumps[std::size_t(seam + 1)]) > 100 * report.tolerance(seam + 1));
}

// The spline's pieces are polynomials as well as the VDI sections; the
// searched extremes of the other section laws are held by their closed forms.
void tst_CurveReport::samplingErrorIsTheExactMaximum()
{
    const PlanPoints points = bentCam();
    FixedScaling scaling(3);
    const auto plan = planOf(MotionLaw::Vdi, points, false, 360.0, &scaling);
    plan->calculate(0.9);
    const CurveReport report(*plan);
    const double walked = walkedError(*plan, plan->positions());
    const double exact = std::abs(report.samplingError().value);
    QVERIFY2(exact >= walked - 1e-12, qPrintable(QStringLiteral("%1 < %2").arg(exact).arg(walked)));
    QVERIFY(exact <= walked * 1.001);
    // The position found gives the figure.
    const QPolygonF grid = plan->positions();
    const double x = report.samplingError().master;
    int j = 0;
    while (grid.at(j + 1).x() < x)
        ++j;
    const double chord = grid.at(j).y() + (grid.at(j + 1).y() - grid.at(j).y()) * (x - grid.at(j).x())
        / (grid.at(j + 1).x() - grid.at(j).x());
    QVERIFY(std::abs(plan->position(x) - chord - report.samplingError().value) < 1e-9);
}

void tst_CurveReport::smallestStepKeepsTheErrorUnderTheResolution()
{
    const PlanPoints points = bentCam();
    FixedScaling scaling(3);
    const auto plan = planOf(MotionLaw::Vdi, points, false, 360.0, &scaling);
    const SamplingLimit limit = SamplingLimit::find(*plan);
    QCOMPARE(limit.resolution, 1e-3);
    QVERIFY(limit.staticReachable);
    const double quantum = 1e-3;
    const long long k = std::llround(limit.staticStepSize / quantum);
    QVERIFY(std::abs(SamplingLimit::errorWithStaticStep(*plan, double(k) * quantum).value) < limit.resolution);
    QVERIFY(std::abs(SamplingLimit::errorWithStaticStep(*plan, double(k + 1) * quantum).value) >= limit.resolution);
    QCOMPARE(limit.staticError.value, SamplingLimit::errorWithStaticStep(*plan, limit.staticStepSize).value);

    QVERIFY(limit.dynamicReachable);
    QVERIFY(std::abs(SamplingLimit::errorWithDynamicResolution(*plan, limit.dynamicResolution).value) < limit.resolution);
    QVERIFY(std::abs(SamplingLimit::errorWithDynamicResolution(*plan, limit.dynamicResolution - 1).value) >= limit.resolution);
    // The plan handed in keeps its own sampling.
    QVERIFY(plan->positions().isEmpty());
}

void tst_CurveReport::gridPointLimitCannotReachAFineResolution()
{
    PlanPoints points;
    points.add(0.0, 0.0);
    points.add(100.0, 50.0);
    FixedScaling scaling(9);
    const auto plan = planOf(MotionLaw::Vdi, points, false, 360.0, &scaling);
    const SamplingLimit limit = SamplingLimit::find(*plan);
    QVERIFY(!limit.staticReachable);
    QVERIFY(!limit.dynamicReachable);
    QVERIFY(std::abs(SamplingLimit::errorWithDynamicResolution(*plan, MotionPlan::MaximumGridPoints).value) >= 1e-9);
}

QTEST_GUILESS_MAIN(tst_CurveReport)
#include "tst_curvereport.moc"
