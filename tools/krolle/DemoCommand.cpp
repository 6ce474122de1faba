#include "DemoCommand.h"

#include "Console.h"
#include "ProjectDocument.h"
#include "StoryboardPlan.h"

#include "host/engine/HostEngine.h"

DemoCommand::DemoCommand()
    : Command(QStringLiteral("demo"),
        QStringLiteral("build the sample storyboard, save it if asked, and outline it"))
{
    declare().addOption(
        QStringLiteral("--out"), QStringLiteral("FILE"), QStringLiteral("also save the sample to FILE"));
}

ExitStatus DemoCommand::run(const ArgumentValues& arguments)
{
    const StoryboardPlan plan = StoryboardPlan::demo();
    ProjectDocument document;
    plan.build(document);
    if (arguments.isSet(QStringLiteral("--out")))
        document.save(arguments.value(QStringLiteral("--out")));
    Console::out(
        QStringLiteral("The sample storyboard's timeline, as the engine describes it:\n  %1\n\n"
                       "Not available yet: the outline (acts, sequences, shot and panel names) waits for\n"
                       "the library's navigation and name records.\n")
            .arg(HostStoryboardBuilder::describe(document.project())));
    return ExitStatus::Success;
}
