#include "previewview.h"

#include "densecurve.h"

#include "camdesigner/camdescriptionimplementation.h"
#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "parameters/parametermodel.h"

#include <QEvent>
#include <QPen>

#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_textlabel.h>
#include <qwt_text.h>

namespace {

const QColor CalculatedColor(0x1f, 0x5f, 0xa8);
const QColor StoredColor(0xb0, 0xb0, 0xb0);
constexpr int PreferredWidth = 240;
constexpr int PreferredHeight = 120;
constexpr int SmallestWidth = 120;
constexpr int SmallestHeight = 60;
// The share of the curve's height kept free above it for the label.
constexpr double TopRoom = 0.35;

DenseCurve *makeCurve(const QColor &color, qreal width)
{
    auto *curve = new DenseCurve;
    curve->setPen(QPen(color, width));
    curve->setRenderHint(QwtPlotItem::RenderAntialiased);
    // 16000 grid points on a few hundred pixels: draw only what shows.
    curve->setPaintAttribute(QwtPlotCurve::FilterPoints);
    curve->setPaintAttribute(QwtPlotCurve::ClipPolygons);
    return curve;
}

} // namespace

PreviewView::PreviewView(CamEditorModel *editorModel, ParameterModel *parameterModel, unsigned short camTable,
                         QWidget *parent)
    : QwtPlot(parent)
    , m_editorModel(editorModel)
    , m_parameterModel(parameterModel)
    , m_camTable(camTable)
    , m_stored(makeCurve(StoredColor, 3.0))
    , m_calculated(makeCurve(CalculatedColor, 1.5))
    , m_label(new QwtPlotTextLabel)
{
    setObjectName(QStringLiteral("preview"));
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis)
        enableAxis(axis, false);
    auto *canvas = new QwtPlotCanvas;
    canvas->setFrameStyle(QFrame::NoFrame);
    canvas->setAttribute(Qt::WA_TransparentForMouseEvents);
    setCanvas(canvas);
    setCanvasBackground(palette().color(QPalette::Base));
    // Clicks belong to the button the preview sits on.
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);

    // The stored table changes seldom: its picture is kept (see DenseCurve).
    m_stored->setKeepsPicture(true);
    m_stored->attach(this);
    m_calculated->attach(this);
    m_label->attach(this);

    if (editorModel) {
        connect(editorModel, &CamEditorModel::changed, this, &PreviewView::refresh);
        // A point dragged in the editor rebuilds the plan without changed().
        connect(editorModel, &CamEditorModel::motionPlanRebuilt, this, &PreviewView::refresh);
    }
    if (parameterModel)
        connect(parameterModel, &ParameterModel::valueChanged, this, &PreviewView::refresh);
    refresh();
}

PreviewView::~PreviewView() = default;

QString PreviewView::toolTipText() const
{
    QString text;
    if (m_editorModel && m_editorModel->camDescription())
        text = m_editorModel->camDescription()->summaryHtml();
    if (m_parameterModel)
        text += m_parameterModel->storedTableSummary();
    return text;
}

void PreviewView::setEditorOpen(bool open)
{
    if (open == m_editorOpen)
        return;
    m_editorOpen = open;
    updateLabel();
    replot();
}

QSize PreviewView::sizeHint() const
{
    return QSize(PreferredWidth, PreferredHeight);
}

QSize PreviewView::minimumSizeHint() const
{
    return QSize(SmallestWidth, SmallestHeight);
}

void PreviewView::refresh()
{
    const MotionPlan *plan = m_editorModel ? m_editorModel->motionPlan() : nullptr;
    m_calculated->setSharedSamples(plan ? plan->positions() : QPolygonF());
    // Handed over again only when the drive's table is another one, so that
    // its kept picture stays while the plan changes.
    m_stored->setSharedSamples(m_parameterModel ? m_parameterModel->storedGridPoints() : QPolygonF());
    updateScales();
    updateLabel();
    // An edit arrives by more than one signal and a drag with every mouse
    // move: the picture is drawn once, when the change has been handled.
    if (!m_replotPending) {
        m_replotPending = true;
        QMetaObject::invokeMethod(this, [this] {
            m_replotPending = false;
            replot();
        }, Qt::QueuedConnection);
    }
    emit refreshed();
}

void PreviewView::updateScales()
{
    QRectF bounds;
    for (const QwtPlotCurve *curve : { m_stored, m_calculated }) {
        if (curve->dataSize() > 0)
            bounds = bounds.isNull() ? curve->boundingRect() : bounds.united(curve->boundingRect());
    }
    if (!bounds.isValid() && bounds.isNull()) {
        setAxisScale(QwtPlot::xBottom, 0.0, 1.0);
        setAxisScale(QwtPlot::yLeft, 0.0, 1.0);
        return;
    }
    // Room above the curve for the label, and a little around it, so that
    // a flat or a full-height curve stays clear of the edges.
    const double height = bounds.height() > 0.0 ? bounds.height() : 1.0;
    const double width = bounds.width() > 0.0 ? bounds.width() : 1.0;
    setAxisScale(QwtPlot::xBottom, bounds.left() - 0.02 * width, bounds.right() + 0.02 * width);
    setAxisScale(QwtPlot::yLeft, bounds.top() - 0.08 * height, bounds.bottom() + TopRoom * height);
}

void PreviewView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        updateLabel();
        replot();
    }
    QwtPlot::changeEvent(event);
}

const QwtPlotCurve *PreviewView::calculatedCurve() const
{
    return m_calculated;
}

const QwtPlotCurve *PreviewView::storedCurve() const
{
    return m_stored;
}

QString PreviewView::labelText() const
{
    return m_label->text().text();
}

void PreviewView::updateLabel()
{
    QString text = tr("Kurvenscheibe %1").arg(m_camTable);
    if (m_editorOpen)
        text += QLatin1Char('\n') + tr("Kurveneditor ist geöffnet.");
    QwtText label(text);
    label.setRenderFlags(Qt::AlignLeft | Qt::AlignTop);
    QFont font = this->font();
    font.setPointSizeF(font.pointSizeF() * 0.85);
    label.setFont(font);
    label.setColor(palette().color(QPalette::Text));
    m_label->setText(label);
}
