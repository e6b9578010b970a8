#include "scalingimplementation.h"

// Scaling's own settings are defined here too: they are shared by every
// scaling and need no file of their own.

#include "parameters/parametermodel.h"

#include <QLocale>

namespace {
// Without a drive positions keep the drive's usual precision.
constexpr int FallbackDecimalPlaces = 3;
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

double Scaling::derivativeFactor(int, double) const
{
    return 1.0;
}

QString Scaling::derivativeUnit(int) const
{
    return QString();
}

ScalingImplementation::ScalingImplementation(ParameterModel *parameterModel, QObject *parent)
    : Scaling(parent)
    , m_parameterModel(parameterModel)
{
    if (m_parameterModel) {
        connect(m_parameterModel, &ParameterModel::valueChanged, this, &Scaling::changed);
        connect(m_parameterModel, &ParameterModel::decimalPlacesChanged, this, &Scaling::changed);
    }
}

int ScalingImplementation::decimalPlaces() const
{
    return m_parameterModel ? m_parameterModel->masterDecimalPlaces() : FallbackDecimalPlaces;
}

int ScalingImplementation::slaveDecimalPlaces() const
{
    return m_parameterModel ? m_parameterModel->slaveDecimalPlaces() : FallbackDecimalPlaces;
}

QString ScalingImplementation::masterPositionToText(double position) const
{
    return m_parameterModel ? m_parameterModel->masterValueToText(position)
                            : QString::number(position, 'f', FallbackDecimalPlaces);
}

QString ScalingImplementation::slavePositionToText(double position) const
{
    return m_parameterModel ? m_parameterModel->slaveValueToText(position)
                            : QString::number(position, 'f', FallbackDecimalPlaces);
}

double ScalingImplementation::masterTextToPosition(const QString &text) const
{
    return m_parameterModel ? m_parameterModel->masterTextToValue(text) : text.toDouble();
}

double ScalingImplementation::slaveTextToPosition(const QString &text) const
{
    return m_parameterModel ? m_parameterModel->slaveTextToValue(text) : text.toDouble();
}
