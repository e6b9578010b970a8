// Converting a curve table runs again on every keystroke in the import
// dialog, so one conversion of a large table must stay well below what a
// user notices (the target is well under 50 ms for 20000 pairs).
#include "import/curvetextconverter.h"
#include "import/curvetextwriter.h"

#include <QPolygonF>
#include <QString>

#include <benchmark/benchmark.h>

#include <cmath>

namespace {

const int Pairs = 20000;

// A table as the tools write it: a header, units, Windows line ends.
QString tableText(int format)
{
    QString text;
    text.reserve(Pairs * 32);
    switch (format) {
    case CurveTextConverter::ServoSoft:
        text += QStringLiteral("Masterposition;Slaveposition\r\n[Grad];[mm]\r\n");
        break;
    case CurveTextConverter::TwinCat2:
        text += QStringLiteral("Master,Slave\r\n");
        break;
    case CurveTextConverter::CodeSys:
        text += QStringLiteral("(* Kurvenscheibe *)\r\n");
        break;
    default:
        text += QStringLiteral("Master\tSlave\r\n");
        break;
    }
    for (int i = 0; i < Pairs; ++i) {
        const QString master = QString::number(i * 0.018, 'f', 3);
        const QString slave = QString::number(100.0 * i / Pairs, 'e', 6);
        switch (format) {
        case CurveTextConverter::ServoSoft:
            text += QString(master).replace(QLatin1Char('.'), QLatin1Char(',')) + QLatin1Char(';')
                + QString(slave).replace(QLatin1Char('.'), QLatin1Char(','));
            break;
        case CurveTextConverter::TwinCat2:
            text += master + QLatin1Char(',') + QString::number(100.0 * i / Pairs, 'f', 6);
            break;
        case CurveTextConverter::CodeSys:
            text += master + QStringLiteral(";  ") + slave;
            break;
        default:
            text += QString(master).replace(QLatin1Char('.'), QLatin1Char(',')) + QLatin1Char('\t')
                + QString(slave).replace(QLatin1Char('.'), QLatin1Char(','));
            break;
        }
        text += QStringLiteral("\r\n");
    }
    return text;
}

void convertTable(benchmark::State &state)
{
    const int format = static_cast<int>(state.range(0));
    CurveTextConverter converter;
    converter.setFormat(format);
    if (format == CurveTextConverter::FreeFormat) {
        converter.setDecimalSeparator(CurveTextConverter::DecimalComma);
        converter.setValueSeparator(CurveTextConverter::Tab);
    }
    converter.setText(tableText(format));
    for (auto _ : state) {
        const QPolygonF points = converter.convert();
        if (points.size() != Pairs || !converter.errorMessage().isEmpty()) {
            state.SkipWithError("the table did not convert completely");
            break;
        }
        benchmark::DoNotOptimize(points.constData());
    }
    state.SetItemsProcessed(state.iterations() * Pairs);
}

// Each format by its selector index; 3 is the free format (comma, tab).
BENCHMARK(convertTable)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

// A change of separator in the dialog compiles the pattern anew.
void convertAfterSeparatorChange(benchmark::State &state)
{
    CurveTextConverter converter;
    converter.setDecimalSeparator(CurveTextConverter::DecimalComma);
    converter.setText(tableText(CurveTextConverter::FreeFormat));
    int separator = CurveTextConverter::Semicolon;
    for (auto _ : state) {
        separator = separator == CurveTextConverter::Semicolon ? CurveTextConverter::Tab : CurveTextConverter::Semicolon;
        converter.setValueSeparator(separator);
        benchmark::DoNotOptimize(converter.convert().constData());
    }
}
BENCHMARK(convertAfterSeparatorChange)->Unit(benchmark::kMillisecond);

// One line of nothing but digits, as a damaged or binary file may hold: the
// conversion must stay linear in the text (a backtracking search took
// 12 to 20 s for 256000 digits). The line is no pair and is skipped.
void convertLongLine(benchmark::State &state)
{
    const int length = static_cast<int>(state.range(0));
    CurveTextConverter converter;
    converter.setText(QStringLiteral("0;0\n") + QString(length, QLatin1Char('7')) + QStringLiteral("\n1;1\n"));
    for (auto _ : state) {
        const QPolygonF points = converter.convert();
        if (points.size() != 2 || converter.skippedLineCount() != 1) {
            state.SkipWithError("the long line was not skipped");
            break;
        }
        benchmark::DoNotOptimize(points.constData());
    }
    state.SetBytesProcessed(state.iterations() * length * int64_t(sizeof(QChar)));
}
BENCHMARK(convertLongLine)->Arg(256000)->Arg(1000000)->Unit(benchmark::kMillisecond);

// The export writes a table of 16000 grid points and reads it back once to
// make sure that the import will read the same pairs.
void writeTable(benchmark::State &state)
{
    const int format = static_cast<int>(state.range(0));
    const int rows = 16000;
    QVector<QPointF> points;
    points.reserve(rows);
    for (int i = 0; i < rows; ++i)
        points.append(QPointF(i * 0.0225, 100.0 * std::sin(i * 0.001)));
    CurveTextWriter writer;
    writer.setFormat(format);
    writer.setDecimalPlaces(3, 4);
    for (auto _ : state) {
        QString error;
        const QString text = writer.toText(points, &error);
        if (text.isEmpty()) {
            state.SkipWithError("the table was refused");
            break;
        }
        benchmark::DoNotOptimize(text.constData());
    }
    state.SetItemsProcessed(state.iterations() * rows);
}
BENCHMARK(writeTable)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
