#include "host/base/HostBase.h"
#include "metadata/KRC_PanelInfo.h"
#include "metadata/KRC_SceneInfo.h"
#include "metadata_test_support.h"

#include <gtest/gtest.h>

#include <memory>
#include <tuple>

namespace {

using metatest::dumpOf;
using metatest::setName;

TEST(InfoRecords, NewRecordsStartCustomEmptyForScenesAndAutoWithExport13ForPanels)
{
    const KRC_SceneInfo scene(QStringLiteral("n"));
    EXPECT_TRUE(scene.name().value().isNull() && scene.sequenceName().value().isNull());
    EXPECT_EQ(std::tuple(int(KRC_ObjectName::kCustom), 0, QString::fromUtf8(whoami::progName()),
                  QStringLiteral("1.0")),
        std::tuple(scene.name().flag(), scene.sequenceName().flag() | scene.actName().flag(), scene.creator(),
            scene.version()));

    KRC_PanelInfo panel;
    EXPECT_EQ(0, panel.name().flag());
    EXPECT_EQ(13, panel.setExportFlag(4)); // the old value comes back
}

TEST(InfoRecords, OnlyACustomEmptyNameIsInvalidAndOnlyALockBitForbidsRenaming)
{
    const std::tuple<char const*, int, bool> cases[] = { { "", 0, true }, { "", 1, true }, { "", 2, false },
        { "", 3, false }, { "A", 2, true }, { "A", 0, true }, { " ", 2, true } };
    for (auto const& [value, flag, valid] : cases) {
        KRC_SceneInfo scene;
        KRC_PanelInfo panel;
        setName(scene.name(), value, flag);
        setName(panel.name(), value, flag);
        scene.sequenceName().setFlag(flag);
        const bool actBefore = scene.canModifyActName();
        scene.actName().setFlag(flag);
        EXPECT_EQ(std::tuple(valid, valid, (flag & 1) == 0, true, (flag & 1) == 0),
            std::tuple(scene.isValid(), panel.isValid(), scene.canModifySequenceName(), actBefore,
                scene.canModifyActName()))
            << value << flag;
    }
}

KRC_SceneInfo namedScene()
{
    KRC_SceneInfo info(QStringLiteral("shot"), QStringLiteral("elsewhere"), QStringLiteral("3.1"));
    setName(info.name(), "SH010", 0);
    setName(info.sequenceName(), "SEQ1", 3);
    setName(info.actName(), "ACT2", 1);
    return info;
}

// A cloned scene record keeps the source's flag 0 rather than the custom bit of a new one.
TEST(InfoRecords, CloneCopyAndAssignmentTakeIdentityAndEveryField)
{
    metatest::expectFaithfulCopies(namedScene());
    KRC_PanelInfo panel(QStringLiteral("panel"), QStringLiteral("elsewhere"), QStringLiteral("0.9"));
    setName(panel.name(), "P1", 2);
    panel.setExportFlag(5);
    metatest::expectFaithfulCopies(panel);
}

TEST(InfoRecords, DumpItemsFollowTheBaseLineInXmlOrder)
{
    const KRC_SceneInfo scene = namedScene();
    QString base;
    scene.PIO_Metadata::dumpToString(base);
    QString out = QStringLiteral("before\n");
    scene.dumpToString(out);
    EXPECT_EQ(QStringLiteral("before\n") + base
            + "name=SH010, nameFlag=0, sequenceName=SEQ1, sequenceNameFlag=3, actName=ACT2, actNameFlag=1\n",
        out);

    KRC_PanelInfo panel;
    panel.name().setValue(QStringLiteral("A"));
    QString panelBase;
    panel.PIO_Metadata::dumpToString(panelBase);
    EXPECT_EQ(panelBase + QStringLiteral("name=A, nameFlag=0, exportFlag=13\n"), dumpOf(panel));
}

} // namespace
