// Iterators: the iterator surface, range loops, the mixed walks that stop at
// transitions, and walks that meet an edit of the timeline.
#include "support/ProjectBoard.h"
#include "support/ProjectInvariants.h"
#include "support/WalkIds.h"

#include "host/engine/HostAuthoring.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <tuple>
#include <type_traits>
#include <utility>

using namespace Krolle;

namespace {

// T0 before shot 0, T1 between shots 1 and 2, T2 after shot 4.
char const* const kBoard = "T2 S[3,3] S[4] T2 S[2,2] S[5] S[1,2] T1";

TEST(IteratorSurface, WorksWithTheStandardAlgorithms)
{
    ProjectBoard board(QString::fromLatin1(kBoard));
    KRC_KrolleProject const& view = board.view();
    EXPECT_EQ(5, std::distance(view.beginShot(), view.endShot()));
    auto const found = std::find_if(view.beginPanel(), view.endPanel(),
        [&](Panel_t const& panel) { return panel.id() == board.panel(2, 1); });
    EXPECT_EQ(3u, found->relativeFirstFrame());

    auto it = view.beginShot();
    auto const was = it++;
    EXPECT_EQ(board.shot(0), was->id());
    EXPECT_EQ(board.shot(1), (*it).id());
    EXPECT_EQ(board.shot(0), (--it)->id());
    EXPECT_TRUE((--it) == view.endShot()); // off the start: the end
    EXPECT_TRUE((--it) == view.endShot()); // and it stays there

    auto back = view.rbeginShot();
    ++back;
    EXPECT_EQ(board.shot(3), back->id());
    back.toFirst();
    EXPECT_EQ(board.shot(4), back->id());
    back.toLast();
    EXPECT_EQ(board.shot(0), back->id());
    // Every end still knows its view: the first step from it finds the first object.
    auto shotEnd = view.endShot();
    auto shotREnd = view.rendShot();
    auto panelEnd = view.endPanel();
    auto panelREnd = view.rendPanel();
    auto transEnd = view.endTrans();
    auto transREnd = view.rendTrans();
    EXPECT_EQ(
        (std::vector<SC_Id> { shotEnd.toFirst()->id(), shotREnd.toFirst()->id(), panelEnd.toFirst()->id(),
            panelREnd.toFirst()->id(), transEnd.toFirst()->id(), transREnd.toFirst()->id() }),
        (std::vector<SC_Id> { board.shot(0), board.shot(4), board.panel(0, 0), board.panel(4, 1),
            board.transition(0), board.transition(2) }));

    // A shot's panel walk ends on the next shot's first panel; the last shot's on the end.
    EXPECT_EQ(board.panel(3, 0), view.endPanel(board.shotAt(2))->id());
    EXPECT_TRUE(view.endPanel(board.shotAt(4)) == view.endPanel());
    EXPECT_TRUE(view.rendPanel(board.shotAt(0)) == view.rendPanel());

    objiterator<Shot_t> lost(board.shotAt(2), nullptr);
    EXPECT_TRUE((++lost)->isInvalid());
    EXPECT_TRUE(lost.toFirst()->isInvalid());
}

TEST(IteratorSurface, AnEmptyProjectBeginsAtItsEnd)
{
    UT_SharedPtr<SC_Project> project = HostAuthoring::createProject();
    KRC_KrolleProject view(project.get());
    EXPECT_TRUE(view.beginShot() == view.endShot() && view.rbeginShot() == view.rendShot()
        && view.beginPanel() == view.endPanel() && view.beginTrans() == view.endTrans());
    EXPECT_TRUE(view.beginPanelTrans() == view.endPanelTrans()
        && view.rbeginPanelTrans() == view.rendPanelTrans() && view.beginShotTrans() == view.endShotTrans());
}

/// A mixed walk as text: "P<shot>.<panel>" or "S<shot>" on an object, "T<index>" on a
/// transition.
template <class Iterator> QStringList mixedWalk(ProjectBoard const& board, Iterator it, Iterator const& end)
{
    auto const& shots = board.board.shots;
    auto const& transitions = board.board.transitions;
    QStringList steps;
    for (; it != end && steps.size() < 100; ++it) {
        if (it.onTrans()) {
            auto const t = std::find(transitions.begin(), transitions.end(), it.trans.id());
            steps << QStringLiteral("T%1").arg(t - transitions.begin());
            continue;
        }
        for (size_t s = 0; s < shots.size(); ++s) {
            if (it->id() == shots[s])
                steps << QStringLiteral("S%1").arg(s);
            auto const& panels = board.board.panels[s];
            auto const p = std::find(panels.begin(), panels.end(), it->id());
            if (p != panels.end())
                steps << QStringLiteral("P%1.%2").arg(s).arg(p - panels.begin());
        }
    }
    return steps;
}

/// Where a mixed walker stands: its transition's id (0 for none), whether that lies
/// after the object (false off transitions), and the object's id.
template <class It> std::tuple<SC_Id, bool, SC_Id> place(It const& it)
{
    return { it.onTrans() ? it.trans.id() : SC_Id(), it.onTrans() && it.transAfterObject, it->id() };
}

TEST(MixedWalks, StopAtEachTransitionBetweenTwoObjects)
{
    ProjectBoard board(QString::fromLatin1(kBoard));
    KRC_KrolleProject const& view = board.view();
    QStringList const panels = { "P0.0", "P0.1", "P1.0", "T1", "P2.0", "P2.1", "P3.0", "P4.0", "P4.1", "T2" };
    EXPECT_EQ(panels, mixedWalk(board, view.beginPanelTrans(), view.endPanelTrans()));
    // Backward the leading transition is reached from no object, as forward the first is.
    QStringList const back = { "P4.1", "P4.0", "P3.0", "P2.1", "P2.0", "T1", "P1.0", "P0.1", "P0.0" };
    EXPECT_EQ(back, mixedWalk(board, view.rbeginPanelTrans(), view.rendPanelTrans()));
    QStringList const shots = { "S0", "S1", "T1", "S2", "S3", "S4", "T2" };
    EXPECT_EQ(shots, mixedWalk(board, view.beginShotTrans(), view.endShotTrans()));
}

TEST(MixedWalks, RetreatStopsOnTheTransitionAndAdvanceGoesBack)
{
    ProjectBoard board(QString::fromLatin1(kBoard));
    KRC_KrolleProject const& view = board.view();
    objTransIterator<Panel_t> it(board.panelAt(2, 0), Trans_t(), true, &board.view());
    it.retreat();
    EXPECT_EQ(place(it), std::make_tuple(board.transition(1), false, board.panel(2, 0)));
    objTransIterator<Panel_t> forth = it;
    forth.advance();
    EXPECT_EQ(place(forth), std::make_tuple(SC_Id(), false, board.panel(2, 0)));
    it.retreat();
    EXPECT_EQ(place(it), std::make_tuple(SC_Id(), false, board.panel(1, 0)));
    EXPECT_TRUE(view.panelTransAt(8) == it);
    EXPECT_TRUE(view.panelTransAt(9) != it); // on the transition, not on the panel
}

TEST(MixedWalks, TheEndsIncludeTransitionsBeyondTheFirstAndLastObject)
{
    ProjectBoard board(QString::fromLatin1(kBoard));
    objTransIterator<Panel_t> it(Panel_t(), Trans_t(), true, &board.view());
    it.toFirst();
    EXPECT_EQ(place(it), std::make_tuple(board.transition(0), false, board.panel(0, 0)));
    it.toLast();
    EXPECT_EQ(place(it), std::make_tuple(board.transition(2), true, board.panel(4, 1)));

    ProjectBoard plain(QStringLiteral("S[2] S[3]"));
    objTransIterator<Panel_t> none(Panel_t(), Trans_t(), true, &plain.view());
    none.toFirst();
    EXPECT_EQ(place(none), std::make_tuple(SC_Id(), false, plain.panel(0, 0)));
    none.transAfterObject = true;
    none.toLast();
    EXPECT_EQ(place(none), std::make_tuple(SC_Id(), false, plain.panel(1, 0)));
    EXPECT_TRUE(none.transAfterObject);
}

TEST(MixedWalks, AtAFrameOrIdStandOnTheTransitionNextToItsPanel)
{
    // S0 [1,10] with panels [1,5] [6,10], T1 [7,10], S1 [7,12].
    ProjectBoard board(QStringLiteral("S[5,5] T4 S[6]"));
    KRC_KrolleProject const& view = board.view();
    for (unsigned frame : { 7u, 10u }) // beside the panel that ends with it
        EXPECT_EQ(
            place(view.panelTransAt(frame)), std::make_tuple(board.transition(0), true, board.panel(0, 1)));
    EXPECT_EQ(place(view.panelTransAt(3)), std::make_tuple(SC_Id(), false, board.panel(0, 0)));
    EXPECT_TRUE(view.panelTransById(board.transition(0)) == view.panelTransAt(8));
    EXPECT_EQ(
        place(view.panelTransById(board.panel(1, 0))), std::make_tuple(SC_Id(), false, board.panel(1, 0)));
}

TEST(MixedWalks, ATransitionThatStartsAPanelStandsBeforeIt)
{
    // The leading transition ends inside the first panel: no panel ends with it, so it
    // stands before the panel that starts with it.
    ProjectBoard board(QStringLiteral("T2 S[5]"));
    EXPECT_EQ(place(board->panelTransAt(1)), std::make_tuple(board.transition(0), false, board.panel(0, 0)));
}

TEST(RangeLoops, CoverEveryKindOfWalk)
{
    ProjectBoard board(QStringLiteral("S[3,4] T2 S[5] S[2,2,2]"));
    std::vector<SC_Id> panels;
    for (Panel_t const& panel : range(board->rbeginPanel(board.shotAt(2)), board->rendPanel(board.shotAt(2))))
        panels.push_back(panel.id());
    EXPECT_EQ((std::vector<SC_Id> { board.panel(2, 2), board.panel(2, 1), board.panel(2, 0) }), panels);

    // A mixed walk dereferences to the object beside the transition it stands on.
    std::vector<SC_Id> beside;
    for (Shot_t const& shot : range(board->beginShotTrans(), board->endShotTrans()))
        beside.push_back(shot.id());
    EXPECT_EQ((std::vector<SC_Id> { board.shot(0), board.shot(0), board.shot(1), board.shot(2) }), beside);
}

// A backward walker's own steps keep its type, so a copy taken by `it++` still walks
// backward.
static_assert(std::is_same<decltype(std::declval<reverse_objiterator<Shot_t>&>()++),
                  reverse_objiterator<Shot_t>>::value,
    "backward steps keep the backward type");
static_assert(std::is_same<decltype(--std::declval<reverse_objTransIterator<Panel_t>&>()),
                  reverse_objTransIterator<Panel_t>&>::value,
    "backward steps keep the backward type");

TEST(EditedTimeline, AnIteratorKeepsItsOldHandleAndANewWalkSeesTheEdit)
{
    ProjectBoard board(QStringLiteral("S[3] S[3]"));
    objiterator<Shot_t> const old = board->beginShot();
    SC_Id const added = HostAuthoring::insertShot(board.project(), 1, { 4 });
    board.notify();
    EXPECT_EQ(board.shot(0), old->id());
    EXPECT_EQ((std::vector<SC_Id> { board.shot(0), added, board.shot(1) }),
        idsOfWalk(board->beginShot(), board->endShot()));
}

// A host's timeline with a hole (a block of shot 0's panels or of the top scene taken out)
// or an overlap (a block moved back a frame): every walk ends, the same both ways.
std::tuple<bool, unsigned, bool> const kGaps[] = { { false, 0, true }, { false, 1, true }, { false, 2, true },
    { true, 0, true }, { true, 1, true }, { true, 2, true }, { false, 1, false }, { false, 2, false },
    { true, 1, false }, { true, 2, false } };

class GappedTimeline : public testing::TestWithParam<std::tuple<bool, unsigned, bool>>
{
};

TEST_P(GappedTimeline, EveryWalkEnds)
{
    auto const [inShot, index, hole] = GetParam();
    ProjectBoard board(QStringLiteral("S[3,3,3] S[4] S[2,2]"));
    std::vector<SC_Id> expected = boardPanelIds(board.board);
    TUSeqTimedValue* seq
        = inShot ? HostAuthoring::symbolOf(board.project(), board.shot(0))->sequence() : board.timeline();
    if (hole) {
        for (SC_Id const& id :
            inShot ? std::vector<SC_Id> { board.panel(0, index) } : board.board.panels[index])
            expected.erase(std::find(expected.begin(), expected.end(), id));
        seq->takeBlock(index);
    } else {
        seq->setBlockRange(index, seq->blockAt(index)->firstFrame - 1, seq->blockAt(index)->lastFrame);
    }
    board.notify();
    std::vector<SC_Id> const forward = idsOfWalk(board->beginPanel(), board->endPanel());
    EXPECT_EQ(hole ? expected : forward, forward);
    EXPECT_EQ(std::vector<SC_Id>(forward.rbegin(), forward.rend()),
        idsOfWalk(board->rbeginPanel(), board->rendPanel()));
    for (objiterator<Shot_t> shot = board->beginShot(); shot != board->endShot(); ++shot)
        EXPECT_LT(idsOfWalk(board->beginPanel(*shot), board->endPanel(*shot)).size(), 20u);
    // Two shots overlapping with no transition between them answer by the engine's
    // block at either priority, which the invariant check does not model.
    if (inShot || hole) {
        EXPECT_TRUE(projectViewIsConsistent(board.view()));
    }
}

INSTANTIATE_TEST_SUITE_P(Timelines, GappedTimeline, testing::ValuesIn(kGaps));

} // namespace
