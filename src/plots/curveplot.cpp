#include "curveplot.h"

#include "densecurve.h"
#include "timemasteraxis.h"

#include "plainscaledraw.h"

#include <QEvent>
#include <QPen>

#include <qwt_picker_machine.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_picker.h>
#include <qwt_series_data.h>
#include <qwt_text.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

const QColor CalculatedColor(0x1f, 0x5f, 0xa8);
const QColor StoredColor(0x2e, 0x8b, 0x57);
constexpr int SmallestHeight = 120;

// The tracker: the master position and each visible curve's value there.
class Tracker : public QwtPlotPicker
{
public:
    explicit Tracker(CurvePlot *plot)
        : QwtPlotPicker(QwtPlot::xBottom, QwtPlot::yLeft, QwtPicker::NoRubberBand, QwtPicker::AlwaysOn,
                        plot->canvas())
        , m_plot(plot)
    {
        setStateMachine(new QwtPickerTrackerMachine);
    }

protected:
    QwtText trackerTextF(const QPointF &position) const override
    {
        QwtText text(m_plot->trackerText(position.x()));
        text.setBackgroundBrush(QBrush(m_plot->canvasBackground().color().lighter(105)));
        return text;
    }

private:
    CurvePlot *m_plot;
};

DenseCurve *makeCurve(const QString &title, const QColor &color, qreal width)
{
    auto *curve = new DenseCurve(title);
    curve->setPen(QPen(color, width));
    curve->setRenderHint(QwtPlotItem::RenderAntialiased);
    // Up to 16000 grid points on a few hundred pixels: draw what shows
    // (DenseCurve keeps at most four points per pixel column).
    curve->setPaintAttribute(QwtPlotCurve::FilterPoints);
    curve->setPaintAttribute(QwtPlotCurve::ClipPolygons);
    return curve;
}

const char *titleOf(CurvePlot::Quantity quantity)
{
    switch (quantity) {
    case CurvePlot::Position: return QT_TRANSLATE_NOOP("CurvePlot", "Position");
    case CurvePlot::Velocity: return QT_TRANSLATE_NOOP("CurvePlot", "Geschwindigkeit");
    case CurvePlot::Acceleration: return QT_TRANSLATE_NOOP("CurvePlot", "Beschleunigung");
    default: return QT_TRANSLATE_NOOP("CurvePlot", "Ruck");
    }
}

const char *symbolOf(CurvePlot::Quantity quantity)
{
    switch (quantity) {
    case CurvePlot::Position: return QT_TRANSLATE_NOOP("CurvePlot", "s");
    case CurvePlot::Velocity: return QT_TRANSLATE_NOOP("CurvePlot", "v");
    case CurvePlot::Acceleration: return QT_TRANSLATE_NOOP("CurvePlot", "a");
    default: return QT_TRANSLATE_NOOP("CurvePlot", "j");
    }
}

} // namespace

CurvePlot::CurvePlot(Quantity quantity, QWidget *parent)
    : QwtPlot(parent)
    , m_quantity(quantity)
    , m_stored(makeCurve(tr("gespeichert"), StoredColor, 2.5))
    , m_calculated(makeCurve(tr("berechnet"), CalculatedColor, 1.5))
    , m_tracker(nullptr)
{
    setObjectName(QStringLiteral("curvePlot%1").arg(int(quantity)));
    auto *canvas = new QwtPlotCanvas;
    canvas->setFrameStyle(QFrame::Box | QFrame::Plain);
    canvas->setLineWidth(1);
    canvas->setFocusPolicy(Qt::StrongFocus);
    setCanvas(canvas);
    setCanvasBackground(Qt::white);
    setMinimumHeight(SmallestHeight);
    // The stored table changes seldom; the calculated curve with every edit
    // and every step of a drag.
    m_stored->setKeepsPicture(true);
    for (int axis : { QwtPlot::xBottom, QwtPlot::yLeft })
        setAxisScaleDraw(axis, new PlainScaleDraw);

    auto *grid = new QwtPlotGrid;
    grid->setMajorPen(QPen(QColor(0xdd, 0xdd, 0xdd), 0.0, Qt::DotLine));
    grid->attach(this);
    m_stored->attach(this);
    m_calculated->attach(this);

    m_tracker = new Tracker(this);
    setAxisTitles(QString(), QString(), true);
}

CurvePlot::~CurvePlot() = default;

void CurvePlot::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        m_stored->setTitle(tr("gespeichert"));
        m_calculated->setTitle(tr("berechnet"));
    }
    QwtPlot::changeEvent(event);
}

QwtPlotCurve *CurvePlot::calculatedCurve() const
{
    return m_calculated;
}

QwtPlotCurve *CurvePlot::storedCurve() const
{
    return m_stored;
}

QString CurvePlot::symbol() const
{
    return tr(symbolOf(m_quantity));
}

void CurvePlot::setCurves(const QPolygonF &calculated, const QPolygonF &stored, double factor)
{
    m_calculated->setSharedSamples(calculated, factor);
    m_stored->setSharedSamples(stored, factor);
}

void CurvePlot::setAxisTitles(const QString &master, const QString &value, bool showMaster, bool time)
{
    // Short symbols keep the titles on one line, so that the canvases of
    // the stacked plots can align.
    QFont font = this->font();
    font.setBold(false);
    QwtText valueTitle(value.isEmpty() ? symbol() : QStringLiteral("%1 [%2]").arg(symbol(), value));
    valueTitle.setFont(font);
    setAxisTitle(QwtPlot::yLeft, valueTitle);
    const QString name = time ? tr("Zeit") : tr("Master");
    QwtText masterTitle(showMaster ? (master.isEmpty() ? name : QStringLiteral("%1 [%2]").arg(name, master)) : QString());
    masterTitle.setFont(font);
    setAxisTitle(QwtPlot::xBottom, masterTitle);
    canvas()->setToolTip(tr(titleOf(m_quantity)));
}

QString CurvePlot::trackerText(double master) const
{
    QStringList lines { tr("Master: %1").arg(master, 0, 'f', 3) };
    if (const double seconds = TimeMasterAxis::secondsPerMaster(this))
        lines.append(tr("Zeit: %1 s").arg(master * seconds, 0, 'f', 4));
    for (const QwtPlotCurve *curve : { m_calculated, m_stored }) {
        const double value = curve->isVisible() ? valueAt(curve, master) : std::numeric_limits<double>::quiet_NaN();
        if (!std::isnan(value))
            lines.append(QStringLiteral("%1: %2").arg(curve->title().text()).arg(value, 0, 'f', 3));
    }
    return lines.join(QLatin1Char('\n'));
}

double CurvePlot::valueAt(const QwtPlotCurve *curve, double master)
{
    const QwtSeriesData<QPointF> *data = curve->data();
    const size_t size = data ? data->size() : 0;
    if (size == 0 || !(master >= data->sample(0).x()) || !(master <= data->sample(size - 1).x()))
        return std::numeric_limits<double>::quiet_NaN();
    // Samples ascend in master: the first one at or beyond the position.
    size_t low = 0;
    size_t high = size - 1;
    while (low < high) {
        const size_t middle = (low + high) / 2;
        if (data->sample(middle).x() < master)
            low = middle + 1;
        else
            high = middle;
    }
    const QPointF right = data->sample(low);
    if (low == 0 || right.x() == master)
        return right.y();
    const QPointF left = data->sample(low - 1);
    return left.y() + (right.y() - left.y()) * (master - left.x()) / (right.x() - left.x());
}

