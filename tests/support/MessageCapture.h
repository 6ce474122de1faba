// Test helper: collects the messages that MSG_Scope delivers while it lives.
#pragma once

#include "host/base/MSG_Scope.h"

#include <QList>
#include <QStringList>

/// Installs itself as the MSG_Scope sink on construction and puts the previous sink
/// back on destruction, so captures nest. Host's thread only.
class MessageCapture
{
public:
    MessageCapture();
    ~MessageCapture();
    MessageCapture(MessageCapture const&) = delete;
    MessageCapture& operator=(MessageCapture const&) = delete;

    QList<MSG_Message> const& messages() const { return m_messages; }
    int count() const { return m_messages.size(); }
    /// The translated texts, in delivery order.
    QStringList texts() const;
    void clear() { m_messages.clear(); }

private:
    QList<MSG_Message> m_messages;
    MSG_Scope::Sink m_previous;
};
