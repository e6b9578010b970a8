#include "import/curvetextconverter.h"

#include <QPolygonF>
#include <QtTest>

namespace {

const QString NoError;

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
    void initialState();

    void servoSoft_data();
    void servoSoft();
    void twinCat2_data();
    void twinCat2();
    void codeSys_data();
    void codeSys();
    void freeFormat_data();
    void freeFormat();

    void formatPresetsSeparators_data();
    void formatPresetsSeparators();
    void servoSoftAfterFreeFormatReadsServoSoft();
    void separatorChoicesMatterOnlyForTheFreeFormat();

    void failedValues_data();
    void failedValues();
    void errorMessageIsClearedByTheNextConversion();
    void patternFollowsTheSettingsBetweenConversions();
    void manyLines();
};

void TestCurveTextConverter::initialState()
{
    CurveTextConverter converter;
    QCOMPARE(converter.format(), int(CurveTextConverter::FreeFormat));
    QCOMPARE(converter.decimalSeparator(), int(CurveTextConverter::DecimalPoint));
    QCOMPARE(converter.valueSeparator(), int(CurveTextConverter::Semicolon));
    QVERIFY(converter.text().isEmpty());
    QVERIFY(converter.convert().isEmpty());
    QVERIFY(converter.errorMessage().isEmpty());
}

// One shape for the three named formats: format, text, expected pairs.
static void addNamedFormatColumns()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QPolygonF>("expected");
}

static void checkNamedFormat(int format)
{
    QFETCH(QString, text);
    QFETCH(QPolygonF, expected);
    CurveTextConverter converter;
    converter.setFormat(format);
    converter.setText(text);
    compareExactly(converter.convert(), expected);
    QCOMPARE(converter.errorMessage(), NoError);
}

void TestCurveTextConverter::servoSoft_data()
{
    addNamedFormatColumns();
    QTest::newRow("repeated semicolons are one separator")
        << "0;0\n10,5;;20,25\n" << pairs({ { 0, 0 }, { 10.5, 20.25 } });
    QTest::newRow("master exponent is not read") << "1e3;5" << pairs({ { 3, 5 } });
    QTest::newRow("slave exponent") << "1,5;2,5e2\n-1;2E-1" << pairs({ { 1.5, 250 }, { -1, 0.2 } });
    QTest::newRow("signs") << "-1,5;+2\n+3;-4,125" << pairs({ { -1.5, 2 }, { 3, -4.125 } });
    QTest::newRow("header, units and Windows line ends skipped")
        << "Masterposition;Slaveposition\r\n[Grad];[mm]\r\n0;1\r\n360;2,5\r\n"
        << pairs({ { 0, 1 }, { 360, 2.5 } });
    QTest::newRow("comment with a pair yields a pair") << "# Beispiel 1;2\n3;4" << pairs({ { 1, 2 }, { 3, 4 } });
    QTest::newRow("decimal point splits a number") << "1.5;2.5" << pairs({ { 5, 2 } });
    QTest::newRow("decimal comma without digits") << "7,;8," << pairs({ { 7, 8 } });
    QTest::newRow("blank after the separator") << "1; 2" << QPolygonF();
    QTest::newRow("empty text") << "" << QPolygonF();
    QTest::newRow("no numbers") << "Master;Slave\n" << QPolygonF();
}

void TestCurveTextConverter::servoSoft()
{
    checkNamedFormat(CurveTextConverter::ServoSoft);
}

void TestCurveTextConverter::twinCat2_data()
{
    addNamedFormatColumns();
    QTest::newRow("point decimals, comma separator") << "1.5,2.5" << pairs({ { 1.5, 2.5 } });
    QTest::newRow("decimal commas read as pairs") << "1,5;2,5" << pairs({ { 1, 5 }, { 2, 5 } });
    QTest::newRow("no exponent on the slave") << "1.0,2.0e3" << pairs({ { 1, 2 } });
    QTest::newRow("two commas are no separator") << "1,,2" << QPolygonF();
    QTest::newRow("lines with signs") << "0,0\r\n-1.5,+2.25\r\n" << pairs({ { 0, 0 }, { -1.5, 2.25 } });
    QTest::newRow("semicolons only") << "1;2" << QPolygonF();
}

void TestCurveTextConverter::twinCat2()
{
    checkNamedFormat(CurveTextConverter::TwinCat2);
}

void TestCurveTextConverter::codeSys_data()
{
    addNamedFormatColumns();
    QTest::newRow("semicolon and blanks, slave exponent") << "1.0;  2.0e-3" << pairs({ { 1.0, 0.002 } });
    QTest::newRow("a blank must follow the semicolon") << "1.0;2.0" << QPolygonF();
    QTest::newRow("a tab is no blank") << "1.0;\t2.0" << QPolygonF();
    QTest::newRow("lines") << "Master; Slave\n0; 0\n90.5; 12.75\n" << pairs({ { 0, 0 }, { 90.5, 12.75 } });
    QTest::newRow("decimal comma splits a number") << "1,5; 2" << pairs({ { 5, 2 } });
}

