#include "curveplotstack.h"

#include "camdesigner/camdescriptionimplementation.h"
#include <filedialog.h>
#include <messagebox.h>
#include "curves/motionplan.h"
#include "defaultpathsetting.h"
#include "exactcurve.h"
#include "measuringtool.h"
#include "plotexport.h"
#include "model/cameditormodel.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"
#include "model/scaling.h"
#include "motionpointdragger.h"
#include "parameters/parametermodel.h"
#include "pointinsertion.h"
#include "pointselection.h"
#include "sectionwarnings.h"
#include "timemasteraxis.h"
#include "warningbands.h"
#include "views/motionpointediting.h"

#include <QAction>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QMainWindow>
#include <QStatusBar>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <QVBoxLayout>

#include <qwt_picker_machine.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_magnifier.h>
#include <qwt_plot_panner.h>
#include <qwt_plot_picker.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_widget.h>
#include <qwt_symbol.h>

#include <algorithm>
#include <cmath>
#include <limits>


namespace {

constexpr int PlainMarkers = 4;
constexpr int MarkerSize = 9;
constexpr double MasterMargin = 0.01;
const char DefaultPathKind[] = "CamDesignerPlots";
constexpr int HighlightSize = 19;
const QColor HighlightColor(0xe0, 0x30, 0x30);
// Pixel columns per evaluated point of the derivatives: every column, and
// every fourth while a drag samples coarsely.
constexpr int ColumnsPerPoint = 1;
constexpr int DragColumnsPerPoint = 4;
constexpr int FallbackColumns = 800;
constexpr int StatusTimeout = 15000;

QwtSymbol *symbolFor(int marker)
{
    const QColor outline(0x20, 0x20, 0x20);
    switch (marker) {
    case MotionPoint::rest: return new QwtSymbol(QwtSymbol::Rect, QColor(0xf0, 0xa0, 0x30), outline, QSize(MarkerSize, MarkerSize));
    case MotionPoint::speed: return new QwtSymbol(QwtSymbol::Diamond, QColor(0x40, 0xa0, 0x40), outline, QSize(MarkerSize + 2, MarkerSize + 2));
    case MotionPoint::turningPoint: return new QwtSymbol(QwtSymbol::Triangle, QColor(0xc0, 0x40, 0x40), outline, QSize(MarkerSize + 2, MarkerSize + 2));
    case MotionPoint::acceleration: return new QwtSymbol(QwtSymbol::Ellipse, QColor(0x60, 0x60, 0xd0), outline, QSize(MarkerSize, MarkerSize));
    default: return new QwtSymbol(QwtSymbol::Ellipse, QColor(0x1f, 0x5f, 0xa8), outline, QSize(MarkerSize, MarkerSize));
    }
}

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
    , m_wholeCurveAction(new QAction(this))
    , m_exportAction(new QAction(this))
    , m_insertPointAction(new QAction(this))
    , m_removePointAction(new QAction(this))
    , m_editing(std::make_unique<MotionPointEditing>(editorModel, parameterModel, undoStack))
    , m_selection(PointSelection::of(editorModel))
    , m_warnings(SectionWarnings::of(editorModel, parameterModel))
    , m_lastInsertDeviation(std::numeric_limits<double>::quiet_NaN())
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
        // Zoom by rubber band or wheel, pan with the middle button; the
        // master axis of one is the master axis of all.
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
    CurvePlot *position = m_plots[CurvePlot::Position];
    for (int marker = 0; marker <= PlainMarkers; ++marker) {
        auto *curve = new QwtPlotCurve;
        curve->setStyle(QwtPlotCurve::NoCurve);
        curve->setSymbol(symbolFor(marker));
        curve->setItemAttribute(QwtPlotItem::Legend, false);
        curve->setZ(position->calculatedCurve()->z() + 1.0);
        curve->attach(position);
        m_markers[marker] = curve;
    }
    // The current point, ringed in every plot at its value there.
    for (int quantity = 0; quantity < CurvePlot::QuantityCount; ++quantity) {
        auto *ring = new QwtPlotCurve;
        ring->setStyle(QwtPlotCurve::NoCurve);
        ring->setSymbol(new QwtSymbol(QwtSymbol::Ellipse, Qt::NoBrush, QPen(HighlightColor, 2.5),
                                      QSize(HighlightSize, HighlightSize)));
        ring->setItemAttribute(QwtPlotItem::Legend, false);
        ring->setZ(position->calculatedCurve()->z() + 2.0);
        ring->attach(m_plots[quantity]);
        m_highlights[quantity] = ring;
    }
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

