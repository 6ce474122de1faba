// The layer infos and tracking records: list rules, reading with its fallbacks, sharing
// copies against cloning, validity, and both kept through the persistence.
#include "metadata/KRC_LayerInfos.h"
#include "metadata/KRC_Tracking.h"
#include "metadata_test_support.h"

#include <gtest/gtest.h>

namespace {

using Entry = KRC_LayerInfos::Entry;

QStringList namesOf(KRC_LayerInfos const& infos)
{
    QStringList names;
    for (Entry const& entry : infos)
        names << entry->name;
    return names;
}

TEST(LayerInfos, ListKeepsOneEntryPerNameAndMovesReAddedNamesToTheEnd)
{
    KRC_LayerInfos infos(QStringLiteral("n"));
    Entry const a = infos.info(QStringLiteral("A"), true);
    infos.info(QStringLiteral("B"), true);
    EXPECT_EQ(a, infos.info(QStringLiteral("A"), true));
    infos.add(Entry(new KRC_LayerInfos::LayerInfo_t(QStringLiteral("A"))));
    EXPECT_EQ(namesOf(infos), QStringList({ "B", "A" }));
    EXPECT_NE(a, infos.info(QStringLiteral("A")));

    // Setting flags never creates an entry; a missing entry answers 0.
    infos.setExportFlags(QStringLiteral("C"), EXPORT_Movie);
    EXPECT_EQ(infos.info(QStringLiteral("C")), Entry());
    EXPECT_EQ(std::pair(infos.exportFlags(QStringLiteral("C")), infos.exportFlags(QStringLiteral("B"))),
        std::pair(0, 13));
    infos.setLayerFlags(QStringLiteral("B"), LAYER_Locked | LAYER_PitchMode);
    std::vector<Entry> found { a };
    EXPECT_TRUE(infos.infoByLayerFlags(LAYER_PitchMode, found));
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found.back()->name, QStringLiteral("B"));
    std::vector<Entry> none;
    EXPECT_FALSE(infos.infoByLayerFlags(LAYER_Hidden, none));
    infos.remove(QStringLiteral("B"));
    EXPECT_EQ(namesOf(infos), QStringList({ "A" }));
}

TEST(LayerInfos, ReadingAppendsAsWrittenAndStopsAtABadFlag)
{
    struct Case
    {
        const char* inner;
        QStringList names;
    };
    const Case cases[] = {
        { "<layerInfos><layer name=\"A\" exportFlag=\"1\" layerFlag=\"16\"/>"
          "<layer name=\"A\" exportFlag=\"2\" layerFlag=\"0\"/><other name=\"Z\"/></layerInfos>",
            { "A", "A" } },
        { "<layerInfos><layer name=\"A\" exportFlag=\"1\" layerFlag=\"0\"/>"
          "<layer name=\"B\" exportFlag=\"abc\" layerFlag=\"0\"/></layerInfos>",
            { "A" } },
        { "<layerInfos><layer name=\"B\" exportFlag=\"4\"/></layerInfos>", {} },
    };
    for (Case const& c : cases) {
        std::unique_ptr<PIO_Metadatas> holder;
        KRC_LayerInfos* infos = metatest::readRecord<KRC_LayerInfos>(QString::fromLatin1(c.inner), holder);
        ASSERT_NE(infos, nullptr) << c.inner;
        EXPECT_EQ(namesOf(*infos), c.names) << c.inner;
        EXPECT_EQ(infos->isValid(), !c.names.isEmpty());
    }
    // A read replaces what the record held.
    KRC_LayerInfos infos;
    infos.info(QStringLiteral("old"), true);
    PIO_XML::ComponentReader* reader = infos.componentReader();
    EXPECT_TRUE(namesOf(infos).isEmpty());
    delete reader;
}

TEST(LayerInfos, CopiesShareEntriesClonesDoNotAndBothSurviveTheFile)
{
    KRC_LayerInfos source(QStringLiteral("named"));
    source.info(QStringLiteral("BG"), true);
    source.info(QStringLiteral("Peg"), true)->layerFlags = LAYER_PitchMode;
    KRC_LayerInfos copy(source);
    std::unique_ptr<KRC_LayerInfos> clone(static_cast<KRC_LayerInfos*>(source.clone()));
    source.setExportFlags(QStringLiteral("BG"), EXPORT_Pdf);
    EXPECT_EQ(std::pair(copy.exportFlags(QStringLiteral("BG")), clone->exportFlags(QStringLiteral("BG"))),
        std::pair(int(EXPORT_Pdf), 13));
    EXPECT_TRUE(clone->metaName().isNull());

    std::unique_ptr<PIO_Metadatas> read = metatest::roundTrip(source);
    KRC_LayerInfos* back = metatest::first<KRC_LayerInfos>(read.get());
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(metatest::dumpOf(*back), metatest::dumpOf(source));
    EXPECT_TRUE(metatest::dumpOf(source).endsWith(
        QStringLiteral("Layer: name=Peg, exportFlags=13, layerFlags=16\n")));
}

TEST(Tracking, ValidityReadingFallbacksAndRoundTrip)
{
    const QDateTime date(QDate(2026, 3, 4), QTime(5, 6, 7));
    KRC_Tracking tracking(QStringLiteral("t"));
    EXPECT_TRUE(tracking.isValid());
    tracking.setIsTracked(true);
    tracking.setTrackingDate(date);
    EXPECT_FALSE(tracking.isValid()); // a null note
    std::unique_ptr<PIO_Metadatas> read = metatest::roundTrip(tracking);
    KRC_Tracking* back = metatest::first<KRC_Tracking>(read.get());
    ASSERT_NE(back, nullptr);
    EXPECT_TRUE(back->isValid() && back->trackingDate() == date); // read notes are empty, not null
    std::unique_ptr<KRC_Tracking> clone(static_cast<KRC_Tracking*>(back->clone()));
    EXPECT_EQ(metatest::dumpOf(*clone), metatest::dumpOf(*back));

    // A flag that is no bool keeps the record's own; an empty date reads as null.
    std::unique_ptr<PIO_Metadatas> odd;
    KRC_Tracking* oddOne = metatest::readRecord<KRC_Tracking>(
        QStringLiteral("<tracking trackingFlag=\"maybe\" trackingDate=\"\" trackingNote=\"n\"/>"), odd);
    ASSERT_NE(oddOne, nullptr);
    EXPECT_TRUE(!oddOne->isTracked() && oddOne->trackingDate().isNull());
    EXPECT_TRUE(metatest::dumpOf(*oddOne).endsWith(
        QStringLiteral("trackingFlag=false, trackingDate=, trackingNote=n\n")));
}

} // namespace
