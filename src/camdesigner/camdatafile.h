#pragma once

#include <QJsonObject>
#include <QString>

// Reading and writing cam definition data files. Files are always written as
// indented text JSON; they are read as text JSON when the suffix contains
// "json" (any case) and as Qt 5 binary JSON otherwise. A ".dat" file written
// here therefore reads back as the defaults: that asymmetry is kept on purpose,
// since files of the earlier binary form are still read as they were.
class CamDataFile
{
public:
    enum class ReadStatus {
        Loaded,     // the file held a JSON object of the expected form
        Invalid,    // the file opened but held no such object; the result is empty
        Unreadable  // the file could not be opened
    };

    static bool isTextJsonPath(const QString &path);

    // Parses Qt 5 binary JSON with validation; anything else gives an empty object.
    static QJsonObject parseBinary(const QByteArray &data, bool *valid = nullptr);
    static QJsonObject parseText(const QByteArray &data, bool *valid = nullptr);

    static QJsonObject read(const QString &path, ReadStatus *status, QString *errorString);
    static bool save(const QJsonObject &data, const QString &path, QString *errorString);
};
