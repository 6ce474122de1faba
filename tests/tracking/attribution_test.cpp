// Attribution of a change to its panel follows edits of the timeline: after each edit,
// a change in any scene of the project reaches the scope as the panel that the view's
// own walk gives for that scene, or as nothing.
#include "host/engine/TUElementTimedValue.h"
#include "support/ProjectBoard.h"
#include "support/ProjectInvariants.h"
#include "tracking/KRC_TrackingManager.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

#include <functional>

namespace {

using Scope = KRC_TrackingManager::AccumScope;

// A transition over the first panel of the second shot, whose first frame is thus
// under two shots.
class Attribution : public CacheStateTest
{
protected:
    Attribution()
        : CacheStateTest("S[10,12] T4 S[3,8] S[5,5]")
    {
        tracker().init();
        board.notify();
        qRegisterMetaType<TUTvSet>("TUTvSet");
    }

    KRC_TrackingManager& tracker() const { return *board->trackingManager(); }

    /// Gives the panel's block the scene `scene` in its shot's sequence.
    void showScene(size_t shot, size_t panel, SC_Id const& scene) const
    {
        TUSeqTimedValue* symbol = board.shotAt(shot).symbol()->sequence();
        AT_FrameBlock const* block = board.panelAt(shot, panel).frameBlock();
        AT_AbstractSceneSeq::toAbstractScene(symbol->editBlock(unsigned(symbol->indexOf(block)))->seq())->sceneId
            = scene;
        symbol->touch();
    }

    /// Each scene's node change, and its id given to `trackPanel`, reach a scope as the
    /// view's walk answers.
    ::testing::AssertionResult everySceneReachesItsPanel(bool checkView = true)
    {
        SC_Project* project = board.project();
        for (unsigned i = 0; i < project->sceneCount(); ++i) {
            auto* scene = dynamic_cast<TUScene*>(project->sceneAt(i));
            Scope byNode(&tracker());
            board->changeManager()->postNodeChanged(scene->getRootGroup());
            board.notify();
            Scope byId(&tracker());
            tracker().trackPanel(scene->id);
            auto const expected = panelIds(board->nodeToPanel(scene->getRootGroup()));
            if (ids(byNode) != expected || ids(byId) != panelIds(board->getPanelByID(scene->id)))
                return ::testing::AssertionFailure() << "scene " << scene->id << " at " << i;
        }
        return checkView ? projectViewIsConsistent(board.view()) : ::testing::AssertionSuccess();
    }

    static std::vector<SC_Id> panelIds(Krolle::Panel_t const& panel)
    {
        return panel.isValid() ? std::vector<SC_Id> { panel.id() } : std::vector<SC_Id> {};
    }
    static std::vector<SC_Id> ids(Scope const& scope)
    {
        std::vector<SC_Id> out;
        for (auto const& entry : scope.result())
            out.push_back(entry.first);
        return out;
    }
};

TEST_P(Attribution, FollowsEveryEditOfTheTimeline)
{
    SC_Project* project = board.project();
    SC_Id const moved = board.panel(0, 1), removed = board.panel(2, 0), shared = board.panel(2, 1);
    SC_Id const spare = project->createScene("Spare")->id;
    struct Step
    {
        const char* what;
        std::function<void()> edit;
        bool fileWouldLoad = true; // else the view's one-block-per-id check cannot hold
    };
    auto nest = [&](TUScene* nested, SC_Id const& panel) {
        board->getPanelByID(panel).symbol()->sequence()->insertBlock(
            0, std::make_unique<AT_FrameBlock>(1, 5, std::make_unique<AT_AbstractSceneSeq>(nested->id)));
    };
    const Step steps[] = {
        { "nothing", [] {} },
        { "a panel moved to another shot",
            [&] { EXPECT_TRUE(HostAuthoring::movePanel(project, moved, board.shot(1), 0)); } },
        { "a removed panel", [&] { EXPECT_TRUE(HostAuthoring::removePanel(project, removed)); } },
        { "a scene replaced", [&] { showScene(0, 0, spare); } },
        { "a scene nested in two panels' scenes",
            [&] {
                TUScene* nested = project->createScene("Nested");
                nest(nested, shared);
                nest(nested, board.panel(1, 1));
            } },
        { "a scene shown by two panels", [&] { showScene(1, 1, shared); }, false },
    };
    QSignalSpy sequences(board->changeManager(), &TUSceneChangeManager::timedValuesChanged);
    for (Step const& step : steps) {
        sequences.clear();
        step.edit();
        board.notify();
        EXPECT_EQ(sequences.count(), &step == steps ? 0 : 1) << step.what; // one delivery of sequences
        EXPECT_TRUE(everySceneReachesItsPanel(step.fileWouldLoad)) << step.what;
    }
}

// Added timed values go out before the changed sequences of the same delivery: a column
// added to a scene that the same edit makes a panel's still reaches that panel.
TEST_P(Attribution, AColumnAddedWhereTheSameDeliveryMakesAPanel)
{
    TUScene* scene = board.project()->createScene("Later");
    board.notify();
    ASSERT_TRUE(everySceneReachesItsPanel());
    Scope scope(&tracker());
    scene->addTimedValue(new TUElementTimedValue(scene->sceneCommon(), "Ink", CA_DrawingKind::Kvg));
    showScene(0, 1, scene->id);
    board.notify();
    EXPECT_EQ(ids(scope), std::vector<SC_Id> { scene->id });
}

} // namespace

INSTANTIATE_CACHE_STATES(Attribution, Attribution);
