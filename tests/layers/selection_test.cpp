// Layer selection step by step over two panels: what is remembered, what the engine's
// selection holds, the interface signals and the engine's selectionChanged after
// each step; global navigation, brush presets and the pitch-mode layer.
#include "layers/KRC_PanelLayerManager.h"
#include "support/ProjectBoard.h"
#include "support/ProjectInvariants.h"
#include "support/ScopedPreferences.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace {

using Manager = KRC_PanelLayerManager;
using namespace HostNodeAuthoring;

struct Step
{
    char const* what;
    std::function<bool()> act;
    bool result;
    char const* remembered; // getSelectedLayers of panel 0, in layer order
    char const* engine; // the engine's selection in panel 0, sorted
    int infoSignals; // layerInfoChanged before the engine's notify
    int engineSignals; // selectionChanged once the engine notifies
};

class LayerSelection : public testing::Test
{
protected:
    LayerSelection()
        : board("S[10,12]")
        , selection(&board.manager)
    {
        first = board.panelAt(0, 0).symbol();
        second = board.panelAt(0, 1).symbol();
        for (char const* name : { "BG", "A", "B", "C", "D", "E" })
            addDrawingElement(first->getRootGroup(), name, CA_DrawingKind::Kvg, "x.tvg", 1, 10);
        for (char const* name : { "B", "A" })
            addDrawingElement(second->getRootGroup(), name, CA_DrawingKind::Kvg, "y.tvg", 1, 12);
        board.notify();
        layers().setSelection(&selection);
    }

    Manager& layers() const { return *board->layerManager(); }
    QString remembered(TUScene const* scene) const
    {
        QStringList out;
        layers().getSelectedLayers(scene, out, Manager::LayerType_All, false);
        return out.join(',');
    }
    QString engine(TUScene const* scene) const
    {
        std::set<MO_Node*> nodes;
        Manager::layerSetFromSelection(board->getPanelByID(Krolle::objectId(scene)), &selection, nodes,
            Manager::LayerType_All);
        QStringList out;
        for (MO_Node const* node : nodes)
            out << node->instanceName();
        std::sort(out.begin(), out.end());
        return out.join(',');
    }
    QString current(TUScene const* scene) const
    {
        MO_Node const* node = layers().getCurrentLayer(scene);
        return node ? node->instanceName() : QString();
    }

    void run(std::vector<Step> const& steps)
    {
        QSignalSpy info(&layers(), &Manager::layerInfoChanged);
        QSignalSpy engineSpy(&board.manager, &TUSceneChangeManager::selectionChanged);
        for (Step const& step : steps) {
            info.clear();
            engineSpy.clear();
            EXPECT_EQ(step.act(), step.result) << step.what;
            EXPECT_EQ(info.count(), step.infoSignals) << step.what;
            board.notify();
            EXPECT_EQ(engineSpy.count(), step.engineSignals) << step.what;
            EXPECT_EQ(remembered(first), QString::fromLatin1(step.remembered)) << step.what;
            EXPECT_EQ(engine(first), QString::fromLatin1(step.engine)) << step.what;
            EXPECT_TRUE(projectViewIsConsistent(board.view())) << step.what;
        }
    }

    bool select(char const* name, Manager::eLayerSelectionMode mode)
    {
        return layers().selectLayer(first, QString::fromLatin1(name), mode, true);
    }

    ScopedPreferences preferences;
    ProjectBoard board;
    mutable SL_Selection selection;
    TUScene* first = nullptr;
    TUScene* second = nullptr;
};

TEST_F(LayerSelection, EveryModeWithItsSignalsThenThePanelsOwnMemory)
{
    run({
        { "replace", [&] { return select("B", Manager::eSelectReplace); }, true, "B", "B", 1, 1 },
        { "range up", [&] { return select("E", Manager::eSelectRange); }, true, "B,C,D,E", "B,C,D,E", 1, 1 },
        { "toggle off", [&] { return select("C", Manager::eSelectToggle); }, true, "B,D,E", "B,D,E", 1, 1 },
        { "range onto current", [&] { return select("B", Manager::eSelectRange); }, false, "B,D,E", "B,D,E", 0, 0 },
        { "add remembered", [&] { return select("D", Manager::eSelectAdd); }, true, "B,D,E", "B,D,E", 0, 0 },
        { "remove unknown", [&] { return select("A", Manager::eSelectRemove); }, true, "B,D,E", "B,D,E", 0, 0 },
        { "engine only", [&] { return select("A", Manager::eSelectEngineOnly); }, true, "B,D,E", "A,B,D,E", 1, 1 },
        { "toggle on", [&] { return select("C", Manager::eSelectToggle); }, true, "B,C,D,E", "A,B,C,D,E", 1, 1 },
        { "no such layer", [&] { return select("Z", Manager::eSelectAdd); }, false, "B,C,D,E", "A,B,C,D,E", 0, 0 },
        { "null node replace", [&] { return layers().selectLayer(first, static_cast<MO_Node*>(nullptr),
                                             Manager::eSelectReplace, true); },
            false, "B,C,D,E", "A,B,C,D,E", 0, 0 },
        { "clear with node", [&] { return select("E", Manager::eSelectClear); }, true, "E", "E", 2, 1 },
        { "range down", [&] { return select("B", Manager::eSelectRange); }, true, "B,C,D,E", "B,C,D,E", 1, 1 },
        { "clear all", [&] { return layers().clearSelection(true); }, true, "B,C,D,E", "", 1, 1 },
        { "prefered again", [&] { layers().selectPreferedLayers(board.panel(0, 0), false, false); return true; },
            true, "B,C,D,E", "B,C,D,E", 1, 1 },
        { "null clear", [&] { return layers().selectLayer(nullptr, static_cast<MO_Node*>(nullptr),
                                      Manager::eSelectClear, true); },
            true, "B,C,D,E", "", 1, 1 },
        { "select all", [&] { return layers().selectAllLayers(first, true); }, true, "BG,A,B,C,D,E",
            "A,B,BG,C,D,E", 1, 1 },
    });
    EXPECT_EQ(current(first), "BG"); // select all remembers in layer order
}

