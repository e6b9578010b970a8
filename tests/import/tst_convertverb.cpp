#include "camtoolrunner.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

class TestConvertVerb : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void converts_data();
    void converts();
    void usageErrors_data();
    void usageErrors();
    void missingFileIsAnError();
    void helpNamesTheOptions();

private:
    QString writeFile(const QString &name, const QByteArray &bytes);

    QTemporaryDir m_directory;
};

void TestConvertVerb::initTestCase()
{
    QVERIFY(m_directory.isValid());
    QVERIFY2(QFileInfo(QStringLiteral(CAMTOOL_PATH)).isExecutable(), CAMTOOL_PATH);
}

QString TestConvertVerb::writeFile(const QString &name, const QByteArray &bytes)
{
    const QString path = m_directory.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        return QString();
    return path;
}

void TestConvertVerb::converts_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("points");
    QTest::addColumn<QString>("error");

    QTest::newRow("default is free format with point and semicolon")
        << QByteArray("Master;Slave\n0;0\n1.5;2e1\n1,5;3\n") << QStringList()
        << QByteArray("[[0,0],[1.5,20],[5,3]]") << QString();
    QTest::newRow("SERVOsoft")
        << QByteArray("0;0\n10,5;;20,25\n") << QStringList { "--format", "servosoft" }
        << QByteArray("[[0,0],[10.5,20.25]]") << QString();
    QTest::newRow("TwinCat2 reads decimal commas as pairs")
        << QByteArray("1,5;2,5") << QStringList { "--format", "TwinCat2" }
        << QByteArray("[[1,5],[2,5]]") << QString();
    QTest::newRow("CodeSys")
        << QByteArray("1.0;  2.0e-3\n1.0;2.0\n") << QStringList { "--format", "codesys" }
        << QByteArray("[[1,0.002]]") << QString();
    QTest::newRow("free format with comma and blank")
        << QByteArray("1,5 2,5\n") << QStringList { "--decimal", "comma", "--separator", "blank" }
        << QByteArray("[[1.5,2.5]]") << QString();
    QTest::newRow("explicit free format with tab")
        << QByteArray("1\t2\n3\t\t4\n") << QStringList { "--format", "free", "--separator", "tab" }
        << QByteArray("[[1,2]]") << QString();
    QTest::newRow("UTF-8 byte order mark and Windows line ends")
        << QByteArray("\xEF\xBB\xBF" "0,5;1\r\n2;3,25\r\n")
        << QStringList { "--format", "free", "--decimal", "comma", "--separator", "semicolon" }
        << QByteArray("[[0.5,1],[2,3.25]]") << QString();
    // Decoded by the stream, as the import dialog reads it; as plain bytes the
    // zero bytes between the digits would hide every pair.
    QTest::newRow("UTF-16 with byte order mark")
        << (QByteArray("\xFF\xFE", 2) + QByteArray(reinterpret_cast<const char *>(u"0;1\r\n2;3\r\n"), 20))
        << QStringList() << QByteArray("[[0,1],[2,3]]") << QString();
    QTest::newRow("failed value becomes 0 with a message")
        << QByteArray("1;1e999\n2;3\n") << QStringList() << QByteArray("[[1,0],[2,3]]")
        << QStringLiteral("Slave-Position 1e999 konnte nicht konvertiert werden.");
    QTest::newRow("nothing matches") << QByteArray("Kein Inhalt\n") << QStringList() << QByteArray("[]") << QString();
}

void TestConvertVerb::converts()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, options);
    QFETCH(QByteArray, points);
    QFETCH(QString, error);

    const QString path = writeFile(QStringLiteral("curve.txt"), bytes);
    QVERIFY(!path.isEmpty());
    const CamToolResult run = camtool(QStringList { QStringLiteral("convert") } + options + QStringList { path });
    QVERIFY2(run.exitCode == 0, run.err.constData());
    QVERIFY2(run.err.isEmpty(), run.err.constData());

    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(run.out, &parseError);
    QVERIFY2(parseError.error == QJsonParseError::NoError, run.out.constData());
    const QJsonObject result = document.object();
    QCOMPARE(result.keys(), (QStringList { "error", "points" }));
    QCOMPARE(result.value(QLatin1String("points")).toArray(), QJsonDocument::fromJson(points).array());
    QVERIFY(result.value(QLatin1String("error")).isString());
    QCOMPARE(result.value(QLatin1String("error")).toString(), error);
}

void TestConvertVerb::usageErrors_data()
{
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("no file") << QStringList { "convert" };
    QTest::newRow("two files") << QStringList { "convert", "a.txt", "b.txt" };
    QTest::newRow("unknown format") << QStringList { "convert", "--format", "excel", "a.txt" };
    QTest::newRow("unknown decimal mark") << QStringList { "convert", "--decimal", "dot", "a.txt" };
    QTest::newRow("unknown separator") << QStringList { "convert", "--separator", "pipe", "a.txt" };
    QTest::newRow("unknown option") << QStringList { "convert", "--codec", "utf8", "a.txt" };
    QTest::newRow("separator with a named format")
        << QStringList { "convert", "--format", "codesys", "--separator", "tab", "a.txt" };
    QTest::newRow("decimal mark with a named format")
        << QStringList { "convert", "--decimal", "point", "--format", "servosoft", "a.txt" };
}

void TestConvertVerb::usageErrors()
{
    QFETCH(QStringList, arguments);
    const CamToolResult run = camtool(arguments);
    QCOMPARE(run.exitCode, 2);
    QVERIFY(run.out.isEmpty());
    QVERIFY(!run.err.isEmpty());
}

void TestConvertVerb::missingFileIsAnError()
{
    const QString path = m_directory.filePath(QStringLiteral("missing.txt"));
    const CamToolResult run = camtool({ QStringLiteral("convert"), path });
    QCOMPARE(run.exitCode, 1);
    QVERIFY(run.out.isEmpty());
    QCOMPARE(run.err.count('\n'), 1);
    QVERIFY2(run.err.contains(path.toLocal8Bit()), run.err.constData());
}

void TestConvertVerb::helpNamesTheOptions()
{
    const CamToolResult run = camtool({ QStringLiteral("convert"), QStringLiteral("--help") });
    QCOMPARE(run.exitCode, 0);
    for (const char *option : { "--format", "--decimal", "--separator" })
        QVERIFY2(run.out.contains(option), option);
}

QTEST_GUILESS_MAIN(TestConvertVerb)
#include "tst_convertverb.moc"
