#include "RenameCommand.h"

#include "ChosenObject.h"
#include "NameWriter.h"
#include "ObjectJson.h"
#include "ProjectDocument.h"

#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_SceneInfo.h"
#include "naming/KRC_NameHelper.h"
#include "naming/KRC_NamingRules.h"
#include "naming/KRC_ObjectName.h"
#include "project/KRC_KrolleProject.h"

#include <QJsonArray>

#include <vector>

namespace {

const int kKinds = ChosenObject::Shot | ChosenObject::Panel;
const QString kSequence = QStringLiteral("--sequence");
const QString kAct = QStringLiteral("--act");
const QString kTo = QStringLiteral("--to");
const QString kAuto = QStringLiteral("--auto");

// A run of neighbouring shots with one act or sequence name.
struct Run
{
    unsigned number;
    QString name;
    std::vector<SC_Id> shots;
};

std::vector<Run> runsOf(const KRC_KrolleProject& view, bool acts)
{
    std::vector<Run> runs;
    for (auto shot = view.beginShot(), end = view.endShot(); shot != end; ++shot) {
        const bool starts = acts ? !view.hasMoreKRSceneInCurKRAct(*shot, false)
                                 : !view.hasMoreKRSceneInCurKRSequence(*shot, false);
        if (starts || runs.empty())
            runs.push_back(Run { unsigned(runs.size() + 1), acts ? shot->actName() : shot->sequenceName(), {} });
        runs.back().shots.push_back(shot->id());
    }
    return runs;
}

// The run named by "#n" or by its name, which one run only may carry.
Run findRun(const KRC_KrolleProject& view, bool acts, const QString& address)
{
    const char* what = acts ? "act" : "sequence";
    if (!acts && !view.sequenceExists())
        throw ToolError::failure(QStringLiteral("the project has no sequences"));
    const std::vector<Run> runs = runsOf(view, acts);
    std::vector<Run> found;
    for (const Run& run : runs) {
        if (address == QStringLiteral("#%1").arg(run.number) || run.name == address)
            found.push_back(run);
    }
    if (found.empty())
        throw ToolError::failure(QStringLiteral("no %1 is named \"%2\"").arg(QLatin1String(what), address));
    if (found.size() > 1) {
        QStringList candidates;
        for (const Run& run : found)
            candidates << QStringLiteral("%1 %2 (#%2, %3 shots)")
                              .arg(QLatin1String(what), QString::number(run.number), QString::number(run.shots.size()));
        throw ToolError::failure(QStringLiteral("the %1 name \"%2\" is ambiguous: %3; name one by its number")
                                     .arg(QLatin1String(what), address, candidates.join(QStringLiteral(", "))));
    }
    return found.front();
}

// The new name: the text of --to, or null for --auto.
QString wantedName(const ArgumentValues& arguments)
{
    if (arguments.exactlyOne({ kTo, kAuto }) == kAuto)
        return QString();
    const QString name = arguments.value(kTo);
    if (name.isEmpty())
        throw ToolError::usage(QStringLiteral("--to needs a name that is not empty; --auto gives the automatic one"));
    return name;
}

// The rules that say whether a user may name this kind of object; acts have none, so
// their names are always the user's to give.
const KRC_NamingRules::ObjRules* rulesFor(const KRC_KrolleProject& view, const QString& kind)
{
    const KRC_NamingRules* rules = view.namingRules();
    if (!rules || kind == QLatin1String("act"))
        return nullptr;
    if (kind == QLatin1String("sequence"))
        return &rules->sequenceRules();
    return kind == QLatin1String("shot") ? &rules->shotRules() : &rules->panelRules();
}

// Refuses a name the object may not take: any name when it is locked, a custom one when
// the project's rules keep that kind of object to automatic names.
void checkNamable(const KRC_KrolleProject& view, const QString& kind, const KRC_ObjectName& stored,
    const QString& wanted, const QString& label, const QString& file)
{
    if (stored.isLocked())
        throw ToolError::failure(QStringLiteral("the name of %1 in %2 is locked").arg(label, file));
    const KRC_NamingRules::ObjRules* rules = rulesFor(view, kind);
    if (!wanted.isNull() && rules && !KRC_NameHelper::canModifyName(*rules, stored))
        throw ToolError::failure(
            QStringLiteral("the naming rules of %1 allow no custom %2 name (%2.allowCustomName is false), "
                           "so %3 can only take its automatic name, with --auto")
                .arg(file, kind, label));
}

void writeName(const KRC_KrolleProject& view, KRC_ObjInfo& record, KRC_ObjectName& stored, const QString& name)
{
    NameWriter::set(stored, name);
    NameWriter::announce(record, view.changeManager());
}

QString sentence(const QString& label, const QString& wanted, const QString& after)
{
    if (wanted.isNull())
        return QStringLiteral("gave %1 its automatic name \"%2\"").arg(label, after);
    return QStringLiteral("renamed %1 to \"%2\"").arg(label, after);
}

EditCommand::Outcome renameRun(
    KRC_KrolleProject& view, bool acts, const QString& address, const QString& wanted, const QString& file)
{
    const Run run = findRun(view, acts, address);
    const QString kind = acts ? QStringLiteral("act") : QStringLiteral("sequence");
    const QString label = QStringLiteral("%1 %2 \"%3\"").arg(kind, QString::number(run.number), run.name);
    auto storedName = [acts](KRC_SceneInfo& info) -> KRC_ObjectName& {
        return acts ? info.actName() : info.sequenceName();
    };
    const std::size_t runsBefore = runsOf(view, acts).size();
    // Every shot of the run is checked before any is written, so a refusal changes nothing.
    for (const SC_Id& id : run.shots)
        checkNamable(view, kind, storedName(*view.getShotByID(id).sceneInfo()), wanted, label, file);
    for (const SC_Id& id : run.shots) {
        KRC_SceneInfo* info = view.getShotByID(id).sceneInfo();
        writeName(view, *info, storedName(*info), wanted);
    }
    view.changeManager()->notify();
    const Krolle::Shot_t first = view.getShotByID(run.shots.front());
    const QString after = acts ? first.actName() : first.sequenceName();
    // Runs are told apart by their names: a neighbour with the automatic name would swallow
    // this one unasked (a name given with --to is the user's choice). Nothing is saved after
    // a refusal, so the file keeps both.
    if (wanted.isNull() && runsOf(view, acts).size() != runsBefore)
        throw ToolError::failure(
            QStringLiteral("%1 cannot take the name \"%2\" in %3: a neighbouring %4 has it, and the two would become one")
                .arg(label, after, file, kind));
    QJsonArray shots;
    for (const SC_Id& id : run.shots)
        shots.append(id.toString());
    return { sentence(label, wanted, after),
        QJsonObject { { QStringLiteral("kind"), acts ? QStringLiteral("act") : QStringLiteral("sequence") },
            { QStringLiteral("before"), run.name }, { QStringLiteral("after"), after },
            { QStringLiteral("object"),
                QJsonObject { { QStringLiteral("number"), static_cast<int>(run.number) },
                    { QStringLiteral("name"), after }, { QStringLiteral("shots"), shots } } } } };
}

} // namespace

