#include "Timecode.h"

#include <QRegularExpression>

namespace {

const unsigned kSecondsPerMinute = 60;
const unsigned kMinutesPerHour = 60;
const unsigned kMinutesPerBlock = 10; // a dropping rate keeps every tenth minute whole
const unsigned kThreeDigitFps = 100;

} // namespace

Timecode::Timecode(const FrameRate& rate, unsigned long long start)
    : m_rate(rate)
    , m_start(start)
{
}

QString Timecode::ofFrame(unsigned frame) const
{
    return label(m_start + (frame > 0 ? frame - 1 : 0));
}

QString Timecode::ofLength(unsigned long long length) const
{
    return label(length);
}

QString Timecode::label(unsigned long long count) const
{
    const unsigned long long fps = m_rate.nominal();
    const unsigned long long drop = m_rate.droppedPerMinute();
    if (drop) {
        // Put back the labels skipped before this frame: 9 dropping minutes in every full block,
        // then one per minute begun after the block's first.
        const unsigned long long perMinute = fps * kSecondsPerMinute - drop;
        const unsigned long long perBlock = fps * kSecondsPerMinute * kMinutesPerBlock - drop * (kMinutesPerBlock - 1);
        const unsigned long long inBlock = count % perBlock;
        count += drop * (kMinutesPerBlock - 1) * (count / perBlock)
            + (inBlock >= drop ? drop * ((inBlock - drop) / perMinute) : 0);
    }
    const unsigned long long seconds = count / fps;
    return QStringLiteral("%1:%2:%3%4%5")
        .arg(seconds / (kSecondsPerMinute * kMinutesPerHour), 2, 10, QLatin1Char('0'))
        .arg(seconds / kSecondsPerMinute % kMinutesPerHour, 2, 10, QLatin1Char('0'))
        .arg(seconds % kSecondsPerMinute, 2, 10, QLatin1Char('0'))
        .arg(drop ? QLatin1Char(';') : QLatin1Char(':'))
        .arg(count % fps, fps > kThreeDigitFps ? 3 : 2, 10, QLatin1Char('0'));
}

bool Timecode::count(const QString& text, unsigned long long* count, QString* error) const
{
    static const QRegularExpression pattern(
        QStringLiteral("^(\\d{1,6}):(\\d\\d):(\\d\\d)([:;])(\\d{2,3})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch()) {
        *error = QStringLiteral("a timecode is HH:MM:SS:FF");
        return false;
    }
    const unsigned long long hours = match.captured(1).toULongLong();
    const unsigned minutes = match.captured(2).toUInt();
    const unsigned seconds = match.captured(3).toUInt();
    const unsigned frames = match.captured(5).toUInt();
    const unsigned fps = m_rate.nominal();
    const unsigned drop = m_rate.droppedPerMinute();
    if (minutes >= kMinutesPerHour || seconds >= kSecondsPerMinute)
        *error = QStringLiteral("minutes and seconds go from 00 to 59");
    else if (frames >= fps)
        *error = QStringLiteral("frames go from 0 to %1 at %2 fps").arg(fps - 1).arg(m_rate.toString());
    else if (match.captured(4) == QLatin1String(";") && !drop)
        *error = QStringLiteral("';' marks a drop-frame timecode, and %1 fps is not drop-frame").arg(m_rate.toString());
    else if (drop && seconds == 0 && frames < drop && minutes % kMinutesPerBlock != 0)
        *error = QStringLiteral("drop-frame skips frames 0 to %1 of every minute but each tenth").arg(drop - 1);
    else
        error->clear();
    if (!error->isEmpty())
        return false;
    const unsigned long long allMinutes = hours * kMinutesPerHour + minutes;
    *count = ((allMinutes * kSecondsPerMinute + seconds) * fps + frames)
        - drop * (allMinutes - allMinutes / kMinutesPerBlock);
    return true;
}

bool Timecode::frameOf(const QString& text, unsigned long long* frame, QString* error) const
{
    unsigned long long counted = 0;
    if (!count(text, &counted, error))
        return false;
    if (counted < m_start) {
        *error = QStringLiteral("it comes before the start, %1").arg(label(m_start));
        return false;
    }
    *frame = counted - m_start + 1;
    return true;
}

bool Timecode::looksLikeTimecode(const QString& text)
{
    return text.contains(QLatin1Char(':')) || text.contains(QLatin1Char(';'));
}
