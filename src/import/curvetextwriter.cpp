#include "curvetextwriter.h"

#include "curvetextconverter.h"

#include "atomicfilewriter.h"
#include "curves/positionrounding.h"

#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace {

// The tools these files go to run on Windows.
const QLatin1String LineEnd("\r\n");

// What separates master and slave in the named formats; the free format takes
// the chosen one. CodeSys needs at least one blank behind the semicolon.
const QLatin1String ServoSoftSeparator(";");
const QLatin1String TwinCat2Separator(",");
const QLatin1String CodeSysSeparator("; ");

QLatin1String freeSeparator(int valueSeparator)
{
    switch (valueSeparator) {
    case CurveTextConverter::Semicolon:
        return QLatin1String(";");
    case CurveTextConverter::Comma:
        return QLatin1String(",");
    case CurveTextConverter::Tab:
        return QLatin1String("\t");
    case CurveTextConverter::Blank:
        return QLatin1String(" ");
    default:
        return QLatin1String();
    }
}

// The first index at which the lists differ, or -1.
int firstDifference(const QPolygonF &read, const QPolygonF &expected)
{
    const int common = std::min(read.size(), expected.size());
    for (int i = 0; i < common; ++i) {
        if (read.at(i).x() != expected.at(i).x() || read.at(i).y() != expected.at(i).y())
            return i;
    }
    return read.size() == expected.size() ? -1 : common;
}

} // namespace

CurveTextWriter::CurveTextWriter()
{
    const CurveTextConverter defaults;
    m_format = defaults.format();
    m_decimalSeparator = defaults.decimalSeparator();
    m_valueSeparator = defaults.valueSeparator();
}

void CurveTextWriter::setFormat(int format)
{
    // The converter knows which separators a named format stands for.
    CurveTextConverter converter;
    m_format = format;
    configure(converter);
    m_format = converter.format();
    m_decimalSeparator = converter.decimalSeparator();
    m_valueSeparator = converter.valueSeparator();
}

void CurveTextWriter::setDecimalSeparator(int index)
{
    m_decimalSeparator = index;
}

void CurveTextWriter::setValueSeparator(int index)
{
    m_valueSeparator = index;
}

void CurveTextWriter::configure(CurveTextConverter &converter) const
{
    // The format last: a named one brings its own separators, whatever was
    // chosen for the free format.
    converter.setDecimalSeparator(m_decimalSeparator);
    converter.setValueSeparator(m_valueSeparator);
    converter.setFormat(m_format);
}

void CurveTextWriter::setDecimalPlaces(int master, int slave)
{
    m_masterDecimalPlaces = master;
    m_slaveDecimalPlaces = slave;
}

QString CurveTextWriter::refusal() const
{
    for (int places : { m_masterDecimalPlaces, m_slaveDecimalPlaces }) {
        if (places < 0 || places > MaximumDecimalPlaces)
            return tr("%1 Nachkommastellen können nicht geschrieben werden, möglich sind 0 bis %2.")
                .arg(places)
                .arg(MaximumDecimalPlaces);
    }
    CurveTextConverter converter;
    configure(converter);
    const int decimal = converter.decimalSeparator();
    const int value = converter.valueSeparator();
    if (decimal != CurveTextConverter::DecimalPoint && decimal != CurveTextConverter::DecimalComma)
        return tr("Unbekanntes Dezimalzeichen.");
    if (freeSeparator(value).size() == 0)
        return tr("Unbekanntes Trennzeichen.");
    // "1,5,2,25" is read as 1,5 and 2,25, but "1,2,25" (a master without
    // decimals) as 1,2 and 25: which comma separates depends on the digits.
    if (decimal == CurveTextConverter::DecimalComma && value == CurveTextConverter::Comma)
        return tr("Das Komma kann nicht zugleich Dezimalzeichen und Trennzeichen sein: "
                  "beim Import ließen sich die Zahlen nicht eindeutig trennen. "
                  "Bitte ein anderes Trennzeichen oder den Punkt als Dezimalzeichen wählen.");
    return QString();
}

QString CurveTextWriter::toText(const QVector<QPointF> &points, QString *error) const
{
    QString reason = refusal();
    if (reason.isEmpty() && points.isEmpty())
        reason = tr("Es gibt keine Stützstellen, die exportiert werden könnten.");
    if (!reason.isEmpty()) {
        if (error)
            *error = reason;
        return QString();
    }

    CurveTextConverter converter;
    configure(converter);
    QLatin1String separator = freeSeparator(converter.valueSeparator());
    if (m_format == CurveTextConverter::ServoSoft)
        separator = ServoSoftSeparator;
    else if (m_format == CurveTextConverter::TwinCat2)
        separator = TwinCat2Separator;
    else if (m_format == CurveTextConverter::CodeSys)
        separator = CodeSysSeparator;
    const bool decimalComma = converter.decimalSeparator() == CurveTextConverter::DecimalComma;
    // QString::number ignores the locale: always a point, never an exponent.
    const auto number = [decimalComma](double value, int decimals) {
        QString text = QString::number(value, 'f', decimals);
        if (decimalComma)
            text.replace(QLatin1Char('.'), QLatin1Char(','));
        return text;
    };

    QPolygonF rounded;
    rounded.reserve(points.size());
    QString text;
    for (const QPointF &point : points) {
        const QPointF stored(PositionRounding::rounded(point.x(), m_masterDecimalPlaces),
                             PositionRounding::rounded(point.y(), m_slaveDecimalPlaces));
        rounded.append(stored);
        text += number(stored.x(), m_masterDecimalPlaces) + separator + number(stored.y(), m_slaveDecimalPlaces) + LineEnd;
    }

    // Read back as the import will read it: a value that cannot be written
    // as such (not finite, or beyond a double's digits) is refused rather
    // than written into a file that imports differently.
    converter.setText(text);
    const int misread = firstDifference(converter.convert(), rounded);
    if (misread >= 0) {
        if (error) {
            const QPointF point = points.at(misread);
            *error = tr("Die Stützstelle %1 (Master %2, Slave %3) lässt sich nicht so schreiben, "
                        "dass der Import sie wieder liest.")
                         .arg(misread + 1)
                         .arg(point.x())
                         .arg(point.y());
        }
        return QString();
    }
    return text;
}

bool CurveTextWriter::write(const QString &path, const QVector<QPointF> &points, QString *error) const
{
    const QString text = toText(points, error);
    if (text.isEmpty())
        return false;
    QString reason;
    // The text holds digits, signs and separators only.
    if (!VxUtilities::AtomicFileWriter::write(path, text.toLatin1(), &reason)) {
        if (error)
            *error = tr("Die Datei %1 kann nicht geschrieben werden: %2").arg(path, reason);
        return false;
    }
    return true;
}
