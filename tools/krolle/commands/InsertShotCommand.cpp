#include "InsertShotCommand.h"

#include "NameWriter.h"
#include "NamedObjects.h"
#include "ObjectJson.h"
#include "ProjectDocument.h"

#include "host/engine/HostEngine.h"
#include "metadata/KRC_SceneInfo.h"
#include "naming/KRC_NameHelper.h"
#include "naming/KRC_ObjectName.h"
#include "project/KRC_KrolleProject.h"

namespace {

const unsigned kMostPanels = 1000;

} // namespace

InsertShotCommand::InsertShotCommand()
    : InsertCommand(QStringLiteral("insert-shot"),
        QStringLiteral("insert a shot after or before a named shot, and save"), "shot")
{
    ArgumentParser& parser = declare();
    parser.addOption(
        QStringLiteral("--panels"), QStringLiteral("N"), QStringLiteral("panels of the new shot (1)"));
    parser.setEpilogue(QStringLiteral(
        "The new shot joins the act and sequence of the named shot. Its name is the naming rules'\n"
        "proposal between its neighbours: custom where the rules give one, automatic otherwise.\n"
        "\n"
        "example: krolle insert-shot demo.xml --after SH060 --sequence SQ030 --panels 3"));
}

EditCommand::Outcome InsertShotCommand::edit(ProjectDocument& document, const ArgumentValues& arguments)
{
    const Placement where = placement(arguments);
    const unsigned panels = arguments.number(QStringLiteral("--panels"), 1, 1, kMostPanels);
    KRC_KrolleProject& view = document.view();

    const Krolle::Shot_t neighbour = NamedObjects::shot(view, where.neighbour, where.sequence);
    const SC_Id neighbourId = neighbour.id();
    const QString proposal = view.nameHelper()->getPreferedNewSceneName(neighbourId, where.after);
    const KRC_ObjectName act = neighbour.sceneInfo()->actName();
    const KRC_ObjectName sequence = neighbour.sceneInfo()->sequenceName();
    const int index = HostAuthoring::shotIndex(document.project(), neighbourId) + (where.after ? 1 : 0);

    QString error;
    const SC_Id id = HostAuthoring::insertShot(document.project(), static_cast<unsigned>(index),
        std::vector<unsigned>(panels, where.length), &error);
    if (id.isNull())
        refused("shot", where, NamedObjects::shotLabel(view, neighbour), error);
    document.notify();
    const Krolle::Shot_t shot = view.getShotByID(id);
    KRC_SceneInfo* info = shot.sceneInfo();
    NameWriter::set(info->name(), proposal);
    NameWriter::copy(info->actName(), act);
    NameWriter::copy(info->sequenceName(), sequence);

    const ObjectJson objects(view, 0);
    const Krolle::Shot_t beside = view.getShotByID(neighbourId);
    return inserted(NamedObjects::shotLabel(view, shot), proposal, objects.shot(shot), where,
        NamedObjects::shotLabel(view, beside), objects.shot(beside));
}
