#include "InsertPanelCommand.h"

#include "Console.h"
#include "NameWriter.h"
#include "NamedObjects.h"
#include "ProjectDocument.h"

#include "host/engine/HostEngine.h"
#include "metadata/KRC_PanelInfo.h"
#include "naming/KRC_NameHelper.h"
#include "project/KRC_KrolleProject.h"

namespace {

const unsigned kDefaultLength = 12;
const unsigned kLongestPanel = 100000;

// The engine's position of a panel among all the blocks of its shot's symbol.
unsigned enginePosition(const SC_Project* project, const SC_Id& shot, const SC_Id& panel)
{
    const unsigned count = HostAuthoring::panelCount(project, shot);
    unsigned position = 0;
    while (position < count && HostAuthoring::panelId(project, shot, position) != panel)
        ++position;
    return position;
}

} // namespace

InsertPanelCommand::InsertPanelCommand()
    : Command(QStringLiteral("insert-panel"),
        QStringLiteral("insert a panel after or before a named panel, and save"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to edit"));
    parser.addOption(
        QStringLiteral("--shot"), QStringLiteral("NAME"), QStringLiteral("the shot of the panel"));
    parser.addOption(QStringLiteral("--sequence"), QStringLiteral("NAME"),
        QStringLiteral("look for the shot in this sequence only"));
    parser.addOption(
        QStringLiteral("--after"), QStringLiteral("NAME"), QStringLiteral("insert after this panel"));
    parser.addOption(
        QStringLiteral("--before"), QStringLiteral("NAME"), QStringLiteral("insert before this panel"));
    parser.addOption(QStringLiteral("--length"), QStringLiteral("FRAMES"),
        QStringLiteral("length of the new panel (%1)").arg(kDefaultLength));
    parser.setEpilogue(QStringLiteral(
        "The new panel's name is the naming rules' proposal between its neighbours in the shot:\n"
        "custom where the rules give one, automatic otherwise.\n"
        "\n"
        "example: krolle insert-panel demo.krl --shot SH010 --sequence SQ010 --after 2"));
}

ExitStatus InsertPanelCommand::run(const ArgumentValues& arguments)
{
    if (!arguments.isSet(QStringLiteral("--shot")))
        throw ToolError::usage(QStringLiteral("missing --shot NAME"));
    const QString side = arguments.exactlyOne({ QStringLiteral("--after"), QStringLiteral("--before") });
    const bool after = side == QLatin1String("--after");
    const unsigned length = arguments.number(QStringLiteral("--length"), kDefaultLength, 1, kLongestPanel);
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")));
    KRC_KrolleProject& view = document.view();

    const Krolle::Shot_t shot = NamedObjects::shot(
        view, arguments.value(QStringLiteral("--shot")), arguments.value(QStringLiteral("--sequence")));
    const Krolle::Panel_t neighbour = NamedObjects::panel(view, shot, arguments.value(side));
    const SC_Id neighbourId = neighbour.id();
    const QString proposal = view.nameHelper()->getPreferedNewPanelName(shot, neighbour.id(), after);
    const SC_Id shotId = shot.id();
    const unsigned position = enginePosition(document.project(), shotId, neighbour.id()) + (after ? 1 : 0);

    QString error;
    const SC_Id id = HostAuthoring::insertPanel(document.project(), shotId, position, length, &error);
    if (id.isNull())
        throw ToolError::failure(QStringLiteral("cannot insert a panel %1 %2: %3")
                                     .arg(after ? QStringLiteral("after") : QStringLiteral("before"),
                                         NamedObjects::panelLabel(view, neighbour), error));
    document.notify();
    const Krolle::Panel_t panel = view.getPanelByID(id);
    if (panel.isInvalid())
        throw ToolError::failure(
            QStringLiteral("inserted a panel %1 %2, but the shot's time warp does not show it; "
                           "the file was not saved")
                .arg(after ? QStringLiteral("after") : QStringLiteral("before"),
                    NamedObjects::panelLabel(view, view.getPanelByID(neighbourId))));
    NameWriter::set(panel.panelInfo()->name(), proposal);
    document.save();

    Console::out(QStringLiteral("inserted %1 (%2 name, frames %3-%4) %5 %6; saved %7\n")
                     .arg(NamedObjects::panelLabel(view, panel),
                         proposal.isEmpty() ? QStringLiteral("automatic") : QStringLiteral("custom"),
                         QString::number(panel.firstFrame()), QString::number(panel.lastFrame()),
                         after ? QStringLiteral("after") : QStringLiteral("before"),
                         NamedObjects::panelLabel(view, view.getPanelByID(neighbourId)), document.path()));
    return ExitStatus::Success;
}
