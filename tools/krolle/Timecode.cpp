#include "Timecode.h"

QString Timecode::ofFrame(unsigned frame, unsigned fps)
{
    return ofLength(frame > 0 ? frame - 1 : 0, fps);
}

QString Timecode::ofLength(unsigned length, unsigned fps)
{
    const unsigned long long frames = length;
    const unsigned long long seconds = frames / fps;
    return QStringLiteral("%1:%2:%3:%4")
        .arg(seconds / 3600, 2, 10, QLatin1Char('0'))
        .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(seconds % 60, 2, 10, QLatin1Char('0'))
        .arg(frames % fps, fps > 100 ? 3 : 2, 10, QLatin1Char('0'));
}
