#include "LockNamesCommand.h"

#include "NameWriter.h"
#include "NamedObjects.h"
#include "ProjectDocument.h"

#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_SceneInfo.h"
#include "naming/KRC_ObjectName.h"
#include "project/KRC_KrolleProject.h"
#include "Wording.h"

#include <QJsonArray>

#include <vector>

namespace {

const QString kFrom = QStringLiteral("--from");
const QString kTo = QStringLiteral("--to");
const QString kPanels = QStringLiteral("--panels");

// One automatic name to store, read before any is written.
struct Frozen
{
    KRC_ObjInfo* record;
    QJsonObject json;
};

void collect(KRC_ObjInfo* record, const char* kind, const SC_Id& id, const QString& name, std::vector<Frozen>& into)
{
    if (record->name().isCustom())
        return;
    into.push_back(Frozen { record,
        QJsonObject { { QStringLiteral("kind"), QLatin1String(kind) }, { QStringLiteral("id"), id.toString() },
            { QStringLiteral("name"), name } } });
}

Krolle::Shot_t end(const KRC_KrolleProject& view, const ArgumentValues& arguments, const QString& option, bool last)
{
    if (arguments.isSet(option))
        return NamedObjects::shot(view, arguments.value(option), QString());
    return last ? view.last(Krolle::Shot_t::invalid) : view.first(Krolle::Shot_t::invalid);
}

} // namespace

LockNamesCommand::LockNamesCommand()
    : EditCommand(QStringLiteral("lock-names"), QStringLiteral("keep the automatic names of shots (and panels) as custom"))
{
    ArgumentParser& parser = declare();
    parser.addOption(kFrom, QStringLiteral("SHOT"), QStringLiteral("first shot of the range (the first)"));
    parser.addOption(kTo, QStringLiteral("SHOT"), QStringLiteral("last shot of the range (the last)"));
    parser.addFlag(kPanels, QStringLiteral("also the names of the panels of those shots"));
    parser.setEpilogue(QStringLiteral(
        "The names do not change; they stop following the objects' places when objects are\n"
        "inserted, removed or moved.\n"
        "\n"
        "example: krolle lock-names small.xml --from 1 --to 2 --panels"));
}

EditCommand::Outcome LockNamesCommand::edit(ProjectDocument& document, const ArgumentValues& arguments)
{
    const KRC_KrolleProject& view = document.view();
    const Krolle::Shot_t first = end(view, arguments, kFrom, false);
    const Krolle::Shot_t last = end(view, arguments, kTo, true);
    if (first.isInvalid())
        throw ToolError::failure(QStringLiteral("%1 has no shots").arg(document.path()));
    if (view.getShotNdx(first) > view.getShotNdx(last))
        throw ToolError::failure(QStringLiteral("%1 comes after %2")
                                     .arg(NamedObjects::shotLabel(view, first), NamedObjects::shotLabel(view, last)));
    const QString range = QStringLiteral("shots %1-%2").arg(view.getShotNdx(first) + 1).arg(view.getShotNdx(last) + 1);
    std::vector<Frozen> frozen;
    for (Krolle::Shot_t shot = first;; shot = view.next(shot)) {
        collect(shot.sceneInfo(), "shot", shot.id(), shot.name(), frozen);
        for (auto panel = view.beginPanel(shot), stop = view.endPanel(shot); arguments.isSet(kPanels) && panel != stop;
             ++panel)
            collect(panel->panelInfo(), "panel", panel->id(), panel->name(), frozen);
        if (shot == last)
            break;
    }
    QJsonArray names;
    for (const Frozen& name : frozen) {
        NameWriter::set(name.record->name(), name.json.value(QStringLiteral("name")).toString());
        NameWriter::announce(*name.record, view.changeManager());
        names.append(name.json);
    }
    return { QStringLiteral("kept %1 of %2 as custom").arg(Wording::counted(frozen.size(), "automatic name", "automatic names"), range),
        QJsonObject { { QStringLiteral("locked"), names } } };
}
