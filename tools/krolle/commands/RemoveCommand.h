// krolle remove, remove-transition: takes a shot, panel or transition out of the timeline.
#pragma once

#include "EditCommand.h"

// Removes the one object named by --shot, --panel or --transition (those of the kinds
// given) through the engine's authoring: a shot with its panels and the transitions at
// its ends, the shots after it moving up; a panel, its shot shrinking with it where the
// shot shows all of its panels; a transition, the shots it joined no longer
// overlapping. What the engine refuses (the last panel of a shot) is status 1.
class RemoveCommand : public EditCommand
{
public:
    // kinds: ChosenObject::Kind bits.
    RemoveCommand(const QString& name, const QString& summary, int kinds);

protected:
    Outcome edit(ProjectDocument& document, const ArgumentValues& arguments) override;

private:
    int m_kinds;
};
