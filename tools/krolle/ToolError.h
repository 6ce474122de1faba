// Failures of the krolle tool, each with the exit status it stands for.
#pragma once

#include <QString>
#include <exception>

// Exit statuses of the tool. They are part of its interface (scripts test them).
enum class ExitStatus
{
    Success = 0,
    Findings = 1, // the command ran and found something to report (check), or could not do what was asked
    BadFile = 2, // a file is missing, unreadable, damaged or cannot be written
    BadUsage = 64, // the command line is wrong
};

// A failure that ends a command: one sentence for standard error and the exit status.
// Thrown by the commands and caught once by the dispatcher, which prints the message.
// Single-threaded, like the whole tool.
class ToolError : public std::exception
{
public:
    ToolError(ExitStatus status, const QString& message);

    // Bad command line; the message should say what is wrong and what would be right.
    static ToolError usage(const QString& message);
    // A file that cannot be read, parsed or written; the message names the file and the place.
    static ToolError file(const QString& message);
    // A request that the project cannot satisfy (unknown shot name, empty project...).
    static ToolError failure(const QString& message);

    ExitStatus status() const { return m_status; }
    const QString& message() const { return m_message; }
    const char* what() const noexcept override;

private:
    ExitStatus m_status;
    QString m_message;
    QByteArray m_what;
};
