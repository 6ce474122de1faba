// krolle at: what stands at one frame of a project.
#pragma once

#include "Command.h"

// Answers with the library's frame lookups (getTransAt, getShotAt,
// getPanelAt): the transition at the frame, and for each side asked for, the
// act, sequence, shot and panel. Without --prefer a frame under a transition
// shows both sides; elsewhere, and with --prefer, one side.
class AtCommand : public Command
{
public:
    AtCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
