#include "driveproject.h"

#include "atomicfilewriter.h"
#include "parametercatalogue.h"
#include "simulateddrive.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

const QString FormatName = QStringLiteral("MxDriveProject");
constexpr int FormatVersion = 1;
const QString FormatKey = QStringLiteral("Format");
const QString VersionKey = QStringLiteral("Version");
const QString DriveKey = QStringLiteral("Drive");
const QString DescriptionsKey = QStringLiteral("CamDescriptions");
const QString MotionPointsKey = QStringLiteral("MotionPoints");
constexpr int DriveAxes = 2;

// Everything a cam table keeps in the drive: both arrays of every table, the
// per-table bookkeeping and the editor's scaling of each table (master axis,
// cycle time, velocity). A change of one of them is a change of the project.
QStringList tableCoordinates()
{
    QStringList coordinates { QStringLiteral("G68"), QStringLiteral("G60"), QStringLiteral("G61"),
                              QStringLiteral("G293"), QStringLiteral("G437"), QStringLiteral("G438"),
                              QStringLiteral("G439") };
    for (int table = 0; table < MxSimulation::CamTableCount; ++table)
        coordinates << MxSimulation::masterArrayCoordinate(table) << MxSimulation::slaveArrayCoordinate(table);
    return coordinates;
}

bool readDocument(const QString &path, QJsonObject *root, QString *errorString)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *errorString = DriveProject::tr("Die Datei „%1“ kann nicht gelesen werden: %2")
                           .arg(QFileInfo(path).fileName(), file.errorString());
        return false;
    }
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &parseError);
    if (!document.isObject() || document.object().value(FormatKey).toString() != FormatName
        || document.object().value(VersionKey).toInt() != FormatVersion) {
        *errorString = DriveProject::tr("Die Datei „%1“ ist kein Antriebsprojekt oder ist beschädigt.")
                           .arg(QFileInfo(path).fileName());
        return false;
    }
    *root = document.object();
    return true;
}

bool descriptionsFromJson(const QJsonValue &json, QVector<QJsonObject> *descriptions)
{
    if (!json.isUndefined() && !json.isObject())
        return false;
    QVector<QJsonObject> read(DriveProject::TableCount);
    const QJsonObject tables = json.toObject();
    for (auto it = tables.begin(); it != tables.end(); ++it) {
        bool isNumber = false;
        const int table = it.key().toInt(&isNumber);
        if (!isNumber || table < 0 || table >= DriveProject::TableCount || !it.value().isObject())
            return false;
        read[table] = it.value().toObject();
    }
    *descriptions = read;
    return true;
}

} // namespace

DriveProject::DriveProject(QObject *parent)
    : QObject(parent)
    , m_drive(std::make_unique<MxSimulation::SimulatedDrive>(DriveAxes))
    , m_descriptions(TableCount)
{
    watchDrive();
}

DriveProject::~DriveProject() = default;

std::unique_ptr<DriveProject> DriveProject::open(const QString &path, QString *errorString)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *errorString = tr("Die Datei „%1“ kann nicht gelesen werden: %2")
                           .arg(QFileInfo(path).fileName(), file.errorString());
        return nullptr;
    }
    auto project = std::make_unique<DriveProject>();
    QString reason;
    if (!project->fromJson(file.readAll(), &reason)) {
        *errorString = tr("Die Datei „%1“ ist kein Antriebsprojekt oder ist beschädigt.")
                           .arg(QFileInfo(path).fileName());
        if (!reason.isEmpty())
            *errorString += QLatin1Char('\n') + reason;
        return nullptr;
    }
    project->m_path = QFileInfo(path).absoluteFilePath();
    return project;
}

bool DriveProject::readDescriptions(const QString &path, QVector<QJsonObject> *descriptions, QString *errorString)
{
    QJsonObject root;
    if (!readDocument(path, &root, errorString))
        return false;
    if (!descriptionsFromJson(root.value(DescriptionsKey), descriptions)) {
        *errorString = tr("Die Datei „%1“ ist kein Antriebsprojekt oder ist beschädigt.")
                           .arg(QFileInfo(path).fileName());
        return false;
    }
    return true;
}

bool DriveProject::fromJson(const QByteArray &json, QString *errorString)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    const QJsonObject root = document.object();
    if (!document.isObject() || root.value(FormatKey).toString() != FormatName
        || root.value(VersionKey).toInt() != FormatVersion || !root.value(DriveKey).isObject())
        return false;
    QVector<QJsonObject> descriptions;
    if (!descriptionsFromJson(root.value(DescriptionsKey), &descriptions))
        return false;
    // The drive checks its own part and changes nothing when it is damaged.
    if (!m_drive->fromJson(QJsonDocument(root.value(DriveKey).toObject()).toJson(), errorString))
        return false;
    m_descriptions = descriptions;
    setModified(false);
    return true;
}

QByteArray DriveProject::toJson() const
{
    QJsonObject tables;
    for (int table = 0; table < TableCount; ++table) {
        const QJsonObject &description = m_descriptions.at(table);
        if (!description.value(MotionPointsKey).toArray().isEmpty())
            tables.insert(QString::number(table), description);
    }
    QJsonObject root;
    root.insert(FormatKey, FormatName);
    root.insert(VersionKey, FormatVersion);
    root.insert(DriveKey, QJsonDocument::fromJson(m_drive->toJson()).object());
    root.insert(DescriptionsKey, tables);
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

bool DriveProject::save(const QString &path, QString *errorString)
{
    QString reason;
    if (!VxUtilities::AtomicFileWriter::write(path, toJson(), &reason)) {
        *errorString = tr("Das Projekt kann nicht nach „%1“ gespeichert werden: %2")
                           .arg(QFileInfo(path).fileName(), reason);
        return false;
    }
    m_path = QFileInfo(path).absoluteFilePath();
    setModified(false);
    return true;
}

QString DriveProject::displayName() const
{
    return m_path.isEmpty() ? tr("Unbenannt") : QFileInfo(m_path).fileName();
}

QByteArray DriveProject::descriptionBytes(int table) const
{
    const QJsonObject description = m_descriptions.value(table);
    if (description.isEmpty())
        return QByteArray();
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    return QJsonDocument(description).toBinaryData();
    QT_WARNING_POP
}

void DriveProject::setDescription(int table, const QJsonObject &description)
{
    if (table < 0 || table >= TableCount || m_descriptions.at(table) == description)
        return;
    m_descriptions[table] = description;
    setModified(true);
}

void DriveProject::setModified(bool modified)
{
    if (m_modified == modified)
        return;
    m_modified = modified;
    emit modifiedChanged(modified);
}

void DriveProject::watchDrive()
{
    for (const QString &text : tableCoordinates()) {
        MxParameterInstance::ParameterInformation *information =
            m_drive->definition(MxParameterDefinition::ParameterCoordinate(text));
        if (!information)
            continue;
        connect(information, &MxParameterInstance::ParameterInformation::valueChanged, this,
                [this] { setModified(true); });
        connect(information, &MxParameterInstance::ParameterInformation::definitionChanged, this,
                [this] { setModified(true); });
    }
}
