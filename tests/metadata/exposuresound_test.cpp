// The panel's exposure points and sound annotations: the frame arithmetic, the primary
// and id rules, and what their readers skip.
#include "metadata/KRC_ExposurePoints.h"
#include "metadata/KRC_SoundAnnotation.h"
#include "metadata_test_support.h"

#include <gtest/gtest.h>

namespace {

TEST(ExposurePoints, FramesKeepSinglePrecision)
{
    struct Case
    {
        int length;
        float point;
        int frame;
    };
    // On long panels single precision lands a frame off the double answer (9990001).
    const Case cases[] = { { 1, 0.9f, 1 }, { 10, 0.0f, 1 }, { 10, 1.0f, 10 }, { 10, 0.5f, 6 },
        { 100, 0.25f, 26 }, { 10000001, 0.999f, 9990002 } };
    for (const Case& c : cases)
        EXPECT_EQ(c.frame, KRC_ExposurePoints::getExposureFrame(c.length, c.point))
            << c.length << " " << c.point;
}

TEST(ExposurePoints, OnlyTheFirstPointBecomesPrimary)
{
    KRC_ExposurePoints points;
    EXPECT_EQ(1, points.getPrimaryExposureFrame(100));
    EXPECT_TRUE(points.insertExposurePoint(0.5f) && !points.insertExposurePoint(0.5f)
        && points.insertExposurePoint(0.25f));
    EXPECT_EQ(0.5f, points.getPrimaryExposurePoint());
    EXPECT_EQ(QStringLiteral("primaryExposure=0.5, Others=0.25, 0.5, \n"),
        metatest::dumpOf(points).section(QLatin1Char('\n'), -2));
    EXPECT_TRUE(points.removeExposurePoint(0.5f) && points.removeExposurePoint(0.25f));
    EXPECT_TRUE(points.getPrimaryExposurePoint() == 0.0f && points.isPrimaryExposurePoint(0.5f));
    points.setPrimaryExposurePoint(0.0f);
    EXPECT_TRUE(points.isValid()); // the panel's first frame
    points.setPrimaryExposurePoint(-0.1f);
    EXPECT_FALSE(points.isValid());
}

TEST(SoundAnnotation, IdsCountDeletedEntries)
{
    KRC_SoundAnnotation sounds;
    EXPECT_EQ(1, sounds.add(QStringLiteral("a.wav")));
    sounds.add(7, QStringLiteral("b.wav"));
    EXPECT_EQ(8, sounds.add(QStringLiteral("c.wav")));
    EXPECT_TRUE(sounds.remove(8));
    EXPECT_EQ(8, sounds.add(QStringLiteral("d.wav")));
    EXPECT_TRUE(sounds.markDeleted(8, true));
    EXPECT_EQ(9, sounds.add(QStringLiteral("e.wav")));
    EXPECT_FALSE(sounds.move(42, QStringLiteral("x.wav")) || sounds.remove(42));
    EXPECT_TRUE(sounds.markDeleted(9, true) && sounds.move(9, QStringLiteral("f.wav")));
    EXPECT_EQ(std::pair(QStringLiteral("d.wav"), 4u), std::pair(sounds.filePath(8), sounds.count()));
}

TEST(PanelRecordReaders, SkipWhatDoesNotParseAndKeepTheLastOfAnId)
{
    std::unique_ptr<PIO_Metadatas> sounds, points;
    KRC_SoundAnnotation* sound = metatest::readRecord<KRC_SoundAnnotation>(
        QStringLiteral("<soundAnnotation><soundFile id=\"x\" path=\"a\"/><soundFile id=\"5\" path=\"b\"/>"
                       "<soundFile id=\"5\" path=\"c\"/></soundAnnotation>"),
        sounds);
    ASSERT_TRUE(sound);
    EXPECT_EQ(std::pair(1u, QStringLiteral("c")), std::pair(sound->count(), sound->filePath(5)));
    KRC_ExposurePoints* point = metatest::readRecord<KRC_ExposurePoints>(
        QStringLiteral(
            "<exposurePoints primaryExposure=\"?\"><pt value=\"0.5\"/><pt value=\"\"/></exposurePoints>"),
        points);
    ASSERT_TRUE(point);
    EXPECT_EQ(KRC_ExposurePoints::ExposureList { 0.5f }, point->exposureList());
    EXPECT_FALSE(point->isPrimaryExposurePoint(0.5f));
}

} // namespace
