#include "cursoroverlay.h"

#include <QPainter>

#include <qwt_plot.h>
#include <qwt_scale_widget.h>

namespace {

constexpr double LineWidth = 1.5;
// Room for the line and its number beside it, for the overlay's mask.
constexpr int LabelWidth = 16;
constexpr int LabelHeight = 18;

} // namespace

CursorOverlay::CursorOverlay(QwtPlot *plot)
    : QwtWidgetOverlay(plot->canvas())
    , m_plot(plot)
{
    setObjectName(QStringLiteral("cursorOverlay"));
    // A zoom or a pan moves the cursors with the axis.
    connect(plot->axisWidget(QwtPlot::xBottom), &QwtScaleWidget::scaleDivChanged, this,
            &QwtWidgetOverlay::updateOverlay);
}

void CursorOverlay::setCursors(const QVector<Cursor> &cursors)
{
    m_cursors = cursors;
    updateOverlay();
}

void CursorOverlay::drawOverlay(QPainter *painter) const
{
    for (int i = 0; i < m_cursors.size(); ++i) {
        const double x = m_plot->transform(QwtPlot::xBottom, m_cursors[i].master);
        painter->setPen(QPen(m_cursors[i].color, LineWidth, Qt::DashLine));
        painter->drawLine(QPointF(x, 0.0), QPointF(x, height()));
        painter->drawText(QRectF(x + 3.0, 2.0, LabelWidth, LabelHeight), Qt::AlignLeft | Qt::AlignTop,
                          QString::number(i + 1));
    }
}

QRegion CursorOverlay::maskHint() const
{
    QRegion region;
    for (const Cursor &cursor : m_cursors) {
        const int x = qRound(m_plot->transform(QwtPlot::xBottom, cursor.master));
        region += QRect(x - 2, 0, 5, height());
        region += QRect(x, 0, LabelWidth + 4, LabelHeight + 2);
    }
    return region;
}
