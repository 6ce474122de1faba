// krolle sketches: numbered sample drawings, to try import-images and pdf.
#pragma once

#include "Command.h"

// Draws N numbered sample drawings (SampleSketch) into a folder, named as shots
// and panels (SH010_p1.png...), so that a board from images can be tried
// without drawings of one's own. Runs under a QGuiApplication (see main).
class SketchesCommand : public Command
{
public:
    SketchesCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
