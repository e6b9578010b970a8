#include "curveplotstack.h"

#include "curves/motionplan.h"
#include "exactcurve.h"
#include "measuringtool.h"
#include "plotcontextmenu.h"
#include "plotzoom.h"
#include "pointmarkers.h"
#include "plotexport.h"
#include "model/cameditormodel.h"
#include "model/motionpoint.h"
#include "model/scaling.h"
#include "motionpointdragger.h"
#include "parameters/parametermodel.h"
#include "pointselection.h"
#include "sectionwarnings.h"
#include "timemasteraxis.h"
#include "warningbands.h"

#include <QAction>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QContextMenuEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <qwt_plot_curve.h>

#include <algorithm>
#include <cmath>
#include <limits>


namespace {

constexpr double MasterMargin = 0.01;
// Pixel columns per evaluated point of the derivatives: every column, and
// every fourth while a drag samples coarsely.
constexpr int ColumnsPerPoint = 1;
constexpr int DragColumnsPerPoint = 4;
constexpr int FallbackColumns = 800;

QString defaultUnit(int order, const QString &slave, const QString &master)
{
    static const char *const Powers[] = { "", "", "²", "³" };
    if (slave.isEmpty() && master.isEmpty())
        return QString();
    return QStringLiteral("%1/%2%3").arg(slave, master, QString::fromUtf8(Powers[order]));
}

} // namespace

