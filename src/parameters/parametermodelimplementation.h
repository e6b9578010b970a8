#pragma once

#include "parametermodel.h"

#include "parameterdefinition.h"

#include <QPointer>

namespace MxParameterInstance {
class ParameterContainer;
class ParameterInformation;
}
class SaveParameterProgress;

class ParameterModelImplementation : public ParameterModel
{
    Q_OBJECT
public:
    using eLivingSpace = MxParameterDefinition::eLivingSpace;
    using ParameterAddress = MxParameterDefinition::ParameterAddress;
    using ParameterCoordinate = MxParameterDefinition::ParameterCoordinate;

    static constexpr int CamTableCount = 16;

    // container: the drive's parameters; livingSpace: where this editor reads
    // and writes (0 drive-wide, axis a is a + 1).
    ParameterModelImplementation(QObject *parent, MxParameterInstance::ParameterContainer *container,
                                 unsigned short camTable, eLivingSpace livingSpace);
    ~ParameterModelImplementation() override;

    // Array coordinates of a table; empty outside 0..15.
    static ParameterCoordinate masterArrayOf(int camTable);
    static ParameterCoordinate slaveArrayOf(int camTable);
    // The stored grid point counts, one element per table.
    static ParameterCoordinate countCoordinate();
    // The CRC-32 of the table stored for camTable, over the bytes the stamp
    // is made of; that of no bytes without a container.
    static quint32 storedTableCrc(MxParameterInstance::ParameterContainer *container, eLivingSpace livingSpace,
                                  int camTable);

    unsigned short camTable() const override { return m_camTable; }
    eLivingSpace livingSpace() const { return m_livingSpace; }
    QString masterCoordinateText() const override { return m_masterArray.toText(); }
    QString slaveCoordinateText() const override { return m_slaveArray.toText(); }

    QString masterValueToText(double value) const override;
    QString slaveValueToText(double value) const override;
    double masterTextToValue(const QString &text) const override;
    double slaveTextToValue(const QString &text) const override;

    QString checkMasterValue(double value) const override;
    QString checkMasterValue(double value, double minimum) const override;
    QString checkSlaveValue(double value) const override;
    QString checkSlaveValue(double value, double minimum) const override;

    int masterDecimalPlaces() const override { return m_masterDecimalPlaces; }
    int slaveDecimalPlaces() const override { return m_slaveDecimalPlaces; }
    QString masterUnit() const override { return m_masterUnit; }
    QString slaveUnit() const override { return m_slaveUnit; }
    double masterMinimum() const { return m_masterMinimum; }
    double masterMaximum() const { return m_masterMaximum; }
    double slaveMinimum() const { return m_slaveMinimum; }
    double slaveMaximum() const { return m_slaveMaximum; }

    int storedGridPointCount() const override;
    QPolygonF storedGridPoints() const override { return m_storedPositions; }
    QPolygonF storedVelocities() const override { return m_storedVelocities; }
    QPolygonF storedAccelerations() const override { return m_storedAccelerations; }
    QPolygonF storedJerks() const override { return m_storedJerks; }
    QString storedTableSummary() const override;
    QString storedTableDamage() const override;
    // The most grid points a table may have: what the count parameter can
    // hold, and never more than a 16-bit count.
    int maximumGridPointCount() const;

    bool isOnline() const override;
    bool isReadOnly() const override;

    QString tableRefusal(const QVector<QPointF> &points) const override;
    void writeGridPoints(const QVector<QPointF> &points) override;
    bool isWriting() const override { return m_writing; }
    void deleteGridPoints() override;
    void editorOpened() override;
    void editorClosed() override;

