#include "motionpoint.h"

#include "camdesigner/camdescriptionimplementation.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QJsonValue>

#include <array>
#include <cmath>

namespace {

struct TypeNames {
    int type;
    int comboBoxIndex;
    const char *dataName;
    const char *displayName;
};

// Combo-box order: Rast, Konstante Geschwindigkeit, Beschleunigung, Umkehrpunkt.
const std::array<TypeNames, 4> TypeTable = {{
    { MotionPoint::rest, 0, "rest", QT_TRANSLATE_NOOP("MotionPoint", "Rast") },
    { MotionPoint::speed, 1, "speed", QT_TRANSLATE_NOOP("MotionPoint", "Konstante Geschwindigkeit") },
    { MotionPoint::turningPoint, 3, "turningPoint", QT_TRANSLATE_NOOP("MotionPoint", "Umkehrpunkt") },
    { MotionPoint::acceleration, 2, "acceleration", QT_TRANSLATE_NOOP("MotionPoint", "Beschleunigung") },
}};

const char *const SectionLawDataNames[MotionPoint::SectionLawCount] = {
    "Poly5", "Poly7", "Cycloid", "ModifiedSine", "ModifiedTrapezoid", "Harmonic", "Line",
};
const char *const SectionLawDisplayNames[MotionPoint::SectionLawCount] = {
    QT_TRANSLATE_NOOP("MotionPoint", "Polynom 5. Grades"),
    QT_TRANSLATE_NOOP("MotionPoint", "Polynom 7. Grades"),
    QT_TRANSLATE_NOOP("MotionPoint", "Zykloide"),
    QT_TRANSLATE_NOOP("MotionPoint", "Modifizierter Sinus"),
    QT_TRANSLATE_NOOP("MotionPoint", "Modifiziertes Beschleunigungstrapez"),
    QT_TRANSLATE_NOOP("MotionPoint", "Harmonisch"),
    QT_TRANSLATE_NOOP("MotionPoint", "Gerade"),
};

const QLatin1String LawKey("law");
const QLatin1String InflectionKey("inflection");
const QLatin1String VelocityKey("velocity");

bool isKnownSectionLaw(int law)
{
    return law >= 0 && law < MotionPoint::SectionLawCount;
}

const TypeNames *namesOfType(int type)
{
    for (const TypeNames &names : TypeTable) {
        if (names.type == type)
            return &names;
    }
    return nullptr;
}

} // namespace

MotionPoint::MotionPoint(const MotionPoint &other)
    : QObject(nullptr)
    , m_master(other.m_master)
    , m_slave(other.m_slave)
    , m_type(other.m_type)
    , m_sectionLaw(other.m_sectionLaw)
    , m_inflection(other.m_inflection)
    , m_hasVelocity(other.m_hasVelocity)
    , m_velocity(other.m_velocity)
{
}

MotionPoint::MotionPoint(double master, double slave, const QString &typeDataName)
    : m_master(master)
    , m_slave(slave)
    , m_type(typeForDataName(typeDataName))
{
}

MotionPoint::MotionPoint(double master, double slave, ComboBoxIndex index)
    : m_master(master)
    , m_slave(slave)
    , m_type(typeForIndex(index.value))
{
}

MotionPoint::MotionPoint(double master, double slave, movementRules type)
    : m_master(master)
    , m_slave(slave)
    , m_type(type)
{
}

MotionPoint::~MotionPoint() = default;

MotionPoint &MotionPoint::operator=(const MotionPoint &other)
{
    m_master = other.m_master;
    m_slave = other.m_slave;
    m_type = other.m_type;
    m_sectionLaw = other.m_sectionLaw;
    m_inflection = other.m_inflection;
    m_hasVelocity = other.m_hasVelocity;
    m_velocity = other.m_velocity;
    return *this;
}

QString MotionPoint::typeDataName() const
{
    return typeDataName(m_type);
}

QString MotionPoint::typeDisplayName() const
{
    return m_typeApplies ? typeDisplayName(m_type) : QString();
}

QString MotionPoint::typeDataName(int type)
{
    const TypeNames *names = namesOfType(type);
    return names ? QString::fromLatin1(names->dataName) : QString();
}

QString MotionPoint::typeDisplayName(int type)
{
    const TypeNames *names = namesOfType(type);
    return names ? QCoreApplication::translate("MotionPoint", names->displayName) : QString();
}

int MotionPoint::typeForDataName(const QString &dataName)
{
    for (const TypeNames &names : TypeTable) {
        if (dataName == QLatin1String(names.dataName))
            return names.type;
    }
    return rest;
}

int MotionPoint::indexForType(int type)
{
    const TypeNames *names = namesOfType(type);
    return names ? names->comboBoxIndex : -1;
}

