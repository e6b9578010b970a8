#include "camdesigner/camdescriptionimplementation.h"
#include "binaryjson.h"
#include "jsontext.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <limits>
#include <memory>

namespace {

std::unique_ptr<CamDescriptionImplementation> create(const QJsonObject &object = QJsonObject())
{
    return std::unique_ptr<CamDescriptionImplementation>(static_cast<CamDescriptionImplementation *>(
        CamDescription::createCamDescription(nullptr, object.isEmpty() ? QByteArray() : binaryJsonOf(object))));
}

// Records the description's signals in the order they arrive.
class SignalLog : public QObject
{
public:
    explicit SignalLog(CamDescriptionImplementation *description)
    {
        connect(description, &CamDescription::changed, this, [this] { names.append("changed"); });
        connect(description, &CamDescriptionImplementation::motionPointChanged, this,
                [this] { names.append("motionPointChanged"); });
        connect(description, &CamDescriptionImplementation::motionLawChanged, this,
                [this] { names.append("motionLawChanged"); });
        connect(description, &CamDescriptionImplementation::circularLengthChanged, this,
                [this] { names.append("circularLengthChanged"); });
    }
    QStringList names;
};

QString describePoints(const CamDescriptionImplementation &description)
{
    QStringList parts;
    for (const MotionPoint *point : description.motionPoints())
        parts.append(QStringLiteral("%1/%2/%3").arg(point->master()).arg(point->slave()).arg(point->typeDataName()));
    return parts.join(QLatin1Char(' '));
}

} // namespace

class tst_CamDescription : public QObject
{
    Q_OBJECT
private slots:
    void factoryDefaults_data();
    void factoryDefaults();
    void binaryRoundTrip_data();
    void binaryRoundTrip();
    void fromJsonReadsWithDefaults_data();
    void fromJsonReadsWithDefaults();
    void nanMasterReadsAsZero();
    void fromJsonSignalOrder();
    void fromJsonEmitsChangedWhenNothingChanged();
    void typeAppliesKeptAfterConstructionAndSameLawLoad();
    void appendPoint();
    void appendEqualPointChangesNothing();
    void takePoint();
    void movedPointIsRekeyed();
    void editedPointNotifies();
    void differs_data();
    void differs();
    void summaryHtml();
    void settersCompareBeforeEmitting();
};

void tst_CamDescription::factoryDefaults_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("garbage") << QByteArray("not binary json at all");
    QTest::newRow("text json") << QByteArray(R"({"Cyclic": true})");
    QByteArray truncated = binaryJsonOf(parseJson(R"({"Cyclic": true, "CircularLength": 5})"));
    truncated.chop(6);
    QTest::newRow("truncated binary") << truncated;
    // The header is "qbjs", a version and the size of the top-level object.
    QByteArray oversized = binaryJsonOf(parseJson(R"({"Cyclic": true, "CircularLength": 5})"));
    for (int i = 8; i < 12; ++i)
        oversized[i] = char(0x7f);
    QTest::newRow("object size beyond the data") << oversized;
    // A claimed size near 4 GiB overflows the reader's own bounds check.
    QByteArray wrapping = binaryJsonOf(parseJson(R"({"Cyclic": true, "CircularLength": 5})"));
    const char nearFourGiB[] = { char(0xf8), char(0xff), char(0xff), char(0xff) };
    wrapping.replace(8, 4, nearFourGiB, 4);
    QTest::newRow("object size wrapping around") << wrapping;
    QByteArray wrongVersion = binaryJsonOf(parseJson(R"({"Cyclic": true})"));
    wrongVersion[4] = char(9);
    QTest::newRow("unknown version") << wrongVersion;
}

void tst_CamDescription::factoryDefaults()
{
    QFETCH(QByteArray, bytes);
    std::unique_ptr<CamDescription> base(CamDescription::createCamDescription(nullptr, bytes));
    auto *description = qobject_cast<CamDescriptionImplementation *>(base.get());
    QVERIFY(description);
    QCOMPARE(description->motionLaw()->law(), 0);
    QCOMPARE(description->isCyclic(), false);
    QVERIFY(description->isEmpty());
    QCOMPARE(description->circularLength(), 1.0);
    QCOMPARE(description->steps()->isDynamicStepSize(), true);
    QCOMPARE(description->steps()->dynamicStepResolution(), 500);
    QCOMPARE(description->steps()->staticStepSize(), 1.0);
    QCOMPARE(description->isModified(), false);
}

