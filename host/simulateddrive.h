#pragma once

#include "parametercatalogue.h"
#include "parameterinstance.h"

#include <QHash>
#include <QMap>
#include <QStringList>
#include <QVector>

#include <memory>

namespace MxSimulation {

class SimulatedParameter;

// A drive controller without hardware: the parameters of the catalogue, the
// online and read-only states, and a drive project file in which the values
// persist. Tests and the command-line tool use it as the host's container.
class SimulatedDrive : public MxParameterInstance::ParameterContainer
{
    Q_OBJECT
public:
    using eLivingSpace = MxParameterDefinition::eLivingSpace;
    using ParameterCoordinate = MxParameterDefinition::ParameterCoordinate;

    struct WriteRecord {
        QString coordinate;
        int element;
        QString text;
    };

    static constexpr int MaximumAxes = 16;

    explicit SimulatedDrive(int axisCount = 2, QObject *parent = nullptr);
    ~SimulatedDrive() override;

    int axisCount() const { return m_axisCount; }

    QString readValue(eLivingSpace livingSpace, const ParameterCoordinate &coordinate, int element,
                      bool displayText = false) const override;
    QString readValueNative(eLivingSpace livingSpace, const ParameterCoordinate &coordinate, int element,
                            bool displayText = false) const override;
    bool writeValue(eLivingSpace livingSpace, const ParameterCoordinate &coordinate, int element,
                    const QString &text) override;
    bool writeValueNative(eLivingSpace livingSpace, const ParameterCoordinate &coordinate, int element,
                          const QString &text) override;
    bool isOnline() const override { return m_online; }
    bool isReadOnly() const override { return m_readOnly; }
    MxParameterInstance::ParameterInformation *definition(const ParameterCoordinate &coordinate) const override;

    // Each announces the pending change, changes, then announces the change.
    void setOnline(bool online);
    void setReadOnly(bool readOnly);

    // Narrows or widens the limits of a number parameter (native values).
    bool setNativeLimits(const QString &coordinate, qint64 minimum, qint64 maximum);

    // Drive project file (text JSON). A missing file leaves the fresh drive
    // and succeeds; a damaged one fails with a reason and changes nothing.
    bool load(const QString &path, QString *errorString);
    // Replaces the file atomically; on failure the old file stays.
    bool save(const QString &path, QString *errorString) const;
    QByteArray toJson() const;
    bool fromJson(const QByteArray &json, QString *errorString);

    // Failure hooks, counted in accepted element writes from now on; a
    // negative count switches the hook off.
    void failWritesAfter(int writes);
    void goOnlineAfterWrites(int writes);
    void goReadOnlyAfterWrites(int writes);
    // Refuses every enlargement of an element count after the given number
    // of accepted ones, as a drive short of memory does (shrinking is still
    // taken); negative switches it off.
    void refuseGrowthAfter(int growths);

    // Accepted element writes (value or native) per coordinate text.
    int elementWrites(const QString &coordinate) const { return m_writeCounts.value(coordinate); }
    int totalElementWrites() const { return m_writeLog.size(); }
    const QVector<WriteRecord> &writeLog() const { return m_writeLog; }
    void clearWriteCounts();

private:
    struct Values {
        QVector<qint64> numbers;
        QStringList texts;
    };
    struct Entry {
        CatalogueEntry info;
        int elementCount = 1;
        QMap<int, Values> values;  // keyed by living space (0 for drive-wide)
    };
    using Entries = QHash<int, Entry>;

    friend class SimulatedParameter;

    static Entries freshEntries(int axisCount);
    const Entry *entry(const ParameterCoordinate &coordinate) const;
    const Values *values(const Entry &entry, eLivingSpace livingSpace) const;
    bool resize(Entry &entry, int count);
    void announceDefinition(int key);
    QString unitOf(const Entry &entry, eLivingSpace livingSpace) const;
    bool acceptWrite(eLivingSpace livingSpace, const ParameterCoordinate &coordinate, int element,
                     const QString &text, bool native);
    void afterWrite(const QString &coordinate, int element, const QString &text);

    int m_axisCount;
    bool m_online = false;
    bool m_readOnly = false;
    Entries m_entries;
    // Created once; listeners stay connected when a file replaces the values.
    QHash<int, SimulatedParameter *> m_information;
    QHash<QString, int> m_writeCounts;
    QVector<WriteRecord> m_writeLog;
    int m_writesDone = 0;
    int m_failFrom = -1;
    int m_onlineAt = -1;
    int m_readOnlyAt = -1;
    int m_growthsDone = 0;
    int m_refuseGrowthFrom = -1;
};

} // namespace MxSimulation
