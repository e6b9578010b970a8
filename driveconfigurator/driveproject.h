#pragma once

#include <QJsonObject>
#include <QObject>
#include <QVector>

#include <memory>

namespace MxSimulation {
class SimulatedDrive;
}

// One drive of the configurator: the simulated drive's parameters and the cam
// definition data of its 16 cam tables, kept in one text JSON file:
//   { "Format": "MxDriveProject", "Version": 1,
//     "Drive": <the drive's own file object>,
//     "CamDescriptions": { "0": <cam definition data>, ... } }
// Tables without motion points are left out of "CamDescriptions".
class DriveProject : public QObject
{
    Q_OBJECT
public:
    static constexpr int TableCount = 16;
    // The living space of the drive's first axis, in which the editors work.
    static constexpr int LivingSpace = 1;

    explicit DriveProject(QObject *parent = nullptr);
    ~DriveProject() override;

    // A project read from a file; null with a reason when the file cannot be
    // read or is damaged.
    static std::unique_ptr<DriveProject> open(const QString &path, QString *errorString);
    // Only the cam definition data of a project file, for importing from it.
    static bool readDescriptions(const QString &path, QVector<QJsonObject> *descriptions, QString *errorString);

    // Writes atomically; on failure the old file stays. Success clears the
    // modified flag and takes the path.
    bool save(const QString &path, QString *errorString);
    QByteArray toJson() const;

    MxSimulation::SimulatedDrive *drive() const { return m_drive.get(); }
    QString path() const { return m_path; }
    // The file name shown in titles; "Unbenannt" for a new project.
    QString displayName() const;

    QJsonObject description(int table) const { return m_descriptions.value(table); }
    // Qt 5 binary JSON bytes, as the library takes them.
    QByteArray descriptionBytes(int table) const;
    void setDescription(int table, const QJsonObject &description);

    bool isModified() const { return m_modified; }
    void setModified(bool modified);

signals:
    void modifiedChanged(bool modified);

private:
    bool fromJson(const QByteArray &json, QString *errorString);
    void watchDrive();

    std::unique_ptr<MxSimulation::SimulatedDrive> m_drive;
    QVector<QJsonObject> m_descriptions;
    QString m_path;
    bool m_modified = false;
};
