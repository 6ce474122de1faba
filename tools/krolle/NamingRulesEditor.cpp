#include "NamingRulesEditor.h"

#include "TextTable.h"
#include "ToolError.h"

#include "naming/KRC_NamingRules.h"

#include <QVector>
#include <functional>

namespace {

using ObjRules = KRC_NamingRules::ObjRules;

// Named values of the enumerated rules, by their stored number.
const QStringList kRuleNames { QStringLiteral("numeric"), QStringLiteral("alpha"),
    QStringLiteral("alpha-z-prefix"), QStringLiteral("alpha-z-repeat"), QStringLiteral("by-n") };
const QStringList kDelimiterNames { QStringLiteral("none"), QStringLiteral("underscore"),
    QStringLiteral("dot") };
const QStringList kSuffixNames { QStringLiteral("none"), QStringLiteral("number"), QStringLiteral("upper"),
    QStringLiteral("lower") };
const QStringList kSwitchNames { QStringLiteral("false"), QStringLiteral("true") };

const int kMostZeros = 32;
const int kLargestStep = 1000000;

// One rule of an object: how it reads, how it is set, what values it takes.
// Numbers stand for every kind: switches are 0 and 1, enumerations their codes.
struct Field
{
    const char* key;
    std::function<int(const ObjRules&)> get;
    std::function<void(ObjRules&, int)> set;
    QStringList names; // names of the values 0, 1, ...; empty for plain numbers
    int min;
    int max;
};

const QVector<Field>& fields()
{
    static const QVector<Field> table {
        { "automaticLeadingZeros", [](const ObjRules& r) { return int(r.automaticLeadingZeros()); },
            [](ObjRules& r, int v) { r.setAutomaticLeadingZeros(v != 0); }, kSwitchNames, 0, 1 },
        { "numberOfZeros", [](const ObjRules& r) { return r.numberOfZeros(); },
            [](ObjRules& r, int v) { r.setNumberOfZeros(v); }, {}, 0, kMostZeros },
        { "allowCustomName", [](const ObjRules& r) { return int(r.allowCustomName()); },
            [](ObjRules& r, int v) { r.setAllowCustomName(v != 0); }, kSwitchNames, 0, 1 },
        { "autoIncrementRule", [](const ObjRules& r) { return int(r.autoIncrementRule()); },
            [](ObjRules& r, int v) { r.setAutoIncrementRule(KRC_NamingRules::NameRule_t(v)); }, kRuleNames, 0,
            4 },
        // A step of 0 would divide by zero in the by-n proposals: it is never stored.
        { "autoIncrementValue", [](const ObjRules& r) { return r.autoIncrementValue(); },
            [](ObjRules& r, int v) { r.setAutoIncrementValue(v); }, {}, 1, kLargestStep },
        { "nameSuffixDelimiter", [](const ObjRules& r) { return int(r.nameSuffixDelimiter()); },
            [](ObjRules& r, int v) { r.setNameSuffixDelimiter(KRC_NamingRules::Delimiter_t(v)); },
            kDelimiterNames, 0, 2 },
        { "nameSuffixType", [](const ObjRules& r) { return int(r.nameSuffixType()); },
            [](ObjRules& r, int v) { r.setNameSuffixType(KRC_NamingRules::SuffixType_t(v)); }, kSuffixNames,
            0, 3 },
        { "smartNameOnDrop", [](const ObjRules& r) { return int(r.smartNameOnDrop()); },
            [](ObjRules& r, int v) { r.setSmartNameOnDrop(v != 0); }, kSwitchNames, 0, 1 },
        { "resetNameOnNewParent", [](const ObjRules& r) { return int(r.resetNameOnNewParent()); },
            [](ObjRules& r, int v) { r.setResetNameOnNewParent(v != 0); }, kSwitchNames, 0, 1 },
    };
    return table;
}

const QStringList kObjects { QStringLiteral("sequence"), QStringLiteral("shot"), QStringLiteral("panel") };
const QString kOverride = QStringLiteral("overloadingPref");
const QString kShowTotal = QStringLiteral("autoShowTotal");
const QString kEnabledAct = QStringLiteral("enabledAct");

ObjRules& rulesOf(KRC_NamingRules& rules, const QString& object)
{
    if (object == kObjects.at(0))
        return rules.sequenceRules();
    return object == kObjects.at(1) ? rules.shotRules() : rules.panelRules();
}

const Field* findField(const QString& key)
{
    for (const Field& field : fields()) {
        if (key == QLatin1String(field.key))
            return &field;
    }
    return nullptr;
}

QString display(const Field& field, int value)
{
    return value >= 0 && value < field.names.size() ? field.names.at(value) : QString::number(value);
}

// A value in words or digits, checked against the field's range.
int parseValue(const QString& key, const QString& text, const QStringList& names, int min, int max)
{
    static const QStringList kYes { QStringLiteral("yes"), QStringLiteral("on") };
    static const QStringList kNo { QStringLiteral("no"), QStringLiteral("off") };
    int value = names.indexOf(text.toLower());
    if (value < 0 && names == kSwitchNames)
        value = kYes.contains(text.toLower()) ? 1 : kNo.contains(text.toLower()) ? 0 : -1;
    if (value < 0) {
        bool ok = false;
        value = text.toInt(&ok);
        if (!ok)
            value = min - 1;
    }
    if (value < min || value > max) {
        const QString accepted = names.isEmpty()
            ? QStringLiteral("a whole number from %1 to %2").arg(min).arg(max)
            : QStringLiteral("one of %1 (or %2 to %3)")
                  .arg(names.join(QStringLiteral(", ")))
                  .arg(min)
                  .arg(max);
        throw ToolError::usage(QStringLiteral("%1 takes %2, not '%3'").arg(key, accepted, text));
    }
    return value;
}

struct Setting
{
    QString key;
    int value;
};

Setting parseSetting(const QString& word)
{
    const int equals = word.indexOf(QLatin1Char('='));
    if (equals <= 0)
        throw ToolError::usage(QStringLiteral("'%1' is not of the form KEY=VALUE").arg(word));
    const QString key = word.left(equals);
    const QString text = word.mid(equals + 1);
    if (key == kOverride || key == kShowTotal || key == kEnabledAct)
        return { key, parseValue(key, text, kSwitchNames, 0, 1) };
    const QString object = key.section(QLatin1Char('.'), 0, 0);
    const Field* field = findField(key.section(QLatin1Char('.'), 1));
    if (!kObjects.contains(object) || key.count(QLatin1Char('.')) != 1 || !field)
        throw ToolError::usage(QStringLiteral("unknown naming rule '%1'").arg(key));
    return { key, parseValue(key, text, field->names, field->min, field->max) };
}

} // namespace

