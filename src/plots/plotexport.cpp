#include "plotexport.h"

#include "atomicfilewriter.h"
#include "curveplot.h"

#include <QBuffer>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <qwt_plot_curve.h>
#include <qwt_plot_renderer.h>

bool PlotExport::write(const QList<CurvePlot *> &plots, const QString &path, const QSize &size, QString *errorString)
{
    if (plots.isEmpty() || size.isEmpty())
        return false;
    const auto render = [&plots](QPainter &painter, const QRectF &area) {
        // A line that names the curves, then the plots one below the other.
        const QFontMetricsF metrics(painter.font());
        const double legendHeight = metrics.height() * 1.6;
        double x = area.left() + metrics.height();
        for (const QwtPlotCurve *curve : { plots.first()->calculatedCurve(), plots.first()->storedCurve() }) {
            if (!curve->isVisible())
                continue;
            const QRectF swatch(x, area.top() + legendHeight / 2 - 2, metrics.height() * 1.5, 4);
            painter.fillRect(swatch, curve->pen().color());
            x = swatch.right() + metrics.height() * 0.4;
            const QString title = curve->title().text();
            painter.setPen(Qt::black);
            painter.drawText(QPointF(x, area.top() + (legendHeight + metrics.ascent() - metrics.descent()) / 2), title);
            x += metrics.horizontalAdvance(title) + metrics.height() * 1.5;
        }
        QwtPlotRenderer renderer;
        const double height = (area.height() - legendHeight) / plots.size();
        for (int i = 0; i < plots.size(); ++i)
            renderer.render(plots.at(i), &painter,
                            QRectF(area.left(), area.top() + legendHeight + i * height, area.width(), height));
    };
    const QString suffix = QFileInfo(path).suffix().toLower();
    const QRectF area(QPointF(0.0, 0.0), QSizeF(size));
    // Rendered into memory first, then written whole or not at all: an
    // existing picture stays until the new one is complete, also on a full disk.
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (suffix == QLatin1String("svg")) {
        QSvgGenerator generator;
        generator.setOutputDevice(&buffer);
        generator.setSize(size);
        generator.setViewBox(area);
        QPainter painter;
        if (!painter.begin(&generator))
            return false;
        render(painter, area);
        if (!painter.end())
            return false;
    } else if (suffix == QLatin1String("pdf")) {
        QPdfWriter writer(&buffer);
        // One point per pixel, the page the size of the picture.
        writer.setResolution(72);
        writer.setPageSize(QPageSize(QSizeF(size), QPageSize::Point));
        writer.setPageMargins(QMarginsF());
        QPainter painter;
        if (!painter.begin(&writer))
            return false;
        render(painter, QRectF(painter.viewport()));
        if (!painter.end())
            return false;
    } else {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        render(painter, area);
        painter.end();
        if (!image.save(&buffer, "PNG"))
            return false;
    }
    buffer.close();
    return VxUtilities::AtomicFileWriter::write(path, bytes, errorString);
}

