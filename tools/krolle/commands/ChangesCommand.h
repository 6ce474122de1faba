// krolle changes: which panels changed, and when.
#pragma once

#include "Command.h"

// Lists, in timeline order, the panels whose tracking record carries a date (set by
// `track` or by any editing command of the tool), with the flag and the note; --since and
// --until (ISO dates, both included) narrow the dates, --tracked and --untracked the flag.
class ChangesCommand : public Command
{
public:
    ChangesCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
