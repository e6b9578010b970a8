#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>

#include <functional>

// What a user's hand does to a widget, through QTest's events only (typing
// into a field is the editor fixture's type()).
namespace UserInput {

// On the box itself, not in the empty width a form gives it.
inline void click(QAbstractButton *button)
{
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(4, button->height() / 2));
}

// Waits, handling events, until the condition holds; false after the time.
inline bool waitFor(const std::function<bool()> &condition, int milliseconds = 5000)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > milliseconds)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

// A choice from the open list, as a click makes it.
inline bool choose(QComboBox *box, int index)
{
    box->showPopup();
    QAbstractItemView *list = box->view();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->model()->index(index, 0)).center());
    // The list's window hides a little later (the chosen item flashes) and
    // keeps the activation until then.
    return waitFor([list] { return !list->window()->isVisible(); });
}

// A click on the first column of a row of an item view, scrolled to it.
inline void clickRow(QAbstractItemView *view, int row, int column = 0)
{
    const QModelIndex index = view->model()->index(row, column);
    view->scrollTo(index);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(index).center());
}

} // namespace UserInput
