#include "TrackCommand.h"

#include "Console.h"
#include "EditTracking.h"
#include "NamedObjects.h"
#include "ProjectDocument.h"

#include "metadata/KRC_Tracking.h"
#include "project/KRC_KrolleProject.h"
#include "tracking/KRC_TrackingManager.h"

namespace {

const int kSchemaVersion = 1;

const QString kPanel = QStringLiteral("--panel");
const QString kNote = QStringLiteral("--note");
const QString kOff = QStringLiteral("--off");

} // namespace

TrackCommand::TrackCommand()
    : Command(QStringLiteral("track"), QStringLiteral("set a panel's tracking record, and save"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to change"));
    parser.addOption(kPanel, QStringLiteral("SHOT/PANEL"), QStringLiteral("the panel, by names or #numbers of its shot and itself, or its id"), true);
    parser.addOption(kNote, QStringLiteral("TEXT"), QStringLiteral("why the panel is tracked"));
    parser.addFlag(kOff, QStringLiteral("mark the panel as not tracked"));
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("print one JSON document (see docs/tool.md)"));
    parser.setEpilogue(QStringLiteral("example: krolle track demo.xml --panel SH010/1 --note \"new pose\""));
}

ExitStatus TrackCommand::run(const ArgumentValues& arguments)
{
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")));
    KRC_KrolleProject& view = document.view();
    const Krolle::Panel_t panel = NamedObjects::panelByPath(view, arguments.value(kPanel));
    KRC_Tracking* record = panel.tracking();
    const bool tracked = !arguments.isSet(kOff);
    record->setIsTracked(tracked);
    record->setTrackingDate(EditTracking::now());
    if (arguments.isSet(kNote))
        record->setTrackingNote(arguments.value(kNote));
    record->emitChanged(view.changeManager(), KRC_TrackingManager::kTrackingSetCode);
    document.save();

    const QString label = NamedObjects::panelLabel(view, panel);
    const QString date = record->trackingDate().toString(Qt::ISODate);
    if (arguments.isSet(QStringLiteral("--json"))) {
        Console::outJson(QJsonObject { { QStringLiteral("krolle"), QStringLiteral("track") },
            { QStringLiteral("schema"), kSchemaVersion }, { QStringLiteral("file"), document.path() },
            { QStringLiteral("panel"), label }, { QStringLiteral("panelId"), panel.id().toString() },
            { QStringLiteral("tracked"), tracked },
            { QStringLiteral("date"), date }, { QStringLiteral("note"), record->trackingNote() } });
        return ExitStatus::Success;
    }
    Console::out(QStringLiteral("saved %1: %2 is %3 since %4\n")
                     .arg(document.path(), label, tracked ? QStringLiteral("tracked") : QStringLiteral("not tracked"), date));
    return ExitStatus::Success;
}
