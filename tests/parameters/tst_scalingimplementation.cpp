#include "model/scalingimplementation.h"

#include "boundtable.h"

#include <QSignalSpy>
#include <QtTest>

class TestScalingImplementation : public QObject
{
    Q_OBJECT
private slots:
    void followsTheDrive()
    {
        // The master's places as the drive sets them are tst_cameditormodel's,
        // the slave's are read for every random write of
        // tst_gridpointwritefaults.
        BoundTable bound;
        QVERIFY(bound.drive.writeValue(0, coordinate("G46"), 0, QStringLiteral("2")));
        ScalingImplementation scaling(&bound.model());
        QCOMPARE(scaling.positionResolution(), 0.01);
        QCOMPARE(scaling.slaveTextToPosition(QStringLiteral("4.5 mm")), 4.5);

        bound.model().setConnections();
        QSignalSpy changed(&scaling, &Scaling::changed);
        QVERIFY(bound.drive.writeValue(0, coordinate("G46"), 0, QStringLiteral("1")));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(scaling.positionResolution(), 0.1);
        // Unchanged places, and another axis's, are no change.
        QVERIFY(bound.drive.writeValue(0, coordinate("G46"), 0, QStringLiteral("1")));
        QVERIFY(bound.drive.writeValue(2, coordinate("I06"), 0, QStringLiteral("1")));
        QCOMPARE(changed.count(), 1);
    }

    // By hand: 360 ° in 2 s is 180 °/s; the drive's default feed is 360 mm
    // per output revolution, the gear 5 motor to 2 output revolutions.
    void derivativeConversion_data()
    {
        QTest::addColumn<int>("axis");
        QTest::addColumn<int>("velocity");
        QTest::addColumn<int>("order");
        QTest::addColumn<double>("factor");
        QTest::addColumn<QString>("unit");
        QTest::newRow("master units, jerk") << 0 << 0 << 3 << 1.0 << "mm/°³";
        QTest::newRow("cycle time, jerk") << 1 << 0 << 3 << 5832000.0 << "mm/s³";
        // 180 mm/s / 360 mm * 60 = 30 U/min, whatever the master axis shows.
        QTest::newRow("output rpm") << 0 << 1 << 1 << 30.0 << "U/min";
        QTest::newRow("output rpm, position") << 1 << 1 << 0 << 1.0 << "mm";
        QTest::newRow("motor rpm, jerk") << 1 << 2 << 3 << 2430000.0 << "U/min/s²";
        QTest::newRow("order 4") << 1 << 0 << 4 << qQNaN() << "";
    }
    void derivativeConversion()
    {
        QFETCH(int, axis);
        QFETCH(int, velocity);
        QFETCH(int, order);
        QFETCH(double, factor);
        QFETCH(QString, unit);
        BoundTable bound;
        QVERIFY(bound.drive.writeValue(1, coordinate("I12"), 0, QStringLiteral("5")));
        QVERIFY(bound.drive.writeValue(1, coordinate("I13"), 0, QStringLiteral("2")));
        ScalingImplementation scaling(&bound.model());
        scaling.setDrive(&bound.drive, BoundTable::LivingSpace);
        scaling.setMasterAxisScaling(axis);
        scaling.setVelocityScaling(velocity);
        scaling.setCycleTime(2.0);
        QCOMPARE(scaling.derivativeFactor(order, 360.0), factor);
        QCOMPARE(scaling.derivativeUnit(order), unit);
    }

    // The selectors and the cycle time are the table's element of the drive's
    // settings: read when bound, written on every change, followed when the
    // drive changes them; other tables keep theirs (tst_configuratorproject).
    void settingsAreTheDrives()
    {
        const int table = 6;
        BoundTable bound(table);
        ScalingImplementation scaling(&bound.model());
        QVERIFY(bound.drive.writeValueNative(0, coordinate("G438"), table, QStringLiteral("2500")));
        QVERIFY(bound.drive.writeValueNative(0, coordinate("G439"), table, QStringLiteral("1")));
        scaling.setDrive(&bound.drive, BoundTable::LivingSpace);
        QCOMPARE(scaling.cycleTime(), 0.25);
        QCOMPARE(scaling.velocityScaling(), int(Scaling::RpmOutput));

        // Every setting the user changes comes back from a saved project, for
        // its table only (tst_configuratorproject); here the drive's unit.
        scaling.setCycleTime(0.0125);
        QCOMPARE(bound.drive.readValueNative(1, coordinate("G438"), table), QStringLiteral("125"));

        QSignalSpy cycle(&scaling, &Scaling::cycleTimeChanged);
        QVERIFY(bound.drive.writeValue(0, coordinate("G438"), table, QStringLiteral("4")));
        QCOMPARE(cycle.count(), 1);
        QCOMPARE(scaling.cycleTime(), 4.0);
        // The feed is followed as well: 240 ° in 4 s, 60 °/s × 60 s/min / 10 mm a
        // revolution.
        QSignalSpy changed(&scaling, &Scaling::changed);
        QVERIFY(bound.drive.writeValue(1, coordinate("I07"), 0, QStringLiteral("10")));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(scaling.derivativeFactor(1, 240.0), 360.0);
    }

    void survivesTheParameterModel()
    {
        // Made through the factory, which gives the drive-bound implementation.
        auto bound = std::make_unique<BoundTable>();
        std::unique_ptr<Scaling> scaling(Scaling::createScaling(&bound->model(), nullptr));
        QVERIFY(qobject_cast<ScalingImplementation *>(scaling.get()));
        bound.reset();
        QCOMPARE(scaling->masterPositionToText(2.0), QStringLiteral("2.000"));
        // Without a drive one slave unit is one revolution.
        scaling->setVelocityScaling(Scaling::RpmOutput);
        QCOMPARE(scaling->derivativeFactor(1, 60.0), 60.0 * 60.0);
    }
};

QTEST_GUILESS_MAIN(TestScalingImplementation)
#include "tst_scalingimplementation.moc"
