// Timecodes of project frames at a whole number of frames per second.
#pragma once

#include <QString>

// Non-drop-frame timecodes "HH:MM:SS:FF". Project frames count from 1, so
// frame 1 starts at 00:00:00:00; a length of N frames is the duration N
// frames long. Hours grow past 99 rather than wrap. fps must be above 0.
class Timecode
{
public:
    static QString ofFrame(unsigned frame, unsigned fps);
    static QString ofLength(unsigned length, unsigned fps);

    // The highest frame rate the tool accepts.
    static const unsigned kMostFps = 1000;
};
