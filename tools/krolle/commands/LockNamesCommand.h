// krolle lock-names: freezes automatic names as custom, so that later edits do not move them.
#pragma once

#include "EditCommand.h"

// Stores the name the library gives each automatically named shot of a range (all
// shots by default), and with --panels each automatically named panel of those shots,
// as that object's custom name. Nothing is renamed: the names stay what they were, but
// stop following the objects' places.
class LockNamesCommand : public EditCommand
{
public:
    LockNamesCommand();

protected:
    Outcome edit(ProjectDocument& document, const ArgumentValues& arguments) override;
};
