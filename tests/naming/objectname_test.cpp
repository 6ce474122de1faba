#include "naming/KRC_ObjectName.h"

#include <gtest/gtest.h>

namespace {

TEST(ObjectName, NewNameIsAutoUnlockedAndNull)
{
    KRC_ObjectName name;
    EXPECT_TRUE(name.value().isNull());
    EXPECT_EQ(0, name.flag());
    EXPECT_TRUE(name.isAuto());
    EXPECT_FALSE(name.isCustom());
    EXPECT_FALSE(name.isLocked());
}

TEST(ObjectName, FlagBitsAreIndependentAndSetFlagReturnsThePreviousWord)
{
    struct
    {
        int flag;
        bool locked;
        bool custom;
    } const cases[] = { { 0, false, false }, { 1, true, false }, { 2, false, true }, { 3, true, true },
        { 4, false, false }, { -1, true, true } };
    KRC_ObjectName name;
    int previous = 0;
    for (auto const& c : cases) {
        EXPECT_EQ(previous, name.setFlag(c.flag));
        previous = c.flag;
        EXPECT_EQ(c.locked, name.isLocked()) << c.flag;
        EXPECT_EQ(c.custom, name.isCustom()) << c.flag;
        EXPECT_EQ(!c.custom, name.isAuto()) << c.flag;
    }
}

TEST(ObjectName, CopiesAreIndependent)
{
    KRC_ObjectName source;
    source.setValue(QStringLiteral("SH010"));
    source.setFlag(KRC_ObjectName::kCustom);
    KRC_ObjectName copy(source);
    KRC_ObjectName assigned;
    assigned = source;

    source.setValue(QStringLiteral("SH020"));
    source.setFlag(KRC_ObjectName::kLocked);
    for (KRC_ObjectName const* name : { &copy, &assigned }) {
        EXPECT_EQ(QStringLiteral("SH010"), name->value());
        EXPECT_EQ(KRC_ObjectName::kCustom, name->flag());
    }
    copy.setValue(QStringLiteral("X"));
    EXPECT_EQ(QStringLiteral("SH010"), assigned.value());
}

} // namespace