RenameCommand::RenameCommand()
    : EditCommand(QStringLiteral("rename"),
        QStringLiteral("give a shot, panel, sequence or act a custom name, or its automatic one back"))
{
    ArgumentParser& parser = declare();
    ChosenObject::declare(parser, QStringLiteral("rename"), kKinds);
    parser.addOption(kSequence, QStringLiteral("SEQUENCE"), QStringLiteral("rename this sequence: its name or #number"));
    parser.addOption(kAct, QStringLiteral("ACT"), QStringLiteral("rename this act: its name or #number"));
    parser.addOption(kTo, QStringLiteral("NAME"), QStringLiteral("the new custom name"));
    parser.addFlag(kAuto, QStringLiteral("go back to the automatic name"));
    parser.setEpilogue(QStringLiteral(
        "A sequence or an act is renamed in every shot of its run. Automatic names that move\n"
        "because of the new name are listed.\n"
        "\n"
        "example: krolle rename demo.xml --shot SH030 --to SH025"));
}

EditCommand::Outcome RenameCommand::edit(ProjectDocument& document, const ArgumentValues& arguments)
{
    KRC_KrolleProject& view = document.view();
    const QString wanted = wantedName(arguments);
    const QString option = arguments.exactlyOne({ QStringLiteral("--shot"), QStringLiteral("--panel"), kSequence, kAct });
    if (option == kSequence || option == kAct)
        return renameRun(view, option == kAct, arguments.value(option), wanted, document.path());

    const ChosenObject chosen = ChosenObject::read(view, arguments, kKinds);
    const QString label = chosen.label(view);
    const QString before = chosen.kind() == ChosenObject::Shot ? chosen.shot().name() : chosen.panel().name();
    KRC_ObjInfo* record = chosen.kind() == ChosenObject::Shot ? static_cast<KRC_ObjInfo*>(chosen.shot().sceneInfo())
                                                              : chosen.panel().panelInfo();
    checkNamable(view, chosen.kindName(), record->name(), wanted, label, document.path());
    writeName(view, *record, record->name(), wanted);
    document.notify();
    const ChosenObject renamed = chosen.again(view);
    const QString after = renamed.kind() == ChosenObject::Shot ? renamed.shot().name() : renamed.panel().name();
    return { sentence(label, wanted, after),
        QJsonObject { { QStringLiteral("kind"), chosen.kindName() }, { QStringLiteral("before"), before },
            { QStringLiteral("after"), after }, { QStringLiteral("object"), renamed.json(ObjectJson(view, Timecode())) } } };
}

void RenameCommand::checkUsage(const ArgumentValues& arguments) const
{
    wantedName(arguments);
}
