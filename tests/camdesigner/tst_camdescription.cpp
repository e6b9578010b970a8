#include "camdesigner/camdatafile.h"
#include "camdesigner/camdescriptionimplementation.h"
#include "binaryjson.h"
#include "jsontext.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTest>

#include <limits>
#include <memory>

namespace {

std::unique_ptr<CamDescriptionImplementation> create(const QJsonObject &object = QJsonObject())
{
    return std::unique_ptr<CamDescriptionImplementation>(static_cast<CamDescriptionImplementation *>(
        CamDescription::createCamDescription(nullptr, object.isEmpty() ? QByteArray() : binaryJsonOf(object))));
}

// The written form of a description that holds the defaults except for the given members.
QJsonObject withDefaults(const char *json)
{
    QJsonObject object = parseJson(R"({"CircularLength": 1, "Cyclic": false, "MotionLaw": "Vdi2142", "MotionPoints": [],
        "Steps": {"dynamicSteps": 500, "isDynamicStepSize": true, "staticStepSize": 1}})");
    const QJsonObject members = parseJson(json);
    for (auto it = members.begin(); it != members.end(); ++it)
        object.insert(it.key(), it.value());
    return object;
}

} // namespace

class tst_CamDescription : public QObject
{
    Q_OBJECT
private slots:
    void load_data();
    void load();
    void typeAppliesKeptAfterConstructionAndSameLawLoad();
    void appendAndTakePoint();
    void differs_data();
    void differs();
    void examplesSaveUnchanged();
    void sectionChangesNotify();
};

void tst_CamDescription::load_data()
{
    QTest::addColumn<QByteArray>("bytes");  // binary JSON, as a host hands it over
    QTest::addColumn<QJsonObject>("expected");
    const auto row = [](const char *name, const char *json, const char *members) {
        QTest::newRow(name) << binaryJsonOf(parseJson(json)) << withDefaults(members);
    };
    // Law names are read by MotionLaw (tst_modelvalues); an element without
    // a type ("x" below) is a rest point.
    row("duplicates collapse to the later one", R"({"MotionPoints": [[10, 5, "rest"], [10, 7, "speed"]]})",
        R"({"MotionPoints": [[10, 7, "speed"]]})");
    row("unknown type and bad elements", R"({"MotionPoints": [[1, 2, "turningpoint"], "x", [3, "4", 5]]})",
        R"({"MotionPoints": [[0, 0, "rest"], [1, 2, "rest"], [3, 0, "rest"]]})");
    row("MotionPoints of wrong type means none", R"({"MotionPoints": {"a": 1}})", "{}");
    row("negative circular length taken as it comes", R"({"CircularLength": -4})", R"({"CircularLength": -4})");
    // A cyclic Vdi2142 cam with every point type, and a static-step spline,
    // round-trip in examplesSaveUnchanged.
    const char *sections = R"({"MotionLaw": "SplinePeriodic", "MotionPoints": [[0, 0, "rest", {"law": "ModifiedSine",
        "inflection": 0.4}], [10, 5, "speed", {"velocity": -0.25}], [20, 5, "rest", {"law": "Line"}]]})";
    row("section laws round trip", sections, sections);
    row("section defaults are not written", R"({"MotionPoints": [[0, 0, "rest", {"law": "Poly5", "inflection": 0.5}],
        [1, 1, "rest", {}], [2, 2, "rest", {"law": "modifiedSine", "inflection": 1}], [3, 3, "rest", {"inflection": "x"}],
        [4, 4, "rest", {"velocity": "1"}], [5, 5, "rest", 7]]})",
        R"({"MotionPoints": [[0, 0, "rest"], [1, 1, "rest"], [2, 2, "rest"], [3, 3, "rest"], [4, 4, "rest"],
        [5, 5, "rest"]]})");
    // Only binary JSON can carry a NaN; it must not take another point's entry.
    QJsonObject nan;
    nan.insert(QStringLiteral("MotionPoints"),
               QJsonArray { QJsonArray { 0.0, 1.0, "rest" }, QJsonArray { 10.0, 2.0, "rest" },
                            QJsonArray { std::numeric_limits<double>::quiet_NaN(), 3.0, "speed" },
                            QJsonArray { 20.0, 4.0, "rest" } });
    QTest::newRow("NaN master reads as 0")
        << binaryJsonOf(nan) << withDefaults(R"({"MotionPoints": [[0, 3, "speed"], [10, 2, "rest"], [20, 4, "rest"]]})");

    // Bytes that are no valid binary JSON object load the defaults.
    const QJsonObject defaults = withDefaults("{}");
    QTest::newRow("empty") << QByteArray() << defaults;
    const QByteArray bytes = binaryJsonOf(parseJson(R"({"Cyclic": true, "CircularLength": 5})"));
    // The header is "qbjs", a version and the size of the top-level object;
    // a size beyond the data (a truncated file's) is refused before Qt's
    // reader, whose own bounds check a claim near 4 GiB overflows.
    QTest::newRow("object size wrapping around") << QByteArray(bytes).replace(8, 4, "\xf8\xff\xff\xff") << defaults;
    QTest::newRow("unknown version") << QByteArray(bytes).replace(4, 1, "\x09") << defaults;
}

// Created from the bytes, and loaded onto a description that differs
// everywhere, so that every default is applied.
void tst_CamDescription::load()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QJsonObject, expected);
    std::unique_ptr<CamDescription> base(CamDescription::createCamDescription(nullptr, bytes));
    auto *created = qobject_cast<CamDescriptionImplementation *>(base.get());
    QVERIFY(created);
    QCOMPARE(created->toJson(), expected);
    QCOMPARE(created->isModified(), false);

    auto loaded = create(parseJson(R"({"MotionLaw": "Spline", "Cyclic": true, "CircularLength": 77,
        "MotionPoints": [[1, 1, "speed"], [2, 2, "speed"]],
        "Steps": {"dynamicSteps": 3, "isDynamicStepSize": false, "staticStepSize": 9}})"));
    loaded->fromJson(CamDataFile::parseBinary(bytes));
    QCOMPARE(loaded->toJson(), expected);
}

