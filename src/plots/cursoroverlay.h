#pragma once

#include <QColor>
#include <QVector>

#include <qwt_widget_overlay.h>

class QwtPlot;

// The measuring cursors of one plot, drawn over its canvas rather than as
// plot items: moving a cursor repaints these few lines, not the curves of
// up to 16000 grid points behind them.
class CursorOverlay : public QwtWidgetOverlay
{
    Q_OBJECT
public:
    struct Cursor {
        double master;
        QColor color;
    };

    explicit CursorOverlay(QwtPlot *plot);

    void setCursors(const QVector<Cursor> &cursors);
    const QVector<Cursor> &cursors() const { return m_cursors; }

protected:
    void drawOverlay(QPainter *painter) const override;
    QRegion maskHint() const override;

private:
    QwtPlot *m_plot;
    QVector<Cursor> m_cursors;
};
