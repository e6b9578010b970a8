#include "import/curvetextconverter.h"

#include <QPolygonF>
#include <QtTest>

namespace {

QPolygonF pairs(std::initializer_list<QPointF> points)
{
    return QPolygonF(QVector<QPointF>(points));
}

QString describe(const QPolygonF &points)
{
    QStringList parts;
    for (const QPointF &point : points)
        parts << QStringLiteral("(%1, %2)").arg(point.x(), 0, 'g', 17).arg(point.y(), 0, 'g', 17);
    return parts.join(QLatin1Char(' '));
}

// Exact comparison: the values are read, not computed, so every digit counts.
void compareExactly(const QPolygonF &actual, const QPolygonF &expected)
{
    QCOMPARE(describe(actual), describe(expected));
}

} // namespace

class TestCurveTextConverter : public QObject
{
    Q_OBJECT

private slots:
    void convert_data();
    void convert();
    void unknownFormatMeansServoSoft();
    void settingsReachTheNextConversion();
};

void TestCurveTextConverter::convert_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("decimalSeparator");  // -1: as the format leaves it
    QTest::addColumn<int>("valueSeparator");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QPolygonF>("expected");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("skipped");
    QTest::addColumn<int>("firstSkippedNumber");
    QTest::addColumn<QString>("firstSkipped");
    const auto row = [](const char *name, int format, const QString &text, const QPolygonF &expected,
                        const QString &message = QString(), int skipped = 0, int firstNumber = 0,
                        const QString &first = QString()) {
        QTest::newRow(name) << format << -1 << -1 << text << expected << message << skipped << firstNumber << first;
    };
    // A row whose lines are skipped: how many, and the first one.
    const auto skipRow = [](const char *name, int format, int decimalSeparator, int valueSeparator, const QString &text,
                            const QPolygonF &expected, int skipped, int firstNumber, const QString &first) {
        QTest::newRow(name) << format << decimalSeparator << valueSeparator << text << expected << QString() << skipped
                            << firstNumber << first;
    };
    const auto freeRow = [](const char *name, int decimalSeparator, int valueSeparator, const char *text,
                            const QPolygonF &expected) {
        QTest::newRow(name) << int(CurveTextConverter::FreeFormat) << decimalSeparator << valueSeparator
                            << QString::fromUtf8(text) << expected << QString() << 0 << 0 << QString();
    };
    const QPolygonF none;

    const int servoSoft = CurveTextConverter::ServoSoft;
    row("SERVOsoft: repeated semicolons are one separator", servoSoft, "0;0\n10,5;;20,25\n", pairs({ { 0, 0 }, { 10.5, 20.25 } }));
    row("SERVOsoft: slave exponent", servoSoft, "1,5;2,5e2\n-1;2E-1", pairs({ { 1.5, 250 }, { -1, 0.2 } }));
    row("SERVOsoft: decimal comma without digits", servoSoft, "7,;8,", pairs({ { 7, 8 } }));
    row("SERVOsoft: empty text", servoSoft, "", none);
    row("SERVOsoft: byte order mark, header, units and Windows line ends", servoSoft,
        QString::fromUtf8("\uFEFFMasterposition;Slaveposition\r\n[Grad];[mm]\r\n0;1\r\n360;2,5\r\n"),
        pairs({ { 0, 1 }, { 360, 2.5 } }), QString(), 2, 1, "Masterposition;Slaveposition");
    row("SERVOsoft: master exponent makes the line unreadable", servoSoft, "1e3;5\n2;6", pairs({ { 2, 6 } }), QString(), 1,
        1, "1e3;5");
    row("SERVOsoft: a pair in a comment is no pair", servoSoft, "# Beispiel 1;2\n3;4", pairs({ { 3, 4 } }), QString(), 1, 1,
        "# Beispiel 1;2");
    row("SERVOsoft: decimal point", servoSoft, "1.5;2.5", none, QString(), 1, 1, "1.5;2.5");
    row("SERVOsoft: blank after the separator", servoSoft, "1; 2", none, QString(), 1, 1, "1; 2");

    const int twinCat2 = CurveTextConverter::TwinCat2;
    row("TwinCat2: lines with signs", twinCat2, "0,0\r\n-1.5,+2.25\r\n", pairs({ { 0, 0 }, { -1.5, 2.25 } }));
    row("TwinCat2: decimal commas", twinCat2, "1,5;2,5", none, QString(), 1, 1, "1,5;2,5");
    row("TwinCat2: no exponent on the slave", twinCat2, "1.0,2.0e3", none, QString(), 1, 1, "1.0,2.0e3");
    row("TwinCat2: two commas are no separator", twinCat2, "1,,2", none, QString(), 1, 1, "1,,2");

    const int codeSys = CurveTextConverter::CodeSys;
    row("CodeSys: semicolon and blanks, slave exponent", codeSys, "1.0;  2.0e-3", pairs({ { 1.0, 0.002 } }));
    row("CodeSys: header and lines", codeSys, "Master; Slave\n0; 0\n90.5; 12.75\n", pairs({ { 0, 0 }, { 90.5, 12.75 } }),
        QString(), 1, 1, "Master; Slave");
    row("CodeSys: a blank must follow the semicolon", codeSys, "1.0;2.0", none, QString(), 1, 1, "1.0;2.0");
    row("CodeSys: a tab is no blank", codeSys, "1.0;\t2.0", none, QString(), 1, 1, "1.0;\t2.0");
    row("CodeSys: decimal comma", codeSys, "1,5; 2", none, QString(), 1, 1, "1,5; 2");

    const int free = CurveTextConverter::FreeFormat;
    const int point = CurveTextConverter::DecimalPoint;
    const int comma = CurveTextConverter::DecimalComma;
    const int semicolon = CurveTextConverter::Semicolon;
    const int tab = CurveTextConverter::Tab;
    const int blank = CurveTextConverter::Blank;
    freeRow("free: comma decimals, blank separator", comma, blank, "1,5 2,5", pairs({ { 1.5, 2.5 } }));
    freeRow("free: tab separator", point, tab, "1.5\t2.5\n3\t4", pairs({ { 1.5, 2.5 }, { 3, 4 } }));
    freeRow("free: point decimals, comma separator", point, CurveTextConverter::Comma, "1.5,2.5E2", pairs({ { 1.5, 250 } }));
    // With a comma for both, the longer master wins, as a search from the
    // left reads it.
    freeRow("free: comma for both", comma, CurveTextConverter::Comma, "1,5,2\n1,2\n1,2,25\n1,2,3,4\n7,,8",
            pairs({ { 1.5, 2 }, { 1, 2 }, { 1.2, 25 }, { 1.2, 3.4 }, { 7, 8 } }));
    freeRow("free: blanks and tabs around the pair, blank lines", point, semicolon, " 1;2 \t\n\n \t\n\t-3;4e1 ",
            pairs({ { 1, 2 }, { -3, 40 } }));
    freeRow("free: line ends of every kind", point, semicolon, "0;0\r1;1\r\n2;2\n\r3;3", 
            pairs({ { 0, 0 }, { 1, 1 }, { 2, 2 }, { 3, 3 } }));
    freeRow("free: large values", point, semicolon, "1;1e300\n-1.5;-1E+300", pairs({ { 1, 1e300 }, { -1.5, -1e300 } }));
    skipRow("free: initial choice is point and semicolon", -1, -1, -1, "1.5;2.5e1\n1,5;2", pairs({ { 1.5, 25 } }), 1, 2,
            "1,5;2");
    skipRow("free: decimal comma under decimal point", free, point, semicolon, "0,5;1.5", none, 1, 1, "0,5;1.5");
    skipRow("free: master exponent", free, point, semicolon, "1e300;1e300", none, 1, 1, "1e300;1e300");
    skipRow("free: hexadecimal", free, point, semicolon, "0x10;0x20\n1;2", pairs({ { 1, 2 } }), 1, 1, "0x10;0x20");
    skipRow("free: thousands blank", free, point, semicolon, "1 000;2", none, 1, 1, "1 000;2");
    skipRow("free: exactly one semicolon", free, point, semicolon, "1;;2", none, 1, 1, "1;;2");
    skipRow("free: two blanks do not separate", free, comma, blank, "1,5  2,5", none, 1, 1, "1,5  2,5");
    skipRow("free: two tabs do not separate", free, point, tab, "1.5\t\t2.5", none, 1, 1, "1.5\t\t2.5");
    skipRow("free: third column", free, point, semicolon, "0;1\n1;2;3\n2;3;", pairs({ { 0, 1 } }), 2, 2, "1;2;3");
    // The setters take any index; one missing from its table reads no line.
    skipRow("free: unknown decimal separator", free, 2, semicolon, "1;2\n3;4", none, 2, 1, "1;2");
    skipRow("free: unknown value separator", free, point, 4, "\n1;2", none, 1, 2, "1;2");

    // A line far longer than any table line: the first skipped line is cut.
    const QString longLine(1000000, QLatin1Char('7'));
    const QString cut = QString(CurveTextConverter::ShownLineLength, QLatin1Char('7')) + QChar(0x2026);
    skipRow("long line without separator", free, point, semicolon, "0;0\n" + longLine + "\n1;1",
            pairs({ { 0, 0 }, { 1, 1 } }), 1, 2, cut);
    skipRow("long line of separators", servoSoft, comma, semicolon, "1" + QString(1000000, QLatin1Char(';')) + "x", none, 1, 1,
            "1" + QString(CurveTextConverter::ShownLineLength - 1, QLatin1Char(';')) + QChar(0x2026));

    // The grammar only lets digits through, so what fails is the range of a
    // double; the value is shown as read, with a point, and cut.
    const QString huge(400, QLatin1Char('9'));
    const QString shownHuge = huge.left(CurveTextConverter::ShownLineLength) + QChar(0x2026);
    const QString tiny = QStringLiteral("0,") + QString(400, QLatin1Char('0')) + QLatin1Char('1');
    const QString failedMaster = QStringLiteral("Master-Position %1 konnte nicht konvertiert werden.");
    const QString failedSlave = QStringLiteral("Slave-Position %1 konnte nicht konvertiert werden.");
    row("failed: SERVOsoft slave overflow", servoSoft, "1;1e999", pairs({ { 1, 0 } }), failedSlave.arg("1e999"));
    row("failed: SERVOsoft master underflow", servoSoft, tiny + ";2", pairs({ { 0, 2 } }),
        failedMaster.arg(QString(tiny).replace(QLatin1Char(','), QLatin1Char('.')).left(CurveTextConverter::ShownLineLength)
                         + QChar(0x2026)));
    row("failed: the last failure wins, good lines are kept", free, "1;1e999\n2;3e999\n4;5",
        pairs({ { 1, 0 }, { 2, 0 }, { 4, 5 } }), failedSlave.arg("3e999"));
    row("failed: slave failure follows master failure in one pair", twinCat2, huge + QLatin1Char(',') + huge,
        pairs({ { 0, 0 } }), failedSlave.arg(shownHuge));
    row("failed: a million digits", free, "1" + QString(1000000, QLatin1Char('0')) + ";2", pairs({ { 0, 2 } }),
        failedMaster.arg("1" + QString(CurveTextConverter::ShownLineLength - 1, QLatin1Char('0')) + QChar(0x2026)));
}

