#include "plotzoom.h"

#include "curveplot.h"

#include <qwt_picker_machine.h>
#include <qwt_plot_magnifier.h>
#include <qwt_plot_panner.h>
#include <qwt_plot_picker.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_widget.h>

#include <algorithm>

PlotZoom::PlotZoom(const QList<CurvePlot *> &plots, QObject *parent)
    : QObject(parent)
    , m_plots(plots)
{
    for (CurvePlot *plot : m_plots) {
        auto *zoom = new QwtPlotPicker(QwtPlot::xBottom, QwtPlot::yLeft, QwtPicker::RectRubberBand,
                                       QwtPicker::AlwaysOff, plot->canvas());
        zoom->setStateMachine(new QwtPickerDragRectMachine);
        connect(zoom, qOverload<const QRectF &>(&QwtPlotPicker::selected), plot, [this, plot](const QRectF &rect) {
            if (rect.width() <= 0.0 || rect.height() <= 0.0)
                return;
            m_zoomed = true;
            plot->setAxisScale(QwtPlot::yLeft, rect.top(), rect.bottom());
            plot->setAxisScale(QwtPlot::xBottom, rect.left(), rect.right());
            plot->replot();
        });
        auto *panner = new QwtPlotPanner(plot->canvas());
        panner->setMouseButton(Qt::MiddleButton);
        new QwtPlotMagnifier(plot->canvas());
        connect(plot->axisWidget(QwtPlot::xBottom), &QwtScaleWidget::scaleDivChanged, this,
                [this, plot] { onMasterAxisChanged(plot); });
    }
}

void PlotZoom::setWholeRange(double from, double to)
{
    m_settingScales = true;
    m_wholeFrom = from;
    m_wholeTo = to;
    if (!m_zoomed) {
        for (CurvePlot *plot : m_plots) {
            plot->setAxisScale(QwtPlot::xBottom, from, to);
            plot->setAxisAutoScale(QwtPlot::yLeft);
        }
    }
    m_settingScales = false;
}

void PlotZoom::alignAxes()
{
    m_settingScales = true;
    double extent = 0.0;
    for (CurvePlot *plot : m_plots) {
        plot->updateAxes();
        QwtScaleWidget *axis = plot->axisWidget(QwtPlot::yLeft);
        axis->scaleDraw()->setMinimumExtent(0.0);
        if (!plot->isHidden())
            extent = std::max(extent, axis->scaleDraw()->extent(axis->font()));
    }
    for (CurvePlot *plot : m_plots) {
        plot->axisWidget(QwtPlot::yLeft)->scaleDraw()->setMinimumExtent(extent);
        if (!plot->isHidden()) {
            plot->updateLayout();
            plot->replot();
        }
    }
    m_settingScales = false;
}

void PlotZoom::onMasterAxisChanged(CurvePlot *source)
{
    if (m_settingScales)
        return;
    m_settingScales = true;
    const QwtInterval interval = source->axisInterval(QwtPlot::xBottom);
    // Every replot reports the axis again: only a range other than the whole
    // curve's comes from the user (panning, the wheel).
    if (interval.minValue() != m_wholeFrom || interval.maxValue() != m_wholeTo)
        m_zoomed = true;
    for (CurvePlot *plot : m_plots) {
        if (plot != source) {
            plot->setAxisScale(QwtPlot::xBottom, interval.minValue(), interval.maxValue());
            plot->replot();
        }
    }
    if (m_zoomed)
        emit zoomedRangeShown(interval.minValue(), interval.maxValue());
    m_settingScales = false;
}
