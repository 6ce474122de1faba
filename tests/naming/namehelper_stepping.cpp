// Stepping names up and down: getNextName, getPrevName, getName(name, type, forward).
#include "naming/KRC_NameHelper.h"

#include <gtest/gtest.h>

namespace {

struct StepCase
{
    const char* name;
    int type;
    const char* expected;
};

void PrintTo(const StepCase& c, std::ostream* os)
{
    *os << '"' << c.name << "\" rule " << c.type;
}

class NextName : public ::testing::TestWithParam<StepCase>
{
};

TEST_P(NextName, StepsUp)
{
    const StepCase& c = GetParam();
    EXPECT_EQ(KRC_NameHelper::getNextName(QString::fromUtf8(c.name), c.type), QString::fromUtf8(c.expected));
    EXPECT_EQ(
        KRC_NameHelper::getName(QString::fromUtf8(c.name), c.type, true), QString::fromUtf8(c.expected));
}

INSTANTIATE_TEST_SUITE_P(Table, NextName,
    ::testing::Values(StepCase { "", 0, "1" }, StepCase { "", 1, "A" }, StepCase { "", 4, "A" },
        StepCase { "09", 0, "10" }, StepCase { "099", 0, "100" }, StepCase { "99", 0, "100" },
        StepCase { "A", 1, "B" }, StepCase { "Z", 1, "AA" }, StepCase { "AZ", 1, "BA" },
        StepCase { "ZZ", 1, "AAA" }, StepCase { "z", 1, "aa" }, StepCase { "Z", 0, "1A" },
        StepCase { "Z", 2, "ZA" }, StepCase { "ZZ", 2, "ZAA" }, StepCase { "Z", 3, "ZA" },
        StepCase { "ZZ", 3, "ZZA" }, StepCase { "ZAZ", 3, "ZBA" }, StepCase { "A9", 0, "B0" },
        StepCase { "z9", 0, "1a0" }, StepCase { "a-9", 0, "a-10" }, StepCase { "a-9", 1, "a-A0" }));

// Width, case and carries beyond the specified rows.
INSTANTIATE_TEST_SUITE_P(WidthCaseAndCarry, NextName,
    ::testing::Values(StepCase { "007", 0, "008" }, StepCase { "999", 0, "1000" }, StepCase { "0", 0, "1" },
        StepCase { "-1", 0, "00" }, StepCase { "Az", 3, "Ba" }, StepCase { "Z", 4, "A" },
        StepCase { "zZ", 1, "aaA" }, StepCase { "Zz", 1, "AAa" }, StepCase { "b", 1, "c" },
        StepCase { "SC_9", 1, "SC_A0" }, StepCase { "a 9", 0, "a 10" },
        StepCase { "2147483647", 0, "2147483648" },
        // Too long for 32 bits: stepped as text, digit by digit.
        StepCase { "99999999999", 0, "100000000000" },
        // A letter beyond Latin-1 reads as 0 and becomes U+0001.
        StepCase { "\xce\xa9", 0, "\x01" }));

class PrevName : public ::testing::TestWithParam<StepCase>
{
};

TEST_P(PrevName, StepsDown)
{
    const StepCase& c = GetParam();
    EXPECT_EQ(KRC_NameHelper::getPrevName(QString::fromUtf8(c.name), c.type), QString::fromUtf8(c.expected));
    EXPECT_EQ(
        KRC_NameHelper::getName(QString::fromUtf8(c.name), c.type, false), QString::fromUtf8(c.expected));
}

INSTANTIATE_TEST_SUITE_P(Table, PrevName,
    ::testing::Values(StepCase { "10", 0, "09" }, StepCase { "1", 0, "0" }, StepCase { "0", 0, "999" },
        StepCase { "00", 0, "999" }, StepCase { "-3", 0, "999" }, StepCase { "B", 1, "A" },
        StepCase { "A", 1, "A_0" }, StepCase { "A", 0, "A_0" }, StepCase { "a", 1, "a_0" },
        StepCase { "AA", 1, "Z" }, StepCase { "BA", 1, "Z" }, StepCase { "BA", 2, "B" },
        StepCase { "ZA", 3, "Z" }, StepCase { "ZB", 2, "ZA" }, StepCase { "B0", 0, "A9" },
        StepCase { "A0", 0, "9" }, StepCase { "a-1", 0, "a-0" }, StepCase { "a-0", 0, "a,9" }));

INSTANTIATE_TEST_SUITE_P(WidthCaseAndBorrow, PrevName,
    ::testing::Values(StepCase { "", 0, "1" }, StepCase { "", 2, "A" }, StepCase { "100", 0, "099" },
        StepCase { "1000", 0, "0999" }, StepCase { "0000", 0, "999" }, StepCase { "b", 1, "a" },
        StepCase { "SC_10", 0, "SC_09" }, StepCase { "A00", 0, "99" }, StepCase { "aA", 1, "Z" },
        // No letter-or-digit test downwards: punctuation steps too.
        StepCase { "x_", 0, "x^" }));

// The inverse holds on integers while the width does.
TEST(NameStepping, UpAndDownAreInverseWhileWidthHolds)
{
    for (const char* n : { "1", "007", "099", "42", "A9", "SC_12", "b" }) {
        const QString name = QString::fromLatin1(n);
        EXPECT_EQ(KRC_NameHelper::getPrevName(KRC_NameHelper::getNextName(name, 0), 0), name) << n;
    }
    EXPECT_EQ(KRC_NameHelper::getNextName(QStringLiteral("099"), 0), QStringLiteral("100"));
    EXPECT_EQ(KRC_NameHelper::getPrevName(QStringLiteral("100"), 0), QStringLiteral("099"));
    EXPECT_EQ(KRC_NameHelper::getPrevName(QStringLiteral("1000"), 0), QStringLiteral("0999"));
    EXPECT_EQ(KRC_NameHelper::getPrevName(KRC_NameHelper::getNextName(QStringLiteral("Z"), 1), 1),
        QStringLiteral("Z"));
}

} // namespace
