// krolle man: the tool's manual page, made from the same declarations as its help.
#pragma once

#include "Command.h"

#include <memory>
#include <vector>

// Prints (or writes to --out) the manual page krolle(1) in roff: the tool's
// summary, then each command's usage line, description, positionals and
// options with their help, and its notes, then the exit statuses. The build
// runs it to make the installed page, so page and help never disagree.
// Holds the tool's list of commands, which outlives it.
class ManCommand : public Command
{
public:
    explicit ManCommand(const std::vector<std::unique_ptr<Command>>& commands);

    // The page in roff.
    QString page() const;

protected:
    ExitStatus run(const ArgumentValues& arguments) override;

private:
    const std::vector<std::unique_ptr<Command>>& m_commands;
};
