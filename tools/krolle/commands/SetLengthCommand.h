// krolle set-length: a new length in frames for a shot or a panel.
#pragma once

#include "EditCommand.h"

// Resizes the shot's or the panel's block through the engine's authoring; what
// follows moves with its end. A shot that shows all of its panels resizes its last
// panel with it, and a panel its shot. Lengths the engine refuses (a shot shorter
// than its transitions or its panels) are status 1.
class SetLengthCommand : public EditCommand
{
public:
    SetLengthCommand();

protected:
    Outcome edit(ProjectDocument& document, const ArgumentValues& arguments) override;
    void checkUsage(const ArgumentValues& arguments) const override;
};
