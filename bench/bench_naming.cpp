// Naming every panel of a 20,000-panel project, with shots of 10 and of 100 panels.
// An auto-named panel's name walks its shot, so the time per name grows with the
// shot's length; the counter "per_name" is the time of one Panel_t::name().
#include "host/Host.h"
#include "host/engine/HostStoryboardBuilder.h"
#include "naming/KRC_NameHelper.h"
#include "project/KRC_KrolleProject.h"

#include <benchmark/benchmark.h>

#include <QStringList>

#include <memory>

namespace {

constexpr int kPanels = 20000;

QString describe(int panelsPerShot)
{
    QStringList panels;
    for (int i = 0; i < panelsPerShot; ++i)
        panels << QStringLiteral("2");
    const QString shot = QStringLiteral("S[%1]").arg(panels.join(QLatin1Char(',')));
    QStringList shots;
    for (int i = 0; i < kPanels / panelsPerShot; ++i)
        shots << shot;
    return shots.join(QLatin1Char(' '));
}

// A project of kPanels panels over its own view.
struct NamedProject
{
    explicit NamedProject(int panelsPerShot)
        : board(HostStoryboardBuilder::build(describe(panelsPerShot)))
        , view(new KRC_KrolleProject(board.project.get()))
    {
    }
    ~NamedProject()
    {
        view.reset();
        board = HostStoryboard();
    }

    HostStoryboard board;
    std::unique_ptr<KRC_KrolleProject> view;
};

int nameEveryPanel(const KRC_KrolleProject& view)
{
    int count = 0;
    for (auto it = view.beginPanel(), end = view.endPanel(); it != end; ++it) {
        benchmark::DoNotOptimize((*it).name());
        ++count;
    }
    return count;
}

// Every panel named. Warm: the view's caches hold the handles of a first pass.
// After a change: the caches are dropped before each pass. Around custom names:
// every tenth panel is custom-named, so that the auto names number around them.
void BM_NameEveryPanel(benchmark::State& state, bool afterAChange, bool aroundCustomNames)
{
    NamedProject project(int(state.range(0)));
    int i = 0;
    for (auto it = project.view->beginPanel(), end = project.view->endPanel(); it != end; ++it, ++i) {
        if (aroundCustomNames && i % 10 == 3) {
            it->panelInfo()->name().setValue(QString::number(i % 7 + 1));
            it->panelInfo()->name().setFlag(KRC_ObjectName::kCustom);
        }
    }
    int names = nameEveryPanel(*project.view);
    for (auto _ : state) {
        if (afterAChange)
            project.view->invalidate();
        names = nameEveryPanel(*project.view);
    }
    state.counters["per_name"] = benchmark::Counter(
        names, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK_CAPTURE(BM_NameEveryPanel, warm, false, false)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_NameEveryPanel, afterAChange, true, false)
    ->Arg(10)
    ->Arg(100)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_NameEveryPanel, aroundCustomNames, false, true)
    ->Arg(10)
    ->Arg(100)
    ->Unit(benchmark::kMillisecond);

// The static core alone: the name at an index under rules that answer from the
// preferences (no store: their defaults).
void BM_NameAtIndex(benchmark::State& state)
{
    KRC_NamingRules rules;
    int index = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(KRC_NameHelper::getName(rules.panelRules(), index++ % 1000));
}
BENCHMARK(BM_NameAtIndex);

} // namespace
