#include "model/motionpoint.h"

#include <QSignalSpy>
#include <QTest>

class tst_MotionPoint : public QObject
{
    Q_OBJECT
private slots:
    void typeByIndex_data();
    void typeByIndex();
    void namesOfTypes_data();
    void namesOfTypes();
    void unknownDataNameIsRest_data();
    void unknownDataNameIsRest();
    void equality_data();
    void equality();
    void setPositionAlwaysEmitsMoved();
    void setFromEmitsOnlyOnChange();
    void copyAndAssignmentCarryValuesButNoSignal();
};

void tst_MotionPoint::typeByIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("type");
    QTest::newRow("0 Rast") << 0 << int(MotionPoint::rest);
    QTest::newRow("1 Konstante Geschwindigkeit") << 1 << int(MotionPoint::speed);
    QTest::newRow("2 Beschleunigung") << 2 << int(MotionPoint::acceleration);
    QTest::newRow("3 Umkehrpunkt") << 3 << int(MotionPoint::turningPoint);
    QTest::newRow("7 unknown") << 7 << int(MotionPoint::rest);
    QTest::newRow("-1 unknown") << -1 << int(MotionPoint::rest);
}

void tst_MotionPoint::typeByIndex()
{
    QFETCH(int, index);
    QFETCH(int, type);
    MotionPoint byConstructor(0.0, 0.0, MotionPoint::ComboBoxIndex(index));
    QCOMPARE(byConstructor.type(), type);

    // The setter notifies only a real change of rule.
    MotionPoint bySetter(0.0, 0.0, MotionPoint::speed);
    QSignalSpy rule(&bySetter, &MotionPoint::movementRuleChanged);
    bySetter.setTypeByIndex(index);
    QCOMPARE(bySetter.type(), type);
    bySetter.setTypeByIndex(index);
    QCOMPARE(rule.count(), type == MotionPoint::speed ? 0 : 1);
    if (type != MotionPoint::rest || index == 0)
        QCOMPARE(MotionPoint::indexForType(type), index);
}

void tst_MotionPoint::namesOfTypes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("dataName");
    QTest::addColumn<QString>("displayName");
    QTest::addColumn<int>("index");
    QTest::newRow("rest") << int(MotionPoint::rest) << "rest" << QString::fromUtf8("Rast") << 0;
    QTest::newRow("speed") << int(MotionPoint::speed) << "speed" << QString::fromUtf8("Konstante Geschwindigkeit") << 1;
    QTest::newRow("turningPoint") << int(MotionPoint::turningPoint) << "turningPoint" << QString::fromUtf8("Umkehrpunkt") << 3;
    QTest::newRow("acceleration") << int(MotionPoint::acceleration) << "acceleration" << QString::fromUtf8("Beschleunigung") << 2;
    QTest::newRow("unknown") << 9 << "" << "" << -1;
}

// Both directions: the names of a type, and the type read back from its data name.
void tst_MotionPoint::namesOfTypes()
{
    QFETCH(int, type);
    QFETCH(QString, dataName);
    QFETCH(QString, displayName);
    QFETCH(int, index);
    MotionPoint point(0.0, 0.0, static_cast<MotionPoint::movementRules>(type));
    QCOMPARE(point.typeDataName(), dataName);
    QCOMPARE(point.typeDisplayName(), displayName);
    QCOMPARE(MotionPoint::indexForType(type), index);
    if (!dataName.isEmpty()) {
        // A type that does not apply to the law shows no name, but keeps its data name.
        point.setTypeApplies(false);
        QCOMPARE(point.typeDisplayName(), QString());
        QCOMPARE(point.typeDataName(), dataName);
        point.setTypeApplies(true);
        QCOMPARE(point.typeDisplayName(), displayName);

        MotionPoint read(1.0, 2.0, dataName);
        QCOMPARE(read.type(), type);
        QCOMPARE(read.position(), QPointF(1.0, 2.0));
        QVERIFY(read.typeApplies());
    }
}

void tst_MotionPoint::unknownDataNameIsRest_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("lower-case turningpoint") << "turningpoint";
    QTest::newRow("empty") << "";
    QTest::newRow("display name is not a data name") << "Umkehrpunkt";
}

void tst_MotionPoint::unknownDataNameIsRest()
{
    QFETCH(QString, name);
    QCOMPARE(MotionPoint(1.0, 2.0, name).type(), int(MotionPoint::rest));
}

