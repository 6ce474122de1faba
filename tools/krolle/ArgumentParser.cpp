#include "ArgumentParser.h"

#include "NearestWord.h"
#include "TextTable.h"
#include "ToolError.h"

namespace {

const QString kHelpLong = QStringLiteral("--help");
const QString kHelpShort = QStringLiteral("-h");
const QString kEndOfOptions = QStringLiteral("--");

} // namespace

ArgumentParser::ArgumentParser(const QString& command)
    : m_command(command)
{
}

void ArgumentParser::setSummary(const QString& summary)
{
    m_summary = summary;
}

void ArgumentParser::setDescription(const QString& description)
{
    m_description = description;
}

void ArgumentParser::addPositional(const QString& name, const QString& help, bool required)
{
    m_positionals.append({ name, help, required });
}

void ArgumentParser::addFlag(const QString& name, const QString& help)
{
    m_options.append({ name, QString(), help, Kind::Flag, false });
}

void ArgumentParser::addOption(
    const QString& name, const QString& valueName, const QString& help, bool required)
{
    m_options.append({ name, valueName, help, Kind::Value, required });
}

void ArgumentParser::addListOption(const QString& name, const QString& valueName, const QString& help)
{
    m_options.append({ name, valueName, help, Kind::List, false });
}

void ArgumentParser::addPositionalList(const QString& name, const QString& help)
{
    m_positionals.append({ name, help, true, true });
}

void ArgumentParser::addTimecodeOptions(const QString& fpsHelp)
{
    addOption(QStringLiteral("--fps"), QStringLiteral("F"), fpsHelp);
    addFlag(QStringLiteral("--drop-frame"), QStringLiteral("with --fps 29.97 or 59.94: drop-frame timecodes (HH:MM:SS;FF)"));
    addOption(QStringLiteral("--start-tc"), QStringLiteral("TC"), QStringLiteral("with --fps: the timecode of frame 1 (00:00:00:00)"));
}

void ArgumentParser::setEpilogue(const QString& epilogue)
{
    m_epilogue = epilogue;
}

bool ArgumentParser::looksLikeOption(const QString& word)
{
    return word.size() > 1 && word.startsWith(QLatin1Char('-'));
}

const ArgumentParser::Option* ArgumentParser::findOption(const QString& name) const
{
    for (const Option& option : m_options) {
        if (option.name == name)
            return &option;
    }
    return nullptr;
}

// Reads the option at arguments[at] and its values; returns the index of the next unread word.
int ArgumentParser::parseOption(const QStringList& arguments, int at, ArgumentValues& values) const
{
    const QString word = arguments.at(at);
    const int equals = word.indexOf(QLatin1Char('='));
    const QString name = equals < 0 ? word : word.left(equals);
    const Option* option = findOption(name);
    if (!option)
        throw ToolError::usage(QStringLiteral("unknown option '%1'%2").arg(name, NearestWord::hint(name, optionNames())));
    if (option->kind == Kind::Flag) {
        if (equals >= 0)
            throw ToolError::usage(QStringLiteral("%1 takes no value").arg(name));
        values.addOptionValue(name, QString());
        return at + 1;
    }
    int next = at + 1;
    if (equals >= 0) {
        values.addOptionValue(name, word.mid(equals + 1));
    } else {
        if (next >= arguments.size() || looksLikeOption(arguments.at(next)))
            throw ToolError::usage(QStringLiteral("%1 needs a value %2").arg(name, option->valueName));
        values.addOptionValue(name, arguments.at(next++));
    }
    if (option->kind == Kind::List) {
        while (next < arguments.size() && !looksLikeOption(arguments.at(next))
            && arguments.at(next).contains(QLatin1Char('=')))
            values.addOptionValue(name, arguments.at(next++));
    }
    return next;
}

ArgumentValues ArgumentParser::parse(const QStringList& arguments) const
{
    ArgumentValues values(m_command);
    if (arguments.contains(kHelpLong) || arguments.contains(kHelpShort)) {
        values.setHelpRequested();
        return values;
    }
    QStringList words;
    bool optionsEnded = false;
    for (int at = 0; at < arguments.size();) {
        const QString& word = arguments.at(at);
        if (!optionsEnded && word == kEndOfOptions) {
            optionsEnded = true;
            ++at;
        } else if (!optionsEnded && looksLikeOption(word)) {
            at = parseOption(arguments, at, values);
        } else {
            words.append(word);
            ++at;
        }
    }
    int taken = 0;
    for (const Positional& positional : m_positionals) {
        while (positional.list && taken < words.size())
            values.addPositionalWord(positional.name, words.at(taken++));
        if (positional.list && values.isPositionalSet(positional.name))
            continue;
        if (taken < words.size())
            values.setPositional(positional.name, words.at(taken++));
        else if (positional.required)
            throw ToolError::usage(QStringLiteral("missing %1").arg(positional.name));
    }
    if (taken < words.size())
        throw ToolError::usage(QStringLiteral("unexpected argument '%1'").arg(words.at(taken)));
    for (const Option& option : m_options) {
        if (option.required && !values.isSet(option.name))
            throw ToolError::usage(QStringLiteral("missing %1 %2").arg(option.name, option.valueName));
    }
    return values;
}

QString ArgumentParser::usageLine() const
{
    QStringList parts { m_command };
    for (const Positional& positional : m_positionals) {
        const QString name = positional.list ? positional.name + QStringLiteral("...") : positional.name;
        parts << (positional.required ? name : QStringLiteral("[%1]").arg(name));
    }
    for (const Option& option : m_options) {
        QString text = option.name;
        if (option.kind != Kind::Flag)
            text += QLatin1Char(' ') + option.valueName;
        if (option.kind == Kind::List)
            text += QStringLiteral(" ...");
        parts << (option.required ? text : QStringLiteral("[%1]").arg(text));
    }
    return parts.join(QLatin1Char(' '));
}

QVector<QPair<QString, QString>> ArgumentParser::entries() const
{
    QVector<QPair<QString, QString>> entries;
    for (const Positional& positional : m_positionals)
        entries.append({ positional.name, positional.help });
    for (const Option& option : m_options) {
        const QString spelled = option.kind == Kind::Flag
            ? option.name
            : QStringLiteral("%1 %2").arg(option.name, option.valueName);
        entries.append({ spelled, option.help });
    }
    entries.append({ QStringLiteral("-h, --help"), QStringLiteral("show this help and exit") });
    return entries;
}

QStringList ArgumentParser::optionNames() const
{
    QStringList names;
    for (const Option& option : m_options)
        names << option.name;
    return names << kHelpLong;
}

QStringList ArgumentParser::valueOptionNames() const
{
    QStringList names;
    for (const Option& option : m_options) {
        if (option.kind != Kind::Flag)
            names << option.name;
    }
    return names;
}

QString ArgumentParser::helpText() const
{
    QString text = QStringLiteral("usage: %1\n").arg(usageLine());
    if (!m_description.isEmpty())
        text += QLatin1Char('\n') + m_description + QLatin1Char('\n');
    TextTable table;
    table.setIndent(2);
    for (const auto& entry : entries())
        table.addRow({ entry.first, entry.second });
    text += QLatin1Char('\n') + table.toString();
    if (!m_epilogue.isEmpty())
        text += QLatin1Char('\n') + m_epilogue + QLatin1Char('\n');
    return text;
}
