#include "randomuser.h"

#include "userinput.h"
#include "userterms.h"

#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"
#include "parameters/parametermodelimplementation.h"
#include "plots/curveplotstack.h"
#include "plots/motionpointdragger.h"
#include "views/motionplantreeeditor.h"
#include "views/pointeditview.h"
#include "views/positionlineedit.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>
#include <QMouseEvent>
#include <QPushButton>
#include <QTreeView>

#include <qwt_plot_canvas.h>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace UserInput;
using namespace UserTerms;

// "Hinzufügen" after a clicked row, or after whatever is selected: halfway
// to the next point, else halfway to the end of a cyclic cam, else one
// spacing of the last two points past the last.
bool RandomUser::addPoint()
{
    const CamDescriptionImplementation *description = model()->camDescription();
    const int count = model()->motionPointCount();
    if (count > 0 && chance(0.8))
        clickRow(m_tree->pointTree(), pick(count));
    const int row = m_tree->currentRow();
    double master = 0.0;
    double slave = 0.0;
    if (count > 0) {
        const int at = row < 0 ? count - 1 : row;
        const MotionPoint *point = model()->motionPointAt(at);
        slave = point->slave();
        if (at + 1 < count) {
            master = (point->master() + model()->motionPointAt(at + 1)->master()) / 2.0;
            slave = (point->slave() + model()->motionPointAt(at + 1)->slave()) / 2.0;
        } else if (description->isCyclic() && description->circularLength() > point->master()) {
            master = (point->master() + description->circularLength()) / 2.0;
        } else {
            master = point->master() + (count > 1 ? point->master() - model()->motionPointAt(at - 1)->master() : 1.0);
        }
    }
    master = rounded(master, parameters()->masterDecimalPlaces());
    slave = rounded(slave, parameters()->slaveDecimalPlaces());
    m_log << QStringLiteral("add after row %1").arg(row);
    if (beyondCycle(master)) {
        m_outcome.title = QString::fromUtf8(BeyondCycle);
    } else if (description->pointAt(master)) {
        m_outcome.title = QString::fromUtf8(MasterTaken);
    } else {
        expectPush(QStringLiteral("Füge Bewegungspunkt [%1,%2] hinzu")
                       .arg(QString::number(master, 'g', 6), QString::number(slave, 'g', 6)));
    }
    QTest::mouseClick(m_tree->addButton(), Qt::LeftButton);
    return true;
}

// By the button under the list, the Delete key in the list, or the point
// edit view's own button.
bool RandomUser::removePoint()
{
    const int count = model()->motionPointCount();
    if (count == 0)
        return false;
    const int row = pick(count);
    clickRow(m_tree->pointTree(), row);
    const MotionPoint *point = model()->motionPointAt(row);
    expectPush(QStringLiteral("Entferne Bewegungspunkt [%1,%2] hinzu")
                   .arg(QString::number(point->master(), 'g', 6), QString::number(point->slave(), 'g', 6)));
    const int way = pick(3);
    m_log << QStringLiteral("remove row %1 by %2").arg(row).arg(QStringList { "button", "Delete", "Entfernen" }.at(way));
    if (way == 0) {
        QTest::mouseClick(m_tree->removeButton(), Qt::LeftButton);
    } else if (way == 1) {
        activate();
        m_tree->pointTree()->setFocus();
        QTest::keyClick(m_tree->pointTree(), Qt::Key_Delete);
    } else {
        QTest::mouseClick(m_tree->pointEditView()->removeButton(), Qt::LeftButton);
    }
    return true;
}

// A cell of the list opened by F2: a position typed, a segment type chosen.
bool RandomUser::editCell()
{
    const int count = model()->motionPointCount();
    if (count == 0)
        return false;
    const int row = pick(count);
    const int column = pick(model()->motionLaw()->law() == MotionLaw::Vdi ? 3 : 2);
    QTreeView *view = m_tree->pointTree();
    clickRow(view, row, column);
    view->setFocus();
    QTest::keyClick(view, Qt::Key_F2);
    auto *box = view->viewport()->findChild<QComboBox *>();
    QLineEdit *edit = nullptr;
    for (QLineEdit *candidate : view->viewport()->findChildren<QLineEdit *>()) {
        if (candidate->isVisible())
            edit = candidate;
    }
    if (column == 2 ? !box : !edit)
        m_actionProblem = QStringLiteral("F2 opened no editor in column %1").arg(column);
    else
        editPoint(row, column, box, edit, QStringLiteral("cell %1").arg(row));
    return true;
}

