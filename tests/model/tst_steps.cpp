#include "model/steps.h"

#include <QJsonDocument>
#include <QSignalSpy>
#include <QTest>

#include <limits>

class tst_Steps : public QObject
{
    Q_OBJECT
private slots:
    void fromJson_data();
    void fromJson();
    void settersEmitOnlyOnChange();
    void toJsonRoundTrip();
};

void tst_Steps::fromJson_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<bool>("dynamic");
    QTest::addColumn<double>("staticStep");
    QTest::addColumn<int>("resolution");
    QTest::addColumn<int>("signalCount");
    // A fresh object starts from these defaults.
    QTest::newRow("empty object keeps defaults silently") << QByteArray("{}") << true << 1.0 << 500 << 0;
    QTest::newRow("499.99 truncates to 499") << QByteArray(R"({"dynamicSteps": 499.99})") << true << 1.0 << 499 << 1;
    QTest::newRow("12.7 truncates to 12") << QByteArray(R"({"dynamicSteps": 12.7})") << true << 1.0 << 12 << 1;
    QTest::newRow("negative truncates toward zero") << QByteArray(R"({"dynamicSteps": -3.9})") << true << 1.0 << -3 << 1;
    QTest::newRow("string resolution gives default") << QByteArray(R"({"dynamicSteps": "700"})") << true << 1.0 << 500 << 0;
    QTest::newRow("huge resolution is held to int") << QByteArray(R"({"dynamicSteps": 1e300})") << true << 1.0
                                                  << std::numeric_limits<int>::max() << 1;
    QTest::newRow("all three") << QByteArray(R"({"dynamicSteps": 20, "isDynamicStepSize": false, "staticStepSize": 0.25})")
                               << false << 0.25 << 20 << 3;
    QTest::newRow("wrong types give defaults") << QByteArray(R"({"isDynamicStepSize": 0, "staticStepSize": "2"})")
                                               << true << 1.0 << 500 << 0;
    QTest::newRow("zero and negative step stored as given")
        << QByteArray(R"({"staticStepSize": -2})") << true << -2.0 << 500 << 1;
}

void tst_Steps::fromJson()
{
    QFETCH(QByteArray, json);
    QFETCH(bool, dynamic);
    QFETCH(double, staticStep);
    QFETCH(int, resolution);
    QFETCH(int, signalCount);
    Steps steps;
    QSignalSpy resolutionSpy(&steps, &Steps::dynamicStepResolutionChanged);
    QSignalSpy dynamicSpy(&steps, &Steps::isDynamicStepSizeChanged);
    QSignalSpy staticSpy(&steps, &Steps::staticStepSizeChanged);
    steps.fromJson(QJsonDocument::fromJson(json).object());
    QCOMPARE(steps.isDynamicStepSize(), dynamic);
    QCOMPARE(steps.staticStepSize(), staticStep);
    QCOMPARE(steps.dynamicStepResolution(), resolution);
    QCOMPARE(resolutionSpy.count() + dynamicSpy.count() + staticSpy.count(), signalCount);
}

void tst_Steps::settersEmitOnlyOnChange()
{
    Steps steps;
    QSignalSpy resolutionSpy(&steps, &Steps::dynamicStepResolutionChanged);
    QSignalSpy dynamicSpy(&steps, &Steps::isDynamicStepSizeChanged);
    QSignalSpy staticSpy(&steps, &Steps::staticStepSizeChanged);

    steps.setStaticStepSize(1.0);
    steps.setDynamicStepResolution(500);
    steps.setIsDynamicStepSize(true);
    QCOMPARE(resolutionSpy.count() + dynamicSpy.count() + staticSpy.count(), 0);

    steps.setStaticStepSize(0.5);
    QCOMPARE(staticSpy.count(), 1);
    steps.setDynamicStepResolution(100);
    QCOMPARE(resolutionSpy.count(), 1);
    steps.setIsDynamicStepSize(false);
    QCOMPARE(dynamicSpy.count(), 1);
    QCOMPARE(staticSpy.count(), 1);

    // NaN never equals itself, so setting it twice notifies twice.
    steps.setStaticStepSize(std::numeric_limits<double>::quiet_NaN());
    steps.setStaticStepSize(std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(staticSpy.count(), 3);
}

void tst_Steps::toJsonRoundTrip()
{
    Steps steps;
    steps.setStaticStepSize(0.125);
    steps.setDynamicStepResolution(1234);
    steps.setIsDynamicStepSize(false);
    const QJsonObject object = steps.toJson();
    QCOMPARE(object.keys(), QStringList({ "dynamicSteps", "isDynamicStepSize", "staticStepSize" }));
    QVERIFY(object.value("dynamicSteps").isDouble());

    Steps copy;
    copy.fromJson(object);
    QCOMPARE(copy.staticStepSize(), 0.125);
    QCOMPARE(copy.dynamicStepResolution(), 1234);
    QCOMPARE(copy.isDynamicStepSize(), false);
}

QTEST_GUILESS_MAIN(tst_Steps)
#include "tst_steps.moc"