    connect(m_wholeCurveAction, &QAction::triggered, this, &CurvePlotStack::showWholeCurve);
    connect(m_exportAction, &QAction::triggered, this, &CurvePlotStack::exportPlots);
    connect(m_insertPointAction, &QAction::triggered, this, &CurvePlotStack::insertPoint);
    connect(m_removePointAction, &QAction::triggered, this, &CurvePlotStack::removePoint);
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
    m_wholeCurveAction->setText(tr("Ganze Kurve anzeigen"));
    m_exportAction->setText(tr("Exportieren …"));
    m_insertPointAction->setText(tr("Bewegungspunkt hier einfügen"));
    m_removePointAction->setText(tr("Bewegungspunkt entfernen"));
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
    return type >= 0 && type < PlainMarkers ? m_markers[type] : m_markers[PlainMarkers];
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
    updateMarkers();
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
    m_exactFrom = m_zoomed ? shown.minValue() : -infinity;
    m_exactTo = m_zoomed ? shown.maxValue() : infinity;
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
    if (!scaling || scaling->masterAxisScaling() != Scaling::CycleTime)
        return 0.0;
    // The master range is run through once per cycle time, as the
    // derivatives per second take it (Scaling::derivativeFactor).
    const double range = plan ? plan->masterRange() : 0.0;
    const double seconds = range > 0.0 ? scaling->cycleTime() / range : 0.0;
    return std::isfinite(seconds) && seconds > 0.0 ? seconds : 0.0;
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

void CurvePlotStack::updateMarkers()
{
    QVector<QPointF> points[PlainMarkers + 1];
    const int count = m_editorModel ? m_editorModel->motionPointCount() : 0;
    // Segment types matter to the VDI law alone (the law, not the points'
    // flag, which keeps its start value until the law first changes).
    const bool typesApply = m_editorModel && m_editorModel->motionLaw()
        && m_editorModel->motionLaw()->law() == MotionLaw::Vdi;
    for (int row = 0; row < count; ++row) {
        const MotionPoint *point = m_editorModel->motionPointAt(row);
        const bool typed = typesApply && point->type() >= 0 && point->type() < PlainMarkers;
        points[typed ? point->type() : PlainMarkers].append(point->position());
    }
    for (int marker = 0; marker <= PlainMarkers; ++marker)
        m_markers[marker]->setSamples(points[marker]);
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
        m_highlights[quantity]->setSamples(ring);
    }
}

void CurvePlotStack::updateScales()
{
    m_settingScales = true;
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
    m_wholeMasterFrom = first - MasterMargin * length;
    m_wholeMasterTo = first + (1.0 + MasterMargin) * length;
    for (CurvePlot *plot : m_plots) {
        if (!m_zoomed) {
            plot->setAxisScale(QwtPlot::xBottom, m_wholeMasterFrom, m_wholeMasterTo);
            plot->setAxisAutoScale(QwtPlot::yLeft);
        }
    }
    m_settingScales = false;
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
    m_settingScales = true;
    alignAxes();
    m_settingScales = false;
}

void CurvePlotStack::alignAxes()
{
    // As Qwt's plot matrix does: every left axis as wide as the widest, so
    // that the canvases stand exactly above each other.
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
}

void CurvePlotStack::onMasterAxisChanged(CurvePlot *source)
{
    if (m_settingScales)
        return;
    m_settingScales = true;
    const QwtInterval interval = source->axisInterval(QwtPlot::xBottom);
    // Every replot reports the axis again: only a range other than the whole
    // curve's comes from the user (panning, the wheel).
    if (interval.minValue() != m_wholeMasterFrom || interval.maxValue() != m_wholeMasterTo)
        m_zoomed = true;
    for (CurvePlot *plot : m_plots) {
        if (plot != source) {
            plot->setAxisScale(QwtPlot::xBottom, interval.minValue(), interval.maxValue());
            plot->replot();
        }
    }
    // A new range shown: the derivatives at its resolution.
    if (m_zoomed && (interval.minValue() != m_exactFrom || interval.maxValue() != m_exactTo)) {
        updateExactCurves();
        scheduleReplot();
    }
    m_settingScales = false;
}

