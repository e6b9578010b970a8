#include "model/motionlaw.h"

#include <QJsonValue>
#include <QSignalSpy>
#include <QTest>

class tst_MotionLaw : public QObject
{
    Q_OBJECT
private slots:
    void names_data();
    void names();
    void setFromData_data();
    void setFromData();
    void setLawEmitsOnlyOnChange();
    void indexTable();
};

void tst_MotionLaw::names_data()
{
    QTest::addColumn<int>("law");
    QTest::addColumn<QString>("dataName");
    QTest::addColumn<QString>("displayName");
    QTest::newRow("vdi") << 0 << "Vdi2142" << QString::fromUtf8("Polynom fünften Grades");
    QTest::newRow("spline") << 1 << "Spline" << "Kubischer Spline";
    QTest::newRow("unknown") << 2 << "" << "";
    QTest::newRow("negative") << -1 << "" << "";
}

void tst_MotionLaw::names()
{
    QFETCH(int, law);
    QFETCH(QString, dataName);
    QFETCH(QString, displayName);
    MotionLaw motionLaw;
    motionLaw.setLaw(law);
    QCOMPARE(motionLaw.dataName(), dataName);
    QCOMPARE(MotionLaw::dataName(law), dataName);
    QCOMPARE(MotionLaw::displayName(law), displayName);
}

void tst_MotionLaw::setFromData_data()
{
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<int>("law");
    QTest::newRow("Spline") << QJsonValue(QStringLiteral("Spline")) << 1;
    QTest::newRow("Vdi2142") << QJsonValue(QStringLiteral("Vdi2142")) << 0;
    QTest::newRow("lower-case spline") << QJsonValue(QStringLiteral("spline")) << 0;
    QTest::newRow("display name") << QJsonValue(QStringLiteral("Kubischer Spline")) << 0;
    QTest::newRow("number") << QJsonValue(1) << 0;
    QTest::newRow("undefined") << QJsonValue(QJsonValue::Undefined) << 0;
}

void tst_MotionLaw::setFromData()
{
    QFETCH(QJsonValue, value);
    QFETCH(int, law);
    MotionLaw motionLaw;
    motionLaw.setLaw(law == 0 ? 1 : 0);
    motionLaw.setFromData(value);
    QCOMPARE(motionLaw.law(), law);
}

void tst_MotionLaw::setLawEmitsOnlyOnChange()
{
    MotionLaw motionLaw;
    QSignalSpy spy(&motionLaw, &MotionLaw::motionLawChanged);
    motionLaw.setLaw(0);
    QCOMPARE(spy.count(), 0);
    motionLaw.setLaw(1);
    motionLaw.setLaw(1);
    motionLaw.setFromData(QJsonValue(QStringLiteral("Spline")));
    QCOMPARE(spy.count(), 1);
    motionLaw.setFromData(QJsonValue(QStringLiteral("Vdi2142")));
    QCOMPARE(spy.count(), 2);
}

void tst_MotionLaw::indexTable()
{
    QCOMPARE(MotionLaw::lawForIndex(0), 0);
    QCOMPARE(MotionLaw::lawForIndex(1), 1);
    QCOMPARE(MotionLaw::lawForIndex(5), 0);
    QCOMPARE(MotionLaw::indexForLaw(1), 1);
    QCOMPARE(MotionLaw::indexForLaw(5), -1);
}

QTEST_GUILESS_MAIN(tst_MotionLaw)
#include "tst_motionlaw.moc"
