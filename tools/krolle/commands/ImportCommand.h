// krolle import: a board from an OpenTimelineIO cut.
#pragma once

#include "Command.h"

class ImportCommand : public Command
{
public:
    ImportCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
