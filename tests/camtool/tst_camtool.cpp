#include "camdesigner/camdescriptionimplementation.h"
#include "curves/motionplan.h"
#include "curves/motionplanfactory.h"
#include "model/fixedscaling.h"
#include "model/steps.h"
#include "binaryjson.h"
#include "camtoolrunner.h"
#include "fulldisk.h"

#include <QJsonArray>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

// Runs the built camtool as a user runs it and holds its output to what the
// library computes from the same files.

namespace {

const QString Cyclic = QStringLiteral(EXAMPLES_DIR "/cyclic-cam.json");
const QString Spline = QStringLiteral(EXAMPLES_DIR "/spline-cam.json");
const char OnePoint[] = R"([[10, 5, "rest"]])";

// A number as the tool must write it: JSON has no NaN or infinity, and a
// finite number must read back to the same double (but for the sign of a
// zero, which JSON loses and == ignores).
QJsonValue number(double value)
{
    if (std::isnan(value))
        return "NaN";
    return std::isinf(value) ? QJsonValue(value > 0 ? "Infinity" : "-Infinity") : QJsonValue(value);
}

QJsonArray toJson(const QPolygonF &points)
{
    QJsonArray array;
    for (const QPointF &point : points)
        array.append(QJsonArray{ number(point.x()), number(point.y()) });
    return array;
}

// The plan the tool should build from the same file, by the library's
// routines; it belongs to the description.
MotionPlan *localPlan(const QString &path, CamDescriptionImplementation &description, Scaling *scaling)
{
    description.fromJson(QJsonDocument::fromJson(readFile(path)).object());
    return MotionPlanFactory::create(description.motionLaw()->law(), description.motionPoints(),
                                     description.isCyclic(), description.circularLength(), &description, scaling);
}

enum class Project { Missing, Written, Damaged };

// A cam with a section law on every section, a set velocity and a law that
// falls back to the quintic at a turning point.
const char SectionLaws[] = R"([[0, 0, "rest", {"law": "ModifiedSine", "inflection": 0.4}],
    [90, 50, "speed", {"law": "Poly7", "velocity": 0.7}], [180, 100, "turningPoint", {"law": "Cycloid"}],
    [270, 40, "rest", {"law": "Line"}]])";

} // namespace

Q_DECLARE_METATYPE(Project)

class TestCamTool : public QObject
{
    Q_OBJECT
    QTemporaryDir m_dir;
    QString m_project;
    int m_serial = 0;
    QString tmp(const QString &name) const { return m_dir.filePath(name); }
    // A cam file of the given points and steps in the temporary folder.
    QString cam(const char *points, const char *steps = "{}")
    {
        const QString path = tmp(QStringLiteral("cam-%1.json").arg(m_serial++));
        const QByteArray head = R"({"MotionLaw": "Vdi2142", "Cyclic": false, "CircularLength": 360, "MotionPoints": )";
        return writeFile(path, head + points + R"(, "Steps": )" + steps + "}") ? path : QString();
    }

private slots:
    void init() { m_project = tmp(QStringLiteral("drive-%1.json").arg(m_serial++)); }

    void exitCodes_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("says");  // on stdout or stderr

