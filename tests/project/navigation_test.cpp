// Navigation of the view: neighbours and the ends of shots, acts, sequences and the
// project, for shots, panels and transitions; transitions beside panels; runs.
#include "support/ProjectBoard.h"
#include "support/ProjectInvariants.h"

#include <gtest/gtest.h>

using namespace Krolle;

namespace {

// Shots 0-4 in acts A A A B B and sequences S1 S1 S2 S2 S1 (S1 again in a separate
// run). Transitions: T0 before shot 0, T1 between shots 1 and 2, T2 after shot 4.
char const* const kBoard = "T2 S[3,3] S[4] T2 S[2,2] S[5] S[1,2] T1";
char const* const kGroups = "A/S1 A/S1 A/S2 B/S2 B/S1";

/// Navigation boards, with the cache on or off.
class Navigation : public CacheStateTest
{
protected:
    Navigation()
        : CacheStateTest(kBoard)
    {
    }
    void SetUp() override { board.group(QString::fromLatin1(kGroups)); }

    SC_Id shot(int index) const { return index < 0 ? invalidId : board.shot(size_t(index)); }
};

struct ShotSteps
{
    int next, prev, firstInAct, lastInAct, firstInSequence, lastInSequence, firstInPrevSequence,
        firstInNextSequence;
    bool actGoesOn[2], sequenceGoesOn[2]; // backward, forward
    unsigned actLength, sequenceLength;
};

ShotSteps const kShotSteps[] = { { 1, -1, 0, 2, 0, 1, -1, 2, { false, true }, { false, true }, 3, 2 },
    { 2, 0, 0, 2, 0, 1, -1, 2, { true, true }, { true, false }, 3, 2 },
    { 3, 1, 0, 2, 2, 3, 0, 4, { true, false }, { false, true }, 3, 2 },
    { 4, 2, 3, 4, 2, 3, 0, 4, { false, true }, { true, false }, 2, 2 },
    { -1, 3, 3, 4, 4, 4, 2, -1, { true, false }, { false, false }, 2, 1 } };

TEST_P(Navigation, ShotsStepThroughActsAndSequences)
{
    KRC_KrolleProject const& view = board.view();
    for (int i = 0; i < 5; ++i) {
        SCOPED_TRACE(testing::Message() << "shot " << i);
        ShotSteps const& c = kShotSteps[i];
        Shot_t const s = board.shotAt(size_t(i));
        EXPECT_EQ((std::vector<SC_Id> { shot(c.next), shot(c.prev), shot(c.firstInAct), shot(c.lastInAct),
                      shot(c.firstInSequence), shot(c.lastInSequence), shot(c.firstInPrevSequence),
                      shot(c.firstInNextSequence) }),
            (std::vector<SC_Id> { view.next(s).id(), view.prev(s).id(), view.firstInAct(s).id(),
                view.lastInAct(s).id(), view.firstInSequence(s).id(), view.lastInSequence(s).id(),
                view.firstInPrevSequence(s).id(), view.firstInNextSequence(s).id() }));
        for (bool forward : { false, true }) {
            EXPECT_EQ(c.actGoesOn[forward], view.hasMoreKRSceneInCurKRAct(s, forward));
            EXPECT_EQ(c.sequenceGoesOn[forward], view.hasMoreKRSceneInCurKRSequence(s, forward));
        }
        EXPECT_EQ(c.actLength, view.numOfKRScenesInCurKRAct(s));
        EXPECT_EQ(c.sequenceLength, view.numOfKRScenesInCurKRSequence(s));
        EXPECT_EQ(shot(0), view.first(s).id());
        EXPECT_EQ(shot(4), view.last(s).id());
    }
    EXPECT_TRUE(view.next(Shot_t::invalid).isInvalid());
    EXPECT_TRUE(view.firstInAct(Shot_t::invalid).isInvalid());
}

/// A panel by shot and place in its shot; shot -1 for none.
struct At
{
    int shot, panel;
};

// Per panel, in walk order: the panel, then next, prev, firstInShot, lastInShot,
// firstInAct, lastInAct, firstInSequence, lastInSequence, firstInPrevSequence,
// firstInNextSequence ("-" none), then the act and sequence lengths in panels.
char const* const kPanelSteps[] = {
    "0.0 0.1 -   0.0 0.1 0.0 2.1 0.0 1.0 -   2.0 5 3",
    "0.1 1.0 0.0 0.0 0.1 0.0 2.1 0.0 1.0 -   2.0 5 3",
    "1.0 2.0 0.1 1.0 1.0 0.0 2.1 0.0 1.0 -   2.0 5 3",
    "2.0 2.1 1.0 2.0 2.1 0.0 2.1 2.0 3.0 0.0 4.0 5 3",
    "2.1 3.0 2.0 2.0 2.1 0.0 2.1 2.0 3.0 0.0 4.0 5 3",
    "3.0 4.0 2.1 3.0 3.0 3.0 4.1 2.0 3.0 0.0 4.0 3 3",
    "4.0 4.1 3.0 4.0 4.1 3.0 4.1 4.0 4.1 2.0 -   3 2",
    "4.1 -   4.0 4.0 4.1 3.0 4.1 4.0 4.1 2.0 -   3 2",
};

TEST_P(Navigation, PanelsStepWithinAndAcrossShots)
{
    KRC_KrolleProject const& view = board.view();
    auto const id = [&](QString const& at) {
        return at == QLatin1String("-") ? invalidId
                                        : board.panel(at.section(QLatin1Char('.'), 0, 0).toUInt(),
                                            at.section(QLatin1Char('.'), 1).toUInt());
    };
    for (char const* row : kPanelSteps) {
        SCOPED_TRACE(row);
        QStringList const c = QString::fromLatin1(row).split(QLatin1Char(' '), QString::SkipEmptyParts);
        Panel_t const p = view.getPanelByID(id(c[0]));
        ASSERT_TRUE(p.isValid());
        using Step = Panel_t (KRC_KrolleProject::*)(Panel_t const&) const;
        Step const steps[] = { &KRC_KrolleProject::next, &KRC_KrolleProject::prev,
            &KRC_KrolleProject::firstInShot, &KRC_KrolleProject::lastInShot, &KRC_KrolleProject::firstInAct,
            &KRC_KrolleProject::lastInAct, &KRC_KrolleProject::firstInSequence,
            &KRC_KrolleProject::lastInSequence, &KRC_KrolleProject::firstInPrevSequence,
            &KRC_KrolleProject::firstInNextSequence };
        int column = 1;
        for (Step const step : steps) {
            EXPECT_EQ(id(c[column]), (view.*step)(p).id()) << "column " << column;
            ++column;
        }
        EXPECT_EQ(c[11].toUInt(), view.numOfKRPanelsInCurKRAct(p));
        EXPECT_EQ(c[12].toUInt(), view.numOfKRPanelsInCurKRSequence(p));
        EXPECT_EQ(view.next(p).isValid() && view.next(p).actName() == p.actName(),
            view.hasMoreKRPanelInCurKRAct(p, true));
        EXPECT_EQ(view.prev(p).isValid() && view.prev(p).sequenceName() == p.sequenceName(),
            view.hasMoreKRPanelInCurKRSequence(p, false));
        EXPECT_EQ(id(QStringLiteral("0.0")), view.first(p).id());
        EXPECT_EQ(id(QStringLiteral("4.1")), view.last(p).id());
    }
}

struct BesideCase
{
    At at;
    int following; // transition index, -1 for none
    int preceding;
};

TEST_P(Navigation, TransitionsBesidePanelsAndShots)
{
    KRC_KrolleProject const& view = board.view();
    BesideCase const cases[] = { { { 0, 0 }, -1, 0 }, { { 0, 1 }, -1, -1 }, { { 1, 0 }, 1, -1 },
        { { 2, 0 }, -1, 1 }, { { 2, 1 }, -1, -1 }, { { 3, 0 }, -1, -1 }, { { 4, 1 }, 2, -1 } };
    auto const trans = [&](int index) { return index < 0 ? invalidId : board.transition(size_t(index)); };
    for (BesideCase const& c : cases) {
        SCOPED_TRACE(testing::Message() << "panel " << c.at.shot << "." << c.at.panel);
        Panel_t const p = board.panelAt(size_t(c.at.shot), size_t(c.at.panel));
        Trans_t out = board.transAt(0); // a valid transition, to see it reset
        EXPECT_EQ(c.following >= 0, view.isFollowedByTrans(p, &out));
        EXPECT_EQ(trans(c.following), out.id());
        out = board.transAt(0);
        EXPECT_EQ(c.preceding >= 0, view.isPrecededByTrans(p, &out));
        EXPECT_EQ(trans(c.preceding), out.id());
        EXPECT_EQ(c.following >= 0, view.isFollowedByTrans(p));
    }
    Trans_t out;
    EXPECT_TRUE(view.isFollowedByTrans(board.shotAt(1), &out) && out.id() == trans(1));
    EXPECT_TRUE(view.isPrecededByTrans(board.shotAt(0), &out) && out.id() == trans(0));
    EXPECT_FALSE(view.isFollowedByTrans(board.shotAt(2), &out));
    EXPECT_TRUE(out.isInvalid());
    EXPECT_FALSE(view.isFollowedByTrans(Panel_t::invalid, &out));
}

TEST_P(Navigation, TransitionsStepFromEndToEnd)
{
    KRC_KrolleProject const& view = board.view();
    Trans_t const t0 = view.first(Trans_t::invalid);
    Trans_t const t2 = view.last(Trans_t::invalid);
    EXPECT_EQ(
        (std::vector<SC_Id> { t0.id(), view.next(t0).id(), view.next(view.next(t0)).id(), t2.id(),
            view.prev(t2).id(), view.next(t2).id(), view.prev(t0).id(), view.next(Trans_t::invalid).id() }),
        (std::vector<SC_Id> { board.transition(0), board.transition(1), board.transition(2),
            board.transition(2), board.transition(1), invalidId, invalidId, invalidId }));
}

TEST_P(Navigation, WithoutSequencesOnlyActsRun)
{
    KRC_KrolleProject& view = board.view();
    view.sequenceExistsMeta()->setValue(false);
    Shot_t const s = board.shotAt(1);
    Panel_t const p = board.panelAt(1, 0);
    EXPECT_TRUE(view.firstInSequence(s).isInvalid() && view.lastInSequence(p).isInvalid()
        && view.firstInNextSequence(s).isInvalid());
    EXPECT_FALSE(view.hasMoreKRSceneInCurKRSequence(s, false) || view.hasMoreKRPanelInCurKRSequence(p, true));
    EXPECT_EQ(0u, view.numOfKRScenesInCurKRSequence(s) + view.numOfKRPanelsInCurKRSequence(p));
    EXPECT_EQ(board.shot(0), view.firstInAct(s).id());
    EXPECT_EQ(3u, view.numOfKRScenesInCurKRAct(s));
}

INSTANTIATE_CACHE_STATES(Project, Navigation);

TEST(NavigationWithoutNames, AllShotsFormOneAct)
{
    ProjectBoard board(QString::fromLatin1(kBoard));
    Shot_t const s = board.shotAt(3);
    EXPECT_EQ(QStringLiteral("0"), s.actName());
    EXPECT_EQ(5u, board->numOfKRScenesInCurKRAct(s));
    EXPECT_EQ(board.shot(4), board->lastInAct(board.shotAt(0)).id());
    EXPECT_EQ(8u, board->numOfKRPanelsInCurKRAct(board.panelAt(2, 1)));
}

TEST(NavigationAcrossEdits, NeighboursFollowTheEngine)
{
    ProjectBoard board(QString::fromLatin1(kBoard));
    board.group(QString::fromLatin1(kGroups));
    Shot_t const before = board.shotAt(2);
    ASSERT_TRUE(HostAuthoring::removeShot(board.project(), board.shot(1)));
    board.notify();
    EXPECT_FALSE(board->isShotValid(board.shot(1)));
    Shot_t const after = board.shotAt(2);
    EXPECT_FALSE(sharePrivate(before, after)); // the caches went
    EXPECT_EQ(board.shot(0), board->prev(after).id());
    EXPECT_EQ(board.shot(0), board->firstInAct(after).id());
    EXPECT_TRUE(projectViewIsConsistent(board.view()));
}

TEST(NavigationOfWarpedShots, StepsOverPanelsThatTheWarpCuts)
{
    // Symbol frames 3-9 of panels [1,4] [5,8] [9,12] in 7 frames, then a shot that
    // squeezes 13 symbol frames into 7. Panels are looked up at the symbol frame that
    // counts from the warp's start frame for frame, so the squeezed shot's second panel
    // never shows; the steps pass over the frames that still show its first one.
    ProjectBoard board(QStringLiteral("S[4,4,4]~3:9=7 S[7,7]~1:13=7 S[2]"));
    KRC_KrolleProject const& view = board.view();
    std::vector<SC_Id> forward;
    for (Panel_t p = view.first(Panel_t::invalid); p.isValid() && forward.size() < 20; p = view.next(p))
        forward.push_back(p.id());
    std::vector<SC_Id> const expected
        = { board.panel(0, 0), board.panel(0, 1), board.panel(0, 2), board.panel(1, 0), board.panel(2, 0) };
    EXPECT_EQ(expected, forward);
    std::vector<SC_Id> backward;
    for (Panel_t p = view.last(Panel_t::invalid); p.isValid() && backward.size() < 20; p = view.prev(p))
        backward.insert(backward.begin(), p.id());
    EXPECT_EQ(expected, backward);
    EXPECT_TRUE(projectViewIsConsistent(board.view()));
}

} // namespace
