#include "model/decimaltext.h"
#include "model/motionpoint.h"
#include "views/motionpointtextparser.h"

#include <QTest>

class tst_MotionPointTextParser : public QObject
{
    Q_OBJECT
private slots:
    void parse_data();
    void parse();
    void decimalText_data();
    void decimalText();
};

void tst_MotionPointTextParser::parse_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("invalid");
    QTest::addColumn<bool>("header");
    // The last row read: master, slave, type (-1: none given).
    QTest::addColumn<double>("master");
    QTest::addColumn<double>("slave");
    QTest::addColumn<int>("type");

    QTest::newRow("tabs, points, header, types")
        << "Master-Position [°]\tSlave-Position [mm]\tSegmenttyp\n0.000\t0.000\trest\n90.5\t40.25\tturningPoint\n"
        << 2 << 0 << true << 90.5 << 40.25 << int(MotionPoint::turningPoint);
    QTest::newRow("semicolons, decimal commas, no header")
        << "10,5;-2,75\r\n20;3" << 2 << 0 << false << 20.0 << 3.0 << -1;
    QTest::newRow("tabs with decimal commas") << "1,5\t2,5\tacceleration" << 1 << 0 << false << 1.5 << 2.5
                                              << int(MotionPoint::acceleration);
    QTest::newRow("blank lines and a trailing separator") << "\n1;2;\n\n3;4\n\n" << 2 << 0 << false << 3.0 << 4.0 << -1;
    QTest::newRow("spaces around cells") << " 1 \t 2 \t speed " << 1 << 0 << false << 1.0 << 2.0
                                         << int(MotionPoint::speed);
    // Only the first line may be a header; a name must be a data name exactly.
    QTest::newRow("bad lines after the first") << "1;2\nx;2\n3;4;Rast\n5;6;turningpoint\n7\n8;9;rest;1\n10;11"
                                               << 2 << 5 << false << 10.0 << 11.0 << -1;
    QTest::newRow("grouping is no number") << "1.000,5;2" << 0 << 0 << true << 0.0 << 0.0 << -1;
    QTest::newRow("no finite number") << "a;b\ninf;1\nnan;1" << 0 << 2 << true << 0.0 << 0.0 << -1;
    QTest::newRow("nothing") << "" << 0 << 0 << false << 0.0 << 0.0 << -1;
}

void tst_MotionPointTextParser::parse()
{
    QFETCH(QString, text);
    QFETCH(int, rows);
    QFETCH(int, invalid);
    QFETCH(bool, header);
    QFETCH(double, master);
    QFETCH(double, slave);
    QFETCH(int, type);
    const MotionPointTextParser parser(text);
    QCOMPARE(parser.rows().size(), rows);
    QCOMPARE(parser.invalidLineCount(), invalid);
    QCOMPARE(parser.hasHeader(), header);
    if (rows > 0) {
        QCOMPARE(parser.rows().constLast().master, master);
        QCOMPARE(parser.rows().constLast().slave, slave);
        QCOMPARE(parser.rows().constLast().type, type);
    }
}

void tst_MotionPointTextParser::decimalText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<double>("value");
    QTest::newRow("comma") << "45,5" << true << 45.5;
    QTest::newRow("point") << "45.5" << true << 45.5;
    QTest::newRow("blanks") << " -3,25 " << true << -3.25;
    QTest::newRow("three decimals") << "1,000" << true << 1.0;
    QTest::newRow("whole") << "1000" << true << 1000.0;
    QTest::newRow("german grouping") << "1.000,5" << false << 0.0;
    QTest::newRow("english grouping") << "1,000.5" << false << 0.0;
    QTest::newRow("two commas") << "1,000,5" << false << 0.0;
    QTest::newRow("blank grouping") << "1 000" << false << 0.0;
    QTest::newRow("nan") << "nan" << false << 0.0;
    QTest::newRow("infinity") << "inf" << false << 0.0;
    QTest::newRow("empty") << "" << false << 0.0;
}

void tst_MotionPointTextParser::decimalText()
{
    QFETCH(QString, text);
    QFETCH(bool, ok);
    QFETCH(double, value);
    double parsed = 0.0;
    QCOMPARE(DecimalText::parse(text, &parsed), ok);
    QCOMPARE(parsed, value);
}

QTEST_APPLESS_MAIN(tst_MotionPointTextParser)
#include "tst_motionpointtextparser.moc"
