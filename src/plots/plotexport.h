#pragma once

#include <QList>
#include <QSize>
#include <QString>

class CurvePlot;

// Plots rendered one below the other under a line that names the curves, as
// they are shown (scales, units, marks), into a PNG, SVG or PDF file as its
// suffix says.
namespace PlotExport {

// False when it cannot be written, with the system's reason where there is
// one; an existing file stays until the new picture is complete.
bool write(const QList<CurvePlot *> &plots, const QString &path, const QSize &size, QString *errorString);

} // namespace PlotExport
