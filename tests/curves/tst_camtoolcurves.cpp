#include "camdesigner/camdescriptionimplementation.h"
#include "curves/motionplancubicspline.h"
#include "curves/motionplanvdi.h"
#include "model/fixedscaling.h"
#include "referencesampling.h"
#include "camtoolrunner.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

// Runs the built camtool on the bundled examples and on temporary files, and
// holds its output to the plans computed here.

namespace {


QString example(const char *name)
{
    return QStringLiteral(EXAMPLES_DIR "/") + QLatin1String(name);
}

double toNumber(const QJsonValue &value)
{
    if (value.isString()) {
        const QString text = value.toString();
        if (text == QLatin1String("NaN"))
            return std::nan("");
        return text.startsWith(QLatin1Char('-')) ? -qInf() : qInf();
    }
    return value.toDouble();
}

// JSON as Qt writes and reads it keeps every double but the sign of zero.
double unsignedZero(double value)
{
    return value == 0.0 ? 0.0 : value;
}

bool readsBack(double written, double expected)
{
    return Reference::sameBits(unsignedZero(written), unsignedZero(expected));
}

QPolygonF withoutSignedZeros(QPolygonF points)
{
    for (QPointF &point : points)
        point = QPointF(unsignedZero(point.x()), unsignedZero(point.y()));
    return points;
}

bool pointsReadBack(const QPolygonF &written, const QPolygonF &expected)
{
    return Reference::samePoints(withoutSignedZeros(written), withoutSignedZeros(expected));
}

QPolygonF toPoints(const QJsonValue &value)
{
    QPolygonF points;
    for (const QJsonValue &pair : value.toArray())
        points.append(QPointF(toNumber(pair.toArray().at(0)), toNumber(pair.toArray().at(1))));
    return points;
}

// The plan the tool should have built, from the same file.
struct LocalPlan {
    CamDescriptionImplementation description{ nullptr, QByteArray() };
    FixedScaling scaling;
    std::unique_ptr<MotionPlan> plan;

    LocalPlan(const QString &path, int decimals)
        : scaling(decimals)
    {
        description.fromJson(QJsonDocument::fromJson(readFile(path)).object());
        const QList<MotionPoint *> points = description.motionPoints();
        if (description.motionLaw()->law() == MotionLaw::Spline)
            plan = std::make_unique<MotionPlanCubicSpline>(points, description.isCyclic(),
                                                           description.circularLength(), nullptr, &scaling);
        else
            plan = std::make_unique<MotionPlanVdi>(points, description.isCyclic(), description.circularLength(),
                                                   nullptr, &scaling);
    }
};

QByteArray camFile(const QJsonArray &points, const QJsonObject &steps, const char *law = "Vdi2142")
{
    return QJsonDocument(QJsonObject{ { "CircularLength", 360 },
                                      { "Cyclic", false },
                                      { "MotionLaw", law },
                                      { "MotionPoints", points },
                                      { "Steps", steps } })
        .toJson();
}

} // namespace

class TestCamtoolCurves : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void sampleExamples_data();
    void sampleExamples();
    void evalExamples_data();
    void evalExamples();
    void badArguments_data();
    void badArguments();
    void fewerThanTwoPointsGiveEmptyLists();
    void badStepSettingsStayBounded_data();
    void badStepSettingsStayBounded();

private:
    QTemporaryDir m_directory;
    QString m_onePoint;
};

void TestCamtoolCurves::initTestCase()
{
    QVERIFY(QFile::exists(QStringLiteral(CAMTOOL_PATH)));
    QVERIFY(m_directory.isValid());
    m_onePoint = m_directory.filePath(QStringLiteral("onepoint.json"));
    QVERIFY(writeFile(m_onePoint, camFile(QJsonArray{ QJsonArray{ 10, 5, "rest" } },
                                          QJsonObject{ { "isDynamicStepSize", true } })));
}

