// Node authoring: groups versus parents, what each edit posts, and refused edits.
#include "nodes_Fixture.h"

#include <gmock/gmock.h>

#include <cmath>
#include <functional>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// Top: P (peg), A (element linked under P), G (group) holding Q (peg).
class SampleNetwork : public NodeBench
{
public:
    SampleNetwork()
    {
        P = Author::addPeg(root(), "P");
        A = Author::addElement(root(), "A", CA_DrawingKind::Kvg, P);
        drawing = Author::addDrawing(A, "/p/A-1.kvg");
        G = Author::addGroup(root(), "G");
        Q = Author::addPeg(G, "Q");
        manager.clear();
    }

    TUPegModule* P;
    MO_ElementModule* A;
    int drawing;
    TUGroup* G;
    TUPegModule* Q;
};

class NodesAuthoringTest : public ::testing::Test, public SampleNetwork
{
};

} // namespace

TEST_F(NodesAuthoringTest, GroupMembershipAndParentLinkAreSeparateAndMovesPlaceAfterTheMove)
{
    EXPECT_TRUE(A->group() == root() && A->getParentNode() == P && !P->getParentNode() && !root()->group()
        && Q->sceneCommon() == common());
    EXPECT_THAT(walk(), ElementsAre("P", "A", "G", "Q"));

    Author::moveNode(P, root(), 2);
    EXPECT_THAT(walk(), ElementsAre("A", "G", "Q", "P"));
    Author::moveNode(P, root(), 0);
    Author::moveNode(A, root(), -1);
    EXPECT_THAT(walk(), ElementsAre("P", "G", "Q", "A"));
    Author::moveNode(Q, root(), 0);
    EXPECT_THAT(walk(), ElementsAre("Q", "P", "G", "A"));
    EXPECT_EQ(root(), Q->group());
}

TEST_F(NodesAuthoringTest, EachEditPostsItsSetsAtNotify)
{
    using T = SampleNetwork;
    const std::vector<std::tuple<const char*, std::function<bool(T&)>, QStringList>> cases {
        { "rename", [](T& t) { return Author::rename(t.A, "B"); }, { "nodeInstanceNamesChanged: B" } },
        { "relink", [](T& t) { return Author::setParent(t.A, t.Q); }, { "nodeLinksChanged: A P Q" } },
        { "unlink", [](T& t) { return Author::setParent(t.A, nullptr); }, { "nodeLinksChanged: A P" } },
        { "reorder", [](T& t) { return Author::moveNode(t.A, t.root(), 0); },
            { "childrenOrderingChanged: Top" } },
        { "move to group", [](T& t) { return Author::moveNode(t.A, t.G); },
            { "networkChanged: A", "subNetworkChanged: G" } },
        { "remove parent", [](T& t) { return Author::removeNode(t.P); },
            { "networkChanged: Top", "nodeLinksChanged: A" } },
        { "remove element", [](T& t) { return Author::removeNode(t.A); },
            { "networkChanged: Top", "timedValuesRemoved: A" } },
        { "lock", [](T& t) { return Author::setLocked(t.A, true); },
            { "nodeChangeApplied: A", "nodesChanged: A" } },
        { "disable", [](T& t) { return Author::setEnabled(t.Q, false); },
            { "nodeChangeApplied: Q", "nodesChanged: Q" } },
        { "opacity", [](T& t) { return Author::setOpacity(t.A, 50.0); },
            { "nodeChangeApplied: A", "nodesChanged: A" } },
        { "alignment", [](T& t) { return Author::setCameraAlignment(t.P, CameraAlignment_PinToCamera); },
            { "nodeChangeApplied: P", "nodesChanged: P" } },
        { "add drawing", [](T& t) { return Author::addDrawing(t.A, "/p/A-2.kvg") == 2; },
            { "timedValuesChanged: A" } },
        { "expose", [](T& t) { return Author::setExposure(t.A, 1, 5, t.drawing); },
            { "timedValuesChanged: A" } },
        { "add linked peg", [](T& t) { return Author::addPeg(t.G, "R", t.P) != nullptr; },
            { "networkChanged: R", "nodeLinksChanged: P R", "subNetworkChanged: G" } },
        { "add element",
            [](T& t) { return Author::addElement(t.root(), "E", CA_DrawingKind::Bitmap) != nullptr; },
            { "networkChanged: E", "timedValuesAdded: E" } },
        // Edits that change nothing are accepted and post nothing.
        { "same name", [](T& t) { return Author::rename(t.A, "A"); }, {} },
        { "same parent", [](T& t) { return Author::setParent(t.A, t.P); }, {} },
        { "same place", [](T& t) { return Author::moveNode(t.A, t.root(), 1); }, {} },
        { "same lock", [](T& t) { return Author::setLocked(t.A, false); }, {} },
        { "same opacity", [](T& t) { return Author::setOpacity(t.A, 100.0); }, {} },
    };
    for (auto const& c : cases) {
        SampleNetwork bench;
        ASSERT_TRUE(std::get<1>(c)(bench)) << std::get<0>(c);
        EXPECT_THAT(bench.log.lines, IsEmpty()) << std::get<0>(c) << ": delivered before notify";
        EXPECT_EQ(std::get<2>(c), bench.deliver()) << std::get<0>(c);
    }
}

