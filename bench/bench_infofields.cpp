// Info fields on large projects: a panel field added, removed and put back across
// every panel, and a save and reload of a project whose panels carry field values.
#include "bench_boards.h"

#include "host/engine/HostEngine.h"
#include "infofields/KRC_InfoFieldList.h"
#include "metadata/KRC_MetadataFactory.h"

#include <QTextDocument>

namespace {

constexpr int kFieldsPerPanel = 5;

/// The kinds of value a reload benchmark writes on each panel: none, rich text as an
/// editor stores it, or plain text that the reader turns into rich text.
enum Values : int64_t
{
    kNoFields = 0,
    kRichText = 1,
    kPlainText = 2
};

/// A fresh board per size and kind, with five panel fields valued on every panel.
BenchBoard& boardWithFields(unsigned panels, int64_t values)
{
    static std::map<std::pair<unsigned, int64_t>, std::unique_ptr<BenchBoard>> boards;
    std::unique_ptr<BenchBoard>& slot = boards[{ panels, values }];
    if (slot)
        return *slot;
    slot = BenchBoard::fresh(panels);
    KRC_KrolleProject& view = *slot->view;
    // A panel's first handle gives it its records (names, tracking, layers, exposure,
    // sound, export options), as in any project a host has saved; every board gets them,
    // so that the boards differ by their fields alone.
    for (Krolle::Panel_t const& panel : Krolle::range(view.beginPanel(), view.endPanel()))
        benchmark::DoNotOptimize(panel.panelInfo());
    if (values == kNoFields)
        return *slot;
    for (int field = 0; field < kFieldsPerPanel; ++field)
        view.insertInfoField(true, KRC_InfoFieldDesc::kText, QStringLiteral("Field %1").arg(field), INT_MAX, INT_MAX, false);
    QTextDocument document;
    document.setPlainText(QStringLiteral("A line of dialogue for this panel"));
    const QString text = values == kRichText ? document.toHtml(QByteArray()) : document.toPlainText();
    for (Krolle::Panel_t const& panel : Krolle::range(view.beginPanel(), view.endPanel())) {
        for (UT_SharedPtr<KRC_InfoField> const& field : *panel.infoFieldList())
            field->setValue(text);
    }
    return *slot;
}

// Adds a sixth panel field, removes it and puts it back with the saved values: the
// cost of a user's add, then undo of a removal, on every panel. The second argument
// flushes the processor's caches before each pass (see "How the project view is
// measured").
void BM_InfoFieldAddRemoveRestore(benchmark::State& state)
{
    BenchBoard& board = boardWithFields(unsigned(state.range(0)), kRichText);
    KRC_KrolleProject& view = *board.view;
    for (auto _ : state) {
        untimedStart(state, nullptr, state.range(1) != 0);
        const int id = view.insertInfoField(true, KRC_InfoFieldDesc::kText, QStringLiteral("Extra"), INT_MAX, 2, true);
        KRC_InfoFieldDesc desc;
        KRC_InfoFieldList values;
        const int next = view.removeInfoField(true, id, desc, values, true);
        view.insertInfoField(true, desc, values, next, true);
        state.PauseTiming();
        KRC_InfoFieldList dropped;
        view.removeInfoField(true, id, desc, dropped, false);
        board.manager.notify();
        state.ResumeTiming();
    }
}

// Writes the whole project file and reads it back.
void BM_InfoFieldSaveReload(benchmark::State& state)
{
    KRC_MetadataFactory::createInstance();
    BenchBoard& board = boardWithFields(unsigned(state.range(0)), state.range(1));
    for (auto _ : state) {
        UT_SharedPtr<SC_Project> loaded = HostProjectFile::fromXml(HostProjectFile::toXml(board.board.project.get()));
        if (!loaded)
            state.SkipWithError("reload failed");
        benchmark::DoNotOptimize(loaded.get());
    }
}

} // namespace

BENCHMARK(BM_InfoFieldAddRemoveRestore)->ArgsProduct({ { 2000, 20000 }, { 0, 1 } })->Unit(benchmark::kMillisecond);
BENCHMARK(BM_InfoFieldSaveReload)
    ->ArgsProduct({ { 2000, 20000 }, { kNoFields, kRichText, kPlainText } })
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
