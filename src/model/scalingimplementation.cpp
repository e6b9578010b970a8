#include "scalingimplementation.h"

#include "parameters/parametermodel.h"
#include "parameterinstance.h"

#include <QLocale>

#include <limits>

namespace {
// Without a drive positions keep the drive's usual precision.
constexpr int FallbackDecimalPlaces = 3;
const char TravelPerRevolution[] = "I07";
const char MotorRevolutions[] = "I12";
const char OutputRevolutions[] = "I13";
} // namespace

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

QString ScalingImplementation::masterUnit() const
{
    return m_parameterModel ? m_parameterModel->masterUnit() : QString();
}

QString ScalingImplementation::slaveUnit() const
{
    return m_parameterModel ? m_parameterModel->slaveUnit() : QString();
}

void ScalingImplementation::setDrive(MxParameterInstance::ParameterContainer *container, int livingSpace)
{
    if (m_container == container && m_livingSpace == livingSpace)
        return;
    for (const char *coordinate : { TravelPerRevolution, MotorRevolutions, OutputRevolutions }) {
        const MxParameterDefinition::ParameterCoordinate parameter { QLatin1String(coordinate) };
        if (m_container) {
            if (MxParameterInstance::ParameterInformation *information = m_container->definition(parameter))
                disconnect(information, nullptr, this, nullptr);
        }
        if (container) {
            if (MxParameterInstance::ParameterInformation *information = container->definition(parameter))
                connect(information, &MxParameterInstance::ParameterInformation::valueChanged, this, &Scaling::changed);
        }
    }
    m_container = container;
    m_livingSpace = livingSpace;
    emit changed();
}

double ScalingImplementation::axisNumber(const char *coordinate) const
{
    const double invalid = std::numeric_limits<double>::quiet_NaN();
    if (!m_container)
        return invalid;
    QString text = m_container->readValue(m_livingSpace, MxParameterDefinition::ParameterCoordinate(QLatin1String(coordinate)), 0);
    text.replace(QLocale::system().decimalPoint(), QLatin1Char('.'));
    bool ok = false;
    const double value = text.toDouble(&ok);
    return ok && value > 0.0 ? value : invalid;
}

double ScalingImplementation::slaveUnitsPerRevolution() const
{
    return m_container ? axisNumber(TravelPerRevolution) : Scaling::slaveUnitsPerRevolution();
}

double ScalingImplementation::gearRatio() const
{
    return m_container ? axisNumber(MotorRevolutions) / axisNumber(OutputRevolutions) : Scaling::gearRatio();
}
