#include "AddTransitionCommand.h"

#include "NamedObjects.h"
#include "ObjectJson.h"
#include "ProjectDocument.h"

#include "host/engine/HostEngine.h"
#include "project/KRC_KrolleProject.h"

namespace {

const QString kAfter = QStringLiteral("--after");
const QString kBefore = QStringLiteral("--before");
const QString kLength = QStringLiteral("--length");
const QString kType = QStringLiteral("--type");
const QString kAngle = QStringLiteral("--angle");
const QString kReverse = QStringLiteral("--reverse");
const unsigned kLargestAngle = 359;

// The type words, in the order of the engine's type codes.
const QStringList kTypes { QStringLiteral("dissolve"), QStringLiteral("wipe"), QStringLiteral("clock-wipe"),
    QStringLiteral("slide"), QStringLiteral("edge-wipe") };

} // namespace

AddTransitionCommand::AddTransitionCommand()
    : EditCommand(QStringLiteral("add-transition"), QStringLiteral("add a transition after or before a shot"))
{
    ArgumentParser& parser = declare();
    parser.addOption(kAfter, QStringLiteral("SHOT"), QStringLiteral("at the end of this shot"));
    parser.addOption(kBefore, QStringLiteral("SHOT"), QStringLiteral("at the start of this shot"));
    parser.addOption(kLength, QStringLiteral("FRAMES"), QStringLiteral("its length, or a timecode duration with --fps"), true);
    parser.addTimecodeOptions(QStringLiteral("the rate of a length given as a timecode"));
    parser.addOption(kType, QStringLiteral("TYPE"), QStringLiteral("%1 (dissolve)").arg(kTypes.join(QStringLiteral(", "))));
    parser.addOption(kAngle, QStringLiteral("DEGREES"), QStringLiteral("angle of a wipe, 0 to 359 (0)"));
    parser.addFlag(kReverse, QStringLiteral("run it the other way"));
    parser.setEpilogue(QStringLiteral("example: krolle add-transition demo.xml --after SH040 --length 6 --type wipe"));
}

EditCommand::Outcome AddTransitionCommand::edit(ProjectDocument& document, const ArgumentValues& arguments)
{
    const QString side = arguments.exactlyOne({ kAfter, kBefore });
    const unsigned length = frameCount(arguments, kLength);
    const int type = static_cast<int>(kTypes.indexOf(arguments.choice(kType, kTypes, kTypes.first())));
    const unsigned angle = arguments.number(kAngle, 0, 0, kLargestAngle);
    const KRC_KrolleProject& view = document.view();
    const Krolle::Shot_t shot = NamedObjects::shot(view, arguments.value(side), QString());
    const QString place = NamedObjects::shotLabel(view, shot);
    const int junction = HostAuthoring::shotIndex(document.project(), shot.id()) + (side == kAfter ? 1 : 0);
    QString error;
    const SC_Id id = HostAuthoring::insertTransition(document.project(), static_cast<unsigned>(junction), length,
        type, static_cast<int>(angle), arguments.isSet(kReverse), &error);
    if (id.isNull())
        refused(QStringLiteral("add a transition %1 %2").arg(side.mid(2), place), error);
    document.notify();
    const Krolle::Trans_t added = view.getTransByID(id);
    return { QStringLiteral("added %1 (%2, frames %3-%4) %5 %6")
                 .arg(NamedObjects::transitionLabel(view, added), id.toString(), QString::number(added.firstFrame()),
                     QString::number(added.lastFrame()), side.mid(2), place),
        QJsonObject { { QStringLiteral("kind"), QStringLiteral("transition") },
            { QStringLiteral("added"), ObjectJson(view, Timecode()).transition(added) } } };
}

void AddTransitionCommand::checkUsage(const ArgumentValues& arguments) const
{
    arguments.exactlyOne({ kAfter, kBefore });
    frameCount(arguments, kLength);
    arguments.choice(kType, kTypes, kTypes.first());
    arguments.number(kAngle, 0, 0, kLargestAngle);
}