void TestCamtoolCurves::sampleExamples_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("law");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<bool>("dynamic");
    QTest::addColumn<double>("step");

    QTest::newRow("cyclic VDI, file's dynamic steps")
        << example("cyclic-cam.json") << QStringList() << "Vdi2142" << 3 << true << 500.0;
    QTest::newRow("spline, file's static steps")
        << example("spline-cam.json") << QStringList() << "Spline" << 3 << false << 0.5;
    QTest::newRow("static override, one decimal")
        << example("cyclic-cam.json") << QStringList{ "--static", "2.5", "--decimals", "1" } << "Vdi2142" << 1 << false << 2.5;
    QTest::newRow("dynamic override")
        << example("spline-cam.json") << QStringList{ "--dynamic", "2000" } << "Spline" << 3 << true << 2000.0;
}

void TestCamtoolCurves::sampleExamples()
{
    QFETCH(QString, file);
    QFETCH(QStringList, options);
    QFETCH(int, decimals);
    QFETCH(bool, dynamic);
    QFETCH(double, step);
    const CamToolResult run = camtool(QStringList{ "sample", file } + options);
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.err.isEmpty());
    QJsonParseError error;
    const QJsonObject output = QJsonDocument::fromJson(run.out, &error).object();
    QCOMPARE(error.error, QJsonParseError::NoError);

    LocalPlan local(file, decimals);
    if (dynamic)
        local.plan->calculateWithResolution(int(step));
    else
        local.plan->calculate(step);
    QTEST(output.value("law").toString(), "law");
    QCOMPARE(output.value("masterRange").toDouble(), local.plan->masterRange());
    QCOMPARE(output.value("maximumMasterPosition").toDouble(), local.plan->maximumMasterPosition());
    QCOMPARE(output.value("minimumStepSize").toDouble(), local.plan->minimumStepSize());
    // Every number reads back to the same double.
    QVERIFY(local.plan->positions().size() > 50);
    QVERIFY(pointsReadBack(toPoints(output.value("positions")), local.plan->positions()));
    QVERIFY(pointsReadBack(toPoints(output.value("velocities")), local.plan->velocities()));
    QVERIFY(pointsReadBack(toPoints(output.value("accelerations")), local.plan->accelerations()));
    QVERIFY(pointsReadBack(toPoints(output.value("jerks")), local.plan->jerks()));
}

void TestCamtoolCurves::evalExamples_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("cyclic VDI") << example("cyclic-cam.json");
    QTest::newRow("spline") << example("spline-cam.json");
}

void TestCamtoolCurves::evalExamples()
{
    QFETCH(QString, file);
    const CamToolResult run = camtool({ "eval", file, "--at", "0,12.5,90,1e-3,-5,359.99", "--at", "nan" });
    QCOMPARE(run.exitCode, 0);
    const QJsonArray output = QJsonDocument::fromJson(run.out).array();
    QCOMPARE(output.size(), 7);
    LocalPlan local(file, 3);
    const double masters[] = { 0.0, 12.5, 90.0, 1e-3, -5.0, 359.99 };
    for (int i = 0; i < 6; ++i) {
        const QJsonObject object = output.at(i).toObject();
        const double m = masters[i];
        QCOMPARE(object.value("master").toDouble(), m);
        QVERIFY(readsBack(object.value("position").toDouble(), local.plan->position(m)));
        QVERIFY(readsBack(object.value("velocity").toDouble(), local.plan->velocity(m)));
        QVERIFY(readsBack(object.value("acceleration").toDouble(), local.plan->acceleration(m)));
        QVERIFY(readsBack(object.value("jerk").toDouble(), local.plan->jerk(m)));
    }
    QCOMPARE(output.at(6).toObject().value("master").toString(), QStringLiteral("NaN"));
}

