// Writing a full cam table of 16000 grid points into a simulated drive, with
// the progress dialog shown and events processed as in the editor, and the
// same table a second time (which must write no array element). Then another
// tool changing every element of a written table while the editor follows it.
#include "parameters/parametermodelimplementation.h"

#include "simulateddrive.h"
#include "widgetbenchmarkmain.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>

namespace {

constexpr int GridPoints = 16000;
constexpr int Table = 5;
constexpr int LivingSpace = 1;

QVector<QPointF> fullTable(int count = GridPoints)
{
    QVector<QPointF> points;
    points.reserve(count);
    for (int i = 0; i < count; ++i) {
        const double master = i * 0.0225;  // 0 .. 360
        points.append(QPointF(master, 100.0 * std::sin(master * M_PI / 180.0)));
    }
    return points;
}

struct Bound {
    MxSimulation::SimulatedDrive drive;
    ParameterModelImplementation model { nullptr, &drive, Table, LivingSpace };
};

int arrayWrites(const MxSimulation::SimulatedDrive &drive)
{
    return drive.elementWrites(MxSimulation::masterArrayCoordinate(Table))
        + drive.elementWrites(MxSimulation::slaveArrayCoordinate(Table));
}

void firstWrite(benchmark::State &state)
{
    const QVector<QPointF> points = fullTable();
    int writes = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto bound = std::make_unique<Bound>();
        state.ResumeTiming();
        bound->model.writeGridPoints(points);
        state.PauseTiming();
        writes = arrayWrites(bound->drive);
        bound.reset();
        state.ResumeTiming();
    }
    state.counters["arrayWrites"] = writes;
}

void secondWrite(benchmark::State &state)
{
    const QVector<QPointF> points = fullTable();
    Bound bound;
    bound.model.writeGridPoints(points);
    int writes = 0;
    for (auto _ : state) {
        state.PauseTiming();
        bound.drive.clearWriteCounts();
        state.ResumeTiming();
        bound.model.writeGridPoints(points);
        state.PauseTiming();
        writes = arrayWrites(bound.drive);
        state.ResumeTiming();
    }
    state.counters["arrayWrites"] = writes;
    if (writes != 0)
        state.SkipWithError("the second write wrote array elements");
}

// Every element of both arrays changed from outside, until the model has
// followed (its read-back runs as a queued call).
void outsideChange(benchmark::State &state)
{
    const int count = int(state.range(0));
    Bound bound;
    bound.model.writeGridPoints(fullTable(count));
    bound.model.setConnections();
    const MxParameterDefinition::ParameterCoordinate master(MxSimulation::masterArrayCoordinate(Table));
    const MxParameterDefinition::ParameterCoordinate slave(MxSimulation::slaveArrayCoordinate(Table));
    int round = 0;
    for (auto _ : state) {
        ++round;
        for (int i = 0; i < count; ++i) {
            bound.drive.writeValueNative(LivingSpace, master, i, QString::number(i * 20 + round % 2));
            bound.drive.writeValueNative(LivingSpace, slave, i, QString::number(round * 7 + i));
        }
        QCoreApplication::processEvents();
    }
    const QPolygonF stored = bound.model.storedGridPoints();
    if (stored.size() != count || stored.constLast().y() != (round * 7 + count - 1) / 1000.0)
        state.SkipWithError("the model did not follow the change");
}

BENCHMARK(outsideChange)->Unit(benchmark::kMillisecond)->Arg(1000)->Arg(16000)->Iterations(3);
BENCHMARK(firstWrite)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(secondWrite)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace

int main(int argc, char **argv)
{
    // The drive suite runs under a German locale: the binding reads stored
    // values in German notation, which is what lets it skip unchanged ones.
    qputenv("LC_ALL", "de_DE.UTF-8");
    return runWidgetBenchmarks(argc, argv);
}
