// OpenTimelineIO documents of a storyboard cut.
#pragma once

#include <QJsonObject>

class StoryboardCut;
class Timecode;

// Writes a cut as an OpenTimelineIO timeline (".otio" JSON): one stack holding
// one video track "Storyboard", a clip per cut clip with its source range
// starting at 0 at the given rate, a "SMPTE_Dissolve" transition per cut
// transition, a marker at each shot's first clip, and the storyboard's facts
// under the "krolle" key of each object's metadata. Every field of each schema
// is present, null where it has no value. A clip whose panel has a picture (an
// image info field) references it (ExternalReference, the key relative to the
// project's folder); others have MissingReference. The timeline starts at the
// start of record.
class OtioWriter
{
public:
    // record: the rate, and the start of record as its start.
    static QJsonObject write(const StoryboardCut& cut, const Timecode& record);
};
