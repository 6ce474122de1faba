// A name's value and flag word.
#include "naming/KRC_ObjectName.h"

#include <gtest/gtest.h>

namespace {

// A new name is null and auto; the lock and custom bits read independently of each
// other and of the rest of the word, and setFlag hands back the word it replaced.
TEST(ObjectName, FlagBitsAreIndependentAndSetFlagReturnsThePreviousWord)
{
    const struct
    {
        int flag;
        bool locked, custom;
    } rows[] = { { 0, false, false }, { 1, true, false }, { 2, false, true }, { 3, true, true },
        { 4, false, false }, { -1, true, true } };
    KRC_ObjectName name;
    EXPECT_TRUE(name.value().isNull() && name.isAuto() && !name.isLocked());
    int previous = 0;
    for (const auto& r : rows) {
        EXPECT_EQ(name.setFlag(r.flag), previous);
        previous = r.flag;
        EXPECT_EQ(std::tuple(name.isLocked(), name.isCustom(), name.isAuto()),
            std::tuple(r.locked, r.custom, !r.custom))
            << r.flag;
    }
}

} // namespace