void TestCurveTextConverter::convert()
{
    QFETCH(int, format);
    QFETCH(int, decimalSeparator);
    QFETCH(int, valueSeparator);
    QFETCH(QString, text);
    QFETCH(QPolygonF, expected);
    QFETCH(QString, message);
    QFETCH(int, skipped);
    QFETCH(int, firstSkippedNumber);
    QFETCH(QString, firstSkipped);
    CurveTextConverter converter;
    // The free format is the initial one.
    if (format >= 0 && format != CurveTextConverter::FreeFormat)
        converter.setFormat(format);
    if (decimalSeparator >= 0) {
        converter.setDecimalSeparator(decimalSeparator);
        converter.setValueSeparator(valueSeparator);
    }
    converter.setText(text);
    compareExactly(converter.convert(), expected);
    QCOMPARE(converter.errorMessage(), message);
    QCOMPARE(converter.skippedLineCount(), skipped);
    QCOMPARE(converter.firstSkippedLineNumber(), firstSkippedNumber);
    QCOMPARE(converter.firstSkippedLine(), firstSkipped);
    // Its German text is held by the import dialog's test, which shows it.
    QCOMPARE(converter.skippedLinesMessage().isEmpty(), skipped == 0);
    // Everything tells about the last conversion only.
    converter.setText(QString());
    QVERIFY(converter.convert().isEmpty());
    QCOMPARE(converter.errorMessage(), QString());
    QCOMPARE(converter.skippedLineCount(), 0);
    QCOMPARE(converter.firstSkippedLine(), QString());
}

