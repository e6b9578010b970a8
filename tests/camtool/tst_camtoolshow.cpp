#include "binaryjson.h"
#include "camtoolrunner.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

class tst_CamToolShow : public QObject
{
    Q_OBJECT
private slots:
    void showsNormalisedData_data();
    void showsNormalisedData();
    void invalidContentWarnsAndShowsDefaults_data();
    void invalidContentWarnsAndShowsDefaults();
    void unreadableFileFails();
    void wrongUsage_data();
    void wrongUsage();

private:
    QString writeTemporary(const QString &name, const QByteArray &bytes);
    QTemporaryDir m_dir;
};

QString tst_CamToolShow::writeTemporary(const QString &name, const QByteArray &bytes)
{
    const QString path = m_dir.filePath(name);
    return writeFile(path, bytes) ? path : QString();
}

void tst_CamToolShow::showsNormalisedData_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("expectedJson");

    QFile example(QStringLiteral(EXAMPLES_DIR "/cyclic-cam.json"));
    QVERIFY(example.open(QIODevice::ReadOnly));
    const QByteArray exampleBytes = example.readAll();
    QTest::newRow("bundled example") << "example.json" << exampleBytes << exampleBytes;

    const QByteArray messy = R"({"MotionPoints": [[20, 1], [10, 5, "speed"], [10, 7, "acceleration"]],
        "MotionLaw": "spline", "Steps": {"dynamicSteps": 12.7}})";
    const QByteArray normalised = R"({"CircularLength": 1, "Cyclic": false, "MotionLaw": "Vdi2142",
        "MotionPoints": [[10, 7, "acceleration"], [20, 1, "rest"]],
        "Steps": {"dynamicSteps": 12, "isDynamicStepSize": true, "staticStepSize": 1}})";
    QTest::newRow("defaults, duplicates and order") << "messy.Json" << messy << normalised;

    const QJsonObject object = QJsonDocument::fromJson(exampleBytes).object();
    QTest::newRow("binary .dat") << "example.dat" << binaryJsonOf(object) << exampleBytes;
}

void tst_CamToolShow::showsNormalisedData()
{
    QFETCH(QString, fileName);
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, expectedJson);
    const QString path = writeTemporary(fileName, bytes);
    QVERIFY(!path.isEmpty());
    const CamToolResult result = camtool({ QStringLiteral("show"), path });
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.err, QByteArray());
    const QJsonObject expected = QJsonDocument::fromJson(expectedJson).object();
    QVERIFY(!expected.isEmpty());
    // Printed exactly as a save would write it: indented text.
    QCOMPARE(result.out, QJsonDocument(expected).toJson(QJsonDocument::Indented));
}

void tst_CamToolShow::invalidContentWarnsAndShowsDefaults_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QByteArray>("bytes");
    // Which contents are invalid is held by the cam data file's test; the
    // tool must warn on one line and show the defaults.
    QTest::newRow("text saved as .dat") << "saved.dat" << QByteArray(R"({"Cyclic": true})");
    QTest::newRow("broken text json") << "broken.json" << QByteArray(R"({"Cyclic": tr)");
}

void tst_CamToolShow::invalidContentWarnsAndShowsDefaults()
{
    QFETCH(QString, fileName);
    QFETCH(QByteArray, bytes);
    const QString path = writeTemporary(fileName, bytes);
    QVERIFY(!path.isEmpty());
    const CamToolResult result = camtool({ QStringLiteral("show"), path });
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.err.count('\n'), 1);
    QVERIFY2(result.err.contains("warning") && result.err.contains(fileName.toUtf8()), result.err.constData());
    const QJsonObject shown = QJsonDocument::fromJson(result.out).object();
    QCOMPARE(shown.value("Cyclic").toBool(true), false);
    QCOMPARE(shown.value("CircularLength").toDouble(), 1.0);
    QCOMPARE(shown.value("MotionPoints").toArray().size(), 0);
}

void tst_CamToolShow::unreadableFileFails()
{
    const QString path = m_dir.filePath(QStringLiteral("does-not-exist.json"));
    const CamToolResult result = camtool({ QStringLiteral("show"), path });
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.err.count('\n'), 1);
    QVERIFY(result.err.contains(path.toUtf8()));
    QVERIFY(result.err.contains("No such file"));
}

void tst_CamToolShow::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("no verb") << QStringList();
    QTest::newRow("unknown verb") << QStringList { "frobnicate" };
    QTest::newRow("show without file") << QStringList { "show" };
    QTest::newRow("show with two files") << QStringList { "show", "a.json", "b.json" };
    QTest::newRow("unknown option") << QStringList { "show", "--bogus", "a.json" };
}

void tst_CamToolShow::wrongUsage()
{
    QFETCH(QStringList, arguments);
    const CamToolResult result = camtool(arguments);
    QCOMPARE(result.exitCode, 2);
    QVERIFY(result.err.contains("Usage"));
}

QTEST_GUILESS_MAIN(tst_CamToolShow)
#include "tst_camtoolshow.moc"