NamingRulesEditor::NamingRulesEditor(KRC_NamingRules& rules)
    : m_rules(rules)
{
}

QStringList NamingRulesEditor::keys()
{
    QStringList all { kOverride, kShowTotal, kEnabledAct };
    for (const QString& object : kObjects) {
        for (const Field& field : fields())
            all << object + QLatin1Char('.') + QLatin1String(field.key);
    }
    return all;
}

void NamingRulesEditor::overrideWithValuesInForce()
{
    if (m_rules.overloadingPref())
        return;
    for (const QString& object : kObjects) {
        ObjRules& rules = rulesOf(m_rules, object);
        for (const Field& field : fields())
            field.set(rules, field.get(rules));
    }
    m_rules.setAutoShowTotal(m_rules.autoShowTotal());
    m_rules.setEnabledAct(m_rules.enabledAct());
    m_rules.setOverloadingPref(true);
}

void NamingRulesEditor::apply(const QStringList& settings)
{
    QVector<Setting> parsed;
    for (const QString& word : settings)
        parsed.append(parseSetting(word));
    overrideWithValuesInForce();
    for (const Setting& setting : parsed) {
        if (setting.key == kOverride)
            m_rules.setOverloadingPref(setting.value != 0);
        else if (setting.key == kShowTotal)
            m_rules.setAutoShowTotal(setting.value != 0);
        else if (setting.key == kEnabledAct)
            m_rules.setEnabledAct(setting.value != 0);
        else
            findField(setting.key.section(QLatin1Char('.'), 1))
                ->set(rulesOf(m_rules, setting.key.section(QLatin1Char('.'), 0, 0)), setting.value);
    }
}

QString NamingRulesEditor::source() const
{
    return m_rules.overloadingPref() ? QStringLiteral("the project's record")
                                     : QStringLiteral("the preferences");
}

TextTable NamingRulesEditor::table() const
{
    TextTable table;
    table.setHeader(QStringList { QStringLiteral("rule") } + kObjects);
    for (const Field& field : fields()) {
        QStringList row { QLatin1String(field.key) };
        for (const QString& object : kObjects)
            row << display(field, field.get(rulesOf(m_rules, object)));
        table.addRow(row);
    }
    table.addRow({ kShowTotal, kSwitchNames.at(m_rules.autoShowTotal()) });
    table.addRow({ kEnabledAct, kSwitchNames.at(m_rules.enabledAct()) });
    return table;
}

QJsonObject NamingRulesEditor::json() const
{
    QJsonObject object;
    object.insert(kOverride, m_rules.overloadingPref());
    object.insert(kShowTotal, m_rules.autoShowTotal());
    object.insert(kEnabledAct, m_rules.enabledAct());
    for (const QString& name : kObjects) {
        QJsonObject values;
        for (const Field& field : fields()) {
            const int value = field.get(rulesOf(m_rules, name));
            if (field.names == kSwitchNames)
                values.insert(QLatin1String(field.key), value != 0);
            else
                values.insert(QLatin1String(field.key), value);
        }
        object.insert(name, values);
    }
    return object;
}
