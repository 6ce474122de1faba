// Walks of the view over boards of every shape, with the caches on and off: each object
// found by index, id and engine scene must be the board's, and back again. Then the
// kept totals, act and sequence runs, lookups by name, the reverse tables, same-shot tests.
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

char const* const kBoard = "T2 S[3,3] S[4] T2 S[2,2] S[5] S[1,2] T1";

class WalksTest : public CacheStateTest
{
protected:
    WalksTest()
        : CacheStateTest(kBoard)
    {
    }
};

TEST_P(WalksTest, LookupsByIdRefuseOtherKindsAndFollowARemoval)
{
    KRC_KrolleProject& view = board.view();
    EXPECT_FALSE(view.isPanelValid(board.shot(0)));
    EXPECT_FALSE(view.isTransValid(SC_Id(987654)));
    EXPECT_FALSE(view.isShotValid(invalidId));
    EXPECT_EQ(kInvalidNdx, view.getShotNdx(Shot_t::invalid));
    ASSERT_TRUE(HostAuthoring::removePanel(board.project(), board.panel(0, 0)));
    board.notify();
    EXPECT_FALSE(view.isPanelValid(board.panel(0, 0)));
    EXPECT_TRUE(view.isPanelValid(board.panel(0, 1)));
}

TEST_P(WalksTest, ActsCountRunsAndIndexFromTheSecondShotOfAnAct)
{
    board.group(QStringLiteral("A/S A/S B/S B/T A/T"));
    KRC_KrolleProject const& view = board.view();
    EXPECT_EQ(3u, view.actCount()); // A twice, in separate runs
    unsigned const actIndices[] = { 0, 0, 0, 1, 1 };
    for (size_t i = 0; i < 5; ++i)
        EXPECT_EQ(actIndices[i], view.getActNdx(board.shotAt(i))) << "shot " << i;
    EXPECT_EQ(0u, view.getActNdx(board.panelAt(2, 0))); // the first panel of act B
    EXPECT_EQ(1u, view.getActNdx(board.panelAt(2, 1)));
    EXPECT_EQ(0u, view.getActNdx(QStringLiteral("B")));
    EXPECT_EQ(0u, view.getActNdx(QStringLiteral("A")));
    EXPECT_EQ(kInvalidNdx, view.getActNdx(QStringLiteral("C")));
    EXPECT_EQ(kInvalidNdx, view.getActNdx(Shot_t::invalid));
    // An act with a custom but empty name is an act like any other.
    board.shotAt(0).sceneInfo()->actName().setValue(QString());
    board.view().invalidate();
    EXPECT_EQ(4u, view.actCount());
    EXPECT_EQ(0u, view.getActNdx(board.shotAt(1)));
    // An act that starts with the second shot counts from there.
    board.group(QStringLiteral("A/S B/S B/S B/S B/S"));
    board.view().invalidate();
    EXPECT_EQ(1u, view.getActNdx(board.shotAt(2)));
}

TEST_P(WalksTest, SequencesIndexFromTheirFirstShot)
{
    board.group(QStringLiteral("A/S A/S A/T A/T A/S"));
    KRC_KrolleProject& view = board.view();
    EXPECT_EQ(3u, view.sequenceCount());
    unsigned const indices[] = { 0, 0, 1, 1, 2 };
    for (size_t i = 0; i < 5; ++i)
        EXPECT_EQ(indices[i], view.getSequenceNdx(board.shotAt(i))) << "shot " << i;
    EXPECT_EQ(1u, view.getSequenceNdx(board.panelAt(2, 0)));
    EXPECT_EQ(1u, view.getSequenceNdx(QStringLiteral("T")));
    EXPECT_EQ(kInvalidNdx, view.getSequenceNdx(QStringLiteral("U")));
    EXPECT_TRUE(view.sequenceNameExists(QStringLiteral("T")));
    EXPECT_FALSE(view.sequenceNameExists(QString()));
    EXPECT_FALSE(view.sequenceNameExists(QStringLiteral("U")));

    EXPECT_EQ((std::vector<SC_Id> { board.shot(0), board.shot(1), board.shot(4) }),
        view.shotsIdInSequence(QStringLiteral("S")));
    EXPECT_EQ(board.shot(0), view.firstInSequence(QStringLiteral("S"), false).id());
    EXPECT_EQ(board.shot(1), view.lastInSequence(QStringLiteral("S"), false).id());
    EXPECT_EQ(board.shot(2), view.firstInSequence(QStringLiteral("T"), true).id());
    EXPECT_TRUE(view.firstInSequence(QStringLiteral("s"), true).isInvalid()); // the caller passes upper case

    view.sequenceExistsMeta()->setValue(false);
    EXPECT_EQ(0u, view.sequenceCount());
    EXPECT_EQ(kInvalidNdx, view.getSequenceNdx(board.shotAt(2)));
    EXPECT_FALSE(view.sequenceNameExists(QStringLiteral("T")));
    EXPECT_EQ(board.shot(2), view.firstInSequence(QStringLiteral("T"), false).id()); // by name it still looks
    EXPECT_TRUE(view.lastInSequence(QStringLiteral("T"), false).isInvalid());
    EXPECT_EQ(1u, view.actCount());
}

