// Naming rules over the preference store: keys, defaults, the override switch, the
// construction snapshot, comparisons and copies.
#include "naming/KRC_NamingRules.h"

#include "support/ScopedPreferences.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <type_traits>

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

    // A value unlike the current one.
    int other(int current) const { return isBool ? !current : current + 7; }
    void prefer(PR_Preference& store, const QString& word, int value) const
    {
        const QString k = QString::fromLatin1(key).arg(word.toUpper());
        isBool ? store.setBoolValue(k, value != 0) : store.setIntValue(k, value);
    }
};

#define KRC_SETTING(getter, setter, key, Type)                                                               \
    Setting                                                                                                  \
    {                                                                                                        \
#getter, key, std::is_same < Type, bool> ::value, [](const Rules& r) { return int(r.getter()); },    \
            [](Rules & r, int v) { r.setter(Type(v)); }                                                      \
    }

const std::vector<Setting> kSettings = {
    KRC_SETTING(automaticLeadingZeros, setAutomaticLeadingZeros, "ST_%1_NAME_AUTOMATIC_LEADING_ZEROS", bool),
    KRC_SETTING(numberOfZeros, setNumberOfZeros, "ST_%1_NAME_NUMBER_OF_ZEROS", int),
    KRC_SETTING(allowCustomName, setAllowCustomName, "ST_%1_NAME_ALLOW_CUSTOM", bool),
    KRC_SETTING(autoIncrementRule, setAutoIncrementRule, "ST_%1_NAME_AUTO_INCREMENT_RULE",
        KRC_NamingRules::NameRule_t),
    KRC_SETTING(autoIncrementValue, setAutoIncrementValue, "ST_%1_NAME_INCREMENT_VALUE", int),
    KRC_SETTING(nameSuffixDelimiter, setNameSuffixDelimiter, "ST_%1_NAME_CONFLICT_DELIMITER",
        KRC_NamingRules::Delimiter_t),
    KRC_SETTING(
        nameSuffixType, setNameSuffixType, "ST_%1_NAME_CONFLICT_ADD_TYPE", KRC_NamingRules::SuffixType_t),
    KRC_SETTING(smartNameOnDrop, setSmartNameOnDrop, "ST_SMART_%1_NAME_ON_DROP", bool),
    KRC_SETTING(resetNameOnNewParent, setResetNameOnNewParent, "ST_%1_NAME_RESET_ON_NEW_PARENT", bool),
};

const char* const kWords[] = { "sequence", "shot", "panel" };

TEST(RulesPreferences, EmptyStoreAndNoStoreAnswerTheDefaultsOfTheWord)
{
    struct Row
    {
        const char* word;
        int values[9]; // in the order of kSettings
    };
    for (const Row& row :
        { Row { "sequence", { 0, 2, 1, 0, 10, 1, 0, 0, 0 } }, Row { "shot", { 0, 2, 1, 0, 10, 1, 0, 0, 0 } },
            Row { "panel", { 0, 0, 0, 0, 10, 1, 1, 0, 1 } }, Row { "Panel", { 0, 0, 0, 0, 10, 1, 1, 0, 1 } },
            Row { "camera", { 0, 0, 0, 0, 0, 0, 0, 0, 0 } } }) {
        for (bool withStore : { true, false }) {
            std::optional<ScopedPreferences> prefs;
            if (withStore)
                prefs.emplace();
            const Rules rules(QString::fromLatin1(row.word));
            for (size_t i = 0; i < kSettings.size(); ++i)
                EXPECT_EQ(kSettings[i].get(rules), row.values[i])
                    << row.word << ' ' << kSettings[i].name << (withStore ? " (empty store)" : " (no store)");
            EXPECT_EQ(rules.objName(), QString::fromLatin1(row.word));
        }
    }
}

TEST(RulesPreferences, EveryGetterReadsItsOwnKeyForItsWordAtEveryCall)
{
    for (const char* word : kWords) {
        for (const Setting& s : kSettings) {
            ScopedPreferences prefs;
            std::vector<std::pair<Rules, int>> all;
            for (const char* w : kWords) {
                Rules rules { QString::fromLatin1(w) };
                all.emplace_back(rules, s.get(rules));
            }
            const int value = s.other(s.get(Rules(QString::fromLatin1(word))));
            s.prefer(prefs.store(), QString::fromLatin1(word), value);
            for (const auto& [rules, before] : all)
                EXPECT_EQ(s.get(rules), rules.objName() == QLatin1String(word) ? value : before)
                    << qPrintable(rules.objName()) << " after setting the key of " << word << ' ' << s.name;
        }
    }
}

TEST(RulesPreferences, SettersStoreButAnswerOnlyUnderOverride)
{
    ScopedPreferences prefs;
    KRC_NamingRules record;
    Rules& shot = record.shotRules();
    std::vector<int> stored;
    for (const Setting& s : kSettings) {
        const int preference = s.get(shot);
        s.set(shot, stored.emplace_back(s.other(preference)));
        EXPECT_EQ(s.get(shot), preference) << s.name;
    }
    record.setOverloadingPref(true);
    for (size_t i = 0; i < kSettings.size(); ++i)
        EXPECT_EQ(kSettings[i].get(shot), stored[i]) << kSettings[i].name;
}

