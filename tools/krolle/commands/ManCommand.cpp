#include "ManCommand.h"

#include "Console.h"
#include "OutputFile.h"

namespace {

// Text as roff reads it literally: backslashes escaped, a line starting with a
// control character kept as text, hyphens as minus signs so options copy well.
QString roff(const QString& text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString& line : lines) {
        line.replace(QLatin1Char('\\'), QStringLiteral("\\e"));
        line.replace(QLatin1Char('-'), QStringLiteral("\\-"));
        if (line.startsWith(QLatin1Char('.')) || line.startsWith(QLatin1Char('\'')))
            line.prepend(QStringLiteral("\\&"));
    }
    return lines.join(QLatin1Char('\n'));
}

QString section(const ArgumentParser& parser)
{
    QString text = QStringLiteral(".SS %1\n").arg(roff(parser.command().mid(parser.command().indexOf(' ') + 1)));
    text += QStringLiteral(".B %1\n.PP\n%2\n").arg(roff(parser.usageLine()), roff(parser.description()));
    for (const auto& entry : parser.entries())
        text += QStringLiteral(".TP\n.B %1\n%2\n").arg(roff(entry.first), roff(entry.second));
    if (!parser.epilogue().isEmpty())
        text += QStringLiteral(".PP\n.nf\n%1\n.fi\n").arg(roff(parser.epilogue()));
    return text;
}

} // namespace

ManCommand::ManCommand(const std::vector<std::unique_ptr<Command>>& commands)
    : Command(QStringLiteral("man"), QStringLiteral("print the manual page krolle(1) in roff"))
    , m_commands(commands)
{
    ArgumentParser& parser = declare();
    parser.addOption(QStringLiteral("--out"), QStringLiteral("FILE"),
        QStringLiteral("write the page to FILE (standard output when absent or -)"));
    parser.setEpilogue(QStringLiteral("example: krolle man | man -l -"));
}

QString ManCommand::page() const
{
    QString text = QStringLiteral(".TH KROLLE 1 \"\" \"krolle %1\" \"User Commands\"\n"
                                  ".SH NAME\n"
                                  "krolle \\- a command\\-line front end over storyboard project files\n"
                                  ".SH SYNOPSIS\n"
                                  ".B krolle\n"
                                  "\\fIcommand\\fR [\\fIarguments\\fR] [\\fIoptions\\fR]\n"
                                  ".br\n"
                                  ".B krolle\n"
                                  "\\-\\-help | \\-\\-version\n"
                                  ".SH DESCRIPTION\n"
                                  "krolle reads storyboard project files and answers what is in them, what "
                                  "stands at a frame, how things are named and whether the names hold "
                                  "together; it also generates projects and makes small edits.\n"
                                  "Frames may be given as timecodes wherever a command takes \\-\\-fps.\n"
                                  ".SH COMMANDS\n")
                       .arg(QStringLiteral(KROLLE_VERSION));
    for (const auto& command : m_commands)
        text += section(command->parser());
    text += QStringLiteral(".SH EXIT STATUS\n"
                           ".TP\n.B 0\ndone; check found nothing\n"
                           ".TP\n.B 1\ncheck found something, or the project cannot do what was asked\n"
                           ".TP\n.B 2\na file is missing, unreadable, damaged, locked or cannot be written\n"
                           ".TP\n.B 64\nbad usage: an unknown command or option, a missing or malformed argument\n"
                           ".SH ENVIRONMENT\n"
                           ".TP\n.B KROLLE_PREFERENCES\nthe preference file the naming rules fall back on\n"
                           ".TP\n.B KROLLE_NOW\nthe date of tracked edits, instead of the clock\n");
    return text;
}

ExitStatus ManCommand::run(const ArgumentValues& arguments)
{
    OutputFile::write(arguments.value(QStringLiteral("--out")), page().toUtf8());
    return ExitStatus::Success;
}
