// Frame lookups of the project view over every frame of a project, with the caches
// warm (filled by a first pass) and cold (dropped before each pass). A warm lookup
// is a cache search plus the engine's block count, so its cost per frame must hardly
// grow with the project; a cold pass builds every handle once, n log n at most. The
// cold passes are also timed after flushing the processor's caches, which puts a
// project that fits them and one that does not on equal terms (see bench_boards.h).
#include "bench_boards.h"

#include <benchmark/benchmark.h>

namespace {

using Priority = KRC_KrolleProject::ResolutionPriority;

enum class Start
{
    Warm,
    Cold,
    ColdFlushed
};

template <class Lookup> void passOverEveryFrame(benchmark::State& state, Start start, Lookup lookup)
{
    BenchBoard& board = BenchBoard::ofPanels(unsigned(state.range(0)));
    KRC_KrolleProject& view = *board.view;
    unsigned const frames = board.frames();
    view.invalidate();
    if (start == Start::Warm) {
        for (unsigned frame = 1; frame <= frames; ++frame)
            benchmark::DoNotOptimize(lookup(view, frame));
    }
    for (auto _ : state) {
        untimedStart(state, start == Start::Warm ? nullptr : &view, start == Start::ColdFlushed);
        for (unsigned frame = 1; frame <= frames; ++frame)
            benchmark::DoNotOptimize(lookup(view, frame));
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * frames);
    state.counters["frames"] = frames;
}

auto const shotAt = [](KRC_KrolleProject& view, unsigned frame) {
    return view.getShotAt(
        frame, frame % 2 ? KRC_KrolleProject::PreferPrevious : KRC_KrolleProject::PreferNext);
};
auto const panelAt = [](KRC_KrolleProject& view, unsigned frame) {
    return view.getPanelAt(
        frame, frame % 2 ? KRC_KrolleProject::PreferPrevious : KRC_KrolleProject::PreferNext);
};

void BM_ShotAtWarm(benchmark::State& state)
{
    passOverEveryFrame(state, Start::Warm, shotAt);
}
void BM_ShotAtCold(benchmark::State& state)
{
    passOverEveryFrame(state, Start::Cold, shotAt);
}
void BM_PanelAtWarm(benchmark::State& state)
{
    passOverEveryFrame(state, Start::Warm, panelAt);
}
void BM_PanelAtCold(benchmark::State& state)
{
    passOverEveryFrame(state, Start::Cold, panelAt);
}

void BM_ShotAtColdFlushed(benchmark::State& state)
{
    passOverEveryFrame(state, Start::ColdFlushed, shotAt);
}
void BM_PanelAtColdFlushed(benchmark::State& state)
{
    passOverEveryFrame(state, Start::ColdFlushed, panelAt);
}

} // namespace

BENCHMARK(BM_ShotAtWarm)->Arg(200)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ShotAtCold)->Arg(200)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PanelAtWarm)->Arg(200)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PanelAtCold)->Arg(200)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ShotAtColdFlushed)->Arg(200)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PanelAtColdFlushed)->Arg(200)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
