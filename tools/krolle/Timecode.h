// Timecodes of project frames at a frame rate, from a starting timecode.
#pragma once

#include "FrameRate.h"

#include <QString>

// Labels "HH:MM:SS:FF" ("HH:MM:SS;FF" when the rate drops frames) of a count
// of frames, and the way back. Project frames count from 1: frame 1 has the
// start label (00:00:00:00 unless another start is given); a length of N
// frames is the label of N. Hours grow past 99 rather than wrap. Frames show
// three digits above 100 fps. An invalid Timecode (no rate) makes no labels.
// A plain value.
class Timecode
{
public:
    Timecode() = default;
    // start: the count of frames before frame 1 (see count()).
    explicit Timecode(const FrameRate& rate, unsigned long long start = 0);

    bool isValid() const { return m_rate.isValid(); }
    const FrameRate& rate() const { return m_rate; }
    unsigned long long start() const { return m_start; }

    QString ofFrame(unsigned frame) const;
    QString ofLength(unsigned long long length) const;
    // The label of a count of frames from 00:00:00:00.
    QString label(unsigned long long count) const;
    // The count of frames from 00:00:00:00 to a label; false (and *error set to
    // the reason, a clause) when the text is not a label of this rate.
    bool count(const QString& text, unsigned long long* count, QString* error) const;
    // The project frame of a label: the count past the start, plus 1; false when
    // the text is no label or names a time before the start.
    bool frameOf(const QString& text, unsigned long long* frame, QString* error) const;

    // Whether a word is written as a timecode (has a ':' or ';'), not as a frame number.
    static bool looksLikeTimecode(const QString& text);

private:
    FrameRate m_rate;
    unsigned long long m_start = 0;
};
