#include "InsertShotCommand.h"

#include "Console.h"
#include "NameWriter.h"
#include "NamedObjects.h"
#include "ObjectJson.h"
#include "ProjectDocument.h"
#include "RuleWording.h"

#include "host/engine/HostEngine.h"
#include "metadata/KRC_SceneInfo.h"
#include "naming/KRC_NameHelper.h"
#include "naming/KRC_ObjectName.h"
#include "project/KRC_KrolleProject.h"

#include <QVector>

namespace {

const unsigned kMostPanels = 1000;

// The custom-named shots among these whose names follow the rules now.
QVector<SC_Id> followingRules(const KRC_KrolleProject& view, const QVector<SC_Id>& ids)
{
    QVector<SC_Id> following;
    for (const SC_Id& id : ids) {
        const Krolle::Shot_t shot = view.getShotByID(id);
        if (shot.isValid() && shot.sceneInfo() && shot.sceneInfo()->name().isCustom()
            && RuleWording::usableForNaming(view, shot) && view.nameHelper()->shotNameFollowsRules(id))
            following.append(id);
    }
    return following;
}

// Warns of each shot that followed the rules before the insert and no longer does.
void warnOffRules(const KRC_KrolleProject& view, const QVector<SC_Id>& followedBefore)
{
    const QVector<SC_Id> following = followingRules(view, followedBefore);
    for (const SC_Id& id : followedBefore) {
        if (following.contains(id))
            continue;
        const Krolle::Shot_t shot = view.getShotByID(id);
        Console::err(QStringLiteral("krolle insert-shot: warning: %1 no longer follows the shot naming rules: %2\n")
                         .arg(NamedObjects::shotLabel(view, shot), RuleWording::expectedShotName(view, shot)));
    }
}

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

    const QString unusable = view.namingRules()
        ? RuleWording::whyUnusable(view.namingRules()->shotRules(), QStringLiteral("shot"))
        : QString();
    if (!unusable.isNull())
        throw ToolError::failure(
            QStringLiteral("cannot name a new shot in %1: %2; nothing was changed").arg(document.path(), unusable));
    const Krolle::Shot_t neighbour = NamedObjects::shot(view, where.neighbour, where.sequence);
    const SC_Id neighbourId = neighbour.id();
    const Krolle::Shot_t across = where.after ? view.next(neighbour) : view.prev(neighbour);
    const QVector<SC_Id> followedBefore
        = followingRules(view, { neighbourId, across.isValid() ? across.id() : SC_Id() });
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

    warnOffRules(view, followedBefore);
    const ObjectJson objects(view, Timecode());
    const Krolle::Shot_t beside = view.getShotByID(neighbourId);
    return inserted(NamedObjects::shotLabel(view, shot), proposal, objects.shot(shot), where,
        NamedObjects::shotLabel(view, beside), objects.shot(beside));
}
