// krolle track: sets the tracking record of one panel.
#pragma once

#include "Command.h"

// Marks the panel named SHOT/PANEL as tracked (or, with --off, as not tracked), dated
// now (KROLLE_NOW when set), with the note given or the one it had, and saves the file.
class TrackCommand : public Command
{
public:
    TrackCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
