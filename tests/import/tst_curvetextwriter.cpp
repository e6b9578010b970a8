#include "testfiles.h"

#include "import/curvetextconverter.h"
#include "import/curvetextwriter.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTextStream>
#include <QtTest>

#include <cmath>
#include <limits>

// Tables written as text must import as the pairs the drive would store:
// each value rounded to its axis' decimal places, nothing lost, nothing added.

namespace {

constexpr int Rows = 16000;

struct Settings {
    int format;
    int decimalSeparator;
    int valueSeparator;
};

// Rounded as the drive stores a value: half away from zero.
double rounded(double value, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    return std::round(value * scale) / scale;
}

// Signed values over eight decades with all their digits, and the values at
// which rounding turns: halves of the last place and tiny negatives that
// round to zero.
QPolygonF randomTable(quint32 seed, int masterDecimals)
{
    QRandomGenerator random(seed);
    QPolygonF table;
    table.reserve(Rows);
    const double step = std::pow(10.0, -masterDecimals);
    for (int i = 0; i < Rows; ++i) {
        const auto any = [&random] {
            const double magnitude = std::pow(10.0, random.bounded(8) - 3);
            return (random.generateDouble() * 2.0 - 1.0) * magnitude;
        };
        switch (i % 10) {
        case 0:
            table.append(QPointF((i - Rows / 2) * step + step / 2.0, -step / 3.0));
            break;
        case 1:
            table.append(QPointF(-0.0, any()));
            break;
        default:
            table.append(QPointF(any(), any()));
        }
    }
    return table;
}

// The separators first: a named format brings its own, whatever came before.
CurveTextWriter writerWith(const Settings &settings, int masterDecimals, int slaveDecimals)
{
    CurveTextWriter writer;
    writer.setDecimalSeparator(settings.decimalSeparator);
    writer.setValueSeparator(settings.valueSeparator);
    writer.setFormat(settings.format);
    writer.setDecimalPlaces(masterDecimals, slaveDecimals);
    return writer;
}

QPolygonF readBack(const QString &path, const CurveTextWriter &writer)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return QPolygonF();
    // As the import dialog reads a file: a text stream with its default codec.
    QTextStream stream(&file);
    CurveTextConverter converter;
    converter.setDecimalSeparator(writer.decimalSeparator());
    converter.setValueSeparator(writer.valueSeparator());
    converter.setFormat(writer.format());
    converter.setText(stream.readAll());
    return converter.convert();
}

} // namespace

Q_DECLARE_METATYPE(Settings)

class tst_CurveTextWriter : public QObject
{
    Q_OBJECT
    QTemporaryDir m_dir;

private slots:
    void roundTrip_data();
    void roundTrip();
    void text_data();
    void text();
    void refusals_data();
    void refusals();
    void unwritableFolder();
};

void tst_CurveTextWriter::roundTrip_data()
{
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<int>("masterDecimals");
    QTest::addColumn<int>("slaveDecimals");

    const char *formatNames[] = { "SERVOsoft", "TwinCat2", "CodeSys" };
    const char *decimalNames[] = { "point", "comma" };
    const char *separatorNames[] = { "semicolon", "comma", "tab", "blank" };
    QList<QPair<QByteArray, Settings>> all;
    // A named format brings its own separators, whatever the free format had:
    // these are the refused pair, given beforehand.
    for (int format : { CurveTextConverter::ServoSoft, CurveTextConverter::TwinCat2, CurveTextConverter::CodeSys })
        all.append({ formatNames[format], Settings { format, CurveTextConverter::DecimalComma, CurveTextConverter::Comma } });
    for (int decimal : { CurveTextConverter::DecimalPoint, CurveTextConverter::DecimalComma }) {
        for (int separator = CurveTextConverter::Semicolon; separator <= CurveTextConverter::Blank; ++separator) {
            if (decimal == CurveTextConverter::DecimalComma && separator == CurveTextConverter::Comma)
                continue;  // refused, see refusals()
            all.append({ QByteArray("free, ") + decimalNames[decimal] + ", " + separatorNames[separator],
                         Settings { CurveTextConverter::FreeFormat, decimal, separator } });
        }
    }
    // Every setting with every decimal place a drive has, master and slave
    // differing.
    for (const auto &entry : all) {
        for (int masterDecimals = 0; masterDecimals <= 6; ++masterDecimals) {
            const int slaveDecimals = (masterDecimals + 4) % 7;
            QTest::addRow("%s, %d/%d places", entry.first.constData(), masterDecimals, slaveDecimals)
                << entry.second << masterDecimals << slaveDecimals;
        }
    }
}

void tst_CurveTextWriter::roundTrip()
{
    QFETCH(Settings, settings);
    QFETCH(int, masterDecimals);
    QFETCH(int, slaveDecimals);
    const QPolygonF table = randomTable(quint32(masterDecimals * 131 + slaveDecimals), masterDecimals);

    const CurveTextWriter writer = writerWith(settings, masterDecimals, slaveDecimals);
    QCOMPARE(writer.refusal(), QString());
    const QString path = m_dir.filePath(QStringLiteral("table.txt"));
    QString error;
    QVERIFY2(writer.write(path, table, &error), qPrintable(error));

    const QPolygonF read = readBack(path, writer);
    QCOMPARE(read.size(), table.size());
    for (int i = 0; i < table.size(); ++i) {
        const QPointF expected(rounded(table.at(i).x(), masterDecimals), rounded(table.at(i).y(), slaveDecimals));
        // Exactly, not fuzzily: the import must store the same numbers.
        QVERIFY2(read.at(i).x() == expected.x() && read.at(i).y() == expected.y(),
                 qPrintable(QStringLiteral("row %1: written %2;%3, read %4;%5")
                                .arg(i)
                                .arg(table.at(i).x(), 0, 'g', 17)
                                .arg(table.at(i).y(), 0, 'g', 17)
                                .arg(read.at(i).x(), 0, 'g', 17)
                                .arg(read.at(i).y(), 0, 'g', 17)));
    }
}

