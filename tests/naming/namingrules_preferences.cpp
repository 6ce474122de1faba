// Naming rules over the preference store: keys, defaults, the override switch,
// the construction snapshot, comparisons and copies.
#include "naming/KRC_NamingRules.h"

#include "support/ScopedPreferences.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using Rules = KRC_NamingRules::ObjRules;

// One stored value of the rules: its getter, setter and preference key.
struct Setting
{
    const char* name;
    const char* key;
    bool isBool;
    std::function<int(const Rules&)> get;
    std::function<void(Rules&, int)> set;
};

std::vector<Setting> const& settings()
{
    static std::vector<Setting> const all = {
        { "automaticLeadingZeros", "ST_%1_NAME_AUTOMATIC_LEADING_ZEROS", true,
            [](const Rules& r) { return int(r.automaticLeadingZeros()); },
            [](Rules& r, int v) { r.setAutomaticLeadingZeros(v != 0); } },
        { "numberOfZeros", "ST_%1_NAME_NUMBER_OF_ZEROS", false,
            [](const Rules& r) { return r.numberOfZeros(); },
            [](Rules& r, int v) { r.setNumberOfZeros(v); } },
        { "allowCustomName", "ST_%1_NAME_ALLOW_CUSTOM", true,
            [](const Rules& r) { return int(r.allowCustomName()); },
            [](Rules& r, int v) { r.setAllowCustomName(v != 0); } },
        { "autoIncrementRule", "ST_%1_NAME_AUTO_INCREMENT_RULE", false,
            [](const Rules& r) { return int(r.autoIncrementRule()); },
            [](Rules& r, int v) { r.setAutoIncrementRule(KRC_NamingRules::NameRule_t(v)); } },
        { "autoIncrementValue", "ST_%1_NAME_INCREMENT_VALUE", false,
            [](const Rules& r) { return r.autoIncrementValue(); },
            [](Rules& r, int v) { r.setAutoIncrementValue(v); } },
        { "nameSuffixDelimiter", "ST_%1_NAME_CONFLICT_DELIMITER", false,
            [](const Rules& r) { return int(r.nameSuffixDelimiter()); },
            [](Rules& r, int v) { r.setNameSuffixDelimiter(KRC_NamingRules::Delimiter_t(v)); } },
        { "nameSuffixType", "ST_%1_NAME_CONFLICT_ADD_TYPE", false,
            [](const Rules& r) { return int(r.nameSuffixType()); },
            [](Rules& r, int v) { r.setNameSuffixType(KRC_NamingRules::SuffixType_t(v)); } },
        { "smartNameOnDrop", "ST_SMART_%1_NAME_ON_DROP", true,
            [](const Rules& r) { return int(r.smartNameOnDrop()); },
            [](Rules& r, int v) { r.setSmartNameOnDrop(v != 0); } },
        { "resetNameOnNewParent", "ST_%1_NAME_RESET_ON_NEW_PARENT", true,
            [](const Rules& r) { return int(r.resetNameOnNewParent()); },
            [](Rules& r, int v) { r.setResetNameOnNewParent(v != 0); } },
    };
    return all;
}

// A value unlike the default of any word, for a setting of this kind.
int unusual(const Setting& s, int current)
{
    return s.isBool ? !current : current + 7;
}

void setPreference(PR_Preference& store, const Setting& s, const QString& word, int value)
{
    const QString key = QString::fromLatin1(s.key).arg(word.toUpper());
    if (s.isBool)
        store.setBoolValue(key, value != 0);
    else
        store.setIntValue(key, value);
}

struct DefaultsRow
{
    const char* word;
    int values[9]; // in the order of settings()
};

class RulesDefaults : public ::testing::TestWithParam<DefaultsRow>
{
};

TEST_P(RulesDefaults, EmptyStoreAndNoStoreAnswerTheTable)
{
    const DefaultsRow& row = GetParam();
    for (bool withStore : { true, false }) {
        std::unique_ptr<ScopedPreferences> prefs;
        if (withStore)
            prefs = std::make_unique<ScopedPreferences>();
        ASSERT_EQ(tuPref != nullptr, withStore);
        const Rules rules(QString::fromLatin1(row.word));
        for (size_t i = 0; i < settings().size(); ++i)
            EXPECT_EQ(settings()[i].get(rules), row.values[i])
                << row.word << ' ' << settings()[i].name << (withStore ? " (empty store)" : " (no store)");
        EXPECT_EQ(rules.objName(), QString::fromLatin1(row.word));
    }
}

INSTANTIATE_TEST_SUITE_P(Words, RulesDefaults,
    ::testing::Values(DefaultsRow { "sequence", { 0, 2, 1, 0, 10, 1, 0, 0, 0 } },
        DefaultsRow { "shot", { 0, 2, 1, 0, 10, 1, 0, 0, 0 } },
        DefaultsRow { "panel", { 0, 0, 0, 0, 10, 1, 1, 0, 1 } },
        // The word picks its column whatever its case.
        DefaultsRow { "Panel", { 0, 0, 0, 0, 10, 1, 1, 0, 1 } },
        DefaultsRow { "camera", { 0, 0, 0, 0, 0, 0, 0, 0, 0 } }));

