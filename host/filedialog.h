#pragma once

#include <QString>

#include <functional>

class QWidget;

// The one place through which the suite's applications and their plug-ins
// ask for file names. Tests install a handler that answers at once, so that
// no test waits in a dialog.
class FileDialog
{
public:
    enum class Mode { Open, Save };
    struct Request {
        Mode mode;
        QString caption;
        QString directory;
        QString filter;
    };
    using Handler = std::function<QString(QWidget *parent, const Request &request)>;

    static QString getOpenFileName(QWidget *parent, const QString &caption, const QString &directory,
                                   const QString &filter);
    static QString getSaveFileName(QWidget *parent, const QString &caption, const QString &directory,
                                   const QString &filter);

    // Replaces the handler (an empty one restores the dialogs); returns the previous one.
    static Handler setHandler(Handler handler);
};
