#include "ChangesCommand.h"

#include "Console.h"
#include "NamedObjects.h"
#include "ProjectDocument.h"
#include "TextTable.h"
#include "ToolError.h"

#include "metadata/KRC_Tracking.h"
#include "project/KRC_KrolleProject.h"
#include "tracking/KRC_TrackingManager.h"

#include <QJsonArray>

namespace {

const int kSchemaVersion = 1;

const QString kSince = QStringLiteral("--since");
const QString kUntil = QStringLiteral("--until");
const QString kTracked = QStringLiteral("--tracked");
const QString kUntracked = QStringLiteral("--untracked");

// The date of an option, or `fallback` when it is not given; a bad date is a usage error.
QDate dateOption(const ArgumentValues& arguments, const QString& option, const QDate& fallback)
{
    if (!arguments.isSet(option))
        return fallback;
    const QDate date = QDate::fromString(arguments.value(option), Qt::ISODate);
    if (!date.isValid())
        throw ToolError::usage(QStringLiteral("%1 takes a date as YYYY-MM-DD, not \"%2\"").arg(option, arguments.value(option)));
    return date;
}

// The tracking manager's three-way choice on the flag.
int flagFilter(const ArgumentValues& arguments)
{
    if (arguments.isSet(kTracked) && arguments.isSet(kUntracked))
        throw ToolError::usage(QStringLiteral("--tracked and --untracked exclude each other"));
    return arguments.isSet(kTracked) ? 1 : arguments.isSet(kUntracked) ? -1 : 0;
}

QJsonArray changedPanels(const KRC_KrolleProject& view, const ArgumentValues& arguments)
{
    std::vector<SC_Id> ids;
    view.trackingManager()->getTrackedPanels(ids, dateOption(arguments, kSince, QDate()),
        dateOption(arguments, kUntil, QDate(9999, 12, 31)), flagFilter(arguments));
    QJsonArray panels;
    for (const SC_Id& id : ids) {
        const Krolle::Panel_t panel = view.getPanelByID(id);
        const KRC_Tracking* record = panel.tracking();
        // Never changed: the manager keeps undated panels in every range.
        if (!record->trackingDate().isValid())
            continue;
        panels.append(QJsonObject { { QStringLiteral("panel"), NamedObjects::panelLabel(view, panel) },
            { QStringLiteral("panelId"), panel.id().toString() },
            { QStringLiteral("tracked"), record->isTracked() },
            { QStringLiteral("date"), record->trackingDate().toString(Qt::ISODate) },
            { QStringLiteral("note"), record->trackingNote() } });
    }
    return panels;
}

QString table(const QString& file, const QJsonArray& panels)
{
    const QString text = QStringLiteral("%1: %2 changed %3\n\n")
                             .arg(file)
                             .arg(panels.size())
                             .arg(panels.size() == 1 ? QStringLiteral("panel") : QStringLiteral("panels"));
    if (panels.isEmpty())
        return text + QStringLiteral("(no changes)\n");
    TextTable rows;
    rows.setHeader({ QStringLiteral("panel"), QStringLiteral("tracked"), QStringLiteral("date"), QStringLiteral("note") });
    for (const QJsonValue& value : panels) {
        const QJsonObject panel = value.toObject();
        rows.addRow({ panel.value(QStringLiteral("panel")).toString(),
            panel.value(QStringLiteral("tracked")).toBool() ? QStringLiteral("yes") : QStringLiteral("no"),
            panel.value(QStringLiteral("date")).toString(), panel.value(QStringLiteral("note")).toString() });
    }
    return text + rows.toString();
}

} // namespace

ChangesCommand::ChangesCommand()
    : Command(QStringLiteral("changes"), QStringLiteral("list the panels that changed, with their dates and notes"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to read"));
    parser.addOption(kSince, QStringLiteral("DATE"), QStringLiteral("only changes on or after this day (YYYY-MM-DD)"));
    parser.addOption(kUntil, QStringLiteral("DATE"), QStringLiteral("only changes on or before this day (YYYY-MM-DD)"));
    parser.addFlag(kTracked, QStringLiteral("only panels marked as tracked"));
    parser.addFlag(kUntracked, QStringLiteral("only panels not marked as tracked"));
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("print one JSON document (see docs/tool.md)"));
    parser.setEpilogue(QStringLiteral("example: krolle changes demo.xml --since 2026-01-01 --tracked"));
}

ExitStatus ChangesCommand::run(const ArgumentValues& arguments)
{
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")));
    const QJsonArray panels = changedPanels(document.view(), arguments);
    if (arguments.isSet(QStringLiteral("--json"))) {
        Console::outJson(QJsonObject { { QStringLiteral("krolle"), QStringLiteral("changes") },
            { QStringLiteral("schema"), kSchemaVersion }, { QStringLiteral("file"), document.path() },
            { QStringLiteral("panels"), panels } });
        return ExitStatus::Success;
    }
    Console::out(table(document.path(), panels));
    return ExitStatus::Success;
}