TEST(RulesPreferences, EveryGetterReadsItsOwnKeyForItsWord)
{
    const char* const words[] = { "sequence", "shot", "panel" };
    for (const char* word : words) {
        for (const Setting& s : settings()) {
            ScopedPreferences prefs;
            const Rules rules(QString::fromLatin1(word));
            std::vector<std::pair<Rules, int>> others;
            for (const char* other : words) {
                if (QByteArray(other) != word) {
                    Rules otherRules(QString::fromLatin1(other));
                    others.emplace_back(otherRules, s.get(otherRules));
                }
            }
            const int value = unusual(s, s.get(rules));
            setPreference(prefs.store(), s, QString::fromLatin1(word), value);
            EXPECT_EQ(s.get(rules), value) << word << ' ' << s.name;
            for (const auto& other : others)
                EXPECT_EQ(s.get(other.first), other.second)
                    << qPrintable(other.first.objName()) << " read the key of " << word << ' ' << s.name;
        }
    }
}

TEST(RulesPreferences, SettersStoreButAnswerOnlyUnderOverride)
{
    ScopedPreferences prefs;
    KRC_NamingRules record;
    Rules& shot = record.shotRules();
    std::vector<int> stored;
    for (const Setting& s : settings()) {
        const int preference = s.get(shot);
        stored.push_back(unusual(s, preference));
        s.set(shot, stored.back());
        EXPECT_EQ(s.get(shot), preference) << s.name;
    }
    record.setOverloadingPref(true);
    for (size_t i = 0; i < settings().size(); ++i)
        EXPECT_EQ(settings()[i].get(shot), stored[i]) << settings()[i].name;

    record.setOverloadingPref(false);
    prefs->setIntValue(QStringLiteral("ST_SHOT_NAME_NUMBER_OF_ZEROS"), 9);
    EXPECT_EQ(shot.numberOfZeros(), 9);
}

TEST(RulesPreferences, GettersAskTheStoreAtEveryCall)
{
    ScopedPreferences prefs;
    const Rules panel(QStringLiteral("panel"));
    EXPECT_EQ(panel.numberOfZeros(), 0);
    prefs->setIntValue(QStringLiteral("ST_PANEL_NAME_NUMBER_OF_ZEROS"), 4);
    EXPECT_EQ(panel.numberOfZeros(), 4);
    prefs->remove(QStringLiteral("ST_PANEL_NAME_NUMBER_OF_ZEROS"));
    EXPECT_EQ(panel.numberOfZeros(), 0);
}

TEST(RulesPreferences, ByNSwitchWinsOverTheRuleKey)
{
    ScopedPreferences prefs;
    KRC_NamingRules record;
    prefs->setIntValue(QStringLiteral("ST_SHOT_NAME_AUTO_INCREMENT_RULE"), 2);
    EXPECT_EQ(record.shotRules().autoIncrementRule(), KRC_NamingRules::Rule_AlphaZPrefix);
    prefs->setBoolValue(QStringLiteral("ST_SHOT_NAME_AUTO_INCREMENT_BY_N"), true);
    EXPECT_EQ(record.shotRules().autoIncrementRule(), KRC_NamingRules::Rule_ByN);
    EXPECT_EQ(record.panelRules().autoIncrementRule(), KRC_NamingRules::Rule_Numeric);

    // Under override the stored field answers, whatever the switch says.
    record.shotRules().setAutoIncrementRule(KRC_NamingRules::Rule_Alpha);
    record.setOverloadingPref(true);
    EXPECT_EQ(record.shotRules().autoIncrementRule(), KRC_NamingRules::Rule_Alpha);
}

TEST(RulesPreferences, ConstructionTakesASnapshotThatOverrideFreezes)
{
    ScopedPreferences prefs;
    prefs->setBoolValue(QStringLiteral("ST_PANEL_NAME_AUTOMATIC_LEADING_ZEROS"), true);
    prefs->setIntValue(QStringLiteral("ST_PANEL_NAME_NUMBER_OF_ZEROS"), 3);
    prefs->setBoolValue(QStringLiteral("ST_PANEL_NAME_AUTO_INCREMENT_BY_N"), true);
    prefs->setBoolValue(QStringLiteral("ST_ENABLE_ACT"), true);
    KRC_NamingRules record;
    prefs->clear();

    record.setOverloadingPref(true);
    EXPECT_TRUE(record.panelRules().automaticLeadingZeros());
    EXPECT_EQ(record.panelRules().numberOfZeros(), 3);
    EXPECT_EQ(record.panelRules().autoIncrementRule(), KRC_NamingRules::Rule_ByN);
    EXPECT_TRUE(record.enabledAct());
    EXPECT_EQ(record.shotRules().numberOfZeros(), 2);
}

