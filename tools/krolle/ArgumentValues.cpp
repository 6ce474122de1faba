#include "ArgumentValues.h"

#include "ToolError.h"

ArgumentValues::ArgumentValues(const QString& command)
    : m_command(command)
{
}

void ArgumentValues::setPositional(const QString& name, const QString& value)
{
    m_positionals.insert(name, value);
}

void ArgumentValues::addOptionValue(const QString& option, const QString& value)
{
    m_options[option].append(value);
}

QString ArgumentValues::positional(const QString& name) const
{
    return m_positionals.value(name);
}

bool ArgumentValues::isSet(const QString& option) const
{
    return m_options.contains(option);
}

QString ArgumentValues::value(const QString& option) const
{
    const QStringList given = m_options.value(option);
    return given.isEmpty() ? QString() : given.last();
}

QStringList ArgumentValues::values(const QString& option) const
{
    return m_options.value(option);
}

unsigned ArgumentValues::number(const QString& option, unsigned fallback, unsigned min, unsigned max) const
{
    if (!isSet(option))
        return fallback;
    return parseNumber(option, value(option), min, max);
}

unsigned ArgumentValues::positionalNumber(const QString& name, unsigned min, unsigned max) const
{
    return parseNumber(name, positional(name), min, max);
}

QString ArgumentValues::exactlyOne(const QStringList& options) const
{
    QStringList given;
    for (const QString& option : options) {
        if (isSet(option))
            given << option;
    }
    if (given.size() != 1)
        throw ToolError::usage(
            QStringLiteral("give exactly one of %1").arg(options.join(QStringLiteral(", "))));
    return given.first();
}

QString ArgumentValues::choice(
    const QString& option, const QStringList& choices, const QString& fallback) const
{
    if (!isSet(option))
        return fallback;
    const QString given = value(option);
    if (!choices.contains(given))
        throw ToolError::usage(QStringLiteral("%1 must be one of %2, not '%3'")
                                   .arg(option, choices.join(QStringLiteral(", ")), given));
    return given;
}

unsigned ArgumentValues::parseNumber(
    const QString& what, const QString& text, unsigned min, unsigned max) const
{
    bool ok = false;
    const qulonglong parsed = text.toULongLong(&ok, 10);
    if (!ok || parsed < min || parsed > max || text.startsWith(QLatin1Char('+')))
        throw ToolError::usage(QStringLiteral("%1 needs a whole number from %2 to %3, not '%4'")
                                   .arg(what)
                                   .arg(min)
                                   .arg(max)
                                   .arg(text));
    return static_cast<unsigned>(parsed);
}

QStringList ArgumentValues::positionals(const QString& name) const
{
    return m_positionalLists.value(name);
}

void ArgumentValues::addPositionalWord(const QString& name, const QString& value)
{
    if (!m_positionals.contains(name))
        setPositional(name, value);
    m_positionalLists[name].append(value);
}

FrameRate ArgumentValues::frameRate(const FrameRate& fallback) const
{
    const QString fps = QStringLiteral("--fps");
    const bool dropFrame = isSet(QStringLiteral("--drop-frame"));
    if (!isSet(fps) && !fallback.isValid()) {
        if (dropFrame)
            throw ToolError::usage(QStringLiteral("--drop-frame needs --fps 29.97 or 59.94"));
        return FrameRate();
    }
    QString error;
    const FrameRate rate = FrameRate::parse(isSet(fps) ? value(fps) : fallback.toString(), dropFrame, &error);
    if (!rate.isValid())
        throw ToolError::usage(error.startsWith(QLatin1String("--")) ? error : fps + QStringLiteral(" needs ") + error);
    return rate;
}

Timecode ArgumentValues::timecode(const FrameRate& fallback) const
{
    const FrameRate rate = frameRate(fallback);
    const QString start = QStringLiteral("--start-tc");
    if (!isSet(start))
        return Timecode(rate);
    if (!rate.isValid())
        throw ToolError::usage(QStringLiteral("--start-tc needs --fps, the rate its frames count at"));
    return Timecode(rate, timecodeCount(start, value(start), Timecode(rate), false));
}

unsigned ArgumentValues::frame(const QString& what, const QString& text, const Timecode& clock) const
{
    const unsigned kLastFrame = 0xFFFFFFFEu;
    if (!Timecode::looksLikeTimecode(text))
        return parseNumber(what, text, 1, kLastFrame);
    const unsigned long long frame = timecodeCount(what, text, clock, true);
    if (frame > kLastFrame)
        throw ToolError::usage(QStringLiteral("%1 '%2' lies past frame %3").arg(what, text).arg(kLastFrame));
    return static_cast<unsigned>(frame);
}

unsigned ArgumentValues::length(
    const QString& option, unsigned fallback, unsigned min, unsigned max, const Timecode& clock) const
{
    if (!isSet(option) || !Timecode::looksLikeTimecode(value(option)))
        return number(option, fallback, min, max);
    const unsigned long long count = timecodeCount(option, value(option), Timecode(clock.rate()), false);
    if (count < min || count > max)
        throw ToolError::usage(QStringLiteral("%1 '%2' is %3 frames; it needs %4 to %5")
                                   .arg(option, value(option))
                                   .arg(count)
                                   .arg(min)
                                   .arg(max));
    return static_cast<unsigned>(count);
}

unsigned long long ArgumentValues::timecodeCount(
    const QString& what, const QString& text, const Timecode& clock, bool asFrame) const
{
    if (!clock.isValid())
        throw ToolError::usage(QStringLiteral("%1 '%2' is a timecode; give --fps to say its rate").arg(what, text));
    unsigned long long count = 0;
    QString error;
    if (!(asFrame ? clock.frameOf(text, &count, &error) : clock.count(text, &count, &error)))
        throw ToolError::usage(QStringLiteral("%1 '%2' names no time at %3 fps: %4")
                                   .arg(what, text, clock.rate().toString(), error));
    return count;
}
