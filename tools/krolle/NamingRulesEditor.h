// Reads and changes a project's naming rules by the keys of "krolle rules".
#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

class KRC_NamingRules;
class TextTable;

// Speaks to one KRC_NamingRules record in KEY=VALUE words. The keys are the
// record's own: "overloadingPref", "autoShowTotal", "enabledAct", and
// "<object>.<rule>" with object sequence, shot or panel and rule one of
// automaticLeadingZeros, numberOfZeros, allowCustomName, autoIncrementRule,
// autoIncrementValue, nameSuffixDelimiter, nameSuffixType, smartNameOnDrop,
// resetNameOnNewParent. Values are true/false for switches, whole numbers, or
// the names shown by describe() (numeric, alpha, alpha-z-prefix,
// alpha-z-repeat, by-n; none, underscore, dot; none, number, upper, lower).
//
// Every value shown is the one in force: the record's while it overrides the
// preferences, the preferences' otherwise (the record's getters decide).
// Setting a value turns the override on; the values in force are first copied
// into the record, so that nothing but the values set changes meaning.
// "overloadingPref=false" turns it back off. A bad key or value is a usage
// error (ToolError, exit status 64), and then nothing has been changed.
class NamingRulesEditor
{
public:
    explicit NamingRulesEditor(KRC_NamingRules& rules);

    void apply(const QStringList& settings);

    // The rules in force, as an aligned table and as the "rules" JSON object.
    TextTable table() const;
    QJsonObject json() const;
    // "the project's record" or "the preferences".
    QString source() const;

    // Every key that apply() accepts, for the help text.
    static QStringList keys();

private:
    void overrideWithValuesInForce();

    KRC_NamingRules& m_rules;
};
