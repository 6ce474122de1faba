#include "OutlineCommand.h"

#include "Console.h"
#include "InfoFieldText.h"
#include "ProjectDocument.h"
#include "StoryboardOutline.h"
#include "Timecode.h"

#include "project/KRC_KrolleProject.h"

#include <QJsonArray>

namespace {

// Puts the panels' field values (plain text) into the outline, as "fields" of each
// panel and the column names as "fieldNames". The outline lists the panels shot by
// shot, which is the order of the view's walk of all panels.
void addFieldValues(QJsonObject& outline, const KRC_KrolleProject& view)
{
    auto panel = view.beginPanel();
    QJsonArray shots = outline.value(QStringLiteral("shots")).toArray();
    for (QJsonValueRef shotValue : shots) {
        QJsonObject shot = shotValue.toObject();
        QJsonArray panels = shot.value(QStringLiteral("panels")).toArray();
        for (QJsonValueRef panelValue : panels) {
            QJsonObject entry = panelValue.toObject();
            entry.insert(QStringLiteral("fields"), InfoFieldText::panelValues(view, *panel++));
            panelValue = entry;
        }
        shot.insert(QStringLiteral("panels"), panels);
        shotValue = shot;
    }
    outline.insert(QStringLiteral("shots"), shots);
    outline.insert(QStringLiteral("fieldNames"), QJsonArray::fromStringList(InfoFieldText::panelColumns(view)));
}

} // namespace

OutlineCommand::OutlineCommand()
    : Command(QStringLiteral("outline"),
        QStringLiteral("list acts, sequences, shots, panels and transitions with their frames"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to read"));
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("print one JSON document (see docs/tool.md)"));
    parser.addOption(QStringLiteral("--fps"), QStringLiteral("F"),
        QStringLiteral("also show timecodes at F frames per second"));
    parser.addFlag(QStringLiteral("--fields"),
        QStringLiteral("also show the panels' visible info field values, as plain text"));
}

ExitStatus OutlineCommand::run(const ArgumentValues& arguments)
{
    const unsigned fps = arguments.number(QStringLiteral("--fps"), 0, 1, Timecode::kMostFps);
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")));
    QJsonObject outline = StoryboardOutline::read(document.view(), document.path(), fps);
    if (arguments.isSet(QStringLiteral("--fields")))
        addFieldValues(outline, document.view());
    if (arguments.isSet(QStringLiteral("--json")))
        Console::outJson(outline);
    else
        Console::out(StoryboardOutline::table(outline));
    return ExitStatus::Success;
}
