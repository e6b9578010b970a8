#include "measuringtool.h"

#include "curveplot.h"
#include "curveplotstack.h"
#include "cursoroverlay.h"
#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "parameters/parametermodel.h"

#include <QAction>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>

#include <qwt_plot_curve.h>

#include <cmath>
#include <limits>

namespace {

const QColor CursorColors[MeasuringTool::CursorCount] = { QColor(0xd9, 0x5f, 0x02), QColor(0x75, 0x4f, 0xb0) };
// Derivatives span many magnitudes: significant digits, not decimals.
constexpr int DerivativeDigits = 6;

} // namespace

MeasuringTool::MeasuringTool(CurvePlotStack *stack, CamEditorModel *editorModel, ParameterModel *parameterModel)
    : QObject(stack)
    , m_stack(stack)
    , m_editorModel(editorModel)
    , m_parameterModel(parameterModel)
    , m_action(new QAction(QIcon(QStringLiteral(":/Resources/measure.png")), QString(), this))
    , m_label(new QLabel)
{
    m_action->setObjectName(QStringLiteral("measureAction"));
    m_action->setCheckable(true);
    retranslate();
    m_label->setObjectName(QStringLiteral("measurementLabel"));
    m_label->setTextFormat(Qt::RichText);
    m_label->setStyleSheet(QStringLiteral("QLabel { background: #fffbe6; border: 1px solid #d8cfa0; padding: 3px; }"));
    m_label->setVisible(false);
    for (int quantity = 0; quantity < CurvePlot::QuantityCount; ++quantity) {
        CurvePlot *plot = stack->plot(CurvePlot::Quantity(quantity));
        // A child of the canvas, gone with it.
        m_overlays[quantity] = new CursorOverlay(plot);
        // Installed after the zoom picker and the dragger: the cursors take the clicks first.
        m_plots[quantity] = plot;
        m_canvases[quantity] = plot->canvas();
        m_canvases[quantity]->installEventFilter(this);
    }
    connect(m_action, &QAction::toggled, this, &MeasuringTool::setActive);
    if (editorModel) {
        connect(editorModel, &CamEditorModel::changed, this, &MeasuringTool::update);
        connect(editorModel, &CamEditorModel::motionPlanRebuilt, this, &MeasuringTool::update);
    }
}

// The markers belong to their plots.
MeasuringTool::~MeasuringTool() = default;

void MeasuringTool::retranslate()
{
    m_action->setText(tr("Messen"));
    m_action->setToolTip(tr("Messen: zwei Cursor per Klick setzen, Esc beendet"));
    update();
}

bool MeasuringTool::isActive() const
{
    return m_action->isChecked();
}

void MeasuringTool::setActive(bool active)
{
    // Checking the action comes back here through its toggled().
    if (m_action->isChecked() != active) {
        m_action->setChecked(active);
        return;
    }
    m_placed = 0;
    m_dragged = -1;
    m_label->setVisible(active);
    update();
    showCursors();
}

int MeasuringTool::placeAt(double master)
{
    if (m_parameterModel)
        master = m_parameterModel->roundMaster(master);
    int cursor = m_placed;
    if (m_placed < CursorCount)
        ++m_placed;
    else
        cursor = std::abs(master - m_masters[0]) <= std::abs(master - m_masters[1]) ? 0 : 1;
    moveCursor(cursor, master);
    return cursor;
}

void MeasuringTool::moveCursor(int cursor, double master)
{
    m_masters[cursor] = master;
    update();
    showCursors();
}

void MeasuringTool::showCursors()
{
    QVector<CursorOverlay::Cursor> cursors;
    for (int cursor = 0; cursor < m_placed; ++cursor)
        cursors.append({ m_masters[cursor], CursorColors[cursor] });
    for (CursorOverlay *overlay : m_overlays)
        overlay->setCursors(cursors);
}

bool MeasuringTool::eventFilter(QObject *watched, QEvent *event)
{
    if (!isActive())
        return false;
    // Compared by address, without touching the plots or the stack: while
    // the stack is destroyed a canvas still sends events after other plots
    // are gone. Only mouse and key events, which come to living plots, use them.
    int quantity = 0;
    while (quantity < CurvePlot::QuantityCount && m_canvases[quantity] != watched)
        ++quantity;
    if (quantity == CurvePlot::QuantityCount)
        return false;
    CurvePlot *plot = m_plots[quantity];
    const auto masterAt = [this, plot](QEvent *mouse) {
        const double master = plot->invTransform(QwtPlot::xBottom, static_cast<QMouseEvent *>(mouse)->pos().x());
        return m_parameterModel ? m_parameterModel->roundMaster(master) : master;
    };
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (static_cast<QMouseEvent *>(event)->button() != Qt::LeftButton)
            return false;
        plot->canvas()->setFocus(Qt::MouseFocusReason);
        m_dragged = placeAt(masterAt(event));
        return true;
    case QEvent::MouseMove:
        if (m_dragged < 0)
            return false;
        moveCursor(m_dragged, masterAt(event));
        return true;
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent *>(event)->button() != Qt::LeftButton)
            return false;
        m_dragged = -1;
        return true;
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent *>(event)->key() != Qt::Key_Escape)
            return false;
        setActive(false);
        return true;
    default:
        return false;
    }
}

