// Cold and warm view: what a host meets after each edit of a large timeline. Every
// edit drops the view's caches whole, so a host that redraws after a stroke pays the
// cold path (a pass over every frame, a walk of every panel), and one that draws a
// frame here and there pays a warm lookup at a random frame.
//
// Each figure is set against a reference measured in the same run, iteration by
// iteration: the ranges of all panels, in project frames, in one sorted vector built
// once from the engine's blocks, then one upper_bound per frame. The counter
// "x_reference" is our time over the reference's, which holds on a machine whose load
// changes during the run where absolute times do not.
#include "bench_boards.h"

#include "host/engine/HostProjectFile.h"
#include "project/HandlePool.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <malloc.h>
#include <random>
#include <vector>

namespace {

using Krolle::Panel_t;
using Krolle::Shot_t;
using Priority = KRC_KrolleProject::ResolutionPriority;

/// The reference: every panel's range in project frames, sorted by first frame.
class PanelRanges
{
public:
    /// Built from the engine's blocks: each shot's symbol blocks, through its warp.
    explicit PanelRanges(SC_Project const* project)
    {
        SC_SceneManager const* scenes = project->projectCommon()->sceneManager();
        TUSeqTimedValue const* timeline = project->topScene()->sequence();
        for (unsigned i = 0, n = timeline->getBlockCount(); i < n; ++i)
            addShot(scenes, timeline->blockAt(i));
        std::stable_sort(m_ranges.begin(), m_ranges.end(),
            [](Range const& a, Range const& b) { return a.first < b.first; });
    }

    /// The id of the panel at `frame` (the latest to start there), or null.
    SC_Id const* find(unsigned frame) const
    {
        auto after = std::upper_bound(m_ranges.begin(), m_ranges.end(), frame,
            [](unsigned key, Range const& range) { return key < range.first; });
        if (after == m_ranges.begin())
            return nullptr;
        --after;
        return frame <= after->last ? &after->id : nullptr;
    }

    size_t size() const { return m_ranges.size(); }

private:
    struct Range
    {
        unsigned first;
        unsigned last;
        SC_Id id;
    };

    void addShot(SC_SceneManager const* scenes, AT_FrameBlock const* shot)
    {
        AT_TimeWarpSeq const* warp = AT_TimeWarpSeq::toTimeWarp(shot->seq());
        TUScene const* symbol = warp ? dynamic_cast<TUScene const*>(scenes->find(warp->sceneId)) : nullptr;
        if (!symbol)
            return;
        TUSeqTimedValue const* panels = symbol->sequence();
        for (unsigned i = 0, n = panels->getBlockCount(); i < n; ++i) {
            AT_FrameBlock const* panel = panels->blockAt(i);
            AT_AbstractSceneSeq const* seq = AT_AbstractSceneSeq::toAbstractScene(panel->seq());
            if (!seq || panel->lastFrame < warp->start || panel->firstFrame > warp->end)
                continue;
            m_ranges.push_back(Range { toProject(warp, shot, panel->firstFrame),
                toProject(warp, shot, panel->lastFrame), seq->sceneId });
        }
    }

    static unsigned toProject(AT_TimeWarpSeq const* warp, AT_FrameBlock const* shot, double frame)
    {
        frame = std::min(std::max(frame, warp->start), warp->end);
        return unsigned(
            AT_Frame::roundToUnsigned(warp->globalFrame(frame, shot->firstFrame, shot->lastFrame)));
    }

