// Series names, multiples, and names taken apart: getName(value, type), getNextMultiple,
// getPrefixAndSuffix, getBaseName(name, ...), extractNumericalPart.
#include "naming/KRC_NameHelper.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

// getName(value, type) for the rules 0 and 4, 1, 2, 3 side by side.
struct SeriesRow
{
    int value;
    const char* numeric;
    const char* alpha;
    const char* zPrefix;
    const char* zRepeat;
};

class SeriesName : public ::testing::TestWithParam<SeriesRow>
{
};

TEST_P(SeriesName, EveryRule)
{
    const SeriesRow& r = GetParam();
    EXPECT_EQ(KRC_NameHelper::getName(r.value, 0), QLatin1String(r.numeric));
    EXPECT_EQ(KRC_NameHelper::getName(r.value, 4), QLatin1String(r.numeric));
    EXPECT_EQ(KRC_NameHelper::getName(r.value, 1), QLatin1String(r.alpha));
    EXPECT_EQ(KRC_NameHelper::getName(r.value, 2), QLatin1String(r.zPrefix));
    EXPECT_EQ(KRC_NameHelper::getName(r.value, 3), QLatin1String(r.zRepeat));
}

INSTANTIATE_TEST_SUITE_P(Table, SeriesName,
    ::testing::Values(SeriesRow { 1, "1", "A", "A", "A" }, SeriesRow { 26, "26", "Z", "Z", "Z" },
        SeriesRow { 27, "27", "AA", "ZA", "ZA" }, SeriesRow { 52, "52", "AZ", "ZZ", "ZZ" },
        SeriesRow { 53, "53", "BA", "ZAA", "ZZA" }, SeriesRow { 78, "78", "BZ", "ZAZ", "ZZZ" },
        SeriesRow { 79, "79", "CA", "ZBA", "ZZZA" },
        SeriesRow { 703, "703", "AAA", "ZZA", "ZZZZZZZZZZZZZZZZZZZZZZZZZZZA" }));

TEST(SeriesName, BelowOneIsUnguarded)
{
    EXPECT_EQ(KRC_NameHelper::getName(0, 1), QString(""));
    EXPECT_EQ(KRC_NameHelper::getName(-5, 2), QString(""));
    EXPECT_EQ(KRC_NameHelper::getName(0, 3), QString(QChar(64)));
    EXPECT_EQ(KRC_NameHelper::getName(0, 0), QString("0"));
}

TEST(SeriesName, AgreesWithSteppingFromTheFirstName)
{
    // The letter rules count the same way whether built from a number or stepped.
    for (int type : { 1, 2, 3 }) {
        QString stepped = QStringLiteral("A");
        for (int value = 1; value <= 800; ++value) {
            ASSERT_EQ(KRC_NameHelper::getName(value, type), stepped) << "rule " << type << " value " << value;
            stepped = KRC_NameHelper::getNextName(stepped, type);
        }
    }
}

TEST(NextMultiple, LeastMultipleStrictlyAbove)
{
    struct Row
    {
        int value, multiple, expected;
    };
    for (const Row& r :
        { Row { 0, 10, 10 }, Row { 10, 10, 20 }, Row { 15, 10, 20 }, Row { 7, 3, 9 }, Row { 100, 3, 102 },
            Row { 99, 3, 102 }, Row { 5, 10, 10 }, Row { -7, 10, 10 }, Row { 19, 10, 20 },
            Row { 101, 10, 110 }, Row { 15, -10, 20 }, Row { 4, 0, 5 }, Row { INT_MAX, 10, INT_MAX } })
        EXPECT_EQ(KRC_NameHelper::getNextMultiple(r.value, r.multiple), r.expected)
            << r.value << " by " << r.multiple;
}

TEST(PrefixAndSuffix, SplitsAtTheFirstSeparator)
{
    struct Row
    {
        const char* name;
        const char* prefix;
        int value;
        int length;
        const char* suffix;
    };
    for (const Row& r : { Row { "12_b", "12", 12, 2, "_b" }, Row { "AB", "AB", INT_MIN, 2, "" },
             Row { "a.b.c", "a", INT_MIN, 1, ".b.c" }, Row { "_x", "", INT_MIN, 0, "_x" },
             Row { "007 take 2", "007", 7, 3, " take 2" }, Row { "", "", INT_MIN, 0, "" } }) {
        QString prefix = QStringLiteral("stale");
        QString suffix = QStringLiteral("stale");
        int value = 0;
        int length = -1;
        KRC_NameHelper::getPrefixAndSuffix(QLatin1String(r.name), prefix, value, length, suffix);
        EXPECT_EQ(prefix, QLatin1String(r.prefix)) << r.name;
        EXPECT_EQ(value, r.value) << r.name;
        EXPECT_EQ(length, r.length) << r.name;
        EXPECT_EQ(suffix, QLatin1String(r.suffix)) << r.name;
    }
}

struct BaseNameRow
{
    const char* name;
    int type;
    int minLength;
    int count;
    const char* expected;
};

void PrintTo(const BaseNameRow& r, std::ostream* os)
{
    *os << '"' << r.name << "\" rule " << r.type << " width " << r.minLength << " count " << r.count;
}

