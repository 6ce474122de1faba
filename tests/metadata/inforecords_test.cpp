#include "host/base/HostBase.h"
#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_SceneInfo.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

QString program()
{
    return QString::fromUtf8(whoami::progName());
}

QString baseDump(PIO_Metadata const& meta)
{
    QString out;
    meta.PIO_Metadata::dumpToString(out);
    return out;
}

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
        EXPECT_TRUE(info->name().isCustom());
        EXPECT_FALSE(info->name().isLocked());
        EXPECT_TRUE(info->sequenceName().value().isNull());
        EXPECT_EQ(0, info->sequenceName().flag());
        EXPECT_TRUE(info->actName().value().isNull());
        EXPECT_EQ(0, info->actName().flag());
        EXPECT_FALSE(info->isValid());
    }
    EXPECT_TRUE(routes[0]->metaName().isNull());
    EXPECT_EQ(program(), routes[1]->creator());
    EXPECT_EQ(QStringLiteral("1.0"), routes[1]->version());
    EXPECT_EQ(QStringLiteral("c"), routes[2]->creator());
    EXPECT_EQ(QStringLiteral("9"), routes[2]->version());
}

TEST(PanelInfo, NewRecordHasAnAutoNameAndExportFlag13)
{
    KRC_PanelInfo info;
    EXPECT_EQ(QStringLiteral("panelInfo"), info.metaType());
    EXPECT_EQ(QStringLiteral("1.0"), info.version());
    EXPECT_EQ(program(), info.creator());
    EXPECT_TRUE(info.name().isAuto());
    EXPECT_TRUE(info.name().value().isEmpty());
    EXPECT_EQ(13, info.exportFlag());
    EXPECT_TRUE(info.isValid());

    KRC_PanelInfo routed(QStringLiteral("n"), QStringLiteral("c"), QStringLiteral("2.5"));
    EXPECT_EQ(0, routed.name().flag());
    EXPECT_EQ(13, routed.exportFlag());
}

struct ValidityCase
{
    char const* value;
    int flag;
    bool valid;
};

class InfoValidity : public testing::TestWithParam<ValidityCase>
{
};

TEST_P(InfoValidity, OnlyACustomEmptyNameIsInvalid)
{
    const ValidityCase c = GetParam();
    KRC_SceneInfo scene;
    KRC_PanelInfo panel;
    setName(scene.name(), c.value, c.flag);
    setName(panel.name(), c.value, c.flag);
    EXPECT_EQ(c.valid, scene.isValid());
    EXPECT_EQ(c.valid, panel.isValid());
}

INSTANTIATE_TEST_SUITE_P(Names, InfoValidity,
    testing::Values(ValidityCase { "", 0, true }, ValidityCase { "", 1, true }, ValidityCase { "", 2, false },
        ValidityCase { "", 3, false }, ValidityCase { "A", 2, true }, ValidityCase { "A", 0, true },
        ValidityCase { " ", 2, true }));

TEST(SceneInfo, OnlyALockBitForbidsModifyingSequenceAndActNames)
{
    struct
    {
        int flag;
        bool modifiable;
    } const cases[] = { { 0, true }, { 1, false }, { 2, true }, { 3, false } };
    for (auto const& c : cases) {
        KRC_SceneInfo info;
        info.sequenceName().setFlag(c.flag);
        EXPECT_EQ(c.modifiable, info.canModifySequenceName()) << c.flag;
        EXPECT_TRUE(info.canModifyActName()) << c.flag;
        info.actName().setFlag(c.flag);
        EXPECT_EQ(c.modifiable, info.canModifyActName()) << c.flag;
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

void expectSameScene(KRC_SceneInfo const& expected, KRC_SceneInfo const& actual)
{
    EXPECT_EQ(expected.metaName(), actual.metaName());
    EXPECT_EQ(expected.creator(), actual.creator());
    EXPECT_EQ(expected.version(), actual.version());
    EXPECT_EQ(expected.name().value(), actual.name().value());
    EXPECT_EQ(expected.name().flag(), actual.name().flag());
    EXPECT_EQ(expected.sequenceName().value(), actual.sequenceName().value());
    EXPECT_EQ(expected.sequenceName().flag(), actual.sequenceName().flag());
    EXPECT_EQ(expected.actName().value(), actual.actName().value());
    EXPECT_EQ(expected.actName().flag(), actual.actName().flag());
}

TEST(SceneInfo, CloneKeepsIdentityAndEveryNameWithItsFlag)
{
    const KRC_SceneInfo source = namedScene();
    std::unique_ptr<PIO_Metadata> copy(source.clone());
    auto* clone = dynamic_cast<KRC_SceneInfo*>(copy.get());
    ASSERT_NE(nullptr, clone);
    // The source's flag 0 stands, not the custom bit of a new record.
    expectSameScene(source, *clone);

    clone->sequenceName().setValue(QStringLiteral("changed"));
    EXPECT_EQ(QStringLiteral("SEQ1"), source.sequenceName().value());
}

TEST(SceneInfo, CopyAndAssignmentTakeIdentityAndNames)
{
    const KRC_SceneInfo source = namedScene();
    KRC_SceneInfo copied(source);
    expectSameScene(source, copied);

    KRC_SceneInfo assigned(QStringLiteral("target"));
    assigned = source;
    expectSameScene(source, assigned);
    assigned.actName().setFlag(0);
    EXPECT_EQ(1, source.actName().flag());
}

TEST(PanelInfo, CloneCopyAndAssignmentTakeIdentityNameAndExportFlag)
{
    KRC_PanelInfo source(QStringLiteral("panel"), QStringLiteral("elsewhere"), QStringLiteral("0.9"));
    setName(source.name(), "P1", 2);
    source.setExportFlag(5);

    std::unique_ptr<PIO_Metadata> cloned(source.clone());
    KRC_PanelInfo copied(source);
    KRC_PanelInfo assigned;
    assigned = source;
    for (PIO_Metadata const* meta : { static_cast<PIO_Metadata const*>(cloned.get()),
             static_cast<PIO_Metadata const*>(&copied), static_cast<PIO_Metadata const*>(&assigned) }) {
        auto const* info = dynamic_cast<KRC_PanelInfo const*>(meta);
        ASSERT_NE(nullptr, info);
        EXPECT_EQ(QStringLiteral("panel"), info->metaName());
        EXPECT_EQ(QStringLiteral("elsewhere"), info->creator());
        EXPECT_EQ(QStringLiteral("0.9"), info->version());
        EXPECT_EQ(QStringLiteral("P1"), info->name().value());
        EXPECT_EQ(2, info->name().flag());
        EXPECT_EQ(5, info->exportFlag());
    }
    assigned.setExportFlag(1);
    EXPECT_EQ(5, source.exportFlag());
}

TEST(InfoDump, ItemsFollowTheBaseLineInXmlOrder)
{
    const KRC_SceneInfo scene = namedScene();
    QString out = QStringLiteral("before\n");
    scene.dumpToString(out);
    EXPECT_EQ(QStringLiteral("before\n") + baseDump(scene)
            + QStringLiteral("name=SH010, nameFlag=0, sequenceName=SEQ1, sequenceNameFlag=3, "
                             "actName=ACT2, actNameFlag=1\n"),
        out);

    KRC_PanelInfo panel;
    panel.name().setValue(QStringLiteral("A"));
    QString panelOut;
    panel.dumpToString(panelOut);
    EXPECT_EQ(baseDump(panel) + QStringLiteral("name=A, nameFlag=0, exportFlag=13\n"), panelOut);
}

} // namespace
