#include "timemasteraxis.h"

#include "model/decimaltext.h"

#include <QVariant>

#include <qwt_plot.h>
#include <qwt_scale_div.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_engine.h>

#include <algorithm>
#include <cmath>

namespace {

const char TimeProperty[] = "secondsPerMaster";

// Divides the axis where the seconds are round.
class TimeScaleEngine : public QwtLinearScaleEngine
{
public:
    explicit TimeScaleEngine(double secondsPerMaster) : m_factor(secondsPerMaster) {}

    void autoScale(int maxSteps, double &x1, double &x2, double &stepSize) const override
    {
        double t1 = x1 * m_factor;
        double t2 = x2 * m_factor;
        QwtLinearScaleEngine::autoScale(maxSteps, t1, t2, stepSize);
        x1 = t1 / m_factor;
        x2 = t2 / m_factor;
        stepSize /= m_factor;
    }
    QwtScaleDiv divideScale(double x1, double x2, int maxMajorSteps, int maxMinorSteps,
                            double stepSize = 0.0) const override
    {
        const QwtScaleDiv time = QwtLinearScaleEngine::divideScale(x1 * m_factor, x2 * m_factor, maxMajorSteps,
                                                                   maxMinorSteps, stepSize * m_factor);
        QList<double> ticks[QwtScaleDiv::NTickTypes];
        for (int type = 0; type < QwtScaleDiv::NTickTypes; ++type) {
            for (double tick : time.ticks(type))
                ticks[type].append(tick / m_factor);
        }
        return QwtScaleDiv(x1, x2, ticks);
    }

private:
    double m_factor;
};

// Labels as the other axes have them (PlainScaleDraw), in the unit the
// factor gives.
class MasterScaleDraw : public QwtScaleDraw
{
public:
    explicit MasterScaleDraw(double factor) : m_factor(factor) {}
    double factor() const { return m_factor; }

    QwtText label(double value) const override
    {
        double shown = value * m_factor;
        if (std::abs(shown) < 1e-12 * std::max(1.0, std::abs(scaleDiv().range() * m_factor)))
            shown = 0.0;
        return DecimalText::toString(shown);
    }

private:
    double m_factor;
};

} // namespace

double TimeMasterAxis::secondsPerMaster(const QwtPlot *plot)
{
    return plot->property(TimeProperty).toDouble();
}

void TimeMasterAxis::apply(QwtPlot *plot, double secondsPerMaster)
{
    const double factor = secondsPerMaster > 0.0 && std::isfinite(secondsPerMaster) ? secondsPerMaster : 1.0;
    const auto *draw = dynamic_cast<const MasterScaleDraw *>(plot->axisScaleDraw(QwtPlot::xBottom));
    const bool time = factor != 1.0 || secondsPerMaster > 0.0;
    plot->setProperty(TimeProperty, time ? factor : 0.0);
    if (draw && draw->factor() == factor)
        return;
    plot->setAxisScaleDraw(QwtPlot::xBottom, new MasterScaleDraw(factor));
    if (factor == 1.0)
        plot->setAxisScaleEngine(QwtPlot::xBottom, new QwtLinearScaleEngine);
    else
        plot->setAxisScaleEngine(QwtPlot::xBottom, new TimeScaleEngine(factor));
}