// The four selector indices are checked through the import dialog's radios;
// here one the format box cannot choose, after a free format of comma
// decimals and blanks.
void TestCurveTextConverter::unknownFormatMeansServoSoft()
{
    CurveTextConverter converter;
    converter.setFormat(CurveTextConverter::FreeFormat);
    converter.setDecimalSeparator(CurveTextConverter::DecimalComma);
    converter.setValueSeparator(CurveTextConverter::Blank);
    converter.setFormat(4);
    QCOMPARE(converter.format(), int(CurveTextConverter::ServoSoft));
    QCOMPARE(converter.decimalSeparator(), int(CurveTextConverter::DecimalComma));
    QCOMPARE(converter.valueSeparator(), int(CurveTextConverter::Semicolon));
}

void TestCurveTextConverter::settingsReachTheNextConversion()
{
    // Every change of a choice reaches the next conversion, and the separator
    // choices reach only the free format.
    CurveTextConverter converter;
    converter.setText(QStringLiteral("1;2\n3,5\t4,5\n6 7\n8,9\n"));
    compareExactly(converter.convert(), pairs({ { 1, 2 } }));
    converter.setValueSeparator(CurveTextConverter::Blank);
    compareExactly(converter.convert(), pairs({ { 6, 7 } }));
    converter.setDecimalSeparator(CurveTextConverter::DecimalComma);
    converter.setValueSeparator(CurveTextConverter::Tab);
    compareExactly(converter.convert(), pairs({ { 3.5, 4.5 } }));
    converter.setFormat(CurveTextConverter::TwinCat2);
    converter.setDecimalSeparator(CurveTextConverter::DecimalComma);
    converter.setValueSeparator(CurveTextConverter::Blank);
    compareExactly(converter.convert(), pairs({ { 8, 9 } }));
}

QTEST_GUILESS_MAIN(TestCurveTextConverter)
#include "tst_curvetextconverter.moc"
