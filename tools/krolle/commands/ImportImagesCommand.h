// krolle import-images: a board made from a folder of drawings.
#pragma once

#include "Command.h"

// Builds a project with one panel per image of a folder, in natural order of
// the file names, cut into shots (and sequences) by those names when asked
// (DrawingGroups), each panel's image in an image info field. The images are
// copied beside the project (DrawingKeys) or named where they are. Files that
// are no readable image are listed on standard error and skipped; a folder
// without any image is status 1. The board is built in one pass through the
// engine's builder, then saved once.
class ImportImagesCommand : public Command
{
public:
    ImportImagesCommand();

protected:
    ExitStatus run(const ArgumentValues& arguments) override;
};
