#include "camtoolrunner.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

namespace {

using Result = CamToolResult;


const QString Example = QStringLiteral(EXAMPLES_DIR "/cyclic-cam.json");

} // namespace

// The drive verbs of the command-line tool, run as a user runs them.
class TestDriveVerbs : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        QVERIFY(m_dir.isValid());
        m_project = m_dir.filePath(QStringLiteral("drive-%1.json").arg(m_serial++));
    }

    void writeThenReadBack()
    {
        const Result written = camtool({ "write", Example, "--drive", m_project, "--table", "5" });
        QCOMPARE(written.exitCode, 0);
        const int count = written.json().value(QStringLiteral("count")).toInt();
        QVERIFY(count > 100);

        const Result read = camtool({ "read", "--drive", m_project, "--table", "5" });
        QCOMPARE(read.exitCode, 0);
        const QJsonObject table = read.json();
        QCOMPARE(table.value(QStringLiteral("count")).toInt(), count);
        const QJsonArray points = table.value(QStringLiteral("points")).toArray();
        QCOMPARE(points.size(), count);
        QCOMPARE(points.first().toArray().at(0).toDouble(), 0.0);
        QCOMPARE(points.last().toArray().at(0).toDouble(), 360.0);  // the cyclic cam closes at its length
        QCOMPARE(points.last().toArray().at(1).toDouble(), points.first().toArray().at(1).toDouble());

        double previous = -1.0;
        for (const QJsonValue &point : points) {
            QVERIFY(point.toArray().at(0).toDouble() > previous);
            previous = point.toArray().at(0).toDouble();
        }
        // How the stamp is computed is held in the grid point table's test;
        // here the tool must report the one it wrote, and find it again.
        const double crc = written.json().value(QStringLiteral("crc")).toDouble();
        QVERIFY(crc > 0.0);
        QCOMPARE(table.value(QStringLiteral("storedCrc")).toDouble(), crc);
        QCOMPARE(table.value(QStringLiteral("computedCrc")).toDouble(), crc);
        const QString summary = table.value(QStringLiteral("summary")).toString();
        QVERIFY(summary.contains(QStringLiteral("Anzahl: %1").arg(count)));
        QVERIFY(!summary.contains(QStringLiteral("nicht vom Kurvenscheibeneditor")));
    }

    void secondWriteLeavesProjectAsItWas()
    {
        QCOMPARE(camtool({ "write", Example, "--drive", m_project, "--table", "0" }).exitCode, 0);
        const QByteArray first = readFile(m_project);
        QCOMPARE(camtool({ "write", Example, "--drive", m_project, "--table", "0" }).exitCode, 0);
        QCOMPARE(readFile(m_project), first);
    }

    void refusalLeavesProjectUntouched_data()
    {
        QTest::addColumn<QString>("verb");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QString>("camFile");
        QTest::addColumn<QString>("message");
        QTest::newRow("read-only") << "write" << QStringList { "--read-only" } << QString()
                                   << "Antriebsregler ist schreibgeschützt.";
        QTest::newRow("online with arrays too small")
            << "write" << QStringList { "--online", "--table", "3" } << QString()
            << "Die Stützstellen-Arrays müssen vergrößert werden";
        QTest::newRow("slave beyond the array limit")
            << "write" << QStringList() << QStringLiteral("far.json")
            << "Slave-Stützstelle [1] kann nicht geschrieben werden. Wert 3000000000 ist zu groß max: 2147483647";
        QTest::newRow("delete online") << "delete" << QStringList { "--online" } << QString()
                                       << "Bitte gehen Sie Offline";
    }
    void refusalLeavesProjectUntouched()
    {
        QFETCH(QString, verb);
        QFETCH(QStringList, options);
        QFETCH(QString, camFile);
        QFETCH(QString, message);
        QCOMPARE(camtool({ "write", Example, "--drive", m_project, "--table", "2" }).exitCode, 0);
        const QByteArray before = readFile(m_project);
        QString cam = Example;
        if (!camFile.isEmpty()) {
            cam = m_dir.filePath(camFile);
            QVERIFY(writeFile(cam, R"({"MotionLaw": "Vdi2142", "Cyclic": false, "CircularLength": 1,
                          "MotionPoints": [[0, 0, "rest"], [10, 3000000, "rest"]],
                          "Steps": {"isDynamicStepSize": false, "staticStepSize": 5, "dynamicSteps": 500}})"));
        }
        QStringList arguments { verb, "--drive", m_project, "--table", "2" };
        if (verb == QLatin1String("write"))
            arguments.insert(1, cam);
        arguments += options;  // a later --table wins
        const Result result = camtool(arguments);
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(QString::fromUtf8(result.err).contains(message), result.err.constData());
        QVERIFY(result.out.isEmpty());
        QCOMPARE(readFile(m_project), before);
    }

    void refusedFirstWriteCreatesNoProject()
    {
        const Result result = camtool({ "write", Example, "--drive", m_project, "--table", "1", "--online" });
        QCOMPARE(result.exitCode, 1);
        QVERIFY(!QFile::exists(m_project));
    }

    void damagedProjectIsLeftAlone_data()
    {
        QTest::addColumn<QString>("verb");
        QTest::newRow("write") << "write";
        QTest::newRow("read") << "read";
        QTest::newRow("delete") << "delete";
    }
    void damagedProjectIsLeftAlone()
    {
        QFETCH(QString, verb);
        const QByteArray damaged("{\"Drive\": \"MxSimulatedDrive\", \"Version\": 1, \"Axes\": 2, \"Parameters\": {\"G283\": [0.5]}}");
        QVERIFY(writeFile(m_project, damaged));
        QStringList arguments { verb, "--drive", m_project, "--table", "0" };
        if (verb == QLatin1String("write"))
            arguments.insert(1, Example);
        const Result result = camtool(arguments);
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.err.contains("cannot use drive project"), result.err.constData());
        QCOMPARE(readFile(m_project), damaged);
    }

    void deleteOfflineEmptiesTable()
    {
        QCOMPARE(camtool({ "write", Example, "--drive", m_project, "--table", "9" }).exitCode, 0);
        const Result deleted = camtool({ "delete", "--drive", m_project, "--table", "9" });
        QCOMPARE(deleted.exitCode, 0);
        const QJsonObject table = camtool({ "read", "--drive", m_project, "--table", "9" }).json();
        QCOMPARE(table.value(QStringLiteral("count")).toInt(), 0);
        QVERIFY(table.value(QStringLiteral("points")).toArray().isEmpty());
        QCOMPARE(table.value(QStringLiteral("summary")).toString(), QString());
    }

    void wrongUse_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::newRow("table 16") << QStringList { "read", "--drive", "x.json", "--table", "16" } << 2;
        QTest::newRow("table not a number") << QStringList { "read", "--drive", "x.json", "--table", "five" } << 2;
        QTest::newRow("no drive") << QStringList { "read", "--table", "1" } << 2;
        QTest::newRow("missing project for read") << QStringList { "read", "--drive", "none.json", "--table", "1" } << 1;
        QTest::newRow("missing cam file")
            << QStringList { "write", "none-cam.json", "--drive", "x.json", "--table", "1" } << 1;
    }
    void wrongUse()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        for (QString &argument : arguments) {
            if (argument.endsWith(QLatin1String(".json")))
                argument = m_dir.filePath(argument);
        }
        QCOMPARE(camtool(arguments).exitCode, exitCode);
    }

private:
    QTemporaryDir m_dir;
    QString m_project;
    int m_serial = 0;
};

QTEST_GUILESS_MAIN(TestDriveVerbs)
#include "tst_driveverbs.moc"
