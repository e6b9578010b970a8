#include "warningbands.h"

#include <QPen>

#include <qwt_plot.h>
#include <qwt_plot_marker.h>
#include <qwt_plot_zoneitem.h>

namespace {

const QColor BandColor(0xff, 0x40, 0x40, 0x30);
const QColor LineColor(0xd0, 0x20, 0x20);
// Behind the curves (Z 20) and markers, in front of the grid (Z 10).
constexpr double BandZ = 15.0;

} // namespace

WarningBands::WarningBands(const QList<QwtPlot *> &plots)
    : m_plots(plots)
{
}

WarningBands::~WarningBands() = default;

void WarningBands::show(const QVector<SectionWarnings::Warning> &warnings)
{
    // The items belong to their plots, which delete them with themselves.
    for (QwtPlotItem *item : qAsConst(m_items))
        delete item;
    m_items.clear();
    for (QwtPlot *plot : qAsConst(m_plots)) {
        for (const SectionWarnings::Warning &warning : warnings) {
            QwtPlotItem *item = nullptr;
            if (warning.joint) {
                auto *line = new QwtPlotMarker;
                line->setLineStyle(QwtPlotMarker::VLine);
                line->setLinePen(QPen(LineColor, 2.0, Qt::DashLine));
                line->setXValue(warning.start);
                item = line;
            } else {
                auto *band = new QwtPlotZoneItem;
                band->setOrientation(Qt::Vertical);
                band->setInterval(warning.start, warning.end);
                band->setBrush(BandColor);
                band->setPen(QPen(Qt::NoPen));
                item = band;
            }
            item->setTitle(warning.text);
            item->setItemAttribute(QwtPlotItem::Legend, false);
            item->setZ(BandZ);
            item->attach(plot);
            m_items.append(item);
        }
    }
}
