#pragma once

#include <QMap>
#include <QObject>
#include <QPolygonF>
#include <QRegularExpression>
#include <QString>

// Turns the text of an external curve file into (master, slave) pairs. Each
// format is one regular expression that matches one pair; everything between
// matches (headers, units, line ends) is skipped.
class CurveTextConverter : public QObject
{
    Q_OBJECT
public:
    enum Format { ServoSoft = 0, TwinCat2 = 1, CodeSys = 2, FreeFormat = 3 };
    enum DecimalSeparator { DecimalPoint = 0, DecimalComma = 1 };
    enum ValueSeparator { Semicolon = 0, Comma = 1, Tab = 2, Blank = 3 };

    explicit CurveTextConverter(QObject *parent = nullptr);

    QString text() const { return m_text; }
    void setText(const QString &text);

    int format() const { return m_format; }
    // Takes the index of the format selector; a named format presets the
    // separators, the free format keeps them, an unknown index means SERVOsoft.
    void setFormat(int selectorIndex);

    int decimalSeparator() const { return m_decimalSeparator; }
    void setDecimalSeparator(int index);
    int valueSeparator() const { return m_valueSeparator; }
    void setValueSeparator(int index);

    // The pattern for the current format and separators.
    QString pattern() const;

    // Converts the whole text. Values that do not convert become 0 and leave
    // a message in errorMessage().
    QPolygonF convert();
    QString errorMessage() const { return m_errorMessage; }

private:
    const QRegularExpression &expression();
    static double toNumber(const QStringRef &capture, QString *converted, bool *ok);

    QString m_errorMessage;
    QString m_text;
    int m_format = FreeFormat;
    int m_decimalSeparator = DecimalPoint;
    int m_valueSeparator = Semicolon;
    const QMap<int, QString> m_decimalSeparators;
    const QMap<int, QString> m_valueSeparators;
    const QMap<int, int> m_formats;

    // Compiled once per pattern, not once per conversion: the dialog converts
    // again on every keystroke.
    QRegularExpression m_expression;
};