TEST_P(WalksTest, ShotsByName)
{
    board.nameShot(1, QStringLiteral("sc10"), QStringLiteral("seqA"));
    board.nameShot(3, QStringLiteral("sc10"), QStringLiteral("seqB"));
    KRC_KrolleProject const& view = board.view();
    EXPECT_EQ(board.shot(1), view.getShotByName(QStringLiteral("sc10"), QString(), false).id());
    EXPECT_EQ(board.shot(3), view.getShotByName(QStringLiteral("sc10"), QStringLiteral("seqB"), false).id());
    EXPECT_EQ(board.shot(3), view.getShotByName(QStringLiteral("SC10"), QStringLiteral("SEQB"), true).id());
    EXPECT_TRUE(view.getShotByName(QStringLiteral("SC10"), QString(), false).isInvalid());
    EXPECT_TRUE(view.getShotByName(QStringLiteral("sc10"), QStringLiteral("seqC"), true).isInvalid());
    EXPECT_EQ(1u, view.getShotNdx(QStringLiteral("sc10")));
    EXPECT_EQ(kInvalidNdx, view.getShotNdx(QStringLiteral("sc11")));
}

INSTANTIATE_CACHE_STATES(Project, WalksTest);

TEST(PanelLists, BetweenTwoPanels)
{
    ProjectBoard board(QString::fromLatin1(kBoard));
    std::vector<SC_Id> const all = boardPanelIds(board.board);
    struct
    {
        char const* what;
        int a, b; // places in the panel walk
        bool inclusive;
        std::vector<int> expected;
    } const cases[] = {
        { "one panel, both ends", 2, 2, true, { 2 } },
        { "one panel, no ends", 2, 2, false, {} },
        { "neighbours, no ends", 2, 3, false, {} },
        { "across a transition", 1, 4, true, { 1, 2, 3, 4 } },
        { "inside, no ends", 1, 4, false, { 2, 3 } },
        { "to the last panel", 5, 7, true, { 5, 6, 7 } },
        { "backwards", 4, 1, true, {} },
        { "from an invalid panel", -1, 3, true, {} },
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(c.what);
        Panel_t const a = c.a < 0 ? Panel_t::invalid : board->getPanelByID(all[size_t(c.a)]);
        std::vector<SC_Id> expected;
        for (int place : c.expected)
            expected.push_back(all[size_t(place)]);
        EXPECT_EQ(expected, board->panelsIdBetween(a, board->getPanelByID(all[size_t(c.b)]), c.inclusive));
    }
    EXPECT_TRUE(board->panelsIdIn(Shot_t::invalid).empty());
}

TEST(PanelCounts, AShotCountsOnlyPanelsWhollyInsideItsWarp)
{
    // Symbol frames 3-9 of panels [1,4] [5,8] [9,12]: the first starts before the warp,
    // the last runs past its end.
    ProjectBoard board(QStringLiteral("S[4,4,4]~3:9=7 S[2,2]"));
    Shot_t const cut = board.shotAt(0);
    EXPECT_EQ(2u, board->panelCount(cut));
    EXPECT_EQ(3, std::distance(board->beginPanel(cut), board->endPanel(cut)));
    EXPECT_EQ(2u, board->panelCount(board.shotAt(1)));
    EXPECT_EQ(0u, board->panelCount(Shot_t::invalid));
}

