#include "model/fixedscaling.h"
#include "model/scalingimplementation.h"

#include "boundtable.h"

#include <QSignalSpy>
#include <QtTest>

class TestScalingImplementation : public QObject
{
    Q_OBJECT
private slots:
    void settersSignalOnlyRealChanges()
    {
        BoundTable bound;
        std::unique_ptr<Scaling> scaling(Scaling::createScaling(&bound.model(), nullptr));
        QVERIFY(qobject_cast<ScalingImplementation *>(scaling.get()));
        QCOMPARE(scaling->masterAxisScaling(), int(Scaling::MasterUnit));
        QCOMPARE(scaling->velocityScaling(), int(Scaling::MasterSlave));
        QCOMPARE(scaling->cycleTimeText(), QStringLiteral("1.0000 s"));
        QSignalSpy master(scaling.get(), &Scaling::masterAxisScalingChanged);
        QSignalSpy cycle(scaling.get(), &Scaling::cycleTimeChanged);
        QSignalSpy velocity(scaling.get(), &Scaling::velocityScalingChanged);
        for (int repeat = 0; repeat < 2; ++repeat) {
            scaling->setMasterAxisScaling(Scaling::CycleTime);
            scaling->setCycleTime(0.5);
            scaling->setVelocityScaling(Scaling::RpmMotor);
        }
        scaling->setVelocityScaling(Scaling::MasterSlave);
        QCOMPARE(master.count(), 1);
        QCOMPARE(cycle.count(), 1);
        QCOMPARE(velocity.count(), 2);
        QCOMPARE(scaling->masterAxisScaling(), int(Scaling::CycleTime));
        QCOMPARE(scaling->cycleTimeText(), QStringLiteral("0.5000 s"));
    }

    void displayTexts_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("master");
        QTest::addColumn<QString>("velocity");
        QTest::addColumn<QString>("time");
        QTest::newRow("-1, unknown") << -1 << "" << "" << "";
        QTest::newRow("0") << 0 << "Master-Einheit" << "Master-Slave" << "min";
        QTest::newRow("1") << 1 << "Zykluszeit" << "Upm-Abtrieb" << "s";
        QTest::newRow("2") << 2 << "" << "Upm-Motor" << "ms";
        QTest::newRow("3, unknown") << 3 << "" << "" << "";
    }
    void displayTexts()
    {
        QFETCH(int, value);
        QFETCH(QString, master);
        QFETCH(QString, velocity);
        QFETCH(QString, time);
        QCOMPARE(Scaling::masterAxisScalingText(value), master);
        QCOMPARE(Scaling::velocityScalingText(value), velocity);
        QCOMPARE(Scaling::timeUnitName(value), time);
    }

    void followsTheDrive()
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
        QCOMPARE(scaling.positionResolution(), 0.1);
        QVERIFY(bound.drive.writeValue(1, bound.master(), 0, QStringLiteral("5")));
        QCoreApplication::processEvents();
        QCOMPARE(changed.count(), 2);
    }

    void survivesTheParameterModel()
    {
        auto bound = std::make_unique<BoundTable>();
        ScalingImplementation scaling(&bound->model());
        bound.reset();
        QCOMPARE(scaling.decimalPlaces(), 3);
        QCOMPARE(scaling.masterPositionToText(2.0), QStringLiteral("2.000"));
        const FixedScaling fixed(2);
        QCOMPARE(fixed.masterPositionToText(-0.5), QStringLiteral("-0.50"));
        QCOMPARE(fixed.slaveTextToPosition(QStringLiteral("-3.25")), -3.25);
        QCOMPARE(fixed.positionResolution(), 0.01);
    }
};

QTEST_GUILESS_MAIN(TestScalingImplementation)
#include "tst_scalingimplementation.moc"
