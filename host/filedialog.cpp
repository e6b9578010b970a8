#include "filedialog.h"

#include <QFileDialog>

namespace {

FileDialog::Handler &currentHandler()
{
    static FileDialog::Handler handler;
    return handler;
}

} // namespace

QString FileDialog::getOpenFileName(QWidget *parent, const QString &caption, const QString &directory,
                                    const QString &filter)
{
    if (currentHandler())
        return currentHandler()(parent, { Mode::Open, caption, directory, filter });
    return QFileDialog::getOpenFileName(parent, caption, directory, filter);
}

QString FileDialog::getSaveFileName(QWidget *parent, const QString &caption, const QString &directory,
                                    const QString &filter)
{
    if (currentHandler())
        return currentHandler()(parent, { Mode::Save, caption, directory, filter });
    return QFileDialog::getSaveFileName(parent, caption, directory, filter);
}

FileDialog::Handler FileDialog::setHandler(Handler handler)
{
    Handler previous = std::move(currentHandler());
    currentHandler() = std::move(handler);
    return previous;
}
