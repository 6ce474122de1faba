// Range loops over the view's walks, and walks that meet an edit of the timeline.
#include "support/ProjectBoard.h"
#include "support/WalkIds.h"

#include "host/engine/HostAuthoring.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

using namespace Krolle;

namespace {

TEST(RangeLoops, CoverEveryKindOfWalk)
{
    ProjectBoard board(QStringLiteral("S[3,4] T2 S[5] S[2,2,2]"));
    std::vector<SC_Id> shots;
    for (Shot_t const& shot : range(board->beginShot(), board->endShot()))
        shots.push_back(shot.id());
    EXPECT_EQ(board.board.shots, shots);

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
    EXPECT_EQ(3u, board->shotCount());
    EXPECT_EQ(1u, board->getShotNdx(board->getShotByID(added)));
}

} // namespace