TEST(RulesPreferences, RecordSwitchesFollowTheirPreferencesUntilOverridden)
{
    ScopedPreferences prefs;
    KRC_NamingRules record;
    EXPECT_FALSE(record.overloadingPref());
    EXPECT_FALSE(record.autoShowTotal());
    EXPECT_FALSE(record.enabledAct());
    record.setAutoShowTotal(true);
    EXPECT_FALSE(record.autoShowTotal());
    prefs->setBoolValue(QStringLiteral("ST_PANEL_NAME_AUTO_SHOW_TOTAL"), true);
    prefs->setBoolValue(QStringLiteral("ST_ENABLE_ACT"), true);
    EXPECT_TRUE(record.autoShowTotal());
    EXPECT_TRUE(record.enabledAct());

    record.setOverloadingPref(true);
    record.setEnabledAct(false);
    EXPECT_TRUE(record.autoShowTotal());
    EXPECT_FALSE(record.enabledAct());
}

TEST(NamingRulesStrings, DelimitersAndSuffixTypes)
{
    const std::pair<int, const char*> delimiters[]
        = { { 0, "" }, { 1, "_" }, { 2, "." }, { 3, "" }, { -1, "" } };
    for (const auto& d : delimiters)
        EXPECT_EQ(
            KRC_NamingRules::delimiterStr(KRC_NamingRules::Delimiter_t(d.first)), QLatin1String(d.second));
    const std::pair<int, const char*> suffixes[]
        = { { 0, "" }, { 1, "1" }, { 2, "A" }, { 3, "a" }, { 4, "" }, { -2, "" } };
    for (const auto& s : suffixes)
        EXPECT_EQ(
            KRC_NamingRules::suffixTypeStr(KRC_NamingRules::SuffixType_t(s.first)), QLatin1String(s.second));
}

TEST(NamingRulesCompare, StoredValuesCountNotTheRulesOwnSwitch)
{
    ScopedPreferences prefs;
    KRC_NamingRules a;
    KRC_NamingRules b;
    EXPECT_TRUE(a == b);

    // A rules' own switch is not compared (the record's is). Assignment carries it.
    KRC_NamingRules overriding;
    overriding.setOverloadingPref(true);
    b.shotRules() = overriding.shotRules();
    EXPECT_TRUE(a == b);
    EXPECT_TRUE(a.shotRules() == b.shotRules());

    for (const Setting& s : settings()) {
        KRC_NamingRules c;
        s.set(c.panelRules(), unusual(s, s.get(a.panelRules())));
        EXPECT_TRUE(a != c) << s.name;
        EXPECT_TRUE(a.panelRules() != c.panelRules()) << s.name;
    }

    KRC_NamingRules d;
    d.setOverloadingPref(true);
    EXPECT_TRUE(a != d);
    KRC_NamingRules e;
    e.setOverloadingPref(true);
    e.setEnabledAct(!d.enabledAct());
    EXPECT_TRUE(d != e);

    // Same values, another word.
    EXPECT_TRUE(Rules(QStringLiteral("shot")) != Rules(QStringLiteral("Shot")));
}

TEST(NamingRulesCopy, CopiesAreDeepAndTakeTheSwitches)
{
    ScopedPreferences prefs;
    KRC_NamingRules source(QStringLiteral("rules"), QStringLiteral("elsewhere"), QStringLiteral("1.0"));
    source.setOverloadingPref(true);
    source.panelRules().setNumberOfZeros(4);

    KRC_NamingRules assigned;
    assigned = source;
    EXPECT_TRUE(assigned == source);
    EXPECT_EQ(assigned.panelRules().numberOfZeros(), 4);
    EXPECT_EQ(assigned.creator(), QStringLiteral("elsewhere"));
    source.panelRules().setNumberOfZeros(5);
    EXPECT_EQ(assigned.panelRules().numberOfZeros(), 4);

    std::unique_ptr<PIO_Metadata> clone(source.clone());
    auto* copy = dynamic_cast<KRC_NamingRules*>(clone.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_TRUE(*copy == source);
    EXPECT_EQ(copy->metaType(), QStringLiteral("namingRules"));
    EXPECT_EQ(copy->metaName(), QStringLiteral("rules"));
    EXPECT_EQ(copy->creator(), QStringLiteral("elsewhere"));
    EXPECT_EQ(copy->version(), QStringLiteral("1.0"));
    EXPECT_EQ(copy->panelRules().numberOfZeros(), 5);

    Rules rules(QStringLiteral("shot"));
    rules = source.panelRules();
    EXPECT_EQ(rules.objName(), QStringLiteral("panel"));
    EXPECT_EQ(rules.numberOfZeros(), 5);
}

TEST(NamingRulesRecord, IdentityAndDump)
{
    KRC_NamingRules fresh;
    EXPECT_TRUE(fresh.isValid());
    EXPECT_EQ(fresh.metaType(), QStringLiteral("namingRules"));
    EXPECT_TRUE(fresh.metaName().isNull());
    EXPECT_EQ(fresh.version(), QStringLiteral("2.0"));

    QString dump;
    fresh.dumpToString(dump);
    QString base;
    fresh.PIO_Metadata::dumpToString(base);
    EXPECT_EQ(dump, base);
}

} // namespace
