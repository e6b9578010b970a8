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
    void formatPresetsSeparators_data();
    void formatPresetsSeparators();
    void patternFollowsTheSettingsBetweenConversions();
};

void TestCurveTextConverter::convert_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("decimalSeparator");  // -1: as the format leaves it
    QTest::addColumn<int>("valueSeparator");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QPolygonF>("expected");
    QTest::addColumn<QString>("message");
    const auto row = [](const char *name, int format, const QString &text, const QPolygonF &expected,
                        const QString &message = QString()) {
        QTest::newRow(name) << format << -1 << -1 << text << expected << message;
    };
    const auto freeRow = [](const char *name, int decimalSeparator, int valueSeparator, const char *text,
                         const QPolygonF &expected) {
        QTest::newRow(name) << int(CurveTextConverter::FreeFormat) << decimalSeparator << valueSeparator
                            << QString::fromUtf8(text) << expected << QString();
    };

    const int servoSoft = CurveTextConverter::ServoSoft;
    row("SERVOsoft: repeated semicolons are one separator", servoSoft, "0;0\n10,5;;20,25\n", pairs({ { 0, 0 }, { 10.5, 20.25 } }));
    row("SERVOsoft: master exponent is not read", servoSoft, "1e3;5", pairs({ { 3, 5 } }));
    row("SERVOsoft: slave exponent", servoSoft, "1,5;2,5e2\n-1;2E-1", pairs({ { 1.5, 250 }, { -1, 0.2 } }));
    row("SERVOsoft: signs", servoSoft, "-1,5;+2\n+3;-4,125", pairs({ { -1.5, 2 }, { 3, -4.125 } }));
    row("SERVOsoft: byte order mark, header, units and Windows line ends skipped", servoSoft,
        QString::fromUtf8("\uFEFFMasterposition;Slaveposition\r\n[Grad];[mm]\r\n0;1\r\n360;2,5\r\n"),
        pairs({ { 0, 1 }, { 360, 2.5 } }));
    row("SERVOsoft: comment with a pair yields a pair", servoSoft, "# Beispiel 1;2\n3;4", pairs({ { 1, 2 }, { 3, 4 } }));
    row("SERVOsoft: decimal point splits a number", servoSoft, "1.5;2.5", pairs({ { 5, 2 } }));
    row("SERVOsoft: decimal comma without digits", servoSoft, "7,;8,", pairs({ { 7, 8 } }));
    row("SERVOsoft: blank after the separator", servoSoft, "1; 2", QPolygonF());
    row("SERVOsoft: empty text", servoSoft, "", QPolygonF());

    const int twinCat2 = CurveTextConverter::TwinCat2;
    row("TwinCat2: point decimals, comma separator", twinCat2, "1.5,2.5", pairs({ { 1.5, 2.5 } }));
    row("TwinCat2: decimal commas read as pairs", twinCat2, "1,5;2,5", pairs({ { 1, 5 }, { 2, 5 } }));
    row("TwinCat2: no exponent on the slave", twinCat2, "1.0,2.0e3", pairs({ { 1, 2 } }));
    row("TwinCat2: two commas are no separator", twinCat2, "1,,2", QPolygonF());
    row("TwinCat2: lines with signs", twinCat2, "0,0\r\n-1.5,+2.25\r\n", pairs({ { 0, 0 }, { -1.5, 2.25 } }));

    const int codeSys = CurveTextConverter::CodeSys;
    row("CodeSys: semicolon and blanks, slave exponent", codeSys, "1.0;  2.0e-3", pairs({ { 1.0, 0.002 } }));
    row("CodeSys: a blank must follow the semicolon", codeSys, "1.0;2.0", QPolygonF());
    row("CodeSys: a tab is no blank", codeSys, "1.0;\t2.0", QPolygonF());
    row("CodeSys: lines", codeSys, "Master; Slave\n0; 0\n90.5; 12.75\n", pairs({ { 0, 0 }, { 90.5, 12.75 } }));
    row("CodeSys: decimal comma splits a number", codeSys, "1,5; 2", pairs({ { 5, 2 } }));

    const int point = CurveTextConverter::DecimalPoint;
    const int comma = CurveTextConverter::DecimalComma;
    const int semicolon = CurveTextConverter::Semicolon;
    const int tab = CurveTextConverter::Tab;
    const int blank = CurveTextConverter::Blank;
    freeRow("free: initial choice is point and semicolon", -1, -1, "1.5;2.5e1\n1,5;2", pairs({ { 1.5, 25 }, { 5, 2 } }));
    freeRow("free: exactly one semicolon", point, semicolon, "1;;2", QPolygonF());
    freeRow("free: comma decimals, blank separator", comma, blank, "1,5 2,5", pairs({ { 1.5, 2.5 } }));
    freeRow("free: two blanks do not separate", comma, blank, "1,5  2,5", QPolygonF());
    freeRow("free: tab separator", point, tab, "1.5\t2.5\n3\t4", pairs({ { 1.5, 2.5 }, { 3, 4 } }));
    freeRow("free: two tabs do not separate", point, tab, "1.5\t\t2.5", QPolygonF());
    freeRow("free: comma decimals, tab separator", comma, tab, "1,5\t2,5e-1", pairs({ { 1.5, 0.25 } }));
    freeRow("free: point decimals, comma separator", point, CurveTextConverter::Comma, "1.5,2.5E2", pairs({ { 1.5, 250 } }));
    freeRow("free: comma decimals with comma separator", comma, CurveTextConverter::Comma, "1,5,2", pairs({ { 1.5, 2 } }));

    // The patterns only let digits through, so what fails is the range of a double.
    const QString huge(400, QLatin1Char('9'));
    const QString tiny = QStringLiteral("0,") + QString(400, QLatin1Char('0')) + QLatin1Char('1');
    const QString failedMaster = QStringLiteral("Master-Position %1 konnte nicht konvertiert werden.");
    const QString failedSlave = QStringLiteral("Slave-Position %1 konnte nicht konvertiert werden.");
    row("failed: SERVOsoft slave overflow", servoSoft, "1;1e999", pairs({ { 1, 0 } }), failedSlave.arg("1e999"));
    row("failed: SERVOsoft master underflow, shown with a point", servoSoft, tiny + ";2", pairs({ { 0, 2 } }),
        failedMaster.arg(QString(tiny).replace(QLatin1Char(','), QLatin1Char('.'))));
    row("failed: TwinCat2 master overflow", twinCat2, huge + ",1.5", pairs({ { 0, 1.5 } }), failedMaster.arg(huge));
    row("failed: CodeSys slave underflow", codeSys, "1.0; 1e-999", pairs({ { 1, 0 } }), failedSlave.arg("1e-999"));
    row("failed: free format, the last failure wins, good lines are kept", CurveTextConverter::FreeFormat,
        "1;1e999\n2;3e999\n4;5", pairs({ { 1, 0 }, { 2, 0 }, { 4, 5 } }), failedSlave.arg("3e999"));
    row("failed: slave failure follows master failure in one pair", twinCat2, huge + QLatin1Char(',') + huge,
        pairs({ { 0, 0 } }), failedSlave.arg(huge));
}

