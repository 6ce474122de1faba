// Interchange at 2,000 and 20,000 panels: a storyboard written as an OTIO cut from
// an open view, and a board built from that cut's bytes, as the tool's export and
// import commands do (without the project file's load and save), and the names report
// that every edit command prints.
#include "NameChanges.h"
#include "ProjectDocument.h"
#include "StoryboardPlan.h"
#include "Timecode.h"
#include "bench_boards.h"
#include "interchange/OtioReader.h"
#include "interchange/OtioWriter.h"
#include "interchange/StoryboardCut.h"

#include "project/KRC_KrolleProject.h"

#include <benchmark/benchmark.h>

#include <QJsonDocument>

#include <map>
#include <memory>

namespace {

const unsigned kPanelsPerShot = 10;
const unsigned kFps = 24;

// A generated storyboard like "krolle new" makes, built once per size.
ProjectDocument& boardOf(unsigned panels)
{
    static std::map<unsigned, std::unique_ptr<ProjectDocument>> boards;
    std::unique_ptr<ProjectDocument>& slot = boards[panels];
    if (!slot) {
        GeneratorSettings settings;
        settings.shots = panels / kPanelsPerShot;
        settings.panelsPerShot = kPanelsPerShot;
        settings.transitionEvery = 10;
        settings.acts = 5;
        settings.sequences = settings.shots / 20;
        slot.reset(new ProjectDocument);
        StoryboardPlan::generated(settings).build(*slot);
        // Kept for the whole run: a view that heard drawings would search its panels
        // for every drawing that a later benchmark reports.
        stopHearingDrawings(slot->view());
    }
    return *slot;
}

QByteArray otioOf(const ProjectDocument& board)
{
    const StoryboardCut cut = StoryboardCut::read(board.view(), StoryboardCut::By::Panel, QStringLiteral("bench"));
    const Timecode record(FrameRate(kFps, 1), 3600ull * kFps);
    return QJsonDocument(OtioWriter::write(cut, record)).toJson(QJsonDocument::Indented);
}

void BM_ExportOtio(benchmark::State& state)
{
    ProjectDocument& board = boardOf(unsigned(state.range(0)));
    for (auto _ : state) {
        board.view().invalidate(); // a fresh view, as the tool has after loading
        benchmark::DoNotOptimize(otioOf(board));
    }
    state.counters["per_panel_ns"] = benchmark::Counter(
        double(state.range(0)), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// The parts of the export: the cut read through a fresh view, that cut written as an
// OTIO tree of Qt's JSON values, and that tree serialised.
void BM_ExportOtioRead(benchmark::State& state)
{
    ProjectDocument& board = boardOf(unsigned(state.range(0)));
    for (auto _ : state) {
        board.view().invalidate();
        benchmark::DoNotOptimize(
            StoryboardCut::read(board.view(), StoryboardCut::By::Panel, QStringLiteral("bench")).items.size());
    }
}

void BM_ExportOtioWrite(benchmark::State& state)
{
    const StoryboardCut cut
        = StoryboardCut::read(boardOf(unsigned(state.range(0))).view(), StoryboardCut::By::Panel, QStringLiteral("bench"));
    const Timecode record(FrameRate(kFps, 1), 3600ull * kFps);
    for (auto _ : state)
        benchmark::DoNotOptimize(OtioWriter::write(cut, record).size());
}

void BM_ExportOtioSerialise(benchmark::State& state)
{
    const StoryboardCut cut
        = StoryboardCut::read(boardOf(unsigned(state.range(0))).view(), StoryboardCut::By::Panel, QStringLiteral("bench"));
    const QJsonDocument document(OtioWriter::write(cut, Timecode(FrameRate(kFps, 1), 3600ull * kFps)));
    for (auto _ : state)
        benchmark::DoNotOptimize(document.toJson(QJsonDocument::Indented).size());
}

void BM_ImportOtio(benchmark::State& state)
{
    const QByteArray otio = otioOf(boardOf(unsigned(state.range(0))));
    for (auto _ : state) {
        ProjectDocument document;
        const ImportedBoard board = OtioReader::read(otio, QStringLiteral("bench.otio"), 0);
        board.plan().build(document);
        board.applyPanelFacts(document.view());
        benchmark::DoNotOptimize(document.view().panelCount());
    }
    state.counters["per_panel_ns"] = benchmark::Counter(
        double(state.range(0)), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// The parts of the import: Qt's parse of the document alone, the document parsed, read
// and checked into a board description, and that description built in the engine and
// named through the library.
void BM_ImportOtioParse(benchmark::State& state)
{
    const QByteArray otio = otioOf(boardOf(unsigned(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(QJsonDocument::fromJson(otio).isObject());
}

void BM_ImportOtioRead(benchmark::State& state)
{
    const QByteArray otio = otioOf(boardOf(unsigned(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(OtioReader::read(otio, QStringLiteral("bench.otio"), 0).shots.size());
}

void BM_ImportOtioBuild(benchmark::State& state)
{
    const ImportedBoard board = OtioReader::read(otioOf(boardOf(unsigned(state.range(0)))), QStringLiteral("bench.otio"), 0);
    for (auto _ : state) {
        ProjectDocument document;
        board.plan().build(document);
        board.applyPanelFacts(document.view());
        benchmark::DoNotOptimize(document.view().panelCount());
    }
}

// The "what moved" report of every edit command: the names of all shots and panels
// taken before the edit and compared after it, here with no edit between, on a
// fresh view each time (as the tool has after loading).
void BM_WhatMoved(benchmark::State& state)
{
    ProjectDocument& board = boardOf(unsigned(state.range(0)));
    for (auto _ : state) {
        board.view().invalidate();
        const NameChanges names(board.view());
        benchmark::DoNotOptimize(names.since(board.view()));
    }
    state.counters["per_panel_ns"] = benchmark::Counter(
        double(state.range(0)), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// Timecodes: a drop-frame label and the way back, for every frame of an hour at 29.97.
void BM_DropFrameTimecodes(benchmark::State& state)
{
    const Timecode clock(FrameRate(30000, 1001, true));
    const unsigned long long frames = 107892; // one hour
    for (auto _ : state) {
        unsigned long long sum = 0;
        QString error;
        for (unsigned long long count = 0; count < frames; ++count) {
            unsigned long long back = 0;
            clock.count(clock.label(count), &back, &error);
            sum += back;
        }
        benchmark::DoNotOptimize(sum);
    }
    state.counters["per_frame_ns"] = benchmark::Counter(
        double(frames), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// "krolle new" without its save: the plan of shots, acts and sequences built in the engine.
void BM_GenerateBoard(benchmark::State& state)
{
    GeneratorSettings settings;
    settings.shots = unsigned(state.range(0));
    settings.panelsPerShot = kPanelsPerShot;
    settings.transitionEvery = 10;
    settings.acts = 5;
    settings.sequences = 100;
    for (auto _ : state) {
        ProjectDocument document;
        StoryboardPlan::generated(settings).build(document);
        benchmark::DoNotOptimize(document.view().panelCount());
    }
}

} // namespace

BENCHMARK(BM_WhatMoved)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DropFrameTimecodes)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GenerateBoard)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_ExportOtio)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportOtioRead)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportOtioWrite)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportOtioSerialise)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ImportOtio)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ImportOtioParse)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ImportOtioRead)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ImportOtioBuild)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
