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
