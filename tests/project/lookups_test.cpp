// Frame lookups of the project view: both sides of transitions, both ends of the
// timeline, warps that cut the symbol's panels, the caches on and off, and edits.
#include "support/MessageCapture.h"
#include "support/ProjectBoard.h"
#include "support/ProjectInvariants.h"

#include <gtest/gtest.h>

#include <tuple>

#include <memory>
#include <vector>

using namespace Krolle;

namespace {

KRC_KrolleProject::ResolutionPriority const Prev = KRC_KrolleProject::PreferPrevious;
KRC_KrolleProject::ResolutionPriority const Next = KRC_KrolleProject::PreferNext;

// Blocks of the board: T0 [1,2], S0 [1,10] with panels [1,5] [6,10], T1 [7,10],
// S1 [7,12] with one panel, S2 [13,15], T2 [14,15].
char const* const kTransitions = "T2 S[5,5] T4 S[6] S[3] T2";

class TransitionFrames : public CacheStateTest
{
protected:
    TransitionFrames()
        : CacheStateTest(kTransitions)
    {
    }
};

// Every frame from before the start to past the end, cold then warm, on both sides of
// each transition, resolves as the engine's blocks say: the invariant check asks them all.
TEST_P(TransitionFrames, ResolveToTheAskedSide)
{
    EXPECT_TRUE(projectViewIsConsistent(board.view()));
    // The panel-or-transition has the frames of whichever it holds.
    auto const frames = [](PanelTrans_t const& either) {
        return std::make_tuple(either.firstFrame(), either.lastFrame(), either.objNumOfFrame());
    };
    EXPECT_EQ(std::make_tuple(7u, 10u, 4u), frames(board->getPanelTransAt(8)));
    EXPECT_EQ(std::make_tuple(1u, 5u, 5u), frames(board->getPanelTransAt(3)));
}

INSTANTIATE_CACHE_STATES(Lookups, TransitionFrames);

// S0 covers frames 1-7 and shows symbol frames 3-9 of panels [1,4] [5,8] [9,12]:
// the first panel is cut to its last two frames, the last one to its first.
TEST(WarpedShot, ShowsTheCutPanelsAtTheirSequenceFrames)
{
    ProjectBoard board(QStringLiteral("S[4,4,4]~3:9=7 S[2]"));
    EXPECT_TRUE(projectViewIsConsistent(board.view()));
    auto const frames = [&](unsigned frame) {
        Panel_t const panel = board->getPanelAt(frame, Prev);
        return std::make_pair(panel.firstFrame(), panel.lastFrame());
    };
    EXPECT_EQ(std::make_pair(1u, 2u), frames(1)); // clamped to the shot's first frame
    EXPECT_EQ(std::make_pair(7u, 7u), frames(7));
}

TEST(PanelIn, LooksBesideTheShotAtFrameZeroAndNotPastItsLength)
{
    ProjectBoard board(QStringLiteral("S[4,4,4]~3:9=7"));
    Shot_t const shot = board->getShotAt(1, Prev);
    MessageCapture messages;
    EXPECT_EQ(board.panel(0, 0), board->getPanelIn(shot, 0).id()); // sequence frame 2, before the warp
    EXPECT_TRUE(board->getPanelIn(shot, 8).isInvalid() && board->getPanelIn(Shot_t::invalid, 1).isInvalid());
    EXPECT_EQ(0, messages.count());
}

TEST(PanelIn, AShotWithoutPanelsIsQuietAndAMissingSymbolIsReported)
{
    ProjectBoard board(QStringLiteral("S[3] S[4]"));
    board->getShotAt(1, Prev).symbol()->sequence()->clearBlocks();
    MessageCapture messages;
    EXPECT_TRUE(board->getPanelAt(2, Prev).isInvalid());
    EXPECT_EQ(0, messages.count());

    ASSERT_TRUE(board.project()->removeScene(board.shot(1)));
    board.notify();
    Shot_t const orphan = board->getShotAt(5, Prev);
    ASSERT_TRUE(orphan.isValid());
    EXPECT_EQ(nullptr, orphan.symbol());
    EXPECT_TRUE(board->getPanelIn(orphan, 3).isInvalid());
    EXPECT_EQ(0u, board->panelCount(orphan));
    ASSERT_EQ(1, messages.count());
    EXPECT_EQ(5, messages.messages().at(0).action);
    EXPECT_TRUE(messages.texts().at(0).startsWith(
                    QStringLiteral("Invalid search for a panel at frame 3 of shot named "))
        && messages.texts().at(0).endsWith(QStringLiteral("... nothing can be found there")));
}

// A shot's block may show its scene without a warp (as a project file may hold it): its
// panels are found at the shot's own frames.
TEST(PanelAt, AShotWithoutAWarpShowsItsPanelsFrameForFrame)
{
    ProjectBoard board(QStringLiteral("S[3,4] S[2]"));
    std::unique_ptr<AT_FrameBlock> const warped = board.timeline()->takeBlock(0);
    board.timeline()->insertBlock(0,
        std::make_unique<AT_FrameBlock>(
            warped->firstFrame, warped->lastFrame, std::make_unique<AT_AbstractSceneSeq>(board.shot(0))));
    board.notify();
    EXPECT_EQ(board.panel(0, 1), board->getPanelAt(5, Prev).id());
    EXPECT_EQ(board.panel(1, 0), board->getPanelAt(8, Prev).id());
    EXPECT_TRUE(projectViewIsConsistent(board.view()));
}

TEST(ShotAt, ATransitionWhoseNeighbourDoesNotReachTheFrameGivesNothing)
{
    ProjectBoard board(QStringLiteral("S[5]"));
    board.timeline()->insertBlock(
        1, std::make_unique<AT_FrameBlock>(20, 23, std::make_unique<AT_TransitionSeq>(SC_Id(999), 0)));
    board.notify();
    EXPECT_TRUE(board->getShotAt(21, Prev).isInvalid() && board->getShotAt(21, Next).isInvalid());
    EXPECT_TRUE(board->getTransAt(21).isInvalid()); // a single block has no transition
}

TEST(Caches, EnabledShareHandlesAndDisabledBuildFreshOnes)
{
    ProjectBoard board(QString::fromLatin1(kTransitions));
    Shot_t const shot = board->getShotAt(3, Prev);
    Panel_t const panel = board->getPanelAt(3, Prev);
    Trans_t const transition = board->getTransAt(8);
    EXPECT_TRUE(sharePrivate(shot, board->getShotAt(4, Next)) && sharePrivate(panel.shot(), shot)
        && sharePrivate(panel, board->getPanelAt(4, Prev)) && sharePrivate(transition, board->getTransAt(9)));

    board->setCacheEnabled(false);
    EXPECT_FALSE(board->cacheEnabled());
    Shot_t const fresh = board->getShotAt(3, Prev);
    EXPECT_TRUE(shot == fresh && panel == board->getPanelAt(3, Prev));
    EXPECT_FALSE(
        sharePrivate(fresh, board->getShotAt(3, Prev)) || sharePrivate(panel, board->getPanelAt(3, Prev)));

    board->setCacheEnabled(true);
    Shot_t const again = board->getShotAt(3, Prev);
    EXPECT_TRUE(sharePrivate(again, board->getShotAt(3, Prev)));

    // Invalidating drops them; old handles stay as they were.
    board->invalidate();
    Shot_t const renewed = board->getShotAt(3, Prev);
    EXPECT_FALSE(sharePrivate(renewed, again));
    EXPECT_TRUE(again == renewed && again.isValid());
}

TEST(Caches, OnlyTheTimelinesOwnSequenceDropsThemBeforeSceneChanged)
{
    ProjectBoard board(QString::fromLatin1(kTransitions));
    Shot_t const shot = board->getShotAt(3, Prev);
    auto const cached = [&] { return sharePrivate(shot, board->getShotAt(3, Prev)); };

    emit board.manager.timedValuesChanged(TUTvSet { shot.symbol()->sequence() });
    EXPECT_TRUE(cached());
    emit board.manager.timedValuesChanged(TUTvSet { shot.symbol()->sequence(), board.timeline() });
    EXPECT_FALSE(cached());

    Shot_t const second = board->getShotAt(3, Prev);
    emit board.manager.sceneChanged();
    EXPECT_FALSE(sharePrivate(second, board->getShotAt(3, Prev)));
}

/// One engine edit, as a host command makes it.
struct Edit
{
    char const* what;
    std::function<bool(ProjectBoard&)> apply;
};

TEST(Edits, TheViewFollowsEveryEditAfterNotify)
{
    ProjectBoard board(QString::fromLatin1(kTransitions));
    SC_Project* project = board.project();
    Edit const edits[] = {
        { "resize a shot",
            [&](ProjectBoard& b) { return HostAuthoring::resizeShot(project, b.shot(1), 9); } },
        { "add a panel",
            [&](ProjectBoard& b) { return HostAuthoring::insertPanel(project, b.shot(2), 0, 3).value(); } },
        { "remove a transition",
            [&](ProjectBoard& b) { return HostAuthoring::removeTransition(project, b.transition(1)); } },
        { "cut panels with a warp",
            [&](ProjectBoard& b) { return HostAuthoring::setTimeWarp(project, b.shot(0), 1.0, 7.0); } },
        { "add a transition",
            [&](ProjectBoard&) { return HostAuthoring::insertTransition(project, 2, 2).value(); } },
        { "move a shot", [&](ProjectBoard& b) { return HostAuthoring::moveShot(project, b.shot(2), 1); } },
        { "remove a shot", [&](ProjectBoard& b) { return HostAuthoring::removeShot(project, b.shot(1)); } }
    };
    MessageCapture messages;
    EXPECT_TRUE(projectViewIsConsistent(board.view()));
    for (Edit const& edit : edits) {
        SCOPED_TRACE(edit.what);
        Shot_t const before = board->getShotAt(1, Prev);
        ASSERT_TRUE(edit.apply(board));
        board.notify();
        Shot_t const after = board->getShotAt(1, Prev);
        EXPECT_FALSE(sharePrivate(before, after));
        EXPECT_TRUE(projectViewIsConsistent(board.view()));
    }
    EXPECT_EQ(0, messages.count());
}

// Lookups from the back of the timeline first, so that the first answer in each span
// of frames is not at its start: the warm answers must be the engine's at every frame
// and the very handles the first lookups gave.
class WarmFromTheBack : public ::testing::TestWithParam<char const*>
{
};

TEST_P(WarmFromTheBack, AnswerAsTheEngineWithTheFirstHandles)
{
    ProjectBoard board(QString::fromLatin1(GetParam()));
    unsigned const frames = board.timeline()->nFrames();
    std::vector<Panel_t> first;
    for (unsigned frame = frames + 1; frame-- > 0;)
        first.push_back(board->getPanelAt(frame, frame % 2 ? Prev : Next));
    for (unsigned frame = frames + 1; frame-- > 0;)
        EXPECT_TRUE(sharePrivate(first[frames - frame], board->getPanelAt(frame, frame % 2 ? Prev : Next)))
            << frame;
    EXPECT_TRUE(projectViewIsConsistent(board.view()));
}

INSTANTIATE_TEST_SUITE_P(Timelines, WarmFromTheBack,
    ::testing::Values(
        kTransitions, "S[4,4,4]~3:9=7 S[2]", "S[4,4]~2.5:7=5 T1 S[3,1]", "S[3,3]~1:4=2 S[5]~2:5"));

} // namespace
