#include "motionpoint.h"

#include "camdesigner/camdescriptionimplementation.h"

#include <QCoreApplication>

#include <array>

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
    m_master = other.m_master;
    m_slave = other.m_slave;
    m_type = other.m_type;
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
    return m_type == other.m_type && position() == other.position();
}

CamDescriptionImplementation *MotionPoint::camDescription() const
{
    return m_camDescription;
}

void MotionPoint::setCamDescription(CamDescriptionImplementation *description)
{
    m_camDescription = description;
}
