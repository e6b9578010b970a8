#include "steps.h"

#include <QJsonValue>

#include <cmath>
#include <utility>
#include <limits>

namespace {

const QLatin1String DynamicStepsKey("dynamicSteps");
const QLatin1String IsDynamicKey("isDynamicStepSize");
const QLatin1String StaticStepSizeKey("staticStepSize");

// Truncates toward zero to a 32-bit integer. Values that do not fit (and NaN)
// would be undefined for a plain cast, so they are held to the int range.
int truncatedToInt(double value)
{
    if (std::isnan(value))
        return 0;
    const double truncated = std::trunc(value);
    if (truncated >= static_cast<double>(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (truncated <= static_cast<double>(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return static_cast<int>(truncated);
}

} // namespace

Steps::Steps(QObject *parent)
    : QObject(parent)
{
}

void Steps::setStaticStepSize(double stepSize)
{
    // An unordered comparison (NaN) counts as a change.
    if (stepSize == m_staticStepSize)
        return;
    m_staticStepSize = stepSize;
    emit staticStepSizeChanged();
}

void Steps::setDynamicStepResolution(int resolution)
{
    if (resolution == m_dynamicStepResolution)
        return;
    m_dynamicStepResolution = resolution;
    emit dynamicStepResolutionChanged();
}

void Steps::setIsDynamicStepSize(bool dynamic)
{
    if (dynamic == m_isDynamicStepSize)
        return;
    m_isDynamicStepSize = dynamic;
    emit isDynamicStepSizeChanged();
}

QJsonObject Steps::toJson() const
{
    QJsonObject object;
    object.insert(DynamicStepsKey, m_dynamicStepResolution);
    object.insert(IsDynamicKey, m_isDynamicStepSize);
    object.insert(StaticStepSizeKey, m_staticStepSize);
    return object;
}

QString Steps::wrongMember(const QJsonObject &object, QJsonValue::Type *expected)
{
    const std::pair<QLatin1String, QJsonValue::Type> members[] = { { IsDynamicKey, QJsonValue::Bool },
                                                                   { StaticStepSizeKey, QJsonValue::Double },
                                                                   { DynamicStepsKey, QJsonValue::Double } };
    for (const auto &[key, type] : members) {
        const QJsonValue value = object.value(key);
        if (!value.isUndefined() && value.type() != type) {
            *expected = type;
            return key;
        }
    }
    return QString();
}

void Steps::fromJson(const QJsonObject &object)
{
    setIsDynamicStepSize(object.value(IsDynamicKey).toBool(true));
    setStaticStepSize(object.value(StaticStepSizeKey).toDouble(DefaultStaticStepSize));
    setDynamicStepResolution(truncatedToInt(
        object.value(DynamicStepsKey).toDouble(DefaultDynamicStepResolution)));
}
