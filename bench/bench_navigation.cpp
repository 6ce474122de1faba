// Walks of the project view: every panel with next, the counts of acts and
// sequences, and lookups by id of cached objects. A walk is linear (each step a cache
// lookup), so ten times the panels costs about ten times the time; a lookup of a
// cached id is one hash lookup.
//
// Each walk is timed twice: as it comes, and after flushing the processor's caches.
// As it comes, the small project's data (handles, engine blocks, records) stays in the
// caches between passes while the large one's does not, which adds the memory's
// latency to the large walk only; flushed, both walks start from memory and their
// ratio is that of the work done.
#include "bench_boards.h"

#include "metadata/KRC_SceneInfo.h"
#include "naming/KRC_ObjectName.h"

#include <benchmark/benchmark.h>

namespace {

using Krolle::Panel_t;
using Krolle::Shot_t;

/// The board of that size with every shot in an act of five shots and a sequence of
/// ten (names set once), sequences on and the caches warm.
KRC_KrolleProject& groupedView(unsigned panels)
{
    BenchBoard& board = BenchBoard::ofPanels(panels);
    KRC_KrolleProject& view = *board.view;
    if (!view.sequenceExists()) {
        for (size_t i = 0; i < board.board.shots.size(); ++i) {
            KRC_SceneInfo* info = view.getShotByID(board.board.shots[i]).sceneInfo();
            info->actName().setValue(QString::number(i / 5));
            info->actName().setFlag(2);
            info->sequenceName().setValue(QString::number(i / 10));
            info->sequenceName().setFlag(2);
        }
        view.sequenceExistsMeta()->setValue(true);
    }
    view.panelCount(); // a walk of every panel: the caches are warm
    view.transCount();
    return view;
}

void walkPanels(benchmark::State& state, bool flush)
{
    KRC_KrolleProject& view = groupedView(unsigned(state.range(0)));
    int64_t steps = 0;
    for (auto _ : state) {
        untimedStart(state, nullptr, flush);
        for (Panel_t panel = view.first(Panel_t::invalid); panel.isValid(); panel = view.next(panel))
            ++steps;
    }
    state.SetItemsProcessed(steps);
}

void BM_WalkPanelsWithNext(benchmark::State& state)
{
    walkPanels(state, false);
}

void BM_WalkPanelsWithNextFlushed(benchmark::State& state)
{
    walkPanels(state, true);
}

// The walk that actCount() and sequenceCount() run when their totals are not known:
// from each run's first shot to the end of the run and on. The view keeps the totals
// until its caches drop, so the walk itself is timed here, over warm caches.
void countRuns(benchmark::State& state, bool flush)
{
    KRC_KrolleProject& view = groupedView(unsigned(state.range(0)));
    Shot_t const first = view.first(Shot_t::invalid);
    for (auto _ : state) {
        untimedStart(state, nullptr, flush);
        unsigned runs = 0;
        for (Shot_t shot = first; shot.isValid(); shot = view.next(view.lastInAct(shot)))
            ++runs;
        for (Shot_t shot = first; shot.isValid(); shot = view.next(view.lastInSequence(shot)))
            ++runs;
        benchmark::DoNotOptimize(runs);
    }
    state.counters["acts"] = view.actCount();
    state.counters["sequences"] = view.sequenceCount();
}

void BM_CountActsAndSequences(benchmark::State& state)
{
    countRuns(state, false);
}

void BM_CountActsAndSequencesFlushed(benchmark::State& state)
{
    countRuns(state, true);
}

// The same counts from cold caches: every shot handle is made anew. Dropping the
// caches frees the last pass's handles and is not timed.
void countFromCold(benchmark::State& state, bool flush)
{
    KRC_KrolleProject& view = groupedView(unsigned(state.range(0)));
    for (auto _ : state) {
        untimedStart(state, &view, flush);
        benchmark::DoNotOptimize(view.actCount());
        benchmark::DoNotOptimize(view.sequenceCount());
    }
}

void BM_CountActsAndSequencesCold(benchmark::State& state)
{
    countFromCold(state, false);
}

void BM_CountActsAndSequencesColdFlushed(benchmark::State& state)
{
    countFromCold(state, true);
}

template <class Lookup>
void lookupEveryId(benchmark::State& state, std::vector<SC_Id> const& ids, Lookup lookup)
{
    for (auto _ : state) {
        for (SC_Id const& id : ids)
            benchmark::DoNotOptimize(lookup(id));
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * int64_t(ids.size()));
}

void BM_ShotByCachedId(benchmark::State& state)
{
    KRC_KrolleProject& view = groupedView(unsigned(state.range(0)));
    std::vector<SC_Id> const& ids = BenchBoard::ofPanels(unsigned(state.range(0))).board.shots;
    lookupEveryId(state, ids, [&view](SC_Id const& id) { return view.getShotByID(id); });
}

void BM_PanelByCachedId(benchmark::State& state)
{
    KRC_KrolleProject& view = groupedView(unsigned(state.range(0)));
    std::vector<SC_Id> ids;
    for (auto const& shot : BenchBoard::ofPanels(unsigned(state.range(0))).board.panels)
        ids.insert(ids.end(), shot.begin(), shot.end());
    lookupEveryId(state, ids, [&view](SC_Id const& id) { return view.getPanelByID(id); });
}

} // namespace

BENCHMARK(BM_WalkPanelsWithNext)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WalkPanelsWithNextFlushed)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CountActsAndSequences)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CountActsAndSequencesFlushed)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CountActsAndSequencesCold)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CountActsAndSequencesColdFlushed)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ShotByCachedId)->Arg(2000)->Arg(20000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_PanelByCachedId)->Arg(2000)->Arg(20000)->Unit(benchmark::kMicrosecond);