// The fields of the selected point: master, slave, segment type.
bool RandomUser::editPointFields()
{
    const int count = model()->motionPointCount();
    if (count == 0)
        return false;
    if (m_tree->currentRow() < 0 || chance(0.5))
        clickRow(m_tree->pointTree(), pick(count));
    const int row = m_tree->currentRow();
    const int field = pick(model()->motionLaw()->law() == MotionLaw::Vdi ? 3 : 2);
    PointEditView *fields = m_tree->pointEditView();
    editPoint(row, field, fields->typeBox(), field == 0 ? fields->masterEdit() : fields->slaveEdit(),
              QStringLiteral("point %1").arg(row));
    return true;
}

// The point of the row gets a segment type chosen in the box (field 2) or a
// position typed into the edit (0 master, 1 slave). A text as the field
// shows it already is no edit at all.
void RandomUser::editPoint(int row, int field, QComboBox *box, QLineEdit *edit, const QString &where)
{
    const MotionPoint *point = model()->motionPointAt(row);
    double master = point->master();
    double slave = point->slave();
    if (field == 2) {
        const int index = pick(4);
        m_log << QStringLiteral("%1 type %2").arg(where).arg(index);
        expectEdit(point, master, slave, TypeOfComboIndex[index]);
        choose(box, index);
        return;
    }
    QString title;
    const QString text = positionInput(field == 0, row, field == 0 ? &master : &slave, &title);
    m_log << QStringLiteral("%1 %2 typed \"%3\"").arg(where, field == 0 ? "master" : "slave", text);
    if (text != edit->text() && !title.isEmpty())
        m_outcome.title = title;
    else if (text != edit->text())
        expectEdit(point, master, slave, point->type());
    type(edit, text);
}

