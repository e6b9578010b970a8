#include "boundtable.h"
#include "messagecapture.h"

#include <QSignalSpy>
#include <QtTest>


using MxParameterDefinition::ParameterCoordinate;

namespace {
constexpr int LivingSpace = BoundTable::LivingSpace;
} // namespace

// The parameter model under the test suite's C locale ("." as decimal point).
class TestParameterModel : public QObject
{
    Q_OBJECT
private slots:
    void tableCoordinates_data()
    {
        QTest::addColumn<int>("table");
        QTest::addColumn<QString>("master");
        QTest::addColumn<QString>("slave");
        QTest::newRow("table 0") << 0 << "G283" << "G284";
        QTest::newRow("table 4, end of the first range") << 4 << "G291" << "G292";
        QTest::newRow("table 5, start of the second range") << 5 << "G415" << "G416";
        QTest::newRow("table 15") << 15 << "G435" << "G436";
        QTest::newRow("table 16 does not exist") << 16 << "" << "";
    }
    void tableCoordinates()
    {
        QFETCH(int, table);
        QFETCH(QString, master);
        QFETCH(QString, slave);
        BoundTable bound(table);
        QCOMPARE(bound.model().masterCoordinateText(), master);
        QCOMPARE(bound.model().slaveCoordinateText(), slave);
    }

    void unknownTableReadsAndWritesNothing()
    {
        BoundTable bound(16);
        QCOMPARE(bound.model().storedGridPointCount(), 0);
        QVERIFY(bound.model().storedGridPoints().isEmpty());
        QVERIFY(bound.model().storedTableSummary().isEmpty());
        MessageCapture capture;
        bound.model().writeGridPoints(curvePoints(4));
        QCOMPARE(bound.drive.totalElementWrites(), 0);
    }

    void valueTexts_data()
    {
        QTest::addColumn<int>("masterDecimals");
        QTest::addColumn<int>("slaveDecimals");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("masterText");
        QTest::addColumn<QString>("slaveText");
        QTest::newRow("drive default") << 3 << 3 << 12.5 << "12.500" << "12.500";
        QTest::newRow("axes differ") << 1 << 4 << -0.26 << "-0.3" << "-0.2600";
        QTest::newRow("no decimals") << 0 << 2 << 359.6 << "360" << "359.60";
    }
    void valueTexts()
    {
        QFETCH(int, masterDecimals);
        QFETCH(int, slaveDecimals);
        QFETCH(double, value);
        QFETCH(QString, masterText);
        QFETCH(QString, slaveText);
        BoundTable bound;
        QVERIFY(bound.drive.writeValue(0, coordinate("G46"), 0, QString::number(masterDecimals)));
        QVERIFY(bound.drive.writeValue(LivingSpace, coordinate("I06"), 0, QString::number(slaveDecimals)));
        QCOMPARE(bound.model().masterDecimalPlaces(), masterDecimals);
        QCOMPARE(bound.model().slaveDecimalPlaces(), slaveDecimals);
        QCOMPARE(bound.model().masterValueToText(value), masterText);
        QCOMPARE(bound.model().slaveValueToText(value), slaveText);
    }

