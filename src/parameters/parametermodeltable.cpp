// The table procedures of ParameterModelImplementation: reading back,
// checking, deleting and summarising the grid point arrays, and following
// outside changes, and the stamp. The write is in parametermodelwrite.cpp.
#include "parametermodelimplementation.h"

#include "curves/motionplan.h"

#include "bytearraysupport.h"
#include "parameterinstance.h"

#include <QCoreApplication>

#include <cmath>

using MxParameterInstance::ParameterInformation;

namespace {

const char NotWrittenByEditor[] = QT_TRANSLATE_NOOP(
    "ParameterModelImplementation",
    "<html><head/><body><p> Stützstellenwerte wurden nicht vom Kurvenscheibeneditor beschrieben.</p></body></html>");
const char SummaryTemplate[] = QT_TRANSLATE_NOOP(
    "ParameterModelImplementation",
    "<html><head/><body><p>Stützstellen Parameter: </p><p>\tAnzahl: %SumParameter%</p><p>\tErstes Element:</p>"
    "<p>\t\tMaster: %FirstMasterValue% </p><p>\t\tSlave: %FirstSlaveValue%</p><p>\tLetztes Element:</p>"
    "<p>\t\tMaster: %LastMasterValue% </p><p>Slave: %LastSlaveValue%</p></body></html>");

// The derivatives of the stored table follow the plan's difference rule;
// the last point repeats the last slope so that each stored point has one.
// Any zero or undefined master step gives nothing.
QPolygonF differences(const QPolygonF &points)
{
    for (int k = 0; k + 1 < points.size(); ++k) {
        const double dx = points.at(k + 1).x() - points.at(k).x();
        if (dx == 0.0 || std::isnan(dx))
            return QPolygonF();
    }
    QPolygonF result = MotionPlan::differenceQuotient(points);
    if (!result.isEmpty())
        result.append(QPointF(points.constLast().x(), result.constLast().y()));
    return result;
}

} // namespace

int ParameterModelImplementation::storedGridPointCount() const
{
    return readText(countCoordinate(), m_camTable).toInt();
}

quint32 ParameterModelImplementation::computeCrc() const
{
    return storedTableCrc(m_container, m_livingSpace, m_camTable);
}

// The buffer: per stored point its index, its native master and its native
// slave text, one after the other.
quint32 ParameterModelImplementation::storedTableCrc(MxParameterInstance::ParameterContainer *container,
                                                     eLivingSpace livingSpace, int camTable)
{
    QByteArray buffer;
    if (container) {
        const int count = container->readValue(livingSpace, countCoordinate(), camTable, false)
                              .toInt();
        const ParameterCoordinate masterArray = masterArrayOf(camTable);
        const ParameterCoordinate slaveArray = slaveArrayOf(camTable);
        for (int i = 0; i < count; ++i) {
            buffer += QByteArray::number(i);
            buffer += container->readValueNative(livingSpace, masterArray, i, false).toUtf8();
            buffer += container->readValueNative(livingSpace, slaveArray, i, false).toUtf8();
        }
    }
    return VxByteArraySupport::ByteArraySupport(buffer, true).crc32();
}

void ParameterModelImplementation::readBackGridPoints()
{
    m_storedPositions.clear();
    m_storedVelocities.clear();
    m_storedAccelerations.clear();
    m_storedJerks.clear();
    if (m_container) {
        // The count is read again for every element, as an outside change
        // may shorten the table while it is read. A count beyond the arrays
        // is damage (see storedTableDamage), not a table padded with zeros.
        for (int i = 0; i < storedGridPointCount() && i < arraySize(m_masterArray) && i < arraySize(m_slaveArray);
             ++i) {
            m_storedPositions.append(QPointF(masterTextToValue(readText(m_masterArray, i)),
                                             slaveTextToValue(readText(m_slaveArray, i))));
        }
    }
    m_storedVelocities = differences(m_storedPositions);
    m_storedAccelerations = differences(m_storedVelocities);
    m_storedJerks = differences(m_storedAccelerations);
}

bool ParameterModelImplementation::mustGrow(int count) const
{
    // Only both arrays being too short makes them grow; with one long enough
    // neither grows. Deliberate and kept; the tests pin it. The write then
    // refuses a table longer than the shorter array instead of losing the
    // elements that array cannot hold.
    const ParameterInformation *master = definition(m_masterArray);
    const ParameterInformation *slave = definition(m_slaveArray);
    return master && slave && master->elementCount() < count && slave->elementCount() < count;
}

void ParameterModelImplementation::deleteGridPoints()
{
    if (!m_container || m_container->isOnline() || m_writing)
        return;
    for (const ParameterCoordinate &coordinate :
         { m_masterReferenceCoordinate, m_slaveReferenceCoordinate, countCoordinate() })
        m_container->writeValue(m_livingSpace, coordinate, m_camTable, QString());
    for (const ParameterCoordinate &array : { m_masterArray, m_slaveArray }) {
        if (ParameterInformation *information = definition(array))
            information->setElementCount(1);
    }
    m_container->writeValue(m_livingSpace, m_masterArray, 0, QStringLiteral("0"));
    m_container->writeValue(m_livingSpace, m_slaveArray, 0, QStringLiteral("0"));
    // A followed change of element 0 is told before the deletion's own signals.
    flushOutsideChanges();
    m_hasWrittenTable = false;
    readBackGridPoints();
    emit sizeChanged();
    emit valueChanged();
}

