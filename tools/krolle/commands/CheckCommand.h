// krolle check: reports what is wrong with a project's records and names.
#pragma once

#include "Command.h"

// Loads a project and reports, one plain sentence each: records that are not
// valid (isValid of the shots' and panels' info records), naming rules that
// cannot make names, custom shot names that do not follow the rules
// (KRC_NameHelper::shotNameFollowsRules; automatic names follow them by
// construction), and names used twice: shots in one sequence, panels in one
// shot, acts and sequences whose name stands for two separate runs.
// Exit status 0 when clean, 1 when something was found.
class CheckCommand : public Command
{
public:
    CheckCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
