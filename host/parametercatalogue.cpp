#include "parametercatalogue.h"

#include <limits>

namespace MxSimulation {

namespace {

constexpr int PositionDecimals = 3;
// Grid point positions are 32-bit signed whole numbers in units of the last
// decimal place.
constexpr qint64 PositionMinimum = std::numeric_limits<qint32>::min();
constexpr qint64 PositionMaximum = std::numeric_limits<qint32>::max();

int firstArrayOfTable(int table)
{
    // Tables 0..4 came first; 5..15 were added in a later parameter range.
    return table < 5 ? 283 + 2 * table : 415 + 2 * (table - 5);
}

ParameterSpec positionArray(int table, bool master)
{
    ParameterSpec spec;
    spec.coordinate = master ? masterArrayCoordinate(table) : slaveArrayCoordinate(table);
    spec.kind = ParameterSpec::Number;
    spec.decimalPlaces = PositionDecimals;
    spec.nativeMinimum = PositionMinimum;
    spec.nativeMaximum = PositionMaximum;
    spec.defaultElementCount = 1;
    spec.maximumElementCount = MaximumArrayElements;
    spec.shortText = master ? QStringLiteral("Kurvenscheibe %1 Master-Stützstelle").arg(table)
                            : QStringLiteral("Kurvenscheibe %1 Slave-Stützstelle").arg(table);
    spec.unitParameter = master ? QStringLiteral("G49") : QStringLiteral("I09");
    return spec;
}

ParameterSpec tableArray(const QString &coordinate, ParameterSpec::Kind kind, qint64 maximum,
                         const QString &shortText)
{
    ParameterSpec spec;
    spec.coordinate = coordinate;
    spec.kind = kind;
    spec.nativeMinimum = 0;
    spec.nativeMaximum = maximum;
    spec.defaultElementCount = CamTableCount;
    spec.maximumElementCount = CamTableCount;
    spec.shortText = shortText;
    return spec;
}

ParameterSpec positionUnit(const QString &coordinate, bool perAxis, qint64 defaultUnit, const QString &shortText)
{
    ParameterSpec spec;
    spec.coordinate = coordinate;
    spec.kind = ParameterSpec::Enumeration;
    spec.perAxis = perAxis;
    spec.names = QStringList { QStringLiteral("Inc"), QStringLiteral("mm"), QStringLiteral("°"),
                               QStringLiteral("µm"), QStringLiteral("U") };
    spec.nativeMinimum = 0;
    spec.nativeMaximum = spec.names.size() - 1;
    spec.defaultNative = defaultUnit;
    spec.shortText = shortText;
    return spec;
}

ParameterSpec decimalPlaces(const QString &coordinate, bool perAxis, const QString &shortText)
{
    ParameterSpec spec;
    spec.coordinate = coordinate;
    spec.kind = ParameterSpec::Number;
    spec.perAxis = perAxis;
    spec.nativeMinimum = 0;
    spec.nativeMaximum = 6;
    spec.defaultNative = PositionDecimals;
    spec.shortText = shortText;
    return spec;
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

QList<ParameterSpec> parameterCatalogue()
{
    QList<ParameterSpec> catalogue;
    for (int table = 0; table < CamTableCount; ++table) {
        catalogue.append(positionArray(table, true));
        catalogue.append(positionArray(table, false));
    }
    catalogue.append(tableArray(QStringLiteral("G68"), ParameterSpec::Number, MaximumArrayElements,
                                QStringLiteral("Anzahl Stützstellen")));
    catalogue.append(tableArray(QStringLiteral("G60"), ParameterSpec::Text, 0,
                                QStringLiteral("Referenz Master-Stützstellen")));
    catalogue.append(tableArray(QStringLiteral("G61"), ParameterSpec::Text, 0,
                                QStringLiteral("Referenz Slave-Stützstellen")));
    ParameterSpec crc = tableArray(QStringLiteral("G293"), ParameterSpec::Number,
                                   std::numeric_limits<quint32>::max(), QStringLiteral("Prüfsumme Stützstellen"));
    crc.defaultElementCount = 1;
    catalogue.append(crc);
    catalogue.append(decimalPlaces(QStringLiteral("G46"), false, QStringLiteral("Nachkommastellen Master-Position")));
    catalogue.append(decimalPlaces(QStringLiteral("I06"), true, QStringLiteral("Nachkommastellen Slave-Position")));
    catalogue.append(positionUnit(QStringLiteral("G49"), false, 2, QStringLiteral("Einheit Master-Position")));
    catalogue.append(positionUnit(QStringLiteral("I09"), true, 1, QStringLiteral("Einheit Slave-Position")));
    return catalogue;
}

} // namespace MxSimulation
