#pragma once

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>

// The object of a text JSON literal written in a test.
inline QJsonObject parseJson(const char *json)
{
    return QJsonDocument::fromJson(QByteArray(json)).object();
}