void CurvePlotStack::showWholeCurve()
{
    m_zoomed = false;
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

void CurvePlotStack::exportPlots()
{
    exportPlot(-1);
}

void CurvePlotStack::exportPlot(int quantity)
{
    VxUtilities::DefaultPathSetting defaultPath { QLatin1String(DefaultPathKind) };
    const QString path = FileDialog::getSaveFileName(this, tr("Kurven exportieren"), defaultPath.path(),
                                                     tr("Bilder (*.png *.svg *.pdf)"));
    if (path.isEmpty())
        return;
    const QSize shown = quantity < 0 ? size() : m_plots[quantity]->size();
    QString reason;
    if (!exportTo(path, shown, quantity, &reason)) {
        // The system's reason (a full disk, a missing directory) follows as it comes.
        MessageBox::warning(this, tr("Exportieren nicht möglich"),
                            tr("Die Datei %1 konnte nicht geschrieben werden.").arg(path)
                                + (reason.isEmpty() ? QString() : QLatin1Char('\n') + reason));
        return;
    }
    defaultPath.setPath(path);
}

void CurvePlotStack::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu menu(this);
    CurvePlot *plot = nullptr;
    for (QWidget *widget = childAt(event->pos()); widget && !plot; widget = widget->parentWidget())
        plot = qobject_cast<CurvePlot *>(widget);
    // Points are edited where they show: on the position plot's canvas.
    const CurvePlot *position = m_plots[CurvePlot::Position];
    m_menuPosition = position->canvas()->mapFrom(this, event->pos());
    if (plot == position && position->canvas()->rect().contains(m_menuPosition)) {
        m_insertPointAction->setEnabled(m_editorModel && m_editing->undoStack());
        m_removePointAction->setEnabled(m_dragger->pointNear(m_menuPosition) >= 0);
        menu.addAction(m_insertPointAction);
        menu.addAction(m_removePointAction);
        menu.addSeparator();
    }
    menu.addAction(m_measuring->action());
    menu.addAction(m_wholeCurveAction);
    menu.addSeparator();
    menu.addAction(m_exportAction);
    if (plot)
        menu.addAction(tr("Diesen Plot exportieren …"), this, [this, plot] { exportPlot(plot->quantity()); });
    menu.exec(event->globalPos());
}

void CurvePlotStack::insertPoint()
{
    if (!m_editorModel)
        return;
    const CurvePlot *position = m_plots[CurvePlot::Position];
    double master = position->invTransform(QwtPlot::xBottom, m_menuPosition.x());
    if (m_parameterModel)
        master = m_parameterModel->roundMaster(master);
    // On the curve as calculated now; without points, where the click was.
    const MotionPlan *plan = m_editorModel->motionPlan();
    double slave = plan && m_editorModel->motionPointCount() > 0
        ? plan->position(master)
        : position->invTransform(QwtPlot::yLeft, m_menuPosition.y());
    if (m_parameterModel)
        slave = m_parameterModel->roundSlave(slave);
    PointInsertion::Choice choice = PointInsertion::choose(*m_editorModel, master, slave);
    if (!m_editing->add(this, *choice.point))
        return;
    m_lastInsertDeviation = choice.deviation;
    if (m_selection)
        m_selection->setCurrent(m_editorModel->camDescription()->pointAt(master));
    auto *mainWindow = qobject_cast<QMainWindow *>(window());
    if (mainWindow && !std::isnan(choice.deviation)) {
        const QString unit = m_parameterModel ? m_parameterModel->slaveUnit() : QString();
        mainWindow->statusBar()->showMessage(
            tr("Bewegungspunkt eingefügt (%1); größte Positionsänderung der Kurve: %2 %3")
                .arg(choice.point->typeDisplayName(), QLocale().toString(choice.deviation, 'g', 3), unit)
                .trimmed(),
            StatusTimeout);
    }
}

void CurvePlotStack::removePoint()
{
    const int row = m_dragger->pointNear(m_menuPosition);
    if (row >= 0 && m_editorModel)
        m_editing->remove(m_editorModel->motionPointAt(row));
}
