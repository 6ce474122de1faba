// krolle outline: the acts, sequences, shots, panels and transitions of a project.
#pragma once

#include "Command.h"

// Prints the outline of StoryboardOutline as a table, or as the "outline"
// JSON document with --json; with --fps, timecodes at that frame rate.
class OutlineCommand : public Command
{
public:
    OutlineCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
