#include "FieldsCommand.h"

#include "Console.h"
#include "InfoFieldText.h"
#include "ProjectDocument.h"
#include "TextTable.h"

#include "infofields/KRC_PanelInfoFieldDescList.h"
#include "infofields/KRC_ProjectInfoFieldDescList.h"
#include "project/KRC_KrolleProject.h"

#include <QJsonArray>

namespace {

const int kSchemaVersion = 1;

const QString kAdd = QStringLiteral("--add");
const QString kRename = QStringLiteral("--rename");
const QString kMove = QStringLiteral("--move");
const QString kHide = QStringLiteral("--hide");
const QString kShow = QStringLiteral("--show");
const QString kRemove = QStringLiteral("--remove");
const QString kBefore = QStringLiteral("--before");
const QString kProject = QStringLiteral("--project");

QJsonObject definitionJson(const KRC_KrolleProject& view, const KRC_InfoFieldDesc& desc, bool panel)
{
    return QJsonObject { { QStringLiteral("level"), InfoFieldText::level(panel) },
        { QStringLiteral("id"), desc.id() }, { QStringLiteral("name"), desc.name() },
        { QStringLiteral("kind"), InfoFieldText::kind(desc) },
        { QStringLiteral("hidden"), !view.isInfoFieldVisible(desc.name()) } };
}

QString table(const QJsonArray& definitions)
{
    if (definitions.isEmpty())
        return QStringLiteral("(no fields)\n");
    TextTable table;
    table.setHeader({ QStringLiteral("level"), QStringLiteral("id"), QStringLiteral("name"),
        QStringLiteral("kind"), QStringLiteral("hidden") });
    table.setAlignment(1, TextTable::Align::Right);
    for (const QJsonValue& value : definitions) {
        const QJsonObject field = value.toObject();
        table.addRow({ field.value(QStringLiteral("level")).toString(),
            QString::number(field.value(QStringLiteral("id")).toInt()), field.value(QStringLiteral("name")).toString(),
            field.value(QStringLiteral("kind")).toString(),
            field.value(QStringLiteral("hidden")).toBool() ? QStringLiteral("hidden") : QString() });
    }
    return table.toString();
}

} // namespace

FieldsCommand::FieldsCommand()
    : Command(QStringLiteral("fields"), QStringLiteral("list the info field definitions, or change one and save"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to read (and write with an edit)"));
    parser.addOption(kAdd, QStringLiteral("NAME"), QStringLiteral("add a text field (an image with --image)"));
    parser.addFlag(QStringLiteral("--image"), QStringLiteral("with --add: an image field"));
    parser.addFlag(kProject, QStringLiteral("work on the project's own fields, not the panels'"));
    parser.addOption(kBefore, QStringLiteral("NAME"), QStringLiteral("with --add or --move: in front of that field"));
    parser.addPositional(QStringLiteral("NEW"), QStringLiteral("with --rename: the new name"), false);
    parser.addOption(kRename, QStringLiteral("OLD"), QStringLiteral("rename a field to NEW"));
    parser.addOption(kMove, QStringLiteral("NAME"), QStringLiteral("move a field (to the end without --before)"));
    parser.addOption(kHide, QStringLiteral("NAME"), QStringLiteral("hide a field"));
    parser.addOption(kShow, QStringLiteral("NAME"), QStringLiteral("show a hidden field"));
    parser.addOption(kRemove, QStringLiteral("NAME"), QStringLiteral("remove a field and all its values"));
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("print one JSON document (see docs/tool.md)"));
    parser.setEpilogue(QStringLiteral(
        "Panel fields have a value on every panel; project fields one value for the project.\n"
        "Hiding is by name and keeps the values. At most one edit per run.\n"
        "\n"
        "example: krolle fields demo.xml --add Action --before Dialogue"));
}

