#include "model/jsondifference.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"
#include "model/steps.h"
#include "jsontext.h"

#include <QJsonObject>
#include <QJsonValue>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <limits>
#include <memory>
#include <type_traits>
#include <vector>

namespace {

const double NaN = std::numeric_limits<double>::quiet_NaN();

MotionPoint pointAt(double master, double slave, MotionPoint::movementRules type = MotionPoint::rest)
{
    return MotionPoint(master, slave, type);
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
    void emitsOnlyOnChange_data();
    void emitsOnlyOnChange();
    void namesOutsideTheTables();
    void jsonDifference();
};

void tst_ModelValues::emitsOnlyOnChange_data()
{
    QTest::addColumn<SetterRun>("run");
    QTest::addColumn<QString>("emitted");
    QTest::addColumn<QString>("state");
    // Steps state: dynamic, resolution, static step size. No limits are enforced.
    // NaN never equals itself, so setting it twice notifies twice.
    QTest::newRow("Steps::setStaticStepSize") << applying<Steps>(&Steps::setStaticStepSize, 1.0, 0.5, 0.5, NaN, NaN, -2.0)
        << "- staticStepSizeChanged - staticStepSizeChanged staticStepSizeChanged staticStepSizeChanged" << "1 500 -2";
    // A load applies each member through its setter (which compares, then
    // emits), with the defaults for missing members and members of another type.
    QTest::newRow("Steps::fromJson, defaults") << applying<Steps>(&Steps::fromJson, parseJson("{}"),
        parseJson(R"({"isDynamicStepSize": 0, "staticStepSize": "2", "dynamicSteps": "700"})")) << "- -" << "1 500 1";
    QTest::newRow("Steps::fromJson, 499.99 truncates") << applying<Steps>(&Steps::fromJson,
        parseJson(R"({"dynamicSteps": 499.99})"), parseJson(R"({"dynamicSteps": 499.99})"))
        << "dynamicStepResolutionChanged -" << "1 499 1";
    QTest::newRow("Steps::fromJson, huge resolution held to int")
        << applying<Steps>(&Steps::fromJson, parseJson(R"({"dynamicSteps": 1e300})")) << "dynamicStepResolutionChanged"
        << "1 2147483647 1";

    // The points start at (10, 5, rest). Positions compare with a relative
    // tolerance of 1e-12, and an absolute one where either value is zero.
    QTest::newRow("MotionPoint::setTypeByIndex") << applying<MotionPoint>(&MotionPoint::setTypeByIndex, 0, 2, 2, 7)
                                                 << "- movementRuleChanged - movementRuleChanged" << "10 5 0 1";
    // Always notifies: a drag that ends where it started must still end.
    QTest::newRow("MotionPoint::setPosition")
        << applying<MotionPoint>(&MotionPoint::setPosition, QPointF(10.0, 5.0), QPointF(10.0, 5.0), QPointF(11.0, 6.0))
        << "moved moved moved" << "11 6 0 1";
    QTest::newRow("MotionPoint::setFrom")
        << applying<MotionPoint>(&MotionPoint::setFrom, pointAt(10.0 + 1e-13, 5.0), pointAt(10.0 + 1e-10, 5.0),
                                 pointAt(12.0, 7.0, MotionPoint::acceleration), pointAt(12.0, 7.0, MotionPoint::turningPoint))
        << "- edited edited edited" << "12 7 2 1";
    QTest::newRow("MotionPoint::setFrom near zero")
        << applying<MotionPoint>(&MotionPoint::setFrom, pointAt(0.0, 5.0), pointAt(1e-13, 5.0), pointAt(1e-11, 5.0),
                                 pointAt(1e-11, 5.0 * (1.0 + 1e-13)), pointAt(1e-11, 0.0), pointAt(1e-11, 1e-13))
        << "edited - edited - edited -" << "1e-11 0 0 1";
}

void tst_ModelValues::emitsOnlyOnChange()
{
    QFETCH(SetterRun, run);
    QFETCH(QString, emitted);
    QFETCH(QString, state);
    QCOMPARE(run(), QStringList({ emitted, state }));
}

// The names in the tables are checked where they show: the combo boxes and
// tables of the views, and the loading and saving of the cam description.
// Names and indexes outside the tables read as the defaults.
void tst_ModelValues::namesOutsideTheTables()
{
    // Only a data name written exactly selects a law.
    MotionLaw motionLaw;
    for (const QJsonValue &value : { QJsonValue("SplinePeriodic"), QJsonValue("Kubischer Spline"), QJsonValue(1) }) {
        motionLaw.setLaw(MotionLaw::Spline);
        motionLaw.setFromData(value);
        QCOMPARE(motionLaw.law(), value.isString() && value.toString() == "SplinePeriodic" ? 2 : 0);
    }

    QCOMPARE(MotionPoint(1.0, 2.0, MotionPoint::ComboBoxIndex(-1)).type(), int(MotionPoint::rest));
    // A display name is no data name; a type that does not apply to the law
    // shows no name, but keeps its data name.
    QCOMPARE(MotionPoint(1.0, 2.0, QStringLiteral("Umkehrpunkt")).type(), int(MotionPoint::rest));
    MotionPoint turning(1.0, 2.0, MotionPoint::turningPoint);
    turning.setTypeApplies(false);
    QCOMPARE(turning.typeDisplayName(), QString());
    QCOMPARE(turning.typeDataName(), QStringLiteral("turningPoint"));
}

// One document with every kind of difference: values of each type (numbers
// with six significant digits), a nested path, a deleted and a created member,
// an array element and a grown array.
void tst_ModelValues::jsonDifference()
{
    const QJsonObject before = parseJson(R"({"Cyclic": false, "L": "Vdi2142", "P": [[0, 0, "rest"], [10, 5, "rest"]],
                                             "Steps": {"a": 1234567.0, "b": 2}})");
    const QJsonObject after = parseJson(R"({"Cyclic": true, "L": "Spline", "P": [[0, 0, "rest"], [10, 6, "rest"], 1],
                                            "Steps": {"a": 2.5, "c": true}})");
    QCOMPARE(JsonDifference::compare(before, after),
             QStringList({ "Cyclic: changed from false to true", "L: changed from Vdi2142 to Spline",
                           "P, 1, 1: changed from 5 to 6", "P, 2: created", "Steps, a: changed from 1.23457e+06 to 2.5",
                           "Steps, b: deleted", "Steps, c: created" }));
}

QTEST_GUILESS_MAIN(tst_ModelValues)
#include "tst_modelvalues.moc"
