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

struct FlagCase
{
    int flag;
    bool locked;
    bool custom;
};

class ObjectNameFlags : public testing::TestWithParam<FlagCase>
{
};

TEST_P(ObjectNameFlags, BitsAreIndependent)
{
    const FlagCase c = GetParam();
    KRC_ObjectName name;
    EXPECT_EQ(0, name.setFlag(c.flag));
    EXPECT_EQ(c.flag, name.flag());
    EXPECT_EQ(c.locked, name.isLocked());
    EXPECT_EQ(c.custom, name.isCustom());
    EXPECT_EQ(!c.custom, name.isAuto());
}

INSTANTIATE_TEST_SUITE_P(Words, ObjectNameFlags,
    testing::Values(FlagCase { 0, false, false }, FlagCase { 1, true, false }, FlagCase { 2, false, true },
        FlagCase { 3, true, true }, FlagCase { 4, false, false }, FlagCase { 7, true, true },
        FlagCase { -1, true, true }));

TEST(ObjectName, SetFlagReturnsThePreviousWord)
{
    KRC_ObjectName name;
    EXPECT_EQ(0, name.setFlag(3));
    EXPECT_EQ(3, name.setFlag(2));
    EXPECT_EQ(2, name.setFlag(0));
    EXPECT_EQ(0, name.flag());
}

TEST(ObjectName, CopiesAreIndependent)
{
    KRC_ObjectName source;
    source.setValue(QStringLiteral("SH010"));
    source.setFlag(KRC_ObjectName::kCustom);

    KRC_ObjectName copy(source);
    KRC_ObjectName assigned;
    assigned = source;
    for (KRC_ObjectName const* name : { &copy, &assigned }) {
        EXPECT_EQ(QStringLiteral("SH010"), name->value());
        EXPECT_EQ(KRC_ObjectName::kCustom, name->flag());
    }

    source.setValue(QStringLiteral("SH020"));
    source.setFlag(KRC_ObjectName::kLocked);
    EXPECT_EQ(QStringLiteral("SH010"), copy.value());
    EXPECT_TRUE(copy.isCustom());
    EXPECT_FALSE(copy.isLocked());

    copy.setValue(QStringLiteral("X"));
    EXPECT_EQ(QStringLiteral("SH020"), source.value());
    EXPECT_EQ(QStringLiteral("SH010"), assigned.value());
}

TEST(ObjectName, SelfAssignmentKeepsTheName)
{
    KRC_ObjectName name;
    name.setValue(QStringLiteral("A"));
    name.setFlag(3);
    KRC_ObjectName& alias = name;
    name = alias;
    EXPECT_EQ(QStringLiteral("A"), name.value());
    EXPECT_EQ(3, name.flag());
}

} // namespace
