#include "densecurve.h"

#include <QPainter>

#include <qwt_clipper.h>
#include <qwt_painter.h>
#include <qwt_scale_map.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

// Rounded half away from zero, as Qwt rounds its mapped points.
double pixel(double value)
{
    return value >= 0.0 ? std::floor(value + 0.5) : std::ceil(value - 0.5);
}

// One pixel column of consecutive points: the first, the lowest, the highest
// and the last, the lowest and the highest in the order they came.
struct Column {
    QPointF first;
    QPointF last;
    QPointF lowest;
    QPointF highest;
    bool lowestFirst = true;

    void start(const QPointF &point)
    {
        first = last = lowest = highest = point;
        lowestFirst = true;
    }
    void add(const QPointF &point)
    {
        last = point;
        if (point.y() < lowest.y()) {
            lowest = point;
            lowestFirst = false;
        } else if (point.y() > highest.y()) {
            highest = point;
            lowestFirst = true;
        }
    }
    void appendTo(QPolygonF &polyline) const
    {
        const auto append = [&polyline](const QPointF &point) {
            if (polyline.isEmpty() || polyline.constLast() != point)
                polyline.append(point);
        };
        append(first);
        append(lowestFirst ? lowest : highest);
        append(lowestFirst ? highest : lowest);
        append(last);
    }
};

} // namespace

DenseCurve::DenseCurve(const QString &title)
    : QwtPlotCurve(title)
{
}

void DenseCurve::setKeepsPicture(bool keeps)
{
    m_keepsPicture = keeps;
    m_picture = QImage();
}

void DenseCurve::setSharedSamples(const QPolygonF &source, double factor)
{
    if (m_given && m_factor == factor && m_source.constData() == source.constData()
        && m_source.size() == source.size())
        return;
    m_source = source;
    m_factor = factor;
    m_given = true;
    QVector<QPointF> samples(source);
    if (factor != 1.0) {
        for (QPointF &point : samples)
            point.ry() *= factor;
    }
    setSamples(samples);
}

void DenseCurve::itemChanged()
{
    // Data, pen, visibility, hints: whatever changed, the picture is old.
    ++m_revision;
    QwtPlotCurve::itemChanged();
}

bool DenseCurve::PictureKey::operator==(const PictureKey &other) const
{
    return revision == other.revision && std::equal(std::begin(x), std::end(x), std::begin(other.x))
        && std::equal(std::begin(y), std::end(y), std::begin(other.y)) && canvasRect == other.canvasRect
        && pixelRatio == other.pixelRatio && antialiased == other.antialiased;
}

void DenseCurve::drawSeries(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
                            const QRectF &canvasRect, int from, int to) const
{
    // Kept only for the whole curve on a screen-like painter that neither
    // moves nor scales (the canvas); prints and exports draw as always.
    const QPaintDevice *device = painter->device();
    const QPaintEngine *engine = painter->paintEngine();
    if (!m_keepsPicture || from != 0 || to >= 0 || !device || !engine || engine->type() != QPaintEngine::Raster
        || painter->transform().type() != QTransform::TxNone || canvasRect.isEmpty()) {
        QwtPlotCurve::drawSeries(painter, xMap, yMap, canvasRect, from, to);
        return;
    }
    PictureKey key;
    key.revision = m_revision;
    const double xs[4] = { xMap.s1(), xMap.s2(), xMap.p1(), xMap.p2() };
    const double ys[4] = { yMap.s1(), yMap.s2(), yMap.p1(), yMap.p2() };
    std::copy(std::begin(xs), std::end(xs), std::begin(key.x));
    std::copy(std::begin(ys), std::end(ys), std::begin(key.y));
    key.canvasRect = canvasRect;
    key.pixelRatio = device->devicePixelRatioF();
    key.antialiased = painter->testRenderHint(QPainter::Antialiasing);
    if (m_picture.isNull() || !(key == m_pictureKey)) {
        const QRect area = canvasRect.toAlignedRect();
        m_picture = QImage(area.size() * key.pixelRatio, QImage::Format_ARGB32_Premultiplied);
        m_picture.setDevicePixelRatio(key.pixelRatio);
        m_picture.fill(Qt::transparent);
        QPainter picture(&m_picture);
        picture.setRenderHints(painter->renderHints());
        picture.translate(-area.topLeft());
        QwtPlotCurve::drawSeries(&picture, xMap, yMap, canvasRect, from, to);
        picture.end();
        m_pictureKey = key;
        ++m_pictureDraws;
    }
    painter->drawImage(canvasRect.toAlignedRect().topLeft(), m_picture);
}

QPolygonF DenseCurve::pixelPolyline(const QwtScaleMap &xMap, const QwtScaleMap &yMap, int from, int to) const
{
    QPolygonF polyline;
    const QwtSeriesData<QPointF> *series = data();
    if (!series || from > to)
        return polyline;
    Column column;
    bool open = false;
    for (int i = from; i <= to; ++i) {
        const QPointF sample = series->sample(size_t(i));
        const double x = xMap.transform(sample.x());
        const double y = yMap.transform(sample.y());
        if (std::isnan(x) || std::isnan(y))
            continue;
        const QPointF point(pixel(x), pixel(y));
        if (open && point.x() == column.first.x()) {
            column.add(point);
            continue;
        }
        if (open)
            column.appendTo(polyline);
        column.start(point);
        open = true;
    }
    if (open)
        column.appendTo(polyline);
    return polyline;
}

void DenseCurve::drawLines(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
                           const QRectF &canvasRect, int from, int to) const
{
    // Qwt rounds to pixels only on painters that do not scale; elsewhere
    // (print, SVG, PDF) every sample is drawn as Qwt draws it. So is a curve
    // that keeps its picture: it is drawn seldom, and Qwt strokes its line
    // in short pieces whose ends show on a noisy table (the stored
    // derivatives), which a thinned line would not show alike.
    if (m_keepsPicture || from > to || brush().style() != Qt::NoBrush || testCurveAttribute(Fitted)
        || !testPaintAttribute(FilterPoints) || !QwtPainter::roundingAlignment(painter)) {
        QwtPlotCurve::drawLines(painter, xMap, yMap, canvasRect, from, to);
        return;
    }
    QPolygonF polyline = pixelPolyline(xMap, yMap, from, to);
    if (testPaintAttribute(ClipPolygons)) {
        const qreal penWidth = qMax(qreal(1.0), painter->pen().widthF());
        polyline = QwtClipper::clipPolygonF(canvasRect.adjusted(-penWidth, -penWidth, penWidth, penWidth), polyline);
    }
    QwtPainter::drawPolyline(painter, polyline);
}