void TestCurveTextConverter::codeSys()
{
    checkNamedFormat(CurveTextConverter::CodeSys);
}

void TestCurveTextConverter::freeFormat_data()
{
    QTest::addColumn<int>("decimalSeparator");
    QTest::addColumn<int>("valueSeparator");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QPolygonF>("expected");

    const int point = CurveTextConverter::DecimalPoint;
    const int comma = CurveTextConverter::DecimalComma;
    QTest::newRow("initial choice: point and semicolon")
        << point << int(CurveTextConverter::Semicolon) << "1.5;2.5e1" << pairs({ { 1.5, 25 } });
    QTest::newRow("exactly one semicolon") << point << int(CurveTextConverter::Semicolon) << "1;;2" << QPolygonF();
    QTest::newRow("comma decimals, blank separator")
        << comma << int(CurveTextConverter::Blank) << "1,5 2,5" << pairs({ { 1.5, 2.5 } });
    QTest::newRow("two blanks do not separate") << comma << int(CurveTextConverter::Blank) << "1,5  2,5" << QPolygonF();
    QTest::newRow("tab separator") << point << int(CurveTextConverter::Tab) << "1.5\t2.5\n3\t4"
                                   << pairs({ { 1.5, 2.5 }, { 3, 4 } });
    QTest::newRow("two tabs do not separate") << point << int(CurveTextConverter::Tab) << "1.5\t\t2.5" << QPolygonF();
    QTest::newRow("comma decimals, tab separator")
        << comma << int(CurveTextConverter::Tab) << "1,5\t2,5e-1" << pairs({ { 1.5, 0.25 } });
    QTest::newRow("point decimals, comma separator")
        << point << int(CurveTextConverter::Comma) << "1.5,2.5E2" << pairs({ { 1.5, 250 } });
    QTest::newRow("comma decimals with comma separator")
        << comma << int(CurveTextConverter::Comma) << "1,5,2" << pairs({ { 1.5, 2 } });
    QTest::newRow("point decimals: a comma splits the number")
        << point << int(CurveTextConverter::Semicolon) << "1,5;2" << pairs({ { 5, 2 } });
}

void TestCurveTextConverter::freeFormat()
{
    QFETCH(int, decimalSeparator);
    QFETCH(int, valueSeparator);
    QFETCH(QString, text);
    QFETCH(QPolygonF, expected);
    CurveTextConverter converter;
    converter.setFormat(CurveTextConverter::FreeFormat);
    converter.setDecimalSeparator(decimalSeparator);
    converter.setValueSeparator(valueSeparator);
    converter.setText(text);
    compareExactly(converter.convert(), expected);
    QCOMPARE(converter.errorMessage(), NoError);
}

void TestCurveTextConverter::formatPresetsSeparators_data()
{
    QTest::addColumn<int>("selectorIndex");
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("decimalSeparator");
    QTest::addColumn<int>("valueSeparator");

    // Before each row the free format holds comma decimals and blanks.
    QTest::newRow("SERVOsoft") << 0 << 0 << 1 << 0;
    QTest::newRow("TwinCat2") << 1 << 1 << 0 << 1;
    QTest::newRow("CodeSys") << 2 << 2 << 0 << 0;
    QTest::newRow("free format keeps the choice") << 3 << 3 << 1 << 3;
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

void TestCurveTextConverter::servoSoftAfterFreeFormatReadsServoSoft()
{
    CurveTextConverter converter;
    converter.setDecimalSeparator(CurveTextConverter::DecimalPoint);
    converter.setValueSeparator(CurveTextConverter::Tab);
    converter.setText(QStringLiteral("1,5;;2,5\n3.5\t4.5\n"));
    compareExactly(converter.convert(), pairs({ { 3.5, 4.5 } }));
    converter.setFormat(CurveTextConverter::ServoSoft);
    compareExactly(converter.convert(), pairs({ { 1.5, 2.5 } }));
}

void TestCurveTextConverter::separatorChoicesMatterOnlyForTheFreeFormat()
{
    CurveTextConverter converter;
    converter.setFormat(CurveTextConverter::CodeSys);
    converter.setDecimalSeparator(CurveTextConverter::DecimalComma);
    converter.setValueSeparator(CurveTextConverter::Blank);
    converter.setText(QStringLiteral("1.5; 2.5\n1,5 2,5\n"));
    compareExactly(converter.convert(), pairs({ { 1.5, 2.5 } }));
}

void TestCurveTextConverter::failedValues_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QPolygonF>("expected");
    QTest::addColumn<QString>("message");

    // The patterns only let digits through, so what fails is the range of a double.
    const QString huge(400, QLatin1Char('9'));
    const QString tiny = QStringLiteral("0,") + QString(400, QLatin1Char('0')) + QLatin1Char('1');
    QTest::newRow("SERVOsoft slave overflow") << 0 << "1;1e999" << pairs({ { 1, 0 } })
                                              << "Slave-Position 1e999 konnte nicht konvertiert werden.";
    QTest::newRow("SERVOsoft master underflow, shown with a point")
        << 0 << (tiny + ";2") << pairs({ { 0, 2 } })
        << QStringLiteral("Master-Position %1 konnte nicht konvertiert werden.")
               .arg(QString(tiny).replace(QLatin1Char(','), QLatin1Char('.')));
    QTest::newRow("TwinCat2 master overflow")
        << 1 << (huge + ",1.5") << pairs({ { 0, 1.5 } })
        << QStringLiteral("Master-Position %1 konnte nicht konvertiert werden.").arg(huge);
    QTest::newRow("CodeSys slave underflow") << 2 << "1.0; 1e-999" << pairs({ { 1, 0 } })
                                             << "Slave-Position 1e-999 konnte nicht konvertiert werden.";
    QTest::newRow("free format slave overflow after good lines")
        << 3 << "0;0\n1;-2e400\n3;4" << pairs({ { 0, 0 }, { 1, 0 }, { 3, 4 } })
        << "Slave-Position -2e400 konnte nicht konvertiert werden.";
    QTest::newRow("last failure wins") << 0 << "1;1e999\n2;3e999\n4;5" << pairs({ { 1, 0 }, { 2, 0 }, { 4, 5 } })
                                       << "Slave-Position 3e999 konnte nicht konvertiert werden.";
    QTest::newRow("slave failure follows master failure in one pair")
        << 1 << (huge + QLatin1Char(',') + huge) << pairs({ { 0, 0 } })
        << QStringLiteral("Slave-Position %1 konnte nicht konvertiert werden.").arg(huge);
}

