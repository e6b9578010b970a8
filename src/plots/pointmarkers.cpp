#include "pointmarkers.h"

#include "model/cameditormodel.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"

#include <qwt_plot_curve.h>
#include <qwt_symbol.h>

namespace {

constexpr int MarkerSize = 9;
constexpr int RingSize = 19;
const QColor RingColor(0xe0, 0x30, 0x30);

QwtSymbol *symbolFor(int marker)
{
    const QColor outline(0x20, 0x20, 0x20);
    switch (marker) {
    case MotionPoint::rest: return new QwtSymbol(QwtSymbol::Rect, QColor(0xf0, 0xa0, 0x30), outline, QSize(MarkerSize, MarkerSize));
    case MotionPoint::speed: return new QwtSymbol(QwtSymbol::Diamond, QColor(0x40, 0xa0, 0x40), outline, QSize(MarkerSize + 2, MarkerSize + 2));
    case MotionPoint::turningPoint: return new QwtSymbol(QwtSymbol::Triangle, QColor(0xc0, 0x40, 0x40), outline, QSize(MarkerSize + 2, MarkerSize + 2));
    case MotionPoint::acceleration: return new QwtSymbol(QwtSymbol::Ellipse, QColor(0x60, 0x60, 0xd0), outline, QSize(MarkerSize, MarkerSize));
    default: return new QwtSymbol(QwtSymbol::Ellipse, QColor(0x1f, 0x5f, 0xa8), outline, QSize(MarkerSize, MarkerSize));
    }
}

QwtPlotCurve *pointCurve(QwtSymbol *symbol, CurvePlot *plot, double aboveCurve)
{
    auto *curve = new QwtPlotCurve;
    curve->setStyle(QwtPlotCurve::NoCurve);
    curve->setSymbol(symbol);
    curve->setItemAttribute(QwtPlotItem::Legend, false);
    curve->setZ(plot->calculatedCurve()->z() + aboveCurve);
    curve->attach(plot);
    return curve;
}

} // namespace

PointMarkers::PointMarkers(CurvePlot *const (&plots)[CurvePlot::QuantityCount])
{
    for (int marker = 0; marker <= PlainMarkers; ++marker)
        m_markers[marker] = pointCurve(symbolFor(marker), plots[CurvePlot::Position], 1.0);
    for (int quantity = 0; quantity < CurvePlot::QuantityCount; ++quantity) {
        auto *symbol = new QwtSymbol(QwtSymbol::Ellipse, Qt::NoBrush, QPen(RingColor, 2.5), QSize(RingSize, RingSize));
        m_rings[quantity] = pointCurve(symbol, plots[quantity], 2.0);
    }
}

QwtPlotCurve *PointMarkers::markers(int type) const
{
    return type >= 0 && type < PlainMarkers ? m_markers[type] : m_markers[PlainMarkers];
}

void PointMarkers::showPoints(const CamEditorModel *editorModel)
{
    QVector<QPointF> points[PlainMarkers + 1];
    const int count = editorModel ? editorModel->motionPointCount() : 0;
    // Segment types matter to the VDI law alone (the law, not the points'
    // flag, which keeps its start value until the law first changes).
    const bool typesApply = editorModel && editorModel->motionLaw()
        && editorModel->motionLaw()->law() == MotionLaw::Vdi;
    for (int row = 0; row < count; ++row) {
        const MotionPoint *point = editorModel->motionPointAt(row);
        const bool typed = typesApply && point->type() >= 0 && point->type() < PlainMarkers;
        points[typed ? point->type() : PlainMarkers].append(point->position());
    }
    for (int marker = 0; marker <= PlainMarkers; ++marker)
        m_markers[marker]->setSamples(points[marker]);
}

void PointMarkers::setRing(int quantity, const QVector<QPointF> &point)
{
    m_rings[quantity]->setSamples(point);
}
