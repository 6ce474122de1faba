#include "InsertCommand.h"

#include "Console.h"

namespace {

const unsigned kLongestPanel = 100000;

QString sideWord(bool after)
{
    return after ? QStringLiteral("after") : QStringLiteral("before");
}

} // namespace

InsertCommand::InsertCommand(const QString& name, const QString& summary, const char* object)
    : Command(name, summary)
{
    ArgumentParser& parser = declare();
    const QString what = QLatin1String(object);
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to edit"));
    parser.addOption(
        QStringLiteral("--after"), QStringLiteral("NAME"), QStringLiteral("insert after this ") + what);
    parser.addOption(
        QStringLiteral("--before"), QStringLiteral("NAME"), QStringLiteral("insert before this ") + what);
    parser.addOption(QStringLiteral("--sequence"), QStringLiteral("NAME"),
        QStringLiteral("look for the shot in this sequence only"));
    parser.addOption(QStringLiteral("--length"), QStringLiteral("FRAMES"),
        QStringLiteral("length of each new panel (%1), or a duration HH:MM:SS:FF with --fps").arg(kDefaultLength));
    parser.addTimecodeOptions(QStringLiteral("the rate of a --length given as a duration"));
}

InsertCommand::Placement InsertCommand::placement(const ArgumentValues& arguments)
{
    const QString side = arguments.exactlyOne({ QStringLiteral("--after"), QStringLiteral("--before") });
    return Placement { side == QLatin1String("--after"), arguments.value(side),
        arguments.value(QStringLiteral("--sequence")),
        arguments.length(QStringLiteral("--length"), kDefaultLength, 1, kLongestPanel, arguments.timecode()) };
}

void InsertCommand::refused(
    const char* object, const Placement& placement, const QString& neighbour, const QString& error)
{
    throw ToolError::failure(QStringLiteral("cannot insert a %1 %2 %3: %4")
                                 .arg(QLatin1String(object), sideWord(placement.after), neighbour, error));
}

void InsertCommand::reportInserted(const QString& label, const QString& proposal, unsigned first,
    unsigned last, const Placement& placement, const QString& neighbour, const QString& file)
{
    Console::out(
        QStringLiteral("inserted %1 (%2 name, frames %3-%4) %5 %6; saved %7\n")
            .arg(label, proposal.isEmpty() ? QStringLiteral("automatic") : QStringLiteral("custom"),
                QString::number(first), QString::number(last), sideWord(placement.after), neighbour, file));
}
