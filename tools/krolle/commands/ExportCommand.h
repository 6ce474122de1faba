// krolle export: the storyboard as an editorial cut or a shot list.
#pragma once

#include "Command.h"

class ExportCommand : public Command
{
public:
    ExportCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
