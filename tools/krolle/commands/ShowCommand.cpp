#include "ShowCommand.h"

#include "ChosenObject.h"
#include "Console.h"
#include "ObjectJson.h"
#include "ProjectDocument.h"
#include "TextTable.h"

#include "layers/KRC_PanelLayerManager.h"
#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_SceneInfo.h"
#include "naming/KRC_ObjectName.h"
#include "project/KRC_KrolleProject.h"

#include <QJsonArray>

namespace {

const int kSchemaVersion = 1;
const int kKinds = ChosenObject::Shot | ChosenObject::Panel | ChosenObject::Transition;

QJsonObject nameJson(const QString& value, const KRC_ObjectName& stored)
{
    return QJsonObject { { QStringLiteral("value"), value }, { QStringLiteral("custom"), stored.isCustom() },
        { QStringLiteral("locked"), stored.isLocked() } };
}

// The records of a scene, in the order the engine keeps them, each with its dump.
QJsonArray recordsOf(TUScene* scene)
{
    QJsonArray records;
    if (!scene)
        return records;
    for (PIO_Metadata* record : *scene->metadatas()) {
        QString dump;
        record->dumpToString(dump);
        // The first line repeats type, name, creator and version.
        QStringList lines = dump.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        if (!lines.isEmpty())
            lines.removeFirst();
        records.append(QJsonObject { { QStringLiteral("type"), record->metaType() },
            { QStringLiteral("name"), record->metaName() }, { QStringLiteral("version"), record->version() },
            { QStringLiteral("values"), lines.join(QLatin1Char('\n')) } });
    }
    return records;
}

void addShotFacts(const KRC_KrolleProject& view, const Krolle::Shot_t& shot, QJsonObject& answer)
{
    const KRC_SceneInfo* info = shot.sceneInfo();
    answer.insert(QStringLiteral("names"),
        QJsonObject { { QStringLiteral("name"), nameJson(shot.name(), info->name()) },
            { QStringLiteral("sequence"), nameJson(shot.sequenceName(), info->sequenceName()) },
            { QStringLiteral("act"), nameJson(shot.actName(), info->actName()) } });
    answer.insert(QStringLiteral("panels"), static_cast<int>(view.panelCount(shot)));
    answer.insert(QStringLiteral("records"), recordsOf(shot.symbol()));
}

void addPanelFacts(const KRC_KrolleProject& view, const ObjectJson& objects, const Krolle::Panel_t& panel,
    QJsonObject& answer)
{
    answer.insert(QStringLiteral("names"),
        QJsonObject { { QStringLiteral("name"), nameJson(panel.name(), panel.panelInfo()->name()) } });
    answer.insert(QStringLiteral("shot"), objects.shot(panel.shot()));
    answer.insert(QStringLiteral("shotFrames"),
        QStringLiteral("%1-%2").arg(panel.relativeFirstFrame()).arg(panel.relativeLastFrame()));
    std::vector<MO_Node*> layers;
    view.layerManager()->getLayers(panel.symbol(), layers);
    answer.insert(QStringLiteral("layers"), static_cast<int>(layers.size()));
    answer.insert(QStringLiteral("records"), recordsOf(panel.symbol()));
}

QString flagged(const QJsonObject& name)
{
    QStringList flags { name.value(QStringLiteral("custom")).toBool() ? QStringLiteral("custom")
                                                                      : QStringLiteral("automatic") };
    if (name.value(QStringLiteral("locked")).toBool())
        flags << QStringLiteral("locked");
    return QStringLiteral("%1 (%2)").arg(name.value(QStringLiteral("value")).toString(), flags.join(QStringLiteral(", ")));
}

QString text(const QJsonValue& value)
{
    if (value.isString())
        return value.toString();
    if (value.isBool())
        return value.toBool() ? QStringLiteral("yes") : QStringLiteral("no");
    if (value.isNull())
        return QStringLiteral("-");
    return QString::number(value.toDouble(), 'g', 16);
}

QString table(const QJsonObject& answer)
{
    const QJsonObject object = answer.value(QStringLiteral("object")).toObject();
    TextTable rows;
    rows.addRow({ QStringLiteral("id"), object.value(QStringLiteral("id")).toString() });
    rows.addRow({ QStringLiteral("number"), text(object.value(QStringLiteral("number"))) });
    const QJsonObject names = answer.value(QStringLiteral("names")).toObject();
    for (const char* key : { "name", "sequence", "act" }) {
        if (names.contains(QLatin1String(key)))
            rows.addRow({ QLatin1String(key), flagged(names.value(QLatin1String(key)).toObject()) });
    }
    if (!names.contains(QStringLiteral("name")))
        rows.addRow({ QStringLiteral("name"), object.value(QStringLiteral("name")).toString() });
    rows.addRow({ QStringLiteral("frames"),
        QStringLiteral("%1-%2 (%3)")
            .arg(text(object.value(QStringLiteral("firstFrame"))), text(object.value(QStringLiteral("lastFrame"))),
                text(object.value(QStringLiteral("length")))) });
    for (const char* key : { "shotFrames", "panels", "layers" }) {
        if (answer.contains(QLatin1String(key)))
            rows.addRow({ QLatin1String(key), text(answer.value(QLatin1String(key))) });
    }
    for (const char* key : { "type", "angle", "reverse", "afterShot", "beforeShot" }) {
        if (object.contains(QLatin1String(key)))
            rows.addRow({ QLatin1String(key), text(object.value(QLatin1String(key))) });
    }
    for (const QJsonValue& value : answer.value(QStringLiteral("records")).toArray()) {
        const QJsonObject record = value.toObject();
        rows.addRow({ QStringLiteral("record ") + record.value(QStringLiteral("type")).toString(),
            record.value(QStringLiteral("values")).toString().replace(QLatin1Char('\n'), QLatin1String("; ")) });
    }
    return QStringLiteral("%1, %2\n\n").arg(answer.value(QStringLiteral("file")).toString(),
               answer.value(QStringLiteral("label")).toString())
        + rows.toString();
}

} // namespace

ShowCommand::ShowCommand()
    : Command(QStringLiteral("show"), QStringLiteral("show everything known of one shot, panel or transition"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to read"));
    ChosenObject::declare(parser, QStringLiteral("show"), kKinds);
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("print one JSON document (see docs/tool.md)"));
    parser.setEpilogue(QStringLiteral("examples: krolle show demo.xml --shot SH030\n"
                                      "          krolle show demo.xml --panel '#5/3' --json"));
}

ExitStatus ShowCommand::run(const ArgumentValues& arguments)
{
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")));
    const KRC_KrolleProject& view = document.view();
    const ChosenObject chosen = ChosenObject::read(view, arguments, kKinds);
    const ObjectJson objects(view, Timecode());
    QJsonObject answer { { QStringLiteral("krolle"), QStringLiteral("show") },
        { QStringLiteral("schema"), kSchemaVersion }, { QStringLiteral("file"), document.path() },
        { QStringLiteral("kind"), chosen.kindName() }, { QStringLiteral("label"), chosen.label(view) },
        { QStringLiteral("object"), chosen.json(objects) } };
    if (chosen.kind() == ChosenObject::Shot)
        addShotFacts(view, chosen.shot(), answer);
    else if (chosen.kind() == ChosenObject::Panel)
        addPanelFacts(view, objects, chosen.panel(), answer);
    if (arguments.isSet(QStringLiteral("--json")))
        Console::outJson(answer);
    else
        Console::out(table(answer));
    return ExitStatus::Success;
}