double MeasuringTool::valueAt(int quantity, bool calculated, double master) const
{
    const CurvePlot *plot = m_stack->plot(CurvePlot::Quantity(quantity));
    if (!calculated)
        return CurvePlot::valueAt(plot->storedCurve(), master);
    const MotionPlan *plan = m_editorModel ? m_editorModel->motionPlan() : nullptr;
    if (!plan || m_editorModel->motionPointCount() == 0)
        return std::numeric_limits<double>::quiet_NaN();
    using Evaluation = double (MotionPlan::*)(double) const;
    const Evaluation evaluations[] = { &MotionPlan::position, &MotionPlan::velocity, &MotionPlan::acceleration,
                                       &MotionPlan::jerk };
    return (plan->*evaluations[quantity])(master) * m_stack->valueFactor(quantity);
}

void MeasuringTool::update()
{
    if (isActive())
        m_label->setText(tableText());
}

QString MeasuringTool::format(int quantity, double value) const
{
    if (std::isnan(value))
        return QStringLiteral("–");
    if (!m_parameterModel)
        return QString::number(value, 'g', DerivativeDigits);
    if (quantity < 0)
        return QString::number(value, 'f', m_parameterModel->masterDecimalPlaces());
    if (quantity == CurvePlot::Position)
        return QString::number(value, 'f', m_parameterModel->slaveDecimalPlaces());
    return QString::number(value, 'g', DerivativeDigits);
}

QString MeasuringTool::tableText() const
{
    if (m_placed == 0)
        return tr("Klicken Sie in einen Plot, um Cursor 1 zu setzen.");
    const auto cell = [](const QString &text, bool bold = false) {
        return QStringLiteral("<td align=\"right\" style=\"padding: 0 6px\">%1%2%3</td>")
            .arg(bold ? QStringLiteral("<b>") : QString(), text.toHtmlEscaped(), bold ? QStringLiteral("</b>") : QString());
    };
    const auto row = [&](const QString &title, int quantity, double first, double second) {
        QString line = QStringLiteral("<tr><td>%1</td>").arg(title.toHtmlEscaped()) + cell(format(quantity, first));
        if (m_placed > 1)
            line += cell(format(quantity, second)) + cell(format(quantity, second - first), true);
        return line + QStringLiteral("</tr>");
    };
    const auto withUnit = [](const QString &title, const QString &unit) {
        return unit.isEmpty() ? title : QStringLiteral("%1 [%2]").arg(title, unit);
    };
    QString html = QStringLiteral("<table cellspacing=\"0\"><tr><td></td>") + cell(tr("Cursor 1"), true);
    if (m_placed > 1)
        html += cell(tr("Cursor 2"), true) + cell(tr("Δ"), true);
    html += QStringLiteral("</tr>");
    const double first = m_masters[0];
    const double second = m_masters[1];
    html += row(withUnit(tr("Master"), m_parameterModel ? m_parameterModel->masterUnit() : QString()), -1, first, second);
    for (int quantity = 0; quantity < CurvePlot::QuantityCount; ++quantity) {
        const CurvePlot *plot = m_stack->plot(CurvePlot::Quantity(quantity));
        if (plot->isHidden())
            continue;
        for (bool calculated : { true, false }) {
            const QwtPlotCurve *curve = calculated ? plot->calculatedCurve() : plot->storedCurve();
            if (!curve->isVisible() || curve->dataSize() == 0)
                continue;
            const QString title = withUnit(QStringLiteral("%1 %2").arg(plot->symbol(), curve->title().text()),
                                           m_stack->valueUnit(quantity));
            html += row(title, quantity, valueAt(quantity, calculated, first), valueAt(quantity, calculated, second));
        }
    }
    if (m_placed < CursorCount)
        html += QStringLiteral("<tr><td colspan=\"2\"><i>%1</i></td></tr>")
                    .arg(tr("Ein weiterer Klick setzt Cursor 2.").toHtmlEscaped());
    return html + QStringLiteral("</table>");
}
