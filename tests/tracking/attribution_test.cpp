// After each edit of the timeline, a change in any scene reaches the scope as the panel
// that the view's own walk gives for that scene, or as nothing.
#include "host/engine/TUElementTimedValue.h"
#include "support/ProjectBoard.h"
#include "support/ProjectInvariants.h"
#include "tracking/KRC_TrackingManager.h"

#include <QSignalSpy>

namespace {

using Ids = std::vector<SC_Id>;

// The second shot's first panel starts under a transition.
class Attribution : public CacheStateTest
{
protected:
    Attribution()
        : CacheStateTest("S[10,12] T4 S[3,8] S[5,5]")
    {
        board->trackingManager()->init();
        board.notify();
        qRegisterMetaType<TUTvSet>("TUTvSet");
    }

    /// Gives the panel's block another scene.
    void show(size_t shot, size_t panel, SC_Id const& scene) const
    {
        TUSeqTimedValue* sequence = board.shotAt(shot).symbol()->sequence();
        auto* block = sequence->editBlock(unsigned(sequence->indexOf(board.panelAt(shot, panel).frameBlock())));
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
            Ids const byNode = gathered([&] { board->changeManager()->postNodeChanged(scene->getRootGroup()); });
            Ids const byId = gathered([&] { board->trackingManager()->trackPanel(scene->id); });
            if (byNode != idOf(board->nodeToPanel(scene->getRootGroup())) || byId != idOf(board->getPanelByID(scene->id)))
                return ::testing::AssertionFailure() << "scene " << i;
        }
        return checkView ? projectViewIsConsistent(board.view()) : ::testing::AssertionSuccess();
    }
};

// The last step adds a column in the same delivery whose changed sequence makes its scene
// a panel's: added timed values go out before changed ones.
TEST_P(Attribution, FollowsEveryEditOfTheTimeline)
{
    SC_Project* project = board.project();
    SC_Id const moved = board.panel(0, 1), removed = board.panel(2, 0), shared = board.panel(2, 1);
    TUScene* spare = project->createScene("Spare");
    TUScene* later = project->createScene("Later");
    auto nest = [&](TUScene* nested, SC_Id const& panel) { // a block of the panel's own scene
        board->getPanelByID(panel).symbol()->sequence()->insertBlock(
            0, std::make_unique<AT_FrameBlock>(1, 5, std::make_unique<AT_AbstractSceneSeq>(nested->id)));
    };
    const std::tuple<const char*, std::function<void()>, Ids, bool> steps[] = { // ..., one block per id
        { "panel moved to another shot", [&] { HostAuthoring::movePanel(project, moved, board.shot(1), 0); }, {}, true },
        { "panel removed", [&] { HostAuthoring::removePanel(project, removed); }, {}, true },
        { "scene replaced", [&] { show(0, 0, spare->id); }, {}, true },
        { "scene nested in two panels' scenes", [&] { nest(spare, shared), nest(spare, board.panel(1, 1)); },
            { board.panel(1, 1), shared }, true },
        { "column where a panel comes",
            [&] {
                later->addTimedValue(new TUElementTimedValue(later->sceneCommon(), "Ink", CA_DrawingKind::Kvg));
                show(1, 0, later->id);
            },
            { later->id }, true },
        { "scene shown by two panels", [&] { show(1, 1, shared); }, {}, false },
    };
    board.notify();
    QSignalSpy sequences(board->changeManager(), &TUSceneChangeManager::timedValuesChanged);
    EXPECT_TRUE(everySceneReachesItsPanel());
    for (auto const& [what, edit, expected, checkView] : steps) {
        sequences.clear();
        EXPECT_EQ(gathered(edit), expected) << what;
        EXPECT_EQ(sequences.count(), 1) << what;
        EXPECT_TRUE(everySceneReachesItsPanel(checkView)) << what;
    }
}

} // namespace

INSTANTIATE_CACHE_STATES(Attribution, Attribution);
