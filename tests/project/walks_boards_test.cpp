// Walks and lookups over boards of every shape, with the caches on and off:
// transitions at both ends, single-panel shots, shots cut by their warps. Each object
// found by index, id and engine scene must be the board's, and back again.
#include "support/ProjectBoard.h"
#include "support/WalkIds.h"

#include "host/engine/HostAuthoring.h"
#include "metadata/KRC_SceneInfo.h"
#include "naming/KRC_ObjectName.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace Krolle;

namespace {

unsigned const kInvalidNdx = KRC_KrolleProject::invalidNdx;

struct BoardCase
{
    char const* name;
    char const* description;
};

BoardCase const kBoards[] = {
    { "Plain", "S[3,4] S[5] S[2,2,2]" },
    { "TransitionsAtBothEnds", "T2 S[5,5] T4 S[6] S[3] T2" },
    { "TransitionsBetweenMultiPanelShots", "T2 S[3,3] S[4] T2 S[2,2] S[5] S[1,2] T1" },
    { "SinglePanelShots", "S[4] T2 S[6] T2 S[4] S[1]" },
    // The first shot shows symbol frames 3-9 of [1,4] [5,8] [9,12]; the last one 1-6
    // of [1,4] [5,8]: panels cut at either end are still walked.
    { "CutByWarps", "S[4,4,4]~3:9=7 S[2] S[4,4]~1:6" },
};

template <class T> std::vector<T> reversed(std::vector<T> values)
{
    std::reverse(values.begin(), values.end());
    return values;
}

SC_SceneCommon const* sceneOf(TUScene const* scene)
{
    return scene ? scene->sceneCommon() : nullptr;
}

class Boards : public testing::TestWithParam<std::tuple<BoardCase, bool>>
{
protected:
    void SetUp() override
    {
        board.reset(new ProjectBoard(QString::fromLatin1(std::get<0>(GetParam()).description)));
        (*board)->setCacheEnabled(std::get<1>(GetParam()));
    }

    HostStoryboard const& ids() const { return board->board; }

