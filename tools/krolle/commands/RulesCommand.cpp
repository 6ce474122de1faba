#include "RulesCommand.h"

#include "Console.h"
#include "NamingRulesEditor.h"
#include "ProjectDocument.h"
#include "TextTable.h"
#include "Wording.h"

#include "naming/KRC_NamingRules.h"
#include "project/KRC_KrolleProject.h"

namespace {

const int kSchemaVersion = 1;

} // namespace

RulesCommand::RulesCommand()
    : Command(
        QStringLiteral("rules"), QStringLiteral("show the naming rules in force, or change them with --set"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(
        QStringLiteral("FILE"), QStringLiteral("project file to read (and write with --set)"));
    parser.addListOption(QStringLiteral("--set"), QStringLiteral("KEY=VALUE"),
        QStringLiteral("change rules in the project's record and save the file"));
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("print one JSON document (see docs/tool.md)"));
    parser.setEpilogue(QStringLiteral(
        "The rules in force are the preferences' (KROLLE_PREFERENCES names a preference file)\n"
        "until the project's record overrides them; setting any rule turns the override on,\n"
        "keeping the other values as they were shown. overloadingPref=false turns it off.\n"
        "\n"
        "keys: overloadingPref, autoShowTotal, enabledAct, and sequence.RULE, shot.RULE, panel.RULE\n"
        "with RULE one of automaticLeadingZeros, numberOfZeros, allowCustomName, "
        "autoIncrementRule,\n"
        "autoIncrementValue, nameSuffixDelimiter, nameSuffixType, smartNameOnDrop, "
        "resetNameOnNewParent\n"
        "values: true/false, whole numbers, and the names shown (autoIncrementRule: numeric, alpha,\n"
        "alpha-z-prefix, alpha-z-repeat, by-n; nameSuffixDelimiter: none, underscore, dot;\n"
        "nameSuffixType: none, number, upper, lower)\n"
        "\n"
        "example: krolle rules demo.xml --set shot.autoIncrementRule=by-n shot.autoIncrementValue=10"));
}

ExitStatus RulesCommand::run(const ArgumentValues& arguments)
{
    const QStringList settings = arguments.values(QStringLiteral("--set"));
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")),
        settings.isEmpty() ? ProjectDocument::Access::Read : ProjectDocument::Access::Edit);
    KRC_NamingRules* rules = document.view().namingRules();
    if (!rules)
        throw ToolError::failure(QStringLiteral("%1 has no place for naming rules").arg(document.path()));
    NamingRulesEditor editor(*rules);
    if (!settings.isEmpty()) {
        editor.apply(settings);
        document.save();
    }
    if (arguments.isSet(QStringLiteral("--json"))) {
        Console::outJson(QJsonObject { { QStringLiteral("krolle"), QStringLiteral("rules") },
            { QStringLiteral("schema"), kSchemaVersion }, { QStringLiteral("file"), document.path() },
            { QStringLiteral("changed"), !settings.isEmpty() }, { QStringLiteral("rules"), editor.json() } });
        return ExitStatus::Success;
    }
    QString text;
    if (!settings.isEmpty())
        text += QStringLiteral("saved %1 with %2 set\n")
                    .arg(document.path(), Wording::counted(settings.size(), "rule", "rules"));
    text += QStringLiteral("naming rules of %1, from %2:\n\n").arg(document.path(), editor.source());
    Console::out(text + editor.table().toString());
    return ExitStatus::Success;
}
