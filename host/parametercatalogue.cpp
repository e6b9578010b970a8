#include "parametercatalogue.h"

#include <limits>

namespace MxSimulation {

namespace {

constexpr int PositionDecimals = 3;
// The cycle time of a cam, in tenths of a millisecond.
constexpr int CycleTimeDecimals = 4;

constexpr qint64 powerOfTen(int exponent)
{
    return exponent == 0 ? 1 : 10 * powerOfTen(exponent - 1);
}
// Grid point positions are 32-bit signed whole numbers in units of the last
// decimal place.
constexpr qint64 PositionMinimum = std::numeric_limits<qint32>::min();
constexpr qint64 PositionMaximum = std::numeric_limits<qint32>::max();

int firstArrayOfTable(int table)
{
    // Tables 0..4 came first; 5..15 were added in a later parameter range.
    return table < 5 ? 283 + 2 * table : 415 + 2 * (table - 5);
}

CatalogueEntry positionArray(int table, bool master)
{
    CatalogueEntry info;
    info.coordinate = master ? masterArrayCoordinate(table) : slaveArrayCoordinate(table);
    info.kind = CatalogueEntry::Number;
    info.decimalPlaces = PositionDecimals;
    info.nativeMinimum = PositionMinimum;
    info.nativeMaximum = PositionMaximum;
    info.defaultElementCount = 1;
    info.maximumElementCount = MaximumArrayElements;
    info.shortText = master ? QStringLiteral("Kurvenscheibe %1 Master-Stützstelle").arg(table)
                            : QStringLiteral("Kurvenscheibe %1 Slave-Stützstelle").arg(table);
    info.unitParameter = master ? QStringLiteral("G49") : QStringLiteral("I09");
    return info;
}

CatalogueEntry tableArray(const QString &coordinate, CatalogueEntry::Kind kind, qint64 maximum,
                         const QString &shortText)
{
    CatalogueEntry info;
    info.coordinate = coordinate;
    info.kind = kind;
    info.nativeMinimum = 0;
    info.nativeMaximum = maximum;
    info.defaultElementCount = CamTableCount;
    info.maximumElementCount = CamTableCount;
    info.shortText = shortText;
    return info;
}

CatalogueEntry positionUnit(const QString &coordinate, bool perAxis, qint64 defaultUnit, const QString &shortText)
{
    CatalogueEntry info;
    info.coordinate = coordinate;
    info.kind = CatalogueEntry::Enumeration;
    info.perAxis = perAxis;
    info.names = QStringList { QStringLiteral("Inc"), QStringLiteral("mm"), QStringLiteral("°"),
                               QStringLiteral("µm"), QStringLiteral("U") };
    info.nativeMinimum = 0;
    info.nativeMaximum = info.names.size() - 1;
    info.defaultNative = defaultUnit;
    info.shortText = shortText;
    return info;
}

CatalogueEntry decimalPlaces(const QString &coordinate, bool perAxis, const QString &shortText)
{
    CatalogueEntry info;
    info.coordinate = coordinate;
    info.kind = CatalogueEntry::Number;
    info.perAxis = perAxis;
    info.nativeMinimum = 0;
    info.nativeMaximum = 6;
    info.defaultNative = PositionDecimals;
    info.shortText = shortText;
    return info;
}

// A per-axis number the editor needs to show velocities in revolutions per
// minute (the feed of the output and the gear between motor and output).
CatalogueEntry axisNumber(const QString &coordinate, int decimals, qint64 nativeDefault, const QString &shortText,
                          const QString &unitParameter = QString())
{
    CatalogueEntry info;
    info.coordinate = coordinate;
    info.kind = CatalogueEntry::Number;
    info.perAxis = true;
    info.decimalPlaces = decimals;
    info.nativeMinimum = 1;
    info.nativeMaximum = std::numeric_limits<qint32>::max();
    info.defaultNative = nativeDefault;
    info.shortText = shortText;
    info.unitParameter = unitParameter;
    return info;
}

// A setting of each cam table's editor, one element per table: how the
// editor scales the curve over time is kept in the drive with the table.
CatalogueEntry tableSetting(const QString &coordinate, const QStringList &names, const QString &shortText)
{
    CatalogueEntry info = tableArray(coordinate, CatalogueEntry::Enumeration, names.size() - 1, shortText);
    info.names = names;
    return info;
}

} // namespace

QString masterArrayCoordinate(int table)
{
    return QStringLiteral("G%1").arg(firstArrayOfTable(table));
}

QString slaveArrayCoordinate(int table)
{
    return QStringLiteral("G%1").arg(firstArrayOfTable(table) + 1);
}

QList<CatalogueEntry> parameterCatalogue()
{
    QList<CatalogueEntry> catalogue;
    for (int table = 0; table < CamTableCount; ++table) {
        catalogue.append(positionArray(table, true));
        catalogue.append(positionArray(table, false));
    }
    catalogue.append(tableArray(QStringLiteral("G68"), CatalogueEntry::Number, MaximumArrayElements,
                                QStringLiteral("Anzahl Stützstellen")));
    catalogue.append(tableArray(QStringLiteral("G60"), CatalogueEntry::Text, 0,
                                QStringLiteral("Referenz Master-Stützstellen")));
    catalogue.append(tableArray(QStringLiteral("G61"), CatalogueEntry::Text, 0,
                                QStringLiteral("Referenz Slave-Stützstellen")));
    CatalogueEntry crc = tableArray(QStringLiteral("G293"), CatalogueEntry::Number,
                                   std::numeric_limits<quint32>::max(), QStringLiteral("Prüfsumme Stützstellen"));
    crc.defaultElementCount = 1;
    catalogue.append(crc);
    catalogue.append(decimalPlaces(QStringLiteral("G46"), false, QStringLiteral("Nachkommastellen Master-Position")));
    catalogue.append(decimalPlaces(QStringLiteral("I06"), true, QStringLiteral("Nachkommastellen Slave-Position")));
    catalogue.append(positionUnit(QStringLiteral("G49"), false, 2, QStringLiteral("Einheit Master-Position")));
    catalogue.append(positionUnit(QStringLiteral("I09"), true, 1, QStringLiteral("Einheit Slave-Position")));
    catalogue.append(axisNumber(QStringLiteral("I07"), PositionDecimals, 360000,
                                QStringLiteral("Weg pro Abtriebsumdrehung"), QStringLiteral("I09")));
    catalogue.append(axisNumber(QStringLiteral("I12"), 0, 1, QStringLiteral("Getriebe Motorumdrehungen")));
    catalogue.append(axisNumber(QStringLiteral("I13"), 0, 1, QStringLiteral("Getriebe Abtriebsumdrehungen")));
    catalogue.append(tableSetting(QStringLiteral("G437"),
                                  { QStringLiteral("Master-Einheit"), QStringLiteral("Zykluszeit") },
                                  QStringLiteral("Kurvenscheibe Skalierung Master-Achse")));
    CatalogueEntry cycleTime = tableArray(QStringLiteral("G438"), CatalogueEntry::Number,
                                          std::numeric_limits<qint32>::max(), QStringLiteral("Kurvenscheibe Zykluszeit"));
    cycleTime.decimalPlaces = CycleTimeDecimals;
    cycleTime.nativeMinimum = 1;
    cycleTime.defaultNative = powerOfTen(CycleTimeDecimals);  // 1 s
    cycleTime.unit = QStringLiteral("s");
    catalogue.append(cycleTime);
    catalogue.append(tableSetting(QStringLiteral("G439"),
                                  { QStringLiteral("Master-Slave"), QStringLiteral("Upm-Abtrieb"),
                                    QStringLiteral("Upm-Motor") },
                                  QStringLiteral("Kurvenscheibe Skalierung Geschwindigkeit")));
    return catalogue;
}

} // namespace MxSimulation