    void textToValue_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("master");
        QTest::addColumn<double>("slave");
        QTest::newRow("plain") << "12.5" << 12.5 << 12.5;
        QTest::newRow("master unit") << "12.5 °" << 12.5 << 0.0;
        QTest::newRow("slave unit") << "7.25 mm" << 0.0 << 7.25;
        QTest::newRow("unit is case-sensitive") << "7.25 MM" << 0.0 << 0.0;
    }
    void textToValue()
    {
        QFETCH(QString, text);
        QFETCH(double, master);
        QFETCH(double, slave);
        BoundTable bound;
        QCOMPARE(bound.model().masterUnit(), QStringLiteral("°"));
        QCOMPARE(bound.model().slaveUnit(), QStringLiteral("mm"));
        QCOMPARE(bound.model().masterTextToValue(text), master);
        QCOMPARE(bound.model().slaveTextToValue(text), slave);
    }

    void roundingHalfAwayFromZero_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("rounded");
        QTest::newRow("half up") << 0.25 << 0.3;
        QTest::newRow("half down for negatives") << -0.25 << -0.3;
        QTest::newRow("below half") << 0.24 << 0.2;
        QTest::newRow("odd half") << 0.35 << 0.4;
    }
    void roundingHalfAwayFromZero()
    {
        QFETCH(double, value);
        QFETCH(double, rounded);
        BoundTable bound;
        QVERIFY(bound.drive.writeValue(0, coordinate("G46"), 0, QStringLiteral("1")));
        QVERIFY(bound.drive.writeValue(LivingSpace, coordinate("I06"), 0, QStringLiteral("1")));
        QCOMPARE(bound.model().roundMaster(value), rounded);
        QCOMPARE(bound.model().roundSlave(value), rounded);
    }

    void valueCheckMessages_data()
    {
        QTest::addColumn<bool>("master");
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("minimum");
        QTest::addColumn<QString>("message");
        const double nan = std::nan("");  // no minimum of the caller's own
        QTest::newRow("master at maximum") << true << 360.0 << nan << "";
        QTest::newRow("master at minimum") << true << -1.0 << nan << "";
        QTest::newRow("master above")
            << true << 360.5 << nan << "Der Wert 360.500 ° ist zu groß, das Maximum ist 360.000 °";
        QTest::newRow("master below") << true << -2.0 << nan << "Der Wert -2.000 ° ist zu klein, das Minimum ist -1.000 °";
        QTest::newRow("slave above") << false << 100.25 << nan << "Der Wert 100.250 mm ist zu groß, das Maximum ist 100.000 mm";
        QTest::newRow("slave inside") << false << -100.0 << nan << "";
        QTest::newRow("master below own minimum")
            << true << 5.0 << 10.0 << "Der Wert 5.000 ° ist zu klein, das Minimum ist 10.000 °";
        QTest::newRow("own minimum below the drive's") << true << -1.0 << -5.0 << "";
        QTest::newRow("slave below own minimum")
            << false << 1.0 << 2.0 << "Der Wert 1.000 mm ist zu klein, das Minimum ist 2.000 mm";
    }
    void valueCheckMessages()
    {
        QFETCH(bool, master);
        QFETCH(double, value);
        QFETCH(double, minimum);
        QFETCH(QString, message);
        BoundTable bound;
        QVERIFY(bound.drive.setNativeLimits(bound.master().toText(), -1000, 360000));
        QVERIFY(bound.drive.setNativeLimits(bound.slave().toText(), -100000, 100000));
        ParameterModel &model = bound.model();
        if (std::isnan(minimum))
            QCOMPARE(master ? model.checkMasterValue(value) : model.checkSlaveValue(value), message);
        else
            QCOMPARE(master ? model.checkMasterValue(value, minimum) : model.checkSlaveValue(value, minimum), message);
    }

    void gridPointCheck_data()
    {
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<QString>("message");
        const QString master = QStringLiteral("Parameter: Kurvenscheibe 0 Master-Stützstelle [3] kann nicht geschrieben "
                                              "werden. Wert %1");
        const QString slave = QStringLiteral("Parameter: Kurvenscheibe 0 Slave-Stützstelle [3] kann nicht geschrieben "
                                             "werden. Wert %1");
        QTest::newRow("master equal to maximum passes") << QPointF(360.0, 0.0) << QString();
        QTest::newRow("rounds onto the maximum") << QPointF(360.0004, 0.0) << QString();
        QTest::newRow("one step above the maximum")
            << QPointF(360.001, 0.0) << master.arg(QStringLiteral("360001 ist zu groß max: 360000"));
        QTest::newRow("one step below the minimum")
            << QPointF(-1.001, 0.0) << master.arg(QStringLiteral("-1001 ist zu klein min: -1000"));
        QTest::newRow("slave not checked after master failed")
            << QPointF(400.0, 500.0) << master.arg(QStringLiteral("400000 ist zu groß max: 360000"));
        // The slave detail quotes the master array's limits although the
        // slave limits decide (kept as the users know it).
        QTest::newRow("slave above its own maximum quotes the master maximum")
            << QPointF(0.0, 100.001) << slave.arg(QStringLiteral("100001 ist zu groß max: 360000"));
        QTest::newRow("slave below its own minimum quotes the master minimum")
            << QPointF(0.0, -100.001) << slave.arg(QStringLiteral("-100001 ist zu klein min: -1000"));
        QTest::newRow("slave equal to its maximum passes") << QPointF(0.0, 100.0) << QString();
    }
    void gridPointCheck()
    {
        QFETCH(QPointF, point);
        QFETCH(QString, message);
        BoundTable bound;
        QVERIFY(bound.drive.setNativeLimits(bound.master().toText(), -1000, 360000));
        QVERIFY(bound.drive.setNativeLimits(bound.slave().toText(), -100000, 100000));
        QCOMPARE(bound.model().checkGridPoint(3, point), message);
    }

    void outsideChangeOfOwnArrayIsFollowed()
    {
        BoundTable bound;
        MessageCapture capture;
        bound.model().writeGridPoints(curvePoints(5));
        bound.model().setConnections();
        QSignalSpy valueChanged(&bound.model(), &ParameterModel::valueChanged);
        QVERIFY(bound.drive.writeValue(LivingSpace, bound.slave(), 2, QStringLiteral("42")));
        QCOMPARE(valueChanged.count(), 1);
        QCOMPARE(bound.model().storedGridPoints().at(2).y(), 42.0);
        // The stamp follows the outside change.
        QCOMPARE(bound.drive.readValueNative(LivingSpace, coordinate("G293"), 0),
                 QString::number(bound.model().computeCrc()));
        QVERIFY(!bound.model().storedTableSummary().contains(QStringLiteral("nicht vom")));
    }

    void changesElsewhereAreIgnored_data()
    {
        QTest::addColumn<int>("livingSpace");
        QTest::addColumn<QString>("array");
        QTest::newRow("other axis") << 2 << "G284";
        QTest::newRow("drive-wide space") << 0 << "G283";
        QTest::newRow("other table") << 1 << "G286";
    }
    void changesElsewhereAreIgnored()
    {
        QFETCH(int, livingSpace);
        QFETCH(QString, array);
        BoundTable bound;
        MessageCapture capture;
        bound.model().writeGridPoints(curvePoints(5));
        bound.model().setConnections();
        QSignalSpy valueChanged(&bound.model(), &ParameterModel::valueChanged);
        QVERIFY(bound.drive.writeValue(livingSpace, ParameterCoordinate(array), 0, QStringLiteral("42")));
        QCOMPARE(valueChanged.count(), 0);
    }

    void ownWritesAreNotFollowed()
    {
        BoundTable bound;
        bound.model().setConnections();
        QSignalSpy valueChanged(&bound.model(), &ParameterModel::valueChanged);
        MessageCapture capture;
        bound.model().writeGridPoints(curvePoints(30));
        QCOMPARE(valueChanged.count(), 1);
        // Tracking is back after the write.
        QVERIFY(bound.drive.writeValue(LivingSpace, bound.master(), 0, QStringLiteral("-0.5")));
        QCOMPARE(valueChanged.count(), 2);
    }

    void decimalPlacesChange_data()
    {
        QTest::addColumn<QString>("coordinate");
        QTest::addColumn<int>("livingSpace");
        QTest::addColumn<QString>("value");
        QTest::addColumn<int>("signalCount");
        QTest::newRow("master places") << "G46" << 0 << "2" << 1;
        QTest::newRow("slave places") << "I06" << 1 << "4" << 1;
        QTest::newRow("same value") << "G46" << 0 << "3" << 0;
        QTest::newRow("other axis") << "I06" << 2 << "4" << 0;
    }
    void decimalPlacesChange()
    {
        QFETCH(QString, coordinate);
        QFETCH(int, livingSpace);
        QFETCH(QString, value);
        QFETCH(int, signalCount);
        BoundTable bound;
        bound.model().setConnections();
        QSignalSpy spy(&bound.model(), &ParameterModel::decimalPlacesChanged);
        QVERIFY(bound.drive.writeValue(livingSpace, ParameterCoordinate(coordinate), 0, value));
        QCOMPARE(spy.count(), signalCount);
        const int expected = signalCount ? value.toInt() : 3;
        QCOMPARE(coordinate == QLatin1String("G46") ? bound.model().masterDecimalPlaces()
                                                     : bound.model().slaveDecimalPlaces(),
                 expected);
    }

    void unitsAndLimitsFollowTheDrive()
    {
        BoundTable bound;
        bound.model().setConnections();
        QVERIFY(bound.drive.writeValue(0, coordinate("G49"), 0, QStringLiteral("mm")));
        QVERIFY(bound.drive.writeValue(LivingSpace, coordinate("I09"), 0, QStringLiteral("Inc")));
        QCOMPARE(bound.model().masterUnit(), QStringLiteral("mm"));
        QCOMPARE(bound.model().slaveUnit(), QStringLiteral("Inc"));
        QVERIFY(bound.drive.setNativeLimits(bound.slave().toText(), 0, 5000));
        QCOMPARE(bound.model().slaveMaximum(), 5.0);
        QCOMPARE(bound.model().slaveMinimum(), 0.0);
        QVERIFY(!bound.model().checkSlaveValue(5.001).isEmpty());
    }

    void decimalPlacesSlotsAreSilent()
    {
        BoundTable bound;
        QSignalSpy spy(&bound.model(), &ParameterModel::decimalPlacesChanged);
        QVERIFY(bound.drive.writeValue(0, coordinate("G46"), 0, QStringLiteral("5")));
        bound.model().updateDecimalPlacesMaster();
        QCOMPARE(bound.model().masterDecimalPlaces(), 5);
        QCOMPARE(spy.count(), 0);
    }

    void connectionStatesAreForwarded()
    {
        BoundTable bound;
        QStringList order;
        connect(&bound.model(), &ParameterModel::readOnlySetToChange, this, [&] { order << QStringLiteral("pending"); });
        connect(&bound.model(), &ParameterModel::readOnlyChanged, this, [&] { order << QStringLiteral("changed"); });
        bound.drive.setReadOnly(true);
        QVERIFY(bound.model().isReadOnly());
        bound.drive.setOnline(true);
        QVERIFY(bound.model().isOnline());
        QCOMPARE(order, (QStringList { "pending", "changed", "pending", "changed" }));
    }

};

QTEST_GUILESS_MAIN(TestParameterModel)
#include "tst_parametermodel.moc"
