// Series names, multiples, and names taken apart: getName(value, type), getNextMultiple,
// getPrefixAndSuffix, getBaseName(name, ...), extractNumericalPart.
#include "naming/KRC_NameHelper.h"

#include "support/QtTestPrinters.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

using H = KRC_NameHelper;

TEST(SeriesName, EveryRuleCountsFromOne)
{
    // Rules 0 and 4 are numbers; below 1 the letter rules have no name but rule 3's
    // step below "A".
    EXPECT_EQ(QStringList({ H::getName(703, 0), H::getName(703, 4), H::getName(0, 0), H::getName(0, 1),
                  H::getName(0, 2), H::getName(0, 3) }),
        QStringList({ "703", "703", "0", "", "", "@" }));
    // The letter series (1 "A", 27 "AA" or "ZA", 703 "AAA" or "ZZA" or 27 "Z"s then "A")
    // agree at every value with stepping from the first name.
    for (int type : { 1, 2, 3 }) {
        QString stepped = QStringLiteral("A");
        for (int value = 1; value <= 800; ++value, stepped = H::getNextName(stepped, type))
            ASSERT_EQ(H::getName(value, type), stepped) << "rule " << type << " value " << value;
    }
}

TEST(NextMultiple, LeastMultipleStrictlyAbove)
{
    const int rows[][3] = { { 0, 10, 10 }, { 10, 10, 20 }, { 15, 10, 20 }, { 7, 3, 9 }, { 100, 3, 102 },
        { 99, 3, 102 }, { -7, 10, 10 }, { 15, -10, 20 }, { 4, 0, 5 }, { INT_MAX, 10, INT_MAX } };
    for (const auto& r : rows)
        EXPECT_EQ(H::getNextMultiple(r[0], r[1]), r[2]) << r[0] << " by " << r[1];
}

TEST(PrefixAndSuffix, SplitsAtTheFirstSeparator)
{
    const struct
    {
        const char *name, *prefix;
        int value, length;
        const char* suffix;
    } rows[] = { { "12_b", "12", 12, 2, "_b" }, { "AB", "AB", INT_MIN, 2, "" },
        { "a.b.c", "a", INT_MIN, 1, ".b.c" }, { "007 take 2", "007", 7, 3, " take 2" },
        { "", "", INT_MIN, 0, "" } };
    for (const auto& r : rows) {
        QString prefix, suffix = QStringLiteral("stale");
        int value = 0, length = -1;
        H::getPrefixAndSuffix(QLatin1String(r.name), prefix, value, length, suffix);
        EXPECT_EQ(std::make_tuple(prefix, value, length, suffix),
            std::make_tuple(
                QString(QLatin1String(r.prefix)), r.value, r.length, QString(QLatin1String(r.suffix))))
            << r.name;
    }
}

TEST(BaseName, StepsTheLastPartAndPadsTheHead)
{
    const struct
    {
        const char* name;
        int type, minLength, count;
        const char* expected;
    } rows[] = { { "12", 0, 2, 1, "13" }, { "5", 0, 3, 1, "006" }, { "SC_12", 0, 0, 1, "SC_13" },
        { "SC_12", 0, 4, 1, "00SC_13" }, { "A.9", 1, 0, 1, "A.10" }, { "a.B", 1, 0, 3, "a.E" },
        { "12_", 0, 0, 1, "13_" }, { "_5", 0, 0, 1, "_6" }, { "12", 0, 0, -1, "11" },
        { "0", 0, 0, -1, "999" }, { "_", 0, 0, 1, "1_" },
        // Beyond the reference rows: no step, several down, inner separators, spaces.
        { "SC_12", 0, 0, 0, "SC_12" }, { "SC_12", 0, 0, -3, "SC_09" }, { "a.b.9", 0, 0, 1, "a.b.10" },
        { "Shot 1", 0, 0, 1, "Shot 2" }, { "Z", 1, 3, 1, "0AA" }, { "A", 1, 0, -1, "A_0" } };
    for (const auto& r : rows)
        EXPECT_EQ(
            H::getBaseName(QLatin1String(r.name), r.type, r.minLength, r.count), QLatin1String(r.expected))
            << r.name << " rule " << r.type << " width " << r.minLength << " count " << r.count;
}

TEST(NumericalPart, CutsAroundTheDigits)
{
    const struct
    {
        const char* name;
        QStringList parts; // empty: none found
        int index, value;
        bool withTailOnly;
    } rows[] = { { "SC_12b", { "SC", "_", "12", "b" }, 2, 12, true }, { "12", { "12", "" }, 0, 12, true },
        { "A12B", { "A", "12", "B", "" }, 1, 12, true }, { "A1_B", { "A", "1", "_B" }, 1, 1, false },
        { "A_1_2", { "A_1", "_", "2" }, 2, 2, true }, { "a1b2", { "a1b", "2", "" }, 1, 2, true },
        { "_7", { "", "_", "7" }, 2, 7, true }, { "A1_", { "A", "1", "_" }, 1, 1, false },
        { "ABC", {}, 0, 0, false }, { "", {}, 0, 0, false }, { "A_B", {}, 0, 0, false },
        { "SC_010", { "SC", "_", "010" }, 2, 10, true }, { "12_34_x", { "12_", "34", "_x" }, 1, 34, false } };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.name);
        const bool found = !r.parts.isEmpty();
        QStringList parts { QStringLiteral("stale") };
        int index = -7, value = -7;
        EXPECT_EQ(H::extractNumericalPart(QLatin1String(r.name), parts, index, value, false), found);
        EXPECT_EQ(std::make_tuple(parts, index, value),
            std::make_tuple(r.parts, found ? r.index : -7, found ? r.value : -7));
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
