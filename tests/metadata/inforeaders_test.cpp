#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_SceneInfo.h"
#include "metadata_test_support.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

using metatest::dumpOf;
using metatest::first;
using metatest::readRecord;
using metatest::setName;

QString const defaultIdentity = QStringLiteral("creator=\"elsewhere\" version=\"1.0\"");

// Writing then reading gives the record back whole (a dump holds identity and every
// field), and the element carries its attributes in the format's order.
template <class Record> void expectRoundTrip(Record const& source, char const* element)
{
    QByteArray written;
    auto metas = metatest::roundTrip(source, &written);
    auto* read = first<Record>(metas.get());
    ASSERT_NE(nullptr, read);
    EXPECT_EQ(dumpOf(source), dumpOf(*read));
    EXPECT_TRUE(written.contains(element)) << written.constData();
}

TEST(InfoXml, RecordsRoundTripEveryAttributeInFormatOrder)
{
    KRC_SceneInfo scene(QString(), QStringLiteral("elsewhere"), QStringLiteral("1.0"));
    setName(scene.name(), "SH <010> & \"x\"", 3);
    setName(scene.sequenceName(), "SEQ", 2);
    setName(scene.actName(), "ACT", 1);
    expectRoundTrip(scene,
        "<sceneInfo name=\"SH &lt;010&gt; &amp; &quot;x&quot;\" nameFlag=\"3\" sequenceName=\"SEQ\" "
        "sequenceNameFlag=\"2\" actName=\"ACT\" actNameFlag=\"1\"/>");

    KRC_PanelInfo panel(QStringLiteral("p"));
    setName(panel.name(), "P2", 2);
    panel.setExportFlag(-7);
    expectRoundTrip(panel, "<panelInfo name=\"P2\" nameFlag=\"2\" exportFlag=\"-7\"/>");

    // New records come back with their defaults: a custom empty shot name, export flag 13.
    expectRoundTrip(KRC_SceneInfo(), "<sceneInfo name=\"\" nameFlag=\"2\"");
    expectRoundTrip(KRC_PanelInfo(), "exportFlag=\"13\"/>");
}

// Flags are read unchecked: whatever does not parse as a base 10 int stores 0, which
// drops the custom bit of a new record; a missing text stores an empty string.
TEST(InfoXml, SceneInfoStoresWhatItCanAndZeroForBadFlags)
{
    // inner XML, name, its flag, sequence name, its flag
    const std::tuple<char const*, char const*, int, char const*, int> cases[] = {
        { "<sceneInfo/>", "", 0, "", 0 }, { "<sceneInfo name=\"A\" nameFlag=\"custom\"/>", "A", 0, "", 0 },
        { "<sceneInfo name=\"A\" nameFlag=\"0x2\"/>", "A", 0, "", 0 },
        { "<sceneInfo nameFlag=\"99999999999\" sequenceName=\"S\" sequenceNameFlag=\"1\"/>", "", 0, "S", 1 },
        { "<sceneInfo name=\"A\" nameFlag=\"\" sequenceNameFlag=\"3\"/>", "A", 0, "", 3 },
        { "<sceneInfo extra=\"1\" name=\"B\" nameFlag=\"2\"/>", "B", 2, "", 0 },
        { "<sceneInfo name=\"\" nameFlag=\"2\"/>", "", 2, "", 0 },
        { "<sceneInfo name=\"C\" nameFlag=\"2\"><name value=\"D\"/></sceneInfo>", "C", 2, "", 0 }
    };
    for (auto const& [inner, name, nameFlag, sequenceName, sequenceNameFlag] : cases) {
        std::unique_ptr<PIO_Metadatas> metas;
        auto* info = readRecord<KRC_SceneInfo>(QString::fromLatin1(inner), metas, defaultIdentity);
        ASSERT_NE(nullptr, info) << inner;
        EXPECT_EQ(std::tuple(false, QString::fromLatin1(name), nameFlag, QString::fromLatin1(sequenceName),
                      sequenceNameFlag),
            std::tuple(info->name().value().isNull(), info->name().value(), info->name().flag(),
                info->sequenceName().value(), info->sequenceName().flag()))
            << inner;
    }
}

TEST(InfoXml, PanelInfoWithoutExportFlagStoresZero)
{
    // inner XML, export flag, name flag
    const std::tuple<char const*, int, int> cases[] = { { "<panelInfo name=\"P\" nameFlag=\"2\"/>", 0, 2 },
        { "<panelInfo name=\"P\" nameFlag=\"x\" exportFlag=\"13.5\"/>", 0, 0 },
        { "<panelInfo exportFlag=\"9\"/>", 9, 0 } };
    for (auto const& [inner, exportFlag, nameFlag] : cases) {
        std::unique_ptr<PIO_Metadatas> metas;
        auto* info = readRecord<KRC_PanelInfo>(QString::fromLatin1(inner), metas, defaultIdentity);
        ASSERT_NE(nullptr, info) << inner;
        EXPECT_EQ(std::pair(exportFlag, nameFlag), std::pair(info->exportFlag(), info->name().flag()))
            << inner;
    }
}

TEST(InfoXml, TheRecordIsForgottenAtTheFirstEndOfElement)
{
    // An unknown element first: its end already lets go of the record.
    std::unique_ptr<PIO_Metadatas> late, twice;
    auto* untouched = readRecord<KRC_SceneInfo>(
        QStringLiteral("<other/><sceneInfo name=\"A\" nameFlag=\"0\"/>"), late, defaultIdentity);
    ASSERT_NE(nullptr, untouched);
    EXPECT_TRUE(untouched->name().value().isNull() && untouched->name().isCustom());

    // A second element finds nothing to write to.
    auto* info = readRecord<KRC_PanelInfo>(
        QStringLiteral("<panelInfo name=\"A\" exportFlag=\"1\"/><panelInfo name=\"B\"/>"), twice,
        defaultIdentity);
    ASSERT_NE(nullptr, info);
    EXPECT_EQ(std::pair(QStringLiteral("A"), 1), std::pair(info->name().value(), info->exportFlag()));
}

TEST(InfoXml, AVersionNeverHeardOfIsReadAllTheSame)
{
    std::unique_ptr<PIO_Metadatas> metas;
    auto* info
        = readRecord<KRC_SceneInfo>(QStringLiteral("<sceneInfo name=\"A\" nameFlag=\"2\" actName=\"X\"/>"),
            metas, QStringLiteral("name=\"kept\" creator=\"future\" version=\"42.7b\""));
    ASSERT_NE(nullptr, info);
    EXPECT_EQ(QStringLiteral("kept/future/42.7b/A/X"),
        QStringList({ info->metaName(), info->creator(), info->version(), info->name().value(),
                        info->actName().value() })
            .join('/'));
}

} // namespace
