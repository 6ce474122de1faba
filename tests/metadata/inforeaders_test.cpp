#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_SceneInfo.h"
#include "metadata_test_support.h"

#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace {

using metatest::entryDocument;
using metatest::first;
using metatest::readDocument;
using metatest::roundTrip;

QString const sceneIdentity = QStringLiteral("creator=\"elsewhere\" version=\"1.0\"");

// Reads one "sceneInfo" entry whose content is `inner`.
std::unique_ptr<PIO_Metadatas> readScene(QString const& inner, QString const& identity = sceneIdentity)
{
    return readDocument(entryDocument(QStringLiteral("sceneInfo"), identity, inner));
}

std::unique_ptr<PIO_Metadatas> readPanel(QString const& inner)
{
    return readDocument(entryDocument(QStringLiteral("panelInfo"), sceneIdentity, inner));
}

TEST(InfoXml, SceneInfoRoundTripsEveryAttributeInFormatOrder)
{
    KRC_SceneInfo source(QString(), QStringLiteral("elsewhere"), QStringLiteral("1.0"));
    source.name().setValue(QStringLiteral("SH <010> & \"x\""));
    source.name().setFlag(3);
    source.sequenceName().setValue(QStringLiteral("SEQ"));
    source.sequenceName().setFlag(2);
    source.actName().setValue(QStringLiteral("ACT"));
    source.actName().setFlag(1);

    QByteArray written;
    auto metas = roundTrip(source, &written);
    EXPECT_TRUE(
        written.contains("<sceneInfo name=\"SH &lt;010&gt; &amp; &quot;x&quot;\" nameFlag=\"3\" "
                         "sequenceName=\"SEQ\" sequenceNameFlag=\"2\" actName=\"ACT\" actNameFlag=\"1\"/>"))
        << written.constData();

    auto* info = first<KRC_SceneInfo>(metas.get());
    ASSERT_NE(nullptr, info);
    EXPECT_EQ(source.name().value(), info->name().value());
    EXPECT_EQ(3, info->name().flag());
    EXPECT_EQ(QStringLiteral("SEQ"), info->sequenceName().value());
    EXPECT_EQ(2, info->sequenceName().flag());
    EXPECT_EQ(QStringLiteral("ACT"), info->actName().value());
    EXPECT_EQ(1, info->actName().flag());
    EXPECT_EQ(QStringLiteral("elsewhere"), info->creator());
    EXPECT_TRUE(info->metaName().isNull());
}

TEST(InfoXml, PanelInfoRoundTripsEveryAttributeInFormatOrder)
{
    KRC_PanelInfo source(QStringLiteral("p"));
    source.name().setValue(QStringLiteral("P2"));
    source.name().setFlag(2);
    source.setExportFlag(-7);

    QByteArray written;
    auto metas = roundTrip(source, &written);
    EXPECT_TRUE(written.contains("<panelInfo name=\"P2\" nameFlag=\"2\" exportFlag=\"-7\"/>"))
        << written.constData();
    auto* info = first<KRC_PanelInfo>(metas.get());
    ASSERT_NE(nullptr, info);
    EXPECT_EQ(QStringLiteral("p"), info->metaName());
    EXPECT_EQ(QStringLiteral("P2"), info->name().value());
    EXPECT_EQ(2, info->name().flag());
    EXPECT_EQ(-7, info->exportFlag());
}

TEST(InfoXml, NewRecordsRoundTripWithTheirDefaults)
{
    auto scenes = roundTrip(KRC_SceneInfo());
    auto* scene = first<KRC_SceneInfo>(scenes.get());
    ASSERT_NE(nullptr, scene);
    EXPECT_TRUE(scene->name().isCustom());
    EXPECT_TRUE(scene->name().value().isEmpty());
    EXPECT_FALSE(scene->isValid());

    auto panels = roundTrip(KRC_PanelInfo());
    auto* panel = first<KRC_PanelInfo>(panels.get());
    ASSERT_NE(nullptr, panel);
    EXPECT_EQ(13, panel->exportFlag());
    EXPECT_TRUE(panel->name().isAuto());
}

struct DamagedScene
{
    char const* what;
    char const* inner;
    char const* name;
    int nameFlag;
    char const* sequenceName;
    int sequenceNameFlag;
};

class SceneInfoDamaged : public testing::TestWithParam<DamagedScene>
{
};

// Flags are read unchecked: whatever does not parse as a base 10 int stores 0.
TEST_P(SceneInfoDamaged, StoresWhatItCanAndZeroForBadFlags)
{
    const DamagedScene c = GetParam();
    auto metas = readScene(QString::fromLatin1(c.inner));
    auto* info = first<KRC_SceneInfo>(metas.get());
    ASSERT_NE(nullptr, info);
    EXPECT_EQ(QString::fromLatin1(c.name), info->name().value());
    EXPECT_FALSE(info->name().value().isNull());
    EXPECT_EQ(c.nameFlag, info->name().flag());
    EXPECT_EQ(QString::fromLatin1(c.sequenceName), info->sequenceName().value());
    EXPECT_EQ(c.sequenceNameFlag, info->sequenceName().flag());
}

