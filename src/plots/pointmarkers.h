#pragma once

#include "curveplot.h"

#include <QPointF>
#include <QVector>

class CamEditorModel;
class QwtPlotCurve;

// The motion points on the plots: a marker per point on the position plot,
// shaped by its segment type where the VDI law uses the types, and a ring
// around the current point in every plot. The curves belong to the plots.
class PointMarkers
{
public:
    // The markers of points whose type is out of range, and all points
    // under the other laws, share one plain marker.
    static constexpr int PlainMarkers = 4;

    explicit PointMarkers(CurvePlot *const (&plots)[CurvePlot::QuantityCount]);

    // The markers of the motion points whose segment type is the given one
    // (MotionPoint::rest ...), or, with -1, of all points shown plainly.
    QwtPlotCurve *markers(int type) const;
    QwtPlotCurve *ring(int quantity) const { return m_rings[quantity]; }

    void showPoints(const CamEditorModel *editorModel);
    // The ring in one plot around the point given, or none.
    void setRing(int quantity, const QVector<QPointF> &point);

private:
    QwtPlotCurve *m_markers[PlainMarkers + 1];
    QwtPlotCurve *m_rings[CurvePlot::QuantityCount];
};
