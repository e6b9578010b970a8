#pragma once

#include <QMessageBox>

#include <functional>

// The one place through which the suite's applications and the plug-ins they
// load (the cam editor among them) show message boxes. Tests and unattended
// runs install a handler that records title and text and answers at once, so
// that nothing ever waits for a click.
class MessageBox
{
public:
    struct Message {
        QMessageBox::Icon icon;
        QString title;
        QString text;
        QMessageBox::StandardButtons buttons;
    };
    using Handler = std::function<QMessageBox::StandardButton(QWidget *parent, const Message &message)>;

    static QMessageBox::StandardButton information(QWidget *parent, const QString &title, const QString &text,
                                                   QMessageBox::StandardButtons buttons = QMessageBox::Ok);
    static QMessageBox::StandardButton warning(QWidget *parent, const QString &title, const QString &text,
                                               QMessageBox::StandardButtons buttons = QMessageBox::Ok);
    static QMessageBox::StandardButton critical(QWidget *parent, const QString &title, const QString &text,
                                                QMessageBox::StandardButtons buttons = QMessageBox::Ok);
    static QMessageBox::StandardButton question(QWidget *parent, const QString &title, const QString &text,
                                                QMessageBox::StandardButtons buttons = QMessageBox::Yes | QMessageBox::No);

    // A window-modal box that does not block the caller: the clicked button
    // goes to the receiver's member, a slot taking a QAbstractButton*. Under a
    // handler the box is never shown; the handler's answer is clicked at once.
    static void openWindowModal(QWidget *parent, const Message &message, QObject *receiver, const char *member);

    // Replaces the handler (an empty one restores the modal boxes); returns the previous one.
    static Handler setHandler(Handler handler);

private:
    static QMessageBox::StandardButton show(QWidget *parent, const Message &message);
};