class BaseName : public ::testing::TestWithParam<BaseNameRow>
{
};

TEST_P(BaseName, StepsTheLastPart)
{
    const BaseNameRow& r = GetParam();
    EXPECT_EQ(KRC_NameHelper::getBaseName(QLatin1String(r.name), r.type, r.minLength, r.count),
        QLatin1String(r.expected));
}

INSTANTIATE_TEST_SUITE_P(Table, BaseName,
    ::testing::Values(BaseNameRow { "12", 0, 2, 1, "13" }, BaseNameRow { "5", 0, 3, 1, "006" },
        BaseNameRow { "SC_12", 0, 0, 1, "SC_13" }, BaseNameRow { "SC_12", 0, 4, 1, "00SC_13" },
        BaseNameRow { "A.9", 1, 0, 1, "A.10" }, BaseNameRow { "a.B", 1, 0, 3, "a.E" },
        BaseNameRow { "12_", 0, 0, 1, "13_" }, BaseNameRow { "_5", 0, 0, 1, "_6" },
        BaseNameRow { "12", 0, 0, -1, "11" }, BaseNameRow { "0", 0, 0, -1, "999" },
        BaseNameRow { "_", 0, 0, 1, "1_" }));

INSTANTIATE_TEST_SUITE_P(SeparatorsAndCounts, BaseName,
    ::testing::Values(BaseNameRow { "SC_12", 0, 0, 0, "SC_12" }, BaseNameRow { "SC_12", 0, 0, -3, "SC_09" },
        BaseNameRow { "a.b.9", 0, 0, 1, "a.b.10" }, BaseNameRow { "Shot 1", 0, 0, 1, "Shot 2" },
        BaseNameRow { "SC_12", 0, 2, 1, "SC_13" }, BaseNameRow { "Z", 1, 3, 1, "0AA" },
        BaseNameRow { "", 0, 2, 1, "01" }, BaseNameRow { "A", 1, 0, -1, "A_0" }));

struct ExtractRow
{
    const char* name;
    QStringList parts;
    int index;
    int value;
    bool found;
    bool foundTailOnly;
};

void PrintTo(const ExtractRow& r, std::ostream* os)
{
    *os << '"' << r.name << '"';
}

class NumericalPart : public ::testing::TestWithParam<ExtractRow>
{
};

TEST_P(NumericalPart, CutsAroundTheDigits)
{
    const ExtractRow& r = GetParam();
    QStringList parts { QStringLiteral("stale") };
    int index = -7;
    int value = -7;
    EXPECT_EQ(
        KRC_NameHelper::extractNumericalPart(QLatin1String(r.name), parts, index, value, false), r.found);
    EXPECT_EQ(parts, r.parts);
    if (r.parts.isEmpty()) {
        EXPECT_EQ(index, -7);
        EXPECT_EQ(value, -7);
        return;
    }
    EXPECT_EQ(index, r.index);
    EXPECT_EQ(parts.join(QString()), QLatin1String(r.name));
    if (r.found) {
        EXPECT_EQ(value, r.value);
    }

    QStringList tailParts;
    const bool foundTailOnly
        = KRC_NameHelper::extractNumericalPart(QLatin1String(r.name), tailParts, index, value, true);
    EXPECT_EQ(foundTailOnly, r.foundTailOnly);
    EXPECT_EQ(tailParts, foundTailOnly ? r.parts : QStringList());
}

INSTANTIATE_TEST_SUITE_P(Table, NumericalPart,
    ::testing::Values(ExtractRow { "SC_12b", { "SC", "_", "12", "b" }, 2, 12, true, true },
        ExtractRow { "12", { "12", "" }, 0, 12, true, true },
        ExtractRow { "A12B", { "A", "12", "B", "" }, 1, 12, true, true },
        ExtractRow { "A1_B", { "A", "1", "_B" }, 1, 1, true, false },
        ExtractRow { "A_1_2", { "A_1", "_", "2" }, 2, 2, true, true },
        ExtractRow { "a1b2", { "a1b", "2", "" }, 1, 2, true, true },
        ExtractRow { "_7", { "", "_", "7" }, 2, 7, true, true },
        ExtractRow { "A1_", { "A", "1", "_" }, 1, 1, true, false },
        ExtractRow { "ABC", {}, 0, 0, false, false }));

INSTANTIATE_TEST_SUITE_P(Borders, NumericalPart,
    ::testing::Values(ExtractRow { "", {}, 0, 0, false, false }, ExtractRow { "A_B", {}, 0, 0, false, false },
        ExtractRow { "SC_010", { "SC", "_", "010" }, 2, 10, true, true },
        ExtractRow { "12_34_x", { "12_", "34", "_x" }, 1, 34, true, false },
        ExtractRow { "7 b", { "7", " b" }, 0, 7, true, false }));

TEST(NumericalPart, DigitsTooLongForAnIntAreFoundButDoNotRead)
{
    QStringList parts;
    int index = 0;
    int value = 5;
    EXPECT_FALSE(
        KRC_NameHelper::extractNumericalPart(QStringLiteral("SC_99999999999"), parts, index, value, false));
    EXPECT_EQ(parts, (QStringList { "SC", "_", "99999999999" }));
    EXPECT_EQ(index, 2);
}

} // namespace