CurvePlotStack::CurvePlotStack(CamEditorModel *editorModel, ParameterModel *parameterModel, QUndoStack *undoStack,
                               QWidget *parent)
    : QWidget(parent)
    , m_editorModel(editorModel)
    , m_parameterModel(parameterModel)
    , m_selection(PointSelection::of(editorModel))
    , m_warnings(SectionWarnings::of(editorModel, parameterModel))
{
    setObjectName(QStringLiteral("curvePlots"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(4);
    // The legend above the plots: a check box per curve, in its colour.
    m_legend = new QWidget;
    m_legend->setObjectName(QStringLiteral("curveLegend"));
    auto *legendLayout = new QHBoxLayout(m_legend);
    legendLayout->setContentsMargins(0, 0, 0, 0);
    legendLayout->addStretch();
    layout->addWidget(m_legend);
    for (int quantity = 0; quantity < CurvePlot::QuantityCount; ++quantity) {
        auto *plot = new CurvePlot(CurvePlot::Quantity(quantity));
        m_plots[quantity] = plot;
        layout->addWidget(plot, 1);
    }
    // Zoom by rubber band or wheel, pan with the middle button; the master
    // axis of one is the master axis of all.
    m_zoom = new PlotZoom(QList<CurvePlot *>(std::begin(m_plots), std::end(m_plots)), this);
    connect(m_zoom, &PlotZoom::zoomedRangeShown, this, [this](double from, double to) {
        // A new range shown: the derivatives at its resolution.
        if (from != m_exactFrom || to != m_exactTo) {
            updateExactCurves();
            scheduleReplot();
        }
    });
    CurvePlot *position = m_plots[CurvePlot::Position];
    m_points = std::make_unique<PointMarkers>(m_plots);
    for (bool calculated : { true, false }) {
        const QwtPlotCurve *curve = calculated ? position->calculatedCurve() : position->storedCurve();
        QPixmap swatch(16, 16);
        swatch.fill(Qt::transparent);
        QPainter painter(&swatch);
        painter.fillRect(QRect(1, 6, 14, 4), curve->pen().color());
        painter.end();
        auto *toggle = new QCheckBox;
        toggle->setObjectName(calculated ? QStringLiteral("calculatedCurveToggle") : QStringLiteral("storedCurveToggle"));
        toggle->setIcon(QIcon(swatch));
        toggle->setChecked(true);
        connect(toggle, &QCheckBox::toggled, this, [this, calculated](bool on) { setCurvesVisible(calculated, on); });
        legendLayout->insertWidget(legendLayout->count() - 1, toggle);
    }
    // Installed after the pickers, so that a press on a marker drags it.
    m_dragger = new MotionPointDragger(position, editorModel, parameterModel, undoStack);
    // ... and, after it, the measuring cursors, which take every left click while they are on.
    m_measuring = new MeasuringTool(this, editorModel, parameterModel);
    layout->insertWidget(1, m_measuring->label());
    m_menu = std::make_unique<PlotContextMenu>(this, editorModel, parameterModel, undoStack);
    if (editorModel) {
        connect(editorModel, &CamEditorModel::changed, this, &CurvePlotStack::refresh);
        connect(editorModel, &CamEditorModel::motionPlanRebuilt, this, &CurvePlotStack::refresh);
        if (Scaling *scaling = editorModel->scaling()) {
            for (auto signal : { &Scaling::masterAxisScalingChanged, &Scaling::cycleTimeChanged,
                                 &Scaling::velocityScalingChanged, &Scaling::changed })
                connect(scaling, signal, this, &CurvePlotStack::refresh);
        }
    }
    if (parameterModel)
        connect(parameterModel, &ParameterModel::valueChanged, this, &CurvePlotStack::refresh);
    m_warningBands = std::make_unique<WarningBands>(QList<QwtPlot *>(std::begin(m_plots), std::end(m_plots)));
    if (m_warnings) {
        connect(m_warnings, &SectionWarnings::changed, this, [this] {
            m_warningBands->show(m_warnings->warnings());
            scheduleReplot();
        });
        m_warningBands->show(m_warnings->warnings());
    }
    if (m_selection) {
        connect(m_selection, &PointSelection::currentChanged, this, [this] {
            updateHighlight();
            scheduleReplot();
        });
    }
    retranslate();
}

CurvePlotStack::~CurvePlotStack() = default;

void CurvePlotStack::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void CurvePlotStack::retranslate()
{
    m_menu->retranslate();
    // The stack hears of the change before its plots: the curves' titles
    // are read from the translation, not from the curves.
    if (auto *toggle = m_legend->findChild<QCheckBox *>(QStringLiteral("calculatedCurveToggle")))
        toggle->setText(CurvePlot::tr("berechnet"));
    if (auto *toggle = m_legend->findChild<QCheckBox *>(QStringLiteral("storedCurveToggle")))
        toggle->setText(CurvePlot::tr("gespeichert"));
    m_measuring->retranslate();
    refresh();
}

void CurvePlotStack::setPlotVisible(CurvePlot::Quantity quantity, bool visible)
{
    m_plots[quantity]->setVisible(visible);
    refresh();
}

bool CurvePlotStack::isReplotPending() const
{
    return m_replotPending;
}

void CurvePlotStack::setCurvesVisible(bool calculated, bool visible)
{
    for (CurvePlot *plot : m_plots) {
        (calculated ? plot->calculatedCurve() : plot->storedCurve())->setVisible(visible);
        plot->replot();
    }
    m_measuring->update();
}

bool CurvePlotStack::isPlotVisible(CurvePlot::Quantity quantity) const
{
    return !m_plots[quantity]->isHidden();
}

QwtPlotCurve *CurvePlotStack::markers(int type) const
{
    return m_points->markers(type);
}

QwtPlotCurve *CurvePlotStack::highlight(CurvePlot::Quantity quantity) const
{
    return m_points->ring(quantity);
}

void CurvePlotStack::refresh()
{
    const MotionPlan *plan = m_editorModel ? m_editorModel->motionPlan() : nullptr;
    const double seconds = secondsPerMaster();
    int lowestVisible = CurvePlot::Position;
    for (int quantity = 0; quantity < CurvePlot::QuantityCount; ++quantity) {
        if (!m_plots[quantity]->isHidden())
            lowestVisible = quantity;
    }
    // The position as sampled, the grid points the drive gets; the
    // derivatives as the plan defines them (updateExactCurves).
    m_plots[CurvePlot::Position]->setCurves(plan ? plan->positions() : QPolygonF(),
                                            m_parameterModel ? m_parameterModel->storedGridPoints() : QPolygonF());
    for (int quantity = 0; quantity < CurvePlot::QuantityCount; ++quantity) {
        TimeMasterAxis::apply(m_plots[quantity], seconds);
        m_plots[quantity]->setAxisTitles(masterAxisUnit(), valueUnit(quantity), quantity == lowestVisible,
                                         seconds > 0.0);
    }
    updateExactCurves();
    m_points->showPoints(m_editorModel);
    updateScales();
    m_measuring->update();
}

void CurvePlotStack::updateExactCurves()
{
    const MotionPlan *plan = m_editorModel ? m_editorModel->motionPlan() : nullptr;
    using Stored = QPolygonF (ParameterModel::*)() const;
    const Stored stored[] = { &ParameterModel::storedGridPoints, &ParameterModel::storedVelocities,
                              &ParameterModel::storedAccelerations, &ParameterModel::storedJerks };
    const CurvePlot *position = m_plots[CurvePlot::Position];
    // Zoomed in, only the shown range; else the whole curve.
    const QwtInterval shown = position->axisInterval(QwtPlot::xBottom);
    const double infinity = std::numeric_limits<double>::infinity();
    m_exactFrom = m_zoom->isZoomed() ? shown.minValue() : -infinity;
    m_exactTo = m_zoom->isZoomed() ? shown.maxValue() : infinity;
    int columns = position->canvas()->width() > 1 ? position->canvas()->width() : FallbackColumns;
    columns /= m_editorModel && m_editorModel->isCoarseSteps() ? DragColumnsPerPoint : ColumnsPerPoint;
    for (int quantity = CurvePlot::Velocity; quantity < CurvePlot::QuantityCount; ++quantity) {
        CurvePlot *plot = m_plots[quantity];
        // A hidden plot is evaluated when it is shown (setPlotVisible refreshes).
        const QPolygonF calculated = plan && !plot->isHidden()
            ? ExactCurve::evaluate(*plan, quantity, m_exactFrom, m_exactTo, std::max(columns, 1))
            : QPolygonF();
        plot->setCurves(calculated, m_parameterModel ? (m_parameterModel->*stored[quantity])() : QPolygonF(),
                        valueFactor(quantity));
    }
    updateHighlight();
}

double CurvePlotStack::valueFactor(int quantity) const
{
    const MotionPlan *plan = m_editorModel ? m_editorModel->motionPlan() : nullptr;
    const Scaling *scaling = m_editorModel ? m_editorModel->scaling() : nullptr;
    if (quantity == CurvePlot::Position || !scaling)
        return 1.0;
    return scaling->derivativeFactor(quantity, plan ? plan->masterRange() : 0.0);
}

int CurvePlotStack::warningMarkCount() const
{
    return m_warningBands->itemCount();
}

double CurvePlotStack::secondsPerMaster() const
{
    const Scaling *scaling = m_editorModel ? m_editorModel->scaling() : nullptr;
    const MotionPlan *plan = m_editorModel ? m_editorModel->motionPlan() : nullptr;
    return scaling && plan ? scaling->secondsPerMaster(plan->masterRange()) : 0.0;
}

QString CurvePlotStack::masterAxisUnit() const
{
    if (secondsPerMaster() > 0.0)
        return Scaling::timeUnitName(Scaling::Seconds);
    return m_parameterModel ? m_parameterModel->masterUnit() : QString();
}

QString CurvePlotStack::valueUnit(int quantity) const
{
    const QString slaveUnit = m_parameterModel ? m_parameterModel->slaveUnit() : QString();
    if (quantity == CurvePlot::Position)
        return slaveUnit;
    const Scaling *scaling = m_editorModel ? m_editorModel->scaling() : nullptr;
    const QString unit = scaling ? scaling->derivativeUnit(quantity) : QString();
    return unit.isEmpty() ? defaultUnit(quantity, slaveUnit, m_parameterModel ? m_parameterModel->masterUnit() : QString())
                          : unit;
}

void CurvePlotStack::updateHighlight()
{
    MotionPoint *current = m_selection ? m_selection->current() : nullptr;
    // A removed point lives on in its command, outside the cam.
    if (current && (!m_editorModel || m_editorModel->rowOfMotionPoint(current) < 0))
        current = nullptr;
    const MotionPlan *plan = m_editorModel ? m_editorModel->motionPlan() : nullptr;
    using Evaluation = double (MotionPlan::*)(double) const;
    const Evaluation evaluations[] = { &MotionPlan::position, &MotionPlan::velocity, &MotionPlan::acceleration,
                                       &MotionPlan::jerk };
    for (int quantity = 0; quantity < CurvePlot::QuantityCount; ++quantity) {
        QVector<QPointF> ring;
        if (current && quantity == CurvePlot::Position)
            ring.append(current->position());
        else if (current && plan)
            ring.append(QPointF(current->master(),
                                (plan->*evaluations[quantity])(current->master()) * valueFactor(quantity)));
        m_points->setRing(quantity, ring);
    }
}

void CurvePlotStack::updateScales()
{
    double first = m_editorModel && m_editorModel->motionPointCount() > 0
        ? m_editorModel->motionPointAt(0)->master()
        : 0.0;
    double end = m_editorModel ? m_editorModel->masterEnd() : 1.0;
    // The whole curve is both curves: an imported table may reach further
    // than the motion points.
    const QPolygonF stored = m_parameterModel ? m_parameterModel->storedGridPoints() : QPolygonF();
    if (!stored.isEmpty()) {
        const QRectF bounds = stored.boundingRect();
        first = std::min(first, bounds.left());
        end = std::max(end, bounds.right());
    }
    // A little room at both ends, so that the first and last markers show whole.
    const double length = end > first ? end - first : 1.0;
    m_zoom->setWholeRange(first - MasterMargin * length, first + (1.0 + MasterMargin) * length);
    scheduleReplot();
}

void CurvePlotStack::scheduleReplot()
{
    // An edit arrives by more than one signal and a drag step arrives with
    // every mouse move: the plots are drawn once, when the events of the
    // change have been handled.
    if (m_replotPending)
        return;
    m_replotPending = true;
    QMetaObject::invokeMethod(this, &CurvePlotStack::replotNow, Qt::QueuedConnection);
}

void CurvePlotStack::replotNow()
{
    m_replotPending = false;
    m_zoom->alignAxes();
}

void CurvePlotStack::showWholeCurve()
{
    m_zoom->unzoom();
    updateScales();
}

bool CurvePlotStack::exportTo(const QString &path, const QSize &size, int quantity, QString *errorString)
{
    // The picture shows the scales of the current curves.
    if (m_replotPending)
        replotNow();
    QList<CurvePlot *> plots;
    for (CurvePlot *plot : m_plots) {
        if (quantity < 0 ? !plot->isHidden() : plot->quantity() == quantity)
            plots.append(plot);
    }
    if (plots.isEmpty() || size.isEmpty())
        return false;
    return PlotExport::write(plots, path, size, errorString);
}

void CurvePlotStack::contextMenuEvent(QContextMenuEvent *event)
{
    m_menu->exec(event);
}

QAction *CurvePlotStack::wholeCurveAction() const
{
    return m_menu->wholeCurveAction();
}

QAction *CurvePlotStack::exportAction() const
{
    return m_menu->exportAction();
}

QAction *CurvePlotStack::insertPointAction() const
{
    return m_menu->insertPointAction();
}

QAction *CurvePlotStack::removePointAction() const
{
    return m_menu->removePointAction();
}

double CurvePlotStack::lastInsertDeviation() const
{
    return m_menu->lastInsertDeviation();
}
