#pragma once

#include <QList>
#include <QObject>

class CurvePlot;

// Zoom and pan of a stack of plots over one master axis: a rubber band or
// the wheel zooms a plot, the middle button pans it, and the master range
// of one is the master range of all. Refreshes show the whole curve until
// the user zooms; then they keep the range the user chose.
class PlotZoom : public QObject
{
    Q_OBJECT
public:
    PlotZoom(const QList<CurvePlot *> &plots, QObject *parent = nullptr);

    bool isZoomed() const { return m_zoomed; }
    // The master range of the whole curve, applied to every plot (with the
    // value axes scaled to fit) unless the user has zoomed.
    void setWholeRange(double from, double to);
    // Back to the whole curve: the next setWholeRange applies again.
    void unzoom() { m_zoomed = false; }
    // As Qwt's plot matrix does: every visible left axis as wide as the
    // widest, so that the canvases stand exactly above each other; then the
    // visible plots are drawn.
    void alignAxes();

signals:
    // The user zoomed or panned to a master range; the plots show it already.
    void zoomedRangeShown(double from, double to);

private:
    void onMasterAxisChanged(CurvePlot *source);

    QList<CurvePlot *> m_plots;
    bool m_zoomed = false;
    // The whole curve's master range; the axes report it back when they are
    // next drawn, which is no zoom of the user's.
    double m_wholeFrom = 0.0;
    double m_wholeTo = 0.0;
    // Set while the stack itself changes the scales: their echoes are no
    // user zoom.
    bool m_settingScales = false;
};
