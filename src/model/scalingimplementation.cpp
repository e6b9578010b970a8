#include "scalingimplementation.h"

#include "decimaltext.h"
#include "parameters/parametermodel.h"
#include "parameterinstance.h"

#include <cmath>

#include <limits>

namespace {
// Without a drive positions keep the drive's usual precision.
constexpr int FallbackDecimalPlaces = 3;
const char TravelPerRevolution[] = "I07";
const char MotorRevolutions[] = "I12";
const char OutputRevolutions[] = "I13";
// One element per cam table.
const char MasterAxisScalingSetting[] = "G437";
const char CycleTimeSetting[] = "G438";
const char VelocityScalingSetting[] = "G439";
// The drive keeps the cycle time in tenths of a millisecond, the precision
// the scaling view offers.
constexpr double CycleTimePerSecond = 1e4;

MxParameterDefinition::ParameterCoordinate coordinateOf(const char *text)
{
    return MxParameterDefinition::ParameterCoordinate(QLatin1String(text));
}
} // namespace

ScalingImplementation::ScalingImplementation(ParameterModel *parameterModel, QObject *parent)
    : Scaling(parent)
    , m_parameterModel(parameterModel)
{
    if (m_parameterModel) {
        connect(m_parameterModel, &ParameterModel::valueChanged, this, &Scaling::changed);
        connect(m_parameterModel, &ParameterModel::decimalPlacesChanged, this, &Scaling::changed);
    }
    connect(this, &Scaling::masterAxisScalingChanged, this,
            [this] { writeSetting(MasterAxisScalingSetting, masterAxisScaling()); });
    connect(this, &Scaling::cycleTimeChanged, this,
            [this] { writeSetting(CycleTimeSetting, std::llround(cycleTime() * CycleTimePerSecond)); });
    connect(this, &Scaling::velocityScalingChanged, this,
            [this] { writeSetting(VelocityScalingSetting, velocityScaling()); });
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
    if (m_parameterModel)
        return m_parameterModel->masterTextToValue(text);
    double value = 0.0;
    DecimalText::parse(text, &value);
    return value;
}

double ScalingImplementation::slaveTextToPosition(const QString &text) const
{
    if (m_parameterModel)
        return m_parameterModel->slaveTextToValue(text);
    double value = 0.0;
    DecimalText::parse(text, &value);
    return value;
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
    using MxParameterInstance::ParameterInformation;
    for (const char *coordinate : { TravelPerRevolution, MotorRevolutions, OutputRevolutions, MasterAxisScalingSetting,
                                    CycleTimeSetting, VelocityScalingSetting }) {
        if (m_container) {
            if (ParameterInformation *information = m_container->definition(coordinateOf(coordinate)))
                disconnect(information, nullptr, this, nullptr);
        }
    }
    if (container) {
        for (const char *coordinate : { TravelPerRevolution, MotorRevolutions, OutputRevolutions }) {
            if (ParameterInformation *information = container->definition(coordinateOf(coordinate)))
                connect(information, &ParameterInformation::valueChanged, this, &Scaling::changed);
        }
        for (const char *coordinate : { MasterAxisScalingSetting, CycleTimeSetting, VelocityScalingSetting }) {
            if (ParameterInformation *information = container->definition(coordinateOf(coordinate)))
                connect(information, &ParameterInformation::valueChanged, this, &ScalingImplementation::readSettings);
        }
    }
    m_container = container;
    m_livingSpace = livingSpace;
    readSettings();
    emit changed();
}

void ScalingImplementation::readSettings()
{
    if (!m_container || !m_parameterModel)
        return;
    const int table = m_parameterModel->camTable();
    const auto read = [this, table](const char *coordinate, qint64 *native) {
        bool ok = false;
        *native = m_container->readValueNative(m_livingSpace, coordinateOf(coordinate), table).toLongLong(&ok);
        return ok;
    };
    // Values taken from the drive are not written back to it.
    m_reading = true;
    qint64 native = 0;
    if (read(MasterAxisScalingSetting, &native) && native >= 0 && native <= CycleTime)
        setMasterAxisScaling(int(native));
    if (read(CycleTimeSetting, &native) && native > 0)
        setCycleTime(double(native) / CycleTimePerSecond);
    if (read(VelocityScalingSetting, &native) && native >= 0 && native <= RpmMotor)
        setVelocityScaling(int(native));
    m_reading = false;
}

void ScalingImplementation::writeSetting(const char *coordinate, qint64 native)
{
    if (m_reading || !m_container || !m_parameterModel)
        return;
    const int table = m_parameterModel->camTable();
    const MxParameterDefinition::ParameterCoordinate parameter = coordinateOf(coordinate);
    bool ok = false;
    if (m_container->readValueNative(m_livingSpace, parameter, table).toLongLong(&ok) == native && ok)
        return;
    // A drive that refuses (read-only) keeps its value; the editor shows the
    // new one until the drive's next change of the setting.
    m_container->writeValueNative(m_livingSpace, parameter, table, QString::number(native));
}

double ScalingImplementation::axisNumber(const char *coordinate) const
{
    const double invalid = std::numeric_limits<double>::quiet_NaN();
    if (!m_container)
        return invalid;
    QString text = m_container->readValue(m_livingSpace, MxParameterDefinition::ParameterCoordinate(QLatin1String(coordinate)), 0);
    double value = 0.0;
    return DecimalText::parse(text, &value) && value > 0.0 ? value : invalid;
}

double ScalingImplementation::slaveUnitsPerRevolution() const
{
    return m_container ? axisNumber(TravelPerRevolution) : Scaling::slaveUnitsPerRevolution();
}

double ScalingImplementation::gearRatio() const
{
    return m_container ? axisNumber(MotorRevolutions) / axisNumber(OutputRevolutions) : Scaling::gearRatio();
}