QString ParameterModelImplementation::storedTableDamage() const
{
    const int count = storedGridPointCount();
    if (!m_container || count <= 0)
        return QString();
    for (const ParameterCoordinate &array : { m_masterArray, m_slaveArray }) {
        if (!definition(array))
            return tr("Die Anzahl der Stützstellen ist %1, aber das Stützstellen-Array der Kurvenscheibe %2 fehlt.")
                .arg(count)
                .arg(m_camTable);
        if (arraySize(array) < count)
            return tr("Die Anzahl der Stützstellen ist %1, aber das Stützstellen-Array %2 hat nur %3 Elemente.")
                .arg(count)
                .arg(array.toText())
                .arg(arraySize(array));
    }
    return QString();
}

QString ParameterModelImplementation::storedTableSummary() const
{
    // Damage is told whatever the size of the table.
    const QString damage = storedTableDamage();
    const QString damaged = damage.isEmpty()
        ? QString()
        : tr("<html><head/><body><p> Die Stützstellentabelle ist beschädigt: %1</p></body></html>")
              .arg(damage.toHtmlEscaped());
    if (m_storedPositions.size() < 3)
        return damaged;
    const QString firstMaster = masterValueToText(m_storedPositions.constFirst().x());
    const QString firstSlave = slaveValueToText(m_storedPositions.constFirst().y());
    const QString lastMaster = masterValueToText(m_storedPositions.constLast().x());
    const QString lastSlave = slaveValueToText(m_storedPositions.constLast().y());

    QString summary;
    const quint32 stamp = m_container
        ? m_container->readValueNative(m_livingSpace, m_crcCoordinate, m_camTable, false).toUInt(nullptr, 10)
        : 0;
    // A table of fewer than two points is never taken for a foreign one.
    if (storedGridPointCount() >= 2 && computeCrc() != stamp)
        summary = tr(NotWrittenByEditor);
    QString text = tr(SummaryTemplate);
    text.replace(QStringLiteral("%SumParameter%"), QString::number(m_storedPositions.size()), Qt::CaseSensitive);
    text.replace(QStringLiteral("%FirstMasterValue%"), firstMaster, Qt::CaseSensitive);
    text.replace(QStringLiteral("%FirstSlaveValue%"), firstSlave, Qt::CaseSensitive);
    text.replace(QStringLiteral("%LastMasterValue%"), lastMaster, Qt::CaseSensitive);
    text.replace(QStringLiteral("%LastSlaveValue%"), lastSlave, Qt::CaseSensitive);
    return damaged + summary + text;
}

void ParameterModelImplementation::onParameterChanged(const MxParameterDefinition::ParameterAddress &changedAddress)
{
    const int number = changedAddress.coordinate().toNumber();
    if ((number != m_masterArray.toNumber() && number != m_slaveArray.toNumber())
        || changedAddress.axis() != m_livingSpace - 1)
        return;
    // Another tool changing a whole table announces every element; one
    // read-back after the burst serves them all (one per element would be
    // quadratic in the table size).
    if (m_readBackPending)
        return;
    m_readBackPending = true;
    QMetaObject::invokeMethod(this, &ParameterModelImplementation::flushOutsideChanges, Qt::QueuedConnection);
}

void ParameterModelImplementation::flushOutsideChanges()
{
    if (!m_readBackPending)
        return;
    m_readBackPending = false;
    // The stamp stays as it is: it vouches only for what the editor wrote and
    // read back, so another tool's change shows as not written by the editor.
    readBackGridPoints();
    emit valueChanged();
}

bool ParameterModelImplementation::pauseForEvents(const QPointer<ParameterModelImplementation> &self, int index,
                                                  int count)
{
    // The window stays alive while the write runs; whatever the user does
    // meanwhile may close the editor's owner and with it the model, or the
    // drive may go. The caller touches nothing once this returns false.
    QCoreApplication::processEvents();
    if (self && self->m_container)
        emit self->saveProgressed(index, index, count);
    if (self && self->m_container)
        QCoreApplication::processEvents();
    return self && self->m_container;
}

bool ParameterModelImplementation::writeStamp()
{
    if (!m_container)
        return false;
    const quint32 crc = computeCrc();
    ParameterInformation *information = definition(m_crcCoordinate);
    if (!information)
        return false;
    if (information->elementCount() <= m_camTable && !m_container->isOnline())
        information->setElementCount(m_camTable + 1);
    const QString text = QString::number(crc, 10);
    return m_container->writeValueNative(m_livingSpace, m_crcCoordinate, m_camTable, text)
        && m_container->readValueNative(m_livingSpace, m_crcCoordinate, m_camTable, false) == text;
}

void ParameterModelImplementation::updateCrC()
{
    // Only the table the editor wrote last, still held exactly as written,
    // gets the editor's stamp; any other table keeps the stamp it has.
    if (m_hasWrittenTable
        && firstDifference(m_writtenTable, m_writtenMasterDecimals, m_writtenSlaveDecimals).isEmpty())
        writeStamp();
}