    std::vector<Range> m_ranges;
};

double secondsOf(std::chrono::steady_clock::duration elapsed)
{
    return std::chrono::duration<double>(elapsed).count();
}

/// Times `work` alone, in seconds.
template <class Work> double timed(Work&& work)
{
    auto const start = std::chrono::steady_clock::now();
    work();
    return secondsOf(std::chrono::steady_clock::now() - start);
}

/// Runs the benchmark's iterations: `prepare` untimed, then `ours` and `reference`
/// each timed; the iteration's time is ours, and "x_reference" the ratio of the sums.
/// Gives our total in seconds.
template <class Prepare, class Ours, class Reference>
double againstReference(benchmark::State& state, Prepare prepare, Ours ours, Reference reference)
{
    double oursTotal = 0;
    double referenceTotal = 0;
    for (auto _ : state) {
        prepare();
        double const seconds = timed(ours);
        state.SetIterationTime(seconds);
        oursTotal += seconds;
        referenceTotal += timed(reference);
    }
    state.counters["x_reference"] = referenceTotal > 0 ? oursTotal / referenceTotal : 0;
    return oursTotal;
}

/// 4,096 frames spread at random over the timeline, the same in every run.
std::vector<unsigned> randomFrames(unsigned frames)
{
    std::mt19937 random(42);
    std::uniform_int_distribution<unsigned> spread(1, frames);
    std::vector<unsigned> picked(4096);
    for (unsigned& frame : picked)
        frame = spread(random);
    return picked;
}

Priority sideOf(unsigned frame)
{
    return frame % 2 ? KRC_KrolleProject::PreferPrevious : KRC_KrolleProject::PreferNext;
}

template <class Lookup> void warmAtRandomFrames(benchmark::State& state, Lookup lookup)
{
    BenchBoard& board = BenchBoard::ofPanels(unsigned(state.range(0)));
    KRC_KrolleProject& view = *board.view;
    std::vector<unsigned> const frames = randomFrames(board.frames());
    PanelRanges const ranges(board.board.project.get());
    view.invalidate();
    for (unsigned frame = 1; frame <= board.frames(); ++frame)
        benchmark::DoNotOptimize(lookup(view, frame));
    againstReference(
        state, [] {},
        [&] {
            for (unsigned frame : frames)
                benchmark::DoNotOptimize(lookup(view, frame));
        },
        [&] {
            for (unsigned frame : frames)
                benchmark::DoNotOptimize(ranges.find(frame));
        });
    state.SetItemsProcessed(int64_t(state.iterations()) * int64_t(frames.size()));
}

void BM_WarmShotAtRandomFrames(benchmark::State& state)
{
    warmAtRandomFrames(
        state, [](KRC_KrolleProject& view, unsigned frame) { return view.getShotAt(frame, sideOf(frame)); });
}

void BM_WarmPanelAtRandomFrames(benchmark::State& state)
{
    warmAtRandomFrames(
        state, [](KRC_KrolleProject& view, unsigned frame) { return view.getPanelAt(frame, sideOf(frame)); });
}

/// The board of that size, its engine records made (the first handle of a panel makes
/// them, once in the project's life, which is no part of a pass).
BenchBoard& boardWithRecords(unsigned panels)
{
    BenchBoard& board = BenchBoard::ofPanels(panels);
    board.view->panelCount();
    return board;
}

/// A pass over every frame after invalidate, against building the reference and
/// searching it at every frame.
void BM_ColdPanelPassOverEveryFrame(benchmark::State& state)
{
    BenchBoard& board = boardWithRecords(unsigned(state.range(0)));
    KRC_KrolleProject& view = *board.view;
    unsigned const frames = board.frames();
    againstReference(
        state, [&] { view.invalidate(); },
        [&] {
            for (unsigned frame = 1; frame <= frames; ++frame)
                benchmark::DoNotOptimize(view.getPanelAt(frame, sideOf(frame)));
        },
        [&] {
            PanelRanges const ranges(board.board.project.get());
            for (unsigned frame = 1; frame <= frames; ++frame)
                benchmark::DoNotOptimize(ranges.find(frame));
        });
    state.SetItemsProcessed(int64_t(state.iterations()) * frames);
}

/// A walk of every panel after invalidate; "ns_per_panel" is the figure to watch.
template <class Walk> void coldWalk(benchmark::State& state, Walk walk)
{
    BenchBoard& board = boardWithRecords(unsigned(state.range(0)));
    KRC_KrolleProject& view = *board.view;
    int64_t panels = 0;
    double const seconds = againstReference(
        state, [&] { view.invalidate(); }, [&] { panels = walk(view); },
        [&] { benchmark::DoNotOptimize(PanelRanges(board.board.project.get()).size()); });
    if (panels > 0)
        state.counters["ns_per_panel"] = seconds * 1e9 / (double(panels) * double(state.iterations()));
    state.SetItemsProcessed(int64_t(state.iterations()) * panels);
}

void BM_ColdWalkPanelsWithNext(benchmark::State& state)
{
    coldWalk(state, [](KRC_KrolleProject& view) {
        int64_t panels = 0;
        for (Panel_t panel = view.first(Panel_t::invalid); panel.isValid(); panel = view.next(panel))
            ++panels;
        return panels;
    });
}

void BM_ColdWalkPanelsWithIterator(benchmark::State& state)
{
    coldWalk(state, [](KRC_KrolleProject& view) {
        int64_t panels = 0;
        for (Panel_t const& panel : Krolle::range(view.beginPanel(), view.endPanel())) {
            benchmark::DoNotOptimize(panel);
            ++panels;
        }
        return panels;
    });
}

/// Loading the project file and opening the view on it, against the reference built
/// over the loaded project.
void BM_LoadProjectAndOpenView(benchmark::State& state)
{
    BenchBoard& board = BenchBoard::ofPanels(unsigned(state.range(0)));
    QTemporaryDir dir;
    QString const path = dir.filePath(QStringLiteral("bench.xml"));
    if (!HostProjectFile::save(board.board.project.get(), path))
        state.SkipWithError("save failed");
    UT_SharedPtr<SC_Project> loaded;
    std::unique_ptr<KRC_KrolleProject> view;
    againstReference(
        state,
        [&] {
            view.reset();
            loaded = UT_SharedPtr<SC_Project>();
        },
        [&] {
            loaded = HostProjectFile::load(path);
            if (loaded)
                view.reset(new KRC_KrolleProject(loaded.get()));
        },
        [&] {
            if (loaded)
                benchmark::DoNotOptimize(PanelRanges(loaded.get()).size());
        });
    if (!view)
        state.SkipWithError("load failed");
}

/// Bytes that the heap and the handle pool give out now.
double bytesInUse()
{
    return double(mallinfo2().uordblks) - double(Krolle::HandlePool::bytesReserved())
        + double(Krolle::HandlePool::bytesInUse());
}

/// The memory of a warm view (every frame looked up, every panel walked) over a
/// project whose records already exist: a second view made over the board.
void BM_WarmViewMemory(benchmark::State& state)
{
    BenchBoard& board = boardWithRecords(unsigned(state.range(0)));
    double bytes = 0;
    for (auto _ : state) {
        double const before = bytesInUse();
        auto view = std::make_unique<KRC_KrolleProject>(board.board.project.get());
        for (unsigned frame = 1; frame <= board.frames(); ++frame) {
            benchmark::DoNotOptimize(view->getPanelAt(frame, sideOf(frame)));
            benchmark::DoNotOptimize(view->getTransAt(frame));
        }
        benchmark::DoNotOptimize(view->panelCount());
        bytes = bytesInUse() - before;
    }
    state.counters["bytes_per_panel"] = bytes / double(state.range(0));
    state.counters["MiB"] = bytes / double(1 << 20);
}

} // namespace

BENCHMARK(BM_WarmShotAtRandomFrames)->Arg(2000)->Arg(20000)->UseManualTime();
BENCHMARK(BM_WarmPanelAtRandomFrames)->Arg(2000)->Arg(20000)->UseManualTime();
BENCHMARK(BM_ColdPanelPassOverEveryFrame)
    ->Arg(2000)
    ->Arg(20000)
    ->Arg(200000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ColdWalkPanelsWithNext)
    ->Arg(2000)
    ->Arg(20000)
    ->Arg(200000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ColdWalkPanelsWithIterator)
    ->Arg(2000)
    ->Arg(20000)
    ->Arg(200000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LoadProjectAndOpenView)
    ->Arg(2000)
    ->Arg(20000)
    ->Arg(200000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK(BM_WarmViewMemory)->Arg(20000)->Iterations(1)->Unit(benchmark::kMillisecond);
