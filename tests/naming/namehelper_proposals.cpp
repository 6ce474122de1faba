// Names under a set of rules: getName(rules, index), getLeadingSpaces, canModifyName,
// the name between two neighbours, getBaseName(prev, next, ...), and the proposal for a
// new object, getPreferedNewObjName.
#include "naming/KRC_NameHelper.h"
#include "naming/KRC_ObjectName.h"

#include "support/QtTestPrinters.h"

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

TEST(NameByRules, PositionNamesArePaddedAndOnlyUnlockedPermittedNamesChange)
{
    const struct
    {
        int rule, width, index;
        const char* expected;
    } rows[] = { { 0, 3, 0, "001" }, { 0, -1, 0, "1" }, { 0, 2, 122, "123" }, { 1, 3, 0, "00A" },
        { 2, -1, 52, "ZAA" }, { 3, 4, 27, "00ZB" }, { 4, -1, 2, "3" } };
    for (const auto& r : rows)
        EXPECT_EQ(H::getName(StoredRules(r.rule, r.width).rules(), r.index), QLatin1String(r.expected))
            << "rule " << r.rule << " width " << r.width << " index " << r.index;

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

struct Row
{
    int rule, width;
    const char *prev, *next;
    const char* expected; // null: a null string
    const char* custom = "cc"; // per side: 'c' custom, 'a' auto
};

// A neighbour of a proposal; a null value stands for none.
std::optional<KRC_ObjectName> neighbour(const char* value, char custom)
{
    std::optional<KRC_ObjectName> name;
    if (value) {
        name.emplace();
        name->setValue(QString::fromLatin1(value));
        name->setFlag(custom == 'c' ? KRC_ObjectName::kCustom : 0);
    }
    return name;
}

// `propose(row, prev, next)` gives the expected name, or a null string, for every row.
template <class Propose> void expectProposals(std::initializer_list<Row> rows, Propose propose)
{
    for (const Row& r : rows) {
        const auto prev = neighbour(r.prev, r.custom[0]), next = neighbour(r.next, r.custom[1]);
        const QString result = propose(r, prev ? &*prev : nullptr, next ? &*next : nullptr);
        SCOPED_TRACE(testing::Message() << "rule " << r.rule << " width " << r.width << ' '
                                        << (r.prev ? r.prev : "none") << " / " << (r.next ? r.next : "none"));
        if (r.expected)
            EXPECT_EQ(result, QLatin1String(r.expected));
        else
            EXPECT_TRUE(result.isNull()) << qPrintable(result);
    }
}

TEST(NameBetween, OnlyACustomNeighbourGivesABase)
{
    expectProposals(
        { { 0, 0, nullptr, nullptr, nullptr }, { 0, 0, "2", "3", nullptr, "aa" },
            { 0, 0, "2", nullptr, nullptr, "aa" }, { 0, 0, "2", "5", "3", "ca" },
            { 0, 0, "2", "3", "2", "ac" }, { 0, 3, "9", nullptr, "010" }, { 1, 0, nullptr, "A", "A_0" },
            { 0, 0, "SC_9", "SC_10", "SC_9" }, { 0, 0, "SC_9", "SC_12", "SC_10" },
            // The colliding name comes back unpadded.
            { 0, 3, "5", "006", "5" } },
        [](const Row& r, auto prev, auto next) { return H::getBaseName(prev, next, r.rule, r.width); });
}

TEST(Proposal, BetweenNeighbours)
{
    const auto propose = [](const Row& r, auto prev, auto next) {
        return H::getPreferedNewObjName(StoredRules(r.rule, r.width).rules(), prev, next);
    };
    expectProposals(
        { { 0, -1, "2", "3", "2" }, { 0, -1, "2", "5", "3" }, { 0, -1, "2", "3", nullptr, "aa" },
            { 0, 3, "002", nullptr, "003" }, { 0, -1, nullptr, "5", "4" }, { 1, -1, "A", "C", "B" },
            { 1, -1, "A", "B", "A" }, { 4, -1, nullptr, nullptr, "10" }, { 4, 3, nullptr, nullptr, "010" },
            { 4, -1, "10", "20", "15" }, { 4, -1, "10", "100", "20" }, { 4, -1, "15", "20", "17" },
            { 4, -1, "19", "20", "19" }, { 4, -1, "2", "3", "2" }, { 4, -1, "10", nullptr, "20" },
            { 4, -1, nullptr, "20", "10" }, { 4, -1, nullptr, "1", "1" }, { 4, -1, "A", nullptr, "A" },
            { 4, -1, "SC_10", "SC_20", "SC_15" }, { 4, -1, "SC_10", "PL_20", "SC_20" },
            { 4, -1, "007", nullptr, "10" }, { 4, -1, "A007", nullptr, "A010" },
            // Rule 4 does not look at the custom flag.
            { 4, -1, "10", "20", "15", "aa" }, { 4, -1, "A007", nullptr, "A010", "aa" },
            // The multiple is taken only while it lies in the lower half of the gap.
            { 4, -1, "10", "31", "20" }, { 4, -1, "10", "29", "19" }, { 4, -1, "0", "2", "1" },
            { 4, -1, "20", "10", "20" }, { 4, 4, "10", "20", "0015" }, { 4, 3, "A", nullptr, "00A" },
            { 4, -1, "SC_010", "SC_020", "SC_015" }, { 4, -1, "SC_10", "SC_10b", "SC_10" },
            { 4, -1, "A1B", "A5B", "A3B" }, { 4, -1, "SC_9", nullptr, "SC_10" }, { 4, -1, "10", "B", "20" },
            { 4, -1, nullptr, "SC_40", "SC_10" } },
        propose);
    const auto hundred = neighbour("100", 'a');
    EXPECT_EQ(
        H::getPreferedNewObjName(StoredRules(4, -1, 25).rules(), &*hundred, nullptr), QStringLiteral("125"));
}

} // namespace
