#include "model/motionlaw.h"
#include "model/motionpoint.h"
#include "model/steps.h"

#include <QJsonDocument>
#include <QJsonValue>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <limits>
#include <memory>
#include <vector>

namespace {

const double NaN = std::numeric_limits<double>::quiet_NaN();

QString stateOf(const MotionLaw &law)
{
    return QString::number(law.law());
}

QString stateOf(const Steps &steps)
{
    return QStringLiteral("%1 %2 %3").arg(steps.isDynamicStepSize()).arg(steps.dynamicStepResolution()).arg(steps.staticStepSize());
}

QString stateOf(const MotionPoint &point)
{
    return QStringLiteral("%1 %2 %3 %4").arg(point.master()).arg(point.slave()).arg(point.type()).arg(point.typeApplies());
}

// Spies on every signal the object's own class declares, so that a setter
// that emits the wrong signal, or one too many, is seen as well.
class SignalNames
{
public:
    explicit SignalNames(QObject *object)
    {
        const QMetaObject *meta = object->metaObject();
        for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
            const QMetaMethod method = meta->method(i);
            if (method.methodType() == QMetaMethod::Signal)
                m_spies.emplace_back(QString::fromLatin1(method.name()),
                                     std::make_unique<QSignalSpy>(object, "2" + method.methodSignature()));
        }
    }
    // The signals emitted since the last call, one name per emission joined
    // by "+"; "-" for none.
    QString take()
    {
        QStringList names;
        for (auto &[name, spy] : m_spies) {
            for (; !spy->isEmpty(); spy->removeFirst())
                names.append(name);
        }
        return names.isEmpty() ? QStringLiteral("-") : names.join(QLatin1Char('+'));
    }

private:
    std::vector<std::pair<QString, std::unique_ptr<QSignalSpy>>> m_spies;
};

// Applies the values one after the other to a fresh object; gives the signals
// of each call, separated by blanks, and the state the object ends in.
using SetterRun = std::function<QStringList()>;

template <typename T, typename Set, typename... Values>
SetterRun applying(Set set, Values... values)
{
    return [=] {
        std::unique_ptr<T> object;
        if constexpr (std::is_same_v<T, MotionPoint>)
            object = std::make_unique<MotionPoint>(10.0, 5.0, MotionPoint::rest);
        else
            object = std::make_unique<T>();
        SignalNames names(object.get());
        QStringList emitted;
        ((std::invoke(set, *object, values), emitted.append(names.take())), ...);
        return QStringList { emitted.join(QLatin1Char(' ')), stateOf(*object) };
    };
}

} // namespace

Q_DECLARE_METATYPE(SetterRun)

class tst_ModelValues : public QObject
{
    Q_OBJECT
private slots:
    void settersEmitOnlyOnChange_data();
    void settersEmitOnlyOnChange();
    void lawNames_data();
    void lawNames();
    void stepsFromJson_data();
    void stepsFromJson();
    void typeNames_data();
    void typeNames();
    void pointEquality_data();
    void pointEquality();
};

