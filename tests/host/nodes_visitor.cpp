// The visitor classes: double dispatch, the fallback chain, the group walk, keys.
#include "nodes_Fixture.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;

namespace {

// Records the class whose own overload each accept reached; overrides all 49.
class OwnClassRecorder : public MO_AbstractModuleVisitor
{
public:
#define RECORD_OWN_CLASS(Class, Base, Kind)                                                                  \
    void visit(Class&) override                                                                              \
    {                                                                                                        \
        reached = QStringLiteral(#Class);                                                                    \
    }
    HOST_MODULE_CLASSES(RECORD_OWN_CLASS)
#undef RECORD_OWN_CLASS

    QString reached;
};

// Overrides only the overloads named by the test, recording which one a visit ends in.
class FallbackRecorder : public MO_ModuleVisitor
{
public:
    explicit FallbackRecorder(bool element)
        : m_element(element)
    {
    }

    using MO_ModuleVisitor::visit;
    void visit(MO_Module& module) override
    {
        ends << "MO_Module";
        MO_ModuleVisitor::visit(module);
    }
    void visit(MO_AnimatedModule&) override { ends << "MO_AnimatedModule"; }
    void visit(MO_ElementModule& element) override
    {
        if (!m_element)
            return MO_ModuleVisitor::visit(element);
        ends << "MO_ElementModule";
    }

    QStringList ends;

private:
    bool m_element;
};

class CountingVisitor : public MO_ModuleVisitor
{
};

} // namespace

using NodesVisitorTest = NodesTest;

TEST_F(NodesVisitorTest, AcceptReachesTheOverloadOfTheNodesOwnClass)
{
    const QStringList names = MO_ModuleFactory::typeNames();
    ASSERT_EQ(49, names.size());
    for (QString const& name : names) {
        UT_SharedPtr<MO_Node> node(MO_ModuleFactory::create(name, common(), "n"));
        ASSERT_TRUE(node) << name.toStdString();
        OwnClassRecorder recorder;
        node->accept(recorder);
        EXPECT_EQ(QStringList({ name, name }), QStringList({ node->typeName(), recorder.reached }));
    }
    EXPECT_EQ(nullptr, MO_ModuleFactory::create("MO_Node", common(), "n"));
}

TEST_F(NodesVisitorTest, DefaultVisitsFallBackToTheBaseClass)
{
    struct Case
    {
        const char* type;
        bool overrideElement;
        const char* end;
    };
    const Case cases[] = { { "TUPegModule", false, "MO_AnimatedModule" },
        { "TUPegModule", true, "MO_AnimatedModule" }, { "MO_ElementModule", false, "MO_AnimatedModule" },
        { "MO_ElementModule", true, "MO_ElementModule" }, { "MO_AnimatedModule", false, "MO_AnimatedModule" },
        { "TUCompositeModule", false, "MO_Module" }, { "TUCameraModule", true, "MO_Module" },
        { "MO_Module", false, "MO_Module" } };
    for (Case const& c : cases) {
        UT_SharedPtr<MO_Node> node(MO_ModuleFactory::create(c.type, common(), "n"));
        FallbackRecorder recorder(c.overrideElement);
        node->accept(recorder);
        EXPECT_EQ(QStringList { c.end }, recorder.ends)
            << c.type << " element override " << c.overrideElement;
    }
}

TEST_F(NodesVisitorTest, GroupWalkIsDepthFirstInListOrder)
{
    TUGroup* sub = Author::addGroup(root(), "sub");
    Author::addElement(root(), "A", CA_DrawingKind::Kvg);
    Author::addPeg(sub, "peg");
    TUGroup* inner = Author::addGroup(sub, "inner");
    Author::addNode(inner, "TUCompositeModule", "comp");
    Author::addNode(sub, "TUNoteModule", "note", 0);
    Author::addElement(root(), "B", CA_DrawingKind::Bitmap, nullptr, 0);

    EXPECT_THAT(walk(), ElementsAre("B", "sub", "note", "peg", "inner", "comp", "A"));
    EXPECT_EQ(walk(), walk());
}

TEST_F(NodesVisitorTest, AWalkThatRemovesTheNodeItVisitsFinishes)
{
    for (QString name : { "a", "b", "c" })
        Author::addPeg(root(), name);
    struct Remover : MO_ModuleVisitor
    {
        using MO_ModuleVisitor::visit;
        void visit(MO_AnimatedModule& module) override
        {
            seen << module.instanceName();
            Author::removeNode(&module);
        }
        QStringList seen;
    } remover;
    root()->accept(remover);
    EXPECT_THAT(remover.seen, ElementsAre("a", "b", "c"));
    EXPECT_EQ(0, root()->subNodeCount());
}

TEST_F(NodesVisitorTest, KeyNamesTheVisitorsClass)
{
    const NodeNameCollector first, second;
    const CountingVisitor other;
    EXPECT_TRUE(first.key() == second.key() && first.key() != other.key() && !first.key().isNull());
    EXPECT_NE(first.key() < other.key(), other.key() < first.key());
}