void tst_CamDescription::binaryRoundTrip_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("cyclic vdi") << QByteArray(R"({"CircularLength": 360, "Cyclic": true, "MotionLaw": "Vdi2142",
        "MotionPoints": [[0, 0, "rest"], [180, 100, "turningPoint"], [270, 12.5, "acceleration"]],
        "Steps": {"dynamicSteps": 500, "isDynamicStepSize": true, "staticStepSize": 1}})");
    QTest::newRow("spline static") << QByteArray(R"({"CircularLength": 0.1, "Cyclic": false, "MotionLaw": "Spline",
        "MotionPoints": [[-5.25, 1e-7, "speed"], [3.3333333333333335, -2, "rest"]],
        "Steps": {"dynamicSteps": 12, "isDynamicStepSize": false, "staticStepSize": 0.001}})");
    QTest::newRow("no points") << QByteArray(R"({"CircularLength": 1, "Cyclic": false, "MotionLaw": "Vdi2142",
        "MotionPoints": [], "Steps": {"dynamicSteps": 500, "isDynamicStepSize": true, "staticStepSize": 1}})");
}

void tst_CamDescription::binaryRoundTrip()
{
    QFETCH(QByteArray, json);
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    QVERIFY(!object.isEmpty());
    auto description = create(object);
    QCOMPARE(description->toJson(), object);
    QCOMPARE(description->isModified(), false);
}

void tst_CamDescription::fromJsonReadsWithDefaults_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("law");
    QTest::addColumn<QString>("points");
    QTest::addColumn<double>("circularLength");
    QTest::addColumn<int>("resolution");

    QTest::newRow("lower-case spline loads Vdi2142") << QByteArray(R"({"MotionLaw": "spline"})") << 0 << "" << 1.0 << 500;
    QTest::newRow("Spline") << QByteArray(R"({"MotionLaw": "Spline"})") << 1 << "" << 1.0 << 500;
    QTest::newRow("point without type is rest") << QByteArray(R"({"MotionPoints": [[10, 5]]})") << 0 << "10/5/rest" << 1.0 << 500;
    QTest::newRow("duplicates collapse to the later one")
        << QByteArray(R"({"MotionPoints": [[10, 5, "rest"], [10, 7, "speed"]]})") << 0 << "10/7/speed" << 1.0 << 500;
    QTest::newRow("unsorted points are sorted")
        << QByteArray(R"({"MotionPoints": [[20, 1, "rest"], [-3, 2, "speed"]]})") << 0 << "-3/2/speed 20/1/rest" << 1.0 << 500;
    QTest::newRow("unknown type and bad element")
        << QByteArray(R"({"MotionPoints": [[1, 2, "Rast"], "x", [3, "4", 5]]})") << 0 << "0/0/rest 1/2/rest 3/0/rest" << 1.0 << 500;
    QTest::newRow("no CircularLength loads 1.0, no Steps the defaults") << QByteArray(R"({"Cyclic": true})") << 0 << "" << 1.0 << 500;
    QTest::newRow("negative circular length taken as it comes") << QByteArray(R"({"CircularLength": -4})") << 0 << "" << -4.0 << 500;
    QTest::newRow("dynamicSteps 12.7 loads 12") << QByteArray(R"({"Steps": {"dynamicSteps": 12.7}})") << 0 << "" << 1.0 << 12;
    QTest::newRow("MotionPoints of wrong type means none") << QByteArray(R"({"MotionPoints": {"a": 1}})") << 0 << "" << 1.0 << 500;
}

void tst_CamDescription::fromJsonReadsWithDefaults()
{
    QFETCH(QByteArray, json);
    QFETCH(int, law);
    QFETCH(QString, points);
    QFETCH(double, circularLength);
    QFETCH(int, resolution);

    // Start from a description that differs everywhere, so that every default is applied.
    auto description = create(parseJson(R"({"MotionLaw": "Spline", "Cyclic": true, "CircularLength": 77,
        "MotionPoints": [[1, 1, "speed"], [2, 2, "speed"]],
        "Steps": {"dynamicSteps": 3, "isDynamicStepSize": false, "staticStepSize": 9}})"));
    description->fromJson(QJsonDocument::fromJson(json).object());
    QCOMPARE(description->motionLaw()->law(), law);
    QCOMPARE(describePoints(*description), points);
    QCOMPARE(description->circularLength(), circularLength);
    QCOMPARE(description->steps()->dynamicStepResolution(), resolution);
    QCOMPARE(description->steps()->staticStepSize(), 1.0);
    QCOMPARE(description->steps()->isDynamicStepSize(), true);
}

void tst_CamDescription::nanMasterReadsAsZero()
{
    // Only binary JSON can carry a NaN; it must not take another point's entry.
    QJsonObject object;
    object.insert(QStringLiteral("MotionPoints"),
                  QJsonArray { QJsonArray { 0.0, 1.0, QStringLiteral("rest") },
                               QJsonArray { 10.0, 2.0, QStringLiteral("rest") },
                               QJsonArray { std::numeric_limits<double>::quiet_NaN(), 3.0, QStringLiteral("speed") },
                               QJsonArray { 20.0, 4.0, QStringLiteral("rest") } });
    auto description = create(object);
    QCOMPARE(describePoints(*description), QStringLiteral("0/3/speed 10/2/rest 20/4/rest"));
}

