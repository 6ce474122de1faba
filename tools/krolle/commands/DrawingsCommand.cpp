#include "DrawingsCommand.h"

#include "Console.h"
#include "NamedObjects.h"
#include "ProjectDocument.h"
#include "TextTable.h"

#include "infofields/KRC_InfoFieldImage.h"
#include "infofields/KRC_InfoFieldList.h"
#include "project/KRC_KrolleProject.h"
#include "tracking/KRC_ConcreteVisitor.h"

#include <QJsonArray>

namespace {

const int kSchemaVersion = 1;

QString kindOf(const CA_CelKey& key)
{
    if (key.is3d())
        return QStringLiteral("3d");
    if (key.isKvg())
        return QStringLiteral("kvg");
    return key.isBitmap() ? QStringLiteral("bitmap") : QStringLiteral("other");
}

// One entry per element of the panel that shows a drawing at frame 1, in walk order.
void appendPanel(const KRC_KrolleProject& view, const Krolle::Panel_t& panel, QJsonArray& out)
{
    std::list<KRC_ConcreteVisitor::ElementKey> found;
    KRC_ConcreteVisitor::getDrawings(panel, found, false);
    const QString label = NamedObjects::panelLabel(view, panel);
    for (const KRC_ConcreteVisitor::ElementKey& entry : found) {
        out.append(QJsonObject { { QStringLiteral("panel"), label }, { QStringLiteral("panelId"), panel.id().toString() },
            { QStringLiteral("element"), entry.first->instanceName() },
            { QStringLiteral("enabled"), entry.first->enabled() != 0 },
            { QStringLiteral("kind"), kindOf(entry.second) },
            { QStringLiteral("drawing"), CA_CelKeyMgr::loadFilename(entry.second) } });
    }
}

// The pictures of the panel's image fields: drawings it shows too, made elsewhere and
// kept beside the project. A global field is named by its definition, a local by itself.
void appendImages(const KRC_KrolleProject& view, const Krolle::Panel_t& panel, QJsonArray& out)
{
    const KRC_InfoFieldList* fields = panel.infoFieldList();
    if (!fields)
        return;
    const QString label = NamedObjects::panelLabel(view, panel);
    for (const KRC_InfoFieldImage* image : fields->images()) {
        const KRC_InfoFieldDesc* desc = image->isGlobal() ? view.getInfoFieldDesc(true, image->id()) : nullptr;
        out.append(QJsonObject { { QStringLiteral("panel"), label }, { QStringLiteral("panelId"), panel.id().toString() },
            { QStringLiteral("element"), desc ? desc->name() : image->name() },
            { QStringLiteral("enabled"), true }, { QStringLiteral("kind"), QStringLiteral("image") },
            { QStringLiteral("drawing"), image->key() } });
    }
}

QString table(const QJsonObject& answer)
{
    const QJsonArray drawings = answer.value(QStringLiteral("drawings")).toArray();
    QString text = QStringLiteral("%1: %2 drawings\n\n").arg(answer.value(QStringLiteral("file")).toString()).arg(drawings.size());
    if (drawings.isEmpty())
        return text + QStringLiteral("(no drawings)\n");
    TextTable rows;
    const QStringList keys { QStringLiteral("panel"), QStringLiteral("element"), QStringLiteral("kind"),
        QStringLiteral("drawing") };
    rows.setHeader(keys);
    for (const QJsonValue& value : drawings) {
        QStringList cells;
        for (const QString& key : keys)
            cells << value.toObject().value(key).toString();
        rows.addRow(cells);
    }
    return text + rows.toString();
}

} // namespace

DrawingsCommand::DrawingsCommand()
    : Command(QStringLiteral("drawings"), QStringLiteral("list the drawings the panels show"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to read"));
    parser.addOption(QStringLiteral("--panel"), QStringLiteral("SHOT/PANEL"),
        QStringLiteral("only this panel, by names or #numbers of its shot and itself, or its id"), false);
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("print one JSON document (see docs/tool.md)"));
    parser.setEpilogue(QStringLiteral(
        "A panel's drawing is the one each element shows at the panel's first frame; elements\n"
        "below pegs and inside groups count, switched-off ones too. An image in one of the\n"
        "panel's image fields is listed after them, of kind image.\n"
        "\n"
        "example: krolle drawings demo.xml --panel SH010/1"));
}

ExitStatus DrawingsCommand::run(const ArgumentValues& arguments)
{
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")));
    const KRC_KrolleProject& view = document.view();
    QJsonArray entries;
    const auto append = [&](const Krolle::Panel_t& panel) {
        appendPanel(view, panel, entries);
        appendImages(view, panel, entries);
    };
    if (arguments.isSet(QStringLiteral("--panel"))) {
        append(NamedObjects::panelByPath(view, arguments.value(QStringLiteral("--panel"))));
    } else {
        for (auto it = view.beginPanel(); it != view.endPanel(); ++it)
            append(*it);
    }
    const QJsonObject answer { { QStringLiteral("krolle"), QStringLiteral("drawings") },
        { QStringLiteral("schema"), kSchemaVersion }, { QStringLiteral("file"), document.path() },
        { QStringLiteral("drawings"), entries } };
    if (arguments.isSet(QStringLiteral("--json")))
        Console::outJson(answer);
    else
        Console::out(table(answer));
    return ExitStatus::Success;
}
