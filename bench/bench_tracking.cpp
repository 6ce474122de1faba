// Change tracking over projects of 2,000 and 20,000 panels. With a scope open, a node
// or timed-value change of one panel is attributed through the tracking manager's
// scene-to-panel index, so its cost must barely move with the size of the project; a changed record is
// looked for among every panel's records, a walk, and is measured to say what it costs
// at 20,000 panels. Listing the tracked panels is a walk and grows linearly.
#include "bench_boards.h"
#include "host/engine/HostNodeAuthoring.h"
#include "metadata/KRC_Tracking.h"
#include "project/Panel_t.h"
#include "tracking/KRC_TrackingManager.h"

#include <benchmark/benchmark.h>

namespace {

/// A board of that size with its tracking manager connected, and the last panel: the
/// one a walk reaches last. The board is one of its own, so that the connection and
/// the column added here do not stay on the board that other benchmarks share.
KRC_KrolleProject& trackedView(benchmark::State& state, Krolle::Panel_t& last)
{
    static std::map<unsigned, std::unique_ptr<BenchBoard>> boards;
    std::unique_ptr<BenchBoard>& slot = boards[unsigned(state.range(0))];
    if (!slot) {
        slot = BenchBoard::fresh(unsigned(state.range(0)));
        slot->view->trackingManager()->init();
    }
    BenchBoard& bench = *slot;
    last = *bench.view->rbeginPanel();
    if (last.symbol()->timedValues().size() < 2) {
        // A drawing column, so that the panel has a timed value to change beside its
        // scene's sequence, which is always first.
        HostNodeAuthoring::addDrawingElement(
            last.symbol()->getRootGroup(), "Bench", CA_DrawingKind::Kvg, "bench.tvg", 1, 3);
        bench.view->changeManager()->notify();
    }
    return *bench.view;
}

/// One change of the last panel per iteration, posted and delivered inside a scope.
template <class Post> void changeOfOnePanel(benchmark::State& state, Post post)
{
    Krolle::Panel_t last;
    KRC_KrolleProject& view = trackedView(state, last);
    TUSceneChangeManager* manager = view.changeManager();
    KRC_TrackingManager::AccumScope scope(view.trackingManager());
    for (auto _ : state) {
        post(manager, last);
        manager->notify();
    }
    if (scope.result().size() != 1)
        state.SkipWithError("the change was not attributed to its panel");
}

void BM_TrackNodeChange(benchmark::State& state)
{
    changeOfOnePanel(state, [](TUSceneChangeManager* manager, Krolle::Panel_t const& panel) {
        manager->postNodeChanged(panel.symbol()->getRootGroup());
    });
}

void BM_TrackTimedValueChange(benchmark::State& state)
{
    changeOfOnePanel(state, [](TUSceneChangeManager* manager, Krolle::Panel_t const& panel) {
        manager->postTimedValueChanged(panel.symbol()->timedValues().back());
    });
}

void BM_TrackRecordChange(benchmark::State& state)
{
    changeOfOnePanel(state, [](TUSceneChangeManager* manager, Krolle::Panel_t const& panel) {
        panel.tracking()->emitChanged(manager, 23);
    });
}

// Every tracked panel listed; with `flush`, from memory, the processor's caches emptied
// before each pass, so that both sizes pay the same per panel.
void listTrackedPanels(benchmark::State& state, bool flush)
{
    Krolle::Panel_t last;
    KRC_TrackingManager* tracker = trackedView(state, last).trackingManager();
    std::vector<SC_Id> out;
    for (auto _ : state) {
        untimedStart(state, nullptr, flush);
        tracker->getTrackedPanels(out, false);
        benchmark::DoNotOptimize(out.data());
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * state.range(0));
}

void BM_GetTrackedPanels(benchmark::State& state)
{
    listTrackedPanels(state, false);
}

void BM_GetTrackedPanelsFlushed(benchmark::State& state)
{
    listTrackedPanels(state, true);
}

} // namespace

BENCHMARK(BM_TrackNodeChange)->Arg(2000)->Arg(20000);
BENCHMARK(BM_TrackTimedValueChange)->Arg(2000)->Arg(20000);
BENCHMARK(BM_TrackRecordChange)->Arg(2000)->Arg(20000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_GetTrackedPanels)->Arg(2000)->Arg(20000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_GetTrackedPanelsFlushed)->Arg(2000)->Arg(20000)->Unit(benchmark::kMicrosecond);
