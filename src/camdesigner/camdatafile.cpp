#include "camdatafile.h"

#include "atomicfilewriter.h"
#include "camdescriptionimplementation.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
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

namespace {

QString typeName(QJsonValue::Type type)
{
    switch (type) {
    case QJsonValue::Bool:
        return CamDataFile::tr("ein Wahrheitswert (true oder false)");
    case QJsonValue::Double:
        return CamDataFile::tr("eine Zahl");
    case QJsonValue::String:
        return CamDataFile::tr("ein Text");
    case QJsonValue::Array:
        return CamDataFile::tr("eine Liste");
    case QJsonValue::Object:
        return CamDataFile::tr("ein Objekt");
    default:
        return QString();
    }
}

// Why the bytes hold no cam definition data; empty when they do, and the
// object is read.
QString whatIsWrong(const QString &path, const QByteArray &bytes, QJsonObject *read)
{
    QJsonObject object;
    if (CamDataFile::isTextJsonPath(path)) {
        QJsonParseError error;
        const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
        if (error.error != QJsonParseError::NoError)
            return CamDataFile::tr("Fehler im JSON-Text an Position %1: %2").arg(error.offset).arg(error.errorString());
        if (!document.isObject())
            return CamDataFile::tr("Das JSON-Dokument ist kein Objekt.");
        object = document.object();
    } else {
        bool valid = false;
        object = CamDataFile::parseBinary(bytes, &valid);
        if (!valid) {
            QString reason = CamDataFile::tr("Die Datei enthält kein binäres JSON-Objekt (Qt 5).");
            // The editor saves text whatever the suffix; say so where that is what the file holds.
            if (QJsonDocument::fromJson(bytes).isObject())
                reason += QLatin1Char(' ') + CamDataFile::tr("Sie enthält JSON-Text; mit der Endung „.json“ "
                                                             "lässt sie sich öffnen.");
            return reason;
        }
    }
    QJsonValue::Type expected = QJsonValue::Undefined;
    const QString member = CamDescriptionImplementation::wrongMember(object, &expected);
    if (!member.isEmpty())
        return CamDataFile::tr("„%1“ hat den falschen Typ; erwartet wird %2.").arg(member, typeName(expected));
    *read = object;
    return QString();
}

} // namespace

QString CamDataFile::damagedFileMessage(const QString &path, const QString &reason)
{
    return tr("Die Datei „%1“ enthält keine gültigen Kurvendefinitionsdaten und wurde nicht geladen.\n%2")
        .arg(QFileInfo(path).fileName(), reason);
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
    QJsonObject object;
    const QString reason = whatIsWrong(path, file.readAll(), &object);
    if (status)
        *status = reason.isEmpty() ? ReadStatus::Loaded : ReadStatus::Invalid;
    if (errorString)
        *errorString = reason;
    return object;
}

bool CamDataFile::save(const QJsonObject &data, const QString &path, QString *errorString)
{
    // Every write is checked: a full disk is reported with the system's
    // reason, and the old file stays as it was.
    return VxUtilities::AtomicFileWriter::write(path, QJsonDocument(data).toJson(QJsonDocument::Indented),
                                                errorString);
}
