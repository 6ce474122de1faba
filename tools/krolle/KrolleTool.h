// The krolle tool as a whole: its commands and the dispatch between them.
#pragma once

#include "ToolError.h"

#include <QStringList>
#include <memory>
#include <vector>

class Command;

// Owns one instance of every command, answers "--help" and "--version" ("-V",
// "version") of the tool, hands the rest of the command line to the named command and turns a
// ToolError into one line on standard error ("krolle <command>: <sentence>")
// and its exit status. Single-threaded.
class KrolleTool
{
public:
    KrolleTool();
    ~KrolleTool();

    // arguments without the program name; returns the process's exit status.
    int run(const QStringList& arguments);

    QString helpText() const;

private:
    Command* find(const QString& name) const;
    // The command of that name; a usage error, with the nearest name, when there is none.
    Command* known(const QString& name) const;
    ExitStatus dispatch(const QStringList& arguments);

    std::vector<std::unique_ptr<Command>> m_commands;
};
