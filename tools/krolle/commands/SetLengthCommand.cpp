#include "SetLengthCommand.h"

#include "ChosenObject.h"
#include "ObjectJson.h"
#include "PanelLengths.h"
#include "ProjectDocument.h"

#include "host/engine/HostEngine.h"
#include "project/KRC_KrolleProject.h"

namespace {

const int kKinds = ChosenObject::Shot | ChosenObject::Panel;
const QString kLength = QStringLiteral("--length");

} // namespace

SetLengthCommand::SetLengthCommand()
    : EditCommand(QStringLiteral("set-length"), QStringLiteral("give a shot or a panel a new length in frames"))
{
    ArgumentParser& parser = declare();
    ChosenObject::declare(parser, QStringLiteral("resize"), kKinds);
    parser.addOption(kLength, QStringLiteral("FRAMES"), QStringLiteral("the new length, or a timecode duration with --fps"), true);
    parser.addTimecodeOptions(QStringLiteral("the rate of a length given as a timecode"));
    parser.setEpilogue(QStringLiteral("What follows moves with the object's end.\n"
                                      "\n"
                                      "example: krolle set-length demo.xml --panel SH010/2 --length 16"));
}

EditCommand::Outcome SetLengthCommand::edit(ProjectDocument& document, const ArgumentValues& arguments)
{
    const unsigned length = frameCount(arguments, kLength);
    const KRC_KrolleProject& view = document.view();
    const ObjectJson objects(view, Timecode());
    const ChosenObject chosen = ChosenObject::read(view, arguments, kKinds);
    const QString label = chosen.label(view);
    const QJsonValue before = chosen.json(objects);
    const unsigned was = chosen.lastFrame() - chosen.firstFrame() + 1;
    PanelLengths lengths;
    lengths.add(view, chosen.kind() == ChosenObject::Shot ? chosen.shot() : chosen.panel().shot());
    QString error;
    const bool done = chosen.kind() == ChosenObject::Shot
        ? HostAuthoring::resizeShot(document.project(), chosen.id(), length, &error)
        : HostAuthoring::resizePanel(document.project(), chosen.id(), length, &error);
    if (!done)
        refused(QStringLiteral("give %1 %2 frames").arg(label).arg(length), error);
    document.notify();
    touch(view, lengths.changed(view));
    const ChosenObject resized = chosen.again(view);
    if (!resized.isValid())
        return { QStringLiteral("%1 is %2 frames long, was %3; %4").arg(label).arg(length).arg(was).arg(resized.label(view)),
            QJsonObject { { QStringLiteral("kind"), chosen.kindName() }, { QStringLiteral("before"), before },
                { QStringLiteral("after"), QJsonValue() } } };
    return { QStringLiteral("%1 is %2 frames long, was %3 (frames %4-%5)")
                 .arg(label)
                 .arg(resized.lastFrame() - resized.firstFrame() + 1)
                 .arg(was)
                 .arg(resized.firstFrame())
                 .arg(resized.lastFrame()),
        QJsonObject { { QStringLiteral("kind"), chosen.kindName() }, { QStringLiteral("before"), before },
            { QStringLiteral("after"), resized.json(objects) } } };
}

void SetLengthCommand::checkUsage(const ArgumentValues& arguments) const
{
    frameCount(arguments, kLength);
}
