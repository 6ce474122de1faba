// The camera manager's answers on large boards: the camera of a panel's scene (led to
// its shot through the view's scene map) and the planes of the top scene (the shot
// under the frame by the view's frame lookup). Both are lookups, so ten times the
// panels should cost about the same per answer.
#include "bench_boards.h"

#include "camera/KRC_CameraManager.h"
#include "project/KRC_SessionContext.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace {

/// A session with a view over a board of its own of that size (the session goes
/// first); the view's scene maps are filled.
struct CameraBench
{
    std::unique_ptr<BenchBoard> board;
    std::unique_ptr<KRC_SessionContext> session;
    std::vector<SC_SceneCommon*> panelScenes;

    explicit CameraBench(unsigned panels)
        : board(BenchBoard::fresh(panels))
        , session(KRC_SessionContext::createSessionContext(nullptr, nullptr))
    {
        KRC_KrolleProject* view = session->createKrolleProject(board->board.project.get());
        stopHearingDrawings(*view);
        for (auto const& shot : board->board.panels)
            for (SC_Id const& id : shot)
                panelScenes.push_back(view->getPanelByID(id).symbol()->sceneCommon());
        view->sceneCommonToPanel(panelScenes.front());
    }

    static CameraBench& ofPanels(unsigned panels)
    {
        static std::map<unsigned, std::unique_ptr<CameraBench>> benches;
        std::unique_ptr<CameraBench>& slot = benches[panels];
        if (!slot)
            slot.reset(new CameraBench(panels));
        return *slot;
    }
};

void BM_CameraOfPanelScene(benchmark::State& state)
{
    CameraBench& bench = CameraBench::ofPanels(unsigned(state.range(0)));
    SC_CameraManager* camera = bench.session->cameraManager();
    size_t i = 0;
    for (auto _ : state) {
        SC_SceneCommon* scene = bench.panelScenes[i];
        i = (i + 7919) % bench.panelScenes.size();
        benchmark::DoNotOptimize(camera->globalCameraMatrix(scene, MO_FrameKey(2.0, MO_FrameKey::eExact)));
    }
    state.SetItemsProcessed(state.iterations());
}

void BM_CameraPlanesOfTopScene(benchmark::State& state)
{
    CameraBench& bench = CameraBench::ofPanels(unsigned(state.range(0)));
    SC_CameraManager* camera = bench.session->cameraManager();
    SC_SceneCommon* top = bench.session->krolleProject()->topScene()->sceneCommon();
    const unsigned frames = bench.board->frames();
    unsigned frame = 1;
    double nearPlane = 0.0, farPlane = 0.0;
    for (auto _ : state) {
        frame = 1 + (frame + 7919) % frames;
        benchmark::DoNotOptimize(
            camera->cameraPlanes(top, MO_FrameKey(double(frame), MO_FrameKey::eExact), nearPlane, farPlane));
    }
    state.SetItemsProcessed(state.iterations());
}

} // namespace

BENCHMARK(BM_CameraOfPanelScene)->Arg(2000)->Arg(20000);
BENCHMARK(BM_CameraPlanesOfTopScene)->Arg(2000)->Arg(20000);
