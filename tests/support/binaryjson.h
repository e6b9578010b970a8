#pragma once

#include <QJsonDocument>
#include <QJsonObject>

// The Qt 5 binary JSON bytes of an object, as a host hands them over. Qt
// keeps this writer only as a deprecated API.
inline QByteArray binaryJsonOf(const QJsonObject &object)
{
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    return QJsonDocument(object).toBinaryData();
    QT_WARNING_POP
}
