#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace MxSimulation {

// What the simulated drive knows about one parameter.
struct CatalogueEntry {
    enum Kind { Number, Enumeration, Text };

    QString coordinate;
    Kind kind = Number;
    bool perAxis = false;  // "I" parameters: one value per axis
    int decimalPlaces = 0;
    qint64 nativeMinimum = 0;
    qint64 nativeMaximum = 0;
    int defaultElementCount = 1;
    int maximumElementCount = 1;
    qint64 defaultNative = 0;
    QString shortText;
    QString unit;               // fixed unit of a number, or
    QString unitParameter;      // the enumerated parameter that names the unit
    QStringList names;          // names of enumerated values
};

// Every parameter the cam editor uses: the 16 pairs of grid point arrays,
// the per-table bookkeeping arrays, the position units and precision, the
// feed and gear of each axis, and the per-table scaling of the editor
// ("G437" master axis scaling, "G438" cycle time, "G439" velocity scaling).
QList<CatalogueEntry> parameterCatalogue();

// Grid point arrays of a cam table (0..15): master odd, slave the next even.
QString masterArrayCoordinate(int table);
QString slaveArrayCoordinate(int table);

constexpr int CamTableCount = 16;
constexpr int MaximumArrayElements = 16000;

} // namespace MxSimulation
