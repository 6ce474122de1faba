// krolle new: generates a storyboard project of any size.
#pragma once

#include "Command.h"

// Generates a project from GeneratorSettings given on the command line and
// saves it to FILE, which must not exist yet unless --force is given.
class NewCommand : public Command
{
public:
    NewCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
