#include "CheckCommand.h"

#include "Console.h"
#include "NamedObjects.h"
#include "ProjectDocument.h"
#include "ProjectSummary.h"
#include "RuleWording.h"
#include "Wording.h"

#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_SceneInfo.h"
#include "naming/KRC_NameHelper.h"
#include "naming/KRC_NamingRules.h"
#include "project/KRC_KrolleProject.h"

#include <QJsonArray>
#include <QMap>
#include <QPair>

namespace {

const int kSchemaVersion = 1;

// What check found, in the order found.
class Findings
{
public:
    void add(const char* kind, const QString& message)
    {
        m_list.append(QJsonObject {
            { QStringLiteral("kind"), QLatin1String(kind) }, { QStringLiteral("message"), message } });
    }
    const QJsonArray& list() const { return m_list; }

private:
    QJsonArray m_list;
};

// Rules that would stop the name arithmetic: answers whether the shot rules can still be asked.
bool checkRules(const KRC_NamingRules& rules, Findings& findings)
{
    const QPair<const char*, const KRC_NamingRules::ObjRules*> objects[]
        = { { "sequence", &rules.sequenceRules() }, { "shot", &rules.shotRules() },
              { "panel", &rules.panelRules() } };
    bool shotsUsable = true;
    for (const auto& object : objects) {
        const KRC_NamingRules::ObjRules& r = *object.second;
        const QString what = QLatin1String(object.first);
        const QString why = RuleWording::whyUnusable(r, what);
        const bool usable = why.isNull();
        if (!usable)
            findings.add("rules", why);
        if (r.numberOfZeros() < 0)
            findings.add("rules",
                QStringLiteral("the %1 naming rules pad names to a negative width (%2)")
                    .arg(what, QString::number(r.numberOfZeros())));
        if (object.second == &rules.shotRules())
            shotsUsable = usable;
    }
    return shotsUsable;
}

// Remembers the first holder of each name and reports the later ones.
class NameRegister
{
public:
    // Returns the label of the first holder when the key is taken; null otherwise (and takes it).
    QString claim(const QString& key, const QString& label)
    {
        const auto found = m_holders.constFind(key);
        if (found != m_holders.constEnd())
            return found.value();
        m_holders.insert(key, label);
        return QString();
    }

private:
    QMap<QString, QString> m_holders;
};

// A record that is missing or holds what no name can be.
template <typename Info>
void addRecordFinding(const Info* info, const QString& label, Findings& findings)
{
    if (!info)
        findings.add("record", QStringLiteral("%1: it has no info record, so its name and fields are not kept").arg(label));
    else if (!info->isValid())
        findings.add("record", QStringLiteral("%1: its info record holds an empty custom name").arg(label));
}

void checkPanels(
    const KRC_KrolleProject& view, const Krolle::Shot_t& shot, Findings& findings, unsigned& panels)
{
    NameRegister names;
    for (auto panel = view.beginPanel(shot), end = view.endPanel(shot); panel != end; ++panel, ++panels) {
        const QString label = NamedObjects::panelLabel(view, *panel);
        addRecordFinding(panel->panelInfo(), label, findings);
        const QString first = names.claim(panel->name(), label);
        if (!first.isNull())
            findings.add("duplicate", QStringLiteral("%1: the name is also used by %2").arg(label, first));
    }
}

// A custom act or sequence name that comes back after a run of another name.
void checkRun(const char* what, const QString& name, bool custom, const QString& shotLabel,
    NameRegister& runs, Findings& findings)
{
    if (!custom)
        return;
    const QString first = runs.claim(name, shotLabel);
    if (!first.isNull())
        findings.add("duplicate",
            QStringLiteral("the %1 \"%2\" starting at %3 is separate from the %1 of the same "
                           "name starting at %4")
                .arg(QLatin1String(what), name, shotLabel, first));
}

} // namespace

CheckCommand::CheckCommand()
    : Command(QStringLiteral("check"),
        QStringLiteral("report invalid records, names off the rules, names used twice"))
{
    ArgumentParser& parser = declare();
    parser.addPositional(QStringLiteral("FILE"), QStringLiteral("project file to check"));
    parser.addFlag(QStringLiteral("--json"), QStringLiteral("print one JSON document (see docs/tool.md)"));
    parser.setEpilogue(QStringLiteral("Exit status 0 when nothing was found, 1 when something was."));
}

ExitStatus CheckCommand::run(const ArgumentValues& arguments)
{
    ProjectDocument document;
    document.open(arguments.positional(QStringLiteral("FILE")));
    const KRC_KrolleProject& view = document.view();
    Findings findings;
    const KRC_NamingRules* rules = view.namingRules();
    const bool shotRulesUsable = rules && checkRules(*rules, findings);

    NameRegister shotNames;
    NameRegister acts;
    NameRegister sequences;
    unsigned shots = 0;
    unsigned panels = 0;
    for (Krolle::Shot_t shot = view.first(Krolle::Shot_t::invalid); shot.isValid();
         shot = view.next(shot), ++shots) {
        const QString label = NamedObjects::shotLabel(view, shot);
        const KRC_SceneInfo* info = shot.sceneInfo();
        addRecordFinding(info, label, findings);
        const bool custom = info && info->name().isCustom();
        if (custom && shotRulesUsable && RuleWording::usableForNaming(view, shot)
            && !view.nameHelper()->shotNameFollowsRules(shot.id()))
            findings.add("naming",
                QStringLiteral("%1: the name does not follow the shot naming rules: %2")
                    .arg(label, RuleWording::expectedShotName(view, shot)));
        const QString first = shotNames.claim(shot.sequenceName() + QLatin1Char('\n') + shot.name(), label);
        if (!first.isNull())
            findings.add("duplicate",
                QStringLiteral("%1: the name is also used by %2 in the same sequence").arg(label, first));
        if (!view.hasMoreKRSceneInCurKRAct(shot, false))
            checkRun("act", shot.actName(), info && info->actName().isCustom(), label, acts, findings);
        if (view.sequenceExists() && !view.hasMoreKRSceneInCurKRSequence(shot, false))
            checkRun("sequence", shot.sequenceName(), info && info->sequenceName().isCustom(), label,
                sequences, findings);
        checkPanels(view, shot, findings, panels);
    }

    const QJsonArray& found = findings.list();
    if (arguments.isSet(QStringLiteral("--json"))) {
        Console::outJson(QJsonObject { { QStringLiteral("krolle"), QStringLiteral("check") },
            { QStringLiteral("schema"), kSchemaVersion }, { QStringLiteral("file"), document.path() },
            { QStringLiteral("counts"), ProjectSummary(view).json() },
            { QStringLiteral("findings"), found } });
    } else {
        QString text;
        for (const QJsonValue& finding : found)
            text += QStringLiteral("%1: %2\n")
                        .arg(document.path(), finding.toObject().value(QStringLiteral("message")).toString());
        text
            += QStringLiteral("%1: %2 in %3 and %4\n")
                   .arg(document.path(),
                       found.isEmpty() ? QStringLiteral("no findings")
                                       : Wording::counted(found.size(), "finding", "findings"),
                       Wording::counted(shots, "shot", "shots"), Wording::counted(panels, "panel", "panels"));
        Console::out(text);
    }
    return found.isEmpty() ? ExitStatus::Success : ExitStatus::Findings;
}