void tst_CamDescription::fromJsonSignalOrder()
{
    auto description = create();
    description->appendPoint(new MotionPoint(0.0, 0.0, MotionPoint::rest));
    description->appendPoint(new MotionPoint(10.0, 5.0, MotionPoint::rest));
    SignalLog log(description.get());
    QSignalSpy lawSpy(description->motionLaw(), &MotionLaw::motionLawChanged);

    description->fromJson(parseJson(R"({"MotionLaw": "Spline", "Cyclic": true, "CircularLength": 360,
        "MotionPoints": [[0, 0, "rest"]], "Steps": {"dynamicSteps": 100}})"));

    const QStringList expected {
        "motionLawChanged", "changed",  // law relay, then the law-change handling
        "changed",                      // cyclic flag
        "changed", "changed",           // one per removed point
        "motionPointChanged",           // map rebuilt
        "changed",                      // dynamic resolution
        "changed",                      // circular length
        "changed",                      // always at the end
    };
    QCOMPARE(log.names, expected);
    QCOMPARE(lawSpy.count(), 1);
    QCOMPARE(describePoints(*description), QStringLiteral("0/0/rest"));
}

void tst_CamDescription::fromJsonEmitsChangedWhenNothingChanged()
{
    auto description = create();
    SignalLog log(description.get());
    description->fromJson(description->toJson());
    QCOMPARE(log.names, QStringList({ "motionPointChanged", "changed" }));
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
    QCOMPARE(description->motionPoints().constFirst()->typeDisplayName(), QString());
}

void tst_CamDescription::appendPoint()
{
    auto description = create();
    QSignalSpy changed(description.get(), &CamDescription::changed);

    auto *first = new MotionPoint(10.0, 5.0, MotionPoint::rest);
    description->appendPoint(first);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(first->parent(), description.get());
    QCOMPARE(description->pointAt(10.0), first);

    auto *replacement = new MotionPoint(10.0, 6.0, MotionPoint::rest);
    description->appendPoint(replacement);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(description->pointAt(10.0), replacement);
    QCOMPARE(description->motionPoints().size(), 1);

    // The replaced point no longer notifies the description.
    first->setPosition(QPointF(30.0, 1.0));
    QCOMPARE(description->motionPoints().size(), 1);
    QCOMPARE(changed.count(), 2);

    description->appendPoint(nullptr);
    QCOMPARE(changed.count(), 2);
}

void tst_CamDescription::appendEqualPointChangesNothing()
{
    auto description = create();
    description->attachNewPoint(10, 5, MotionPoint::speed);
    QCOMPARE(describePoints(*description), QStringLiteral("10/5/speed"));
    QSignalSpy changed(description.get(), &CamDescription::changed);
    MotionPoint *original = description->pointAt(10.0);
    description->attachNewPoint(10, 5, MotionPoint::speed);  // the refused new point must not leak

    MotionPoint equal(10.0, 5.0 + 1e-12 * 2.0, MotionPoint::speed);
    description->appendPoint(&equal);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(description->pointAt(10.0), original);
    QCOMPARE(equal.parent(), nullptr);

    MotionPoint otherType(10.0, 5.0, MotionPoint::rest);
    description->appendPoint(&otherType);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(description->pointAt(10.0), &otherType);
    QVERIFY(description->takePoint(&otherType) == &otherType);
}

void tst_CamDescription::takePoint()
{
    auto description = create();
    auto *point = new MotionPoint(10.0, 5.0, MotionPoint::rest);
    description->appendPoint(point);
    QSignalSpy changed(description.get(), &CamDescription::changed);

    QCOMPARE(description->takePoint(nullptr), nullptr);
    MotionPoint elsewhere(11.0, 5.0, MotionPoint::rest);
    QCOMPARE(description->takePoint(&elsewhere), nullptr);
    QCOMPARE(changed.count(), 0);

    std::unique_ptr<MotionPoint> taken(description->takePoint(point));
    QCOMPARE(taken.get(), point);
    QCOMPARE(taken->parent(), nullptr);
    QCOMPARE(changed.count(), 1);
    QVERIFY(description->isEmpty());

    // Adding it back connects it once only.
    description->appendPoint(taken.get());
    QSignalSpy pointChanged(description.get(), &CamDescriptionImplementation::motionPointChanged);
    taken->setTypeByIndex(1);
    QCOMPARE(pointChanged.count(), 1);
    QVERIFY(description->takePoint(taken.get()));
}

