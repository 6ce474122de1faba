#include "CompletionCommand.h"

#include "Console.h"

namespace {

// Words the tool answers before any command.
const QStringList kToolWords { QStringLiteral("help"), QStringLiteral("version"), QStringLiteral("--help"),
    QStringLiteral("--version"), QStringLiteral("-V") };

// Text inside a zsh single-quoted word of an _arguments entry or a _describe entry.
QString zshQuoted(QString text)
{
    text.replace(QLatin1Char('\''), QStringLiteral("'\\''"));
    text.replace(QLatin1Char('['), QStringLiteral("\\["));
    text.replace(QLatin1Char(']'), QStringLiteral("\\]"));
    text.replace(QLatin1Char(':'), QStringLiteral("\\:"));
    return text;
}

// The values a choice option takes ("previous|next"), or none.
QStringList choicesOf(const QString& valueName)
{
    return valueName.contains(QLatin1Char('|')) ? valueName.split(QLatin1Char('|')) : QStringList();
}

} // namespace

CompletionCommand::CompletionCommand(const std::vector<std::unique_ptr<Command>>& commands)
    : Command(QStringLiteral("completion"), QStringLiteral("print a shell completion script (bash or zsh)"))
    , m_commands(commands)
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("SHELL"), QStringLiteral("bash or zsh"));
    parser.setEpilogue(QStringLiteral("example: source <(krolle completion bash)\n"
                                      "         krolle completion zsh > ~/.zsh/completions/_krolle"));
}

ExitStatus CompletionCommand::run(const ArgumentValues& arguments)
{
    const QString shell = arguments.positional(QStringLiteral("SHELL"));
    if (shell == QLatin1String("bash"))
        Console::out(bash());
    else if (shell == QLatin1String("zsh"))
        Console::out(zsh());
    else
        throw ToolError::usage(QStringLiteral("SHELL must be bash or zsh, not '%1'").arg(shell));
    return ExitStatus::Success;
}

QString CompletionCommand::bash() const
{
    QStringList names;
    QString options;
    QString choices;
    for (const auto& command : m_commands) {
        const ArgumentParser& parser = command->parser();
        names << command->name();
        options += QStringLiteral("        %1) options=\"%2\" ;;\n")
                       .arg(command->name(), parser.optionNames().join(QLatin1Char(' ')));
        for (const auto& entry : parser.entries()) {
            const QStringList words = entry.first.split(QLatin1Char(' '));
            const QStringList values = choicesOf(words.value(1));
            if (!values.isEmpty())
                choices += QStringLiteral("        '%1 %2') COMPREPLY=($(compgen -W \"%3\" -- \"$cur\")); return ;;\n")
                               .arg(command->name(), words.first(), values.join(QLatin1Char(' ')));
        }
    }
    return QStringLiteral("# bash completion for krolle; made by 'krolle completion bash'\n"
                          "_krolle()\n"
                          "{\n"
                          "    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]} options\n"
                          "    if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
                          "        COMPREPLY=($(compgen -W \"%1\" -- \"$cur\"))\n"
                          "        return\n"
                          "    fi\n"
                          "    case \"${COMP_WORDS[1]} $prev\" in\n"
                          "%2"
                          "    esac\n"
                          "    case ${COMP_WORDS[1]} in\n"
                          "        help) COMPREPLY=($(compgen -W \"%3\" -- \"$cur\")); return ;;\n"
                          "%4"
                          "    esac\n"
                          "    if [[ $cur == -* ]]; then\n"
                          "        COMPREPLY=($(compgen -W \"$options\" -- \"$cur\"))\n"
                          "    else\n"
                          "        COMPREPLY=($(compgen -f -- \"$cur\"))\n"
                          "    fi\n"
                          "}\n"
                          "complete -o filenames -F _krolle krolle\n")
        .arg((names + kToolWords).join(QLatin1Char(' ')), choices, names.join(QLatin1Char(' ')), options);
}

QString CompletionCommand::zsh() const
{
    QString described;
    QString cases;
    for (const auto& command : m_commands) {
        const ArgumentParser& parser = command->parser();
        described += QStringLiteral("        '%1:%2'\n").arg(command->name(), zshQuoted(parser.summary()));
        QStringList optionWords { QStringLiteral("'*:file:_files'") };
        const QStringList valued = parser.valueOptionNames();
        for (const auto& entry : parser.entries()) {
            const QStringList words = entry.first.split(QLatin1Char(' '));
            const QString name = words.first();
            if (!name.startsWith(QLatin1String("--")))
                continue;
            QString optionWord = QStringLiteral("'%1[%2]").arg(name, zshQuoted(entry.second));
            if (valued.contains(name)) {
                const QStringList values = choicesOf(words.value(1));
                optionWord += QStringLiteral(":%1:%2").arg(zshQuoted(words.value(1)),
                    values.isEmpty() ? QStringLiteral("_files") : QStringLiteral("(%1)").arg(values.join(QLatin1Char(' '))));
            }
            optionWords << optionWord + QLatin1Char('\'');
        }
        cases += QStringLiteral("        %1) _arguments %2 ;;\n").arg(command->name(), optionWords.join(QLatin1Char(' ')));
    }
    return QStringLiteral("#compdef krolle\n"
                          "# zsh completion for krolle; made by 'krolle completion zsh'\n"
                          "_krolle()\n"
                          "{\n"
                          "    local -a commands\n"
                          "    commands=(\n"
                          "%1"
                          "        'help:show the help of a command'\n"
                          "        'version:show the version'\n"
                          "    )\n"
                          "    if (( CURRENT == 2 )); then\n"
                          "        _describe 'command' commands\n"
                          "        return\n"
                          "    fi\n"
                          "    shift words\n"
                          "    (( CURRENT-- ))\n"
                          "    case $words[1] in\n"
                          "%2"
                          "        help) _describe 'command' commands ;;\n"
                          "    esac\n"
                          "}\n"
                          "_krolle \"$@\"\n")
        .arg(described, cases);
}
