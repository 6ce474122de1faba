// Frame rates and timecodes: known labels at every kind of rate, drop-frame round trips, refused text.
#include "FrameRate.h"
#include "NearestWord.h"
#include "Timecode.h"

#include <gtest/gtest.h>

namespace {

FrameRate rate(const char* text, bool dropFrame = false)
{
    QString error;
    const FrameRate parsed = FrameRate::parse(QString::fromLatin1(text), dropFrame, &error);
    EXPECT_TRUE(parsed.isValid()) << text << ": " << error.toStdString();
    return parsed;
}

TEST(FrameRateText, ReadsWholeAndNtscRatesAndRefusesTheRest)
{
    const struct {
        const char* text;
        unsigned numerator, denominator;
    } accepted[] = { { "24", 24, 1 }, { "1000", 1000, 1 }, { "23.976", 24000, 1001 }, { "23.98", 24000, 1001 },
        { "29.97", 30000, 1001 }, { "59.94", 60000, 1001 }, { "24000/1001", 24000, 1001 }, { "25/1", 25, 1 },
        { "25.0", 25, 1 } };
    for (const auto& one : accepted) {
        const FrameRate parsed = rate(one.text);
        EXPECT_EQ(parsed.numerator(), one.numerator) << one.text;
        EXPECT_EQ(parsed.denominator(), one.denominator) << one.text;
    }
    for (const char* text : { "0", "1001", "24.5", "30/1002", "24001/1001", "ten", "-24", "+24", "", "nan" }) {
        QString error;
        EXPECT_FALSE(FrameRate::parse(QString::fromLatin1(text), false, &error).isValid()) << text;
        EXPECT_TRUE(error.contains(QStringLiteral("not '%1'").arg(QString::fromLatin1(text)))) << error.toStdString();
    }
    for (const char* text : { "24", "30", "23.976", "25" }) {
        QString error;
        EXPECT_FALSE(FrameRate::parse(QString::fromLatin1(text), true, &error).isValid()) << text;
        EXPECT_TRUE(error.startsWith(QStringLiteral("--drop-frame only at 29.97 or 59.94"))) << error.toStdString();
    }
    EXPECT_EQ(rate("29.97", true).toString(), QStringLiteral("29.97 drop-frame"));
    EXPECT_EQ(rate("24000/1001").toString(), QStringLiteral("23.976"));
}

TEST(TimecodeLabels, KnownPairsAtWholeNtscAndDropFrameRates)
{
    const struct {
        const char* rate;
        bool dropFrame;
        unsigned long long count;
        const char* label;
    } pairs[] = {
        { "24", false, 0, "00:00:00:00" },
        { "24", false, 86399, "00:59:59:23" },
        { "24", false, 360000ull * 24, "100:00:00:00" }, // hours grow past 99
        { "120", false, 119, "00:00:00:119" },
        { "23.976", false, 86400, "01:00:00:00" }, // NTSC without dropping counts at the nominal rate
        { "29.97", true, 0, "00:00:00;00" },
        { "29.97", true, 1799, "00:00:59;29" },
        { "29.97", true, 1800, "00:01:00;02" }, // labels ;00 and ;01 are skipped
        { "29.97", true, 3597, "00:01:59;29" },
        { "29.97", true, 3598, "00:02:00;02" },
        { "29.97", true, 17981, "00:09:59;29" },
        { "29.97", true, 17982, "00:10:00;00" }, // every tenth minute keeps them
        { "29.97", true, 19782, "00:11:00;02" },
        { "29.97", true, 107892, "01:00:00;00" },
        { "29.97", true, 2589407, "23:59:59;29" },
        { "59.94", true, 3599, "00:00:59;59" },
        { "59.94", true, 3600, "00:01:00;04" },
        { "59.94", true, 35964, "00:10:00;00" },
        { "59.94", true, 215784, "01:00:00;00" },
    };
    for (const auto& pair : pairs) {
        const Timecode clock(rate(pair.rate, pair.dropFrame));
        EXPECT_EQ(clock.label(pair.count), QString::fromLatin1(pair.label)) << pair.rate << " " << pair.count;
        unsigned long long back = 0;
        QString error;
        EXPECT_TRUE(clock.count(QString::fromLatin1(pair.label), &back, &error)) << error.toStdString();
        EXPECT_EQ(back, pair.count) << pair.label;
    }
}

TEST(TimecodeLabels, DropFrameRoundTripsEveryFrameAcrossTenMinuteBoundaries)
{
    for (const char* text : { "29.97", "59.94" }) {
        const Timecode clock(rate(text, true));
        const unsigned long long span = 25ull * 60 * clock.rate().nominal(); // past two 10-minute blocks
        QString previous;
        for (unsigned long long count = 0; count < span; ++count) {
            const QString label = clock.label(count);
            unsigned long long back = 0;
            QString error;
            ASSERT_TRUE(clock.count(label, &back, &error)) << label.toStdString() << ": " << error.toStdString();
            ASSERT_EQ(back, count) << label.toStdString();
            ASSERT_LT(previous, label); // labels only grow (fixed width up to 99 hours)
            previous = label;
        }
    }
}

TEST(TimecodeLabels, RefusesLabelsThatNameNoFrame)
{
    const struct {
        const char* rate;
        bool dropFrame;
        const char* label;
        const char* reason;
    } refused[] = {
        { "24", false, "00:00:08:24", "frames go from 0 to 23" },
        { "24", false, "00:60:00:00", "minutes and seconds go from 00 to 59" },
        { "24", false, "00:00:01;00", "';' marks a drop-frame timecode" },
        { "24", false, "8:12", "a timecode is HH:MM:SS:FF" },
        { "29.97", true, "00:01:00;01", "drop-frame skips frames 0 to 1" },
        { "59.94", true, "00:02:00;03", "drop-frame skips frames 0 to 3" },
    };
    for (const auto& one : refused) {
        unsigned long long count = 0;
        QString error;
        EXPECT_FALSE(Timecode(rate(one.rate, one.dropFrame)).count(QString::fromLatin1(one.label), &count, &error))
            << one.label;
        EXPECT_TRUE(error.startsWith(QString::fromLatin1(one.reason))) << error.toStdString();
    }
}

TEST(TimecodeLabels, StartOffsetMovesFrameOneAndTheWayBack)
{
    const Timecode clock(rate("29.97", true), 107892); // 01:00:00;00
    EXPECT_EQ(clock.ofFrame(1), QStringLiteral("01:00:00;00"));
    EXPECT_EQ(clock.ofFrame(1801), QStringLiteral("01:01:00;02"));
    EXPECT_EQ(clock.ofLength(1800), QStringLiteral("00:01:00;02")); // a duration ignores the start
    unsigned long long frame = 0;
    QString error;
    EXPECT_TRUE(clock.frameOf(QStringLiteral("01:01:00;02"), &frame, &error));
    EXPECT_EQ(frame, 1801u);
    EXPECT_FALSE(clock.frameOf(QStringLiteral("00:59:59;29"), &frame, &error));
    EXPECT_EQ(error, QStringLiteral("it comes before the start, 01:00:00;00"));
}

TEST(NearestWordChoice, SuggestsOnlyNearWords)
{
    const QStringList options { "--fps", "--fields", "--json", "--layers", "--drop-frame" };
    const std::pair<const char*, const char*> cases[] = { { "--fsp", "--fps" }, { "--jsno", "--json" },
        { "--layer", "--layers" }, { "--dropframe", "--drop-frame" }, { "--colour", nullptr }, { "x", nullptr } };
    for (const auto& [typed, expected] : cases)
        EXPECT_EQ(NearestWord::among(QString::fromLatin1(typed), options), QString::fromLatin1(expected)) << typed;
}

} // namespace
