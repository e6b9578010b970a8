#include "windowplacement.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>

QRect WindowPlacement::fitted(const QRect &frame, const QRect &available)
{
    if (!available.isValid())
        return frame;
    const QSize size = frame.size().boundedTo(available.size());
    const int x = std::clamp(frame.x(), available.left(), available.right() + 1 - size.width());
    const int y = std::clamp(frame.y(), available.top(), available.bottom() + 1 - size.height());
    return QRect(QPoint(x, y), size);
}

QScreen *WindowPlacement::screenFor(const QWidget *window)
{
    if (QScreen *under = QGuiApplication::screenAt(window->geometry().center()))
        return under;
    const QWidget *active = QApplication::activeWindow();
    if (active && active != window)
        return active->screen();
    return QGuiApplication::primaryScreen();
}

void WindowPlacement::fitIntoScreen(QWidget *window)
{
    const QScreen *screen = screenFor(window);
    if (!screen)
        return;
    // The frame is known only once the window manager has decorated the
    // window; before, the frame is the window itself.
    const QRect frame = window->frameGeometry();
    const QRect inner = window->geometry();
    const QMargins margins(inner.left() - frame.left(), inner.top() - frame.top(), frame.right() - inner.right(),
                           frame.bottom() - inner.bottom());
    const QRect target = fitted(frame, screen->availableGeometry());
    if (target == frame)
        return;
    window->resize(target.size().shrunkBy(margins).expandedTo(window->minimumSize()));
    window->move(target.topLeft());
}
