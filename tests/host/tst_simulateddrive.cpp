#include "simulateddrive.h"
#include "testfiles.h"

#include <QSignalSpy>
#include <QTemporaryDir>
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

class TestSimulatedDrive : public QObject
{
    Q_OBJECT
private slots:
    void catalogueHoldsEveryTable()
    {
        // The numbering itself is held by the parameter model's tests, whose
        // tables exist only if this catalogue names the same arrays.
        SimulatedDrive drive;
        QSet<QString> arrays;
        for (int table = 0; table < 16; ++table) {
            for (const QString &array : { MxSimulation::masterArrayCoordinate(table),
                                          MxSimulation::slaveArrayCoordinate(table) }) {
                QVERIFY2(drive.definition(ParameterCoordinate(array)), qPrintable(array));
                arrays.insert(array);
            }
        }
        QCOMPARE(arrays.size(), 32);
    }

    void unknownParameterHasNoDefinition()
    {
        SimulatedDrive drive;
        QVERIFY(!drive.definition(coordinate("G999")));
        QVERIFY(drive.readValue(Axis0, coordinate("G999"), 0).isEmpty());
        QVERIFY(!drive.writeValue(Axis0, coordinate("G999"), 0, QStringLiteral("1")));
    }

    void numberTexts_data()
    {
        QTest::addColumn<QString>("written");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("display");
        QTest::addColumn<QString>("native");
        QTest::newRow("whole") << "12" << "12.000" << "12.000 °" << "12000";
        QTest::newRow("rounded to three places") << "0.0125" << "0.013" << "0.013 °" << "13";
        QTest::newRow("negative") << "-1.5" << "-1.500" << "-1.500 °" << "-1500";
        QTest::newRow("small negative") << "-0.004" << "-0.004" << "-0.004 °" << "-4";
        QTest::newRow("with unit") << "7.25 °" << "7.250" << "7.250 °" << "7250";
        QTest::newRow("empty clears") << "" << "0.000" << "0.000 °" << "0";
    }
    void numberTexts()
    {
        QFETCH(QString, written);
        QFETCH(QString, value);
        QFETCH(QString, display);
        QFETCH(QString, native);
        SimulatedDrive drive;
        QVERIFY(drive.writeValue(Axis0, coordinate("G283"), 0, written));
        QCOMPARE(drive.readValue(Axis0, coordinate("G283"), 0), value);
        QCOMPARE(drive.readValue(Axis0, coordinate("G283"), 0, true), display);
        QCOMPARE(drive.readValueNative(Axis0, coordinate("G283"), 0), native);
    }

    void unitsAndDecimalPlaces()
    {
        SimulatedDrive drive;
        QCOMPARE(drive.readValue(0, coordinate("G49"), 0, true), QStringLiteral("°"));
        QCOMPARE(drive.readValue(0, coordinate("G49"), 0), QStringLiteral("2"));
        QCOMPARE(drive.readValue(Axis0, coordinate("I09"), 0, true), QStringLiteral("mm"));
        QCOMPARE(drive.readValue(0, coordinate("G46"), 0), QStringLiteral("3"));
        QCOMPARE(drive.readValue(Axis0, coordinate("I06"), 0), QStringLiteral("3"));
        // Axis parameters do not exist drive-wide.
        QVERIFY(drive.readValue(0, coordinate("I06"), 0).isEmpty());
        QVERIFY(drive.writeValue(Axis0, coordinate("I09"), 0, QStringLiteral("µm")));
        QCOMPARE(drive.readValue(Axis0, coordinate("G284"), 0, true), QStringLiteral("0.000 µm"));
        QCOMPARE(drive.readValue(Axis0 + 1, coordinate("I09"), 0, true), QStringLiteral("mm"));
    }