INSTANTIATE_TEST_SUITE_P(Attributes, SceneInfoDamaged,
    testing::Values(DamagedScene { "no attributes, custom bit dropped", "<sceneInfo/>", "", 0, "", 0 },
        DamagedScene { "flag not a number", "<sceneInfo name=\"A\" nameFlag=\"custom\"/>", "A", 0, "", 0 },
        DamagedScene { "hexadecimal flag", "<sceneInfo name=\"A\" nameFlag=\"0x2\"/>", "A", 0, "", 0 },
        DamagedScene { "flag out of range",
            "<sceneInfo nameFlag=\"99999999999\" sequenceName=\"S\" sequenceNameFlag=\"1\"/>", "", 0, "S",
            1 },
        DamagedScene {
            "empty flag", "<sceneInfo name=\"A\" nameFlag=\"\" sequenceNameFlag=\"3\"/>", "A", 0, "", 3 },
        DamagedScene { "unknown attributes ignored", "<sceneInfo extra=\"1\" name=\"B\" nameFlag=\"2\"/>",
            "B", 2, "", 0 },
        DamagedScene { "a child element changes nothing",
            "<sceneInfo name=\"C\" nameFlag=\"2\"><name value=\"D\"/></sceneInfo>", "C", 2, "", 0 }));

TEST(InfoXml, DroppedCustomBitMakesAnEmptySceneNameValid)
{
    auto metas = readScene(QStringLiteral("<sceneInfo/>"));
    auto* info = first<KRC_SceneInfo>(metas.get());
    ASSERT_NE(nullptr, info);
    EXPECT_TRUE(info->name().isAuto());
    EXPECT_TRUE(info->isValid());
}

TEST(InfoXml, PanelInfoWithoutExportFlagStoresZero)
{
    struct
    {
        char const* inner;
        int exportFlag;
        int nameFlag;
    } const cases[] = {
        { "<panelInfo name=\"P\" nameFlag=\"2\"/>", 0, 2 },
        { "<panelInfo name=\"P\" nameFlag=\"x\" exportFlag=\"13.5\"/>", 0, 0 },
        { "<panelInfo exportFlag=\"9\"/>", 9, 0 },
    };
    for (auto const& c : cases) {
        auto metas = readPanel(QString::fromLatin1(c.inner));
        auto* info = first<KRC_PanelInfo>(metas.get());
        ASSERT_NE(nullptr, info) << c.inner;
        EXPECT_EQ(c.exportFlag, info->exportFlag()) << c.inner;
        EXPECT_EQ(c.nameFlag, info->name().flag()) << c.inner;
    }
}

TEST(InfoXml, TheRecordIsForgottenAtTheFirstEndOfElement)
{
    // An unknown element first: its end already lets go of the record.
    auto late = readScene(QStringLiteral("<other/><sceneInfo name=\"A\" nameFlag=\"0\"/>"));
    auto* untouched = first<KRC_SceneInfo>(late.get());
    ASSERT_NE(nullptr, untouched);
    EXPECT_TRUE(untouched->name().value().isNull());
    EXPECT_TRUE(untouched->name().isCustom());

    // A second element finds nothing to write to.
    auto twice = readPanel(QStringLiteral("<panelInfo name=\"A\" exportFlag=\"1\"/><panelInfo name=\"B\"/>"));
    auto* info = first<KRC_PanelInfo>(twice.get());
    ASSERT_NE(nullptr, info);
    EXPECT_EQ(QStringLiteral("A"), info->name().value());
    EXPECT_EQ(1, info->exportFlag());
}

TEST(InfoXml, AVersionNeverHeardOfIsReadAllTheSame)
{
    auto metas
        = readScene(QStringLiteral("<sceneInfo name=\"A\" nameFlag=\"2\" actName=\"X\" actNameFlag=\"1\"/>"),
            QStringLiteral("name=\"kept\" creator=\"future\" version=\"42.7b\""));
    auto* info = first<KRC_SceneInfo>(metas.get());
    ASSERT_NE(nullptr, info);
    EXPECT_EQ(QStringLiteral("42.7b"), info->version());
    EXPECT_EQ(QStringLiteral("future"), info->creator());
    EXPECT_EQ(QStringLiteral("kept"), info->metaName());
    EXPECT_EQ(QStringLiteral("A"), info->name().value());
    EXPECT_EQ(QStringLiteral("X"), info->actName().value());
    EXPECT_EQ(1, info->actName().flag());
}

TEST(InfoReader, AnswersEveryElementWithItselfAndEveryEndWithTrue)
{
    KRC_PanelInfo info;
    UT_SharedPtr<PIO_XML::ComponentReader> reader(info.componentReader());
    ASSERT_TRUE(reader);
    EXPECT_EQ(1, reader->refCount());

    QXmlStreamReader stream;
    PIO_ReadingContext context(stream, &info);
    QXmlAttributes attributes;
    attributes.append(
        QStringLiteral("exportFlag"), QString(), QStringLiteral("exportFlag"), QStringLiteral("3"));
    for (char const* element : { "unknown", "panelInfo" }) {
        UT_SharedPtr<PIO_XML::ComponentReader> next
            = reader->handleStartElement(context, QString::fromLatin1(element), attributes);
        EXPECT_EQ(reader.get(), next.get());
    }
    EXPECT_EQ(3, info.exportFlag());
    EXPECT_TRUE(reader->handleEndElement(context, QStringLiteral("panelInfo")));
    EXPECT_TRUE(reader->handleEndElement(context, QStringLiteral("anything")));
    EXPECT_TRUE(reader->handleCDATA(QStringLiteral("text")));
}

} // namespace
