#include "EditCommand.h"

#include "Console.h"
#include "NameChanges.h"
#include "ProjectDocument.h"

#include "project/KRC_KrolleProject.h"
#include "tracking/KRC_TrackingManager.h"

#include <QJsonArray>

namespace {

const int kSchemaVersion = 1;
const unsigned kLongestLength = 1000000;

const QString kDryRun = QStringLiteral("--dry-run");
const QString kJson = QStringLiteral("--json");

} // namespace

EditCommand::EditCommand(const QString& name, const QString& summary)
    : Command(name, summary)
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to edit"));
    parser.addFlag(kDryRun, QStringLiteral("say what would change, and write nothing"));
    parser.addFlag(kJson, QStringLiteral("print one JSON document (see docs/tool.md)"));
}

void EditCommand::refused(const QString& what, const QString& error)
{
    throw ToolError::failure(QStringLiteral("cannot %1: %2").arg(what, error));
}

unsigned EditCommand::frameCount(const ArgumentValues& arguments, const QString& option)
{
    return arguments.length(option, 0, 1, kLongestLength, arguments.timecode());
}

void EditCommand::touch(const KRC_KrolleProject& view, const std::vector<SC_Id>& panels)
{
    view.trackingManager()->trackPanels(panels);
}

void EditCommand::checkUsage(const ArgumentValues&) const
{
}

ExitStatus EditCommand::run(const ArgumentValues& arguments)
{
    checkUsage(arguments);
    const bool dryRun = arguments.isSet(kDryRun);
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")),
        dryRun ? ProjectDocument::Access::Read : ProjectDocument::Access::Edit);
    const NameChanges names(document.view());
    const Outcome outcome = edit(document, arguments);
    document.notify();
    const QJsonArray moved = names.since(document.view());
    if (!dryRun)
        document.save();

    if (arguments.isSet(kJson)) {
        QJsonObject answer = outcome.json;
        answer.insert(QStringLiteral("krolle"), name());
        answer.insert(QStringLiteral("schema"), kSchemaVersion);
        answer.insert(QStringLiteral("file"), document.path());
        answer.insert(QStringLiteral("saved"), !dryRun);
        answer.insert(QStringLiteral("renamed"), moved);
        Console::outJson(answer);
        return ExitStatus::Success;
    }
    const QString saved = dryRun ? QStringLiteral("dry run, %1 is left as it is").arg(document.path())
                                 : QStringLiteral("saved %1").arg(document.path());
    Console::out(QStringLiteral("%1; %2\n").arg(outcome.sentence, saved) + NameChanges::table(moved));
    return ExitStatus::Success;
}