TEST(RulesPreferences, ByNSwitchWinsOverTheRuleKey)
{
    ScopedPreferences prefs;
    KRC_NamingRules record;
    prefs->setIntValue(QStringLiteral("ST_SHOT_NAME_AUTO_INCREMENT_RULE"), 2);
    EXPECT_EQ(record.shotRules().autoIncrementRule(), KRC_NamingRules::Rule_AlphaZPrefix);
    prefs->setBoolValue(QStringLiteral("ST_SHOT_NAME_AUTO_INCREMENT_BY_N"), true);
    EXPECT_EQ(std::pair(record.shotRules().autoIncrementRule(), record.panelRules().autoIncrementRule()),
        std::pair(KRC_NamingRules::Rule_ByN, KRC_NamingRules::Rule_Numeric));
    // Under override the stored field answers, whatever the switch says.
    record.shotRules().setAutoIncrementRule(KRC_NamingRules::Rule_Alpha);
    record.setOverloadingPref(true);
    EXPECT_EQ(record.shotRules().autoIncrementRule(), KRC_NamingRules::Rule_Alpha);
}

TEST(RulesPreferences, RecordSwitchesFollowTheirPreferencesUntilAnOverrideFreezesTheSnapshot)
{
    ScopedPreferences prefs;
    prefs->setIntValue(QStringLiteral("ST_PANEL_NAME_NUMBER_OF_ZEROS"), 3);
    prefs->setBoolValue(QStringLiteral("ST_PANEL_NAME_AUTO_INCREMENT_BY_N"), true);
    prefs->setBoolValue(QStringLiteral("ST_ENABLE_ACT"), true);
    KRC_NamingRules record;
    prefs->clear();
    KRC_NamingRules later;
    later.setAutoShowTotal(true);
    EXPECT_FALSE(later.autoShowTotal() || later.enabledAct());
    prefs->setBoolValue(QStringLiteral("ST_ENABLE_ACT"), true);
    EXPECT_TRUE(later.enabledAct());
    later.setOverloadingPref(true);
    EXPECT_TRUE(later.autoShowTotal() && !later.enabledAct());

    record.setOverloadingPref(true);
    EXPECT_EQ(std::tuple(record.panelRules().numberOfZeros(), record.panelRules().autoIncrementRule(),
                  record.enabledAct(), record.shotRules().numberOfZeros()),
        std::tuple(3, KRC_NamingRules::Rule_ByN, true, 2));
}

TEST(NamingRulesStrings, DelimitersAndSuffixTypes)
{
    const char* const delimiters[] = { "", "", "_", ".", "" }; // from -1
    const char* const suffixes[] = { "", "", "1", "A", "a", "" };
    for (int i = -1; i < 4; ++i)
        EXPECT_EQ(KRC_NamingRules::delimiterStr(KRC_NamingRules::Delimiter_t(i)), delimiters[i + 1]) << i;
    for (int i = -1; i < 5; ++i)
        EXPECT_EQ(KRC_NamingRules::suffixTypeStr(KRC_NamingRules::SuffixType_t(i)), suffixes[i + 1]) << i;
}

TEST(NamingRulesCompare, StoredValuesCountNotTheRulesOwnSwitch)
{
    ScopedPreferences prefs;
    KRC_NamingRules a, b, overriding;
    overriding.setOverloadingPref(true);
    b.shotRules() = overriding.shotRules(); // assignment carries the rules' own switch
    EXPECT_TRUE(a == b && a != overriding);
    for (const Setting& s : kSettings) {
        KRC_NamingRules c;
        s.set(c.panelRules(), s.other(s.get(a.panelRules())));
        EXPECT_TRUE(a != c) << s.name;
    }
    KRC_NamingRules d = overriding;
    d.setEnabledAct(!overriding.enabledAct());
    EXPECT_TRUE(d != overriding && Rules(QStringLiteral("shot")) != Rules(QStringLiteral("Shot")));
}

TEST(NamingRulesCopy, CopiesAreDeepAndClonesKeepTheIdentity)
{
    ScopedPreferences prefs;
    KRC_NamingRules source(QStringLiteral("rules"), QStringLiteral("elsewhere"), QStringLiteral("1.0"));
    source.setOverloadingPref(true);
    source.panelRules().setNumberOfZeros(4);
    KRC_NamingRules assigned;
    assigned = source;
    source.panelRules().setNumberOfZeros(5);
    EXPECT_EQ(assigned.panelRules().numberOfZeros(), 4);

    std::unique_ptr<PIO_Metadata> clone(source.clone());
    auto* copy = dynamic_cast<KRC_NamingRules*>(clone.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_TRUE(*copy == source);
    EXPECT_EQ(QStringList({ copy->metaType(), copy->metaName(), copy->creator(), copy->version() }),
        QStringList({ "namingRules", "rules", "elsewhere", "1.0" }));
    EXPECT_TRUE(KRC_NamingRules().isValid() && KRC_NamingRules().version() == QStringLiteral("2.0"));
}

} // namespace
