#include "randomuser.h"

#include "userinput.h"
#include "userterms.h"

#include "camdesigner/controller.h"
#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "model/motionpoint.h"
#include "model/scaling.h"
#include "parameters/calculatedtableview.h"
#include "parameters/gridpointparameterview.h"
#include "parameters/parametermodelimplementation.h"

#include <QApplication>
#include <QJsonDocument>

#include <qtadvanceddocking/DockWidget.h>
#include <qtadvanceddocking/DockWidgetTab.h>

#include <algorithm>
#include <iterator>
#include <numeric>

using namespace UserInput;
using namespace UserTerms;

bool RandomUser::State::operator==(const State &other) const
{
    if (data != other.data || masterAxisScaling != other.masterAxisScaling || cycleTime != other.cycleTime
        || velocityScaling != other.velocityScaling || positions.size() != other.positions.size())
        return false;
    // Exactly the same numbers, not fuzzily equal ones.
    return std::equal(positions.begin(), positions.end(), other.positions.begin(),
                      [](const QPointF &a, const QPointF &b) { return a.x() == b.x() && a.y() == b.y(); });
}

QString RandomUser::State::describe() const
{
    return QString::fromUtf8(QJsonDocument(data).toJson(QJsonDocument::Compact))
        + QStringLiteral(" axis=%1 cycle=%2 velocity=%3 points=%4")
              .arg(masterAxisScaling)
              .arg(cycleTime)
              .arg(velocityScaling)
              .arg(positions.size());
}

RandomUser::RandomUser(unsigned seed, const char *cam)
    : m_editor(cam)
    , m_button(CamDesigner::openCamDesignerButton(m_editor.designer.get()))
    , m_random(seed)
{
    m_button->resize(300, 120);
    m_button->show();
    // Whatever the drive holds at the start, it keeps until a write.
    m_expectedStored = parameters()->storedGridPoints();
    m_storedSlavesKnown = true;
    open();
}

RandomUser::~RandomUser()
{
    if (m_window)
        m_window->close();
    waitFor([this] { return !m_editor.implementation()->view(); });
}

int RandomUser::pick(int count)
{
    return std::uniform_int_distribution<int>(0, count - 1)(m_random);
}

bool RandomUser::chance(double probability)
{
    return std::uniform_real_distribution<double>(0.0, 1.0)(m_random) < probability;
}

double RandomUser::value(double low, double high, int decimals)
{
    return rounded(std::uniform_real_distribution<double>(low, high)(m_random), decimals);
}

// The host's button opens the window; the stack starts empty.
void RandomUser::open()
{
    click(static_cast<QAbstractButton *>(m_button.get()));
    m_window = m_editor.implementation()->view();
    if (!m_window)
        return;
    ++m_windows;
    m_window->resize(WindowSize);
    if (!QTest::qWaitForWindowExposed(m_window))
        m_actionProblem += QStringLiteral("the window was not shown");
    m_tree = m_window->motionPlanEditor();
    m_scaling = m_window->scalingView();
    m_comparison = m_window->comparisonView();
    // The docking library keeps the panels out of the window's children.
    m_calculated = qobject_cast<CalculatedTableView *>(m_window->dock(CamDesignerViewImplementation::CalculatedDock)->widget());
    m_gridPoints = qobject_cast<GridPointParameterView *>(m_window->dock(CamDesignerViewImplementation::ParameterDock)->widget());
    if (!m_calculated || !m_gridPoints)
        qFatal("the calculated table or the parameter list is missing");
    m_plots = m_window->plots();
    m_stack = m_window->undoStack();
    m_states = { state() };
    m_texts.clear();
    m_index = 0;
}

RandomUser::State RandomUser::state() const
{
    State s;
    s.data = m_editor.camDescription()->toJson();
    s.masterAxisScaling = model()->scaling()->masterAxisScaling();
    s.cycleTime = model()->scaling()->cycleTime();
    s.velocityScaling = model()->scaling()->velocityScaling();
    if (model()->motionPlan())
        s.positions = model()->motionPlan()->positions();
    return s;
}

QString RandomUser::masterText(double value) const
{
    return fixed(value, parameters()->masterDecimalPlaces());
}

QString RandomUser::slaveText(double value) const
{
    return fixed(value, parameters()->slaveDecimalPlaces());
}

void RandomUser::expectPush(const QString &text)
{
    m_outcome.kind = Outcome::Pushed;
    m_outcome.text = text;
}

