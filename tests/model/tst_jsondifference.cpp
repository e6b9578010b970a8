#include "model/jsondifference.h"
#include "jsontext.h"

#include <QJsonObject>
#include <QTest>

class tst_JsonDifference : public QObject
{
    Q_OBJECT
private slots:
    void compare_data();
    void compare();
};

void tst_JsonDifference::compare_data()
{
    QTest::addColumn<QByteArray>("oldJson");
    QTest::addColumn<QByteArray>("newJson");
    QTest::addColumn<QStringList>("log");

    QTest::newRow("equal") << QByteArray(R"({"a": 1, "b": "x"})") << QByteArray(R"({"b": "x", "a": 1})")
                           << QStringList();
    QTest::newRow("deleted and created") << QByteArray(R"({"a": 1, "b": 2})") << QByteArray(R"({"a": 1, "c": true})")
                                         << QStringList { "b: deleted", "c: created" };
    QTest::newRow("number changed, six digits") << QByteArray(R"({"a": 1234567.0})") << QByteArray(R"({"a": 2.5})")
                                                << QStringList { "a: changed from 1.23457e+06 to 2.5" };
    QTest::newRow("string and bool changed") << QByteArray(R"({"Cyclic": false, "MotionLaw": "Vdi2142"})")
                                             << QByteArray(R"({"Cyclic": true, "MotionLaw": "Spline"})")
                                             << QStringList { "Cyclic: changed from false to true",
                                                              "MotionLaw: changed from Vdi2142 to Spline" };
    QTest::newRow("nested path joined") << QByteArray(R"({"Steps": {"dynamicSteps": 500}})")
                                        << QByteArray(R"({"Steps": {"dynamicSteps": 100}})")
                                        << QStringList { "Steps, dynamicSteps: changed from 500 to 100" };
    QTest::newRow("array element changed, array grows") << QByteArray(R"({"P": [[0, 0, "rest"], [10, 5, "rest"]]})")
                                                        << QByteArray(R"({"P": [[0, 0, "rest"], [10, 6, "rest"], 1]})")
                                                        << QStringList { "P, 1, 1: changed from 5 to 6", "P, 2: created" };
    QTest::newRow("type change") << QByteArray(R"({"a": "1"})") << QByteArray(R"({"a": 1})")
                                 << QStringList { "a: changed from 1 to 1" };
}

void tst_JsonDifference::compare()
{
    QFETCH(QByteArray, oldJson);
    QFETCH(QByteArray, newJson);
    QFETCH(QStringList, log);
    QCOMPARE(JsonDifference::compare(parseJson(oldJson.constData()), parseJson(newJson.constData())), log);
}

QTEST_GUILESS_MAIN(tst_JsonDifference)
#include "tst_jsondifference.moc"
