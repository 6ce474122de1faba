// What one command line said, after ArgumentParser has checked its shape.
#pragma once

#include "Timecode.h"

#include <QMap>
#include <QString>
#include <QStringList>

// The positionals and options of one command line, with typed readers that
// turn a bad value into a usage error (ToolError, exit status 64) naming the
// option and the accepted range. A plain value, cheap to copy.
class ArgumentValues
{
public:
    ArgumentValues() = default;
    explicit ArgumentValues(const QString& command);

    const QString& command() const { return m_command; }

    bool helpRequested() const { return m_help; }
    void setHelpRequested() { m_help = true; }

    void setPositional(const QString& name, const QString& value);
    void addOptionValue(const QString& option, const QString& value);

    // The positional named in the parser's declaration; null when an optional one was not given.
    QString positional(const QString& name) const;
    // True when the option (or flag) appears at least once.
    bool isSet(const QString& option) const;
    // The last value of the option, or the null string.
    QString value(const QString& option) const;
    // Every value of the option, in command-line order.
    QStringList values(const QString& option) const;

    // The option as a whole number in [min, max]; fallback when it is absent.
    unsigned number(const QString& option, unsigned fallback, unsigned min, unsigned max) const;
    // The positional as a whole number in [min, max]; it must have been given.
    unsigned positionalNumber(const QString& name, unsigned min, unsigned max) const;
    // Which one of the options was given; exactly one must be.
    QString exactlyOne(const QStringList& options) const;
    // The option's value, which must be one of the choices; fallback when it is absent.
    QString choice(const QString& option, const QStringList& choices, const QString& fallback) const;

    // Every word of a positional that takes the rest of the command line ("FRAME...").
    QStringList positionals(const QString& name) const;
    bool isPositionalSet(const QString& name) const { return m_positionals.contains(name); }
    void addPositionalWord(const QString& name, const QString& value);

    // Timecodes: the rate of --fps (with --drop-frame), fallback when --fps is absent.
    FrameRate frameRate(const FrameRate& fallback = FrameRate()) const;
    // The rate, and --start-tc as the label of frame 1; invalid without a rate.
    Timecode timecode(const FrameRate& fallback = FrameRate()) const;
    // A project frame written as a number from 1 or as a timecode of clock; what names
    // the positional or option in the error.
    unsigned frame(const QString& what, const QString& text, const Timecode& clock) const;
    // The option as a number of frames or a timecode duration of clock, in [min, max].
    unsigned length(const QString& option, unsigned fallback, unsigned min, unsigned max, const Timecode& clock) const;

private:
    // The count of a timecode of clock, or with asFrame the project frame it labels.
    unsigned long long timecodeCount(const QString& what, const QString& text, const Timecode& clock, bool asFrame) const;
    unsigned parseNumber(const QString& what, const QString& text, unsigned min, unsigned max) const;

    QString m_command;
    bool m_help = false;
    QMap<QString, QString> m_positionals;
    QMap<QString, QStringList> m_options;
    QMap<QString, QStringList> m_positionalLists;
};
