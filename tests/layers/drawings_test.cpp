// The drawings of panels: every form over elements under pegs, in groups, switched
// off, empty at frame 1 or changing drawing later, and across the project.
#include "support/ProjectBoard.h"
#include "tracking/KRC_ConcreteVisitor.h"

#include <gtest/gtest.h>

namespace {

using namespace HostNodeAuthoring;
namespace V = KRC_ConcreteVisitor;

TEST(PanelDrawings, EveryFormOverElementsPegsGroupsAndTheProject)
{
    ProjectBoard board("S[10,12] S[8]");
    TUGroup* root = board.panelAt(0, 0).symbol()->getRootGroup();
    TUPegModule* peg = addPeg(root, "Char");
    MO_ElementModule* hero = addDrawingElement(root, "Hero", CA_DrawingKind::Kvg, "hero.tvg", 1, 10, peg);
    setExposure(hero, 5, 10, addDrawing(hero, "later.tvg")); // only frame 1 counts
    addDrawingElement(addGroup(root, "FX"), "Dust", CA_DrawingKind::Kvg, "dust.tvg", 1, 10);
    MO_ElementModule* off = addDrawingElement(root, "Off", CA_DrawingKind::Bitmap, "off.png", 1, 10);
    setEnabled(off, false);
    MO_ElementModule* blank = addElement(root, "Blank", CA_DrawingKind::Kvg);
    addDrawingElement(board.panelAt(1, 0).symbol()->getRootGroup(), "Far", CA_DrawingKind::Kvg, "far.tvg", 1, 8);
    Krolle::Panel_t const panel = board.panelAt(0, 0);

    std::list<QString> files;
    V::getDrawings(panel, files, true);
    EXPECT_EQ(files, (std::list<QString> { "hero.tvg", "dust.tvg" }));
    V::getDrawings(panel, files, false); // appended, the disabled one included
    EXPECT_EQ(files.size(), 5u);
    std::list<int> ids;
    V::getDrawings(panel, ids, true);
    EXPECT_EQ(ids.size(), 3u); // the blank element's id stands, the disabled one's not
    std::list<V::ElementFile> pairs;
    V::getDrawings(panel, pairs, false);
    ASSERT_EQ(pairs.size(), 3u);
    EXPECT_EQ(pairs.front().first, hero);
    EXPECT_EQ(pairs.back(), V::ElementFile(off, "off.png"));

    V::DrawingsByElement byElement;
    V::getDrawings(&board.view(), byElement);
    V::getDrawings(&board.view(), byElement); // sets take each value once
    EXPECT_EQ(byElement.size(), 4u);
    EXPECT_EQ(byElement[hero->drawingAttr()->getElementId()], (std::set<int> { 1 }));
    EXPECT_EQ(byElement.count(blank->drawingAttr()->getElementId()), 0u);
}

} // namespace
