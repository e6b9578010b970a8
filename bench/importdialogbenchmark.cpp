// The external curve import dialog as a user meets it, with a full table of
// 16000 grid points in the drive: opening it, loading a file of 20000 pairs,
// and one keystroke in that text until the dialog has repainted. A keystroke
// that changes one value touches one row; one that joins two lines shifts
// every pair behind it, which is the worst a keystroke can do.
#include "import/externalcurveimportview.h"
#include "parameters/parametermodelimplementation.h"

#include "simulateddrive.h"
#include "widgetbenchmarkmain.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTextBlock>
#include <QTextEdit>

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>

namespace {

constexpr int GridPoints = 16000;
constexpr int Pairs = 20000;
constexpr int Table = 5;
constexpr int LivingSpace = 1;

struct Drive {
    MxSimulation::SimulatedDrive drive;
    ParameterModelImplementation model { nullptr, &drive, Table, LivingSpace };

    Drive()
    {
        QVector<QPointF> points;
        for (int i = 0; i < GridPoints; ++i)
            points.append(QPointF(i * 0.0225, 100.0 * std::sin(i * 0.0225 * M_PI / 180.0)));
        model.writeGridPoints(points);
    }
};

// Free format as the dialog starts: decimal point and semicolon.
QString pairText()
{
    QString text;
    for (int i = 0; i < Pairs; ++i)
        text += QStringLiteral("%1;%2\n").arg(i * 0.018, 0, 'f', 3).arg(100.0 * std::cos(i * 0.018 * M_PI / 180.0), 0, 'f', 3);
    return text;
}

void press(QWidget *widget, int key, const QString &text = QString())
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(widget, &event);
}

void openDialog(benchmark::State &state)
{
    Drive drive;
    for (auto _ : state) {
        auto dialog = std::make_unique<ExternalCurveImportView>(&drive.model);
        dialog->show();
        QApplication::processEvents();
        state.PauseTiming();
        dialog.reset();
        state.ResumeTiming();
    }
}

void loadText(benchmark::State &state)
{
    Drive drive;
    ExternalCurveImportView dialog(&drive.model);
    dialog.show();
    auto *edit = dialog.findChild<QTextEdit *>(QStringLiteral("importFileEdit"));
    const QString text = pairText();
    for (auto _ : state) {
        edit->setPlainText(text);
        QApplication::processEvents();
        state.PauseTiming();
        state.counters["pairs"] = double(dialog.importedPoints().size());
        edit->clear();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

// range(0): 0 types a digit into one value and takes it back; 1 deletes the
// separator of a pair near the start and types it again, so that every pair
// behind it moves by one row.
void keystroke(benchmark::State &state)
{
    Drive drive;
    ExternalCurveImportView dialog(&drive.model);
    dialog.show();
    auto *edit = dialog.findChild<QTextEdit *>(QStringLiteral("importFileEdit"));
    edit->setPlainText(pairText());
    edit->setFocus();
    QApplication::processEvents();
    const bool shift = state.range(0) == 1;
    const QTextBlock block = edit->document()->findBlockByNumber(shift ? 3 : Pairs / 2);
    QTextCursor cursor(block);
    cursor.setPosition(block.position() + (shift ? block.text().indexOf(QLatin1Char(';')) + 1 : block.length() - 1));
    edit->setTextCursor(cursor);
    bool back = shift;
    for (auto _ : state) {
        if (back)
            press(edit, Qt::Key_Backspace);
        else if (shift)
            press(edit, Qt::Key_Semicolon, QStringLiteral(";"));
        else
            press(edit, Qt::Key_7, QStringLiteral("7"));
        back = !back;
        // Until the dialog has repainted.
        QApplication::processEvents();
    }
    if (dialog.importedPoints().size() < Pairs - 1)
        state.SkipWithError("the text did not convert");
}

} // namespace

BENCHMARK(openDialog)->Unit(benchmark::kMillisecond);
BENCHMARK(loadText)->Unit(benchmark::kMillisecond);
BENCHMARK(keystroke)->ArgName("shiftsAll")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    return runWidgetBenchmarks(argc, argv);
}