void TestCurveTextConverter::convert()
{
    QFETCH(int, format);
    QFETCH(int, decimalSeparator);
    QFETCH(int, valueSeparator);
    QFETCH(QString, text);
    QFETCH(QPolygonF, expected);
    QFETCH(QString, message);
    CurveTextConverter converter;
    // The free format is the initial one.
    if (format != CurveTextConverter::FreeFormat)
        converter.setFormat(format);
    if (decimalSeparator >= 0) {
        converter.setDecimalSeparator(decimalSeparator);
        converter.setValueSeparator(valueSeparator);
    }
    converter.setText(text);
    compareExactly(converter.convert(), expected);
    QCOMPARE(converter.errorMessage(), message);
    // The message tells about the last conversion only.
    converter.setText(QString());
    QVERIFY(converter.convert().isEmpty());
    QCOMPARE(converter.errorMessage(), QString());
}

void TestCurveTextConverter::formatPresetsSeparators_data()
{
    QTest::addColumn<int>("selectorIndex");
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("decimalSeparator");
    QTest::addColumn<int>("valueSeparator");

    // Before each row the free format holds comma decimals and blanks. The
    // four selector indices are checked through the import dialog's radios;
    // here only those the format box cannot choose.
    QTest::newRow("unknown index means SERVOsoft") << 4 << 0 << 1 << 0;
    QTest::newRow("negative index means SERVOsoft") << -1 << 0 << 1 << 0;
}

void TestCurveTextConverter::formatPresetsSeparators()
{
    QFETCH(int, selectorIndex);
    QFETCH(int, format);
    QFETCH(int, decimalSeparator);
    QFETCH(int, valueSeparator);
    CurveTextConverter converter;
    converter.setFormat(CurveTextConverter::FreeFormat);
    converter.setDecimalSeparator(CurveTextConverter::DecimalComma);
    converter.setValueSeparator(CurveTextConverter::Blank);
    converter.setFormat(selectorIndex);
    QCOMPARE(converter.format(), format);
    QCOMPARE(converter.decimalSeparator(), decimalSeparator);
    QCOMPARE(converter.valueSeparator(), valueSeparator);
}

void TestCurveTextConverter::patternFollowsTheSettingsBetweenConversions()
{
    // The compiled expression is kept between conversions; every change of a
    // choice must still reach the next one, and the separator choices reach
    // only the free format.
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
    compareExactly(converter.convert(), pairs({ { 3, 5 }, { 4, 5 }, { 8, 9 } }));
}

QTEST_GUILESS_MAIN(TestCurveTextConverter)
#include "tst_curvetextconverter.moc"
