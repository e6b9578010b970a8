#pragma once

#include <QCoreApplication>
#include <QPointF>
#include <QString>
#include <QVector>

class CurveTextConverter;

// Writes (master, slave) pairs as the text of an external curve file, in the
// formats and with the separators that CurveTextConverter reads, so that an
// import of the written file gives the same pairs. Settings under which the
// import would read the numbers differently are refused, and nothing is
// written then.
class CurveTextWriter
{
    Q_DECLARE_TR_FUNCTIONS(CurveTextWriter)
public:
    // Beyond this the decimal places no longer fit a double's digits.
    static constexpr int MaximumDecimalPlaces = 15;

    CurveTextWriter();

    // Numbered as the converter numbers them (CurveTextConverter::Format,
    // DecimalSeparator, ValueSeparator); a named format presets its
    // separators as the converter does.
    int format() const { return m_format; }
    void setFormat(int format);
    int decimalSeparator() const { return m_decimalSeparator; }
    void setDecimalSeparator(int index);
    int valueSeparator() const { return m_valueSeparator; }
    void setValueSeparator(int index);

    // Values are rounded to these places as the drive rounds them.
    int masterDecimalPlaces() const { return m_masterDecimalPlaces; }
    int slaveDecimalPlaces() const { return m_slaveDecimalPlaces; }
    void setDecimalPlaces(int master, int slave);

    // Why the current settings cannot be written so that they read back;
    // empty when they can.
    QString refusal() const;

    // The whole text, one pair per line; empty with the reason in *error when
    // refused, including a point that would not read back as it was written.
    QString toText(const QVector<QPointF> &points, QString *error) const;

    // Writes the text into the file in one step: refused or failed, the file
    // stays as it was.
    bool write(const QString &path, const QVector<QPointF> &points, QString *error) const;

private:
    // Sets the converter up to read what these settings write.
    void configure(CurveTextConverter &converter) const;

    int m_format;
    int m_decimalSeparator;
    int m_valueSeparator;
    int m_masterDecimalPlaces = 3;
    int m_slaveDecimalPlaces = 3;
};
