// Reads OpenTimelineIO documents into boards.
#pragma once

#include "ImportedBoard.h"

#include <QByteArray>
#include <QString>

// Reads an OpenTimelineIO timeline (".otio" JSON) into a board.
//
// A document that this tool wrote (its timeline carries "krolle" metadata)
// comes back as the storyboard it was: acts, sequences, shots, panels with
// their names and custom flags, transitions, naming rules. A panel's length is
// its clip's duration plus the frames its metadata says a transition hid, so
// a cut trimmed in editorial comes back trimmed.
//
// Any other timeline is read as an editorial cut: each top-level item of the
// first video track becomes one shot (a clip: one panel of its duration, named
// by the clip; a nested stack or track: one panel of its duration, named by it;
// a gap: one blank panel), and each transition joins the shots on its sides,
// its frames taken from both so that the board keeps the cut's timing. What the
// board has no place for (other tracks, effects, markers) is listed in
// `skipped`.
//
// Every value is converted to `fps` (0: the rate the document uses). A
// document that is not JSON, has the wrong schema, a negative or non-finite
// time, or breaks the rules of transitions is refused: ToolError::file with a
// sentence naming the file and the place ("tracks.children[0].children[3]").
class OtioReader
{
public:
    static ImportedBoard read(const QByteArray& bytes, const QString& file, double fps);
};