void tst_CamDescription::typeAppliesKeptAfterConstructionAndSameLawLoad()
{
    // Deliberate: the law-change handling runs only on a real change of law.
    auto description = create(parseJson(R"({"MotionLaw": "Spline", "MotionPoints": [[0, 0, "rest"], [5, 1, "speed"]]})"));
    for (const MotionPoint *point : description->motionPoints())
        QVERIFY(point->typeApplies());
    description->fromJson(parseJson(R"({"MotionLaw": "Spline", "MotionPoints": [[1, 1, "speed"]]})"));
    QVERIFY(description->motionPoints().constFirst()->typeApplies());
    description->motionLaw()->setLaw(0);
    QVERIFY(description->motionPoints().constFirst()->typeApplies());
    description->motionLaw()->setLaw(1);
    QVERIFY(!description->motionPoints().constFirst()->typeApplies());
}

void tst_CamDescription::appendAndTakePoint()
{
    auto description = create();
    QSignalSpy changed(description.get(), &CamDescription::changed);
    description->attachNewPoint(10, 5, MotionPoint::speed);
    MotionPoint *first = description->pointAt(10.0);
    QCOMPARE(first->parent(), description.get());
    QCOMPARE(changed.count(), 1);

    // An equal point (within 1e-12) is not taken; a refused new one must not leak.
    description->attachNewPoint(10, 5, MotionPoint::speed);
    MotionPoint equal(10.0, 5.0 + 1e-12 * 2.0, MotionPoint::speed);
    description->appendPoint(&equal);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(description->pointAt(10.0), first);
    QCOMPARE(equal.parent(), nullptr);

    // Another type replaces the point; the replaced one no longer notifies.
    auto *replacement = new MotionPoint(10.0, 5.0, MotionPoint::rest);
    description->appendPoint(replacement);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(description->pointAt(10.0), replacement);
    first->setFrom(MotionPoint(30.0, 1.0, MotionPoint::speed));
    QCOMPARE(description->motionPoints(), QList<MotionPoint *>({ replacement }));
    QCOMPARE(changed.count(), 2);

    // Taking hands the point over.
    std::unique_ptr<MotionPoint> taken(description->takePoint(replacement));
    QCOMPARE(taken.get(), replacement);
    QCOMPARE(taken->parent(), nullptr);
    QCOMPARE(changed.count(), 3);
    QVERIFY(description->isEmpty());
    // Added back, it is connected once only.
    description->appendPoint(taken.get());
    QSignalSpy pointChanged(description.get(), &CamDescriptionImplementation::motionPointChanged);
    taken->setTypeByIndex(1);
    QCOMPARE(pointChanged.count(), 1);
    QVERIFY(description->takePoint(taken.get()));
}

void tst_CamDescription::differs_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");
    QTest::addColumn<bool>("differs");
    QTest::newRow("both empty, other settings") << QByteArray(R"({"Cyclic": true})") << QByteArray("{}") << false;
    QTest::newRow("one empty") << QByteArray(R"({"MotionPoints": [[0, 0]]})") << QByteArray("{}") << true;
    QTest::newRow("equal") << QByteArray(R"({"MotionPoints": [[0, 0]]})") << QByteArray(R"({"MotionPoints": [[0, 0, "rest"]]})") << false;
    QTest::newRow("slave differs") << QByteArray(R"({"MotionPoints": [[0, 0]]})") << QByteArray(R"({"MotionPoints": [[0, 1]]})") << true;
}

void tst_CamDescription::differs()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    QFETCH(bool, differs);
    auto a = create(QJsonDocument::fromJson(first).object());
    auto b = create(QJsonDocument::fromJson(second).object());
    QCOMPARE(a->differs(b.get()), differs);
}

// Data without section keys must come out exactly as it went in, so that
// saving a file of an earlier version changes not a byte.
void tst_CamDescription::examplesSaveUnchanged()
{
    const QStringList files = QDir(QStringLiteral(EXAMPLES_DIR)).entryList({ QStringLiteral("*.json") });
    QVERIFY(!files.isEmpty());
    for (const QString &name : files) {
        QFile file(QStringLiteral(EXAMPLES_DIR "/") + name);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
        auto description = create();
        description->fromJson(object);
        QCOMPARE(QJsonDocument(description->toJson()).toJson(), QJsonDocument(object).toJson());
    }
}

// Each section setter compares before it tells; repeats of the law and the
// inflection are met throughout tst_undorandom, a repeated velocity only here.
void tst_CamDescription::sectionChangesNotify()
{
    auto description = create(parseJson(R"({"MotionPoints": [[0, 0, "speed"], [10, 5, "rest"]]})"));
    MotionPoint *point = description->motionPoints().constFirst();
    QSignalSpy changed(description.get(), &CamDescription::changed);
    QSignalSpy section(point, &MotionPoint::sectionChanged);
    point->setSectionLaw(MotionPoint::Cycloid);
    point->setInflection(2.0); // reads as the default
    point->setVelocity(1.5);
    point->setVelocity(1.5);
    point->clearVelocity();
    point->clearVelocity();
    QCOMPARE(section.count(), 3);
    QCOMPARE(changed.count(), 3);
}

QTEST_GUILESS_MAIN(tst_CamDescription)
#include "tst_camdescription.moc"
