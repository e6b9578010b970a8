#pragma once

#include <messagebox.h>

#include <QList>

// Records every message box the editor shows while it lives, and answers each
// one with a fixed button instead of waiting for a click.
class MessageCapture
{
public:
    explicit MessageCapture(QMessageBox::StandardButton answer = QMessageBox::Ok);
    ~MessageCapture();

    MessageCapture(const MessageCapture &) = delete;
    MessageCapture &operator=(const MessageCapture &) = delete;

    const QList<MessageBox::Message> &messages() const { return m_messages; }
    int count() const { return m_messages.size(); }
    const MessageBox::Message &last() const { return m_messages.constLast(); }
    void setAnswer(QMessageBox::StandardButton answer) { m_answer = answer; }
    void clear() { m_messages.clear(); }

private:
    QList<MessageBox::Message> m_messages;
    QMessageBox::StandardButton m_answer;
    MessageBox::Handler m_previous;
};