void RandomUser::step()
{
    using Action = bool (RandomUser::*)();
    // Weighted by how often a user does it; point edits most.
    static const struct {
        Action action;
        int weight;
    } actions[] = {
        { &RandomUser::addPoint, 10 },        { &RandomUser::removePoint, 6 },       { &RandomUser::editCell, 10 },
        { &RandomUser::editPointFields, 10 }, { &RandomUser::dragPoint, 8 },         { &RandomUser::switchLaw, 4 },
        { &RandomUser::toggleCyclic, 4 },     { &RandomUser::editCircularLength, 4 }, { &RandomUser::switchStepMode, 4 },
        { &RandomUser::editResolution, 3 },   { &RandomUser::editStepSize, 3 },      { &RandomUser::chooseScaling, 4 },
        { &RandomUser::editCycleTime, 3 },    { &RandomUser::undoOrRedo, 16 },       { &RandomUser::writeToDrive, 3 },
        { &RandomUser::importCurveFile, 2 },  { &RandomUser::closeAndReopen, 1 },   { &RandomUser::changeLanguage, 1 },
        { &RandomUser::insertOnCurve, 6 },
    };
    const int total = std::accumulate(std::begin(actions), std::end(actions), 0,
                                      [](int sum, const auto &entry) { return sum + entry.weight; });
    m_messageCount = m_messages.count();
    activate();
    for (;;) {
        m_outcome = Outcome();
        int chosen = pick(total);
        for (const auto &entry : actions) {
            if (chosen < entry.weight) {
                const bool scaling = entry.action == &RandomUser::chooseScaling || entry.action == &RandomUser::editCycleTime;
                bringToFront(scaling ? CamDesignerViewImplementation::ScalingDock : CamDesignerViewImplementation::MotionPlanDock);
                if ((this->*entry.action)())
                    return;
                break;
            }
            chosen -= entry.weight;
        }
    }
}

// The user's hand is in the editor window, where a click would have put it
// on any platform but this offscreen one: key shortcuts reach it.
void RandomUser::activate()
{
    if (QApplication::activeWindow() == m_window)
        return;
    // A combo box's hidden list stays the active window offscreen, and the
    // window counts as active beside it: set it directly.
    QApplication::setActiveWindow(m_window);
    if (!QTest::qWaitForWindowActive(m_window) || QApplication::activeWindow() != m_window)
        m_actionProblem = QStringLiteral("the editor window cannot be activated");
}

// A click on the panel's tab, where it is not in front.
void RandomUser::bringToFront(int dock)
{
    ads::CDockWidget *widget = m_window->dock(CamDesignerViewImplementation::Dock(dock));
    if (widget->isCurrentTab())
        return;
    QTest::mouseClick(widget->tabWidget(), Qt::LeftButton);
    if (!widget->isCurrentTab())
        m_actionProblem = QStringLiteral("a click on the tab \"%1\" did not bring it to the front").arg(widget->windowTitle());
}

QString RandomUser::editText(const QPointF &from, int fromType, double master, double slave, int type) const
{
    return QStringLiteral("Ändere Bewegungspunkt [%1;%2,%3]) -> [%4;%5;%6]")
        .arg(masterText(from.x()), slaveText(from.y()), typeName(fromType), masterText(master), slaveText(slave),
             typeName(type));
}

// A push when the new values differ from the point's.
void RandomUser::expectEdit(const MotionPoint *point, double master, double slave, int type)
{
    if (master != point->master() || slave != point->slave() || type != point->type())
        expectPush(editText(point->position(), point->type(), master, slave, type));
}

// Mostly a valid new position; else a master of another point, a value
// beyond the drive's limits, or no number at all.
QString RandomUser::positionInput(bool master, int row, double *result, QString *title)
{
    const int count = model()->motionPointCount();
    const int kind = pick(10);
    if (kind == 0) {
        *title = QString::fromUtf8(InvalidInput);
        return QString::fromLatin1(NoNumbers[pick(int(std::size(NoNumbers)))]);
    }
    if (kind == 1) {
        *title = QString::fromUtf8(master ? "Master-Position außerhalb der Grenzen" : "Slave-Position außerhalb der Grenzen");
        return QString::fromLatin1(master ? TooLargeMaster : TooSmallSlave);
    }
    if (kind == 2 && master && count > 1) {
        int other = pick(count - 1);
        other += other >= row ? 1 : 0;
        *result = model()->motionPointAt(other)->master();
        *title = QString::fromUtf8(beyondCycle(*result) ? BeyondCycle : MasterTaken);
        return masterText(*result);
    }
    *result = master ? value(0.0, 400.0, 3) : value(-100.0, 200.0, 3);
    const MotionPoint *there = master ? model()->camDescription()->pointAt(*result) : nullptr;
    *title = there && there != model()->motionPointAt(row) ? QString::fromUtf8(MasterTaken) : QString();
    if (master && beyondCycle(*result) && *result != model()->motionPointAt(row)->master())
        *title = QString::fromUtf8(BeyondCycle);  // asked before the points' places
    // Sometimes more digits than the drive keeps: they are rounded away.
    if (chance(0.2))
        return QString::number(*result + 0.0004, 'f', 4);
    return master ? masterText(*result) : slaveText(*result);
}

