#include "RuleWording.h"

#include "metadata/KRC_SceneInfo.h"
#include "naming/KRC_NameHelper.h"
#include "project/KRC_KrolleProject.h"

namespace {

bool hasRecord(const Krolle::Shot_t& shot)
{
    return shot.isInvalid() || shot.sceneInfo();
}

const KRC_ObjectName* storedName(const Krolle::Shot_t& shot)
{
    return shot.isValid() ? &shot.sceneInfo()->name() : nullptr;
}

} // namespace

bool RuleWording::usableForNaming(const KRC_KrolleProject& view, const Krolle::Shot_t& shot)
{
    return shot.sceneInfo() && hasRecord(view.prev(shot)) && hasRecord(view.next(shot));
}

QString RuleWording::expectedShotName(const KRC_KrolleProject& view, const Krolle::Shot_t& shot)
{
    if (!view.namingRules())
        return QStringLiteral("the project has no naming rules");
    const Krolle::Shot_t prev = view.prev(shot);
    const Krolle::Shot_t next = view.next(shot);
    const QString expected
        = KRC_NameHelper::getPreferedNewObjName(view.namingRules()->shotRules(), storedName(prev), storedName(next));
    if (expected.isEmpty())
        return QStringLiteral("the rules propose no name there");
    QString text = QStringLiteral("expected %1").arg(expected);
    if (prev.isValid() && next.isValid())
        return text + QStringLiteral(" between %1 and %2").arg(prev.name(), next.name());
    if (prev.isValid())
        return text + QStringLiteral(" after %1").arg(prev.name());
    if (next.isValid())
        return text + QStringLiteral(" before %1").arg(next.name());
    return text;
}

QString RuleWording::whyUnusable(const KRC_NamingRules::ObjRules& rules, const QString& what)
{
    if (rules.autoIncrementRule() < KRC_NamingRules::Rule_Numeric || rules.autoIncrementRule() > KRC_NamingRules::Rule_ByN)
        return QStringLiteral("the %1 naming rules count by rule %2, which does not exist")
            .arg(what, QString::number(rules.autoIncrementRule()));
    if (rules.autoIncrementRule() == KRC_NamingRules::Rule_ByN && rules.autoIncrementValue() <= 0)
        return QStringLiteral("the %1 naming rules count by steps of %2, which makes no names")
            .arg(what, QString::number(rules.autoIncrementValue()));
    return QString();
}
