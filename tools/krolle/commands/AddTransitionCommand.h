// krolle add-transition: a transition at the junction after or before a shot.
#pragma once

#include "EditCommand.h"

// Inserts a transition of a type, angle and direction through the engine's authoring,
// at the junction after or before the named shot; it overlaps the end of the shot
// before it and the start of the shot after it. A junction that holds one already, or
// shots too short for it, are status 1.
class AddTransitionCommand : public EditCommand
{
public:
    AddTransitionCommand();

protected:
    Outcome edit(ProjectDocument& document, const ArgumentValues& arguments) override;
    void checkUsage(const ArgumentValues& arguments) const override;
};
