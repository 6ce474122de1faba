// Panel layers over projects of 2,000 and 20,000 panels with five layers each (a
// bitmap background, two drawings, a peg and a 3D model, as `krolle new --layers 5`
// draws them). Listing every panel's layers the way `krolle layers` describes one
// (kind, opacity, flags, the nodes below) is set against a plain walk of the same
// panels: nothing is cached, so it must stay a bounded multiple of the walk and grow
// with the panels. A drawing that the observer already knows is one map lookup; a key
// that no panel shows is searched through every panel each time, the cost of a first
// search at its worst.
#include "bench_boards.h"
#include "layers/KRC_PanelLayerManager.h"
#include "tracking/KRC_ConcreteVisitor.h"

#include <benchmark/benchmark.h>

namespace {

using Manager = KRC_PanelLayerManager;

/// A project of `panels` 3-frame panels, ten to a shot, each holding five layers.
struct LayerBoard
{
    KRC_SceneChangeManager manager;
    HostStoryboard board;
    std::unique_ptr<KRC_KrolleProject> view;
    CA_CelKey lastDrawing; // the drawing of the last panel's background

    static LayerBoard& ofPanels(unsigned panels)
    {
        static std::map<unsigned, std::unique_ptr<LayerBoard>> boards;
        std::unique_ptr<LayerBoard>& slot = boards[panels];
        if (!slot) {
            slot.reset(new LayerBoard);
            QStringList shots;
            for (unsigned shot = 0; shot < panels / 10; ++shot)
                shots << QStringLiteral("S[3,3,3,3,3,3,3,3,3,3]");
            slot->board = HostStoryboardBuilder::build(shots.join(QLatin1Char(' ')), nullptr, &slot->manager);
            for (auto const& shot : slot->board.panels) {
                for (SC_Id const& panel : shot)
                    slot->lastDrawing = slot->drawLayers(panel);
            }
            slot->manager.clear();
        }
        // One view at a time: every view's observer hears every drawing of the process.
        for (auto& other : boards)
            other.second->view.reset();
        slot->view.reset(new KRC_KrolleProject(slot->board.project.get()));
        return *slot;
    }

private:
    CA_CelKey drawLayers(SC_Id const& panel)
    {
        using namespace HostNodeAuthoring;
        auto* scene = dynamic_cast<TUScene*>(board.project->projectCommon()->sceneManager()->find(panel));
        TUGroup* root = scene->getRootGroup();
        MO_ElementModule* bg = addDrawingElement(root, "Background", CA_DrawingKind::Bitmap, "bg.png", 1, 3);
        addDrawingElement(root, "Layer1", CA_DrawingKind::Kvg, "l1.tvg", 1, 3);
        addDrawingElement(root, "Layer2", CA_DrawingKind::Kvg, "l2.tvg", 1, 3);
        addPeg(root, "Layer3");
        addDrawingElement(root, "Layer4", CA_DrawingKind::Model3d, "l4.obj", 1, 3);
        return bg->drawingAttr()->key(1.0);
    }
};

// A pass over every panel, the caches of the view warm (the handles made once before);
// with `flush`, the processor's caches are emptied before each pass (bench_boards.h).
template <class PerPanel> void passOverEveryPanel(benchmark::State& state, bool flush, PerPanel perPanel)
{
    KRC_KrolleProject& view = *LayerBoard::ofPanels(unsigned(state.range(0))).view;
    for (auto panel = view.beginPanel(), end = view.endPanel(); panel != end; ++panel)
        benchmark::DoNotOptimize(panel->symbol());
    for (auto _ : state) {
        untimedStart(state, nullptr, flush);
        for (auto panel = view.beginPanel(), end = view.endPanel(); panel != end; ++panel)
            perPanel(*view.layerManager(), *panel);
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * state.range(0));
}

void walk(Manager const&, Krolle::Panel_t const& panel)
{
    benchmark::DoNotOptimize(panel.symbol());
}

// What `krolle outline --layers` asks of each panel.
void count(Manager const& layers, Krolle::Panel_t const& panel)
{
    benchmark::DoNotOptimize(layers.getLayersCount(panel.symbol()));
}

// What `krolle layers` asks of each layer of a panel.
void describe(Manager const& layers, Krolle::Panel_t const& panel)
{
    std::vector<MO_Node*> found;
    std::vector<MO_Node*> below;
    layers.getLayers(panel.symbol(), found);
    for (MO_Node* layer : found) {
        below.clear();
        Manager::getNodeAndChildren(layer, below, false);
        benchmark::DoNotOptimize(layer->instanceName());
        benchmark::DoNotOptimize(Manager::isLayerOfType(layer, Manager::LayerType_Drawing));
        benchmark::DoNotOptimize(Manager::getOpacityForLayer(layer));
        benchmark::DoNotOptimize(Manager::getCameraAlignmentForLayer(layer));
        benchmark::DoNotOptimize(panel.layerInfos()->layerFlags(layer->instanceName()));
    }
}

void BM_WalkPanels(benchmark::State& state)
{
    passOverEveryPanel(state, false, walk);
}

void BM_WalkPanelsFlushed(benchmark::State& state)
{
    passOverEveryPanel(state, true, walk);
}

void BM_CountLayersOfEveryPanel(benchmark::State& state)
{
    passOverEveryPanel(state, false, count);
}

void BM_CountLayersOfEveryPanelFlushed(benchmark::State& state)
{
    passOverEveryPanel(state, true, count);
}

void BM_DescribeLayersOfEveryPanel(benchmark::State& state)
{
    passOverEveryPanel(state, false, describe);
}

void BM_DrawingModifiedKnown(benchmark::State& state)
{
    LayerBoard& board = LayerBoard::ofPanels(unsigned(state.range(0)));
    ca_celCache->reportDrawingModified(board.lastDrawing); // found once, remembered
    for (auto _ : state)
        ca_celCache->reportDrawingModified(board.lastDrawing);
}

void searchUnknownDrawing(benchmark::State& state, bool flush)
{
    LayerBoard::ofPanels(unsigned(state.range(0)));
    const CA_CelKey unknown(CA_CelKeyElement(0x7FFFFFF0, 1, CA_DrawingKind::Kvg, QStringLiteral("none.tvg")));
    ca_celCache->reportDrawingModified(unknown); // the view's handles, made once
    for (auto _ : state) {
        untimedStart(state, nullptr, flush);
        ca_celCache->reportDrawingModified(unknown);
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * state.range(0));
}

void BM_DrawingModifiedSearch(benchmark::State& state)
{
    searchUnknownDrawing(state, false);
}

void BM_DrawingModifiedSearchFlushed(benchmark::State& state)
{
    searchUnknownDrawing(state, true);
}

// Layer selection and drawings. Collecting every panel's drawings must grow with the
// panels; selecting a layer by name on the next panel must cost that panel's layers
// alone, whatever the size of the project.
void collect(Manager const&, Krolle::Panel_t const& panel)
{
    std::list<KRC_ConcreteVisitor::ElementKey> found;
    KRC_ConcreteVisitor::getDrawings(panel, found, false);
    benchmark::DoNotOptimize(found.size());
}

void BM_CollectDrawingsOfEveryPanel(benchmark::State& state)
{
    passOverEveryPanel(state, false, collect);
}

/// Lends a selection to a layer manager for one benchmark and takes it back, so that
/// no later benchmark finds the manager pointing at a selection that is gone.
class SelectionLoan
{
public:
    explicit SelectionLoan(Manager* manager)
        : m_manager(manager)
    {
        m_manager->setSelection(&m_selection);
    }
    ~SelectionLoan() { m_manager->setSelection(nullptr); }
    SelectionLoan(SelectionLoan const&) = delete;
    SelectionLoan& operator=(SelectionLoan const&) = delete;

private:
    Manager* const m_manager;
    SL_Selection m_selection;
};

void BM_SelectLayerOnNextPanel(benchmark::State& state)
{
    KRC_KrolleProject& view = *LayerBoard::ofPanels(unsigned(state.range(0))).view;
    SelectionLoan const loan(view.layerManager());
    auto panel = view.beginPanel();
    for (auto _ : state) {
        if (++panel == view.endPanel())
            panel = view.beginPanel();
        view.layerManager()->selectLayer(panel->symbol(), QStringLiteral("Layer2"),
            Manager::eSelectReplace, false);
    }
}

BENCHMARK(BM_CollectDrawingsOfEveryPanel)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SelectLayerOnNextPanel)->Arg(2000)->Arg(20000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_WalkPanels)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WalkPanelsFlushed)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CountLayersOfEveryPanel)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CountLayersOfEveryPanelFlushed)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DescribeLayersOfEveryPanel)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DrawingModifiedKnown)->Arg(2000)->Arg(20000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_DrawingModifiedSearch)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DrawingModifiedSearchFlushed)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);

} // namespace