TEST(KeptTotals, StayUntilTheTimelineChangesAndAreNotKeptWithTheCacheOff)
{
    ProjectBoard board(QStringLiteral("S[3] S[3] T2 S[3,3] S[3] S[3]"));
    board.group(QStringLiteral("A/S A/S B/T B/S A/S"));
    EXPECT_EQ(5u, board->shotCount());
    EXPECT_EQ(3u, board->actCount());
    EXPECT_EQ(3u, board->sequenceCount());
    board.nameShot(4, QString(), QString(), QStringLiteral("B"));
    board.nameShot(2, QString(), QStringLiteral("S"));
    ASSERT_NE(0u, HostAuthoring::insertShot(board.project(), 5, { 2 }).value());
    emit board.manager.timedValuesChanged(TUTvSet { board.panelAt(0, 0).symbol()->sequence() });
    EXPECT_EQ(5u, board->shotCount()); // kept: neither a record nor that set holds the timeline
    EXPECT_EQ(3u, board->actCount());
    EXPECT_EQ(3u, board->sequenceCount());
    emit board.manager.timedValuesChanged(TUTvSet { board.timeline() });
    EXPECT_EQ(6u, board->shotCount());
    EXPECT_EQ(3u, board->actCount()); // A A B B B, then the new shot's own
    EXPECT_EQ(2u, board->sequenceCount());

    board->setCacheEnabled(false);
    board.nameShot(0, QString(), QStringLiteral("R"), QStringLiteral("Z"));
    EXPECT_EQ(4u, board->actCount()); // nothing is kept while the cache is off
    EXPECT_EQ(3u, board->sequenceCount());
    ASSERT_TRUE(HostAuthoring::removeShot(board.project(), board.shot(0)));
    EXPECT_EQ(5u, board->shotCount());
    board.notify();
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

TEST(ReverseTables, FindNodesRefuseOtherScenesAndFollowMovesAndEdits)
{
    ProjectBoard board(QString::fromLatin1(kBoard));
    KRC_KrolleProject const& view = board.view();
    Panel_t const panel = board.panelAt(4, 0);
    MO_Node* peg = HostNodeAuthoring::addPeg(panel.symbol()->getRootGroup(), QStringLiteral("Peg"));
    ASSERT_NE(nullptr, peg);
    EXPECT_EQ(panel, view.nodeToPanel(peg));
    EXPECT_EQ(panel, view.tvToPanel(panel.symbol()->sequence()));
    EXPECT_TRUE(view.sceneCommonToShot(sceneOf(panel.symbol())).isInvalid());
    EXPECT_TRUE(view.sceneCommonToPanel(nullptr).isInvalid());
    EXPECT_TRUE(view.tvToShot(nullptr).isInvalid());
    EXPECT_TRUE(view.nodeToPanel(nullptr).isInvalid());

    // The tables go with the caches, so a panel moved to another shot is found there.
    ASSERT_TRUE(HostAuthoring::movePanel(board.project(), board.panel(4, 0), board.shot(0), 0));
    board.notify();
    Panel_t const moved = view.sceneCommonToPanel(sceneOf(panel.symbol()));
    EXPECT_EQ(board.panel(4, 0), moved.id());
    EXPECT_EQ(board.shot(0), moved.shot().id());

    // A new shot is found, also with the cache off, until it goes; its scene is taken
    // while it lives and only compared afterwards.
    SC_Id const added = HostAuthoring::insertShot(board.project(), 3, { 2 });
    board.notify();
    SC_SceneCommon const* addedScene = sceneOf(HostAuthoring::symbolOf(board.project(), added));
    EXPECT_EQ(added, view.sceneCommonToShot(addedScene).id());
    board->setCacheEnabled(false);
    EXPECT_EQ(added, view.sceneCommonToShot(addedScene).id());
    ASSERT_TRUE(HostAuthoring::removeShot(board.project(), added));
    board.notify();
    EXPECT_TRUE(view.sceneCommonToShot(addedScene).isInvalid());
    EXPECT_EQ(board.shotAt(1), view.sceneCommonToShot(sceneOf(board.shotAt(1).symbol())));
}

TEST(SameShot, PanelListsAndNeighbours)
{
    ProjectBoard board(QString::fromLatin1(kBoard));
    KRC_KrolleProject const& view = board.view();
    std::vector<SC_Id> lists[] = { { board.panel(2, 0), board.panel(2, 1) },
        { board.panel(2, 0), board.panel(3, 0) }, { board.panel(2, 0), SC_Id(424242) }, {} };
    EXPECT_TRUE(view.areAllPanelsOfSameScene(lists[0]));
    for (size_t i = 1; i < 4; ++i)
        EXPECT_FALSE(view.areAllPanelsOfSameScene(lists[i])) << "list " << i;

    struct
    {
        SC_Id first, last;
        bool expected;
    } const cases[] = {
        { board.panel(0, 0), board.panel(0, 0), false }, // the project's first panel
        { board.panel(0, 1), board.panel(0, 1), true }, // 0.0 before it, same shot
        { board.panel(2, 0), board.panel(2, 0), true }, // 2.1 after it, same shot
        { board.panel(2, 0), board.panel(2, 1), false }, // the whole shot
        { board.panel(3, 0), board.panel(3, 0), false }, // a single-panel shot
        { board.panel(4, 0), board.panel(4, 1), false }, // the whole last shot
        { board.panel(1, 0), SC_Id(424242), false },
    };
    for (auto const& c : cases)
        EXPECT_EQ(c.expected, view.neighborIsOfSameScene(c.first, c.last))
            << c.first.value() << "-" << c.last.value();
}

} // namespace
