// User-visible messages of the stand-in base library.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// A message text with numbered place markers %1 ... %99, kept in two forms: the
/// untranslated source text and its translation. `arg` supplies the next value; all
/// values are put in at once when the text is read, so a value that itself contains
/// "%2" is never taken for a marker. As with QString::arg, the first value fills the
/// lowest-numbered marker present, the second the next one, and so on; a marker
/// without a value stays as it is. Plain value type.
class MSG_Text
{
public:
    MSG_Text() = default;
    MSG_Text(char const* untranslated, QString const& translated);

    /// Next value: an unsigned number in `base`, right-aligned in `fieldWidth`
    /// (left-aligned when negative), as QString::arg does.
    MSG_Text& arg(unsigned value, int fieldWidth = 0, int base = 10);
    MSG_Text& arg(QString const& value, int fieldWidth = 0);

    /// The texts with the values put in.
    QString untranslated() const;
    QString translated() const;

private:
    QString m_untranslated;
    QString m_translated;
    QStringList m_args;
};

/// One message as it reaches the sink.
struct MSG_Message
{
    QString untranslated;
    QString translated;
    int action = 0;
};

/// A message that goes out when the scope ends.
///
/// MSG_Scope is an MSG_Text, so values are filled straight on the scope:
///     MSG_Scope msg("Frame %1 of %2", tr("Frame %1 of %2"), MSG_Scope::Log);
///     msg.arg(frame).arg(name);
/// The message is handed to the process-wide sink in the destructor, once, unless
/// `discard()` was called. The default sink writes the translated text on standard
/// error; a host (or a test) installs its own with `setSink`. Scopes may nest; each
/// delivers at its own end. Threading: host's thread only, like the sink.
class MSG_Scope : public MSG_Text
{
public:
    /// What the host is asked to do with the message.
    enum Action
    {
        NoAction = 0,
        Information = 1,
        Warning = 2,
        Error = 3,
        Question = 4,
        /// Record the message without interrupting the user.
        Log = 5,
    };

    using Sink = std::function<void(MSG_Message const&)>;

    MSG_Scope(char const* untranslated, QString const& translated, Action action);
    ~MSG_Scope();
    MSG_Scope(MSG_Scope const&) = delete;
    MSG_Scope& operator=(MSG_Scope const&) = delete;

    Action action() const { return m_action; }
    /// The scope ends without delivering its message.
    void discard() { m_discarded = true; }

    /// Installs `sink` (an empty one restores the default) and returns the previous one.
    static Sink setSink(Sink sink);
    /// The default sink: the translated text and a newline on standard error.
    static void writeToStandardError(MSG_Message const& message);

private:
    Action m_action;
    bool m_discarded = false;
};
