// Writing the grid point table of ParameterModelImplementation: the refusals
// before anything is written, the element writes, the bookkeeping, the
// read-back and the stamp.
#include "parametermodelimplementation.h"

#include "saveparameterprogress.h"

#include <messagebox.h>
#include "curves/positionrounding.h"

#include "parameterinstance.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QStringList>

#include <cmath>
#include <limits>

using MxParameterInstance::ParameterInformation;

namespace {

class WaitCursor
{
public:
    WaitCursor()
        : m_active(qobject_cast<QGuiApplication *>(QCoreApplication::instance()) != nullptr)
    {
        if (m_active)
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
    ~WaitCursor()
    {
        if (m_active)
            QGuiApplication::restoreOverrideCursor();
    }
    WaitCursor(const WaitCursor &) = delete;
    WaitCursor &operator=(const WaitCursor &) = delete;

private:
    bool m_active;
};

} // namespace

int ParameterModelImplementation::maximumGridPointCount() const
{
    // The count is a 16-bit number in the drive, and "G68" holds no more than
    // its upper limit, which is what the arrays can grow to.
    int maximum = std::numeric_limits<quint16>::max();
    if (const ParameterInformation *count = definition(countCoordinate())) {
        bool ok = false;
        const double upper = count->upperLimit(m_livingSpace).toDouble(&ok);
        if (ok && upper >= 0.0 && upper < maximum)
            maximum = int(upper);
    }
    return maximum;
}

QString ParameterModelImplementation::tableRefusal(const QVector<QPointF> &points) const
{
    // An empty table would zero every element, and a value that is not a
    // number has no text the drive could store: neither is ever written.
    if (points.isEmpty())
        return tr("Die Stützstellentabelle ist leer; eine leere Tabelle wird nicht in den Antrieb geschrieben.");
    for (int i = 0; i < points.size(); ++i) {
        const QPointF &point = points.at(i);
        if (!std::isfinite(point.x()) || !std::isfinite(point.y()))
            return tr("Die Stützstelle %1 hat keinen endlichen Wert (Master %2, Slave %3); die Tabelle wird nicht "
                      "in den Antrieb geschrieben.")
                .arg(i)
                .arg(QString::number(point.x()), QString::number(point.y()));
    }
    const int maximum = maximumGridPointCount();
    if (points.size() > maximum)
        return tr("Die Tabelle hat %1 Stützstellen, der Antrieb nimmt höchstens %2 Stützstellen auf.")
            .arg(points.size())
            .arg(maximum);
    return QString();
}

int ParameterModelImplementation::arraySize(const ParameterCoordinate &array) const
{
    const ParameterInformation *information = definition(array);
    return information ? information->elementCount() : 0;
}

QString ParameterModelImplementation::elementLabel(const ParameterCoordinate &coordinate, int element) const
{
    const ParameterInformation *information = definition(coordinate);
    const QString name = information && !information->text(element).shortText().isEmpty()
        ? information->text(element).shortText()
        : coordinate.toText();
    return name + QStringLiteral(" [") + QString::number(element) + QLatin1Char(']');
}

void ParameterModelImplementation::writeGridPoints(const QVector<QPointF> &points)
{
    // The window disables its writing controls meanwhile; a call that still
    // gets through while the write processes events is refused silently.
    if (m_writing)
        return;
    // By value: the cam may be edited while the write processes events.
    const QVector<QPointF> table = points;
    // Outside changes announced before the write are followed before it.
    flushOutsideChanges();
    const QPointer<ParameterModelImplementation> self(this);
    const WaitCursor waitCursor;
    m_writing = true;
    emit writeProcessStarted();
    if (!self)
        return;
    const WriteOutcome outcome = writeTable(table);
    if (outcome == WriteOutcome::Gone || !self)
        return;  // gone with its owner; the destructor told the end

    // We stamp only after a verified write, not at the end of every attempt:
    // the stamp tells a later session "the editor wrote exactly this table",
    // and a refused or broken write would otherwise give another tool's
    // table, or half of ours, the editor's name.
    if (outcome == WriteOutcome::Written) {
        m_hasWrittenTable = writeStamp();
        if (!m_hasWrittenTable)
            reportBrokenWrite(elementLabel(m_crcCoordinate, m_camTable), false);
        if (!self)
            return;
    }
    m_writing = false;
    if (m_closePending) {
        m_closePending = false;
        editorClosed();
    }
    emit writeProcessFinished();
}

bool ParameterModelImplementation::refusedUpFront(const QVector<QPointF> &points, bool grow)
{
    const QString title = tr("Schreiben in Parameter nicht möglich");
    auto refuse = [&title](const QString &text, const QString &ownTitle = QString()) {
        MessageBox::warning(nullptr, ownTitle.isEmpty() ? title : ownTitle, text);
        return true;
    };
    if (m_container->isReadOnly())
        return refuse(tr("Antriebsregler ist schreibgeschützt."));
    const QString refusal = tableRefusal(points);
    if (!refusal.isEmpty())
        return refuse(refusal);
    const int count = points.size();
    if (grow && m_container->isOnline())
        return refuse(tr("Die Stützstellen-Arrays müssen vergrößert werden, dies benötigt ein Neustart der "
                         "Konfiguration, bitte gehen sie offline und schreiben sie erneut."),
                      tr("Ändern des Parameters nicht möglich"));
    for (const ParameterCoordinate &array : { m_masterArray, m_slaveArray }) {
        if (!definition(array))
            return refuse(tr("Das Stützstellen-Array der Kurvenscheibe %1 fehlt im Antrieb.").arg(m_camTable));
        // Only both arrays being too short makes them grow (kept as the editor
        // has always decided it); a single short array is no longer written
        // past its end but refused, as its missing elements would be lost.
        if (!grow && arraySize(array) < count)
            return refuse(tr("Das Stützstellen-Array %1 hat %2 Elemente, die Tabelle hat %3 Stützstellen. Die "
                             "Tabelle wird nicht geschrieben.")
                              .arg(array.toText())
                              .arg(arraySize(array))
                              .arg(count));
    }
    // The stamp needs its element; online it cannot be added, and a table
    // that cannot be stamped is not written.
    const ParameterInformation *stamp = definition(m_crcCoordinate);
    if (!stamp || (stamp->elementCount() <= m_camTable && m_container->isOnline()))
        return refuse(tr("Die Prüfsumme der Kurvenscheibe %1 (%2) hat kein Element für diese Tabelle, bitte gehen "
                         "sie offline und schreiben sie erneut.")
                          .arg(m_camTable)
                          .arg(m_crcCoordinate.toText()));
    for (int i = 0; i < count; ++i) {
        const QString message = checkGridPoint(i, points.at(i));
        if (!message.isEmpty())
            return refuse(message);
    }
    return false;
}

bool ParameterModelImplementation::growArrays(int count)
{
    QVector<QPair<ParameterInformation *, int>> grown;
    for (const ParameterCoordinate &array : { m_masterArray, m_slaveArray }) {
        ParameterInformation *information = definition(array);
        const int before = information->elementCount();
        if (before >= count)
            continue;
        if (information->setElementCount(count) && information->elementCount() == count) {
            grown.append({ information, before });
            continue;
        }
        // The drive refused: the arrays go back to what they were, so that a
        // refused write leaves the drive as it found it.
        for (const auto &undo : grown)
            undo.first->setElementCount(undo.second);
        MessageBox::warning(nullptr, tr("Ändern des Parameters nicht möglich"),
                            tr("Der Antrieb hat das Vergrößern des Stützstellen-Arrays %1 auf %2 Elemente abgelehnt. "
                               "Die Tabelle wurde nicht geschrieben.")
                                .arg(array.toText())
                                .arg(count));
        return false;
    }
    return true;
}

ParameterModelImplementation::WriteOutcome ParameterModelImplementation::writeTable(const QVector<QPointF> &points)
{
    const QPointer<ParameterModelImplementation> self(this);
    if (!m_container)
        return WriteOutcome::Refused;
    const int count = points.size();
    const bool grow = mustGrow(count);
    if (refusedUpFront(points, grow))
        return self ? WriteOutcome::Refused : WriteOutcome::Gone;

    // Taken once: a change of the decimal places while events are processed
    // must not round the rest of the table differently.
    const int masterDecimals = m_masterDecimalPlaces;
    const int slaveDecimals = m_slaveDecimalPlaces;
    QStringList masterTexts;
    QStringList slaveTexts;
    QVector<QPointF> expected;
    expected.reserve(count);
    for (const QPointF &point : points) {
        masterTexts.append(QString::number(PositionRounding::rounded(point.x(), masterDecimals), 'f', masterDecimals));
        // The slave text takes the master's decimal places. Deliberate and
        // kept as the editor has always written it: with fewer master than
        // slave places the slave loses digits (the tests pin this). The drive
        // is expected to hold what the text says.
        slaveTexts.append(QString::number(PositionRounding::rounded(point.y(), slaveDecimals), 'f', masterDecimals));
        expected.append(QPointF(masterTexts.constLast().toDouble(), slaveTexts.constLast().toDouble()));
    }

    if (m_saveProgress)
        m_saveProgress->show();
    if (grow && !growArrays(count)) {
        if (self && m_saveProgress)
            m_saveProgress->hide();
        return self ? WriteOutcome::Refused : WriteOutcome::Gone;
    }
    disconnectArrayChanges();
    m_arraysMuted = true;
    bool gone = false;
    QString failed = writeElements(masterTexts, slaveTexts, expected, &gone);
    if (!gone && failed.isEmpty())
        failed = fillWithZeros(count, masterDecimals, &gone);
    if (gone || !self)
        return WriteOutcome::Gone;

    if (m_saveProgress)
        m_saveProgress->hide();
    m_arraysMuted = false;
    connectArrayChanges();
    if (!m_container)
        return WriteOutcome::Refused;
    if (failed.isEmpty())
        failed = writeBookkeeping(count);
    if (grow)
        emit sizeChanged();
    readBackGridPoints();
    emit valueChanged();
    if (!self)
        return WriteOutcome::Gone;
    if (!failed.isEmpty()) {
        reportBrokenWrite(failed, false);
        return self ? WriteOutcome::Refused : WriteOutcome::Gone;
    }
    // We read back the count and every element before stamping, as a drive
    // may accept a value and hold another one.
    const QString differing = firstDifference(expected, masterDecimals, slaveDecimals);
    if (!differing.isEmpty()) {
        reportBrokenWrite(differing, true);
        return self ? WriteOutcome::Refused : WriteOutcome::Gone;
    }
    m_writtenTable = expected;
    m_writtenMasterDecimals = masterDecimals;
    m_writtenSlaveDecimals = slaveDecimals;
    return WriteOutcome::Written;
}

QString ParameterModelImplementation::writeElements(const QStringList &masterTexts, const QStringList &slaveTexts,
                                                    const QVector<QPointF> &expected, bool *gone)
{
    const QPointer<ParameterModelImplementation> self(this);
    const int masterDecimals = m_masterDecimalPlaces;
    const int slaveDecimals = m_slaveDecimalPlaces;
    const int count = expected.size();
    for (int i = 0; i < count; ++i) {
        // Unchanged elements are not written. They are compared at the drive's
        // resolution by rounding: a truncating comparison took 1.001 for the
        // stored 1.000 and kept the old value. The stored text is read as the
        // drive gives it (the system locale's decimal point), not by a fixed
        // German locale, which takes "1.000" for a thousand.
        const double storedMaster = masterTextToValue(readText(m_masterArray, i));
        if (!PositionRounding::sameUnit(storedMaster, expected.at(i).x(), masterDecimals)
            && !m_container->writeValue(m_livingSpace, m_masterArray, i, masterTexts.at(i)))
            return elementLabel(m_masterArray, i);
        const double storedSlave = slaveTextToValue(readText(m_slaveArray, i));
        if (!pauseForEvents(self, i, count)) {
            *gone = !self;
            return self ? elementLabel(m_slaveArray, i) : QString();
        }
        if (!PositionRounding::sameUnit(storedSlave, expected.at(i).y(), slaveDecimals)
            && !m_container->writeValue(m_livingSpace, m_slaveArray, i, slaveTexts.at(i)))
            return elementLabel(m_slaveArray, i);
    }
    return QString();
}

QString ParameterModelImplementation::fillWithZeros(int count, int decimals, bool *gone)
{
    const QPointer<ParameterModelImplementation> self(this);
    const QString zero = QString::number(0.0, 'f', decimals);
    for (int j = count; j < arraySize(m_masterArray); ++j) {
        // A slave array shorter than the master array has no element j; we
        // skip it rather than count its refusal as a broken write.
        if (j < arraySize(m_slaveArray) && !m_container->writeValue(m_livingSpace, m_slaveArray, j, zero))
            return elementLabel(m_slaveArray, j);
        if (!m_container->writeValue(m_livingSpace, m_masterArray, j, zero))
            return elementLabel(m_masterArray, j);
        if (!pauseForEvents(self, j, count)) {
            *gone = !self;
            return self ? elementLabel(m_masterArray, j) : QString();
        }
    }
    return QString();
}

QString ParameterModelImplementation::writeBookkeeping(int count)
{
    if (!m_container->writeValue(m_livingSpace, countCoordinate(), m_camTable, QString::number(count, 10)))
        return elementLabel(countCoordinate(), m_camTable);
    const QString space = QString::number(m_livingSpace);
    const ParameterInformation *master = definition(m_masterArray);
    const ParameterInformation *slave = definition(m_slaveArray);
    if (!m_container->writeValue(m_livingSpace, m_masterReferenceCoordinate, m_camTable,
                                 QStringLiteral("%1.%2").arg(space, master ? master->address().toText() : QString())))
        return elementLabel(m_masterReferenceCoordinate, m_camTable);
    if (!m_container->writeValue(m_livingSpace, m_slaveReferenceCoordinate, m_camTable,
                                 QStringLiteral("%1.%2").arg(space, slave ? slave->address().toText() : QString())))
        return elementLabel(m_slaveReferenceCoordinate, m_camTable);
    return QString();
}

QString ParameterModelImplementation::firstDifference(const QVector<QPointF> &expected, int masterDecimals,
                                                      int slaveDecimals) const
{
    if (storedGridPointCount() != expected.size() || !storedTableDamage().isEmpty())
        return elementLabel(countCoordinate(), m_camTable);
    for (int i = 0; i < expected.size(); ++i) {
        if (!PositionRounding::sameUnit(masterTextToValue(readText(m_masterArray, i)), expected.at(i).x(),
                                        masterDecimals))
            return elementLabel(m_masterArray, i);
        if (!PositionRounding::sameUnit(slaveTextToValue(readText(m_slaveArray, i)), expected.at(i).y(),
                                        slaveDecimals))
            return elementLabel(m_slaveArray, i);
    }
    return QString();
}

void ParameterModelImplementation::reportBrokenWrite(const QString &label, bool readBack)
{
    const QString text = readBack
        ? tr("Parameter: %1 enthält nach dem Schreiben nicht den geschriebenen Wert. Die Stützstellen im Antrieb "
             "werden nicht als vom Kurvenscheibeneditor geschrieben gekennzeichnet.")
        : tr("Parameter: %1 konnte nicht geschrieben werden, das Schreiben wurde abgebrochen. Die Stützstellen im "
             "Antrieb werden nicht als vom Kurvenscheibeneditor geschrieben gekennzeichnet.");
    MessageBox::warning(nullptr, tr("Schreiben in Parameter nicht möglich"), text.arg(label));
}
