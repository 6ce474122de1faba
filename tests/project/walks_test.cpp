// Walks of the view: counts and their kept totals, lookups by index, id and name,
// lists of ids, act and sequence indices, the reverse tables, same-shot tests.
#include "support/ProjectBoard.h"

#include <gtest/gtest.h>

using namespace Krolle;

namespace {

char const* const kBoard = "T2 S[3,3] S[4] T2 S[2,2] S[5] S[1,2] T1";

class WalksTest : public CacheStateTest
{
protected:
    WalksTest()
        : CacheStateTest(kBoard)
    {
    }
};

// Index and id round trips over this board are in the board-shape walks.
TEST_P(WalksTest, LookupsByIdRefuseOtherKindsAndFollowARemoval)
{
    KRC_KrolleProject& view = board.view();
    EXPECT_EQ(board.panel(1, 0), view.getPanelTransById(board.panel(1, 0)).asPanel().id());
    EXPECT_FALSE(view.isPanelValid(board.shot(0)));
    EXPECT_FALSE(view.isTransValid(SC_Id(987654)));
    EXPECT_FALSE(view.isShotValid(invalidId));
    EXPECT_EQ(KRC_KrolleProject::invalidNdx, view.getShotNdx(Shot_t::invalid));

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
    EXPECT_EQ(KRC_KrolleProject::invalidNdx, view.getActNdx(QStringLiteral("C")));
    EXPECT_EQ(KRC_KrolleProject::invalidNdx, view.getActNdx(Shot_t::invalid));
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
    EXPECT_EQ(KRC_KrolleProject::invalidNdx, view.getSequenceNdx(QStringLiteral("U")));
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
    EXPECT_EQ(KRC_KrolleProject::invalidNdx, view.getSequenceNdx(board.shotAt(2)));
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
    EXPECT_EQ(KRC_KrolleProject::invalidNdx, view.getShotNdx(QStringLiteral("sc11")));
}

INSTANTIATE_CACHE_STATES(Project, WalksTest);

struct BetweenCase
{
    char const* what;
    int a, b; // places in the panel walk
    bool inclusive;
    std::vector<int> expected;
};

TEST(PanelLists, BetweenTwoPanels)
{
    ProjectBoard board(QString::fromLatin1(kBoard));
    std::vector<SC_Id> all;
    for (auto const& shot : board.board.panels)
        all.insert(all.end(), shot.begin(), shot.end());
    BetweenCase const cases[] = {
        { "one panel, both ends", 2, 2, true, { 2 } },
        { "one panel, no ends", 2, 2, false, {} },
        { "neighbours, no ends", 2, 3, false, {} },
        { "across a transition", 1, 4, true, { 1, 2, 3, 4 } },
        { "inside, no ends", 1, 4, false, { 2, 3 } },
        { "to the last panel", 5, 7, true, { 5, 6, 7 } },
        { "backwards", 4, 1, true, {} },
        { "from an invalid panel", -1, 3, true, {} },
    };
    for (BetweenCase const& c : cases) {
        SCOPED_TRACE(c.what);
        Panel_t const a = c.a < 0 ? Panel_t::invalid : board->getPanelByID(all[size_t(c.a)]);
        Panel_t const b = board->getPanelByID(all[size_t(c.b)]);
        std::vector<SC_Id> expected;
        for (int place : c.expected)
            expected.push_back(all[size_t(place)]);
        EXPECT_EQ(expected, board->panelsIdBetween(a, b, c.inclusive));
    }
    EXPECT_EQ(board.board.panels[2], board->panelsIdIn(board.shotAt(2)));
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

TEST(KeptTotals, StayUntilTheTimelineChanges)
{
    ProjectBoard board(QString::fromLatin1(kBoard));
    EXPECT_EQ(5u, board->shotCount());
    EXPECT_EQ(1u, board->actCount());
    ASSERT_NE(0u, HostAuthoring::insertShot(board.project(), 4, { 2 }).value());
    TUSeqTimedValue* panelTv = board.panelAt(0, 0).symbol()->sequence();
    emit board.manager.timedValuesChanged(TUTvSet { panelTv });
    EXPECT_EQ(5u, board->shotCount()); // kept: the set does not hold the timeline
    emit board.manager.timedValuesChanged(TUTvSet { board.timeline() });
    EXPECT_EQ(6u, board->shotCount());

    board->setCacheEnabled(false);
    ASSERT_TRUE(HostAuthoring::removeShot(board.project(), board.shot(0)));
    EXPECT_EQ(5u, board->shotCount()); // without the cache every count walks anew
    board.notify();
}

TEST(ReverseTables, FindPanelsFromTheirNodesAndRefuseOtherScenes)
{
    ProjectBoard board(QString::fromLatin1(kBoard));
    KRC_KrolleProject const& view = board.view();
    Panel_t const panel = board.panelAt(4, 0);
    EXPECT_EQ(panel, view.tvToPanel(panel.symbol()->sequence()));
    MO_Node* peg = HostNodeAuthoring::addPeg(panel.symbol()->getRootGroup(), QStringLiteral("Peg"));
    ASSERT_NE(nullptr, peg);
    EXPECT_EQ(panel, view.nodeToPanel(peg));
    EXPECT_TRUE(view.sceneCommonToShot(panel.symbol()->sceneCommon()).isInvalid());
    EXPECT_TRUE(view.sceneCommonToPanel(nullptr).isInvalid());
    EXPECT_TRUE(view.tvToShot(nullptr).isInvalid());
    EXPECT_TRUE(view.nodeToPanel(nullptr).isInvalid());

    // The tables go with the caches, so a panel moved to another shot is found there.
    ASSERT_TRUE(HostAuthoring::movePanel(board.project(), board.panel(4, 0), board.shot(0), 0));
    board.notify();
    Panel_t const moved = view.sceneCommonToPanel(panel.symbol()->sceneCommon());
    EXPECT_EQ(board.panel(4, 0), moved.id());
    EXPECT_EQ(board.shot(0), moved.shot().id());
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

    struct Case
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
    for (Case const& c : cases)
        EXPECT_EQ(c.expected, view.neighborIsOfSameScene(c.first, c.last))
            << c.first.value() << "-" << c.last.value();
}

} // namespace
