#include "motionpointtextparser.h"

#include "model/decimaltext.h"
#include "model/motionpoint.h"

#include <QRegularExpression>
#include <QStringList>

MotionPointTextParser::MotionPointTextParser(const QString &text)
{
    const QStringList lines = text.split(QRegularExpression(QStringLiteral("\r\n|\n|\r")));
    bool first = true;
    for (const QString &line : lines) {
        if (line.trimmed().isEmpty())
            continue;
        Row row;
        if (parseLine(line, &row))
            m_rows.append(row);
        else if (first)
            m_header = true;
        else
            ++m_invalid;
        first = false;
    }
}

bool MotionPointTextParser::parseNumber(const QString &cell, double *value)
{
    return DecimalText::parse(cell, value);
}

bool MotionPointTextParser::parseLine(const QString &line, Row *row) const
{
    // A tab separates where there is one, so that a decimal comma never
    // splits a cell; otherwise a semicolon.
    const QChar separator = line.contains(QLatin1Char('\t')) ? QLatin1Char('\t') : QLatin1Char(';');
    QStringList cells = line.split(separator);
    while (!cells.isEmpty() && cells.constLast().trimmed().isEmpty())
        cells.removeLast();
    if (cells.size() < 2 || cells.size() > 6)
        return false;
    if (!parseNumber(cells.at(0), &row->master) || !parseNumber(cells.at(1), &row->slave))
        return false;
    row->type = NoType;
    if (cells.size() >= 3) {
        const QString name = cells.at(2).trimmed();
        const int type = MotionPoint::typeForDataName(name);
        // typeForDataName takes an unknown name for "rest": only the real name counts.
        if (MotionPoint::typeDataName(type) != name)
            return false;
        row->type = type;
    }
    if (cells.size() > 3 && !cells.at(3).trimmed().isEmpty()) {
        const QString name = cells.at(3).trimmed();
        row->sectionLaw = MotionPoint::sectionLawForDataName(name);
        if (MotionPoint::sectionLawDataName(row->sectionLaw) != name)
            return false;
    }
    if (cells.size() > 4 && !cells.at(4).trimmed().isEmpty()) {
        if (!parseNumber(cells.at(4), &row->inflection) || !(row->inflection > 0.0 && row->inflection < 1.0))
            return false;
    }
    if (cells.size() > 5 && !cells.at(5).trimmed().isEmpty()) {
        if (!parseNumber(cells.at(5), &row->velocity))
            return false;
        row->hasVelocity = true;
    }
    return true;
}