void tst_CamDescription::movedPointIsRekeyed()
{
    auto description = create(parseJson(R"({"MotionPoints": [[0, 0, "rest"], [10, 5, "rest"], [20, 0, "rest"]]})"));
    QSignalSpy pointChanged(description.get(), &CamDescriptionImplementation::motionPointChanged);
    QSignalSpy changed(description.get(), &CamDescription::changed);

    // Looked up by the exact master only.
    QCOMPARE(description->pointAt(10.0 + 1e-13), nullptr);
    QCOMPARE(description->pointAt(std::nextafter(10.0, 11.0)), nullptr);

    MotionPoint *middle = description->pointAt(10.0);
    middle->setPosition(QPointF(15.0, 6.0));
    QCOMPARE(pointChanged.count(), 1);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(description->pointAt(15.0), middle);
    QCOMPARE(description->pointAt(10.0), nullptr);

    // Moving the first point onto the last one's position: the moved one takes the entry.
    MotionPoint *first = description->pointAt(0.0);
    first->setPosition(QPointF(20.0, 9.0));
    QCOMPARE(description->motionPoints().size(), 2);
    QCOMPARE(description->pointAt(20.0), first);
}

void tst_CamDescription::editedPointNotifies()
{
    auto description = create(parseJson(R"({"MotionPoints": [[0, 0, "rest"], [10, 5, "rest"]]})"));
    SignalLog log(description.get());
    description->pointAt(10.0)->setFrom(MotionPoint(12.0, 4.0, MotionPoint::speed));
    QCOMPARE(log.names, QStringList({ "motionPointChanged", "changed" }));
    QCOMPARE(describePoints(*description), QStringLiteral("0/0/rest 12/4/speed"));
}

void tst_CamDescription::differs_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");
    QTest::addColumn<bool>("differs");
    QTest::newRow("both empty, other settings") << QByteArray(R"({"Cyclic": true})") << QByteArray("{}") << false;
    QTest::newRow("one empty") << QByteArray(R"({"MotionPoints": [[0, 0]]})") << QByteArray("{}") << true;
    QTest::newRow("equal") << QByteArray(R"({"MotionPoints": [[0, 0]]})") << QByteArray(R"({"MotionPoints": [[0, 0, "rest"]]})") << false;
    QTest::newRow("cyclic differs") << QByteArray(R"({"MotionPoints": [[0, 0]], "Cyclic": true})")
                                    << QByteArray(R"({"MotionPoints": [[0, 0]]})") << true;
    QTest::newRow("slave differs") << QByteArray(R"({"MotionPoints": [[0, 0]]})") << QByteArray(R"({"MotionPoints": [[0, 1]]})") << true;
    QTest::newRow("more points") << QByteArray(R"({"MotionPoints": [[0, 0]]})")
                                 << QByteArray(R"({"MotionPoints": [[0, 0], [1, 1]]})") << true;
}

void tst_CamDescription::differs()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    QFETCH(bool, differs);
    auto a = create(QJsonDocument::fromJson(first).object());
    auto b = create(QJsonDocument::fromJson(second).object());
    QCOMPARE(a->differs(b.get()), differs);
    QCOMPARE(b->differs(a.get()), differs);
}

void tst_CamDescription::summaryHtml()
{
    auto description = create();
    QCOMPARE(description->summaryHtml(), QString());
    description->fromJson(parseJson(R"({"MotionPoints": [[0, 0], [1, 1]]})"));
    QCOMPARE(description->summaryHtml(),
             QString::fromUtf8("<html><head/><body><p>Kurvendefinitionsdaten:</p><p>\tBewegungsgesetz: Polynom fünften Grades</p>"
                               "<p>\tBewegungspunkte: 2</p><p><br/></p></body></html>"));
    description->motionLaw()->setLaw(1);
    QVERIFY(description->summaryHtml().contains(QStringLiteral("Bewegungsgesetz: Kubischer Spline</p>")));
}

void tst_CamDescription::settersCompareBeforeEmitting()
{
    auto description = create();
    QSignalSpy changed(description.get(), &CamDescription::changed);
    description->setCyclic(false);
    description->setCircularLength(1.0);
    QCOMPARE(changed.count(), 0);
    QVERIFY(!description->isModified());
    description->setCyclic(true);
    QVERIFY(description->isModified());
    description->setCircularLength(360.0);
    QCOMPARE(changed.count(), 2);
    description->setCircularLength(std::numeric_limits<double>::quiet_NaN());
    description->setCircularLength(std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(changed.count(), 4);

    description->steps()->setDynamicStepResolution(10);
    description->steps()->setIsDynamicStepSize(false);
    description->steps()->setStaticStepSize(0.5);
    QCOMPARE(changed.count(), 7);
}

QTEST_GUILESS_MAIN(tst_CamDescription)
#include "tst_camdescription.moc"
