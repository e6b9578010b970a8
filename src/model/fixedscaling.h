#pragma once

#include "scaling.h"

// A scaling with fixed decimal places, for use where no drive is bound (the
// command-line tool, tests, benchmarks).
class MXCAMDESIGNER_EXPORT FixedScaling : public Scaling
{
    Q_OBJECT
public:
    explicit FixedScaling(int decimalPlaces, QObject *parent = nullptr)
        : Scaling(parent)
        , m_decimalPlaces(decimalPlaces)
    {
    }

    int decimalPlaces() const override { return m_decimalPlaces; }

private:
    int m_decimalPlaces;
};
