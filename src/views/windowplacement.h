#pragma once

#include <QRect>

class QScreen;
class QWidget;

// Keeps a top-level window on a screen: a saved geometry may come from a
// larger or a since removed screen, and a default size may not fit a small
// one. The window is made as small as it must and moved as little as it can
// to lie within the screen's available area (without task bars and docks).
class WindowPlacement
{
public:
    // The outer rectangle (frame included) moved and shrunk into available.
    static QRect fitted(const QRect &frame, const QRect &available);
    // The screen the window should lie on: the one under its centre, else
    // the one of the window that is active (the host's), else the primary.
    static QScreen *screenFor(const QWidget *window);
    // Resizes and moves the window into screenFor()'s available area.
    static void fitIntoScreen(QWidget *window);
};