    double roundMaster(double value) const override;
    double roundSlave(double value) const override;
    // Empty when point i may be written, otherwise the message naming the
    // element and the limit.
    QString checkGridPoint(int index, const QPointF &point) const;
    // CRC-32 over the stored table as the stamp covers it.
    quint32 computeCrc() const;
    SaveParameterProgress *saveProgress() const { return m_saveProgress; }

signals:
    void saveProgressed(int master, int slave, int count);

public slots:
    void setConnections() override;
    void updateCrC();
    void onParameterChanged(const MxParameterDefinition::ParameterAddress &changedAddress);
    void updateDecimalPlacesMaster();
    void updateMasterUnit();
    void updateSlaveUnit();
    void updateDecimalPlacesSlave();
    void onValueOfDecimalPlacesChanged();

protected:
    // The drive is about to go on- or offline, and has done so.
    virtual void onConnectionSetToChange();
    virtual void onConnectionChanged();

private slots:
    void updateLimits();

private:
    MxParameterInstance::ParameterInformation *definition(const ParameterCoordinate &coordinate) const;
    QString readText(const ParameterCoordinate &coordinate, int element, bool displayText = false) const;
    QString checkValue(double rounded, int index, const ParameterCoordinate &array, double minimum,
                       double maximum) const;
    QString limitMessage(double value, double minimum, double maximum, const QString &unit, bool master) const;
    void connectArrayChanges();
    void disconnectArrayChanges();
    void readBackGridPoints();
    void flushOutsideChanges();
    // Writes the CRC of the stored table into "G293"; false when the drive
    // refused it or reads back another value.
    bool writeStamp();
    bool mustGrow(int count) const;
    int arraySize(const ParameterCoordinate &array) const;
    QString elementLabel(const ParameterCoordinate &coordinate, int element) const;

    // How a write ended: the drive holds the table (stamp it), the write was
    // refused or broke off (the user was told; no stamp), or the model was
    // destroyed meanwhile (the caller must leave at once).
    enum class WriteOutcome { Written, Refused, Gone };
    // Refusals that need nothing written: read-only, the table, the arrays'
    // sizes, the stamp's element and the limits; shows the message.
    bool refusedUpFront(const QVector<QPointF> &points, bool grow);
    bool growArrays(int count);
    WriteOutcome writeTable(const QVector<QPointF> &points);
    // Each returns the label of the first element the drive refused, or an
    // empty text; *gone is set when the model was destroyed meanwhile.
    QString writeElements(const QStringList &masterTexts, const QStringList &slaveTexts,
                          const QVector<QPointF> &expected, bool *gone);
    QString fillWithZeros(int count, int decimals, bool *gone);
    QString writeBookkeeping(int count);
    // The label of the first element (or the count) that does not read back
    // as expected at the decimal places given; empty when all match.
    QString firstDifference(const QVector<QPointF> &expected, int masterDecimals, int slaveDecimals) const;
    void reportBrokenWrite(const QString &label, bool readBack);
    static bool pauseForEvents(const QPointer<ParameterModelImplementation> &self, int index, int count);

    QPointer<MxParameterInstance::ParameterContainer> m_container;
    eLivingSpace m_livingSpace;
    unsigned short m_camTable;
    ParameterCoordinate m_masterArray;
    ParameterCoordinate m_slaveArray;
    ParameterCoordinate m_masterUnitCoordinate;
    ParameterCoordinate m_slaveUnitCoordinate;
    ParameterCoordinate m_crcCoordinate;
    ParameterCoordinate m_masterDecimalsCoordinate;
    ParameterCoordinate m_slaveDecimalsCoordinate;
    ParameterCoordinate m_masterReferenceCoordinate;
    ParameterCoordinate m_slaveReferenceCoordinate;
    int m_masterDecimalPlaces = 0;
    int m_slaveDecimalPlaces = 0;
    QString m_masterUnit;
    QString m_slaveUnit;
    double m_masterMinimum = 0.0;
    double m_masterMaximum = 0.0;
    double m_slaveMinimum = 0.0;
    double m_slaveMaximum = 0.0;
    QString m_masterMinimumNative;
    QString m_masterMaximumNative;
    QString m_slaveMinimumNative;
    QString m_slaveMaximumNative;
    QPolygonF m_storedPositions;
    QPolygonF m_storedVelocities;
    QPolygonF m_storedAccelerations;
    QPolygonF m_storedJerks;
    SaveParameterProgress *m_saveProgress = nullptr;
    bool m_writing = false;
    bool m_arraysMuted = false;        // own writes are not followed
    bool m_closePending = false;       // editor closed during a write
    bool m_readBackPending = false;    // outside changes wait for one read-back
    // The table of the last verified write, as the drive should hold it, at
    // the decimal places it was written with.
    QVector<QPointF> m_writtenTable;
    int m_writtenMasterDecimals = 0;
    int m_writtenSlaveDecimals = 0;
    bool m_hasWrittenTable = false;
};
