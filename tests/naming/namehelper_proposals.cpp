// Names under a set of rules: getName(rules, index), getLeadingSpaces, canModifyName,
// and the proposal for a new object between two neighbours, getPreferedNewObjName.
#include "naming/KRC_NameHelper.h"
#include "naming/KRC_ObjectName.h"

#include "support/ScopedPreferences.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

// Panel rules that answer from their stored values.
class StoredRules
{
public:
    StoredRules(int rule, int width = -1, int step = 10)
    {
        m_record.setOverloadingPref(true);
        KRC_NamingRules::ObjRules& rules = m_record.panelRules();
        rules.setAutoIncrementRule(KRC_NamingRules::NameRule_t(rule));
        rules.setAutoIncrementValue(step);
        rules.setAutomaticLeadingZeros(width >= 0);
        rules.setNumberOfZeros(width < 0 ? 5 : width);
    }
    KRC_NamingRules::ObjRules& rules() { return m_record.panelRules(); }

private:
    KRC_NamingRules m_record;
};

KRC_ObjectName objectName(const char* value, bool custom)
{
    KRC_ObjectName name;
    name.setValue(QString::fromLatin1(value));
    name.setFlag(custom ? KRC_ObjectName::kCustom : 0);
    return name;
}

TEST(NameByRules, PositionNamesArePadded)
{
    struct Row
    {
        int rule, width, index;
        const char* expected;
    };
    for (const Row& r :
        { Row { 0, 3, 0, "001" }, Row { 0, -1, 0, "1" }, Row { 0, 2, 0, "01" }, Row { 0, 2, 122, "123" },
            Row { 1, 3, 0, "00A" }, Row { 1, -1, 26, "AA" }, Row { 2, -1, 52, "ZAA" },
            Row { 3, 4, 27, "00ZB" }, Row { 4, -1, 2, "3" }, Row { 4, 3, 0, "001" } }) {
        StoredRules stored(r.rule, r.width);
        EXPECT_EQ(KRC_NameHelper::getName(stored.rules(), r.index), QLatin1String(r.expected))
            << "rule " << r.rule << " width " << r.width << " index " << r.index;
    }
}

TEST(NameByRules, LeadingSpacesNeedAutomaticZeros)
{
    EXPECT_EQ(KRC_NameHelper::getLeadingSpaces(StoredRules(0, 3).rules()), 3);
    EXPECT_EQ(KRC_NameHelper::getLeadingSpaces(StoredRules(0, -1).rules()), 0);

    // Through the preferences: shots default to two zeros, but only once switched on.
    ScopedPreferences prefs;
    KRC_NamingRules record;
    EXPECT_EQ(KRC_NameHelper::getLeadingSpaces(record.shotRules()), 0);
    EXPECT_EQ(KRC_NameHelper::getName(record.shotRules(), 0), QStringLiteral("1"));
    prefs->setBoolValue(QStringLiteral("ST_SHOT_NAME_AUTOMATIC_LEADING_ZEROS"), true);
    EXPECT_EQ(KRC_NameHelper::getLeadingSpaces(record.shotRules()), 2);
    EXPECT_EQ(KRC_NameHelper::getName(record.shotRules(), 0), QStringLiteral("01"));
}

TEST(NameByRules, CustomNamesNeedPermissionAndNoLock)
{
    struct Row
    {
        int flag;
        bool allow;
        bool expected;
    };
    for (const Row& r : { Row { 0, true, true }, Row { KRC_ObjectName::kCustom, true, true },
             Row { KRC_ObjectName::kLocked, true, false }, Row { 3, true, false }, Row { 0, false, false },
             Row { KRC_ObjectName::kCustom, false, false } }) {
        StoredRules stored(0);
        stored.rules().setAllowCustomName(r.allow);
        KRC_ObjectName name;
        name.setFlag(r.flag);
        EXPECT_EQ(KRC_NameHelper::canModifyName(stored.rules(), name), r.expected)
            << "flag " << r.flag << " allow " << r.allow;
    }
}

struct ProposalRow
{
    int rule;
    int width; // -1: automatic zeros off
    std::optional<const char*> prev;
    std::optional<const char*> next;
    const char* expected; // null: a null string
    bool custom = true;
};

void PrintTo(const ProposalRow& r, std::ostream* os)
{
    *os << "rule " << r.rule << " width " << r.width << ' ' << (r.prev ? *r.prev : "none") << " / "
        << (r.next ? *r.next : "none") << (r.custom ? " custom" : " auto");
}

class Proposal : public ::testing::TestWithParam<ProposalRow>
{
};

