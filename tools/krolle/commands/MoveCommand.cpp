#include "MoveCommand.h"

#include "ChosenObject.h"
#include "EnginePosition.h"
#include "NamedObjects.h"
#include "ObjectJson.h"
#include "PanelLengths.h"
#include "ProjectDocument.h"

#include "host/engine/HostEngine.h"
#include "project/KRC_KrolleProject.h"

namespace {

const int kKinds = ChosenObject::Shot | ChosenObject::Panel;
const QString kAfter = QStringLiteral("--after");
const QString kBefore = QStringLiteral("--before");

// The place to ask for among the objects after the move, given the place the object
// leaves and the place before which it is to stand now.
unsigned arrival(unsigned leaving, unsigned target, bool sameSeries)
{
    return sameSeries && leaving < target ? target - 1 : target;
}

// The panels that the move takes elsewhere: the panel, or every panel of the shot.
std::vector<SC_Id> movedPanels(const KRC_KrolleProject& view, const ChosenObject& moved)
{
    if (moved.kind() == ChosenObject::Panel)
        return { moved.id() };
    std::vector<SC_Id> ids;
    for (auto panel = view.beginPanel(moved.shot()), end = view.endPanel(moved.shot()); panel != end; ++panel)
        ids.push_back(panel->id());
    return ids;
}

} // namespace

MoveCommand::MoveCommand()
    : EditCommand(QStringLiteral("move"), QStringLiteral("move a shot, or a panel within or across shots"))
{
    ArgumentParser& parser = declare();
    ChosenObject::declare(parser, QStringLiteral("move"), kKinds);
    parser.addOption(kAfter, QStringLiteral("PLACE"), QStringLiteral("put it after this shot (or SHOT/PANEL)"));
    parser.addOption(kBefore, QStringLiteral("PLACE"), QStringLiteral("put it before this shot (or SHOT/PANEL)"));
    parser.setEpilogue(QStringLiteral(
        "The object keeps its id and records; automatic names that move are listed.\n"
        "\n"
        "examples: krolle move demo.xml --shot SH030 --after SH050\n"
        "          krolle move demo.xml --panel SH010/1 --before SH020/1"));
}

EditCommand::Outcome MoveCommand::edit(ProjectDocument& document, const ArgumentValues& arguments)
{
    const KRC_KrolleProject& view = document.view();
    const ObjectJson objects(view, Timecode());
    const QString side = arguments.exactlyOne({ kAfter, kBefore });
    const bool after = side == kAfter;
    const ChosenObject chosen = ChosenObject::read(view, arguments, kKinds);
    PanelLengths lengths;
    const QString label = chosen.label(view);
    const QJsonValue before = chosen.json(objects);
    SC_Project* project = document.project();
    QString error;
    QString place;
    bool done = false;
    if (chosen.kind() == ChosenObject::Shot) {
        const Krolle::Shot_t neighbour = NamedObjects::shot(view, arguments.value(side), QString());
        place = NamedObjects::shotLabel(view, neighbour);
        const unsigned target = HostAuthoring::shotIndex(project, neighbour.id()) + (after ? 1 : 0);
        const unsigned leaving = HostAuthoring::shotIndex(project, chosen.id());
        done = HostAuthoring::moveShot(project, chosen.id(), arrival(leaving, target, true), &error);
    } else {
        const Krolle::Panel_t neighbour = NamedObjects::panelByPath(view, arguments.value(side), side);
        place = NamedObjects::panelLabel(view, neighbour);
        const SC_Id from = chosen.panel().shot().id();
        const SC_Id to = neighbour.shot().id();
        // A shot shown through its time warp shows its other panels differently.
        lengths.add(view, chosen.panel().shot());
        lengths.add(view, neighbour.shot());
        const unsigned target = EnginePosition::ofPanel(project, to, neighbour.id()) + (after ? 1 : 0);
        const unsigned leaving = EnginePosition::ofPanel(project, from, chosen.id());
        done = HostAuthoring::movePanel(project, chosen.id(), to, arrival(leaving, target, from == to), &error);
    }
    if (!done)
        refused(QStringLiteral("move %1 %2 %3").arg(label, side.mid(2), place), error);
    document.notify();
    const ChosenObject moved = chosen.again(view);
    touch(view, movedPanels(view, moved));
    touch(view, lengths.changed(view));
    return { QStringLiteral("moved %1 %2 %3; it is now %4").arg(label, side.mid(2), place, moved.label(view)),
        QJsonObject { { QStringLiteral("kind"), chosen.kindName() }, { QStringLiteral("before"), before },
            { QStringLiteral("after"), moved.json(objects) } } };
}

void MoveCommand::checkUsage(const ArgumentValues& arguments) const
{
    arguments.exactlyOne({ kAfter, kBefore });
}
