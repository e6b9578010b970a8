#pragma once

#include "scaling.h"

#include <QPointer>

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

private:
    QPointer<ParameterModel> m_parameterModel;
};
