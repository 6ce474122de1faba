// The info records as the handles make and read them: created with the first handle,
// once per scene; the names the handles answer; the "internalSymbol" mark of getShotAt;
// and the records kept across a save and a reload of the engine's project file.
#include "host/engine/HostProjectFile.h"
#include "metadata/KRC_ExposurePoints.h"
#include "metadata/KRC_MetadataFactory.h"
#include "metadata/KRC_PdfOptions.h"
#include "metadata/KRC_ReferenceToolData.h"
#include "metadata/KRC_SoundAnnotation.h"
#include "metadata_test_support.h"
#include "project/ObjectNameHelper.h"
#include "properties/KRC_PropertiedObject.h"
#include "support/ProjectBoard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

using Krolle::Panel_t;
using Krolle::Shot_t;
using metatest::setName;
using testing::Return;

namespace {

auto const previous = KRC_KrolleProject::PreferPrevious;

TUScene* sceneOf(SC_Project* project, SC_Id const& id)
{
    return dynamic_cast<TUScene*>(project->projectCommon()->sceneManager()->find(id));
}

template <class Record> int countIn(TUScene* scene)
{
    int count = 0;
    for (PIO_Metadata* meta : *scene->metadatas())
        count += dynamic_cast<Record*>(meta) ? 1 : 0;
    return count;
}

class StubNameHelper : public Krolle::ObjectNameHelper
{
public:
    MOCK_METHOD(QString, getPanelName, (Panel_t const&), (const, override));
    MOCK_METHOD(QString, getSceneName, (Shot_t const&), (const, override));
};

TEST(HandleRecords, TheFirstHandleAddsOneRecordToItsOwnScene)
{
    ProjectBoard board(QStringLiteral("S[4,4] S[6]"));
    TUScene* symbol = sceneOf(board.project(), board.shot(0));
    TUScene* firstPanel = sceneOf(board.project(), board.panel(0, 0));
    TUScene* secondPanel = sceneOf(board.project(), board.panel(0, 1));
    ASSERT_EQ(0, countIn<KRC_SceneInfo>(symbol));

    Panel_t const panel = board->getPanelAt(6, previous);
    Shot_t const shot = panel.shot();
    ASSERT_EQ(secondPanel, panel.symbol());
    EXPECT_TRUE(symbol->metadatas()->contains(shot.sceneInfo())
        && secondPanel->metadatas()->contains(panel.panelInfo()));
    EXPECT_EQ(std::pair(0, 0),
        std::pair(countIn<KRC_PanelInfo>(firstPanel),
            countIn<KRC_SceneInfo>(sceneOf(board.project(), board.shot(1)))));

    // New handles on the same scenes find the records instead of adding others.
    board->setCacheEnabled(false);
    for (unsigned frame : { 5u, 7u, 8u }) {
        EXPECT_EQ(shot.sceneInfo(), board->getShotAt(frame, previous).sceneInfo());
        EXPECT_EQ(panel.panelInfo(), board->getPanelAt(frame, previous).panelInfo());
    }
    EXPECT_EQ(
        std::pair(1, 1), std::pair(countIn<KRC_SceneInfo>(symbol), countIn<KRC_PanelInfo>(secondPanel)));

    // A handle without a scene makes nothing and has no record.
    Shot_t const sceneless(board.timeline()->getBlock(1), nullptr, nullptr);
    EXPECT_TRUE(!sceneless.sceneInfo() && !Panel_t(shot.frameBlock(), nullptr, sceneless, nullptr).panelInfo()
        && !Shot_t::invalid.sceneInfo() && !Panel_t::invalid.panelInfo());
}

TEST(HandleRecords, GetShotAtMarksOnlyAFreshRecord)
{
    // name and flag before (flag -1: no record before the lookup), name and flag after
    const std::tuple<char const*, int, char const*, int> cases[] = {
        { "", -1, "internalSymbol", 2 }, // made by the handle, custom and empty
        { "", 3, "internalSymbol", 3 }, // fresh as well: the flag is left alone
        { "SH010", 2, "SH010", 2 }, { "", 0, "", 0 }, // an empty auto name is valid and stays
    };
    for (auto const& [value, flag, nameAfter, flagAfter] : cases) {
        ProjectBoard board(QStringLiteral("S[4]"));
        TUScene* symbol = sceneOf(board.project(), board.shot(0));
        if (flag >= 0) {
            auto* info = new KRC_SceneInfo();
            setName(info->name(), value, flag);
            symbol->metadatas()->add(info);
        }
        Shot_t const shot = board->getShotAt(2, previous);
        ASSERT_NE(nullptr, shot.sceneInfo());
        EXPECT_EQ(std::tuple(QString::fromLatin1(nameAfter), flagAfter, 1),
            std::tuple(shot.sceneInfo()->name().value(), shot.sceneInfo()->name().flag(),
                countIn<KRC_SceneInfo>(symbol)))
            << value << flag;
    }
}

TEST(HandleRecords, AShotMadeOutsideGetShotAtKeepsItsRecordFresh)
{
    ProjectBoard board(QStringLiteral("S[4]"));
    TUScene* symbol = sceneOf(board.project(), board.shot(0));
    Shot_t const shot(board.timeline()->getBlock(1), symbol, nullptr);
    ASSERT_NE(nullptr, shot.sceneInfo());
    EXPECT_TRUE(!shot.sceneInfo()->isValid() && shot.name().isEmpty());

    // The view's cache does not hold this handle, so its lookup makes a new one and
    // marks the record that both share.
    EXPECT_EQ(QStringList({ "internalSymbol", "internalSymbol" }),
        QStringList({ board->getShotAt(1, previous).name(), shot.name() }));
}

TEST(HandleNames, OnlyCustomSequenceAndActNamesStand)
{
    // name, flag, what the handles answer ("0" when the name does not stand)
    const std::tuple<char const*, int, char const*> cases[]
        = { { "SEQ", 2, "SEQ" }, { "SEQ", 3, "SEQ" }, { "SEQ", 0, "0" }, { "SEQ", 1, "0" }, { "", 2, "" } };
    for (auto const& [value, flag, expected] : cases) {
        ProjectBoard board(QStringLiteral("S[4,4]"));
        Shot_t const shot = board->getShotAt(1, previous);
        for (KRC_ObjectName* name : { &shot.sceneInfo()->sequenceName(), &shot.sceneInfo()->actName() })
            setName(*name, value, flag);
        Panel_t const panel = board->getPanelAt(6, previous);
        const QString e = QString::fromLatin1(expected);
        EXPECT_EQ(QStringList({ e, e, e, e }),
            QStringList({ shot.sequenceName(), shot.actName(), panel.sequenceName(), panel.actName() }))
            << value << flag;
    }
}

TEST(HandleNames, CustomNamesStandAndAutoNamesComeFromTheHelper)
{
    ProjectBoard board(QStringLiteral("S[4,4]"));
    TUScene* symbol = sceneOf(board.project(), board.shot(0));
    TUSeqTimedValue* symbolTv = Krolle::getSeqTimedValueOf(symbol);
    StubNameHelper helper;
    EXPECT_CALL(helper, getSceneName(testing::_)).WillRepeatedly(Return(QStringLiteral("SH-auto")));
    EXPECT_CALL(helper, getPanelName(testing::_)).WillRepeatedly(Return(QStringLiteral("P-auto")));

    Shot_t const shot(board.timeline()->getBlock(1), symbol, &helper);
    AT_FrameBlock const* panelBlock = symbolTv->getBlock(1);
    Panel_t const panel(panelBlock, sceneOf(board.project(), board.panel(0, 0)), shot, &helper);

    // A new scene record is custom and empty: its empty value stands.
    EXPECT_TRUE(shot.name().isEmpty());
    setName(shot.sceneInfo()->name(), "SH010", 0);
    QStringList names { shot.name() };
    shot.sceneInfo()->name().setFlag(KRC_ObjectName::kCustom | KRC_ObjectName::kLocked);
    names << shot.name() << panel.shotName();
    // A new panel record is automatic.
    names << panel.name();
    panel.panelInfo()->name().setValue(QStringLiteral("P1"));
    names << panel.name();
    panel.panelInfo()->name().setFlag(KRC_ObjectName::kCustom);
    EXPECT_EQ(QStringList({ "SH-auto", "SH010", "SH010", "P-auto", "P-auto", "P1" }), names << panel.name());

    // Without a record the helper answers; without a helper too, a null string.
    EXPECT_EQ(QStringLiteral("SH-auto"), Shot_t(shot.frameBlock(), nullptr, &helper).name());
    EXPECT_TRUE(
        Panel_t(panelBlock, nullptr, shot, nullptr).name().isNull() && Shot_t::invalid.name().isNull());
    EXPECT_EQ(QStringList({ "0", "0" }),
        QStringList({ Panel_t::invalid.sequenceName(), Shot_t::invalid.actName() }));
}

// The view makes the reference tool record and each panel its options, exposure and
// sound records as well. Deleted sounds are not saved; the primary exposure stays where
// the first insertion put it, though no longer a point.
TEST(HandleRecords, RecordsSurviveTheEngineProjectFile)
{
    ProjectBoard board(QStringLiteral("S[4,4] T2 S[6]"));
    KRC_ReferenceToolData* tool = board->referenceToolData();
    ASSERT_TRUE(tool);
    EXPECT_TRUE(board.project()->metadatas()->contains(tool));
    tool->setPos(Math::Point2d(3, 4));
    tool->setOptions(3);
    KRC_SceneInfo* scene = board->getShotAt(1, previous).sceneInfo();
    setName(scene->name(), "SH010", 2);
    setName(scene->sequenceName(), "SQ1", 3);
    setName(scene->actName(), "A", 1);
    Panel_t const panel = board->getPanelAt(6, previous);
    setName(panel.panelInfo()->name(), "P2", 2);
    panel.panelInfo()->setExportFlag(5);
    ASSERT_TRUE(panel.pdfOptions());
    EXPECT_TRUE(panel.symbol()->metadatas()->contains(panel.pdfOptions()));
    panel.pdfOptions()->pdfOptions().addProperty("panel_export_enabled", false);
    panel.pdfOptions()->pdfOptions().addPropertyFromRange("margin", 2.5, 0.0, 10.0);
    ASSERT_TRUE(panel.exposurePoints() && panel.soundAnnotation());
    panel.exposurePoints()->insertExposurePoint(0.75f);
    panel.exposurePoints()->insertExposurePoint(0.125f);
    panel.exposurePoints()->removeExposurePoint(0.75f);
    panel.soundAnnotation()->add(3, QStringLiteral("sfx/door.wav"));
    panel.soundAnnotation()->add(QStringLiteral("sfx/steps.wav"));
    panel.soundAnnotation()->markDeleted(3, true);

    KRC_MetadataFactory::createInstance();
    QString error;
    UT_SharedPtr<SC_Project> loaded
        = HostProjectFile::fromXml(HostProjectFile::toXml(board.project()), &error);
    ASSERT_TRUE(loaded) << error.toStdString();
    KRC_KrolleProject view(loaded.get());
    Shot_t const shot = view.getShotAt(1, previous);
    Panel_t const reloaded = view.getPanelAt(6, previous);
    ASSERT_TRUE(shot.sceneInfo() && reloaded.panelInfo() && reloaded.pdfOptions() && view.referenceToolData()
        && reloaded.exposurePoints() && reloaded.soundAnnotation());
    EXPECT_EQ(metatest::dumpOf(*scene), metatest::dumpOf(*shot.sceneInfo()));
    EXPECT_EQ(metatest::dumpOf(*panel.panelInfo()), metatest::dumpOf(*reloaded.panelInfo()));
    KRC_Property const* margin = reloaded.pdfOptions()->pdfOptions().getProperty("margin");
    ASSERT_TRUE(margin);
    EXPECT_TRUE(!reloaded.pdfOptions()->exportEnabled() && view.referenceToolData()->data() == tool->data()
        && reloaded.exposurePoints()->isPrimaryExposurePoint(0.75f)
        && reloaded.soundAnnotation()->filePath(3).isNull());
    EXPECT_EQ(std::tuple(2, 3, 1u, QStringLiteral("sfx/steps.wav")),
        std::tuple(margin->propertyType(), view.referenceToolData()->options(),
            reloaded.soundAnnotation()->count(), reloaded.soundAnnotation()->filePath(4)));
    EXPECT_EQ(KRC_ExposurePoints::ExposureList { 0.125f }, reloaded.exposurePoints()->exposureList());
    // The view found the reloaded records rather than adding new ones.
    EXPECT_EQ(std::pair(1, 1),
        std::pair(countIn<KRC_SceneInfo>(sceneOf(loaded.get(), board.shot(0))),
            countIn<KRC_PanelInfo>(sceneOf(loaded.get(), board.panel(0, 1)))));
}

} // namespace
