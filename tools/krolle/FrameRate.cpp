#include "FrameRate.h"

#include <cmath>

namespace {

const unsigned kNtscDenominator = 1001;
const unsigned kNtscScale = 1000;
// How far a decimal may stand from an NTSC rate and still mean it: "23.98" is 23.976.
const double kNtscTolerance = 0.0051;

QString rateError(const QString& text)
{
    return QStringLiteral("a whole number from 1 to %1 or an NTSC rate (23.976, 29.97, 59.94, 24000/1001), "
                          "not '%2'")
        .arg(FrameRate::kMostFps)
        .arg(text);
}

FrameRate fromFraction(const QString& text, bool* ok)
{
    const int slash = text.indexOf(QLatin1Char('/'));
    bool numeratorOk = false;
    bool denominatorOk = false;
    const unsigned numerator = text.left(slash).toUInt(&numeratorOk);
    const unsigned denominator = text.mid(slash + 1).toUInt(&denominatorOk);
    *ok = numeratorOk && denominatorOk
        && ((denominator == 1 && numerator >= 1 && numerator <= FrameRate::kMostFps)
            || (denominator == kNtscDenominator && numerator % kNtscScale == 0 && numerator >= kNtscScale
                && numerator / kNtscScale <= FrameRate::kMostFps));
    return *ok ? FrameRate(numerator, denominator) : FrameRate();
}

FrameRate fromDecimal(const QString& text, bool* ok)
{
    const double value = text.toDouble(ok);
    *ok = *ok && std::isfinite(value) && !text.startsWith(QLatin1Char('+'));
    if (!*ok)
        return FrameRate();
    const double nominal = std::round(value);
    *ok = nominal >= 1 && nominal <= FrameRate::kMostFps;
    if (!*ok)
        return FrameRate();
    const unsigned whole = static_cast<unsigned>(nominal);
    if (value == nominal)
        return FrameRate(whole, 1);
    *ok = std::fabs(value - nominal * kNtscScale / kNtscDenominator) < kNtscTolerance;
    return *ok ? FrameRate(whole * kNtscScale, kNtscDenominator) : FrameRate();
}

} // namespace

FrameRate::FrameRate(unsigned numerator, unsigned denominator, bool dropFrame)
    : m_numerator(numerator)
    , m_denominator(denominator)
    , m_dropFrame(dropFrame)
{
}

FrameRate FrameRate::parse(const QString& text, bool dropFrame, QString* error)
{
    bool ok = false;
    FrameRate rate = text.contains(QLatin1Char('/')) ? fromFraction(text, &ok) : fromDecimal(text, &ok);
    if (!ok) {
        *error = rateError(text);
        return FrameRate();
    }
    if (dropFrame) {
        const bool drops = rate.m_denominator == kNtscDenominator && (rate.nominal() == 30 || rate.nominal() == 60);
        if (!drops) {
            *error = QStringLiteral("--drop-frame only at 29.97 or 59.94 fps, whose labels run behind the "
                                    "clock; %1 fps labels drop nothing")
                         .arg(rate.toString());
            return FrameRate();
        }
        rate.m_dropFrame = true;
    }
    return rate;
}

unsigned FrameRate::nominal() const
{
    return m_denominator == kNtscDenominator ? m_numerator / kNtscScale : m_numerator;
}

unsigned FrameRate::droppedPerMinute() const
{
    // 2 labels a minute at 30, 4 at 60: 18 (36) a 10-minute block, 108 (216) an hour.
    return m_dropFrame ? nominal() / 15 : 0;
}

double FrameRate::framesPerSecond() const
{
    return double(m_numerator) / m_denominator;
}

QString FrameRate::toString() const
{
    QString text = m_denominator == kNtscDenominator
        ? QString::number(framesPerSecond(), 'f', 3)
        : QString::number(m_numerator);
    if (text.contains(QLatin1Char('.'))) {
        while (text.endsWith(QLatin1Char('0')))
            text.chop(1);
    }
    return m_dropFrame ? text + QStringLiteral(" drop-frame") : text;
}
