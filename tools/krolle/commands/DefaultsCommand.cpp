#include "DefaultsCommand.h"

#include "Console.h"
#include "TextTable.h"

#include "host/prefs/HostPrefs.h"
#include "layers/KRC_PanelLayerManager.h"

#include <QJsonArray>

namespace {

const int kSchemaVersion = 1;
using LayerInfo = KRC_PanelLayerManager::LayerInfo;

QJsonObject layerJson(const LayerInfo& layer)
{
    return QJsonObject { { QStringLiteral("name"), layer.name }, { QStringLiteral("locked"), layer.locked },
        { QStringLiteral("enabled"), layer.enabled }, { QStringLiteral("current"), layer.current },
        { QStringLiteral("selected"), layer.selected }, { QStringLiteral("layerFlags"), layer.layerFlags },
        { QStringLiteral("exportFlags"), layer.exportFlags }, { QStringLiteral("opacity"), layer.opacity },
        { QStringLiteral("cameraAlignment"), static_cast<int>(layer.cameraAlignment) } };
}

QString yesNo(const QJsonObject& layer, const char* key)
{
    return layer.value(QLatin1String(key)).toBool() ? QStringLiteral("yes") : QStringLiteral("no");
}

QString number(const QJsonObject& layer, const char* key)
{
    return QString::number(layer.value(QLatin1String(key)).toDouble());
}

QString table(const QJsonObject& answer)
{
    const QJsonArray layers = answer.value(QStringLiteral("layers")).toArray();
    QString text = QStringLiteral("default layers (%1): %2\n\n")
                       .arg(answer.value(QStringLiteral("source")).toString())
                       .arg(layers.size());
    TextTable rows;
    rows.setHeader({ QStringLiteral("name"), QStringLiteral("locked"), QStringLiteral("enabled"),
        QStringLiteral("current"), QStringLiteral("selected"), QStringLiteral("layer flags"),
        QStringLiteral("export flags"), QStringLiteral("opacity"), QStringLiteral("alignment") });
    for (int column = 5; column <= 8; ++column)
        rows.setAlignment(column, TextTable::Align::Right);
    for (const QJsonValue& value : layers) {
        const QJsonObject layer = value.toObject();
        rows.addRow({ layer.value(QStringLiteral("name")).toString(), yesNo(layer, "locked"),
            yesNo(layer, "enabled"), yesNo(layer, "current"), yesNo(layer, "selected"), number(layer, "layerFlags"),
            number(layer, "exportFlags"), number(layer, "opacity"), number(layer, "cameraAlignment") });
    }
    return text + rows.toString();
}

} // namespace

DefaultsCommand::DefaultsCommand()
    : Command(QStringLiteral("defaults"), QStringLiteral("show the default layers of new panels"))
{
    ArgumentParser& parser = declare();
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("print one JSON document (see docs/tool.md)"));
    parser.setEpilogue(QStringLiteral(
        "The default layers come from DEFAULT_LAYERS in the preference file named by\n"
        "KROLLE_PREFERENCES; without one, new panels get the layers A and BG.\n"
        "\n"
        "example: KROLLE_PREFERENCES=prefs.txt krolle defaults"));
}

ExitStatus DefaultsCommand::run(const ArgumentValues& arguments)
{
    const QString stored = tuPref ? tuPref->getStringValue(QStringLiteral("DEFAULT_LAYERS"), QString()) : QString();
    QJsonArray entries;
    for (const LayerInfo& layer : KRC_PanelLayerManager::defaultLayersFromText(stored))
        entries.append(layerJson(layer));
    const QJsonObject answer { { QStringLiteral("krolle"), QStringLiteral("defaults") },
        { QStringLiteral("schema"), kSchemaVersion },
        { QStringLiteral("source"), stored.isEmpty() ? QStringLiteral("built-in") : QStringLiteral("preferences") },
        { QStringLiteral("layers"), entries } };
    if (arguments.isSet(QStringLiteral("--json")))
        Console::outJson(answer);
    else
        Console::out(table(answer));
    return ExitStatus::Success;
}
