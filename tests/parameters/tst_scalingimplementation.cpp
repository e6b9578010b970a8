#include "model/fixedscaling.h"
#include "model/scalingimplementation.h"

#include "boundtable.h"

#include <QSignalSpy>
#include <QtTest>

class TestScalingImplementation : public QObject
{
    Q_OBJECT
private slots:
    void defaults()
    {
        BoundTable bound;
        std::unique_ptr<Scaling> scaling(Scaling::createScaling(&bound.model(), nullptr));
        QVERIFY(qobject_cast<ScalingImplementation *>(scaling.get()));
        QCOMPARE(scaling->masterAxisScaling(), int(Scaling::MasterUnit));
        QCOMPARE(scaling->cycleTime(), 1.0);
        QCOMPARE(scaling->velocityScaling(), int(Scaling::MasterSlave));
        QCOMPARE(scaling->cycleTimeText(), QStringLiteral("1.0000 s"));
    }

    void settersSignalOnlyRealChanges()
    {
        FixedScaling scaling(3);
        QSignalSpy master(&scaling, &Scaling::masterAxisScalingChanged);
        QSignalSpy cycle(&scaling, &Scaling::cycleTimeChanged);
        QSignalSpy velocity(&scaling, &Scaling::velocityScalingChanged);
        scaling.setMasterAxisScaling(Scaling::CycleTime);
        scaling.setMasterAxisScaling(Scaling::CycleTime);
        scaling.setCycleTime(0.5);
        scaling.setCycleTime(0.5);
        scaling.setVelocityScaling(Scaling::RpmMotor);
        scaling.setVelocityScaling(Scaling::RpmMotor);
        QCOMPARE(scaling.velocityScalingText(), QStringLiteral("Upm-Motor"));
        scaling.setVelocityScaling(Scaling::MasterSlave);
        QCOMPARE(master.count(), 1);
        QCOMPARE(cycle.count(), 1);
        QCOMPARE(velocity.count(), 2);
        QCOMPARE(scaling.masterAxisScaling(), int(Scaling::CycleTime));
        QCOMPARE(scaling.masterAxisScalingText(), QStringLiteral("Zykluszeit"));
        QCOMPARE(scaling.cycleTime(), 0.5);
        QCOMPARE(scaling.cycleTimeText(), QStringLiteral("0.5000 s"));
    }

    void displayTexts_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("master unit") << "master" << 0 << "Master-Einheit";
        QTest::newRow("cycle time") << "master" << 1 << "Zykluszeit";
        QTest::newRow("unknown master selector") << "master" << 2 << "";
        QTest::newRow("master-slave") << "velocity" << 0 << "Master-Slave";
        QTest::newRow("output rpm") << "velocity" << 1 << "Upm-Abtrieb";
        QTest::newRow("motor rpm") << "velocity" << 2 << "Upm-Motor";
        QTest::newRow("unknown velocity selector") << "velocity" << -1 << "";
        QTest::newRow("minutes") << "time" << 0 << "min";
        QTest::newRow("seconds") << "time" << 1 << "s";
        QTest::newRow("milliseconds") << "time" << 2 << "ms";
    }
    void displayTexts()
    {
        QFETCH(QString, kind);
        QFETCH(int, value);
        QFETCH(QString, text);
        if (kind == QLatin1String("master"))
            QCOMPARE(Scaling::masterAxisScalingText(value), text);
        else if (kind == QLatin1String("velocity"))
            QCOMPARE(Scaling::velocityScalingText(value), text);
        else
            QCOMPARE(Scaling::timeUnitName(value), text);
    }

    void decimalPlacesAreTheMastersOfTheDrive()
    {
        BoundTable bound;
        QVERIFY(bound.drive.writeValue(0, coordinate("G46"), 0, QStringLiteral("2")));
        QVERIFY(bound.drive.writeValue(1, coordinate("I06"), 0, QStringLiteral("4")));
        ScalingImplementation scaling(&bound.model());
        QCOMPARE(scaling.decimalPlaces(), 2);
        QCOMPARE(scaling.slaveDecimalPlaces(), 4);
        QCOMPARE(scaling.positionResolution(), 0.01);
        QCOMPARE(scaling.masterPositionToText(1.0 / 3.0), QStringLiteral("0.33"));
        QCOMPARE(scaling.slavePositionToText(1.0 / 3.0), QStringLiteral("0.3333"));
        QCOMPARE(scaling.slaveTextToPosition(QStringLiteral("4.5 mm")), 4.5);

        bound.model().setConnections();
        QSignalSpy changed(&scaling, &Scaling::changed);
        QVERIFY(bound.drive.writeValue(0, coordinate("G46"), 0, QStringLiteral("1")));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(scaling.decimalPlaces(), 1);
        QCOMPARE(scaling.positionResolution(), 0.1);
    }

    void followsValueChangesOfTheTable()
    {
        BoundTable bound;
        ScalingImplementation scaling(&bound.model());
        QSignalSpy changed(&scaling, &Scaling::changed);
        bound.model().setConnections();
        QVERIFY(bound.drive.writeValue(1, bound.master(), 0, QStringLiteral("5")));
        QCOMPARE(changed.count(), 1);
    }

    void survivesTheParameterModel()
    {
        auto bound = std::make_unique<BoundTable>();
        ScalingImplementation scaling(&bound->model());
        bound.reset();
        QCOMPARE(scaling.decimalPlaces(), 3);
        QCOMPARE(scaling.masterPositionToText(2.0), QStringLiteral("2.000"));
    }

    void fixedScalingTexts()
    {
        FixedScaling scaling(2);
        QCOMPARE(scaling.masterPositionToText(-0.5), QStringLiteral("-0.50"));
        QCOMPARE(scaling.slaveTextToPosition(QStringLiteral("-3.25")), -3.25);
        QCOMPARE(scaling.positionResolution(), 0.01);
    }
};

QTEST_GUILESS_MAIN(TestScalingImplementation)
#include "tst_scalingimplementation.moc"
