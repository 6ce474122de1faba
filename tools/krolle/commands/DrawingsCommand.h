// krolle drawings: the drawings a panel, or every panel, shows at its first frame.
#pragma once

#include "Command.h"

// Lists, per panel, each element with the drawing it shows at the panel's first frame
// and the drawing's kind, as a table or as the "drawings" JSON document with --json.
class DrawingsCommand : public Command
{
public:
    DrawingsCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
