// krolle rename: a new custom name for a shot, panel, sequence or act, or back to automatic.
#pragma once

#include "EditCommand.h"

// Writes the name into the object's info record (for a sequence or an act, into the
// record of every shot of its run) as a custom name, or with --auto clears the custom
// flag so that the library computes the name from the object's place again. A locked
// name is refused, and so is a custom name for a kind of object whose naming rules do
// not allow one (allowCustomName; acts have no rules). Prints what the edit did to the automatic names around it.
class RenameCommand : public EditCommand
{
public:
    RenameCommand();

protected:
    Outcome edit(ProjectDocument& document, const ArgumentValues& arguments) override;
    void checkUsage(const ArgumentValues& arguments) const override;
};
