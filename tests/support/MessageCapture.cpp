#include "MessageCapture.h"

MessageCapture::MessageCapture()
    : m_previous(MSG_Scope::setSink([this](MSG_Message const& message) { m_messages.append(message); }))
{
}

MessageCapture::~MessageCapture()
{
    MSG_Scope::setSink(m_previous);
}

QStringList MessageCapture::texts() const
{
    QStringList result;
    for (MSG_Message const& message : m_messages)
        result.append(message.translated);
    return result;
}
