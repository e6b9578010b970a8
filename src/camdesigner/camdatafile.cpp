#include "camdatafile.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>
#include <QtEndian>

bool CamDataFile::isTextJsonPath(const QString &path)
{
    return QFileInfo(path).suffix().contains(QLatin1String("json"), Qt::CaseInsensitive);
}

QJsonObject CamDataFile::parseBinary(const QByteArray &data, bool *valid)
{
    // Qt's reader adds the header size to the document size that the data
    // claims without guarding the sum against overflow; a claim near 4 GiB
    // then passes its bounds check and validation reads far past the data.
    // Such bytes are no binary JSON, so they are refused here first.
    const int headerSize = 8; // tag "qbjs" and version
    if (data.size() >= headerSize + 4
        && qFromLittleEndian<quint32>(data.constData() + headerSize) > quint32(data.size() - headerSize)) {
        if (valid)
            *valid = false;
        return QJsonObject();
    }
    // The host and older files carry the Qt 5 binary JSON form, which Qt keeps
    // only as a deprecated reader; there is no other reader of that format.
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    const QJsonDocument document = QJsonDocument::fromBinaryData(data, QJsonDocument::Validate);
    QT_WARNING_POP
    if (valid)
        *valid = document.isObject();
    return document.object();
}

QJsonObject CamDataFile::parseText(const QByteArray &data, bool *valid)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(data, &error);
    if (valid)
        *valid = error.error == QJsonParseError::NoError && document.isObject();
    return document.object();
}

QJsonObject CamDataFile::read(const QString &path, ReadStatus *status, QString *errorString)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (status)
            *status = ReadStatus::Unreadable;
        if (errorString)
            *errorString = file.errorString();
        return QJsonObject();
    }
    const QByteArray bytes = file.readAll();
    bool valid = false;
    const QJsonObject object = isTextJsonPath(path) ? parseText(bytes, &valid) : parseBinary(bytes, &valid);
    if (status)
        *status = valid ? ReadStatus::Loaded : ReadStatus::Invalid;
    if (errorString)
        errorString->clear();
    return object;
}

bool CamDataFile::save(const QJsonObject &data, const QString &path, QString *errorString)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        if (errorString)
            *errorString = file.errorString();
        return false;
    }
    file.write(QJsonDocument(data).toJson(QJsonDocument::Indented));
    if (!file.commit()) {
        if (errorString)
            *errorString = file.errorString();
        return false;
    }
    return true;
}
