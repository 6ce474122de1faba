#include "SetCommand.h"

#include "Console.h"
#include "InfoFieldText.h"
#include "NamedObjects.h"
#include "ProjectDocument.h"

#include "infofields/KRC_InfoFieldList.h"
#include "infofields/KRC_PanelInfoFieldDescList.h"
#include "infofields/KRC_ProjectInfoFieldDescList.h"
#include "project/KRC_KrolleProject.h"

namespace {

const int kSchemaVersion = 1;
// Reported for a changed value, so that the panel counts as changed.
const int kValuesChangedCode = 4;

const QString kPanel = QStringLiteral("--panel");
const QString kProject = QStringLiteral("--project");
const QString kField = QStringLiteral("--field");
const QString kValue = QStringLiteral("--value");

} // namespace

SetCommand::SetCommand()
    : Command(QStringLiteral("set"), QStringLiteral("set an info field's value on a panel or the project, and save"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to change"));
    parser.addOption(kPanel, QStringLiteral("SHOT/PANEL"), QStringLiteral("the panel, by names or #numbers of its shot and itself, or its id"));
    parser.addFlag(kProject, QStringLiteral("set a project field instead of a panel's"));
    parser.addOption(kField, QStringLiteral("NAME"), QStringLiteral("the field, by its name"), true);
    parser.addOption(kValue, QStringLiteral("TEXT"), QStringLiteral("the new value (plain text, or an image's key)"), true);
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("print one JSON document (see docs/tool.md)"));
    parser.setEpilogue(QStringLiteral("example: krolle set demo.xml --panel SH010/1 --field Dialogue --value \"Hello\""));
}

ExitStatus SetCommand::run(const ArgumentValues& arguments)
{
    const bool panel = arguments.exactlyOne({ kPanel, kProject }) == kPanel;
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")), ProjectDocument::Access::Edit);
    KRC_KrolleProject& view = document.view();
    const QString name = arguments.value(kField);
    const KRC_InfoFieldDesc& desc
        = *view.getInfoFieldDesc(panel, InfoFieldText::fieldId(view, panel, name, document.path()));
    QString owner = QStringLiteral("the project");
    QJsonValue ownerId;
    KRC_InfoFieldList* list = view.infoFieldList();
    KRC_InfoFieldDescList* descs = view.infoFieldDescList();
    if (panel) {
        const Krolle::Panel_t target = NamedObjects::panelByPath(view, arguments.value(kPanel));
        owner = NamedObjects::panelLabel(view, target);
        ownerId = target.id().toString();
        list = target.infoFieldList();
        descs = view.panelInfoFieldDescList();
    }
    KRC_InfoField* field = InfoFieldText::valueOf(*list, *descs, desc);
    field->setValue(arguments.value(kValue));
    list->emitChanged(view.changeManager(), kValuesChangedCode);
    document.save();

    const QString value = InfoFieldText::plain(field);
    if (arguments.isSet(QStringLiteral("--json"))) {
        Console::outJson(QJsonObject { { QStringLiteral("krolle"), QStringLiteral("set") },
            { QStringLiteral("schema"), kSchemaVersion }, { QStringLiteral("file"), document.path() },
            { QStringLiteral("owner"), owner }, { QStringLiteral("ownerId"), ownerId },
            { QStringLiteral("field"), name },
            { QStringLiteral("value"), value } });
        return ExitStatus::Success;
    }
    Console::out(QStringLiteral("saved %1: %2 of %3 is \"%4\"\n").arg(document.path(), name, owner, value));
    return ExitStatus::Success;
}