void tst_ModelValues::settersEmitOnlyOnChange_data()
{
    QTest::addColumn<SetterRun>("run");
    QTest::addColumn<QString>("emitted");
    QTest::addColumn<QString>("state");
    using Json = QJsonValue;
    QTest::newRow("MotionLaw::setLaw") << applying<MotionLaw>(&MotionLaw::setLaw, 0, 1, 1) << "- motionLawChanged -" << "1";
    QTest::newRow("MotionLaw::setFromData")
        << applying<MotionLaw>(&MotionLaw::setFromData, Json("Vdi2142"), Json("Spline"), Json("Spline"), Json("spline"))
        << "- motionLawChanged - motionLawChanged" << "0";
    // NaN never equals itself, so setting it twice notifies twice.
    QTest::newRow("Steps::setStaticStepSize") << applying<Steps>(&Steps::setStaticStepSize, 1.0, 0.5, 0.5, NaN, NaN)
        << "- staticStepSizeChanged - staticStepSizeChanged staticStepSizeChanged" << "1 500 nan";
    QTest::newRow("Steps::setDynamicStepResolution") << applying<Steps>(&Steps::setDynamicStepResolution, 500, 100, 100)
                                                     << "- dynamicStepResolutionChanged -" << "1 100 1";
    QTest::newRow("Steps::setIsDynamicStepSize") << applying<Steps>(&Steps::setIsDynamicStepSize, true, false, false)
                                                 << "- isDynamicStepSizeChanged -" << "0 500 1";
    // The points start at (10, 5, rest).
    QTest::newRow("MotionPoint::setTypeByIndex") << applying<MotionPoint>(&MotionPoint::setTypeByIndex, 0, 2, 2, 7)
                                                 << "- movementRuleChanged - movementRuleChanged" << "10 5 0 1";
    // Always notifies: a drag that ends where it started must still end.
    QTest::newRow("MotionPoint::setPosition")
        << applying<MotionPoint>(&MotionPoint::setPosition, QPointF(10.0, 5.0), QPointF(10.0, 5.0), QPointF(11.0, 6.0))
        << "moved moved moved" << "11 6 0 1";
    QTest::newRow("MotionPoint::setFrom")
        << applying<MotionPoint>(&MotionPoint::setFrom, MotionPoint(10.0 + 1e-13, 5.0, MotionPoint::rest),
                                 MotionPoint(12.0, 7.0, MotionPoint::acceleration),
                                 MotionPoint(12.0, 7.0, MotionPoint::turningPoint))
        << "- edited edited" << "12 7 2 1";
    QTest::newRow("MotionPoint::setTypeApplies") << applying<MotionPoint>(&MotionPoint::setTypeApplies, false) << "-"
                                                 << "10 5 0 0";
    QTest::newRow("MotionPoint assignment")
        << applying<MotionPoint>([](MotionPoint &point, const MotionPoint &other) { point = other; },
                                 MotionPoint(3.0, 4.0, MotionPoint::acceleration))
        << "-" << "3 4 3 1";
}

void tst_ModelValues::settersEmitOnlyOnChange()
{
    QFETCH(SetterRun, run);
    QFETCH(QString, emitted);
    QFETCH(QString, state);
    QCOMPARE(run(), QStringList({ emitted, state }));
}

void tst_ModelValues::lawNames_data()
{
    QTest::addColumn<int>("law");
    QTest::addColumn<QString>("dataName");
    QTest::addColumn<QString>("displayName");
    QTest::addColumn<int>("index");
    QTest::newRow("vdi") << 0 << "Vdi2142" << QString::fromUtf8("Polynom fünften Grades") << 0;
    QTest::newRow("spline") << 1 << "Spline" << "Kubischer Spline" << 1;
    QTest::newRow("unknown") << 2 << "" << "" << -1;
    QTest::newRow("negative") << -1 << "" << "" << -1;
}

void tst_ModelValues::lawNames()
{
    QFETCH(int, law);
    QFETCH(QString, dataName);
    QFETCH(QString, displayName);
    QFETCH(int, index);
    MotionLaw motionLaw;
    motionLaw.setLaw(law);
    QCOMPARE(motionLaw.dataName(), dataName);
    QCOMPARE(MotionLaw::dataName(law), dataName);
    QCOMPARE(MotionLaw::displayName(law), displayName);
    QCOMPARE(MotionLaw::indexForLaw(law), index);
    // An index not in the table, and any value but a data name written exactly, select law 0.
    const int known = index < 0 ? 0 : law;
    QCOMPARE(MotionLaw::lawForIndex(index < 0 ? law : index), known);
    for (const QJsonValue &value :
         { QJsonValue(dataName), QJsonValue(dataName.toLower()), QJsonValue(displayName), QJsonValue(law) }) {
        motionLaw.setLaw(known == 0 ? 1 : 0);
        motionLaw.setFromData(value);
        QCOMPARE(motionLaw.law(), value == QJsonValue(dataName) ? known : 0);
    }
}

void tst_ModelValues::stepsFromJson_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("state");  // dynamic, resolution, static step size
    QTest::addColumn<QString>("emitted");
    // A fresh object starts from the defaults, so an empty object changes nothing.
    const QString resolution = QStringLiteral("dynamicStepResolutionChanged");
    QTest::newRow("empty object keeps defaults silently") << QByteArray("{}") << "1 500 1" << "-";
    QTest::newRow("499.99 truncates to 499") << QByteArray(R"({"dynamicSteps": 499.99})") << "1 499 1" << resolution;
    QTest::newRow("negative truncates toward zero") << QByteArray(R"({"dynamicSteps": -3.9})") << "1 -3 1" << resolution;
    QTest::newRow("string resolution gives default") << QByteArray(R"({"dynamicSteps": "700"})") << "1 500 1" << "-";
    QTest::newRow("huge resolution is held to int") << QByteArray(R"({"dynamicSteps": 1e300})") << "1 2147483647 1"
                                                  << resolution;
    QTest::newRow("all three") << QByteArray(R"({"dynamicSteps": 20, "isDynamicStepSize": false, "staticStepSize": 0.25})")
                               << "0 20 0.25" << resolution + "+isDynamicStepSizeChanged+staticStepSizeChanged";
    QTest::newRow("wrong types give defaults") << QByteArray(R"({"isDynamicStepSize": 0, "staticStepSize": "2"})")
                                               << "1 500 1" << "-";
    QTest::newRow("negative step stored as given") << QByteArray(R"({"staticStepSize": -2})") << "1 500 -2"
                                                   << "staticStepSizeChanged";
}

