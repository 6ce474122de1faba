// CMX 3600 edit decision lists of a storyboard cut.
#pragma once

#include <QString>

class StoryboardCut;
class Timecode;

// Writes a cut as a CMX 3600 EDL: a title line, "FCM: NON-DROP FRAME" (or
// "DROP FRAME"), then one event per clip on reel "AX", video, with source
// timecodes from 00:00:00:00 and record timecodes from the start of record,
// each followed by a "* FROM CLIP NAME:" comment. A transition becomes a
// dissolve ("D" and its length in frames) into the clip after it, starting
// in_offset frames before the cut; the clip before it ends there.
class EdlWriter
{
public:
    // record: the rate, and the start of record as its start.
    static QString write(const StoryboardCut& cut, const Timecode& record);
};
