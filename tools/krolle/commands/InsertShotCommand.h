// krolle insert-shot: inserts a shot beside a named one.
#pragma once

#include "InsertCommand.h"

// Inserts a shot through the engine's authoring API after or before a shot
// found by name. The new shot joins that shot's act and sequence; its name is
// the library's proposal for a shot between its neighbours, custom only where
// the naming rules give one, automatic otherwise. Then saves the file, unless it is a dry run.
class InsertShotCommand : public InsertCommand
{
public:
    InsertShotCommand();

protected:
    Outcome edit(ProjectDocument& document, const ArgumentValues& arguments) override;
};
