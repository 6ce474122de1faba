// Declares the command line of one command and checks a command line against it.
#pragma once

#include "ArgumentValues.h"

#include <QString>
#include <QStringList>
#include <QPair>
#include <QVector>

// The shape of one command's command line: positionals in order, flags
// ("--json"), options with a value ("--fps F" or "--fps=F") and list options
// that take every following word up to the next option ("--set A=1 B=2").
// "--help" or "-h" anywhere asks for help and suspends the other checks;
// "--" ends the options. parse() throws ToolError::usage for anything else
// that does not fit, naming the offending word. It also makes the help text,
// so that usage, parser and help cannot drift apart.
class ArgumentParser
{
public:
    // command is the full name as typed, e.g. "krolle outline".
    explicit ArgumentParser(const QString& command);

    void setSummary(const QString& summary);
    void setDescription(const QString& description);
    void addPositional(const QString& name, const QString& help, bool required = true);
    void addFlag(const QString& name, const QString& help);
    // A required option must be given; parse() says so when it is missing.
    void addOption(const QString& name, const QString& valueName, const QString& help, bool required = false);
    void addListOption(const QString& name, const QString& valueName, const QString& help);
    // A last positional that takes every remaining word, at least one ("FRAME...").
    void addPositionalList(const QString& name, const QString& help);
    // --fps F, --drop-frame and --start-tc TC, read together by ArgumentValues::timecode().
    void addTimecodeOptions(const QString& fpsHelp);
    // Text after the option list (examples, notes).
    void setEpilogue(const QString& epilogue);

    ArgumentValues parse(const QStringList& arguments) const;

    const QString& command() const { return m_command; }
    const QString& summary() const { return m_summary; }
    QString usageLine() const;
    QString helpText() const;

    // The declaration in parts, for completion scripts and the manual page.
    QStringList optionNames() const;
    // The options that take a value.
    QStringList valueOptionNames() const;
    const QString& description() const { return m_description; }
    const QString& epilogue() const { return m_epilogue; }
    // Each positional and option as spelled in the help ("--fps F") with its help.
    QVector<QPair<QString, QString>> entries() const;

private:
    enum class Kind
    {
        Flag,
        Value,
        List
    };
    struct Option
    {
        QString name;
        QString valueName;
        QString help;
        Kind kind;
        bool required;
    };
    struct Positional
    {
        QString name;
        QString help;
        bool required;
        bool list = false;
    };

    const Option* findOption(const QString& name) const;
    int parseOption(const QStringList& arguments, int at, ArgumentValues& values) const;
    static bool looksLikeOption(const QString& word);

    QString m_command;
    QString m_summary;
    QString m_description;
    QString m_epilogue;
    QVector<Positional> m_positionals;
    QVector<Option> m_options;
};
