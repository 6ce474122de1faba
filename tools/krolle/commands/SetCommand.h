// krolle set: the value of one info field on a panel or on the project.
#pragma once

#include "Command.h"

// Sets the value of a field named by its definition, on the panel named SHOT/PANEL or
// (with --project) on the project, and saves the file. The value is stored as typed:
// plain text, which the library reads back as rich text, or an image field's key (a
// path relative to the project's directory). Unknown fields, shots and panels are failures
// (status 1) and leave the file untouched.
class SetCommand : public Command
{
public:
    SetCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
