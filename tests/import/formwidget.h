#pragma once

#include <QWidget>

// A widget of a dialog's form by its object name; a form without it ends the
// test at once instead of crashing on a null pointer.
template<class T> T *widget(QWidget *dialog, const char *name)
{
    T *found = dialog->findChild<T *>(QLatin1String(name));
    if (!found)
        qFatal("the form has no %s", name);
    return found;
}