// A press on a point's marker in the position plot, a move, and a release
// or Escape. The point is held strictly between its neighbours (and below
// the circular length of a cyclic cam), rounded to the drive's places.
bool RandomUser::dragPoint()
{
    const int count = model()->motionPointCount();
    CurvePlot *plot = m_plots->plot(CurvePlot::Position);
    if (count == 0 || !plot->isVisible())
        return false;
    m_plots->replotNow();
    const auto pixel = [plot](const QPointF &position) {
        return QPoint(int(std::lround(plot->transform(QwtPlot::xBottom, position.x()))),
                      int(std::lround(plot->transform(QwtPlot::yLeft, position.y()))));
    };
    QWidget *canvas = plot->canvas();
    const int row = pick(count);
    const MotionPoint *point = model()->motionPointAt(row);
    const QPoint start = pixel(point->position());
    if (!canvas->rect().contains(start))
        return false;
    // A marker that another one covers is not the user's to pick.
    for (int other = 0; other < count; ++other) {
        const QPoint there = pixel(model()->motionPointAt(other)->position());
        if (other != row && std::hypot(there.x() - start.x(), there.y() - start.y()) <= 2 * MotionPointDragger::CatchDistance)
            return false;
    }
    const QPointF from = point->position();
    const QPoint target(2 + pick(canvas->width() - 4), 2 + pick(canvas->height() - 4));
    const bool escape = chance(0.2);
    m_log << QStringLiteral("drag row %1 to pixel %2,%3%4").arg(row).arg(target.x()).arg(target.y()).arg(escape ? " and Escape" : "");
    QTest::mousePress(canvas, Qt::LeftButton, Qt::NoModifier, start);
    if (!m_plots->dragger()->isDragging()) {
        m_actionProblem = QStringLiteral("the press on the marker of row %1 caught no point").arg(row);
        QTest::mouseRelease(canvas, Qt::LeftButton, Qt::NoModifier, start);
        return true;
    }
    // What the user points at, on the scales the press found.
    double master = rounded(plot->invTransform(QwtPlot::xBottom, target.x()), parameters()->masterDecimalPlaces());
    const double slave = rounded(plot->invTransform(QwtPlot::yLeft, target.y()), parameters()->slaveDecimalPlaces());
    const double step = std::pow(10.0, -parameters()->masterDecimalPlaces());
    const double infinity = std::numeric_limits<double>::infinity();
    const double lowest = row > 0 ? model()->motionPointAt(row - 1)->master() : -infinity;
    double highest = row + 1 < count ? model()->motionPointAt(row + 1)->master() : infinity;
    // Below the circular length of a cyclic cam.
    if (model()->camDescription()->isCyclic())
        highest = std::min(highest, model()->camDescription()->circularLength());
    if (master <= lowest)
        master = rounded(lowest + step, parameters()->masterDecimalPlaces());
    if (master >= highest)
        master = rounded(highest - step, parameters()->masterDecimalPlaces());
    if (master <= lowest || master >= highest)
        master = from.x();
    // QTest moves the cursor instead, which sends nothing offscreen.
    QMouseEvent move(QEvent::MouseMove, target, canvas->mapToGlobal(target), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(canvas, &move);
    if (escape) {
        QTest::keyClick(canvas, Qt::Key_Escape);
        return true;
    }
    const auto outside = [](double position) { return position < PositionMinimum || position > PositionMaximum; };
    if ((master != from.x() || slave != from.y()) && (outside(master) || outside(slave))) {
        m_outcome.title = QStringLiteral("Bewegungspunkt nicht verschoben");
    } else if (master != from.x() || slave != from.y()) {
        expectPush(editText(from, point->type(), master, slave, point->type()));
    }
    QTest::mouseRelease(canvas, Qt::LeftButton, Qt::NoModifier, target);
    return true;
}

// "Bewegungspunkt hier einfügen" from the position plot's context menu, at
// a pixel between the first and the last point: the point goes onto the
// curve, and its row becomes the selected one.
bool RandomUser::insertOnCurve()
{
    const int count = model()->motionPointCount();
    CurvePlot *plot = m_plots->plot(CurvePlot::Position);
    if (count < 2 || !plot->isVisible() || !model()->motionPlan())
        return false;
    m_plots->replotNow();
    QWidget *canvas = plot->canvas();
    const QPoint at(2 + pick(canvas->width() - 4), 2 + pick(canvas->height() - 4));
    const double master = rounded(plot->invTransform(QwtPlot::xBottom, at.x()), parameters()->masterDecimalPlaces());
    if (!(master > model()->motionPointAt(0)->master() && master < model()->motionPointAt(count - 1)->master())
        || model()->camDescription()->pointAt(master) || beyondCycle(master))
        return false;
    const double slave = rounded(model()->motionPlan()->position(master), parameters()->slaveDecimalPlaces());
    if (slave < PositionMinimum || slave > PositionMaximum || master < PositionMinimum || master > PositionMaximum)
        return false;
    m_log << QStringLiteral("insert on the curve at pixel %1,%2").arg(at.x()).arg(at.y());
    expectPush(QStringLiteral("Füge Bewegungspunkt [%1,%2] hinzu")
                   .arg(QString::number(master, 'g', 6), QString::number(slave, 'g', 6)));
    bool chosen = false;
    QTimer::singleShot(0, canvas, [&chosen] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        for (QAction *action : menu->actions()) {
            if (action->text() == QStringLiteral("Bewegungspunkt hier einfügen") && action->isEnabled()) {
                menu->setActiveAction(action);
                chosen = true;
            }
        }
        QTest::keyClick(menu, chosen ? Qt::Key_Return : Qt::Key_Escape);
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, canvas->mapToGlobal(at));
    QApplication::sendEvent(canvas, &event);
    if (!chosen) {
        m_actionProblem = QStringLiteral("the context menu offered no insert");
        return true;
    }
    const MotionPoint *inserted = model()->camDescription()->pointAt(master);
    if (!inserted || m_tree->currentRow() != model()->rowOfMotionPoint(inserted))
        m_actionProblem = QStringLiteral("the point inserted at %1 is not the selected row").arg(master);
    return true;
}
