#include "LayersCommand.h"

#include "Console.h"
#include "NamedObjects.h"
#include "ProjectDocument.h"
#include "TextTable.h"

#include "layers/KRC_PanelLayerManager.h"
#include "project/KRC_KrolleProject.h"

#include <QJsonArray>

namespace {

const int kSchemaVersion = 1;
using Manager = KRC_PanelLayerManager;

// The kind of a layer in the words of the tool, by the library's kind tests.
QString kindOf(MO_Node* layer)
{
    if (Manager::isLayerOfType(layer, Manager::LayerType_Drawing))
        return QStringLiteral("drawing");
    if (Manager::isLayerOfType(layer, Manager::LayerType_3d))
        return QStringLiteral("3d");
    if (Manager::isLayerOfType(layer, Manager::LayerType_Animated))
        return QStringLiteral("peg");
    return QStringLiteral("other");
}

QJsonArray flagsOf(MO_Node const* layer)
{
    QJsonArray flags;
    if (layer->lock())
        flags.append(QStringLiteral("locked"));
    if (!layer->enabled())
        flags.append(QStringLiteral("disabled"));
    if (Manager::getCameraAlignmentForLayer(layer) != CameraAlignment_None)
        flags.append(QStringLiteral("camera-aligned"));
    return flags;
}

QJsonObject layerJson(const Krolle::Panel_t& panel, MO_Node* layer, unsigned index)
{
    std::vector<MO_Node*> below;
    Manager::getNodeAndChildren(layer, below, false);
    KRC_LayerInfos const* infos = panel.layerInfos();
    const QString name = layer->instanceName();
    return QJsonObject { { QStringLiteral("index"), static_cast<int>(index) },
        { QStringLiteral("name"), name }, { QStringLiteral("kind"), kindOf(layer) },
        { QStringLiteral("opacity"), Manager::getOpacityForLayer(layer) },
        { QStringLiteral("flags"), flagsOf(layer) },
        { QStringLiteral("nodesBelow"), static_cast<int>(below.size()) },
        { QStringLiteral("exportFlags"), infos ? infos->exportFlags(name) : 0 },
        { QStringLiteral("layerFlags"), infos ? infos->layerFlags(name) : 0 } };
}

QString cell(const QJsonObject& layer, const char* key)
{
    const QJsonValue value = layer.value(QLatin1String(key));
    if (value.isArray()) {
        QStringList words;
        for (const QJsonValue& word : value.toArray())
            words << word.toString();
        return words.isEmpty() ? QStringLiteral("-") : words.join(QLatin1Char(','));
    }
    return value.isString() ? value.toString() : QString::number(value.toDouble());
}

QString table(const QJsonObject& answer)
{
    const QJsonArray layers = answer.value(QStringLiteral("layers")).toArray();
    QString text = QStringLiteral("%1, %2: %3 layers\n\n")
                       .arg(answer.value(QStringLiteral("file")).toString(),
                           answer.value(QStringLiteral("panel")).toString())
                       .arg(layers.size());
    if (layers.isEmpty())
        return text + QStringLiteral("(no layers)\n");
    TextTable rows;
    rows.setHeader({ QStringLiteral("index"), QStringLiteral("name"), QStringLiteral("kind"),
        QStringLiteral("opacity"), QStringLiteral("below"), QStringLiteral("flags") });
    rows.setAlignment(0, TextTable::Align::Right);
    rows.setAlignment(3, TextTable::Align::Right);
    rows.setAlignment(4, TextTable::Align::Right);
    for (const QJsonValue& value : layers) {
        const QJsonObject layer = value.toObject();
        rows.addRow({ cell(layer, "index"), cell(layer, "name"), cell(layer, "kind"), cell(layer, "opacity"),
            cell(layer, "nodesBelow"), cell(layer, "flags") });
    }
    return text + rows.toString();
}

} // namespace

LayersCommand::LayersCommand()
    : Command(QStringLiteral("layers"), QStringLiteral("list the layers of a panel, in order"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to read"));
    parser.addOption(QStringLiteral("--panel"), QStringLiteral("SHOT/PANEL"),
        QStringLiteral("the panel, by names or #numbers of its shot and itself, or its id"), true);
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("print one JSON document (see docs/tool.md)"));
    parser.setEpilogue(QStringLiteral(
        "Layers are the top-level pegs and elements of the panel's scene, first to last as the\n"
        "engine walks them; nodes linked under a layer count as below it.\n"
        "\n"
        "example: krolle layers demo.xml --panel SH010/1"));
}

ExitStatus LayersCommand::run(const ArgumentValues& arguments)
{
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")));
    const KRC_KrolleProject& view = document.view();
    const Krolle::Panel_t panel = NamedObjects::panelByPath(view, arguments.value(QStringLiteral("--panel")));
    std::vector<MO_Node*> layers;
    view.layerManager()->getLayers(panel.symbol(), layers);
    QJsonArray entries;
    for (MO_Node* layer : layers)
        entries.append(layerJson(panel, layer, static_cast<unsigned>(entries.size())));
    const QJsonObject answer { { QStringLiteral("krolle"), QStringLiteral("layers") },
        { QStringLiteral("schema"), kSchemaVersion }, { QStringLiteral("file"), document.path() },
        { QStringLiteral("panel"), NamedObjects::panelLabel(view, panel) },
        { QStringLiteral("panelId"), panel.id().toString() },
        { QStringLiteral("layers"), entries } };
    if (arguments.isSet(QStringLiteral("--json")))
        Console::outJson(answer);
    else
        Console::out(table(answer));
    return ExitStatus::Success;
}
