// Names under a set of rules: getName(rules, index), getLeadingSpaces, canModifyName,
// the name between two neighbours, getBaseName(prev, next, ...), and the proposal for a
// new object, getPreferedNewObjName.
#include "naming/KRC_NameHelper.h"
#include "naming/KRC_ObjectName.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

using H = KRC_NameHelper;

// Panel rules that answer from their stored values; a width of -1 turns the zeros off.
class StoredRules
{
public:
    StoredRules(int rule, int width = -1, int step = 10)
    {
        m_record.setOverloadingPref(true);
        rules().setAutoIncrementRule(KRC_NamingRules::NameRule_t(rule));
        rules().setAutoIncrementValue(step);
        rules().setAutomaticLeadingZeros(width >= 0);
        rules().setNumberOfZeros(width < 0 ? 5 : width);
    }
    KRC_NamingRules::ObjRules& rules() { return m_record.panelRules(); }

private:
    KRC_NamingRules m_record;
};

// Neighbours of a proposal; null values stand for no neighbour.
struct Pair
{
    Pair(const char* prevValue, const char* nextValue, const char* custom)
    {
        set(prev, prevValue, custom[0] == 'c');
        set(next, nextValue, custom[1] == 'c');
    }
    static void set(std::optional<KRC_ObjectName>& name, const char* value, bool custom)
    {
        if (!value)
            return;
        name.emplace();
        name->setValue(QString::fromLatin1(value));
        name->setFlag(custom ? KRC_ObjectName::kCustom : 0);
    }
    std::optional<KRC_ObjectName> prev, next;
    const KRC_ObjectName* p() const { return prev ? &*prev : nullptr; }
    const KRC_ObjectName* n() const { return next ? &*next : nullptr; }
};

struct Row
{
    int rule, width;
    const char *prev, *next;
    const char* expected; // null: a null string
    const char* custom = "cc"; // per side: 'c' custom, 'a' auto
};

void expectProposal(const Row& r, const QString& result)
{
    if (r.expected)
        EXPECT_EQ(result, QLatin1String(r.expected));
    else
        EXPECT_TRUE(result.isNull()) << qPrintable(result);
}

TEST(NameByRules, PositionNamesArePadded)
{
    struct Pos
    {
        int rule, width, index;
        const char* expected;
    };
    for (const Pos& r :
        { Pos { 0, 3, 0, "001" }, Pos { 0, -1, 0, "1" }, Pos { 0, 2, 122, "123" }, Pos { 1, 3, 0, "00A" },
            Pos { 2, -1, 52, "ZAA" }, Pos { 3, 4, 27, "00ZB" }, Pos { 4, -1, 2, "3" } })
        EXPECT_EQ(H::getName(StoredRules(r.rule, r.width).rules(), r.index), QLatin1String(r.expected))
            << "rule " << r.rule << " width " << r.width << " index " << r.index;
    EXPECT_EQ(H::getLeadingSpaces(StoredRules(0, 3).rules()), 3);
    EXPECT_EQ(H::getLeadingSpaces(StoredRules(0, -1).rules()), 0);
}

TEST(NameByRules, CustomNamesNeedPermissionAndNoLock)
{
    for (int flag = 0; flag < 4; ++flag) {
        for (bool allow : { false, true }) {
            StoredRules stored(0);
            stored.rules().setAllowCustomName(allow);
            KRC_ObjectName name;
            name.setFlag(flag);
            EXPECT_EQ(H::canModifyName(stored.rules(), name), allow && !(flag & KRC_ObjectName::kLocked))
                << "flag " << flag << " allow " << allow;
        }
    }
}

TEST(NameBetween, OnlyACustomNeighbourGivesABase)
{
    for (const Row& r : { Row { 0, 0, nullptr, nullptr, nullptr }, Row { 0, 0, "2", "3", nullptr, "aa" },
             Row { 0, 0, "2", nullptr, nullptr, "aa" }, Row { 0, 0, "2", "5", "3", "ca" },
             Row { 0, 0, "2", "3", "2", "ac" }, Row { 0, 3, "9", nullptr, "010" },
             Row { 1, 0, nullptr, "A", "A_0" }, Row { 0, 0, "SC_9", "SC_10", "SC_9" },
             Row { 0, 0, "SC_9", "SC_12", "SC_10" },
             // The colliding name comes back unpadded.
             Row { 0, 3, "5", "006", "5" } }) {
        const Pair pair(r.prev, r.next, r.custom);
        SCOPED_TRACE(testing::Message() << (r.prev ? r.prev : "none") << " / " << (r.next ? r.next : "none"));
        expectProposal(r, H::getBaseName(pair.p(), pair.n(), r.rule, r.width));
    }
}

TEST(Proposal, BetweenNeighbours)
{
    for (const Row& r : { Row { 0, -1, "2", "3", "2" }, Row { 0, -1, "2", "5", "3" },
             Row { 0, -1, "2", "3", nullptr, "aa" }, Row { 0, 3, "002", nullptr, "003" },
             Row { 0, -1, nullptr, "5", "4" }, Row { 1, -1, "A", "C", "B" }, Row { 1, -1, "A", "B", "A" },
             Row { 4, -1, nullptr, nullptr, "10" }, Row { 4, 3, nullptr, nullptr, "010" },
             Row { 4, -1, "10", "20", "15" }, Row { 4, -1, "10", "100", "20" },
             Row { 4, -1, "15", "20", "17" }, Row { 4, -1, "19", "20", "19" }, Row { 4, -1, "2", "3", "2" },
             Row { 4, -1, "10", nullptr, "20" }, Row { 4, -1, nullptr, "20", "10" },
             Row { 4, -1, nullptr, "1", "1" }, Row { 4, -1, "A", nullptr, "A" },
             Row { 4, -1, "SC_10", "SC_20", "SC_15" }, Row { 4, -1, "SC_10", "PL_20", "SC_20" },
             Row { 4, -1, "007", nullptr, "10" }, Row { 4, -1, "A007", nullptr, "A010" },
             // Rule 4 does not look at the custom flag.
             Row { 4, -1, "10", "20", "15", "aa" }, Row { 4, -1, "A007", nullptr, "A010", "aa" },
             // The multiple is taken only while it lies in the lower half of the gap.
             Row { 4, -1, "10", "31", "20" }, Row { 4, -1, "10", "29", "19" }, Row { 4, -1, "0", "2", "1" },
             Row { 4, -1, "20", "10", "20" }, Row { 4, 4, "10", "20", "0015" },
             Row { 4, 3, "A", nullptr, "00A" }, Row { 4, -1, "SC_010", "SC_020", "SC_015" },
             Row { 4, -1, "SC_10", "SC_10b", "SC_10" }, Row { 4, -1, "A1B", "A5B", "A3B" },
             Row { 4, -1, "SC_9", nullptr, "SC_10" }, Row { 4, -1, "10", "B", "20" },
             Row { 4, -1, nullptr, "SC_40", "SC_10" } }) {
        StoredRules stored(r.rule, r.width);
        const Pair pair(r.prev, r.next, r.custom);
        SCOPED_TRACE(testing::Message() << "rule " << r.rule << " width " << r.width << ' '
                                        << (r.prev ? r.prev : "none") << " / " << (r.next ? r.next : "none"));
        expectProposal(r, H::getPreferedNewObjName(stored.rules(), pair.p(), pair.n()));
    }
    StoredRules byTwentyFive(4, -1, 25);
    const Pair pair("100", nullptr, "aa");
    EXPECT_EQ(H::getPreferedNewObjName(byTwentyFive.rules(), pair.p(), nullptr), QStringLiteral("125"));
}

} // namespace
