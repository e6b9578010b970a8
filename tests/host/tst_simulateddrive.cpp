#include "simulateddrive.h"
#include "testfiles.h"

#include <QtTest>

using MxParameterDefinition::ParameterAddress;
using MxParameterDefinition::ParameterCoordinate;
using MxSimulation::SimulatedDrive;

namespace {
ParameterCoordinate coordinate(const char *text)
{
    return ParameterCoordinate(QString::fromLatin1(text));
}
constexpr int Axis0 = 1;  // living space of the first axis
} // namespace

// What the editor and the tool rely on of the simulated drive: its number
// texts and refusals, its change signals and its project file.
class TestSimulatedDrive : public QObject
{
    Q_OBJECT
private slots:
    void numberTexts_data()
    {
        QTest::addColumn<QString>("written");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<QString>("display");
        QTest::addColumn<QString>("native");
        QTest::newRow("rounded to three places") << "0.0125" << true << "0.013 °" << "13";
        QTest::newRow("with unit") << "7.25 °" << true << "7.250 °" << "7250";
        QTest::newRow("empty clears") << "" << true << "0.000 °" << "0";
        QTest::newRow("at the maximum") << "360" << true << "360.000 °" << "360000";
        QTest::newRow("beyond the maximum") << "360.001" << false << "5.000 °" << "5000";
        QTest::newRow("no number") << "zwölf" << false << "5.000 °" << "5000";
    }
    void numberTexts()
    {
        QFETCH(QString, written);
        QFETCH(bool, accepted);
        QFETCH(QString, display);
        QFETCH(QString, native);
        SimulatedDrive drive;
        QVERIFY(drive.setNativeLimits(QStringLiteral("G283"), -1000, 360000));
        QVERIFY(drive.writeValue(Axis0, coordinate("G283"), 0, QStringLiteral("5")));
        QCOMPARE(drive.writeValue(Axis0, coordinate("G283"), 0, written), accepted);
        QCOMPARE(drive.readValue(Axis0, coordinate("G283"), 0, true), display);
        QCOMPARE(drive.readValue(Axis0, coordinate("G283"), 0), display.chopped(2));
        QCOMPARE(drive.readValueNative(Axis0, coordinate("G283"), 0), native);
    }

    void valueChangedCarriesAxisOfLivingSpace()
    {
        SimulatedDrive drive;
        QSignalSpy spy(drive.definition(coordinate("G283")), &MxParameterInstance::ParameterInformation::valueChanged);
        QVERIFY(drive.writeValue(2, coordinate("G283"), 0, QStringLiteral("5")));
        QVERIFY(drive.writeValue(2, coordinate("G283"), 0, QStringLiteral("5")));  // unchanged: no signal
        QCOMPARE(spy.count(), 1);
        const auto address = spy.at(0).at(0).value<ParameterAddress>();
        QCOMPARE(address.axis(), 1);
        QCOMPARE(address.coordinate(), coordinate("G283"));
        QCOMPARE(drive.elementWrites(QStringLiteral("G283")), 2);
    }

    void projectRoundTrip()
    {
        QTemporaryDir directory;
        const QString path = directory.filePath(QStringLiteral("drive.json"));
        SimulatedDrive drive;
        QString error;
        // A missing project leaves the fresh drive.
        QVERIFY(drive.load(path, &error));
        QCOMPARE(drive.toJson(), SimulatedDrive().toJson());
        QVERIFY(drive.definition(coordinate("G415"))->setElementCount(3));
        QVERIFY(drive.writeValue(Axis0, coordinate("G415"), 2, QStringLiteral("-17.125")));
        QVERIFY(drive.writeValue(Axis0, coordinate("G60"), 5, QStringLiteral("1.G415")));
        QVERIFY(drive.writeValue(2, coordinate("I06"), 0, QStringLiteral("4")));
        QVERIFY2(drive.save(path, &error), qPrintable(error));

        SimulatedDrive reopened;
        QVERIFY2(reopened.load(path, &error), qPrintable(error));
        QCOMPARE(reopened.readValueNative(Axis0, coordinate("G415"), 2), QStringLiteral("-17125"));
        QCOMPARE(reopened.readValue(Axis0, coordinate("G60"), 5), QStringLiteral("1.G415"));
        QCOMPARE(reopened.toJson(), drive.toJson());
    }

    // A drive short of memory refuses to grow an array, but still shrinks it.
    void growthRefusedAfterCount()
    {
        SimulatedDrive drive;
        auto *master = drive.definition(coordinate("G283"));
        drive.refuseGrowthAfter(1);
        QVERIFY(master->setElementCount(10));
        QVERIFY(!drive.definition(coordinate("G284"))->setElementCount(10));
        QVERIFY(!master->setElementCount(11));
        QCOMPARE(master->elementCount(), 10);
        QVERIFY(master->setElementCount(4));
        drive.refuseGrowthAfter(-1);
        QVERIFY(master->setElementCount(12));
    }

    void damagedProjectIsRefused_data()
    {
        QTest::addColumn<QByteArray>("content");
        const QByteArray head("{\"Drive\":\"MxSimulatedDrive\",\"Version\":1,\"Axes\":2,\"Parameters\":");
        QTest::newRow("not JSON") << QByteArray("{\"Drive\": ");
        QTest::newRow("other document") << QByteArray("{\"MotionLaw\": \"Vdi2142\"}");
        QTest::newRow("unknown parameter") << head + "{\"G999\":[1]}}";
        QTest::newRow("fraction in native value") << head + "{\"G283\":[1.5]}}";
        QTest::newRow("value beyond limit") << head + "{\"G46\":[9]}}";
        QTest::newRow("too many table elements") << head + "{\"G68\":[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}}";
        QTest::newRow("axis value missing") << head + "{\"I06\":{\"1\":[3]}}}";
    }
    void damagedProjectIsRefused()
    {
        QFETCH(QByteArray, content);
        QTemporaryDir directory;
        const QString path = directory.filePath(QStringLiteral("drive.json"));
        QVERIFY(writeFile(path, content));
        SimulatedDrive drive;
        QVERIFY(drive.writeValue(Axis0, coordinate("G283"), 0, QStringLiteral("8")));
        const QByteArray before = drive.toJson();
        QString error;
        QVERIFY(!drive.load(path, &error));
        QVERIFY(!error.isEmpty());
        QCOMPARE(drive.toJson(), before);
        QCOMPARE(readFile(path), content);
    }
};

QTEST_GUILESS_MAIN(TestSimulatedDrive)
#include "tst_simulateddrive.moc"
