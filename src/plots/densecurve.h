#pragma once

#include <QImage>
#include <QPolygonF>

#include <qwt_plot_curve.h>

// A line curve of up to 16000 samples on a canvas a few hundred pixels wide.
// Qwt already rounds the mapped points to whole pixels and drops repeated
// ones (FilterPoints); of the points that then fall into one pixel column
// only the first, the lowest, the highest and the last matter, so the
// others are dropped before the pen strokes the line: the line still covers
// the whole span of each column, and a column with one sample (a zoomed
// view) keeps every point, every corner. Curves with a brush, a fitter or
// on a scaling painter (print, SVG) are drawn by Qwt as they are.
//
// A curve that changes seldom (the table stored in the drive, while the
// calculated curve follows every edit) can keep its picture instead: it is
// drawn by Qwt, point for point, once into an image of the canvas and then
// only copied, until its data, its pen, the scales or the canvas change.
class DenseCurve : public QwtPlotCurve
{
public:
    explicit DenseCurve(const QString &title = QString());

    void setKeepsPicture(bool keeps);
    bool keepsPicture() const { return m_keepsPicture; }
    // How often the curve was drawn anew into its kept picture.
    int pictureDrawCount() const { return m_pictureDraws; }

    // Shows the points with their values times the factor. A list that is
    // still the one last given (shared, not a copy) with the same factor is
    // not handed to Qwt again, so that a kept picture stays while only the
    // other curves change.
    void setSharedSamples(const QPolygonF &source, double factor = 1.0);

    void itemChanged() override;

    // The pixel points drawn for the samples from..to, as described above.
    QPolygonF pixelPolyline(const QwtScaleMap &xMap, const QwtScaleMap &yMap, int from, int to) const;

protected:
    void drawSeries(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap, const QRectF &canvasRect,
                    int from, int to) const override;
    void drawLines(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap, const QRectF &canvasRect,
                   int from, int to) const override;

private:
    // What the kept picture was drawn for.
    struct PictureKey {
        quint64 revision = 0;
        double x[4] = {};
        double y[4] = {};
        QRectF canvasRect;
        qreal pixelRatio = 0.0;
        bool antialiased = false;
        bool operator==(const PictureKey &other) const;
    };

    // The list last given; holding it keeps its data from being freed and
    // reused by another list.
    QPolygonF m_source;
    double m_factor = 1.0;
    bool m_given = false;
    bool m_keepsPicture = false;
    quint64 m_revision = 0;
    mutable PictureKey m_pictureKey;
    mutable QImage m_picture;
    mutable int m_pictureDraws = 0;
};
