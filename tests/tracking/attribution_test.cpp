// After each edit of the timeline a change in any scene reaches the scope as the view's walk says.
#include "host/engine/TUElementTimedValue.h"
#include "support/ProjectBoard.h"
#include "support/ProjectInvariants.h"
#include "tracking/KRC_TrackingManager.h"

namespace {

using Ids = std::vector<SC_Id>;

class Attribution : public CacheStateTest
{
protected:
    Attribution()
        : CacheStateTest("S[10,12] T4 S[3,8] S[5,5]") // a panel starting under a transition
    {
        board->trackingManager()->init();
        board.notify();
    }

    /// Gives the panel's block another scene.
    void show(size_t shot, size_t panel, SC_Id const& scene) const
    {
        TUSeqTimedValue* sequence = board.shotAt(shot).symbol()->sequence();
        auto* block
            = sequence->editBlock(unsigned(sequence->indexOf(board.panelAt(shot, panel).frameBlock())));
        AT_AbstractSceneSeq::toAbstractScene(block->seq())->sceneId = scene;
        sequence->touch();
    }
    Ids gathered(std::function<void()> const& change)
    {
        KRC_TrackingManager::AccumScope scope(board->trackingManager());
        change();
        board.notify();
        Ids out;
        for (auto const& entry : scope.result())
            out.push_back(entry.first);
        return out;
    }
    static Ids idOf(Krolle::Panel_t const& panel) { return panel.isValid() ? Ids { panel.id() } : Ids {}; }

    ::testing::AssertionResult everySceneReachesItsPanel(bool checkView = true)
    {
        for (unsigned i = 0; i < board.project()->sceneCount(); ++i) {
            auto* scene = dynamic_cast<TUScene*>(board.project()->sceneAt(i));
            if (gathered([&] { board->changeManager()->postNodeChanged(scene->getRootGroup()); })
                != idOf(board->nodeToPanel(scene->getRootGroup())))
                return ::testing::AssertionFailure() << "scene " << i;
        }
        return checkView ? projectViewIsConsistent(board.view()) : ::testing::AssertionSuccess();
    }
};

// Steps: what, edit, panels gathered, one block per id. Added columns go out before changed sequences.
TEST_P(Attribution, FollowsEveryEditOfTheTimeline)
{
    SC_Project* project = board.project();
    SC_Id const shared = board.panel(2, 1);
    TUScene* spare = project->createScene("Spare");
    TUScene* later = project->createScene("Later");
    auto nest = [&](TUScene* nested, SC_Id const& panel) { // a block of the panel's own scene
        board->getPanelByID(panel).symbol()->sequence()->insertBlock(
            0, std::make_unique<AT_FrameBlock>(1, 5, std::make_unique<AT_AbstractSceneSeq>(nested->id)));
    };
    const std::tuple<const char*, std::function<void()>, Ids, bool> steps[] = {
        { "panel moved to another shot",
            [&] { HostAuthoring::movePanel(project, board.panel(0, 1), board.shot(1), 0); }, {}, true },
        { "panel removed", [&] { HostAuthoring::removePanel(project, board.panel(2, 0)); }, {}, true },
        { "scene replaced", [&] { show(0, 0, spare->id); }, {}, true },
        { "scene nested in two panels' scenes", [&] { nest(spare, shared), nest(spare, board.panel(1, 1)); },
            { board.panel(1, 1), shared }, true },
        { "column where a panel comes",
            [&] {
                later->addTimedValue(
                    new TUElementTimedValue(later->sceneCommon(), "Ink", CA_DrawingKind::Kvg));
                show(1, 0, later->id);
            },
            { later->id }, true },
        { "scene shown by two panels", [&] { show(1, 1, shared); }, {}, false },
    };
    board.notify();
    EXPECT_TRUE(everySceneReachesItsPanel());
    for (auto const& [what, edit, expected, checkView] : steps) {
        EXPECT_EQ(gathered(edit), expected) << what;
        EXPECT_TRUE(everySceneReachesItsPanel(checkView)) << what;
    }
}

} // namespace

INSTANTIATE_CACHE_STATES(Attribution, Attribution);
