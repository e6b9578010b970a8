#include "scaling.h"

#include "scalingimplementation.h"

#include <QLocale>

#include <limits>

namespace {
constexpr int HighestOrder = 3;
constexpr double SecondsPerMinute = 60.0;
// Powers written out as the unit texts show them.
const char *const PowerSuffix[HighestOrder + 1] = { "", "", "\u00b2", "\u00b3" };
} // namespace

Scaling *Scaling::createScaling(ParameterModel *parameterModel, QObject *parent)
{
    return new ScalingImplementation(parameterModel, parent);
}

void Scaling::setMasterAxisScaling(int scaling)
{
    if (m_masterAxisScaling == scaling)
        return;
    m_masterAxisScaling = scaling;
    emit masterAxisScalingChanged();
}

void Scaling::setCycleTime(double seconds)
{
    if (m_cycleTime == seconds)
        return;
    m_cycleTime = seconds;
    emit cycleTimeChanged();
}

void Scaling::setVelocityScaling(int scaling)
{
    if (m_velocityScaling == scaling)
        return;
    m_velocityScaling = scaling;
    emit velocityScalingChanged();
}

QString Scaling::masterAxisScalingText(int scaling)
{
    switch (scaling) {
    case MasterUnit:
        return tr("Master-Einheit");
    case CycleTime:
        return tr("Zykluszeit");
    default:
        return QString();
    }
}

QString Scaling::velocityScalingText(int scaling)
{
    switch (scaling) {
    case MasterSlave:
        return tr("Master-Slave");
    case RpmOutput:
        return tr("Upm-Abtrieb");
    case RpmMotor:
        return tr("Upm-Motor");
    default:
        return QString();
    }
}

QString Scaling::timeUnitName(int unit)
{
    switch (unit) {
    case Minutes:
        return tr("min");
    case Seconds:
        return tr("s");
    case Milliseconds:
        return tr("ms");
    default:
        return QString();
    }
}

QString Scaling::cycleTimeText() const
{
    return QString::number(m_cycleTime, 'f', 4).replace(QLatin1Char('.'), QLocale::system().decimalPoint())
        + QStringLiteral(" s");
}

bool Scaling::isTimeBased() const
{
    return m_masterAxisScaling == CycleTime || m_velocityScaling != MasterSlave;
}

// With a time base the master runs through masterRange once per cycle time at
// a constant speed v = masterRange / cycleTime, so by the chain rule the n-th
// derivative over time is the n-th derivative over the master times v^n.
// Revolutions per minute then divide by the travel of one output revolution,
// times 60, and for the motor by the gear as well; they leave the position
// (order 0) in slave units.
double Scaling::derivativeFactor(int order, double masterRange) const
{
    if (order < 0 || order > HighestOrder)
        return std::numeric_limits<double>::quiet_NaN();
    const double masterSpeed = isTimeBased() ? masterRange / m_cycleTime : 1.0;
    double factor = std::pow(masterSpeed, order);
    if (order == 0 || m_velocityScaling == MasterSlave)
        return factor;
    factor *= SecondsPerMinute / slaveUnitsPerRevolution();
    if (m_velocityScaling == RpmMotor)
        factor *= gearRatio();
    return factor;
}

double Scaling::secondsPerMaster(double masterRange) const
{
    if (m_masterAxisScaling != CycleTime || !(masterRange > 0.0))
        return 0.0;
    const double seconds = m_cycleTime / masterRange;
    return std::isfinite(seconds) && seconds > 0.0 ? seconds : 0.0;
}

QString Scaling::derivativeUnit(int order) const
{
    if (order < 0 || order > HighestOrder)
        return QString();
    if (order == 0)
        return slaveUnit();
    const QString power = QString::fromUtf8(PowerSuffix[order]);
    if (m_velocityScaling != MasterSlave) {
        // U/min, U/min/s, U/min/s²: a change of speed per second, as ramps
        // of drives are given.
        const QString perMinute = tr("U", "unit symbol: revolutions (Umdrehungen), as in U/min") + QLatin1Char('/') + timeUnitName(Minutes);
        if (order == 1)
            return perMinute;
        return perMinute + QLatin1Char('/') + timeUnitName(Seconds) + QString::fromUtf8(PowerSuffix[order - 1]);
    }
    const QString per = isTimeBased() ? timeUnitName(Seconds) : masterUnit();
    return slaveUnit() + QLatin1Char('/') + per + power;
}
