// krolle layers: the layers of one panel, in order, with their kind, opacity and flags.
#pragma once

#include "Command.h"

// Lists the layers that the library's layer manager finds in a panel (named
// SHOT/PANEL), as a table or as the "layers" JSON document with --json.
class LayersCommand : public Command
{
public:
    LayersCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
