#include "DemoCommand.h"

#include "Console.h"
#include "ProjectDocument.h"
#include "StoryboardOutline.h"
#include "StoryboardPlan.h"

DemoCommand::DemoCommand()
    : Command(QStringLiteral("demo"),
        QStringLiteral("build the sample storyboard, save it if asked, and outline it"))
{
    ArgumentParser& parser = declare();
    parser.addOption(
        QStringLiteral("--out"), QStringLiteral("FILE"), QStringLiteral("also save the sample to FILE (- for standard output, alone)"));
    parser.addFlag(QStringLiteral("--force"), QStringLiteral("overwrite FILE if it exists"));
    parser.setEpilogue(QStringLiteral(
        "The sample has three acts, five sequences, custom and automatic names, shots cut by their\n"
        "time warps and transitions. Save it with --out and try the other commands on it."));
}

ExitStatus DemoCommand::run(const ArgumentValues& arguments)
{
    ProjectDocument document;
    StoryboardPlan::demo().build(document);
    QString name = QStringLiteral("sample storyboard");
    if (arguments.isSet(QStringLiteral("--out"))) {
        name = arguments.value(QStringLiteral("--out"));
        refuseToOverwrite(name, arguments);
        document.save(name);
        // The file is the whole output: an outline after it would spoil it.
        if (ProjectDocument::isStandardStream(name))
            return ExitStatus::Success;
    }
    Console::out(StoryboardOutline::table(StoryboardOutline::read(document.view(), name, Timecode())));
    return ExitStatus::Success;
}