    void limitsRefuseWrites()
    {
        SimulatedDrive drive;
        QVERIFY(drive.setNativeLimits(QStringLiteral("G283"), -1000, 360000));
        auto *definition = drive.definition(coordinate("G283"));
        QCOMPARE(definition->lowerLimit(Axis0), QStringLiteral("-1.000"));
        QCOMPARE(definition->upperLimit(Axis0), QStringLiteral("360.000"));
        QVERIFY(drive.writeValue(Axis0, coordinate("G283"), 0, QStringLiteral("360")));
        QVERIFY(!drive.writeValue(Axis0, coordinate("G283"), 0, QStringLiteral("360.001")));
        QVERIFY(!drive.writeValueNative(Axis0, coordinate("G283"), 0, QStringLiteral("-1001")));
        QVERIFY(!drive.writeValue(Axis0, coordinate("G283"), 0, QStringLiteral("zwölf")));
        QCOMPARE(drive.readValueNative(Axis0, coordinate("G283"), 0), QStringLiteral("360000"));
    }

    void toNativeAcceptsExponents_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("native");
        QTest::newRow("plain") << "12.5" << "12500";
        QTest::newRow("exponent") << "2.14748e+06" << "2147480000";
        QTest::newRow("negative") << "-0.001" << "-1";
        QTest::newRow("no number") << "abc" << "";
    }
    void toNativeAcceptsExponents()
    {
        QFETCH(QString, text);
        QFETCH(QString, native);
        SimulatedDrive drive;
        QCOMPARE(drive.definition(coordinate("G415"))->toNative(text), native);
    }

    void resizingOnlyOffline()
    {
        SimulatedDrive drive;
        auto *definition = drive.definition(coordinate("G284"));
        QSignalSpy definitionSpy(definition, &MxParameterInstance::ParameterInformation::definitionChanged);
        QVERIFY(definition->setElementCount(100));
        QCOMPARE(definition->elementCount(), 100);
        QCOMPARE(definitionSpy.count(), 1);
        QCOMPARE(drive.readValue(Axis0, coordinate("G284"), 99), QStringLiteral("0.000"));
        QVERIFY(drive.readValue(Axis0, coordinate("G284"), 100).isEmpty());
        drive.setOnline(true);
        QVERIFY(!definition->setElementCount(200));
        QCOMPARE(definition->elementCount(), 100);
        drive.setOnline(false);
        QVERIFY(!definition->setElementCount(0));
        QVERIFY(!definition->setElementCount(MxSimulation::MaximumArrayElements + 1));
        QCOMPARE(definitionSpy.count(), 1);
    }

    void stateSignalsPendingBeforeCompleted()
    {
        SimulatedDrive drive;
        QStringList order;
        connect(&drive, &SimulatedDrive::onlineSetToChange, this, [&] { order << QStringLiteral("pending") + (drive.isOnline() ? "+" : "-"); });
        connect(&drive, &SimulatedDrive::onlineChanged, this, [&] { order << QStringLiteral("done") + (drive.isOnline() ? "+" : "-"); });
        connect(&drive, &SimulatedDrive::readOnlySetToChange, this, [&] { order << QStringLiteral("ro pending"); });
        connect(&drive, &SimulatedDrive::readOnlyChanged, this, [&] { order << QStringLiteral("ro done"); });
        drive.setOnline(true);
        drive.setOnline(true);
        drive.setReadOnly(true);
        QCOMPARE(order, (QStringList { "pending-", "done+", "ro pending", "ro done" }));
        QVERIFY(!drive.writeValue(Axis0, coordinate("G283"), 0, QStringLiteral("1")));
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

    void hooksStopAndSwitchInTheMiddle()
    {
        SimulatedDrive drive;
        QVERIFY(drive.definition(coordinate("G283"))->setElementCount(10));
        drive.failWritesAfter(3);
        int accepted = 0;
        for (int i = 0; i < 10; ++i)
            accepted += drive.writeValue(Axis0, coordinate("G283"), i, QStringLiteral("1")) ? 1 : 0;
        QCOMPARE(accepted, 3);
        QCOMPARE(drive.elementWrites(QStringLiteral("G283")), 3);
        drive.failWritesAfter(-1);

        QSignalSpy online(&drive, &SimulatedDrive::onlineChanged);
        drive.goOnlineAfterWrites(2);
        QVERIFY(drive.writeValue(Axis0, coordinate("G283"), 5, QStringLiteral("2")));
        QVERIFY(!drive.isOnline());
        QVERIFY(drive.writeValue(Axis0, coordinate("G283"), 6, QStringLiteral("2")));
        QVERIFY(drive.isOnline());
        QCOMPARE(online.count(), 1);

        drive.goReadOnlyAfterWrites(1);
        QVERIFY(drive.writeValue(Axis0, coordinate("G283"), 7, QStringLiteral("3")));
        QVERIFY(drive.isReadOnly());
        QVERIFY(!drive.writeValue(Axis0, coordinate("G283"), 8, QStringLiteral("3")));
    }

    void projectRoundTrip()
    {
        QTemporaryDir directory;
        const QString path = directory.filePath(QStringLiteral("drive.json"));
        SimulatedDrive drive;
        QVERIFY(drive.definition(coordinate("G415"))->setElementCount(3));
        QVERIFY(drive.writeValue(Axis0, coordinate("G415"), 2, QStringLiteral("-17.125")));
        QVERIFY(drive.writeValue(Axis0, coordinate("G60"), 5, QStringLiteral("1.G415")));
        QVERIFY(drive.writeValue(2, coordinate("I06"), 0, QStringLiteral("4")));
        QString error;
        QVERIFY2(drive.save(path, &error), qPrintable(error));

        SimulatedDrive reopened;
        QVERIFY2(reopened.load(path, &error), qPrintable(error));
        QCOMPARE(reopened.definition(coordinate("G415"))->elementCount(), 3);
        QCOMPARE(reopened.readValueNative(Axis0, coordinate("G415"), 2), QStringLiteral("-17125"));
        QCOMPARE(reopened.readValue(Axis0, coordinate("G60"), 5), QStringLiteral("1.G415"));
        QCOMPARE(reopened.readValue(2, coordinate("I06"), 0), QStringLiteral("4"));
        QCOMPARE(reopened.readValue(1, coordinate("I06"), 0), QStringLiteral("3"));
        QCOMPARE(reopened.toJson(), drive.toJson());
    }

    void missingProjectGivesFreshDrive()
    {
        QTemporaryDir directory;
        SimulatedDrive drive;
        QString error;
        QVERIFY(drive.load(directory.filePath(QStringLiteral("none.json")), &error));
        QCOMPARE(drive.toJson(), SimulatedDrive().toJson());
    }

    void damagedProjectIsRefused_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("not JSON") << QByteArray("{\"Drive\": ");
        QTest::newRow("other document") << QByteArray("{\"MotionLaw\": \"Vdi2142\"}");
        QTest::newRow("unknown parameter")
            << QByteArray("{\"Drive\":\"MxSimulatedDrive\",\"Version\":1,\"Axes\":2,\"Parameters\":{\"G999\":[1]}}");
        QTest::newRow("fraction in native value")
            << QByteArray("{\"Drive\":\"MxSimulatedDrive\",\"Version\":1,\"Axes\":2,\"Parameters\":{\"G283\":[1.5]}}");
        QTest::newRow("value beyond limit")
            << QByteArray("{\"Drive\":\"MxSimulatedDrive\",\"Version\":1,\"Axes\":2,\"Parameters\":{\"G46\":[9]}}");
        QTest::newRow("too many table elements")
            << QByteArray("{\"Drive\":\"MxSimulatedDrive\",\"Version\":1,\"Axes\":2,\"Parameters\":{\"G68\":"
                          "[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]}}");
        QTest::newRow("axis value missing")
            << QByteArray("{\"Drive\":\"MxSimulatedDrive\",\"Version\":1,\"Axes\":2,\"Parameters\":{\"I06\":{\"1\":[3]}}}");
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

    void failedSaveKeepsOldFile()
    {
        QTemporaryDir directory;
        const QString path = directory.filePath(QStringLiteral("missing-dir/drive.json"));
        SimulatedDrive drive;
        QString error;
        QVERIFY(!drive.save(path, &error));
        QVERIFY(!error.isEmpty());
        QVERIFY(!QFile::exists(path));
    }
};

QTEST_GUILESS_MAIN(TestSimulatedDrive)
#include "tst_simulateddrive.moc"
