// Base of the tool's commands.
#pragma once

#include "ArgumentParser.h"
#include "ToolError.h"

// One command of the tool ("outline", "at", ...). A derived class declares its
// command line in its constructor through declare() and does its work in run(),
// reporting failures by throwing ToolError; execute() parses, answers --help
// and calls run(). Single-threaded.
class Command
{
public:
    virtual ~Command();
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    const QString& name() const { return m_name; }
    const ArgumentParser& parser() const { return m_parser; }

    // Runs the command on its own arguments (those after the command's name).
    ExitStatus execute(const QStringList& arguments);

protected:
    Command(const QString& name, const QString& summary);

    ArgumentParser& declare() { return m_parser; }
    // Refuses (status 1) to write over an existing file unless --force was given.
    static void refuseToOverwrite(const QString& path, const ArgumentValues& arguments);
    // Says what was written to path: on standard output, or beside it on standard error
    // when the project itself went to standard output ("-").
    static void reportWritten(const QString& path, const QString& report);
    virtual ExitStatus run(const ArgumentValues& arguments) = 0;

private:
    QString m_name;
    ArgumentParser m_parser;
};