TEST_F(LayerSelection, RememberedOrderGlobalNavigationPresetsAndFallback)
{
    layers().setSelectedLayers(board.panel(0, 1), { "A", "Z", "B", "A" }, false);
    layers().selectPreferedLayers(second, true, false);
    EXPECT_EQ(QStringList({ remembered(second), current(second) }), QStringList({ "B,A", "A" }));

    QSignalSpy info(&layers(), &Manager::layerInfoChanged);
    layers().selectPreferedLayers(first, true, false); // keepEmpty: nothing new, still a signal
    EXPECT_EQ(engine(first), "");
    layers().selectPreferedLayers(first, false, false); // fallback: the first layer
    EXPECT_EQ(engine(first), "BG");
    EXPECT_EQ(info.count(), 2);

    preferences->setBoolValue("ST_ENABLE_GLOBAL_LAYER_NAVIGATION", true);
    layers().clearSelection(false);
    layers().setSelectedLayers({ board.panel(0, 0), board.panel(0, 1) }, { "BG", "A" }, false);
    layers().selectPreferedLayers({ board.panel(0, 0), board.panel(0, 1) }, false, false);
    EXPECT_EQ(QStringList({ current(first), current(second) }), QStringList({ "BG", "A" }));
    preferences->setBoolValue("ST_ENABLE_GLOBAL_LAYER_NAVIGATION", false); // each panel kept the shared list
    EXPECT_EQ(QStringList({ remembered(first), remembered(second) }), QStringList({ "BG,A", "A" }));
    preferences->setBoolValue("ST_ENABLE_GLOBAL_LAYER_NAVIGATION", true);

    layers().setBrushPresetLayer("Z");
    EXPECT_TRUE(layers().globalLayerNavigation()); // brush presets count only when switched on
    preferences->setBoolValue("ST_ENABLE_BRUSH_LAYER_SELECTION", true);
    EXPECT_FALSE(layers().globalLayerNavigation());
    layers().clearSelection(false);
    layers().selectPreferedLayers(first, false, false); // a preset never falls back
    EXPECT_EQ(engine(first), "");
    layers().setBrushPresetLayer("");
    EXPECT_TRUE(layers().globalLayerNavigation());
}

TEST_F(LayerSelection, PitchModeLayerIsTheOneFlagged16)
{
    KRC_LayerInfos* infos = board.panelAt(0, 0).layerInfos();
    EXPECT_EQ(layers().getPitchModeLayer(first), nullptr);
    infos->setLayerFlags("C", static_cast<LAYER_FLAGS>(16));
    QSignalSpy info(&layers(), &Manager::layerInfoChanged);
    MO_Node const* pitch = layers().selectPitchModeLayer(board.panel(0, 0), true);
    EXPECT_EQ(QStringList({ pitch ? pitch->instanceName() : QString(), engine(first) }), QStringList({ "C", "C" }));
    EXPECT_EQ(info.count(), 1);
    infos->setLayerFlags("D", static_cast<LAYER_FLAGS>(16));
    EXPECT_EQ(layers().getPitchModeLayer(first), nullptr); // two flagged count as none
}

TEST_F(LayerSelection, EveryOutputFormOfTheSelectedLayersSaysTheSame)
{
    auto const names = [](auto const& nodes) {
        QStringList out;
        for (MO_Node const* node : nodes)
            out << node->instanceName();
        std::sort(out.begin(), out.end());
        return out.join(',');
    };
    layers().setSelectedLayers(first, { "D", "B" }, false);
    layers().setSelectedLayers(second, { "A" }, false);
    std::vector<SC_Id> const ids { board.panel(0, 0), SC_Id(), board.panel(0, 1) };
    std::list<MO_Node*> list;
    std::set<MO_Node*> set;
    Manager::LayersByPanel map;
    layers().getSelectedLayers(ids, list, Manager::LayerType_All, false);
    layers().getSelectedLayers(ids, set, Manager::LayerType_All, false);
    layers().getSelectedLayers(ids, map, Manager::LayerType_All, false);
    ASSERT_EQ(map.size(), 2u);
    EXPECT_EQ(QStringList({ names(list), names(set), names(map[board.panel(0, 0)]), names(map[board.panel(0, 1)]) }),
        QStringList({ "A,B,D", "A,B,D", "B,D", "A" }));

    // A panel with nothing selected still gets its entry; an unknown id adds nothing.
    Manager::LayersByPanel onlySelected;
    EXPECT_EQ(layers().getSelectedLayers(board.panel(0, 1), onlySelected, Manager::LayerType_All, true), nullptr);
    EXPECT_EQ(layers().getSelectedLayers(SC_Id(), onlySelected, Manager::LayerType_All, false), nullptr);
    EXPECT_TRUE(onlySelected.size() == 1u && onlySelected.count(board.panel(0, 1)) == 1u);
    // Without a selection a panel's set is empty, not stale.
    std::set<MO_Node*> none { nullptr };
    Manager::layerSetFromSelection(board.panelAt(0, 0), nullptr, none, Manager::LayerType_All);
    EXPECT_TRUE(none.empty());
}

} // namespace
