// Storyboard projects of a given size for the benchmarks of the project view.
#pragma once

#include "host/engine/HostStoryboardBuilder.h"
#include "project/KRC_KrolleProject.h"
#include "project/KRC_SceneChangeManager.h"
#include "tracking/KRC_DrawingObserver.h"

#include <benchmark/benchmark.h>

#include <QString>
#include <QStringList>

#include <map>
#include <memory>
#include <vector>

/// Pushes everything out of the processor's caches by writing over a buffer larger
/// than them. A walk over a small project stays in the caches from one pass to the
/// next while a large one cannot; flushing before each pass compares the two on
/// equal terms, so that the ratio of their times shows the cost of the walk itself.
inline void flushProcessorCaches()
{
    static std::vector<char> buffer(size_t(96) << 20, 1);
    for (size_t i = 0; i < buffer.size(); i += 64)
        ++buffer[i];
}

/// What comes before a timed pass, outside the timing: with `drop`, the view's caches
/// go (that frees the last pass's handles, which is not the pass's work); with `flush`,
/// the processor's caches.
inline void untimedStart(benchmark::State& state, KRC_KrolleProject* drop, bool flush)
{
    if (!drop && !flush)
        return;
    state.PauseTiming();
    if (drop)
        drop->invalidate();
    if (flush)
        flushProcessorCaches();
    state.ResumeTiming();
}

/// Every view's drawing observer hears every drawing reported in the process, and
/// searches all its panels for one it does not know. A view kept for benchmarks that
/// report no drawing is made deaf to them, so that it does not add its searches to the
/// benchmarks of drawing reports that run after it.
inline void stopHearingDrawings(KRC_KrolleProject& view)
{
    QObject::disconnect(ca_celCache, nullptr, view.drawingObserver(), nullptr);
}

/// A project of `panels` panels, ten 3-frame panels to a shot, with a 2-frame
/// transition after every fifth shot and a view over it. Built once per size and
/// kept for the whole run, since building is not what is measured.
struct BenchBoard
{
    KRC_SceneChangeManager manager;
    HostStoryboard board;
    std::unique_ptr<KRC_KrolleProject> view;

    unsigned frames() const { return view->topSceneTv()->nFrames(); }

    static BenchBoard& ofPanels(unsigned panels)
    {
        static std::map<unsigned, std::unique_ptr<BenchBoard>> boards;
        std::unique_ptr<BenchBoard>& slot = boards[panels];
        if (!slot)
            slot = fresh(panels);
        return *slot;
    }

    /// A board of its own, for benchmarks that leave records on it.
    static std::unique_ptr<BenchBoard> fresh(unsigned panels)
    {
        std::unique_ptr<BenchBoard> made(new BenchBoard);
        made->board = HostStoryboardBuilder::build(description(panels), nullptr, &made->manager);
        made->view.reset(new KRC_KrolleProject(made->board.project.get()));
        stopHearingDrawings(*made->view);
        return made;
    }

private:
    static QString description(unsigned panels)
    {
        unsigned const perShot = 10;
        QStringList lengths;
        for (unsigned i = 0; i < perShot; ++i)
            lengths << QStringLiteral("3");
        QString const shot = QStringLiteral("S[") + lengths.join(QLatin1Char(',')) + QLatin1Char(']');
        QStringList tokens;
        for (unsigned i = 0; i < panels / perShot; ++i) {
            if (i > 0 && i % 5 == 0)
                tokens << QStringLiteral("T2");
            tokens << shot;
        }
        return tokens.join(QLatin1Char(' '));
    }
};
