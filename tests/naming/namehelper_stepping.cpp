// Stepping names up and down: getNextName, getPrevName, getName(name, type, forward).
#include "naming/KRC_NameHelper.h"

#include "support/QtTestPrinters.h"

#include <gtest/gtest.h>

namespace {

using H = KRC_NameHelper;

struct Step
{
    const char* name;
    int type;
    const char* expected;
};

// Both entry points give the expected neighbour of every row, in one direction.
void expectSteps(bool forward, std::initializer_list<Step> rows)
{
    for (const Step& s : rows) {
        const QString name = QString::fromUtf8(s.name), expected = QString::fromUtf8(s.expected);
        SCOPED_TRACE(testing::Message()
            << (forward ? "up from \"" : "down from \"") << s.name << "\" rule " << s.type);
        EXPECT_EQ(forward ? H::getNextName(name, s.type) : H::getPrevName(name, s.type), expected);
        EXPECT_EQ(H::getName(name, s.type, forward), expected);
    }
}

TEST(NameStepping, UpAndDown)
{
    expectSteps(true,
        { { "", 0, "1" }, { "", 1, "A" }, { "", 4, "A" }, { "09", 0, "10" }, { "099", 0, "100" },
            { "99", 0, "100" }, { "A", 1, "B" }, { "Z", 1, "AA" }, { "AZ", 1, "BA" }, { "ZZ", 1, "AAA" },
            { "z", 1, "aa" }, { "Z", 0, "1A" }, { "Z", 2, "ZA" }, { "ZZ", 2, "ZAA" }, { "Z", 3, "ZA" },
            { "ZZ", 3, "ZZA" }, { "ZAZ", 3, "ZBA" }, { "A9", 0, "B0" }, { "z9", 0, "1a0" },
            { "a-9", 0, "a-10" }, { "a-9", 1, "a-A0" },
            // Width, case and carries beyond the reference rows.
            { "007", 0, "008" }, { "999", 0, "1000" }, { "0", 0, "1" }, { "-1", 0, "00" }, { "Az", 3, "Ba" },
            { "Z", 4, "A" }, { "zZ", 1, "aaA" }, { "Zz", 1, "AAa" }, { "b", 1, "c" }, { "SC_9", 1, "SC_A0" },
            { "a 9", 0, "a 10" }, { "2147483647", 0, "2147483648" },
            // Too long for 32 bits: stepped as text, digit by digit.
            { "99999999999", 0, "100000000000" },
            // A letter beyond Latin-1 reads as 0 and becomes U+0001.
            { "\xce\xa9", 0, "\x01" } });

    expectSteps(false,
        { { "10", 0, "09" }, { "1", 0, "0" }, { "0", 0, "999" }, { "00", 0, "999" }, { "-3", 0, "999" },
            { "B", 1, "A" }, { "A", 1, "A_0" }, { "A", 0, "A_0" }, { "a", 1, "a_0" }, { "AA", 1, "Z" },
            { "BA", 1, "Z" }, { "BA", 2, "B" }, { "ZA", 3, "Z" }, { "ZB", 2, "ZA" }, { "B0", 0, "A9" },
            { "A0", 0, "9" }, { "a-1", 0, "a-0" }, { "a-0", 0, "a,9" },
            // Width, case and borrows beyond the reference rows.
            { "", 0, "1" }, { "", 2, "A" }, { "100", 0, "099" }, { "1000", 0, "0999" }, { "0000", 0, "999" },
            { "b", 1, "a" }, { "SC_10", 0, "SC_09" }, { "A00", 0, "99" }, { "aA", 1, "Z" },
            // No letter-or-digit test downwards: punctuation steps too.
            { "x_", 0, "x^" } });
}

} // namespace