void tst_ModelValues::stepsFromJson()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, state);
    QFETCH(QString, emitted);
    Steps steps;
    SignalNames names(&steps);
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    steps.fromJson(object);
    QCOMPARE(stateOf(steps), state);
    QCOMPARE(names.take(), emitted);
    // Loading the same again changes nothing, and what is written reads back.
    steps.fromJson(object);
    QCOMPARE(names.take(), QStringLiteral("-"));
    Steps copy;
    copy.fromJson(steps.toJson());
    QCOMPARE(stateOf(copy), state);
}

void tst_ModelValues::typeNames_data()
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

void tst_ModelValues::typeNames()
{
    QFETCH(int, type);
    QFETCH(QString, dataName);
    QFETCH(QString, displayName);
    QFETCH(int, index);
    MotionPoint point(1.5, 2.5, static_cast<MotionPoint::movementRules>(type));
    QCOMPARE(point.typeDataName(), dataName);
    QCOMPARE(point.typeDisplayName(), displayName);
    QCOMPARE(MotionPoint::indexForType(type), index);
    // Unknown names and indices read as rest; a display name is no data name.
    const int read = dataName.isEmpty() ? int(MotionPoint::rest) : type;
    QCOMPARE(MotionPoint(1.0, 2.0, dataName).type(), read);
    QCOMPARE(MotionPoint(1.0, 2.0, MotionPoint::ComboBoxIndex(index)).type(), read);
    QCOMPARE(MotionPoint(1.0, 2.0, displayName).type(), int(MotionPoint::rest));
    // A type that does not apply to the law shows no name, but keeps its data
    // name; a copy carries the values and applies again.
    point.setTypeApplies(false);
    QCOMPARE(point.typeDisplayName(), QString());
    QCOMPARE(point.typeDataName(), dataName);
    QCOMPARE(stateOf(MotionPoint(point)), QStringLiteral("1.5 2.5 %1 1").arg(type));
}

void tst_ModelValues::pointEquality_data()
{
    QTest::addColumn<QPointF>("a");
    QTest::addColumn<QPointF>("b");
    QTest::addColumn<bool>("equal");
    QTest::newRow("relative 1e-13 is equal") << QPointF(1.0, 2.0) << QPointF(1.0 + 1e-13, 2.0) << true;
    QTest::newRow("relative 1e-11 differs") << QPointF(1.0, 2.0) << QPointF(1.0 + 1e-11, 2.0) << false;
    QTest::newRow("zero against 1e-11 differs") << QPointF(0.0, 0.0) << QPointF(1e-11, 0.0) << false;
    QTest::newRow("zero against 1e-13 is equal") << QPointF(0.0, 0.0) << QPointF(1e-13, 0.0) << true;
    QTest::newRow("slave zero against 1e-11 differs") << QPointF(5.0, 0.0) << QPointF(5.0, 1e-11) << false;
    QTest::newRow("large values within 1e-12") << QPointF(1e6, 3.0) << QPointF(1e6 + 1e-7, 3.0) << true;
}

void tst_ModelValues::pointEquality()
{
    QFETCH(QPointF, a);
    QFETCH(QPointF, b);
    QFETCH(bool, equal);
    MotionPoint first(a.x(), a.y(), MotionPoint::speed);
    MotionPoint second(b.x(), b.y(), MotionPoint::speed);
    QCOMPARE(first.isEqual(second), equal);
    QCOMPARE(second.isEqual(first), equal);
    QCOMPARE(first.differs(&second), !equal);
    MotionPoint otherType(b.x(), b.y(), MotionPoint::rest);
    QVERIFY(first.differs(&otherType));
    QVERIFY(first.differs(nullptr));
}

QTEST_GUILESS_MAIN(tst_ModelValues)
#include "tst_modelvalues.moc"
