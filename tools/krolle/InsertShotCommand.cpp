#include "InsertShotCommand.h"

#include "Console.h"
#include "NameWriter.h"
#include "NamedObjects.h"
#include "ProjectDocument.h"

#include "host/engine/HostEngine.h"
#include "metadata/KRC_SceneInfo.h"
#include "naming/KRC_NameHelper.h"
#include "naming/KRC_ObjectName.h"
#include "project/KRC_KrolleProject.h"

namespace {

const unsigned kDefaultLength = 12;
const unsigned kMostPanels = 1000;
const unsigned kLongestPanel = 100000;

} // namespace

InsertShotCommand::InsertShotCommand()
    : Command(
        QStringLiteral("insert-shot"), QStringLiteral("insert a shot after or before a named shot, and save"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to edit"));
    parser.addOption(
        QStringLiteral("--after"), QStringLiteral("NAME"), QStringLiteral("insert after this shot"));
    parser.addOption(
        QStringLiteral("--before"), QStringLiteral("NAME"), QStringLiteral("insert before this shot"));
    parser.addOption(QStringLiteral("--sequence"), QStringLiteral("NAME"),
        QStringLiteral("look for the shot in this sequence only"));
    parser.addOption(
        QStringLiteral("--panels"), QStringLiteral("N"), QStringLiteral("panels of the new shot (1)"));
    parser.addOption(QStringLiteral("--length"), QStringLiteral("FRAMES"),
        QStringLiteral("length of each new panel (%1)").arg(kDefaultLength));
    parser.setEpilogue(QStringLiteral(
        "The new shot joins the act and sequence of the named shot. Its name is the naming rules'\n"
        "proposal between its neighbours: custom where the rules give one, automatic otherwise.\n"
        "\n"
        "example: krolle insert-shot demo.krl --after SH020 --sequence SQ040 --panels 3"));
}

ExitStatus InsertShotCommand::run(const ArgumentValues& arguments)
{
    const QString side = arguments.exactlyOne({ QStringLiteral("--after"), QStringLiteral("--before") });
    const bool after = side == QLatin1String("--after");
    const unsigned panels = arguments.number(QStringLiteral("--panels"), 1, 1, kMostPanels);
    const unsigned length = arguments.number(QStringLiteral("--length"), kDefaultLength, 1, kLongestPanel);
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")));
    KRC_KrolleProject& view = document.view();

    const Krolle::Shot_t neighbour
        = NamedObjects::shot(view, arguments.value(side), arguments.value(QStringLiteral("--sequence")));
    const SC_Id neighbourId = neighbour.id();
    const QString proposal = view.nameHelper()->getPreferedNewSceneName(neighbour.id(), after);
    const KRC_ObjectName act = neighbour.sceneInfo()->actName();
    const KRC_ObjectName sequence = neighbour.sceneInfo()->sequenceName();
    const int index = HostAuthoring::shotIndex(document.project(), neighbour.id()) + (after ? 1 : 0);

    QString error;
    const SC_Id id = HostAuthoring::insertShot(
        document.project(), static_cast<unsigned>(index), std::vector<unsigned>(panels, length), &error);
    if (id.isNull())
        throw ToolError::failure(QStringLiteral("cannot insert a shot %1 %2: %3")
                                     .arg(after ? QStringLiteral("after") : QStringLiteral("before"),
                                         NamedObjects::shotLabel(view, neighbour), error));
    document.notify();
    const Krolle::Shot_t shot = view.getShotByID(id);
    KRC_SceneInfo* info = shot.sceneInfo();
    NameWriter::set(info->name(), proposal);
    NameWriter::copy(info->actName(), act);
    NameWriter::copy(info->sequenceName(), sequence);
    document.save();

    Console::out(QStringLiteral("inserted %1 (%2 name, frames %3-%4) %5 %6; saved %7\n")
                     .arg(NamedObjects::shotLabel(view, shot),
                         proposal.isEmpty() ? QStringLiteral("automatic") : QStringLiteral("custom"),
                         QString::number(shot.firstFrame()), QString::number(shot.lastFrame()),
                         after ? QStringLiteral("after") : QStringLiteral("before"),
                         NamedObjects::shotLabel(view, view.getShotByID(neighbourId)), document.path()));
    return ExitStatus::Success;
}