    std::unique_ptr<ProjectBoard> board;
};

TEST_P(Boards, WalksVisitEveryObjectOnceBothWays)
{
    KRC_KrolleProject& view = board->view();
    for (int pass = 0; pass < 2; ++pass) { // cold, then warm
        EXPECT_EQ(ids().shots, idsOfWalk(view.beginShot(), view.endShot()));
        EXPECT_EQ(reversed(ids().shots), idsOfWalk(view.rbeginShot(), view.rendShot()));
        EXPECT_EQ(boardPanelIds(ids()), idsOfWalk(view.beginPanel(), view.endPanel()));
        EXPECT_EQ(reversed(boardPanelIds(ids())), idsOfWalk(view.rbeginPanel(), view.rendPanel()));
        EXPECT_EQ(ids().transitions, idsOfWalk(view.beginTrans(), view.endTrans()));
        EXPECT_EQ(reversed(ids().transitions), idsOfWalk(view.rbeginTrans(), view.rendTrans()));
        for (size_t i = 0; i < ids().shots.size(); ++i) {
            Shot_t const shot = board->shotAt(i);
            EXPECT_EQ(ids().panels[i], idsOfWalk(view.beginPanel(shot), view.endPanel(shot))) << "shot " << i;
            EXPECT_EQ(reversed(ids().panels[i]), idsOfWalk(view.rbeginPanel(shot), view.rendPanel(shot)));
        }
    }
}

TEST_P(Boards, CountsIndicesAndIdsLeadToTheSameObjects)
{
    KRC_KrolleProject& view = board->view();
    std::vector<SC_Id> const panels = boardPanelIds(ids());
    ASSERT_EQ(ids().shots.size(), view.shotCount());
    ASSERT_EQ(panels.size(), view.panelCount());
    ASSERT_EQ(ids().transitions.size(), view.transCount());

    for (unsigned i = 0; i < view.shotCount(); ++i) {
        Shot_t const shot = view.getShotByNdx(i);
        EXPECT_EQ(ids().shots[i], shot.id());
        EXPECT_EQ(shot, view.getShotByID(shot.id()));
        EXPECT_EQ(i, view.getShotNdx(shot));
        EXPECT_EQ(ids().panels[i], view.panelsIdIn(shot));
        for (unsigned p = 0; p < ids().panels[i].size(); ++p)
            EXPECT_EQ(p, view.getPanelNdx(board->panelAt(i, p), true)) << "shot " << i << " panel " << p;
    }
    for (unsigned i = 0; i < panels.size(); ++i) {
        Panel_t const panel = view.getPanelByNdx(i);
        EXPECT_EQ(panels[i], panel.id());
        EXPECT_EQ(panel, view.getPanelByID(panels[i]));
        EXPECT_EQ(i, view.getPanelNdx(panel, false));
    }
    for (unsigned i = 0; i < view.transCount(); ++i) {
        EXPECT_EQ(ids().transitions[i], view.getTransByNdx(i).id());
        EXPECT_TRUE(view.getPanelTransById(ids().transitions[i]).isTrans());
    }
    EXPECT_TRUE(view.getShotByNdx(view.shotCount()).isInvalid());
    EXPECT_TRUE(view.getPanelByNdx(view.panelCount()).isInvalid());
    EXPECT_TRUE(view.getTransByNdx(view.transCount()).isInvalid());
    EXPECT_EQ(kInvalidNdx, view.getPanelNdx(Panel_t::invalid, true));
    EXPECT_EQ(view.getShotByNdx(view.shotCount() - 1).lastFrame(), view.getNumOfFrames());
}

TEST_P(Boards, EngineScenesTimedValuesAndNodesLeadBackToTheirObjects)
{
    KRC_KrolleProject& view = board->view();
    for (int pass = 0; pass < 2; ++pass) { // filling the tables, then reading them
        for (size_t i = 0; i < ids().shots.size(); ++i) {
            Shot_t const shot = board->shotAt(i);
            EXPECT_EQ(shot, view.sceneCommonToShot(sceneOf(shot.symbol()))) << "shot " << i;
            EXPECT_EQ(shot, view.tvToShot(shot.symbol()->sequence()));
        }
        for (SC_Id const& id : boardPanelIds(ids())) {
            Panel_t const panel = view.getPanelByID(id);
            EXPECT_EQ(panel, view.sceneCommonToPanel(sceneOf(panel.symbol())));
            EXPECT_EQ(panel, view.nodeToPanel(panel.symbol()->getRootGroup()));
        }
    }
    SC_SceneCommon const* top = sceneOf(view.topScene());
    EXPECT_TRUE(view.sceneCommonToShot(top).isInvalid());
    EXPECT_TRUE(view.sceneCommonToPanel(top).isInvalid());
}

INSTANTIATE_TEST_SUITE_P(Walks, Boards, testing::Combine(testing::ValuesIn(kBoards), testing::Bool()),
    [](testing::TestParamInfo<std::tuple<BoardCase, bool>> const& info) {
        return std::string(std::get<0>(info.param).name) + (std::get<1>(info.param) ? "CacheOn" : "CacheOff");
    });

TEST(KeptRuns, CountsOfActsAndSequencesFollowARenameOnceTheCachesGo)
{
    ProjectBoard board(QStringLiteral("S[3] S[3] T2 S[3,3] S[3] S[3]"));
    board.group(QStringLiteral("A/S A/S B/T B/S A/S"));
    EXPECT_EQ(3u, board->actCount());
    EXPECT_EQ(3u, board->sequenceCount());
    board.nameShot(4, QString(), QString(), QStringLiteral("B"));
    board.nameShot(2, QString(), QStringLiteral("S"));
    EXPECT_EQ(3u, board->actCount()); // a record changed, not the timeline: kept
    EXPECT_EQ(3u, board->sequenceCount());
    board->invalidate();
    EXPECT_EQ(2u, board->actCount());
    EXPECT_EQ(1u, board->sequenceCount());

    board->setCacheEnabled(false);
    board.nameShot(0, QString(), QStringLiteral("R"), QStringLiteral("Z"));
    EXPECT_EQ(3u, board->actCount()); // nothing is kept while the cache is off
    EXPECT_EQ(2u, board->sequenceCount());
}

TEST(ActIndices, AnActWithACustomButEmptyNameIsAnActLikeAnyOther)
{
    ProjectBoard board(QStringLiteral("S[3] S[3] S[3]"));
    board.group(QStringLiteral("A/S B/S B/S"));
    board.shotAt(0).sceneInfo()->actName().setValue(QString());
    unsigned const expected[] = { 0, 0, 1 };
    for (size_t i = 0; i < 3; ++i)
        EXPECT_EQ(expected[i], board->getActNdx(board.shotAt(i))) << "shot " << i;
    EXPECT_EQ(2u, board->actCount());
}

/// Opens buildAll, which the library keeps for its subclasses.
class BuildingView : public KRC_KrolleProject
{
public:
    using KRC_KrolleProject::buildAll;
    using KRC_KrolleProject::KRC_KrolleProject;
};

TEST(BuildAll, FillsTheCachesWithEveryPanelAndTransition)
{
    ProjectBoard board(QStringLiteral("S[2,2] T2 S[3]"));
    BuildingView view(board.project());
    view.buildAll();
    // Gone from the engine but not yet told: only a filled cache still knows them.
    ASSERT_TRUE(HostAuthoring::removeShot(board.project(), board.shot(1)));
    EXPECT_TRUE(view.isPanelValid(board.panel(1, 0)));
    EXPECT_TRUE(view.isTransValid(board.transition(0)));
    board.notify();
    EXPECT_FALSE(view.isPanelValid(board.panel(1, 0)));
    EXPECT_FALSE(view.isTransValid(board.transition(0)));
}

TEST(ReverseTables, AreFilledAnewAfterAnEditAlsoWithTheCacheOff)
{
    ProjectBoard board(QStringLiteral("S[2] S[3]"));
    Shot_t const second = board.shotAt(1);
    EXPECT_EQ(second, board->sceneCommonToShot(sceneOf(second.symbol())));

    SC_Id const added = HostAuthoring::insertShot(board.project(), 2, { 2 });
    board.notify();
    // Taken while the scene lives: once the shot goes it is only compared.
    SC_SceneCommon const* addedScene = sceneOf(HostAuthoring::symbolOf(board.project(), added));
    EXPECT_EQ(added, board->sceneCommonToShot(addedScene).id());
    SC_Id const addedPanel = HostAuthoring::panelId(board.project(), added, 0);
    EXPECT_EQ(addedPanel, board->tvToPanel(board->getPanelByID(addedPanel).symbol()->sequence()).id());

    board->setCacheEnabled(false);
    EXPECT_EQ(added, board->sceneCommonToShot(addedScene).id());
    ASSERT_TRUE(HostAuthoring::removeShot(board.project(), added));
    board.notify();
    EXPECT_TRUE(board->sceneCommonToShot(addedScene).isInvalid());
    EXPECT_EQ(second, board->sceneCommonToShot(sceneOf(second.symbol())));
}

} // namespace
