// The selection: entries of nodes, the helpers, and nested batch scopes.
#include "nodes_Fixture.h"

#include <gmock/gmock.h>

#include <functional>

using ::testing::ElementsAre;

namespace {

class NodesSelectionTest : public NodesTest
{
public:
    NodesSelectionTest()
    {
        a = Author::addPeg(root(), "a");
        b = Author::addElement(root(), "b", CA_DrawingKind::Kvg);
        manager.clear();
    }

    QStringList selected() const
    {
        QStringList names;
        for (UT_SharedPtr<SLB_SelectedInterface> const& entry : selection) {
            auto const* node = dynamic_cast<SLB_NodeInterface const*>(entry.get());
            names << (node && node->selectable() ? node->selectable()->instanceName()
                                                 : QStringLiteral("<gone>"));
        }
        return names;
    }

    SL_Selection selection { &manager };
    MO_Node* a;
    MO_Node* b;
};

} // namespace

// Each step runs on the same selection; then the selection and the number of
// selectionChanged the next notify delivers are checked.
TEST_F(NodesSelectionTest, EachOperationGivesItsSelectionAndSignalCount)
{
    using S = NodesSelectionTest;
    using U = SL_SelectionUtil;
    const std::vector<std::tuple<const char*, std::function<bool(S&)>, bool, const char*, int>> steps {
        { "clear empty", [](S& t) { return t.selection.clear(), true; }, true, "", 0 },
        { "add b", [](S& t) { return U::addToSelection(&t.selection, t.b); }, true, "b", 1 },
        { "add a", [](S& t) { return U::addToSelection(&t.selection, t.a); }, true, "b a", 1 },
        { "add b again", [](S& t) { return U::addToSelection(&t.selection, t.b); }, false, "b a", 0 },
        { "is a in", [](S& t) { return U::isIn(&t.selection, t.a); }, true, "b a", 0 },
        { "remove b", [](S& t) { return U::removeFromSelection(&t.selection, t.b); }, true, "a", 1 },
        { "remove b again", [](S& t) { return U::removeFromSelection(&t.selection, t.b); }, false, "a", 0 },
        { "is b in", [](S& t) { return U::isIn(&t.selection, t.b); }, false, "a", 0 },
        { "add to none", [](S& t) { return U::addToSelection(nullptr, t.a); }, false, "a", 0 },
        { "add null", [](S& t) { return U::addToSelection(&t.selection, nullptr); }, false, "a", 0 },
        { "is null in", [](S& t) { return U::isIn(&t.selection, nullptr); }, false, "a", 0 },
        { "remove from none", [](S& t) { return U::removeFromSelection(nullptr, t.a); }, false, "a", 0 },
        { "remove null", [](S& t) { return U::removeFromSelection(&t.selection, nullptr); }, false, "a", 0 },
        { "clear", [](S& t) { return t.selection.clear(), t.selection.isEmpty(); }, true, "", 1 },
        { "batch",
            [](S& t) {
                SL_Selection::BatchSelectionModeScope outer(&t.selection);
                U::addToSelection(&t.selection, t.a);
                t.manager.notify();
                {
                    SL_Selection::BatchSelectionModeScope inner(&t.selection);
                    U::addToSelection(&t.selection, t.b);
                    t.selection.clear();
                    U::addToSelection(&t.selection, t.b);
                }
                t.manager.notify();
                return t.selection.isInBatch() && !t.log.lines.contains("selectionChanged");
            },
            true, "b", 1 },
        { "unchanged batch",
            [](S& t) {
                SL_Selection::BatchSelectionModeScope unchanged(&t.selection);
                return U::addToSelection(&t.selection, t.b);
            },
            false, "b", 0 },
        { "batch of none",
            [](S& t) { return SL_Selection::BatchSelectionModeScope(nullptr), !t.selection.isInBatch(); },
            true, "b", 0 },
    };
    for (auto const& step : steps) {
        log.take();
        EXPECT_EQ(std::get<2>(step), std::get<1>(step)(*this)) << std::get<0>(step);
        EXPECT_EQ(QString(std::get<3>(step)), selected().join(' ')) << std::get<0>(step);
        EXPECT_EQ(std::get<4>(step), (deliver(), log.lines.count("selectionChanged"))) << std::get<0>(step);
    }
}

TEST_F(NodesSelectionTest, AnEntryOfARemovedNodeReadsNullAndMatchesNoOtherNode)
{
    SL_SelectionUtil::addToSelection(&selection, a);
    Author::removeNode(a);
    EXPECT_THAT(selected(), ElementsAre("<gone>"));
    MO_Node* fresh = Author::addPeg(root(), "fresh");
    EXPECT_FALSE(SL_SelectionUtil::isIn(&selection, fresh));
    EXPECT_TRUE(SL_SelectionUtil::addToSelection(&selection, fresh));
    EXPECT_EQ(2, selection.size());
}

TEST(NodesSelectionAloneTest, ASelectionWithoutManagerPostsNowhere)
{
    SL_Selection selection;
    UT_SharedPtr<MO_Node> node(new TUPegModule(nullptr, "loose"));
    EXPECT_TRUE(SL_SelectionUtil::addToSelection(&selection, node.get()));
    EXPECT_TRUE(SL_SelectionUtil::isIn(&selection, node.get()));
}