void TestCurveTextConverter::failedValues()
{
    QFETCH(int, format);
    QFETCH(QString, text);
    QFETCH(QPolygonF, expected);
    QFETCH(QString, message);
    CurveTextConverter converter;
    converter.setFormat(format);
    converter.setText(text);
    compareExactly(converter.convert(), expected);
    QCOMPARE(converter.errorMessage(), message);
}

void TestCurveTextConverter::errorMessageIsClearedByTheNextConversion()
{
    CurveTextConverter converter;
    converter.setText(QStringLiteral("1;1e999"));
    converter.convert();
    QVERIFY(!converter.errorMessage().isEmpty());
    converter.setText(QStringLiteral("1;2"));
    compareExactly(converter.convert(), pairs({ { 1, 2 } }));
    QCOMPARE(converter.errorMessage(), NoError);
}

void TestCurveTextConverter::patternFollowsTheSettingsBetweenConversions()
{
    // The compiled expression is kept between conversions; every change of a
    // choice must still reach the next one.
    CurveTextConverter converter;
    converter.setText(QStringLiteral("1;2\n3,5\t4,5\n6 7\n8,9\n"));
    compareExactly(converter.convert(), pairs({ { 1, 2 } }));
    converter.setValueSeparator(CurveTextConverter::Blank);
    compareExactly(converter.convert(), pairs({ { 6, 7 } }));
    converter.setDecimalSeparator(CurveTextConverter::DecimalComma);
    converter.setValueSeparator(CurveTextConverter::Tab);
    compareExactly(converter.convert(), pairs({ { 3.5, 4.5 } }));
    converter.setFormat(CurveTextConverter::TwinCat2);
    compareExactly(converter.convert(), pairs({ { 3, 5 }, { 4, 5 }, { 8, 9 } }));
}

void TestCurveTextConverter::manyLines()
{
    // A real-sized table with a byte order mark and a header: every line is
    // read, in order, none is lost or doubled.
    const int lines = 20000;
    QString text = QStringLiteral("\uFEFFMaster;Slave\r\n");
    for (int i = 0; i < lines; ++i)
        text += QStringLiteral("%1;%2\r\n")
                    .arg(i * 0.5, 0, 'f', 2)
                    .arg(-i * 0.25, 0, 'f', 2)
                    .replace(QLatin1Char('.'), QLatin1Char(','));
    CurveTextConverter converter;
    converter.setFormat(CurveTextConverter::ServoSoft);
    converter.setText(text);
    const QPolygonF points = converter.convert();
    QCOMPARE(points.size(), lines);
    for (int i = 0; i < lines; ++i) {
        if (points.at(i) != QPointF(i * 0.5, -i * 0.25))
            QFAIL(qPrintable(QStringLiteral("line %1 read as (%2, %3)").arg(i).arg(points.at(i).x()).arg(points.at(i).y())));
    }
}

QTEST_GUILESS_MAIN(TestCurveTextConverter)
#include "tst_curvetextconverter.moc"