int MotionPoint::typeForIndex(int index)
{
    for (const TypeNames &names : TypeTable) {
        if (names.comboBoxIndex == index)
            return names.type;
    }
    return rest;
}

void MotionPoint::setTypeApplies(bool applies)
{
    m_typeApplies = applies;
}

void MotionPoint::setFrom(const MotionPoint &other)
{
    if (isEqual(other))
        return;
    *this = other;
    emit edited();
}

void MotionPoint::setPosition(const QPointF &position)
{
    // Always notifies, also for an unchanged position: a drag that ends where
    // it started must still end the coarse sampling of the plots.
    m_master = position.x();
    m_slave = position.y();
    emit moved();
}

void MotionPoint::setTypeByIndex(int index)
{
    const int type = typeForIndex(index);
    if (type == m_type)
        return;
    m_type = type;
    emit movementRuleChanged();
}

bool MotionPoint::differs(const MotionPoint *other) const
{
    return other == nullptr || !isEqual(*other);
}

bool MotionPoint::isEqual(const MotionPoint &other) const
{
    // QPointF compares fuzzily: relative 1e-12, absolute 1e-12 where either
    // coordinate is exactly zero. Point positions are never compared exactly.
    return m_type == other.m_type && position() == other.position() && m_sectionLaw == other.m_sectionLaw
        && m_inflection == other.m_inflection && m_hasVelocity == other.m_hasVelocity
        && (!m_hasVelocity || m_velocity == other.m_velocity);
}

void MotionPoint::setSectionLaw(int law)
{
    if (!isKnownSectionLaw(law))
        law = Poly5;
    if (law == m_sectionLaw)
        return;
    m_sectionLaw = law;
    emit sectionChanged();
}

void MotionPoint::setInflection(double inflection)
{
    inflection = validInflection(inflection);
    if (inflection == m_inflection)
        return;
    m_inflection = inflection;
    emit sectionChanged();
}

void MotionPoint::setVelocity(double velocity)
{
    if (!std::isfinite(velocity)) {
        clearVelocity();
        return;
    }
    if (m_hasVelocity && velocity == m_velocity)
        return;
    m_hasVelocity = true;
    m_velocity = velocity;
    emit sectionChanged();
}

void MotionPoint::clearVelocity()
{
    if (!m_hasVelocity)
        return;
    m_hasVelocity = false;
    m_velocity = 0.0;
    emit sectionChanged();
}

void MotionPoint::setSectionFrom(const MotionPoint &other)
{
    setSectionLaw(other.m_sectionLaw);
    setInflection(other.m_inflection);
    if (other.m_hasVelocity)
        setVelocity(other.m_velocity);
    else
        clearVelocity();
}

QString MotionPoint::sectionLawDataName(int law)
{
    return isKnownSectionLaw(law) ? QString::fromLatin1(SectionLawDataNames[law]) : QString();
}

QString MotionPoint::sectionLawDisplayName(int law)
{
    return isKnownSectionLaw(law) ? QCoreApplication::translate("MotionPoint", SectionLawDisplayNames[law])
                                  : QString();
}

int MotionPoint::sectionLawForDataName(const QString &dataName)
{
    for (int law = 0; law < SectionLawCount; ++law) {
        if (dataName == QLatin1String(SectionLawDataNames[law]))
            return law;
    }
    return Poly5;
}

bool MotionPoint::takesInflection(int law)
{
    return law == Cycloid || law == ModifiedSine || law == ModifiedTrapezoid || law == Harmonic;
}

double MotionPoint::validInflection(double inflection)
{
    return inflection > 0.0 && inflection < 1.0 ? inflection : DefaultInflection;
}

QJsonObject MotionPoint::sectionData() const
{
    QJsonObject data;
    if (m_sectionLaw != Poly5)
        data.insert(LawKey, sectionLawDataName(m_sectionLaw));
    if (m_inflection != DefaultInflection)
        data.insert(InflectionKey, m_inflection);
    if (m_hasVelocity)
        data.insert(VelocityKey, m_velocity);
    return data;
}

void MotionPoint::setSectionFromData(const QJsonValue &value)
{
    const QJsonObject data = value.toObject();
    setSectionLaw(sectionLawForDataName(data.value(LawKey).toString()));
    const QJsonValue inflection = data.value(InflectionKey);
    setInflection(inflection.isDouble() ? inflection.toDouble() : DefaultInflection);
    const QJsonValue velocity = data.value(VelocityKey);
    if (velocity.isDouble())
        setVelocity(velocity.toDouble());
    else
        clearVelocity();
}

CamDescriptionImplementation *MotionPoint::camDescription() const
{
    return m_camDescription;
}

void MotionPoint::setCamDescription(CamDescriptionImplementation *description)
{
    m_camDescription = description;
}