        const QString missing = tmp("missing.json");
        const QStringList drive{ "--drive", tmp("x.json") };
        QTest::newRow("no verb") << QStringList() << 2 << "Usage";
        QTest::newRow("help") << QStringList{ "--help" } << 0 << "convert";
        QTest::newRow("unknown verb") << QStringList{ "frobnicate" } << 2 << "unknown verb";
        QTest::newRow("show without file") << QStringList{ "show" } << 2 << "Usage";
        QTest::newRow("unknown option") << QStringList{ "show", "--bogus", Cyclic } << 2 << "bogus";
        QTest::newRow("show missing file") << QStringList{ "show", missing } << 1 << "No such file";
        QTest::newRow("unparsable --static") << QStringList{ "sample", Cyclic, "--static", "fast" } << 1 << "--static";
        QTest::newRow("--dynamic beyond int") << QStringList{ "sample", Cyclic, "--dynamic", "99999999999" } << 1 << "--dynamic";
        QTest::newRow("--decimals out of range") << QStringList{ "sample", Cyclic, "--decimals", "400" } << 1 << "--decimals";
        QTest::newRow("both step options") << QStringList{ "sample", Cyclic, "--static", "1", "--dynamic", "10" } << 2 << "exclude";
        QTest::newRow("eval without --at") << QStringList{ "eval", Cyclic } << 2 << "--at";
        QTest::newRow("unparsable --at") << QStringList{ "eval", Cyclic, "--at", "1,abc" } << 1 << "abc";
        QTest::newRow("convert help") << QStringList{ "convert", "--help" } << 0 << "--separator";
        QTest::newRow("unknown format") << QStringList{ "convert", "--format", "excel", "a.txt" } << 2 << "excel";
        QTest::newRow("unknown decimal mark") << QStringList{ "convert", "--decimal", "dot", "a.txt" } << 2 << "dot";
        QTest::newRow("unknown separator") << QStringList{ "convert", "--separator", "pipe", "a.txt" } << 2 << "pipe";
        QTest::newRow("separator with a named format")
            << QStringList{ "convert", "--format", "codesys", "--separator", "tab", "a.txt" } << 2 << "free format only";
        QTest::newRow("convert missing file") << QStringList{ "convert", tmp("missing.txt") } << 1 << tmp("missing.txt");
        QTest::newRow("table 16") << QStringList{ "read", "--table", "16" } + drive << 2 << "0 to 15";
        QTest::newRow("no drive") << QStringList{ "read", "--table", "1" } << 2 << "required";
        QTest::newRow("read missing project") << QStringList{ "read", "--table", "1" } + drive << 1 << "no drive project";
        QTest::newRow("write one point") << QStringList{ "write", cam(OnePoint), "--table", "1" } + drive << 1
                                         << "two motion points";
        const QString laws = cam(SectionLaws);
        QTest::newRow("report applied law") << QStringList{ "report", laws } << 0 << "\"lawApplied\": \"ModifiedSine\"";
        QTest::newRow("plot without --output") << QStringList{ "plot", Cyclic } << 2 << "--output";
        QTest::newRow("plot to an unknown format") << QStringList{ "plot", Cyclic, "--output", tmp("a.bmp") } << 2 << ".png";
        QTest::newRow("plot of a bad size") << QStringList{ "plot", Cyclic, "--output", tmp("a.png"), "--size", "0x9" } << 2
                                            << "--size";
        const QString out = tmp("table.csv");
        QTest::newRow("export without --output") << QStringList{ "export", Cyclic, "--format", "codesys" } << 2 << "--output";
        QTest::newRow("export without --format") << QStringList{ "export", Cyclic, "--output", out } << 2 << "--format";
        QTest::newRow("export --decimals out of range")
            << QStringList{ "export", Cyclic, "--output", out, "--format", "free", "--decimals", "16" } << 2 << "--decimals";
        QTest::newRow("export of a cam without grid points")
            << QStringList{ "export", cam(OnePoint), "--output", out, "--format", "free" } << 1 << "keine Stützstellen";
        // Refused by the writer, whose test holds that an old file stays as it was.
        QTest::newRow("export with decimal comma and comma")
            << QStringList{ "export", Cyclic, "--output", out, "--format", "free", "--decimal", "comma", "--separator", "comma" }
            << 1 << "Das Komma kann nicht zugleich Dezimalzeichen und Trennzeichen sein";
        QTest::newRow("plot into a missing folder") << QStringList{ "plot", Cyclic, "--output", tmp("no/a.svg") } << 1
                                                    << "cannot write";
        // A damaged cam file is an error that names the file and the fault,
        // never the defaults. Which contents are damaged is the cam data
        // file's test; here the one loader of the tool must refuse, for the
        // verbs that show a file and for those that sample it (a missing
        // file takes the same way out).
        const QString broken = tmp("broken.json");
        writeFile(broken, R"({"Cyclic": tr)");
        QTest::newRow("show broken text json") << QStringList{ "show", broken } << 1 << "broken.json";
        QTest::newRow("sample broken text json") << QStringList{ "sample", broken } << 1 << "Position 12";
    }

    void exitCodes()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, says);
        const CamToolResult run = camtool(arguments);
        QCOMPARE(run.exitCode, exitCode);
        QVERIFY2((run.out + run.err).contains(says.toUtf8()), (run.out + run.err).constData());
        if (exitCode != 0)
            QVERIFY(run.out.isEmpty());
        if (exitCode == 1)
            QCOMPARE(run.err.count('\n'), 1);
        QVERIFY(!QFile::exists(tmp("x.json")));
        QVERIFY(!QFile::exists(tmp("table.csv")));
    }

    // The verbs that print what they read from one file.
    void printsJson_data()
    {
        QTest::addColumn<QStringList>("verb");
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("expected");

        const QStringList show{ "show" };
        const QByteArray example = readFile(Cyclic);
        QTest::newRow("show example") << show << "example.json" << example << example;
        // Defaults, duplicates, order, the binary form and the suffix's case
        // are the cam description's and the cam data file's tests.
        // JSON would print them as null.
        const double nan = std::nan(""), inf = HUGE_VAL;
        QTest::newRow("show NaN and infinity from a binary .dat") << show << "odd.dat"
            << binaryJsonOf(QJsonObject{ { "CircularLength", -inf },
                                         { "MotionPoints", QJsonArray{ QJsonArray{ 0, nan, "rest" }, QJsonArray{ inf, 1, "speed" } } } })
            << QByteArray(R"({"CircularLength": "-Infinity", "Cyclic": false, "MotionLaw": "Vdi2142",
                              "MotionPoints": [[0, "NaN", "rest"], ["Infinity", 1, "speed"]],
                              "Steps": {"dynamicSteps": 500, "isDynamicStepSize": true, "staticStepSize": 1}})");

        const struct {
            const char *name;
            QByteArray bytes;
            QStringList options;
            QByteArray points;
            const char *error;
            int skipped;
            int firstLine;
            const char *first;
        } conversions[] = {
            { "default is free format with point and semicolon", "Master;Slave\n0;0\n1.5;2e1\n1,5;3\n", {}, "[[0,0],[1.5,20]]", "",
              2, 1, "Master;Slave" },
            { "SERVOsoft", "0;0\n10,5;;20,25\n", { "--format", "servosoft" }, "[[0,0],[10.5,20.25]]", "", 0, 0, "" },
            { "free format with comma and blank", "1,5 2,5\n", { "--decimal", "comma", "--separator", "blank" }, "[[1.5,2.5]]", "",
              0, 0, "" },
            // Decoded by the stream, as the import dialog reads it; as plain
            // bytes the zero bytes between the digits would hide every pair.
            { "UTF-16 with byte order mark",
              QByteArray("\xFF\xFE", 2) + QByteArray(reinterpret_cast<const char *>(u"0;1\r\n2;3\r\n"), 20), {},
              "[[0,1],[2,3]]", "", 0, 0, "" },
            { "failed value becomes 0 with a message", "1;1e999\n2;3\n", {}, "[[1,0],[2,3]]",
              "Slave-Position 1e999 konnte nicht konvertiert werden.", 0, 0, "" },
        };
        for (const auto &c : conversions) {
            QJsonObject expected{ { "points", QJsonDocument::fromJson(c.points).array() }, { "error", c.error },
                                  { "skippedLines", c.skipped } };
            if (c.skipped > 0)
                expected.insert("firstSkippedLine", QJsonObject{ { "line", c.firstLine }, { "text", c.first } });
            QTest::addRow("convert %s", c.name) << QStringList{ "convert" } + c.options << "curve.txt" << c.bytes
                                                << QJsonDocument(expected).toJson();
        }
    }

    void printsJson()
    {
        QFETCH(QStringList, verb);
        QFETCH(QString, fileName);
        QFETCH(QByteArray, bytes);
        QVERIFY(writeFile(tmp(fileName), bytes));
        const CamToolResult run = camtool(verb << tmp(fileName));
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.err.isEmpty(), run.err.constData());
        // Printed exactly as a save would write it: indented text.
        QFETCH(QByteArray, expected);
        const QJsonObject object = QJsonDocument::fromJson(expected).object();
        QVERIFY(!object.isEmpty());
        QCOMPARE(run.out, QJsonDocument(object).toJson(QJsonDocument::Indented));
    }

    // A master range of 1e300 holds more resolution steps than any whole
    // number counts: no static step is offered (the search converted such a
    // quotient to a long long, which is undefined).
    void reportOfAHugeRange()
    {
        const CamToolResult run = camtool({ "report", cam(R"([[0, 0, "rest"], [1e300, 5, "rest"]])") });
        QCOMPARE(run.exitCode, 0);
        const QJsonObject step = run.json().value("smallestStep").toObject();
        QCOMPARE(step.value("static").toObject(), QJsonObject({ { "reachable", false } }));
        QVERIFY(step.value("dynamic").toObject().value("reachable").toBool());
    }

    void sample_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QByteArray>("steps");  // the steps that must apply
        QTest::addColumn<int>("minimumCount");

        const QByteArray dynamic500 = R"({"isDynamicStepSize": true, "dynamicSteps": 500})";
        QTest::newRow("cyclic VDI, file's dynamic steps") << Cyclic << QStringList() << 3 << dynamic500 << 50;
        QTest::newRow("static override, one decimal") << Cyclic << QStringList{ "--static", "2.5", "--decimals", "1" } << 1
                                                      << QByteArray(R"({"isDynamicStepSize": false, "staticStepSize": 2.5})") << 50;
        QTest::newRow("dynamic override")
            << Spline << QStringList{ "--dynamic", "2000" } << 3 << QByteArray(R"({"isDynamicStepSize": true, "dynamicSteps": 2000})") << 50;
        QTest::newRow("one point gives empty lists") << cam(OnePoint) << QStringList() << 3 << dynamic500 << 0;
    }

    void sample()
    {
        QFETCH(QString, file);
        QFETCH(QStringList, options);
        QFETCH(int, decimals);
        QFETCH(QByteArray, steps);
        QFETCH(int, minimumCount);
        const CamToolResult run = camtool(QStringList{ "sample", file } + options);
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.err.isEmpty(), run.err.constData());
        const QJsonObject output = run.json();

        FixedScaling scaling(decimals);
        CamDescriptionImplementation description(nullptr, QByteArray());
        MotionPlan &plan = *localPlan(file, description, &scaling);
        Steps applied;
        applied.fromJson(QJsonDocument::fromJson(steps).object());
        MotionPlanFactory::sample(&plan, &applied, false);
        QVERIFY2(plan.positions().size() >= minimumCount && plan.positions().size() <= MotionPlan::MaximumGridPoints,
                 qPrintable(QString::number(plan.positions().size())));
        // The derivatives come from the same plan by the same routine: their
        // values are the motion plan's tests.
        QCOMPARE(output.value("positions").toArray(), toJson(plan.positions()));
        QCOMPARE(output.value("velocities").toArray().size(), plan.velocities().size());
        QCOMPARE(output.value("accelerations").toArray().size(), plan.accelerations().size());
        QCOMPARE(output.value("jerks").toArray().size(), plan.jerks().size());
    }

    void eval()
    {
        const QString file = Spline;
        const CamToolResult run = camtool({ "eval", file, "--at", "0,12.5,90,1e-3,-5,359.99", "--at", "nan" });
        QCOMPARE(run.exitCode, 0);
        FixedScaling scaling(3);
        CamDescriptionImplementation description(nullptr, QByteArray());
        const MotionPlan &plan = *localPlan(file, description, &scaling);
        QJsonArray positions;
        for (const QJsonValue &point : QJsonDocument::fromJson(run.out).array())
            positions.append(QJsonArray{ point["master"], point["position"] });
        QJsonArray expected;
        for (double m : { 0.0, 12.5, 90.0, 1e-3, -5.0, 359.99, std::nan("") })
            expected.append(QJsonArray{ number(m), number(plan.position(m)) });
        QCOMPARE(positions, expected);
    }

    // The editor's plots of a cam, with the table of a drive beside them.
    void plotWritesEachFormat()
    {
        QCOMPARE(camtool(QStringList{ "write", Cyclic, "--drive", m_project, "--table", "3" }).exitCode, 0);
        const struct { const char *suffix; QByteArray start; } formats[] = {
            { "png", QByteArray("\x89PNG") }, { "svg", QByteArray("<?xml") }, { "pdf", QByteArray("%PDF") } };
        for (const auto &format : formats) {
            const QString path = tmp(QStringLiteral("plot.") + QLatin1String(format.suffix));
            const CamToolResult run = camtool(QStringList{ "plot", Spline, "--output", path, "--size", "640x480",
                                                           "--drive", m_project, "--table", "3" });
            QCOMPARE(run.exitCode, 0);
            QVERIFY2(run.err.isEmpty(), run.err.constData());
            QVERIFY(readFile(path).startsWith(format.start));
        }
        QCOMPARE(QImage(tmp("plot.png")).size(), QSize(640, 480));
    }

    // On a full disk the verbs that write a file fail with the system's
    // reason, and the file they were to replace is as it was.
    void fullDiskKeepsTheOldFile_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("output");
        QTest::newRow("export") << QStringList{ "export", Cyclic, "--format", "free" } << "table.txt";
        for (const char *suffix : { "svg", "pdf", "png" })
            QTest::addRow("plot %s", suffix) << QStringList{ "plot", Cyclic } << QStringLiteral("plot.") + suffix;
    }
    void fullDiskKeepsTheOldFile()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, output);
        FullDisk disk;
        if (!disk.isMounted())
            QSKIP("a tmpfs cannot be mounted here (needs root)");
        const QString path = disk.filePath(output);
        const QByteArray old = "the old file\n";
        QVERIFY(writeFile(path, old));
        QVERIFY(disk.fill());
        const CamToolResult run = camtool(arguments << "--output" << path);
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.err.contains(FullDisk::noSpaceText().toLocal8Bit()), run.err.constData());
        QCOMPARE(readFile(path), old);
        QCOMPARE(disk.files(), QStringList{ output });
    }

    // An exported table converts back to the calculated points rounded to
    // the decimal places, or to the table the drive holds.
    void exportConvertsBack_data()
    {
        QTest::addColumn<QStringList>("format");
        QTest::addColumn<int>("decimals");  // -1: the stored table of a drive
        QTest::newRow("SERVOsoft, 2 places") << QStringList{ "--format", "servosoft" } << 2;
        QTest::newRow("CodeSys, stored table") << QStringList{ "--format", "codesys" } << -1;
    }

    void exportConvertsBack()
    {
        QFETCH(QStringList, format);
        QFETCH(int, decimals);
        const QString out = tmp(QStringLiteral("export-%1.txt").arg(m_serial++));
        QStringList options{ "--decimals", QString::number(decimals) };
        QJsonArray expected;
        if (decimals < 0) {
            QCOMPARE(camtool({ "write", Cyclic, "--drive", m_project, "--table", "4" }).exitCode, 0);
            options = QStringList{ "--drive", m_project, "--table", "4" };
            expected = camtool(QStringList{ "read" } + options).json().value("points").toArray();
        } else {
            FixedScaling scaling(decimals);
            CamDescriptionImplementation description(nullptr, QByteArray());
            MotionPlan &plan = *localPlan(Cyclic, description, &scaling);
            MotionPlanFactory::sample(&plan, description.steps(), false);
            const double scale = std::pow(10.0, decimals);
            for (const QPointF &point : plan.positions())
                expected.append(QJsonArray{ std::round(point.x() * scale) / scale, std::round(point.y() * scale) / scale });
        }
        QVERIFY(expected.size() > 100);

        const CamToolResult run = camtool(QStringList{ "export", Cyclic, "--output", out } + format + options);
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.err.isEmpty(), run.err.constData());
        QCOMPARE(run.json().value("count").toInt(), expected.size());
        const CamToolResult converted = camtool(QStringList{ "convert", out } + format);
        QCOMPARE(converted.json().value("points").toArray(), expected);
        QCOMPARE(converted.json().value("error").toString(), QString());
    }

    // Write, read back, write again, delete, as a user would.
    void driveRoundTrip()
    {
        const QStringList table{ "--drive", m_project, "--table", "5" };
        const CamToolResult written = camtool(QStringList{ "write", Cyclic } + table);
        QCOMPARE(written.exitCode, 0);
        const int count = written.json().value("count").toInt();
        QVERIFY(count > 100);

        const QJsonObject read = camtool(QStringList{ "read" } + table).json();
        QCOMPARE(read.value("count").toInt(), count);
        const QJsonArray points = read.value("points").toArray();
        QCOMPARE(points.size(), count);
        // How the stamp is computed is held in the grid point table's test;
        // here the tool must report the one it wrote, and find it again.
        const double crc = written.json().value("crc").toDouble();
        QVERIFY(crc > 0.0);
        QCOMPARE(read.value("storedCrc").toDouble(), crc);
        QCOMPARE(read.value("computedCrc").toDouble(), crc);

        const QByteArray project = readFile(m_project);
        QCOMPARE(camtool(QStringList{ "write", Cyclic } + table).exitCode, 0);
        QCOMPARE(readFile(m_project), project);

        QCOMPARE(camtool(QStringList{ "delete" } + table).json().value("count").toInt(-1), 0);
        const QJsonObject empty = camtool(QStringList{ "read" } + table).json();
        QCOMPARE(empty.value("count").toInt(-1), 0);
        QCOMPARE(empty.value("points").toArray(), QJsonArray());
        QCOMPARE(empty.value("summary").toString(), QString());
    }

    void driveRefusals_data()
    {
        QTest::addColumn<Project>("project");
        QTest::addColumn<QStringList>("arguments");  // before --drive and --table 2
        QTest::addColumn<QStringList>("options");    // after them
        QTest::addColumn<QString>("message");

        const QStringList write{ "write", Cyclic };
        QTest::newRow("read-only") << Project::Written << write << QStringList{ "--read-only" }
                                   << "Antriebsregler ist schreibgeschützt.";
        QTest::newRow("first write online creates no project")
            << Project::Missing << write << QStringList{ "--online" }
            << "Die Stützstellen-Arrays müssen vergrößert werden";
        QTest::newRow("delete online") << Project::Written << QStringList{ "delete" } << QStringList{ "--online" }
                                       << "Bitte gehen Sie Offline";
        // The model's other refusals (an empty table, a slave beyond the
        // array limit or not finite, arrays too small on a written project)
        // take the same way out; their texts are the grid point table's test.
        const QString onePair = tmp(QStringLiteral("one-pair.txt"));
        writeFile(onePair, "0;1\n");
        QTest::newRow("curve of one pair") << Project::Written << QStringList{ "write", "--curve", onePair }
                                           << QStringList() << "at least two";
        // Every drive verb opens its project through the one session.
        QTest::newRow("damaged project") << Project::Damaged << QStringList{ "read" } << QStringList()
                                         << "cannot use drive project";
    }

    // A curve text file goes into the drive as the import dialog takes it.
    void writeCurve()
    {
        const QString curve = tmp(QStringLiteral("curve.txt"));
        QVERIFY(writeFile(curve, "0,5;1\n1,25;-2,0004\n2;1,001\n"));
        const QStringList table{ "--drive", m_project, "--table", "7" };
        const QStringList format{ "--format", "free", "--decimal", "comma", "--separator", "semicolon" };
        const CamToolResult written = camtool(QStringList{ "write", "--curve", curve } + format + table);
        QCOMPARE(written.exitCode, 0);
        QCOMPARE(written.json().value("count").toInt(), 3);
        const QJsonObject read = camtool(QStringList{ "read" } + table).json();
        QCOMPARE(read.value("points").toArray(),
                 (QJsonArray{ QJsonArray{ 0.5, 1 }, QJsonArray{ 1.25, -2.0 }, QJsonArray{ 2, 1.001 } }));

        // Either a cam or a curve, and the format options only with a curve.
        QCOMPARE(camtool(QStringList{ "write", Cyclic, "--curve", curve } + table).exitCode, 2);
        QCOMPARE(camtool(QStringList{ "write", Cyclic, "--format", "free" } + table).exitCode, 2);
        QCOMPARE(camtool(QStringList{ "write" } + table).exitCode, 2);
    }

    // A count beyond the arrays is reported as damage, and a write makes the
    // table whole again.
    void readReportsDamage()
    {
        const QStringList table{ "--drive", m_project, "--table", "2" };
        QCOMPARE(camtool(QStringList{ "write", Cyclic } + table).exitCode, 0);
        QJsonObject project = QJsonDocument::fromJson(readFile(m_project)).object();
        QJsonObject parameters = project.value("Parameters").toObject();
        QJsonArray counts = parameters.value("G68").toArray();
        counts[2] = 600;
        parameters.insert("G68", counts);
        project.insert("Parameters", parameters);
        QVERIFY(writeFile(m_project, QJsonDocument(project).toJson()));
        const QJsonObject damaged = camtool(QStringList{ "read" } + table).json();
        QVERIFY2(damaged.value("damage").toString().contains("Die Anzahl der Stützstellen ist 600"),
                 qPrintable(damaged.value("damage").toString()));
        QVERIFY(damaged.value("summary").toString().contains("beschädigt"));
        QCOMPARE(damaged.value("points").toArray().size(), 499);  // no points padded with zeros

        QCOMPARE(camtool(QStringList{ "write", Cyclic } + table).exitCode, 0);
        const QJsonObject whole = camtool(QStringList{ "read" } + table).json();
        QCOMPARE(whole.value("damage").toString(), QString());
        QCOMPARE(whole.value("storedCrc").toDouble(), whole.value("computedCrc").toDouble());
    }

    void driveRefusals()
    {
        QFETCH(Project, project);
        QFETCH(QStringList, arguments);
        QFETCH(QStringList, options);
        QFETCH(QString, message);
        if (project == Project::Written)
            QCOMPARE(camtool({ "write", Cyclic, "--drive", m_project, "--table", "2" }).exitCode, 0);
        if (project == Project::Damaged)
            QVERIFY(writeFile(m_project, R"({"Drive": "MxSimulatedDrive", "Version": 1, "Axes": 2,
                                             "Parameters": {"G283": [0.5]}})"));
        const QByteArray before = readFile(m_project);

        const CamToolResult run = camtool(arguments + QStringList{ "--drive", m_project, "--table", "2" } + options);
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(QString::fromUtf8(run.err).contains(message), run.err.constData());
        QVERIFY(run.out.isEmpty());
        QCOMPARE(readFile(m_project), before);
        QCOMPARE(QFile::exists(m_project), project != Project::Missing);
    }
};

QTEST_GUILESS_MAIN(TestCamTool)
#include "tst_camtool.moc"
