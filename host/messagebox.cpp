#include "messagebox.h"

#include <QAbstractButton>
#include <QPointer>

namespace {

MessageBox::Handler &currentHandler()
{
    static MessageBox::Handler handler;
    return handler;
}

} // namespace

QMessageBox::StandardButton MessageBox::information(QWidget *parent, const QString &title, const QString &text,
                                                    QMessageBox::StandardButtons buttons)
{
    return show(parent, { QMessageBox::Information, title, text, buttons });
}

QMessageBox::StandardButton MessageBox::warning(QWidget *parent, const QString &title, const QString &text,
                                                QMessageBox::StandardButtons buttons)
{
    return show(parent, { QMessageBox::Warning, title, text, buttons });
}

QMessageBox::StandardButton MessageBox::critical(QWidget *parent, const QString &title, const QString &text,
                                                 QMessageBox::StandardButtons buttons)
{
    return show(parent, { QMessageBox::Critical, title, text, buttons });
}

QMessageBox::StandardButton MessageBox::question(QWidget *parent, const QString &title, const QString &text,
                                                 QMessageBox::StandardButtons buttons)
{
    return show(parent, { QMessageBox::Question, title, text, buttons });
}

MessageBox::Handler MessageBox::setHandler(Handler handler)
{
    Handler previous = std::move(currentHandler());
    currentHandler() = std::move(handler);
    return previous;
}

QMessageBox::StandardButton MessageBox::show(QWidget *parent, const Message &message)
{
    if (currentHandler())
        return currentHandler()(parent, message);
    QMessageBox box(message.icon, message.title, message.text, message.buttons, parent);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

void MessageBox::openWindowModal(QWidget *parent, const Message &message, QObject *receiver, const char *member)
{
    QPointer<QMessageBox> box = new QMessageBox(message.icon, message.title, message.text, message.buttons, parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    QObject::connect(box, SIGNAL(buttonClicked(QAbstractButton *)), receiver, member);
    if (!currentHandler()) {
        box->open();
        return;
    }
    const QMessageBox::StandardButton answer = currentHandler()(parent, message);
    if (QAbstractButton *button = box->button(answer))
        button->click();
    // The receiver may have closed the parent, and with it the box.
    if (box)
        box->deleteLater();
}
