#include "plotcontextmenu.h"

#include "camdesigner/camdescriptionimplementation.h"
#include "curveplotstack.h"
#include "curves/motionplan.h"
#include "defaultpathsetting.h"
#include "measuringtool.h"
#include "model/cameditormodel.h"
#include "model/motionpoint.h"
#include "motionpointdragger.h"
#include "parameters/parametermodel.h"
#include "pointinsertion.h"
#include "pointselection.h"
#include "views/motionpointediting.h"

#include <filedialog.h>
#include <messagebox.h>

#include <QAction>
#include <QContextMenuEvent>
#include <QLocale>
#include <QMainWindow>
#include <QMenu>
#include <QStatusBar>

#include <cmath>
#include <limits>

namespace {

const char DefaultPathKind[] = "CamDesignerPlots";
constexpr int StatusTimeout = 15000;

} // namespace

PlotContextMenu::PlotContextMenu(CurvePlotStack *stack, CamEditorModel *editorModel, ParameterModel *parameterModel,
                                 QUndoStack *undoStack)
    : m_stack(stack)
    , m_editorModel(editorModel)
    , m_parameterModel(parameterModel)
    , m_selection(PointSelection::of(editorModel))
    , m_editing(std::make_unique<MotionPointEditing>(editorModel, parameterModel, undoStack))
    , m_wholeCurveAction(new QAction(stack))
    , m_exportAction(new QAction(stack))
    , m_insertPointAction(new QAction(stack))
    , m_removePointAction(new QAction(stack))
    , m_lastInsertDeviation(std::numeric_limits<double>::quiet_NaN())
{
    QObject::connect(m_wholeCurveAction, &QAction::triggered, stack, &CurvePlotStack::showWholeCurve);
    QObject::connect(m_exportAction, &QAction::triggered, stack, [this] { exportPlot(-1); });
    QObject::connect(m_insertPointAction, &QAction::triggered, stack, [this] { insertPoint(); });
    QObject::connect(m_removePointAction, &QAction::triggered, stack, [this] { removePoint(); });
}

PlotContextMenu::~PlotContextMenu() = default;

void PlotContextMenu::retranslate()
{
    m_wholeCurveAction->setText(tr("Ganze Kurve anzeigen"));
    m_exportAction->setText(tr("Exportieren …"));
    m_insertPointAction->setText(tr("Bewegungspunkt hier einfügen"));
    m_removePointAction->setText(tr("Bewegungspunkt entfernen"));
}

void PlotContextMenu::exec(QContextMenuEvent *event)
{
    QMenu menu(m_stack);
    CurvePlot *plot = nullptr;
    for (QWidget *widget = m_stack->childAt(event->pos()); widget && !plot; widget = widget->parentWidget())
        plot = qobject_cast<CurvePlot *>(widget);
    // Points are edited where they show: on the position plot's canvas.
    const CurvePlot *position = m_stack->plot(CurvePlot::Position);
    m_menuPosition = position->canvas()->mapFrom(m_stack, event->pos());
    if (plot == position && position->canvas()->rect().contains(m_menuPosition)) {
        m_insertPointAction->setEnabled(m_editorModel && m_editing->undoStack());
        m_removePointAction->setEnabled(m_stack->dragger()->pointNear(m_menuPosition) >= 0);
        menu.addAction(m_insertPointAction);
        menu.addAction(m_removePointAction);
        menu.addSeparator();
    }
    menu.addAction(m_stack->measuringTool()->action());
    menu.addAction(m_wholeCurveAction);
    menu.addSeparator();
    menu.addAction(m_exportAction);
    if (plot)
        menu.addAction(tr("Diesen Plot exportieren …"), m_stack, [this, plot] { exportPlot(plot->quantity()); });
    menu.exec(event->globalPos());
}

void PlotContextMenu::exportPlot(int quantity)
{
    VxUtilities::DefaultPathSetting defaultPath { QLatin1String(DefaultPathKind) };
    const QString path = FileDialog::getSaveFileName(m_stack, tr("Kurven exportieren"), defaultPath.path(),
                                                     tr("Bilder (*.png *.svg *.pdf)"));
    if (path.isEmpty())
        return;
    const QSize shown = quantity < 0 ? m_stack->size() : m_stack->plot(CurvePlot::Quantity(quantity))->size();
    QString reason;
    if (!m_stack->exportTo(path, shown, quantity, &reason)) {
        // The system's reason (a full disk, a missing directory) follows as it comes.
        MessageBox::warning(m_stack, tr("Exportieren nicht möglich"),
                            tr("Die Datei %1 konnte nicht geschrieben werden.").arg(path)
                                + (reason.isEmpty() ? QString() : QLatin1Char('\n') + reason));
        return;
    }
    defaultPath.setPath(path);
}

void PlotContextMenu::insertPoint()
{
    if (!m_editorModel)
        return;
    const CurvePlot *position = m_stack->plot(CurvePlot::Position);
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
    if (!m_editing->add(m_stack, *choice.point))
        return;
    m_lastInsertDeviation = choice.deviation;
    if (m_selection)
        m_selection->setCurrent(m_editorModel->camDescription()->pointAt(master));
    auto *mainWindow = qobject_cast<QMainWindow *>(m_stack->window());
    if (mainWindow && !std::isnan(choice.deviation)) {
        const QString unit = m_parameterModel ? m_parameterModel->slaveUnit() : QString();
        mainWindow->statusBar()->showMessage(
            tr("Bewegungspunkt eingefügt (%1); größte Positionsänderung der Kurve: %2 %3")
                .arg(choice.point->typeDisplayName(), QLocale().toString(choice.deviation, 'g', 3), unit)
                .trimmed(),
            StatusTimeout);
    }
}

void PlotContextMenu::removePoint()
{
    const int row = m_stack->dragger()->pointNear(m_menuPosition);
    if (row >= 0 && m_editorModel)
        m_editing->remove(m_editorModel->motionPointAt(row));
}
