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
        P = HostNodeAuthoring::addPeg(root(), "P");
        A = HostNodeAuthoring::addElement(root(), "A", CA_DrawingKind::Kvg, P);
        drawing = HostNodeAuthoring::addDrawing(A, "/p/A-1.kvg");
        G = HostNodeAuthoring::addGroup(root(), "G");
        Q = HostNodeAuthoring::addPeg(G, "Q");
        manager.clear();
    }

    // A scene of another project, for edits across scenes.
    TUGroup* foreignRoot()
    {
        other = HostAuthoring::createProject();
        return other->createScene("elsewhere")->getRootGroup();
    }

    TUPegModule* P;
    MO_ElementModule* A;
    int drawing;
    TUGroup* G;
    TUPegModule* Q;
    UT_SharedPtr<SC_Project> other;
};

class NodesAuthoringTest : public ::testing::Test, public SampleNetwork
{
};

} // namespace

TEST_F(NodesAuthoringTest, GroupMembershipAndParentLinkAreSeparate)
{
    EXPECT_EQ(root(), A->group());
    EXPECT_EQ(P, A->getParentNode());
    EXPECT_EQ(root(), P->group());
    EXPECT_EQ(nullptr, P->getParentNode());
    EXPECT_EQ(G, Q->group());
    EXPECT_EQ(nullptr, root()->group());
    EXPECT_EQ(common(), Q->sceneCommon());
    EXPECT_THAT(walk(), ElementsAre("P", "A", "G", "Q"));
}

TEST_F(NodesAuthoringTest, EachEditPostsItsSetsAtNotify)
{
    struct Case
    {
        const char* name;
        std::function<bool(SampleNetwork&)> edit;
        QStringList delivered;
    };
    const std::vector<Case> cases {
        { "rename", [](SampleNetwork& t) { return HostNodeAuthoring::rename(t.A, "B"); }, { "names: B" } },
        { "relink", [](SampleNetwork& t) { return HostNodeAuthoring::setParent(t.A, t.Q); },
            { "links: A P Q" } },
        { "unlink", [](SampleNetwork& t) { return HostNodeAuthoring::setParent(t.A, nullptr); },
            { "links: A P" } },
        { "reorder", [](SampleNetwork& t) { return HostNodeAuthoring::moveNode(t.A, t.root(), 0); },
            { "ordering: Top" } },
        { "move to group", [](SampleNetwork& t) { return HostNodeAuthoring::moveNode(t.A, t.G); },
            { "network: A", "subNetwork: G Top" } },
        { "remove parent", [](SampleNetwork& t) { return HostNodeAuthoring::removeNode(t.P); },
            { "links: A", "network: <gone>", "subNetwork: Top" } },
        { "remove element", [](SampleNetwork& t) { return HostNodeAuthoring::removeNode(t.A); },
            { "network: <gone>", "subNetwork: Top", "valuesRemoved: A" } },
        { "lock", [](SampleNetwork& t) { return HostNodeAuthoring::setLocked(t.A, true); },
            { "applied: A", "nodes: A" } },
        { "disable", [](SampleNetwork& t) { return HostNodeAuthoring::setEnabled(t.Q, false); },
            { "applied: Q", "nodes: Q" } },
        { "opacity", [](SampleNetwork& t) { return HostNodeAuthoring::setOpacity(t.A, 50.0); },
            { "applied: A", "nodes: A" } },
        { "alignment",
            [](SampleNetwork& t) {
                return HostNodeAuthoring::setCameraAlignment(t.P, CameraAlignment_PinToCamera);
            },
            { "applied: P", "nodes: P" } },
        { "add drawing",
            [](SampleNetwork& t) { return HostNodeAuthoring::addDrawing(t.A, "/p/A-2.kvg") == 2; },
            { "valuesChanged: A" } },
        { "expose", [](SampleNetwork& t) { return HostNodeAuthoring::setExposure(t.A, 1, 5, t.drawing); },
            { "valuesChanged: A" } },
        { "add linked peg",
            [](SampleNetwork& t) { return HostNodeAuthoring::addPeg(t.G, "R", t.P) != nullptr; },
            { "links: P R", "network: R", "subNetwork: G" } },
        { "add element",
            [](SampleNetwork& t) {
                return HostNodeAuthoring::addElement(t.root(), "E", CA_DrawingKind::Bitmap) != nullptr;
            },
            { "links: E", "network: E", "subNetwork: Top", "valuesAdded: E" } },
        // Edits that change nothing are accepted and post nothing.
        { "same name", [](SampleNetwork& t) { return HostNodeAuthoring::rename(t.A, "A"); }, {} },
        { "same parent", [](SampleNetwork& t) { return HostNodeAuthoring::setParent(t.A, t.P); }, {} },
        { "same place", [](SampleNetwork& t) { return HostNodeAuthoring::moveNode(t.A, t.root(), 1); }, {} },
        { "same lock", [](SampleNetwork& t) { return HostNodeAuthoring::setLocked(t.A, false); }, {} },
        { "same opacity", [](SampleNetwork& t) { return HostNodeAuthoring::setOpacity(t.A, 100.0); }, {} },
    };
    for (Case const& c : cases) {
        SampleNetwork bench;
        ASSERT_TRUE(c.edit(bench)) << c.name;
        EXPECT_THAT(bench.log.lines(), IsEmpty()) << c.name << ": delivered before notify";
        EXPECT_EQ(c.delivered, bench.deliver()) << c.name;
    }
}

