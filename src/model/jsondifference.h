#pragma once

#include <QStringList>

class QJsonObject;

// Compares two JSON objects key by key and lists what changed, one line per
// difference, with the key path joined by ", ". Used both to tell whether two
// cam definitions differ and for the grid point view's difference log.
namespace JsonDifference {

QStringList compare(const QJsonObject &oldObject, const QJsonObject &newObject);

} // namespace JsonDifference
