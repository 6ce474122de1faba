// A frame rate of timecodes: a rational number of frames per second and whether its labels drop frames.
#pragma once

#include <QString>

// Whole rates (24, 25, 1000) and the NTSC rates a thousand-and-first slower
// (24000/1001, written 23.976; 30000/1001, 29.97; 60000/1001, 59.94). Labels
// count at the nominal rate, the whole number the rate rounds to. Drop-frame
// (only at 29.97 and 59.94) skips the first 2 (4 at 59.94) labels of every
// minute except each tenth, so that the labels keep up with the clock.
// An invalid rate (the default) means: no timecodes. A plain value.
class FrameRate
{
public:
    FrameRate() = default;
    // numerator / denominator frames per second; denominator 1 or 1001.
    FrameRate(unsigned numerator, unsigned denominator, bool dropFrame = false);

    // "24", "23.976", "29.97", "24000/1001". Returns an invalid rate and sets
    // *error to a sentence when the text is not a rate the tool accepts or
    // drop-frame is asked of a rate that has none.
    static FrameRate parse(const QString& text, bool dropFrame, QString* error);

    bool isValid() const { return m_numerator != 0; }
    unsigned numerator() const { return m_numerator; }
    unsigned denominator() const { return m_denominator; }
    bool isDropFrame() const { return m_dropFrame; }
    // Frames per second of the labels: 24 for 23.976, 30 for 29.97.
    unsigned nominal() const;
    // Labels skipped at the start of a dropping minute: 0, or 2 at 29.97, 4 at 59.94.
    unsigned droppedPerMinute() const;
    double framesPerSecond() const;
    // "24", "23.976", "29.97"; with " drop-frame" when it drops.
    QString toString() const;

    // The highest nominal rate the tool accepts.
    static const unsigned kMostFps = 1000;

private:
    unsigned m_numerator = 0;
    unsigned m_denominator = 1;
    bool m_dropFrame = false;
};