void tst_MotionPoint::equality_data()
{
    QTest::addColumn<double>("master1");
    QTest::addColumn<double>("slave1");
    QTest::addColumn<double>("master2");
    QTest::addColumn<double>("slave2");
    QTest::addColumn<bool>("equal");
    QTest::newRow("identical") << 1.0 << 2.0 << 1.0 << 2.0 << true;
    QTest::newRow("relative 1e-13 is equal") << 1.0 << 2.0 << 1.0 + 1e-13 << 2.0 << true;
    QTest::newRow("relative 1e-11 differs") << 1.0 << 2.0 << 1.0 + 1e-11 << 2.0 << false;
    QTest::newRow("zero against 1e-11 differs") << 0.0 << 0.0 << 1e-11 << 0.0 << false;
    QTest::newRow("zero against 1e-13 is equal") << 0.0 << 0.0 << 1e-13 << 0.0 << true;
    QTest::newRow("slave zero against 1e-11 differs") << 5.0 << 0.0 << 5.0 << 1e-11 << false;
    QTest::newRow("large values within 1e-12") << 1e6 << 3.0 << 1e6 + 1e-7 << 3.0 << true;
}

void tst_MotionPoint::equality()
{
    QFETCH(double, master1);
    QFETCH(double, slave1);
    QFETCH(double, master2);
    QFETCH(double, slave2);
    QFETCH(bool, equal);
    MotionPoint a(master1, slave1, MotionPoint::speed);
    MotionPoint b(master2, slave2, MotionPoint::speed);
    QCOMPARE(a.isEqual(b), equal);
    QCOMPARE(b.isEqual(a), equal);
    QCOMPARE(a.differs(&b), !equal);

    MotionPoint otherType(master2, slave2, MotionPoint::rest);
    QVERIFY(a.differs(&otherType));
    QVERIFY(a.differs(nullptr));
}

void tst_MotionPoint::setPositionAlwaysEmitsMoved()
{
    MotionPoint point(10.0, 5.0, MotionPoint::rest);
    QSignalSpy moved(&point, &MotionPoint::moved);
    QSignalSpy edited(&point, &MotionPoint::edited);
    point.setPosition(QPointF(10.0, 5.0));
    QCOMPARE(moved.count(), 1);
    point.setPosition(QPointF(11.0, 6.0));
    QCOMPARE(moved.count(), 2);
    QCOMPARE(point.position(), QPointF(11.0, 6.0));
    QCOMPARE(edited.count(), 0);
}

void tst_MotionPoint::setFromEmitsOnlyOnChange()
{
    MotionPoint point(10.0, 5.0, MotionPoint::rest);
    QSignalSpy edited(&point, &MotionPoint::edited);
    QSignalSpy rule(&point, &MotionPoint::movementRuleChanged);

    point.setFrom(MotionPoint(10.0 + 1e-13, 5.0, MotionPoint::rest));
    QCOMPARE(edited.count(), 0);
    QCOMPARE(point.master(), 10.0);

    point.setFrom(MotionPoint(12.0, 7.0, MotionPoint::acceleration));
    QCOMPARE(edited.count(), 1);
    QCOMPARE(point.master(), 12.0);
    QCOMPARE(point.slave(), 7.0);
    QCOMPARE(point.type(), int(MotionPoint::acceleration));
    QCOMPARE(rule.count(), 0);

    point.setFrom(MotionPoint(12.0, 7.0, MotionPoint::turningPoint));
    QCOMPARE(edited.count(), 2);
}

void tst_MotionPoint::copyAndAssignmentCarryValuesButNoSignal()
{
    MotionPoint source(3.0, 4.0, MotionPoint::acceleration);
    MotionPoint copy(source);
    QCOMPARE(copy.position(), QPointF(3.0, 4.0));
    QCOMPARE(copy.type(), int(MotionPoint::acceleration));

    MotionPoint target(0.0, 0.0, MotionPoint::rest);
    QSignalSpy edited(&target, &MotionPoint::edited);
    QSignalSpy moved(&target, &MotionPoint::moved);
    target = source;
    QCOMPARE(target.position(), QPointF(3.0, 4.0));
    QCOMPARE(target.type(), int(MotionPoint::acceleration));
    QCOMPARE(edited.count() + moved.count(), 0);
}

QTEST_GUILESS_MAIN(tst_MotionPoint)
#include "tst_motionpoint.moc"
