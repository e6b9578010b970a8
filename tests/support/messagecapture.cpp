#include "messagecapture.h"

MessageCapture::MessageCapture(QMessageBox::StandardButton answer)
    : m_answer(answer)
{
    m_previous = MessageBox::setHandler([this](QWidget *, const MessageBox::Message &message) {
        m_messages.append(message);
        return m_answer;
    });
}

MessageCapture::~MessageCapture()
{
    MessageBox::setHandler(m_previous);
}
