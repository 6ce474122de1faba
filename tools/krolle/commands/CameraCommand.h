// krolle camera: the camera of a project at one frame.
#pragma once

#include "Command.h"

// Asks the session's camera manager, as the engine does, for the camera of the shot
// under a frame: the global matrix (the shot scene's embedded camera composed with the
// project's default camera) and the embedded matrix alone, both at the shot's own
// frame. A frame that no shot covers is a failure (status 1).
class CameraCommand : public Command
{
public:
    CameraCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