TEST_F(NodesAuthoringTest, RefusedEditsChangeAndPostNothing)
{
    const UT_SharedPtr<SC_Project> other = HostAuthoring::createProject();
    TUGroup* foreign = other->createScene("elsewhere")->getRootGroup();
    TUPegModule* stranger = Author::addPeg(foreign, "S");
    const std::vector<std::pair<const char*, std::function<bool()>>> cases {
        { "parent cycle", [&] { return Author::setParent(P, A); } },
        { "own parent", [&] { return Author::setParent(A, A); } },
        { "root as parent", [&] { return Author::setParent(A, root()); } },
        { "parent elsewhere", [&] { return Author::setParent(A, stranger); } },
        { "group into itself", [&] { return Author::moveNode(G, G); } },
        { "move root", [&] { return Author::moveNode(root(), G); } },
        { "move elsewhere", [&] { return Author::moveNode(A, foreign); } },
        { "remove root", [&] { return Author::removeNode(root()); } },
        { "remove null", [&] { return Author::removeNode(nullptr); } },
        { "unknown drawing", [&] { return Author::setExposure(A, 1, 2, drawing + 1); } },
        { "frame 0", [&] { return Author::setExposure(A, 0, 2, drawing); } },
        { "reversed range", [&] { return Author::clearExposure(A, 3, 2); } },
        { "empty file", [&] { return Author::addDrawing(A, QString()) > 0; } },
        { "opacity above 100", [&] { return Author::setOpacity(A, 100.5); } },
        { "opacity NaN", [&] { return Author::setOpacity(A, std::nan("")); } },
        { "peg linked elsewhere", [&] { return Author::addPeg(root(), "X", stranger) != nullptr; } },
        { "unknown class", [&] { return Author::addNode(root(), "MO_Node", "X") != nullptr; } },
        { "null group", [&] { return Author::addGroup(nullptr, "X") != nullptr; } },
    };
    const QStringList before = walk();
    manager.clear();
    for (auto const& c : cases) {
        EXPECT_EQ(std::tuple(false, before, P), (std::tuple { c.second(), walk(), A->getParentNode() }))
            << c.first;
        EXPECT_THAT(deliver(), IsEmpty()) << c.first;
    }
}

TEST_F(NodesAuthoringTest, RemovingAGroupTakesItsNodesAndColumnsAndFreesLinksIntoIt)
{
    MO_ElementModule* inner = Author::addElement(G, "inner", CA_DrawingKind::Bitmap);
    TUElementTimedValue* column = inner->drawingAttr()->timedValue();
    Author::setParent(A, Q);
    UT_SharedWeakPtr<MO_Node> watchQ(Q);
    const size_t values = scene->timedValues().size();

    ASSERT_TRUE(Author::removeNode(G));

    EXPECT_THAT(walk(), ElementsAre("P", "A"));
    EXPECT_TRUE(watchQ.isNull() && !A->getParentNode());
    EXPECT_EQ(values - 1, scene->timedValues().size());
    EXPECT_EQ(scene->timedValues().end(),
        std::find(scene->timedValues().begin(), scene->timedValues().end(), column));
}

TEST_F(NodesAuthoringTest, ElementsComeWithAColumnLinkedToThemUnlessMadeBare)
{
    TUElementTimedValue* column = A->drawingAttr()->timedValue();
    ASSERT_NE(nullptr, column);
    EXPECT_EQ(A, column->linkedNodes(0));
    EXPECT_EQ(column->elementId(), A->drawingAttr()->getElementId());

    auto* bare = dynamic_cast<MO_ElementModule*>(Author::addNode(root(), "MO_ElementModule", "bare"));
    ASSERT_NE(nullptr, bare);
    EXPECT_TRUE(!bare->drawingAttr() && !bare->opacityAttr());
    EXPECT_EQ(-1, Author::addDrawing(bare, "/p/x.kvg"));
}
