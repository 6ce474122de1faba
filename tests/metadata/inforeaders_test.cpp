#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_SceneInfo.h"
#include "metadata_test_support.h"

#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace {

using metatest::dumpOf;
using metatest::first;

QString const defaultIdentity = QStringLiteral("creator=\"elsewhere\" version=\"1.0\"");

std::unique_ptr<PIO_Metadatas> readEntry(
    char const* type, QString const& inner, QString const& identity = defaultIdentity)
{
    return metatest::readDocument(metatest::entryDocument(QString::fromLatin1(type), identity, inner));
}

void setName(KRC_ObjectName& name, char const* value, int flag)
{
    name.setValue(QString::fromLatin1(value));
    name.setFlag(flag);
}

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
    struct
    {
        char const* inner;
        char const* name;
        int nameFlag;
        char const* sequenceName;
        int sequenceNameFlag;
    } const cases[] = {
        { "<sceneInfo/>", "", 0, "", 0 }, { "<sceneInfo name=\"A\" nameFlag=\"custom\"/>", "A", 0, "", 0 },
        { "<sceneInfo name=\"A\" nameFlag=\"0x2\"/>", "A", 0, "", 0 },
        { "<sceneInfo nameFlag=\"99999999999\" sequenceName=\"S\" sequenceNameFlag=\"1\"/>", "", 0, "S", 1 },
        { "<sceneInfo name=\"A\" nameFlag=\"\" sequenceNameFlag=\"3\"/>", "A", 0, "", 3 },
        { "<sceneInfo extra=\"1\" name=\"B\" nameFlag=\"2\"/>", "B", 2, "", 0 },
        { "<sceneInfo name=\"\" nameFlag=\"2\"/>", "", 2, "", 0 },
        { "<sceneInfo name=\"C\" nameFlag=\"2\"><name value=\"D\"/></sceneInfo>", "C", 2, "",
            0 }, // child ignored
    };
    for (auto const& c : cases) {
        auto metas = readEntry("sceneInfo", QString::fromLatin1(c.inner));
        auto* info = first<KRC_SceneInfo>(metas.get());
        ASSERT_NE(nullptr, info) << c.inner;
        EXPECT_FALSE(info->name().value().isNull()) << c.inner;
        EXPECT_EQ(QString::fromLatin1(c.name), info->name().value()) << c.inner;
        EXPECT_EQ(c.nameFlag, info->name().flag()) << c.inner;
        EXPECT_EQ(QString::fromLatin1(c.sequenceName), info->sequenceName().value()) << c.inner;
        EXPECT_EQ(c.sequenceNameFlag, info->sequenceName().flag()) << c.inner;
        EXPECT_EQ(c.nameFlag != 2 || c.name[0] != '\0', info->isValid()) << c.inner;
    }
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
        auto metas = readEntry("panelInfo", QString::fromLatin1(c.inner));
        auto* info = first<KRC_PanelInfo>(metas.get());
        ASSERT_NE(nullptr, info) << c.inner;
        EXPECT_EQ(c.exportFlag, info->exportFlag()) << c.inner;
        EXPECT_EQ(c.nameFlag, info->name().flag()) << c.inner;
    }
}

TEST(InfoXml, TheRecordIsForgottenAtTheFirstEndOfElement)
{
    // An unknown element first: its end already lets go of the record.
    auto late = readEntry("sceneInfo", QStringLiteral("<other/><sceneInfo name=\"A\" nameFlag=\"0\"/>"));
    auto* untouched = first<KRC_SceneInfo>(late.get());
    ASSERT_NE(nullptr, untouched);
    EXPECT_TRUE(untouched->name().value().isNull());
    EXPECT_TRUE(untouched->name().isCustom());

    // A second element finds nothing to write to.
    auto twice = readEntry(
        "panelInfo", QStringLiteral("<panelInfo name=\"A\" exportFlag=\"1\"/><panelInfo name=\"B\"/>"));
    auto* info = first<KRC_PanelInfo>(twice.get());
    ASSERT_NE(nullptr, info);
    EXPECT_EQ(QStringLiteral("A"), info->name().value());
    EXPECT_EQ(1, info->exportFlag());
}

TEST(InfoXml, AVersionNeverHeardOfIsReadAllTheSame)
{
    auto metas = readEntry("sceneInfo",
        QStringLiteral("<sceneInfo name=\"A\" nameFlag=\"2\" actName=\"X\" actNameFlag=\"1\"/>"),
        QStringLiteral("name=\"kept\" creator=\"future\" version=\"42.7b\""));
    auto* info = first<KRC_SceneInfo>(metas.get());
    ASSERT_NE(nullptr, info);
    EXPECT_EQ(QStringLiteral("kept/future/42.7b/A/X/1"),
        QStringList({ info->metaName(), info->creator(), info->version(), info->name().value(),
                        info->actName().value(), QString::number(info->actName().flag()) })
            .join('/'));
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
    for (char const* element : { "unknown", "panelInfo" })
        EXPECT_EQ(reader, reader->handleStartElement(context, QString::fromLatin1(element), attributes));
    EXPECT_EQ(3, info.exportFlag());
    EXPECT_TRUE(reader->handleEndElement(context, QStringLiteral("panelInfo")));
    EXPECT_TRUE(reader->handleEndElement(context, QStringLiteral("anything")));
}

} // namespace
