#include "boundtable.h"
#include "messagecapture.h"

#include <QLocale>
#include <QtTest>

#include <zlib.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <utility>

namespace {

constexpr int LivingSpace = BoundTable::LivingSpace;
constexpr int ArrayDecimals = 3;        // the simulated drive keeps positions in thousandths
constexpr int MaximumCount = 16000;     // what its arrays and its count hold
constexpr int Cases = 500;
const char ReplayVariable[] = "MX_WRITE_SEED";

using Coordinate = MxParameterDefinition::ParameterCoordinate;

// The table as the stamp covers it: the count and the elements below it.
QStringList tableOf(BoundTable &bound)
{
    const int count = bound.tableValue("G68").toInt();
    QStringList table { bound.tableValue("G68") };
    for (int i = 0; i < count; ++i)
        table << bound.drive.readValueNative(LivingSpace, bound.master(), i)
              << bound.drive.readValueNative(LivingSpace, bound.slave(), i);
    return table;
}

QString stampOf(BoundTable &bound)
{
    // An element the stamp array does not have yet reads as the zero it gets.
    const QString stamp = bound.drive.readValueNative(LivingSpace, coordinate("G293"), bound.table);
    return stamp.isEmpty() ? QStringLiteral("0") : stamp;
}

// The standard CRC-32 the stamp is, computed here without the model.
QString crcOf(BoundTable &bound)
{
    const QStringList table = tableOf(bound);
    QByteArray buffer;
    for (int i = 0; 2 * i + 2 < table.size(); ++i)
        buffer += QByteArray::number(i) + table.at(2 * i + 1).toUtf8() + table.at(2 * i + 2).toUtf8();
    return QString::number(crc32(crc32(0L, Z_NULL, 0), reinterpret_cast<const Bytef *>(buffer.constData()),
                                 static_cast<uInt>(buffer.size())));
}

// The native value the drive holds for a text the editor writes.
QString nativeOfText(const QString &text)
{
    return QString::number(std::llround(text.toDouble() * std::pow(10.0, ArrayDecimals)));
}

double roundedHalfAway(double value, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    return std::round(value * scale) / scale;
}

class Case
{
public:
    explicit Case(quint64 seed)
        : m_random(seed)
    {
    }

    // Empty when the attempt kept the promise, otherwise what broke it.
    QString run();
    // Whether the drive took the table (else the user was told).
    bool written() const { return m_written; }

private:
    int uniform(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }
    double real(double low, double high) { return std::uniform_real_distribution<double>(low, high)(m_random); }
    bool chance(double p) { return std::bernoulli_distribution(p)(m_random); }
    double position();
    QVector<QPointF> table(int count);
    void prepare(BoundTable &bound, QString *start);
    QString checkWritten(BoundTable &bound, const QVector<QPointF> &points, int masterSize, int slaveSize);
    QString checkRewrite(BoundTable &bound, MessageCapture &capture, QVector<QPointF> points);
    static QString checkDelete(BoundTable &bound);

