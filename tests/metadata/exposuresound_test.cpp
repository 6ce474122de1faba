// The panel's exposure points and sound annotations: the frame arithmetic, the primary
// and id rules, and both records kept across a save and a reload of the project file.
#include "host/engine/HostProjectFile.h"
#include "metadata/KRC_ExposurePoints.h"
#include "metadata/KRC_SoundAnnotation.h"
#include "metadata_test_support.h"
#include "support/ProjectBoard.h"

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
        EXPECT_EQ(c.frame, KRC_ExposurePoints::getExposureFrame(c.length, c.point)) << c.length << " " << c.point;
}

TEST(ExposurePoints, OnlyTheFirstPointBecomesPrimary)
{
    KRC_ExposurePoints points;
    EXPECT_EQ(1, points.getPrimaryExposureFrame(100));
    EXPECT_TRUE(points.insertExposurePoint(0.5f));
    EXPECT_FALSE(points.insertExposurePoint(0.5f));
    EXPECT_TRUE(points.insertExposurePoint(0.25f));
    EXPECT_EQ(0.5f, points.getPrimaryExposurePoint());
    EXPECT_EQ(QStringLiteral("primaryExposure=0.5, Others=0.25, 0.5, \n"),
        metatest::dumpOf(points).section(QLatin1Char('\n'), -2));
    EXPECT_TRUE(points.removeExposurePoint(0.5f) && points.removeExposurePoint(0.25f));
    EXPECT_EQ(0.0f, points.getPrimaryExposurePoint());
    EXPECT_TRUE(points.isPrimaryExposurePoint(0.5f));
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
    EXPECT_FALSE(sounds.move(42, QStringLiteral("x.wav")));
    EXPECT_TRUE(sounds.markDeleted(9, true) && sounds.move(9, QStringLiteral("f.wav")));
    EXPECT_EQ(QStringLiteral("d.wav"), sounds.filePath(8));
    EXPECT_EQ(4u, sounds.count());
}

TEST(PanelRecordReaders, SkipWhatDoesNotParseAndKeepTheLastOfAnId)
{
    const auto sounds = metatest::readDocument(metatest::entryDocument(QStringLiteral("soundAnnotation"),
        QString(), QStringLiteral("<soundAnnotation><soundFile id=\"x\" path=\"a\"/><soundFile id=\"5\" path=\"b\"/>"
                                  "<soundFile id=\"5\" path=\"c\"/></soundAnnotation>")));
    KRC_SoundAnnotation* sound = metatest::first<KRC_SoundAnnotation>(sounds.get());
    ASSERT_TRUE(sound);
    EXPECT_EQ(1u, sound->count());
    EXPECT_EQ(QStringLiteral("c"), sound->filePath(5));
    const auto points = metatest::readDocument(metatest::entryDocument(QStringLiteral("exposurePoints"), QString(),
        QStringLiteral("<exposurePoints primaryExposure=\"?\"><pt value=\"0.5\"/><pt value=\"\"/></exposurePoints>")));
    KRC_ExposurePoints* point = metatest::first<KRC_ExposurePoints>(points.get());
    ASSERT_TRUE(point);
    EXPECT_EQ(KRC_ExposurePoints::ExposureList { 0.5f }, point->exposureList());
    EXPECT_FALSE(point->isPrimaryExposurePoint(0.5f));
}

TEST(PanelRecords, ExposureAndSoundSurviveASaveDeletedSoundsDoNot)
{
    ProjectBoard board(QStringLiteral("S[4,4] S[6]"));
    const Krolle::Panel_t panel = board.panelAt(0, 1);
    ASSERT_TRUE(panel.exposurePoints() && panel.soundAnnotation());
    panel.exposurePoints()->insertExposurePoint(0.75f);
    panel.exposurePoints()->insertExposurePoint(0.125f);
    panel.exposurePoints()->removeExposurePoint(0.75f);
    panel.soundAnnotation()->add(3, QStringLiteral("sfx/door.wav"));
    panel.soundAnnotation()->add(QStringLiteral("sfx/steps.wav"));
    panel.soundAnnotation()->markDeleted(3, true);

    KRC_MetadataFactory::createInstance();
    QString error;
    UT_SharedPtr<SC_Project> loaded = HostProjectFile::fromXml(HostProjectFile::toXml(board.project()), &error);
    ASSERT_TRUE(loaded) << error.toStdString();
    KRC_KrolleProject view(loaded.get());
    const Krolle::Panel_t reloaded = view.getPanelByID(board.panel(0, 1));
    ASSERT_TRUE(reloaded.exposurePoints() && reloaded.soundAnnotation());
    // The primary stays where the first insertion put it, though no longer a point.
    EXPECT_TRUE(reloaded.exposurePoints()->isPrimaryExposurePoint(0.75f));
    EXPECT_EQ(KRC_ExposurePoints::ExposureList { 0.125f }, reloaded.exposurePoints()->exposureList());
    EXPECT_EQ(1u, reloaded.soundAnnotation()->count());
    EXPECT_EQ(QStringLiteral("sfx/steps.wav"), reloaded.soundAnnotation()->filePath(4));
    EXPECT_TRUE(reloaded.soundAnnotation()->filePath(3).isNull());
}

} // namespace
