// krolle rules: shows and changes the naming rules of a project.
#pragma once

#include "Command.h"

// Shows the naming rules in force (NamingRulesEditor) of the project's
// naming rules record; --set changes them in the record, turning its override
// of the preferences on, and saves the file.
class RulesCommand : public Command
{
public:
    RulesCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
