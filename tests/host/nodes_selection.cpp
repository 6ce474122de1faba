// The selection: entries of nodes, the helpers, and nested batch scopes.
#include "nodes_Fixture.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;

namespace {

class NodesSelectionTest : public NodesTest
{
protected:
    NodesSelectionTest()
    {
        a = Author::addPeg(root(), "a");
        b = Author::addElement(root(), "b", CA_DrawingKind::Kvg);
        manager.clear();
    }

    // How many selectionChanged the next notify delivers.
    int delivered()
    {
        deliver();
        return log.selectionChanges;
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

TEST_F(NodesSelectionTest, HelpersAddRemoveAndTestNodesInOrderOfAddition)
{
    EXPECT_TRUE(SL_SelectionUtil::addToSelection(&selection, b));
    EXPECT_TRUE(SL_SelectionUtil::addToSelection(&selection, a));
    EXPECT_FALSE(SL_SelectionUtil::addToSelection(&selection, b)) << "already selected";
    EXPECT_THAT(selected(), ElementsAre("b", "a"));
    EXPECT_TRUE(SL_SelectionUtil::isIn(&selection, a));
    EXPECT_TRUE(SL_SelectionUtil::removeFromSelection(&selection, b));
    EXPECT_FALSE(SL_SelectionUtil::removeFromSelection(&selection, b));
    EXPECT_FALSE(SL_SelectionUtil::isIn(&selection, b));
    EXPECT_THAT(selected(), ElementsAre("a"));

    EXPECT_FALSE(SL_SelectionUtil::addToSelection(nullptr, a));
    EXPECT_FALSE(SL_SelectionUtil::addToSelection(&selection, nullptr));
    EXPECT_FALSE(SL_SelectionUtil::isIn(&selection, nullptr));
    EXPECT_FALSE(SL_SelectionUtil::removeFromSelection(nullptr, a));
}

TEST_F(NodesSelectionTest, EachChangePostsOneSelectionChangedAndNoChangePostsNone)
{
    selection.clear();
    EXPECT_EQ(0, delivered()) << "clearing an empty selection";
    SL_SelectionUtil::addToSelection(&selection, a);
    SL_SelectionUtil::addToSelection(&selection, b);
    EXPECT_EQ(1, delivered());
    SL_SelectionUtil::addToSelection(&selection, a);
    SL_SelectionUtil::removeFromSelection(&selection, nullptr);
    EXPECT_EQ(0, delivered());
    selection.clear();
    EXPECT_EQ(1, delivered());
    EXPECT_TRUE(selection.isEmpty());
}

TEST_F(NodesSelectionTest, NestedBatchesPostOnceWhenTheOutermostCloses)
{
    {
        SL_Selection::BatchSelectionModeScope outer(&selection);
        SL_SelectionUtil::addToSelection(&selection, a);
        EXPECT_EQ(0, delivered()) << "a notify inside the batch";
        {
            SL_Selection::BatchSelectionModeScope inner(&selection);
            SL_SelectionUtil::addToSelection(&selection, b);
            selection.clear();
            SL_SelectionUtil::addToSelection(&selection, b);
        }
        EXPECT_TRUE(selection.isInBatch());
        EXPECT_EQ(0, delivered()) << "after the inner scope closed";
    }
    EXPECT_FALSE(selection.isInBatch());
    EXPECT_EQ(1, delivered());
    EXPECT_THAT(selected(), ElementsAre("b"));
    {
        SL_Selection::BatchSelectionModeScope unchanged(&selection);
        SL_SelectionUtil::addToSelection(&selection, b);
    }
    EXPECT_EQ(0, delivered()) << "a batch that changed nothing";
    SL_Selection::BatchSelectionModeScope nothing(nullptr);
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
