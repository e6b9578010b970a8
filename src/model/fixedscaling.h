#pragma once

#include "scaling.h"

// A scaling with fixed decimal places, for use where no drive is bound (the
// command-line tool, tests, benchmarks). Texts use "." and carry no unit.
class FixedScaling : public Scaling
{
    Q_OBJECT
public:
    explicit FixedScaling(int decimalPlaces, QObject *parent = nullptr)
        : Scaling(parent)
        , m_decimalPlaces(decimalPlaces)
    {
    }

    int decimalPlaces() const override { return m_decimalPlaces; }

    QString masterPositionToText(double position) const override
    {
        return QString::number(position, 'f', m_decimalPlaces);
    }
    QString slavePositionToText(double position) const override
    {
        return QString::number(position, 'f', m_decimalPlaces);
    }
    double masterTextToPosition(const QString &text) const override { return text.toDouble(); }
    double slaveTextToPosition(const QString &text) const override { return text.toDouble(); }

private:
    int m_decimalPlaces;
};