TEST_P(Proposal, BetweenNeighbours)
{
    const ProposalRow& r = GetParam();
    StoredRules stored(r.rule, r.width, 10);
    std::optional<KRC_ObjectName> prev;
    std::optional<KRC_ObjectName> next;
    if (r.prev)
        prev = objectName(*r.prev, r.custom);
    if (r.next)
        next = objectName(*r.next, r.custom);
    const QString result = KRC_NameHelper::getPreferedNewObjName(
        stored.rules(), prev ? &*prev : nullptr, next ? &*next : nullptr);
    if (!r.expected) {
        EXPECT_TRUE(result.isNull()) << qPrintable(result);
        return;
    }
    EXPECT_EQ(result, QLatin1String(r.expected));
}

INSTANTIATE_TEST_SUITE_P(Table, Proposal,
    ::testing::Values(ProposalRow { 0, -1, "2", "3", "2" }, ProposalRow { 0, -1, "2", "5", "3" },
        ProposalRow { 0, -1, "2", "3", nullptr, false }, ProposalRow { 0, 3, "002", std::nullopt, "003" },
        ProposalRow { 0, -1, std::nullopt, "5", "4" }, ProposalRow { 1, -1, "A", "C", "B" },
        ProposalRow { 1, -1, "A", "B", "A" }, ProposalRow { 4, -1, std::nullopt, std::nullopt, "10" },
        ProposalRow { 4, 3, std::nullopt, std::nullopt, "010" }, ProposalRow { 4, -1, "10", "20", "15" },
        ProposalRow { 4, -1, "10", "100", "20" }, ProposalRow { 4, -1, "15", "20", "17" },
        ProposalRow { 4, -1, "19", "20", "19" }, ProposalRow { 4, -1, "2", "3", "2" },
        ProposalRow { 4, -1, "10", std::nullopt, "20" }, ProposalRow { 4, -1, std::nullopt, "20", "10" },
        ProposalRow { 4, -1, std::nullopt, "1", "1" }, ProposalRow { 4, -1, "A", std::nullopt, "A" },
        ProposalRow { 4, -1, "SC_10", "SC_20", "SC_15" }, ProposalRow { 4, -1, "SC_10", "PL_20", "SC_20" },
        ProposalRow { 4, -1, "007", std::nullopt, "10" },
        ProposalRow { 4, -1, "A007", std::nullopt, "A010" }));

// Rule 4 does not look at the custom flag.
INSTANTIATE_TEST_SUITE_P(ByNWithAutoNeighbours, Proposal,
    ::testing::Values(ProposalRow { 4, -1, "10", "20", "15", false },
        ProposalRow { 4, -1, "10", "100", "20", false },
        ProposalRow { 4, -1, "A007", std::nullopt, "A010", false },
        ProposalRow { 4, -1, std::nullopt, "20", "10", false }));

// The by-N midpoint, widths and the cases where the numbers do not line up.
INSTANTIATE_TEST_SUITE_P(ByNBorders, Proposal,
    ::testing::Values(
        // The multiple is taken only while it lies in the lower half of the gap.
        ProposalRow { 4, -1, "10", "31", "20" }, ProposalRow { 4, -1, "10", "30", "20" },
        ProposalRow { 4, -1, "10", "29", "19" }, ProposalRow { 4, -1, "0", "2", "1" },
        ProposalRow { 4, -1, "20", "10", "20" }, // no room below a lower "next"
        ProposalRow { 4, 4, "10", "20", "0015" }, ProposalRow { 4, 3, "A", std::nullopt, "00A" },
        ProposalRow { 4, -1, "SC_010", "SC_020", "SC_015" },
        ProposalRow { 4, -1, "SC_10", "SC_10b", "SC_10" }, ProposalRow { 4, -1, "A1B", "A5B", "A3B" },
        ProposalRow { 4, -1, "SC_9", std::nullopt, "SC_10" }, ProposalRow { 4, -1, "A", "20", "A" },
        ProposalRow { 4, -1, "10", "B", "20" }, ProposalRow { 4, -1, std::nullopt, "SC_40", "SC_10" },
        ProposalRow { 4, -1, std::nullopt, "A", "A" }));

TEST(Proposal, ByNStepComesFromTheRules)
{
    StoredRules stored(4, -1, 25);
    const KRC_ObjectName prev = objectName("100", false);
    EXPECT_EQ(KRC_NameHelper::getPreferedNewObjName(stored.rules(), &prev, nullptr), QStringLiteral("125"));
    EXPECT_EQ(KRC_NameHelper::getPreferedNewObjName(stored.rules(), nullptr, nullptr), QStringLiteral("25"));
}

} // namespace
