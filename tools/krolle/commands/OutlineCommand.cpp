#include "OutlineCommand.h"

#include "Console.h"
#include "OutlineLayers.h"
#include "ProjectDocument.h"
#include "StoryboardOutline.h"
#include "Timecode.h"

#include "project/KRC_KrolleProject.h"



OutlineCommand::OutlineCommand()
    : Command(QStringLiteral("outline"),
        QStringLiteral("list acts, sequences, shots, panels and transitions with their frames"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to read"));
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("print one JSON document (see docs/tool.md)"));
    parser.addTimecodeOptions(QStringLiteral("also show timecodes at F frames per second (24, 29.97...)"));
    parser.addFlag(QStringLiteral("--fields"),
        QStringLiteral("also show the panels' visible info field values, as plain text"));
    parser.addFlag(
        QStringLiteral("--layers"), QStringLiteral("also show the number of layers of each panel"));
}

ExitStatus OutlineCommand::run(const ArgumentValues& arguments)
{
    const Timecode clock = arguments.timecode();
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")));
    QJsonObject outline = StoryboardOutline::read(document.view(), document.path(), clock);
    if (arguments.isSet(QStringLiteral("--fields")))
        StoryboardOutline::addFieldValues(outline, document.view());
    if (arguments.isSet(QStringLiteral("--layers")))
        OutlineLayers::add(outline, document.view());
    if (arguments.isSet(QStringLiteral("--json")))
        Console::outJson(outline);
    else
        Console::out(StoryboardOutline::table(outline));
    return ExitStatus::Success;
}