    std::mt19937_64 m_random;
    int m_masterDecimals = 3;
    int m_slaveDecimals = 3;
    bool m_written = false;
};

double Case::position()
{
    const int decimals = uniform(0, 6);
    const double value = roundedHalfAway(real(-2000.0, 2000.0), decimals);
    return chance(0.002) ? value * 2.0e4 : value;  // now and then beyond the limits
}

QVector<QPointF> Case::table(int count)
{
    QVector<QPointF> points;
    points.reserve(count);
    for (int i = 0; i < count; ++i)
        points.append(QPointF(position(), position()));
    if (count > 0 && chance(0.05)) {
        const double odd[] = { std::nan(""), std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity() };
        QPointF &point = points[uniform(0, count - 1)];
        (chance(0.5) ? point.rx() : point.ry()) = odd[uniform(0, 2)];
    }
    return points;
}

void Case::prepare(BoundTable &bound, QString *start)
{
    switch (uniform(0, 3)) {
    case 0:
        *start = QStringLiteral("empty");
        return;
    case 1: {
        *start = QStringLiteral("editor-stamped");
        QVector<QPointF> own;
        for (int i = 0, count = uniform(1, 40); i < count; ++i)
            own.append(QPointF(roundedHalfAway(real(-500, 500), std::min(m_masterDecimals, ArrayDecimals)),
                               roundedHalfAway(real(-500, 500),
                                               std::min({ m_masterDecimals, m_slaveDecimals, ArrayDecimals }))));
        bound.model().writeGridPoints(own);
        return;
    }
    default:
        break;
    }
    // Another tool's table, or a damaged one: a count beyond the arrays, or
    // arrays of unequal length under a count that fits only one.
    const bool damaged = chance(0.5);
    const int size = uniform(1, 40);
    const int shorter = damaged && chance(0.5) ? uniform(1, size) : size;
    const bool masterShort = chance(0.5);
    bound.resize(masterShort ? shorter : size, masterShort ? size : shorter);
    for (int i = 0; i < size; ++i) {
        bound.drive.writeValueNative(LivingSpace, bound.master(), i, QString::number(uniform(-100000, 100000)));
        bound.drive.writeValueNative(LivingSpace, bound.slave(), i, QString::number(uniform(-100000, 100000)));
    }
    const int count = damaged ? size + uniform(shorter == size ? 1 : 0, 5) : uniform(0, size);
    bound.drive.writeValue(LivingSpace, coordinate("G68"), bound.table, QString::number(count));
    if (bound.definition(coordinate("G293"))->elementCount() <= bound.table)
        bound.definition(coordinate("G293"))->setElementCount(bound.table + 1);
    bound.drive.writeValueNative(LivingSpace, coordinate("G293"), bound.table, QString::number(uniform(0, 1 << 30)));
    *start = damaged ? QStringLiteral("damaged") : QStringLiteral("foreign");
}

QString Case::checkWritten(BoundTable &bound, const QVector<QPointF> &points, int masterSize, int slaveSize)
{
    const int count = points.size();
    if (bound.tableValue("G68") != QString::number(count))
        return QStringLiteral("count %1 instead of %2").arg(bound.tableValue("G68")).arg(count);
    const QString references = bound.tableValue("G60") + QLatin1Char(' ') + bound.tableValue("G61");
    const QString arrays = QStringLiteral("%1.%2 %1.%3").arg(LivingSpace).arg(bound.master().toText(), bound.slave().toText());
    if (references != arrays)
        return QStringLiteral("array references %1").arg(references);
    // Only both arrays too short grow, to the count; one too short refuses.
    const bool grow = masterSize < count && slaveSize < count;
    const int masterAfter = bound.definition(bound.master())->elementCount();
    const int slaveAfter = bound.definition(bound.slave())->elementCount();
    if (masterAfter != (grow ? count : masterSize) || slaveAfter != (grow ? count : slaveSize))
        return QStringLiteral("arrays of %1/%2 elements became %3/%4")
            .arg(masterSize)
            .arg(slaveSize)
            .arg(masterAfter)
            .arg(slaveAfter);
    const QStringList masters = bound.natives(bound.master());
    const QStringList slaves = bound.natives(bound.slave());
    if (masters.size() < count || slaves.size() < count)
        return QStringLiteral("arrays of %1/%2 elements hold no %3 points").arg(masters.size()).arg(slaves.size()).arg(count);
    for (int i = 0; i < count; ++i) {
        // The slave text has the master's decimal places, as the editor writes it.
        const QString master = QString::number(roundedHalfAway(points.at(i).x(), m_masterDecimals), 'f', m_masterDecimals);
        const QString slave = QString::number(roundedHalfAway(points.at(i).y(), m_slaveDecimals), 'f', m_masterDecimals);
        if (masters.at(i) != nativeOfText(master) || slaves.at(i) != nativeOfText(slave))
            return QStringLiteral("element %1 holds %2/%3 for %4/%5").arg(i).arg(masters.at(i), slaves.at(i), master, slave);
    }
    // Beyond the table each slave element is zeroed before its master.
    const auto log = bound.drive.writeLog();
    for (int k = 0; k < log.size(); ++k) {
        const int j = log.at(k).element;
        if (log.at(k).coordinate != bound.master().toText() || j < count || j >= slaves.size())
            continue;
        if (k == 0 || log.at(k - 1).coordinate != bound.slave().toText() || log.at(k - 1).element != j)
            return QStringLiteral("master element %1 beyond the table zeroed before its slave").arg(j);
    }
    for (int j = count; j < masters.size(); ++j) {
        if (masters.at(j) != QLatin1String("0") || (j < slaves.size() && slaves.at(j) != QLatin1String("0")))
            return QStringLiteral("element %1 beyond the table holds %2/%3").arg(j).arg(masters.at(j), slaves.value(j));
    }
    const QString stamp = bound.drive.readValueNative(LivingSpace, coordinate("G293"), bound.table);
    if (stamp != crcOf(bound))
        return QStringLiteral("stamp %1, the table's CRC is %2").arg(stamp, crcOf(bound));
    if (!bound.model().storedTableDamage().isEmpty())
        return QStringLiteral("written table reads as damaged: %1").arg(bound.model().storedTableDamage());
    return QString();
}

// Written again with one slave changed by one unit of what the drive shows:
// that element alone is written, whatever the locale reads back. (A
// truncating comparison once took 1.001 for the stored 1.000; random values
// seldom meet that, tst_parametermodelgerman holds the case.)
QString Case::checkRewrite(BoundTable &bound, MessageCapture &capture, QVector<QPointF> points)
{
    const int i = uniform(0, points.size() - 1);
    const int shown = std::min({ m_masterDecimals, m_slaveDecimals, ArrayDecimals });
    const double unit = std::pow(10.0, -shown);
    points[i].ry() = roundedHalfAway(points.at(i).y(), shown) + (chance(0.5) ? unit : -unit);
    const int masterSize = bound.definition(bound.master())->elementCount();
    const int slaveSize = bound.definition(bound.slave())->elementCount();
    bound.drive.clearWriteCounts();
    bound.model().writeGridPoints(points);
    if (capture.count() != 0)
        return QStringLiteral("the rewrite was refused: %1").arg(capture.last().text);
    QStringList written;
    for (const auto &record : bound.drive.writeLog()) {
        if ((record.coordinate == bound.master().toText() || record.coordinate == bound.slave().toText())
            && record.element < points.size())
            written << QStringLiteral("%1[%2]").arg(record.coordinate).arg(record.element);
    }
    if (written != QStringList(QStringLiteral("%1[%2]").arg(bound.slave().toText()).arg(i)))
        return QStringLiteral("the rewrite of slave %1 wrote %2").arg(i).arg(written.join(QLatin1Char(' ')));
    return checkWritten(bound, points, masterSize, slaveSize);
}

// Deleted offline, the table is one zero element in each array, without a
// count or references; online nothing changes.
QString Case::checkDelete(BoundTable &bound)
{
    const QByteArray before = bound.drive.toJson();
    const bool online = bound.drive.isOnline();
    bound.model().deleteGridPoints();
    if (online)
        return bound.drive.toJson() == before ? QString() : QStringLiteral("an online delete changed the drive");
    const QString left = QStringList { bound.tableValue("G68"), bound.tableValue("G60"), bound.tableValue("G61"),
                                       bound.natives(bound.master()).join(QLatin1Char(' ')),
                                       bound.natives(bound.slave()).join(QLatin1Char(' ')) }
                             .join(QLatin1Char('|'));
    if (left != QLatin1String("0|||0|0") || !bound.model().storedGridPoints().isEmpty())
        return QStringLiteral("the deleted table left %1").arg(left);
    return QString();
}

QString Case::run()
{
    BoundTable bound(uniform(0, 15));
    m_masterDecimals = uniform(0, 4);
    m_slaveDecimals = uniform(0, 4);
    bound.drive.writeValue(0, coordinate("G46"), 0, QString::number(m_masterDecimals));
    bound.drive.writeValue(LivingSpace, coordinate("I06"), 0, QString::number(m_slaveDecimals));
    QLocale::setDefault(chance(0.5) ? QLocale(QLocale::German, QLocale::Germany) : QLocale::c());
    MessageCapture capture;
    QString start;
    prepare(bound, &start);
    if (capture.count() != 0)
        return QStringLiteral("the starting table was refused: %1").arg(capture.last().text);

    int count = uniform(0, 60);
    const int size = uniform(0, 99);
    if (size < 12)
        count = uniform(60, 400);
    else if (size < 17)
        count = uniform(MaximumCount + 1, 70000);  // beyond the drive; 70000 is 4464 in 16 bits
    else if (size < 18)
        count = MaximumCount - uniform(0, 1);
    const QVector<QPointF> points = table(count);

    // The drive's faults, each counted from the start of the write (-1 ends them).
    using Drive = MxSimulation::SimulatedDrive;
    const std::pair<const char *, void (Drive::*)(int)> delayed[] = {
        { "writes fail after", &Drive::failWritesAfter }, { "writes fail after", &Drive::failWritesAfter },
        { "read-only after", &Drive::goReadOnlyAfterWrites }, { "online after", &Drive::goOnlineAfterWrites },
        { "growth refused after", &Drive::refuseGrowthAfter } };
    QString fault = QStringLiteral("none");
    const int kind = uniform(0, 9);
    if (kind < 5) {
        const int after = uniform(0, kind == 4 ? 1 : 2 * count + 8);
        fault = QStringLiteral("%1 %2").arg(QLatin1String(delayed[kind].first)).arg(after);
        (bound.drive.*delayed[kind].second)(after);
    } else if (kind == 5) {
        fault = QStringLiteral("read-only");
        bound.drive.setReadOnly(true);
    } else if (kind == 6) {
        fault = QStringLiteral("online");
        bound.drive.setOnline(true);
    }

    const QString context = QStringLiteral("[%1 start, %2 points, decimals %3/%4, fault: %5] ")
                                .arg(start)
                                .arg(count)
                                .arg(m_masterDecimals)
                                .arg(m_slaveDecimals)
                                .arg(fault);
    const QStringList tableBefore = tableOf(bound);
    const QString stampBefore = stampOf(bound);
    const QByteArray driveBefore = bound.drive.toJson();
    const int masterSize = bound.definition(bound.master())->elementCount();
    const int slaveSize = bound.definition(bound.slave())->elementCount();
    const QString crcBefore = crcOf(bound);
    bound.drive.clearWriteCounts();
    capture.clear();
    bound.model().writeGridPoints(points);
    for (const auto &trigger : delayed)
        (bound.drive.*trigger.second)(-1);

    bool refusable = count == 0 || count > MaximumCount || fault == QLatin1String("read-only");
    for (const QPointF &point : points)
        refusable = refusable || !std::isfinite(point.x()) || !std::isfinite(point.y());
    if (capture.count() > 1)
        return context + QStringLiteral("%1 messages for one write").arg(capture.count());
    if (capture.count() == 0) {
        if (refusable)
            return context + QStringLiteral("a table the drive cannot take was written without a word");
        m_written = true;
        QString broken = checkWritten(bound, points, masterSize, slaveSize);
        const bool healthy = fault == QLatin1String("none") || fault == QLatin1String("online");
        if (broken.isEmpty() && healthy && chance(0.5))
            broken = checkRewrite(bound, capture, points);
        if (broken.isEmpty() && healthy && chance(0.3))
            broken = checkDelete(bound);
        return broken.isEmpty() ? QString() : context + broken;
    }

    // The user was told: the stamp is what it was, and nothing was lost
    // without a word.
    if (stampOf(bound) != stampBefore)
        return context + QStringLiteral("refused write changed the stamp: %1").arg(capture.last().text);
    // A table the drive cannot take is refused before anything changes.
    if (refusable && bound.drive.toJson() != driveBefore)
        return context + QStringLiteral("a refusable table changed the drive (%1 element writes)")
                             .arg(bound.drive.totalElementWrites());
    // A table changed by a broken write must not pass for one the stamp
    // vouched for.
    if (tableOf(bound) != tableBefore && crcBefore == stampBefore && crcOf(bound) == stampBefore)
        return context + QStringLiteral("a broken write left a table that passes for the editor's");
    return QString();
}

} // namespace

