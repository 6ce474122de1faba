// Stepping names up and down: getNextName, getPrevName, getName(name, type, forward).
#include "naming/KRC_NameHelper.h"

#include <gtest/gtest.h>

namespace {

struct StepCase
{
    bool forward;
    const char* name;
    int type;
    const char* expected;
};

StepCase up(const char* name, int type, const char* expected)
{
    return StepCase { true, name, type, expected };
}

StepCase down(const char* name, int type, const char* expected)
{
    return StepCase { false, name, type, expected };
}

void PrintTo(const StepCase& c, std::ostream* os)
{
    *os << (c.forward ? "up from \"" : "down from \"") << c.name << "\" rule " << c.type;
}

class Stepping : public ::testing::TestWithParam<StepCase>
{
};

TEST_P(Stepping, GivesTheNeighbourName)
{
    const StepCase& c = GetParam();
    const QString name = QString::fromUtf8(c.name);
    const QString expected = QString::fromUtf8(c.expected);
    EXPECT_EQ(
        c.forward ? KRC_NameHelper::getNextName(name, c.type) : KRC_NameHelper::getPrevName(name, c.type),
        expected);
    EXPECT_EQ(KRC_NameHelper::getName(name, c.type, c.forward), expected);
}

INSTANTIATE_TEST_SUITE_P(NextTable, Stepping,
    ::testing::Values(up("", 0, "1"), up("", 1, "A"), up("", 4, "A"), up("09", 0, "10"), up("099", 0, "100"),
        up("99", 0, "100"), up("A", 1, "B"), up("Z", 1, "AA"), up("AZ", 1, "BA"), up("ZZ", 1, "AAA"),
        up("z", 1, "aa"), up("Z", 0, "1A"), up("Z", 2, "ZA"), up("ZZ", 2, "ZAA"), up("Z", 3, "ZA"),
        up("ZZ", 3, "ZZA"), up("ZAZ", 3, "ZBA"), up("A9", 0, "B0"), up("z9", 0, "1a0"), up("a-9", 0, "a-10"),
        up("a-9", 1, "a-A0")));

// Width, case and carries beyond the specified rows.
INSTANTIATE_TEST_SUITE_P(NextWidthCaseAndCarry, Stepping,
    ::testing::Values(up("007", 0, "008"), up("999", 0, "1000"), up("0", 0, "1"), up("-1", 0, "00"),
        up("Az", 3, "Ba"), up("Z", 4, "A"), up("zZ", 1, "aaA"), up("Zz", 1, "AAa"), up("b", 1, "c"),
        up("SC_9", 1, "SC_A0"), up("a 9", 0, "a 10"), up("2147483647", 0, "2147483648"),
        // Too long for 32 bits: stepped as text, digit by digit.
        up("99999999999", 0, "100000000000"),
        // A letter beyond Latin-1 reads as 0 and becomes U+0001.
        up("\xce\xa9", 0, "\x01")));

INSTANTIATE_TEST_SUITE_P(PrevTable, Stepping,
    ::testing::Values(down("10", 0, "09"), down("1", 0, "0"), down("0", 0, "999"), down("00", 0, "999"),
        down("-3", 0, "999"), down("B", 1, "A"), down("A", 1, "A_0"), down("A", 0, "A_0"),
        down("a", 1, "a_0"), down("AA", 1, "Z"), down("BA", 1, "Z"), down("BA", 2, "B"), down("ZA", 3, "Z"),
        down("ZB", 2, "ZA"), down("B0", 0, "A9"), down("A0", 0, "9"), down("a-1", 0, "a-0"),
        down("a-0", 0, "a,9")));

INSTANTIATE_TEST_SUITE_P(PrevWidthCaseAndBorrow, Stepping,
    ::testing::Values(down("", 0, "1"), down("", 2, "A"), down("100", 0, "099"), down("1000", 0, "0999"),
        down("0000", 0, "999"), down("b", 1, "a"), down("SC_10", 0, "SC_09"), down("A00", 0, "99"),
        down("aA", 1, "Z"),
        // No letter-or-digit test downwards: punctuation steps too.
        down("x_", 0, "x^")));

// The inverse holds on integers while the width does.
TEST(NameStepping, UpAndDownAreInverseWhileWidthHolds)
{
    for (const char* n : { "1", "007", "099", "42", "A9", "SC_12", "b" }) {
        const QString name = QString::fromLatin1(n);
        EXPECT_EQ(KRC_NameHelper::getPrevName(KRC_NameHelper::getNextName(name, 0), 0), name) << n;
    }
}

} // namespace
