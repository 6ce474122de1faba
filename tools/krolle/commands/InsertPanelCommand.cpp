#include "InsertPanelCommand.h"

#include "EnginePosition.h"
#include "NameWriter.h"
#include "NamedObjects.h"
#include "ObjectJson.h"
#include "ProjectDocument.h"

#include "host/engine/HostEngine.h"
#include "metadata/KRC_PanelInfo.h"
#include "naming/KRC_NameHelper.h"
#include "project/KRC_KrolleProject.h"

InsertPanelCommand::InsertPanelCommand()
    : InsertCommand(QStringLiteral("insert-panel"),
        QStringLiteral("insert a panel after or before a named panel, and save"), "panel")
{
    ArgumentParser& parser = declare();
    parser.addOption(
        QStringLiteral("--shot"), QStringLiteral("NAME"), QStringLiteral("the shot of the panel (name, #number or id)"), true);
    parser.setEpilogue(QStringLiteral(
        "The new panel's name is the naming rules' proposal between its neighbours in the shot:\n"
        "custom where the rules give one, automatic otherwise.\n"
        "\n"
        "example: krolle insert-panel demo.xml --shot SH050 --after 2A"));
}

EditCommand::Outcome InsertPanelCommand::edit(ProjectDocument& document, const ArgumentValues& arguments)
{
    const Placement where = placement(arguments);
    KRC_KrolleProject& view = document.view();

    const Krolle::Shot_t shot
        = NamedObjects::shot(view, arguments.value(QStringLiteral("--shot")), where.sequence);
    const Krolle::Panel_t neighbour = NamedObjects::panel(view, shot, where.neighbour);
    const SC_Id neighbourId = neighbour.id();
    const QString proposal = view.nameHelper()->getPreferedNewPanelName(shot, neighbourId, where.after);
    const SC_Id shotId = shot.id();
    const unsigned position = EnginePosition::ofPanel(document.project(), shotId, neighbourId) + (where.after ? 1 : 0);

    QString error;
    const SC_Id id = HostAuthoring::insertPanel(document.project(), shotId, position, where.length, &error);
    if (id.isNull())
        refused("panel", where, NamedObjects::panelLabel(view, neighbour), error);
    document.notify();
    const Krolle::Panel_t panel = view.getPanelByID(id);
    if (panel.isInvalid())
        refused("panel", where, NamedObjects::panelLabel(view, view.getPanelByID(neighbourId)),
            QStringLiteral("the shot's time warp would not show it; the file was not saved"));
    NameWriter::set(panel.panelInfo()->name(), proposal);

    const ObjectJson objects(view, Timecode());
    const Krolle::Panel_t beside = view.getPanelByID(neighbourId);
    return inserted(NamedObjects::panelLabel(view, panel), proposal, objects.panel(panel), where,
        NamedObjects::panelLabel(view, beside), objects.panel(beside));
}
