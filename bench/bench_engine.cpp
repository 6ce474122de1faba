// The engine's timeline lookups (getBlock, getBlockCount, SC_SceneManager::find) on
// timelines of 2,000 and 20,000 blocks, and saving and loading a project of 20,000
// panels.
#include "host/engine/HostEngine.h"
#include "host/persistence/PO_XmlGuard.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <random>
#include <vector>

namespace {

// A top sequence of `blocks` blocks: 4-frame shots, each showing a scene of its own,
// with a 1-frame transition after every fifth shot. Built straight from the edit
// primitives, once per size.
struct BlockTimeline
{
    UT_SharedPtr<SC_Project> project;
    std::vector<SC_Id> sceneIds;
    std::vector<double> frames; // lookup frames, spread over the whole timeline

    static BlockTimeline const& ofBlocks(unsigned blocks)
    {
        static std::map<unsigned, std::unique_ptr<BlockTimeline>> timelines;
        std::unique_ptr<BlockTimeline>& slot = timelines[blocks];
        if (!slot)
            slot = make(blocks);
        return *slot;
    }

private:
    static std::unique_ptr<BlockTimeline> make(unsigned blocks)
    {
        auto timeline = std::make_unique<BlockTimeline>();
        timeline->project = HostAuthoring::createProject();
        SC_Project* project = timeline->project.get();
        TUSeqTimedValue* tv = project->topScene()->sequence();
        quint32 first = 1;
        unsigned shots = 0;
        while (tv->getBlockCount() < blocks) {
            if (shots > 0 && shots % 5 == 0 && tv->getBlockCount() + 1 < blocks) {
                // The next shot starts one frame earlier, under the transition.
                first -= 1;
                SC_Id const id = project->projectCommon()->allocateId();
                tv->insertBlock(tv->getBlockCount(),
                    std::make_unique<AT_FrameBlock>(first, first, std::make_unique<AT_TransitionSeq>(id, 0)));
            }
            SC_Id const scene = project->createScene()->id;
            timeline->sceneIds.push_back(scene);
            tv->insertBlock(tv->getBlockCount(),
                std::make_unique<AT_FrameBlock>(
                    first, first + 3, std::make_unique<AT_TimeWarpSeq>(scene, 1, 4)));
            first += 4;
            ++shots;
        }
        std::mt19937 random(42);
        std::uniform_real_distribution<double> spread(1.0, double(tv->nFrames()));
        for (int i = 0; i < 4096; ++i)
            timeline->frames.push_back(spread(random));
        project->projectCommon()->changeManager()->clear();
        return timeline;
    }
};

// Times one lookup of the top sequence at frames spread over the timeline.
template <class Lookup> void lookupAtFrames(benchmark::State& state, Lookup lookup)
{
    BlockTimeline const& timeline = BlockTimeline::ofBlocks(unsigned(state.range(0)));
    TUSeqTimedValue const* tv = timeline.project->topScene()->sequence();
    size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(lookup(tv, timeline.frames[i++ & 4095]));
    }
    state.SetItemsProcessed(state.iterations());
}

void BM_GetBlock(benchmark::State& state)
{
    lookupAtFrames(state, [](TUSeqTimedValue const* tv, double frame) { return tv->getBlock(frame); });
}

void BM_GetBlockCountAtFrame(benchmark::State& state)
{
    lookupAtFrames(state, [](TUSeqTimedValue const* tv, double frame) { return tv->getBlockCount(frame); });
}

void BM_GetBlockCount(benchmark::State& state)
{
    BlockTimeline const& timeline = BlockTimeline::ofBlocks(unsigned(state.range(0)));
    TUSeqTimedValue const* tv = timeline.project->topScene()->sequence();
    for (auto _ : state) {
        benchmark::DoNotOptimize(tv->getBlockCount());
    }
}

void BM_SceneManagerFind(benchmark::State& state)
{
    BlockTimeline const& timeline = BlockTimeline::ofBlocks(unsigned(state.range(0)));
    SC_SceneManager const* scenes = timeline.project->projectCommon()->sceneManager();
    std::vector<SC_Id> ids;
    std::mt19937 random(7);
    std::uniform_int_distribution<size_t> pick(0, timeline.sceneIds.size() - 1);
    for (int i = 0; i < 4096; ++i)
        ids.push_back(timeline.sceneIds[pick(random)]);
    size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(scenes->find(ids[i++ & 4095]));
    }
    state.SetItemsProcessed(state.iterations());
}

// A storyboard of `panels` panels, ten 3-frame panels to a shot, a transition after
// every fifth shot, built with the compact builder.
HostStoryboard const& storyboardOf(unsigned panels)
{
    static std::map<unsigned, HostStoryboard> boards;
    HostStoryboard& board = boards[panels];
    if (!board.isValid()) {
        QStringList tokens;
        for (unsigned shot = 0; shot < panels / 10; ++shot) {
            if (shot > 0 && shot % 5 == 0)
                tokens << QStringLiteral("T2");
            tokens << QStringLiteral("S[3,3,3,3,3,3,3,3,3,3]");
        }
        board = HostStoryboardBuilder::build(tokens.join(QLatin1Char(' ')));
    }
    return board;
}

void BM_SaveProject(benchmark::State& state)
{
    HostStoryboard const& board = storyboardOf(unsigned(state.range(0)));
    QTemporaryDir dir;
    QString const path = dir.filePath(QStringLiteral("bench.xml"));
    for (auto _ : state) {
        if (!HostProjectFile::save(board.project.get(), path))
            state.SkipWithError("save failed");
    }
}

void BM_LoadProject(benchmark::State& state)
{
    HostStoryboard const& board = storyboardOf(unsigned(state.range(0)));
    QTemporaryDir dir;
    QString const path = dir.filePath(QStringLiteral("bench.xml"));
    HostProjectFile::save(board.project.get(), path);
    for (auto _ : state) {
        UT_SharedPtr<SC_Project> loaded = HostProjectFile::load(path);
        if (!loaded)
            state.SkipWithError("load failed");
        benchmark::DoNotOptimize(loaded.get());
    }
}

// The limits alone, walking every token as a guard does when its reader stops early:
// their share of BM_LoadProject is this less a bare parse.
void BM_CheckLimits(benchmark::State& state)
{
    QByteArray const document = HostProjectFile::toXml(storyboardOf(unsigned(state.range(0))).project.get());
    for (auto _ : state) {
        if (!PO_XmlGuard(document).refusal().isNull())
            state.SkipWithError("refused");
    }
}

} // namespace

BENCHMARK(BM_GetBlock)->Arg(2000)->Arg(20000);
BENCHMARK(BM_GetBlockCountAtFrame)->Arg(2000)->Arg(20000);
BENCHMARK(BM_GetBlockCount)->Arg(2000)->Arg(20000);
BENCHMARK(BM_SceneManagerFind)->Arg(2000)->Arg(20000);
BENCHMARK(BM_SaveProject)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_LoadProject)->Arg(20000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_CheckLimits)->Arg(20000)->Unit(benchmark::kMillisecond)->Iterations(3);