TEST_F(NodesAuthoringTest, RefusedEditsChangeAndPostNothing)
{
    TUGroup* foreign = foreignRoot();
    TUPegModule* stranger = HostNodeAuthoring::addPeg(foreign, "S");
    struct Case
    {
        const char* name;
        std::function<bool()> edit;
    };
    const std::vector<Case> cases {
        { "parent cycle", [&] { return HostNodeAuthoring::setParent(P, A); } },
        { "own parent", [&] { return HostNodeAuthoring::setParent(A, A); } },
        { "root as parent", [&] { return HostNodeAuthoring::setParent(A, root()); } },
        { "parent elsewhere", [&] { return HostNodeAuthoring::setParent(A, stranger); } },
        { "group into itself", [&] { return HostNodeAuthoring::moveNode(G, G); } },
        { "move root", [&] { return HostNodeAuthoring::moveNode(root(), G); } },
        { "move elsewhere", [&] { return HostNodeAuthoring::moveNode(A, foreign); } },
        { "remove root", [&] { return HostNodeAuthoring::removeNode(root()); } },
        { "remove null", [&] { return HostNodeAuthoring::removeNode(nullptr); } },
        { "unknown drawing", [&] { return HostNodeAuthoring::setExposure(A, 1, 2, drawing + 1); } },
        { "frame 0", [&] { return HostNodeAuthoring::setExposure(A, 0, 2, drawing); } },
        { "reversed range", [&] { return HostNodeAuthoring::clearExposure(A, 3, 2); } },
        { "empty file", [&] { return HostNodeAuthoring::addDrawing(A, QString()) > 0; } },
        { "opacity above 100", [&] { return HostNodeAuthoring::setOpacity(A, 100.5); } },
        { "opacity NaN", [&] { return HostNodeAuthoring::setOpacity(A, std::nan("")); } },
        { "peg linked elsewhere",
            [&] { return HostNodeAuthoring::addPeg(root(), "X", stranger) != nullptr; } },
        { "unknown class", [&] { return HostNodeAuthoring::addNode(root(), "MO_Node", "X") != nullptr; } },
        { "null group", [&] { return HostNodeAuthoring::addGroup(nullptr, "X") != nullptr; } },
    };
    const QStringList before = walk();
    manager.clear();
    for (Case const& c : cases) {
        EXPECT_FALSE(c.edit()) << c.name;
        EXPECT_EQ(before, walk()) << c.name;
        EXPECT_EQ(P, A->getParentNode()) << c.name;
        EXPECT_THAT(deliver(), IsEmpty()) << c.name;
    }
}

TEST_F(NodesAuthoringTest, MoveIndexIsThePlaceAfterTheMove)
{
    HostNodeAuthoring::moveNode(P, root(), 2);
    EXPECT_THAT(walk(), ElementsAre("A", "G", "Q", "P"));
    HostNodeAuthoring::moveNode(P, root(), 0);
    EXPECT_THAT(walk(), ElementsAre("P", "A", "G", "Q"));
    HostNodeAuthoring::moveNode(A, root(), -1);
    EXPECT_THAT(walk(), ElementsAre("P", "G", "Q", "A"));
    HostNodeAuthoring::moveNode(Q, root(), 0);
    EXPECT_THAT(walk(), ElementsAre("Q", "P", "G", "A"));
    EXPECT_EQ(root(), Q->group());
}

TEST_F(NodesAuthoringTest, RemovingAGroupTakesItsNodesAndColumnsAndFreesLinksIntoIt)
{
    MO_ElementModule* inner = HostNodeAuthoring::addElement(G, "inner", CA_DrawingKind::Bitmap);
    TUElementTimedValue* column = inner->drawingAttr()->timedValue();
    HostNodeAuthoring::setParent(A, Q);
    UT_SharedWeakPtr<MO_Node> watchQ(Q);
    const size_t values = scene->timedValues().size();

    ASSERT_TRUE(HostNodeAuthoring::removeNode(G));

    EXPECT_THAT(walk(), ElementsAre("P", "A"));
    EXPECT_TRUE(watchQ.isNull());
    EXPECT_EQ(nullptr, A->getParentNode());
    EXPECT_EQ(values - 1, scene->timedValues().size());
    EXPECT_EQ(scene->timedValues().end(),
        std::find(scene->timedValues().begin(), scene->timedValues().end(), column));
}

TEST_F(NodesAuthoringTest, ElementsComeWithAColumnLinkedToThemAndFullOpacity)
{
    TUElementTimedValue* column = A->drawingAttr()->timedValue();
    ASSERT_NE(nullptr, column);
    EXPECT_EQ(A, column->linkedNodes(0));
    EXPECT_EQ(TUTimedValue::eExposureType, column->typeCode());
    EXPECT_EQ(common(), column->sceneCommon);
    EXPECT_EQ(column->elementId(), A->drawingAttr()->getElementId());
    ASSERT_NE(nullptr, A->opacityAttr());
    EXPECT_EQ(100.0, A->opacityAttr()->localValue());
    EXPECT_EQ(1, A->enabled());
    EXPECT_FALSE(A->lock());
    EXPECT_EQ(CameraAlignment_None, A->cameraAlignment());

    auto* bare
        = dynamic_cast<MO_ElementModule*>(HostNodeAuthoring::addNode(root(), "MO_ElementModule", "bare"));
    ASSERT_NE(nullptr, bare);
    EXPECT_EQ(nullptr, bare->drawingAttr());
    EXPECT_EQ(nullptr, bare->opacityAttr());
    EXPECT_EQ(-1, HostNodeAuthoring::addDrawing(bare, "/p/x.kvg"));
}
