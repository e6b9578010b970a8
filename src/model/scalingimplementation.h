#pragma once

#include "scaling.h"

#include <QPointer>

namespace MxParameterInstance {
class ParameterContainer;
}

// The scaling of an editor bound to a drive: decimal places and position
// texts are the parameter model's.
class ScalingImplementation : public Scaling
{
    Q_OBJECT
public:
    explicit ScalingImplementation(ParameterModel *parameterModel, QObject *parent = nullptr);

    // The master decimal places ("G46"): the curve is sampled along the
    // master axis, so its step sizes and resolution follow the master
    // positions. Slave positions have their own (slaveDecimalPlaces).
    int decimalPlaces() const override;
    int slaveDecimalPlaces() const;

    QString masterPositionToText(double position) const override;
    QString slavePositionToText(double position) const override;
    double masterTextToPosition(const QString &text) const override;
    double slaveTextToPosition(const QString &text) const override;

    QString masterUnit() const override;
    QString slaveUnit() const override;
    // From the axis parameters "I07" (travel per output revolution, in slave
    // units) and "I12":"I13" (motor to output revolutions).
    double slaveUnitsPerRevolution() const override;
    double gearRatio() const override;

    // The drive whose feed and gear scale velocities into revolutions per
    // minute, and the living space of the axis. Their changes end in changed().
    // The selectors and the cycle time are the drive's as well: they are read
    // from the table's element of "G437", "G438" and "G439", follow the
    // drive's changes, and every change made here is written there, so that
    // they persist with the drive's parameters. A drive without them (or one
    // that refuses the write) leaves them to this object alone.
    void setDrive(MxParameterInstance::ParameterContainer *container, int livingSpace);

private:
    void readSettings();
    void writeSetting(const char *coordinate, qint64 native);

    // A positive number of the axis, NaN when unreadable or not positive.
    double axisNumber(const char *coordinate) const;

    QPointer<ParameterModel> m_parameterModel;
    QPointer<MxParameterInstance::ParameterContainer> m_container;
    int m_livingSpace = 0;
    bool m_reading = false;
};
