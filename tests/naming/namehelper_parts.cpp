// Series names, multiples, and names taken apart: getName(value, type), getNextMultiple,
// getPrefixAndSuffix, getBaseName(name, ...), extractNumericalPart.
#include "naming/KRC_NameHelper.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

using H = KRC_NameHelper;

TEST(SeriesName, EveryRuleCountsFromOne)
{
    struct Row
    {
        int value;
        const char *numeric, *alpha, *zPrefix, *zRepeat;
    };
    for (const Row& r :
        { Row { 1, "1", "A", "A", "A" }, Row { 26, "26", "Z", "Z", "Z" }, Row { 27, "27", "AA", "ZA", "ZA" },
            Row { 52, "52", "AZ", "ZZ", "ZZ" }, Row { 53, "53", "BA", "ZAA", "ZZA" },
            Row { 78, "78", "BZ", "ZAZ", "ZZZ" }, Row { 79, "79", "CA", "ZBA", "ZZZA" },
            Row { 703, "703", "AAA", "ZZA", "ZZZZZZZZZZZZZZZZZZZZZZZZZZZA" }, Row { 0, "0", "", "", "@" } }) {
        SCOPED_TRACE(r.value);
        EXPECT_EQ(H::getName(r.value, 0), QLatin1String(r.numeric));
        EXPECT_EQ(H::getName(r.value, 4), QLatin1String(r.numeric));
        EXPECT_EQ(H::getName(r.value, 1), QLatin1String(r.alpha));
        EXPECT_EQ(H::getName(r.value, 2), QLatin1String(r.zPrefix));
        EXPECT_EQ(H::getName(r.value, 3), QLatin1String(r.zRepeat));
    }
}

TEST(SeriesName, AgreesWithSteppingFromTheFirstName)
{
    for (int type : { 1, 2, 3 }) {
        QString stepped = QStringLiteral("A");
        for (int value = 1; value <= 800; ++value, stepped = H::getNextName(stepped, type))
            ASSERT_EQ(H::getName(value, type), stepped) << "rule " << type << " value " << value;
    }
}

TEST(NextMultiple, LeastMultipleStrictlyAbove)
{
    struct Row
    {
        int value, multiple, expected;
    };
    for (const Row& r : { Row { 0, 10, 10 }, Row { 10, 10, 20 }, Row { 15, 10, 20 }, Row { 7, 3, 9 },
             Row { 100, 3, 102 }, Row { 99, 3, 102 }, Row { -7, 10, 10 }, Row { 15, -10, 20 },
             Row { 4, 0, 5 }, Row { INT_MAX, 10, INT_MAX } })
        EXPECT_EQ(H::getNextMultiple(r.value, r.multiple), r.expected) << r.value << " by " << r.multiple;
}

TEST(PrefixAndSuffix, SplitsAtTheFirstSeparator)
{
    struct Row
    {
        const char *name, *prefix;
        int value, length;
        const char* suffix;
    };
    for (const Row& r : { Row { "12_b", "12", 12, 2, "_b" }, Row { "AB", "AB", INT_MIN, 2, "" },
             Row { "a.b.c", "a", INT_MIN, 1, ".b.c" }, Row { "007 take 2", "007", 7, 3, " take 2" },
             Row { "", "", INT_MIN, 0, "" } }) {
        QString prefix, suffix = QStringLiteral("stale");
        int value = 0, length = -1;
        H::getPrefixAndSuffix(QLatin1String(r.name), prefix, value, length, suffix);
        EXPECT_EQ(prefix, QLatin1String(r.prefix)) << r.name;
        EXPECT_EQ(value, r.value) << r.name;
        EXPECT_EQ(length, r.length) << r.name;
        EXPECT_EQ(suffix, QLatin1String(r.suffix)) << r.name;
    }
}

TEST(BaseName, StepsTheLastPartAndPadsTheHead)
{
    struct Row
    {
        const char* name;
        int type, minLength, count;
        const char* expected;
    };
    for (const Row& r :
        { Row { "12", 0, 2, 1, "13" }, Row { "5", 0, 3, 1, "006" }, Row { "SC_12", 0, 0, 1, "SC_13" },
            Row { "SC_12", 0, 4, 1, "00SC_13" }, Row { "A.9", 1, 0, 1, "A.10" },
            Row { "a.B", 1, 0, 3, "a.E" }, Row { "12_", 0, 0, 1, "13_" }, Row { "_5", 0, 0, 1, "_6" },
            Row { "12", 0, 0, -1, "11" }, Row { "0", 0, 0, -1, "999" }, Row { "_", 0, 0, 1, "1_" },
            // Beyond the specified rows: no step, several down, inner separators, spaces.
            Row { "SC_12", 0, 0, 0, "SC_12" }, Row { "SC_12", 0, 0, -3, "SC_09" },
            Row { "a.b.9", 0, 0, 1, "a.b.10" }, Row { "Shot 1", 0, 0, 1, "Shot 2" },
            Row { "Z", 1, 3, 1, "0AA" }, Row { "A", 1, 0, -1, "A_0" } })
        EXPECT_EQ(
            H::getBaseName(QLatin1String(r.name), r.type, r.minLength, r.count), QLatin1String(r.expected))
            << r.name << " rule " << r.type << " width " << r.minLength << " count " << r.count;
}

TEST(NumericalPart, CutsAroundTheDigits)
{
    struct Row
    {
        const char* name;
        QStringList parts; // empty: none found
        int index, value;
        bool withTailOnly;
    };
    for (const Row& r : { Row { "SC_12b", { "SC", "_", "12", "b" }, 2, 12, true },
             Row { "12", { "12", "" }, 0, 12, true }, Row { "A12B", { "A", "12", "B", "" }, 1, 12, true },
             Row { "A1_B", { "A", "1", "_B" }, 1, 1, false },
             Row { "A_1_2", { "A_1", "_", "2" }, 2, 2, true }, Row { "a1b2", { "a1b", "2", "" }, 1, 2, true },
             Row { "_7", { "", "_", "7" }, 2, 7, true }, Row { "A1_", { "A", "1", "_" }, 1, 1, false },
             Row { "ABC", {}, 0, 0, false }, Row { "", {}, 0, 0, false }, Row { "A_B", {}, 0, 0, false },
             Row { "SC_010", { "SC", "_", "010" }, 2, 10, true },
             Row { "12_34_x", { "12_", "34", "_x" }, 1, 34, false } }) {
        SCOPED_TRACE(r.name);
        QStringList parts { QStringLiteral("stale") };
        int index = -7, value = -7;
        EXPECT_EQ(
            H::extractNumericalPart(QLatin1String(r.name), parts, index, value, false), !r.parts.isEmpty());
        EXPECT_EQ(parts, r.parts);
        EXPECT_EQ(index, r.parts.isEmpty() ? -7 : r.index);
        EXPECT_EQ(value, r.parts.isEmpty() ? -7 : r.value);
        EXPECT_EQ(parts.join(QString()), r.parts.isEmpty() ? QString() : QString::fromLatin1(r.name));
        EXPECT_EQ(H::extractNumericalPart(QLatin1String(r.name), parts, index, value, true), r.withTailOnly);
        EXPECT_EQ(parts, r.withTailOnly ? r.parts : QStringList());
    }
    // Digits too long for 32 bits are found but do not read.
    QStringList parts;
    int index = 0, value = 5;
    EXPECT_FALSE(H::extractNumericalPart(QStringLiteral("SC_99999999999"), parts, index, value, false));
    EXPECT_EQ(parts, (QStringList { "SC", "_", "99999999999" }));
}

} // namespace
