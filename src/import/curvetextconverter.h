#pragma once

#include <QMap>
#include <QObject>
#include <QPolygonF>
#include <QString>

class QByteArray;

// Turns the text of an external curve file into (master, slave) pairs. The
// text is read line by line: a line that holds exactly one pair in the
// chosen format gives that pair, a blank line is passed over, and every
// other line is skipped and counted, so that the caller can tell the user.
class CurveTextConverter : public QObject
{
    Q_OBJECT
public:
    enum Format { ServoSoft = 0, TwinCat2 = 1, CodeSys = 2, FreeFormat = 3 };
    enum DecimalSeparator { DecimalPoint = 0, DecimalComma = 1 };
    enum ValueSeparator { Semicolon = 0, Comma = 1, Tab = 2, Blank = 3 };

    // A skipped line is kept for the message up to this many characters.
    static constexpr int ShownLineLength = 80;

    explicit CurveTextConverter(QObject *parent = nullptr);

    // The text of a curve file's bytes as the import reads them: a byte-order
    // mark decides the encoding, else UTF-8 if the bytes are valid UTF-8,
    // else Latin-1. Line ends are left as they are; convert() knows them all.
    static QString decodedText(const QByteArray &bytes);

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

    // Converts the whole text. Values that do not convert become 0 and leave
    // a message in errorMessage(); lines that hold no pair are counted.
    QPolygonF convert();
    QString errorMessage() const { return m_errorMessage; }

    // About the last conversion: how many lines were not blank and held no
    // pair, the first of them (its number from 1, and its text, cut to
    // ShownLineLength characters), and a German sentence saying so, empty
    // when every line was read.
    int skippedLineCount() const { return m_skippedLineCount; }
    int firstSkippedLineNumber() const { return m_firstSkippedLineNumber; }
    QString firstSkippedLine() const { return m_firstSkippedLine; }
    QString skippedLinesMessage() const;

private:
    struct Grammar;
    Grammar grammar() const;
    void readLine(const Grammar &grammar, const QChar *begin, const QChar *end, QPolygonF *points);
    void skip(const QChar *begin, const QChar *end);
    double toNumber(const QChar *begin, const QChar *end, bool master);

    QString m_errorMessage;
    QString m_text;
    int m_format = FreeFormat;
    int m_decimalSeparator = DecimalPoint;
    int m_valueSeparator = Semicolon;
    const QMap<int, QChar> m_decimalSeparators;
    const QMap<int, QChar> m_valueSeparators;
    const QMap<int, int> m_formats;

    int m_lineNumber = 0;
    int m_skippedLineCount = 0;
    int m_firstSkippedLineNumber = 0;
    QString m_firstSkippedLine;
    // Reused for the values that need their decimal comma replaced.
    QString m_buffer;
};