bool RandomUser::beyondCycle(double master) const
{
    const CamDescriptionImplementation *description = m_editor.camDescription();
    return description->isCyclic() && master >= description->circularLength();
}

QString RandomUser::undoAndRedoAll(bool redo)
{
    QAction *undoAction = actionNamed(m_window, QStringLiteral("&Rückgängig"));
    QAction *redoAction = actionNamed(m_window, QStringLiteral("Wiederholen"));
    for (int guard = m_texts.size(); undoAction->isEnabled() && guard >= 0; --guard)
        undoAction->trigger();
    if (m_stack->index() != 0)
        return QStringLiteral("undo stopped at index %1").arg(m_stack->index());
    if (!(state() == m_states.front()))
        return QStringLiteral("undoing all gives %1, the window opened with %2")
            .arg(state().describe(), m_states.front().describe());
    m_index = 0;
    const QString panels = panelProblem();
    if (!panels.isEmpty() || !redo)
        return panels;
    for (int guard = m_texts.size(); redoAction->isEnabled() && guard >= 0; --guard)
        redoAction->trigger();
    m_index = m_texts.size();
    if (m_stack->index() != m_index)
        return QStringLiteral("redo stopped at index %1 of %2").arg(m_stack->index()).arg(m_index);
    if (!(state() == m_states.back()))
        return QStringLiteral("redoing all gives %1, expected %2").arg(state().describe(), m_states.back().describe());
    return panelProblem();
}

QString RandomUser::summary() const
{
    return QStringLiteral("%1 pushed, %2 left the stack, %3 undone, %4 redone, %5 refused, %6 windows")
        .arg(m_counts[Outcome::Pushed])
        .arg(m_counts[Outcome::Nothing])
        .arg(m_counts[Outcome::Undone])
        .arg(m_counts[Outcome::Redone])
        .arg(m_counts[Outcome::Redone + 1])
        .arg(m_windows);
}

QString RandomUser::check()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QStringList problems;
    if (!m_actionProblem.isEmpty())
        problems << m_actionProblem;
    m_actionProblem.clear();
    if (!m_window)
        return problems.join(QLatin1Char('\n'));

    const QList<MessageBox::Message> &messages = m_messages.messages();
    const int shown = messages.size() - m_messageCount;
    if (m_outcome.title.isEmpty() && shown > 0)
        problems << QStringLiteral("a box nobody expected: \"%1\": %2").arg(messages.last().title, messages.last().text);
    if (!m_outcome.title.isEmpty() && (shown != 1 || messages.last().title != m_outcome.title))
        problems << QStringLiteral("%1 boxes, the last \"%2\", where one \"%3\" belongs")
                        .arg(shown)
                        .arg(shown > 0 ? messages.last().title : QString(), m_outcome.title);

    ++m_counts[m_outcome.title.isEmpty() ? m_outcome.kind : Outcome::Redone + 1];
    switch (m_outcome.kind) {
    case Outcome::Pushed:
        m_texts.erase(m_texts.begin() + m_index, m_texts.end());
        m_states.erase(m_states.begin() + m_index + 1, m_states.end());
        m_texts << m_outcome.text;
        m_states.push_back(state());
        ++m_index;
        if (m_states.at(m_index) == m_states.at(m_index - 1))
            problems << QStringLiteral("the command \"%1\" changed nothing").arg(m_outcome.text);
        break;
    case Outcome::Undone:
        m_index = qMax(0, m_index - 1);
        break;
    case Outcome::Redone:
        m_index = qMin(int(m_texts.size()), m_index + 1);
        break;
    case Outcome::Nothing:
        break;
    }
    if (m_stack->count() != m_texts.size() || m_stack->index() != m_index) {
        // The log of the actions tells which one went wrong.
        problems << QStringLiteral("the stack holds %1 commands at %2, expected %3 at %4")
                        .arg(m_stack->count()).arg(m_stack->index()).arg(m_texts.size()).arg(m_index);
    } else {
        for (int i = 0; i < m_texts.size(); ++i) {
            if (m_stack->text(i) != m_texts.at(i))
                problems << QStringLiteral("undo text %1 is \"%2\", expected \"%3\"").arg(i).arg(m_stack->text(i), m_texts.at(i));
        }
        if (!(state() == m_states.at(m_index)))
            problems << QStringLiteral("the editor holds %1, expected %2")
                            .arg(state().describe(), m_states.at(m_index).describe());
    }
    if (model()->isCoarseSteps())
        problems << QStringLiteral("the model still samples coarsely");
    const QString panels = panelProblem();
    if (!panels.isEmpty())
        problems << panels;
    const QString stored = storedProblem();
    if (!stored.isEmpty())
        problems << stored;
    m_justWritten = false;
    return problems.join(QLatin1Char('\n'));
}
