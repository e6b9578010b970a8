#pragma once

class QwtPlot;

// The master axis of a plot in master units or, with a cycle time selected,
// in seconds: the curves keep their master positions (markers, drags and
// cursors work in them), only the ticks fall on round seconds and the
// labels read in seconds.
namespace TimeMasterAxis {

// secondsPerMaster > 0 shows time (t = master × secondsPerMaster); 0 shows
// the master position itself.
void apply(QwtPlot *plot, double secondsPerMaster);
// What apply() was last given for the plot (0 for the master position).
double secondsPerMaster(const QwtPlot *plot);

} // namespace TimeMasterAxis
