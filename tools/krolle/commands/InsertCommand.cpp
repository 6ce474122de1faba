#include "InsertCommand.h"


namespace {

const unsigned kLongestPanel = 100000;

QString sideWord(bool after)
{
    return after ? QStringLiteral("after") : QStringLiteral("before");
}

} // namespace

InsertCommand::InsertCommand(const QString& name, const QString& summary, const char* object)
    : EditCommand(name, summary)
{
    ArgumentParser& parser = declare();
    const QString what = QLatin1String(object);
    parser.addOption(
        QStringLiteral("--after"), QStringLiteral("NAME"), QStringLiteral("insert after this ") + what + QStringLiteral(" (name, #number or id)"));
    parser.addOption(
        QStringLiteral("--before"), QStringLiteral("NAME"), QStringLiteral("insert before this ") + what + QStringLiteral(" (name, #number or id)"));
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

void InsertCommand::checkUsage(const ArgumentValues& arguments) const
{
    placement(arguments);
}

void InsertCommand::refused(
    const char* object, const Placement& placement, const QString& neighbour, const QString& error)
{
    throw ToolError::failure(QStringLiteral("cannot insert a %1 %2 %3: %4")
                                 .arg(QLatin1String(object), sideWord(placement.after), neighbour, error));
}

EditCommand::Outcome InsertCommand::inserted(const QString& label, const QString& proposal,
    const QJsonValue& object, const Placement& placement, const QString& neighbour, const QJsonValue& neighbourObject)
{
    const QJsonObject facts = object.toObject();
    return { QStringLiteral("inserted %1 (%2 name, frames %3-%4) %5 %6")
                 .arg(label, proposal.isEmpty() ? QStringLiteral("automatic") : QStringLiteral("custom"),
                     QString::number(facts.value(QStringLiteral("firstFrame")).toInt()),
                     QString::number(facts.value(QStringLiteral("lastFrame")).toInt()), sideWord(placement.after),
                     neighbour),
        QJsonObject { { QStringLiteral("inserted"), object }, { QStringLiteral("side"), sideWord(placement.after) },
            { QStringLiteral("neighbour"), neighbourObject } } };
}
