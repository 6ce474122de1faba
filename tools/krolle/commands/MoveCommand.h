// krolle move: a shot to another place, or a panel within its shot or into another.
#pragma once

#include "EditCommand.h"

// Moves the shot or panel named by --shot or --panel so that it stands after or before
// another object of its kind (a panel may go to another shot), through the engine's
// authoring, which keeps its id, scene and records. A moved shot loses the transitions
// at its ends; the engine refuses a place held by a transition, or taking the only
// panel from a shot (status 1).
class MoveCommand : public EditCommand
{
public:
    MoveCommand();

protected:
    Outcome edit(ProjectDocument& document, const ArgumentValues& arguments) override;
    void checkUsage(const ArgumentValues& arguments) const override;
};
