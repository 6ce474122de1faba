// krolle completion: a shell completion script made from the commands' own declarations.
#pragma once

#include "Command.h"

#include <memory>
#include <vector>

// Prints a bash or zsh completion script: the command names, and for each
// command its options (with their help in zsh) and file names for its
// positionals. Everything comes from the commands' declarations, so the
// script never lists an option that the parser would refuse. Holds the
// tool's list of commands, which outlives it.
class CompletionCommand : public Command
{
public:
    explicit CompletionCommand(const std::vector<std::unique_ptr<Command>>& commands);

protected:
    ExitStatus run(const ArgumentValues& arguments) override;

private:
    QString bash() const;
    QString zsh() const;

    const std::vector<std::unique_ptr<Command>>& m_commands;
};
