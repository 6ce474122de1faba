// krolle insert-panel: inserts a panel beside a named one.
#pragma once

#include "InsertCommand.h"

// Inserts a panel through the engine's authoring API after or before a panel
// of a shot, both found by name. The new panel's name is the library's
// proposal for a panel between its neighbours in that shot, custom only where
// the naming rules give one. Then saves the file, unless it is a dry run.
class InsertPanelCommand : public InsertCommand
{
public:
    InsertPanelCommand();

protected:
    Outcome edit(ProjectDocument& document, const ArgumentValues& arguments) override;
};
