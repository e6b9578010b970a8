#include "motionpointdragger.h"

#include "camdesigner/camdescriptionimplementation.h"
#include <messagebox.h>
#include "commands/editmotionpointcommand.h"
#include "curveplot.h"
#include "model/cameditormodel.h"
#include "model/motionpoint.h"
#include "model/scaling.h"
#include "parameters/parametermodel.h"
#include "pointselection.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QUndoStack>

#include <qwt_plot_picker.h>
#include <qwt_scale_map.h>

#include <algorithm>
#include <cmath>
#include <limits>

MotionPointDragger::MotionPointDragger(CurvePlot *plot, CamEditorModel *editorModel, ParameterModel *parameterModel,
                                       QUndoStack *undoStack)
    : QObject(plot)
    , m_plot(plot)
    , m_editorModel(editorModel)
    , m_parameterModel(parameterModel)
    , m_undoStack(undoStack)
    , m_canvas(plot->canvas())
{
    m_canvas->installEventFilter(this);
}

bool MotionPointDragger::eventFilter(QObject *watched, QEvent *event)
{
    // Compared with the canvas kept at the start: while the plot is being
    // destroyed its canvas still sends events, and the plot is no plot then.
    if (watched != m_canvas)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        auto *mouse = static_cast<QMouseEvent *>(event);
        return mouse->button() == Qt::LeftButton && press(mouse->pos());
    }
    case QEvent::MouseMove:
        if (!isDragging())
            return false;
        move(static_cast<QMouseEvent *>(event)->pos());
        return true;
    case QEvent::MouseButtonRelease:
        if (!isDragging() || static_cast<QMouseEvent *>(event)->button() != Qt::LeftButton)
            return false;
        release();
        return true;
    case QEvent::KeyPress:
        if (!isDragging() || static_cast<QKeyEvent *>(event)->key() != Qt::Key_Escape)
            return false;
        cancel();
        return true;
    default:
        return false;
    }
}

int MotionPointDragger::pointNear(const QPoint &position) const
{
    if (!m_editorModel)
        return -1;
    const QwtScaleMap x = m_plot->canvasMap(QwtPlot::xBottom);
    const QwtScaleMap y = m_plot->canvasMap(QwtPlot::yLeft);
    int nearest = -1;
    double distance = CatchDistance;
    for (int row = 0; row < m_editorModel->motionPointCount(); ++row) {
        const MotionPoint *point = m_editorModel->motionPointAt(row);
        const double d = std::hypot(x.transform(point->master()) - position.x(), y.transform(point->slave()) - position.y());
        if (d <= distance) {
            distance = d;
            nearest = row;
        }
    }
    return nearest;
}

bool MotionPointDragger::press(const QPoint &position)
{
    if (!m_editorModel || !m_undoStack)
        return false;
    const int count = m_editorModel->motionPointCount();
    const int nearest = pointNear(position);
    if (nearest < 0)
        return false;
    m_point = m_editorModel->motionPointAt(nearest);
    m_start = m_point->position();
    const double infinity = std::numeric_limits<double>::infinity();
    m_lowest = nearest > 0 ? m_editorModel->motionPointAt(nearest - 1)->master() : -infinity;
    m_highest = nearest + 1 < count ? m_editorModel->motionPointAt(nearest + 1)->master() : infinity;
    // A cyclic cam starts again at its circular length: the point stays below it.
    const CamDescriptionImplementation *description = m_editorModel->camDescription();
    if (description->isCyclic())
        m_highest = std::min(m_highest, description->circularLength());
    m_plot->canvas()->setFocus(Qt::MouseFocusReason);
    // The pressed point is the current one, and no hover label covers it
    // while it moves.
    if (PointSelection *selection = PointSelection::of(m_editorModel))
        selection->setCurrent(m_point);
    m_plot->tracker()->setTrackerMode(QwtPicker::AlwaysOff);
    m_editorModel->beginCoarseSteps();
    return true;
}

void MotionPointDragger::move(const QPoint &position)
{
    if (!m_point || !m_parameterModel)
        return;
    const ParameterModel &drive = *m_parameterModel;
    const double step = std::pow(10.0, -drive.masterDecimalPlaces());
    double master = drive.roundMaster(m_plot->invTransform(QwtPlot::xBottom, position.x()));
    // Strictly between the neighbours: the point keeps its place in the order.
    if (master <= m_lowest)
        master = drive.roundMaster(m_lowest + step);
    if (master >= m_highest)
        master = drive.roundMaster(m_highest - step);
    if (master <= m_lowest || master >= m_highest)
        master = m_point->master();
    const double slave = drive.roundSlave(m_plot->invTransform(QwtPlot::yLeft, position.y()));
    // The drag itself moves the point, as the model's coarse sampling is
    // made for; the one command follows at the release.
    m_point->setPosition(QPointF(master, slave));
}

void MotionPointDragger::release()
{
    MotionPoint *point = m_point;
    const QPointF target = point->position();
    // Back to the start, so that the command holds the move from there.
    point->setPosition(m_start);
    const QString message = target == m_start || !m_parameterModel
        ? QString()
        : m_parameterModel->checkMasterValue(target.x()) + m_parameterModel->checkSlaveValue(target.y());
    if (target != m_start && !message.isEmpty()) {
        finish();
        MessageBox::warning(m_plot, tr("Bewegungspunkt nicht verschoben"), message);
        return;
    }
    if (target != m_start) {
        // The drag moves the point; its type and section stay.
        MotionPoint moved(target.x(), target.y(), MotionPoint::movementRules(point->type()));
        moved.setSectionFrom(*point);
        m_undoStack->push(new EditMotionPointCommand(point, moved, m_editorModel->scaling()));
    }
    finish();
}

void MotionPointDragger::cancel()
{
    if (m_point)
        m_point->setPosition(m_start);
    finish();
}

void MotionPointDragger::finish()
{
    // The dragged point stays the current one (made so by the press).
    if (m_point && m_editorModel) {
        if (PointSelection *selection = PointSelection::of(m_editorModel))
            selection->setCurrent(m_point);
    }
    m_plot->tracker()->setTrackerMode(QwtPicker::AlwaysOn);
    m_point = nullptr;
    if (m_editorModel)
        m_editorModel->endCoarseSteps();
}

