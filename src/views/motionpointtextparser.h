#pragma once

#include "model/motionpoint.h"

#include <QString>
#include <QVector>

// Reads motion points from pasted text: one point per line, master and
// slave separated by a tab or a semicolon, each with a decimal point or a
// decimal comma, optionally a third column with a segment type's data name
// ("rest", "speed", "turningPoint", "acceleration") and then, as the point
// table copies them, a section law's data name, an inflection and a set
// velocity, each of them may be empty. A first line that is
// not a point is a header and skipped; blank lines are skipped; any other
// line that is not a point is counted as invalid.
class MotionPointTextParser
{
public:
    struct Row {
        double master = 0.0;
        double slave = 0.0;
        // MotionPoint::movementRules, or NoType where the line names none.
        int type = NoType;
        int sectionLaw = MotionPoint::Poly5;
        double inflection = MotionPoint::DefaultInflection;
        bool hasVelocity = false;
        double velocity = 0.0;
    };
    static constexpr int NoType = -1;

    explicit MotionPointTextParser(const QString &text);

    const QVector<Row> &rows() const { return m_rows; }
    int invalidLineCount() const { return m_invalid; }
    bool hasHeader() const { return m_header; }

    // One cell as a number: decimal point or comma, no grouping; false for
    // anything else (also infinities and NaN).
    static bool parseNumber(const QString &cell, double *value);

private:
    bool parseLine(const QString &line, Row *row) const;

    QVector<Row> m_rows;
    int m_invalid = 0;
    bool m_header = false;
};
