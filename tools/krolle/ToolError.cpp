#include "ToolError.h"

ToolError::ToolError(ExitStatus status, const QString& message)
    : m_status(status)
    , m_message(message)
    , m_what(message.toUtf8())
{
}

ToolError ToolError::usage(const QString& message)
{
    return ToolError(ExitStatus::BadUsage, message);
}

ToolError ToolError::file(const QString& message)
{
    return ToolError(ExitStatus::BadFile, message);
}

ToolError ToolError::failure(const QString& message)
{
    return ToolError(ExitStatus::Findings, message);
}

const char* ToolError::what() const noexcept
{
    return m_what.constData();
}