// Random tables written into a simulated drive with random faults, from
// random starting tables. After every attempt either the drive holds exactly
// what was written under the editor's stamp, or the user got one message and
// the stamp is as it was (and a table changed by a broken write no longer
// passes for the editor's). The seed of a failing case is printed; the
// variable MX_WRITE_SEED replays it alone.
class TestGridPointWriteFaults : public QObject
{
    Q_OBJECT
private slots:
    void everyWriteIsExactOrTold()
    {
        const QByteArray replay = qgetenv(ReplayVariable);
        const quint64 first = replay.isEmpty() ? 0x5eed0000u : replay.toULongLong();
        const int cases = replay.isEmpty() ? Cases : 1;
        int failures = 0;
        int written = 0;
        for (quint64 seed = first; seed < first + quint64(cases); ++seed) {
            Case attempt(seed);
            const QString failure = attempt.run();
            written += attempt.written() ? 1 : 0;
            if (failure.isEmpty())
                continue;
            ++failures;
            qWarning("seed %llu (replay with %s=%llu): %s", seed, ReplayVariable, seed, qPrintable(failure));
        }
        QLocale::setDefault(QLocale::c());
        qInfo("%d of %d writes taken by the drive", written, cases);
        QCOMPARE(failures, 0);
        // Both outcomes are exercised, or the cases say little.
        if (replay.isEmpty())
            QVERIFY(written > Cases / 5 && written < Cases * 4 / 5);
    }
};

QTEST_GUILESS_MAIN(TestGridPointWriteFaults)
#include "tst_gridpointwritefaults.moc"
