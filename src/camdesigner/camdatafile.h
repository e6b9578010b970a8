#pragma once

#include <QCoreApplication>
#include <QJsonObject>
#include <QString>

// Reading and writing cam definition data files. Files are always written as
// indented text JSON; they are read as text JSON when the suffix contains
// "json" (any case) and as Qt 5 binary JSON otherwise. That asymmetry is kept
// on purpose, since files of the earlier binary form are still read as they
// were. A ".dat" file written here used to read back silently as the
// defaults; it is now refused as no binary JSON, with a hint that it holds
// text, because a file the user chose must never quietly become the defaults.
class CamDataFile
{
    Q_DECLARE_TR_FUNCTIONS(CamDataFile)

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

    // errorString: why the file could not be opened, or, for an invalid one,
    // what is wrong with it (the parser's reason and offset, or the member
    // of the wrong type). A member of the wrong type makes the file invalid,
    // although fromJson would read it as its default: a file the user chose
    // is never silently taken as the defaults.
    static QJsonObject read(const QString &path, ReadStatus *status, QString *errorString);
    // The message shown (and printed by the tool) for an invalid file.
    static QString damagedFileMessage(const QString &path, const QString &reason);
    static bool save(const QJsonObject &data, const QString &path, QString *errorString);
};