// What other tools see.
void tst_CurveTextWriter::text_data()
{
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<QString>("expected");
    // Halves round away from zero; a negative that rounds to zero is a zero.
    QTest::newRow("SERVOsoft") << Settings { CurveTextConverter::ServoSoft, 0, 0 } << "0,13;-12\r\n0,00;3\r\n";
    QTest::newRow("TwinCat2") << Settings { CurveTextConverter::TwinCat2, 0, 0 } << "0.13,-12\r\n0.00,3\r\n";
    QTest::newRow("CodeSys") << Settings { CurveTextConverter::CodeSys, 0, 0 } << "0.13; -12\r\n0.00; 3\r\n";
    QTest::newRow("free, comma, tab") << Settings { CurveTextConverter::FreeFormat, CurveTextConverter::DecimalComma,
                                                    CurveTextConverter::Tab }
                                      << "0,13\t-12\r\n0,00\t3\r\n";
}

void tst_CurveTextWriter::text()
{
    QFETCH(Settings, settings);
    QFETCH(QString, expected);
    QString error;
    QCOMPARE(writerWith(settings, 2, 0).toText({ QPointF(0.125, -11.5), QPointF(-0.001, 2.5) }, &error), expected);
    QCOMPARE(error, QString());
}

void tst_CurveTextWriter::refusals_data()
{
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QVector<QPointF>>("points");
    QTest::addColumn<QString>("message");
    QTest::addColumn<bool>("refusedBeforehand");  // by refusal(), without looking at the points

    const Settings free { CurveTextConverter::FreeFormat, CurveTextConverter::DecimalPoint, CurveTextConverter::Semicolon };
    const QVector<QPointF> some { QPointF(0, 0), QPointF(1, 2) };
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("decimal comma with comma as separator")
        << Settings { CurveTextConverter::FreeFormat, CurveTextConverter::DecimalComma, CurveTextConverter::Comma } << 3
        << some << "Das Komma kann nicht zugleich Dezimalzeichen und Trennzeichen sein" << true;
    QTest::newRow("unknown separator") << Settings { CurveTextConverter::FreeFormat, 0, 4 } << 3 << some
                                       << "Unbekanntes Trennzeichen." << true;
    QTest::newRow("unknown decimal mark") << Settings { CurveTextConverter::FreeFormat, 2, 0 } << 3 << some
                                          << "Unbekanntes Dezimalzeichen." << true;
    QTest::newRow("more decimal places than a double has") << free << 16 << some
                                                           << "16 Nachkommastellen können nicht geschrieben werden" << true;
    QTest::newRow("no points") << free << 3 << QVector<QPointF>() << "Es gibt keine Stützstellen" << false;
    QTest::newRow("infinite slave") << free << 3 << QVector<QPointF> { QPointF(0, 0), QPointF(1, infinity), QPointF(2, 0) }
                                    << "Die Stützstelle 2 (Master 1, Slave inf)" << false;
    QTest::newRow("master not a number, last row") << free << 3 << QVector<QPointF> { QPointF(0, 0), QPointF(nan, 1) }
                                                   << "Die Stützstelle 2 (Master nan, Slave 1)" << false;
}

// A refused table leaves no file behind and an existing one as it was.
void tst_CurveTextWriter::refusals()
{
    QFETCH(Settings, settings);
    QFETCH(int, decimals);
    QFETCH(QVector<QPointF>, points);
    QFETCH(QString, message);
    QFETCH(bool, refusedBeforehand);
    const CurveTextWriter writer = writerWith(settings, 0, decimals);
    QCOMPARE(writer.refusal().startsWith(message), refusedBeforehand);

    QTemporaryDir dir;
    const QString fresh = dir.filePath(QStringLiteral("fresh.csv"));
    const QString existing = dir.filePath(QStringLiteral("existing.csv"));
    QVERIFY(writeFile(existing, "1;1\r\n"));
    for (const QString &path : { fresh, existing }) {
        QString error;
        QVERIFY(!writer.write(path, points, &error));
        QVERIFY2(error.startsWith(message), qPrintable(error));
    }
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList { QStringLiteral("existing.csv") });
    QCOMPARE(readFile(existing), QByteArray("1;1\r\n"));
}

void tst_CurveTextWriter::unwritableFolder()
{
    const QString path = m_dir.filePath(QStringLiteral("missing/table.csv"));
    CurveTextWriter writer;
    QString error;
    QVERIFY(!writer.write(path, { QPointF(0, 0), QPointF(1, 1) }, &error));
    QVERIFY2(error.startsWith(QStringLiteral("Die Datei %1 kann nicht geschrieben werden: ").arg(path)), qPrintable(error));
}

QTEST_GUILESS_MAIN(tst_CurveTextWriter)
#include "tst_curvetextwriter.moc"
