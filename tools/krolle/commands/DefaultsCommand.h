// krolle defaults: the default layers that new panels get, from the preference file.
#pragma once

#include "Command.h"

// Shows the user's default layers as the library reads them from "DEFAULT_LAYERS" of
// the preference file (the built-in template without one), as a table or --json.
class DefaultsCommand : public Command
{
public:
    DefaultsCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
