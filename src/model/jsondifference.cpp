#include "jsondifference.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>

namespace {

QString pathText(const QStringList &path)
{
    return path.join(QLatin1String(", "));
}

QString scalarText(const QJsonValue &value)
{
    switch (value.type()) {
    case QJsonValue::Double:
        return QString::number(value.toDouble(), 'g', 6);
    case QJsonValue::String:
        return value.toString();
    case QJsonValue::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QJsonValue::Null:
        return QStringLiteral("null");
    case QJsonValue::Array:
        return QStringLiteral("[...]");
    case QJsonValue::Object:
        return QStringLiteral("{...}");
    case QJsonValue::Undefined:
        break;
    }
    return QString();
}

void compareValues(const QJsonValue &oldValue, const QJsonValue &newValue,
                   QStringList &path, QStringList &log);

void compareObjects(const QJsonObject &oldObject, const QJsonObject &newObject,
                    QStringList &path, QStringList &log)
{
    for (auto it = oldObject.constBegin(); it != oldObject.constEnd(); ++it) {
        path.append(it.key());
        const auto found = newObject.constFind(it.key());
        if (found == newObject.constEnd())
            log.append(pathText(path) + QLatin1String(": deleted"));
        else
            compareValues(it.value(), found.value(), path, log);
        path.removeLast();
    }
    for (auto it = newObject.constBegin(); it != newObject.constEnd(); ++it) {
        if (!oldObject.contains(it.key())) {
            path.append(it.key());
            log.append(pathText(path) + QLatin1String(": created"));
            path.removeLast();
        }
    }
}

void compareArrays(const QJsonArray &oldArray, const QJsonArray &newArray,
                   QStringList &path, QStringList &log)
{
    const int common = std::min(oldArray.size(), newArray.size());
    for (int i = 0; i < common; ++i) {
        path.append(QString::number(i));
        compareValues(oldArray.at(i), newArray.at(i), path, log);
        path.removeLast();
    }
    for (int i = common; i < oldArray.size(); ++i)
        log.append(pathText(path + QStringList(QString::number(i))) + QLatin1String(": deleted"));
    for (int i = common; i < newArray.size(); ++i)
        log.append(pathText(path + QStringList(QString::number(i))) + QLatin1String(": created"));
}

void compareValues(const QJsonValue &oldValue, const QJsonValue &newValue,
                   QStringList &path, QStringList &log)
{
    if (oldValue.isObject() && newValue.isObject()) {
        compareObjects(oldValue.toObject(), newValue.toObject(), path, log);
        return;
    }
    if (oldValue.isArray() && newValue.isArray()) {
        compareArrays(oldValue.toArray(), newValue.toArray(), path, log);
        return;
    }
    if (oldValue == newValue)
        return;
    log.append(pathText(path) + QLatin1String(": changed from ") + scalarText(oldValue)
               + QLatin1String(" to ") + scalarText(newValue));
}

} // namespace

namespace JsonDifference {

QStringList compare(const QJsonObject &oldObject, const QJsonObject &newObject)
{
    QStringList log;
    QStringList path;
    compareObjects(oldObject, newObject, path, log);
    return log;
}

} // namespace JsonDifference
