#pragma once

#include "mxcamdesigner_export.h"

#include <QObject>

#include <cmath>

// The editor's view of the drive's position scaling. The curve calculation
// reads only the decimal places of positions and the resolution derived from
// them; the drive parameter binding supplies the implementation.
class MXCAMDESIGNER_EXPORT Scaling : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~Scaling() override = default;

    // Decimal places of positions as the drive stores them.
    virtual int decimalPlaces() const = 0;

    // The smallest position step the drive can store: 10 to the power of
    // minus the decimal places.
    double positionResolution() const { return std::pow(10.0, -decimalPlaces()); }
};
