#include "host/base/HostBase.h"
#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_SceneInfo.h"
#include "metadata_test_support.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using metatest::dumpOf;

void setName(KRC_ObjectName& name, char const* value, int flag)
{
    name.setValue(QString::fromLatin1(value));
    name.setFlag(flag);
}

TEST(SceneInfo, NewRecordsByEveryRouteHaveACustomEmptyName)
{
    std::unique_ptr<KRC_SceneInfo> routes[] = { std::make_unique<KRC_SceneInfo>(),
        std::make_unique<KRC_SceneInfo>(QStringLiteral("n")),
        std::make_unique<KRC_SceneInfo>(QStringLiteral("n"), QStringLiteral("c"), QStringLiteral("9")) };
    for (auto const& info : routes) {
        EXPECT_EQ(QStringLiteral("sceneInfo"), info->metaType());
        EXPECT_TRUE(info->name().value().isNull());
        EXPECT_EQ(KRC_ObjectName::kCustom, info->name().flag());
        EXPECT_TRUE(info->sequenceName().value().isNull());
        EXPECT_EQ(0, info->sequenceName().flag());
        EXPECT_TRUE(info->actName().value().isNull());
        EXPECT_EQ(0, info->actName().flag());
        EXPECT_FALSE(info->isValid());
    }
    EXPECT_TRUE(routes[0]->metaName().isNull());
    EXPECT_EQ(QString::fromUtf8(whoami::progName()), routes[1]->creator());
    EXPECT_EQ(QStringLiteral("1.0"), routes[1]->version());
    EXPECT_EQ(QStringLiteral("c"), routes[2]->creator());
    EXPECT_EQ(QStringLiteral("9"), routes[2]->version());
}

TEST(PanelInfo, NewRecordHasAnAutoNameAndExportFlag13)
{
    for (KRC_PanelInfo const& info :
        { KRC_PanelInfo(), KRC_PanelInfo(QStringLiteral("n"), QStringLiteral("c"), QStringLiteral("2.5")) }) {
        EXPECT_EQ(QStringLiteral("panelInfo"), info.metaType());
        EXPECT_EQ(0, info.name().flag());
        EXPECT_TRUE(info.name().value().isEmpty());
        EXPECT_EQ(13, info.exportFlag());
        EXPECT_TRUE(info.isValid());
    }
    EXPECT_EQ(QStringLiteral("1.0"), KRC_PanelInfo().version());
}

TEST(InfoRecords, OnlyACustomEmptyNameIsInvalid)
{
    struct
    {
        char const* value;
        int flag;
        bool valid;
    } const cases[] = { { "", 0, true }, { "", 1, true }, { "", 2, false }, { "", 3, false },
        { "A", 2, true }, { "A", 0, true }, { " ", 2, true } };
    for (auto const& c : cases) {
        KRC_SceneInfo scene;
        KRC_PanelInfo panel;
        setName(scene.name(), c.value, c.flag);
        setName(panel.name(), c.value, c.flag);
        EXPECT_EQ(c.valid, scene.isValid()) << c.value << c.flag;
        EXPECT_EQ(c.valid, panel.isValid()) << c.value << c.flag;
    }
}

TEST(SceneInfo, OnlyALockBitForbidsModifyingSequenceAndActNames)
{
    for (int flag : { 0, 1, 2, 3 }) {
        KRC_SceneInfo info;
        info.sequenceName().setFlag(flag);
        EXPECT_EQ((flag & 1) == 0, info.canModifySequenceName()) << flag;
        EXPECT_TRUE(info.canModifyActName()) << flag;
        info.actName().setFlag(flag);
        EXPECT_EQ((flag & 1) == 0, info.canModifyActName()) << flag;
    }
}

TEST(PanelInfo, SetExportFlagReturnsTheOldValue)
{
    KRC_PanelInfo info;
    EXPECT_EQ(13, info.setExportFlag(4));
    EXPECT_EQ(4, info.setExportFlag(0));
    EXPECT_EQ(0, info.exportFlag());
}

KRC_SceneInfo namedScene()
{
    KRC_SceneInfo info(QStringLiteral("shot"), QStringLiteral("elsewhere"), QStringLiteral("3.1"));
    setName(info.name(), "SH010", 0);
    setName(info.sequenceName(), "SEQ1", 3);
    setName(info.actName(), "ACT2", 1);
    return info;
}

KRC_PanelInfo namedPanel()
{
    KRC_PanelInfo info(QStringLiteral("panel"), QStringLiteral("elsewhere"), QStringLiteral("0.9"));
    setName(info.name(), "P1", 2);
    info.setExportFlag(5);
    return info;
}

// Clone, copy and assignment all give the source's identity and every field; a dump
// holds both, so equal dumps mean equal records. A cloned scene record keeps the
// source's flag 0 rather than the custom bit of a new one.
template <class Record> void expectFaithfulCopies(Record const& source)
{
    std::unique_ptr<PIO_Metadata> cloned(source.clone());
    ASSERT_TRUE(dynamic_cast<Record*>(cloned.get()));
    Record copied(source);
    Record assigned;
    assigned = source;
    for (PIO_Metadata const* copy : { static_cast<PIO_Metadata const*>(cloned.get()),
             static_cast<PIO_Metadata const*>(&copied), static_cast<PIO_Metadata const*>(&assigned) })
        EXPECT_EQ(dumpOf(source), dumpOf(*copy));

    assigned.name().setValue(QStringLiteral("changed"));
    copied.name().setFlag(1);
    EXPECT_EQ(dumpOf(source), dumpOf(*cloned));
}

TEST(InfoRecords, CloneCopyAndAssignmentTakeIdentityAndEveryField)
{
    expectFaithfulCopies(namedScene());
    expectFaithfulCopies(namedPanel());
}

TEST(InfoRecords, DumpItemsFollowTheBaseLineInXmlOrder)
{
    const KRC_SceneInfo scene = namedScene();
    QString base;
    scene.PIO_Metadata::dumpToString(base);
    QString out = QStringLiteral("before\n");
    scene.dumpToString(out);
    EXPECT_EQ(QStringLiteral("before\n") + base
            + QStringLiteral("name=SH010, nameFlag=0, sequenceName=SEQ1, sequenceNameFlag=3, "
                             "actName=ACT2, actNameFlag=1\n"),
        out);

    KRC_PanelInfo panel;
    panel.name().setValue(QStringLiteral("A"));
    QString panelBase;
    panel.PIO_Metadata::dumpToString(panelBase);
    EXPECT_EQ(panelBase + QStringLiteral("name=A, nameFlag=0, exportFlag=13\n"), dumpOf(panel));
}

} // namespace