void TestCamtoolCurves::badArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");

    const QString file = example("cyclic-cam.json");
    QTest::newRow("missing file") << QStringList{ "sample", m_directory.filePath("missing.json") } << 1;
    QTest::newRow("eval missing file") << QStringList{ "eval", m_directory.filePath("missing.json"), "--at", "1" } << 1;
    QTest::newRow("unparsable --at") << QStringList{ "eval", file, "--at", "1,abc" } << 1;
    QTest::newRow("empty --at entry") << QStringList{ "eval", file, "--at", "1,,2" } << 1;
    QTest::newRow("unparsable --static") << QStringList{ "sample", file, "--static", "fast" } << 1;
    QTest::newRow("unparsable --dynamic") << QStringList{ "sample", file, "--dynamic", "1.5" } << 1;
    QTest::newRow("--dynamic beyond int") << QStringList{ "sample", file, "--dynamic", "99999999999" } << 1;
    QTest::newRow("unparsable --decimals") << QStringList{ "sample", file, "--decimals", "x" } << 1;
    QTest::newRow("--decimals out of range") << QStringList{ "sample", file, "--decimals", "400" } << 1;
    QTest::newRow("both step options") << QStringList{ "sample", file, "--static", "1", "--dynamic", "10" } << 2;
    QTest::newRow("eval without --at") << QStringList{ "eval", file } << 2;
    QTest::newRow("sample without file") << QStringList{ "sample" } << 2;
    QTest::newRow("unknown option") << QStringList{ "sample", file, "--fast" } << 2;
}

void TestCamtoolCurves::badArguments()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    const CamToolResult run = camtool(arguments);
    QCOMPARE(run.exitCode, exitCode);
    QVERIFY(run.out.isEmpty());
    QVERIFY(!run.err.isEmpty());
    if (exitCode == 1)
        QCOMPARE(run.err.count('\n'), 1);
}

void TestCamtoolCurves::fewerThanTwoPointsGiveEmptyLists()
{
    const CamToolResult run = camtool({ "sample", m_onePoint });
    QCOMPARE(run.exitCode, 0);
    const QJsonObject output = QJsonDocument::fromJson(run.out).object();
    for (const char *key : { "positions", "velocities", "accelerations", "jerks" }) {
        QVERIFY(output.value(key).isArray());
        QVERIFY(output.value(key).toArray().isEmpty());
    }
    QCOMPARE(output.value("masterRange").toDouble(), 0.0);
}

void TestCamtoolCurves::badStepSettingsStayBounded_data()
{
    QTest::addColumn<QJsonObject>("steps");
    QTest::addColumn<int>("minimumCount");

    QTest::newRow("static zero") << QJsonObject{ { "isDynamicStepSize", false }, { "staticStepSize", 0 } } << 15000;
    QTest::newRow("static negative") << QJsonObject{ { "isDynamicStepSize", false }, { "staticStepSize", -3 } } << 15000;
    QTest::newRow("dynamic two billion") << QJsonObject{ { "isDynamicStepSize", true }, { "dynamicSteps", 2000000000 } } << 14000;
}

void TestCamtoolCurves::badStepSettingsStayBounded()
{
    QFETCH(QJsonObject, steps);
    QFETCH(int, minimumCount);
    const QString path = m_directory.filePath(QStringLiteral("steps.json"));
    QVERIFY(writeFile(path, camFile(QJsonArray{ QJsonArray{ 0, 0, "rest" }, QJsonArray{ 100, 20, "turningPoint" },
                                            QJsonArray{ 360, 5, "rest" } },
                                steps)));
    const CamToolResult run = camtool({ "sample", path });
    QCOMPARE(run.exitCode, 0);
    const int count = QJsonDocument::fromJson(run.out).object().value("positions").toArray().size();
    QVERIFY2(count >= minimumCount && count <= MotionPlan::MaximumGridPoints, qPrintable(QString::number(count)));
}

QTEST_GUILESS_MAIN(TestCamtoolCurves)
#include "tst_camtoolcurves.moc"