ExitStatus FieldsCommand::run(const ArgumentValues& arguments)
{
    const QStringList edits { kAdd, kRename, kMove, kHide, kShow, kRemove };
    const bool editing = std::any_of(
        edits.begin(), edits.end(), [&arguments](const QString& option) { return arguments.isSet(option); });
    if (editing)
        arguments.exactlyOne(edits);
    if (arguments.positional(QStringLiteral("NEW")).isNull() == arguments.isSet(kRename))
        throw ToolError::usage(QStringLiteral("give a new name after --rename OLD, and only there"));
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")),
        editing ? ProjectDocument::Access::Edit : ProjectDocument::Access::Read);
    KRC_KrolleProject& view = document.view();
    QString report;
    if (editing) {
        report = edit(view, arguments, document.path());
        document.save();
    }
    const QJsonArray fields = definitions(view);
    if (arguments.isSet(QStringLiteral("--json"))) {
        Console::outJson(QJsonObject { { QStringLiteral("krolle"), QStringLiteral("fields") },
            { QStringLiteral("schema"), kSchemaVersion }, { QStringLiteral("file"), document.path() },
            { QStringLiteral("changed"), editing }, { QStringLiteral("fields"), fields } });
        return ExitStatus::Success;
    }
    const QString heading = editing ? QStringLiteral("saved %1: %2\n").arg(document.path(), report)
                                    : QStringLiteral("info fields of %1:\n").arg(document.path());
    Console::out(heading + QStringLiteral("\n") + table(fields));
    return ExitStatus::Success;
}

QString FieldsCommand::edit(KRC_KrolleProject& view, const ArgumentValues& arguments, const QString& file) const
{
    const bool panel = !arguments.isSet(kProject);
    const QString level = InfoFieldText::level(panel);
    const int before = arguments.isSet(kBefore)
        ? InfoFieldText::fieldId(view, panel, arguments.value(kBefore), file)
        : INT_MAX;
    if (arguments.isSet(kAdd)) {
        const QString name = arguments.value(kAdd);
        if (view.getFieldByName(panel, name) != INT_MAX)
            throw ToolError::failure(QStringLiteral("%1 has a %2 field named \"%3\" already").arg(file, level, name));
        const int kind = arguments.isSet(QStringLiteral("--image")) ? KRC_InfoFieldDesc::kImage : KRC_InfoFieldDesc::kText;
        const int id = view.insertInfoField(panel, kind, name, INT_MAX, before, true);
        return QStringLiteral("added %1 field \"%2\" (id %3)").arg(level, name).arg(id);
    }
    if (arguments.isSet(kRename)) {
        const QString old = arguments.value(kRename);
        const QString name = arguments.positional(QStringLiteral("NEW"));
        view.renameInfoField(panel, InfoFieldText::fieldId(view, panel, old, file), name, true);
        return QStringLiteral("renamed %1 field \"%2\" to \"%3\"").arg(level, old, name);
    }
    if (arguments.isSet(kMove)) {
        const QString name = arguments.value(kMove);
        view.moveInfoField(panel, InfoFieldText::fieldId(view, panel, name, file), before, true);
        return QStringLiteral("moved %1 field \"%2\"").arg(level, name);
    }
    if (arguments.isSet(kRemove)) {
        const QString name = arguments.value(kRemove);
        KRC_InfoFieldDesc desc;
        KRC_InfoFieldList values;
        view.removeInfoField(panel, InfoFieldText::fieldId(view, panel, name, file), desc, values, true);
        return QStringLiteral("removed %1 field \"%2\"").arg(level, name);
    }
    const bool show = arguments.isSet(kShow);
    const QString name = arguments.value(show ? kShow : kHide);
    InfoFieldText::fieldId(view, panel, name, file);
    view.setInfoFieldVisible(name, show);
    return QStringLiteral("%1 field \"%2\"").arg(show ? QStringLiteral("showed") : QStringLiteral("hid"), name);
}

QJsonArray FieldsCommand::definitions(KRC_KrolleProject& view) const
{
    QJsonArray fields;
    for (auto desc = view.beginProjectInfoFieldDesc(); desc != view.endProjectInfoFieldDesc(); ++desc)
        fields.append(definitionJson(view, *desc, false));
    for (auto desc = view.beginPanelInfoFieldDesc(); desc != view.endPanelInfoFieldDesc(); ++desc)
        fields.append(definitionJson(view, *desc, true));
    return fields;
}
