// Layer lists of panels built with pegs, elements of every kind, nested nodes, locked
// and disabled layers; the view following engine edits, signal by signal; the drawing
// observer; the layer records kept through a save and a reload.
#include "host/engine/HostProjectFile.h"
#include "infofields/KRC_InfoFieldList.h"
#include "layers/KRC_PanelLayerManager.h"
#include "metadata/KRC_MetadataFactory.h"
#include "support/ProjectBoard.h"
#include "support/ProjectInvariants.h"
#include "tracking/KRC_DrawingObserver.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <gtest/gtest.h>

#include <functional>

namespace {

using Manager = KRC_PanelLayerManager;
using namespace HostNodeAuthoring;

// Three panels: the first holds every kind of node, the second one layer, the third none.
class PanelLayers : public CacheStateTest
{
protected:
    PanelLayers()
        : CacheStateTest("S[10,12] S[8]")
    {
        scene = board.panelAt(0, 0).symbol();
        TUGroup* root = scene->getRootGroup();
        bg = addDrawingElement(root, "BG", CA_DrawingKind::Bitmap, "bg.png", 1, 10);
        peg = addPeg(root, "Char");
        hero = addDrawingElement(root, "Hero", CA_DrawingKind::Kvg, "hero.tvg", 1, 10, peg);
        addDrawingElement(root, "Arm", CA_DrawingKind::Kvg, "arm.tvg", 1, 10, hero);
        addDrawingElement(addGroup(root, "FX"), "Dust", CA_DrawingKind::Kvg, "dust.tvg", 1, 10);
        addDrawingElement(root, "Set", CA_DrawingKind::Model3d, "set.obj", 1, 10);
        addElement(root, "Blank", CA_DrawingKind::Kvg); // nothing exposed: its key is invalid
        addNode(root, "MO_ElementModule", "Bare"); // no drawing attribute: no layer
        setLocked(addDrawingElement(root, "Locked", CA_DrawingKind::Kvg, "l.tvg", 1, 10), true);
        off = addDrawingElement(root, "Off", CA_DrawingKind::Kvg, "off.tvg", 1, 10);
        setOpacity(off, 40.0);
        setEnabled(off, false);
        setOpacity(hero, 30.0);
        setCameraAlignment(peg, CameraAlignment_FaceCamera);
        single = board.panelAt(0, 1).symbol();
        addDrawingElement(single->getRootGroup(), "Only", CA_DrawingKind::Kvg, "o.tvg", 1, 12);
        board.notify();
    }

    Manager& layers() const { return *board->layerManager(); }
    QStringList names(TUScene const* of, Manager::LayerType_t mask = Manager::LayerType_All) const
    {
        QStringList out;
        layers().getLayers(of, out, mask);
        return out;
    }

    TUScene* scene = nullptr;
    TUScene* single = nullptr;
    MO_ElementModule* bg = nullptr;
    TUPegModule* peg = nullptr;
    MO_ElementModule* hero = nullptr;
    MO_ElementModule* off = nullptr;
};

TEST_P(PanelLayers, ListsFollowTheWalkAndTheMask)
{
    const std::pair<int, QStringList> cases[] = {
        { Manager::LayerType_All, { "BG", "Char", "Dust", "Set", "Blank", "Locked", "Off" } },
        { Manager::LayerType_Drawing, { "BG", "Dust", "Locked", "Off" } },
        { Manager::LayerType_3d, { "Set" } },
        { Manager::LayerType_Other, { "Blank" } },
        { Manager::LayerType_Animated, { "Char" } },
        { 0, {} },
    };
    for (auto const& [mask, expected] : cases)
        EXPECT_EQ(names(scene, static_cast<Manager::LayerType_t>(mask)), expected) << mask;
    const SC_Id id = board.panel(0, 0);
    std::set<QString> set;
    EXPECT_TRUE(layers().getLayers(id, set));
    EXPECT_EQ(set.size(), 7u);
    std::list<MO_Node*> none;
    EXPECT_FALSE(layers().getLayers(board.panel(1, 0), none));
    EXPECT_FALSE(layers().getLayers(SC_Id(987654), none));
    EXPECT_EQ(layers().getLayersCount(board.panel(1, 0)), 0u);
    EXPECT_TRUE(projectViewIsConsistent(board.view()));
}

TEST_P(PanelLayers, IndicesMovesChildrenOpacityAndAlignment)
{
    EXPECT_EQ(layers().getLayerIdx(scene, off), 6u);
    EXPECT_EQ(layers().getLayerIdx(board.panel(0, 0), hero), Manager::invalidLayerIdx);
    EXPECT_EQ(layers().getLayerByIdx(scene, 1), peg);
    EXPECT_EQ(layers().getLayerByIdx(scene, layers().getLayersCount(scene)), nullptr);
    EXPECT_EQ(layers().getLayerByName(board.panel(0, 0), "Off"), off);
    EXPECT_EQ(layers().getLayerByName(scene, "Hero"), nullptr);
    MO_Node* only = layers().getLayerByIdx(single, 0);
    const std::tuple<TUScene const*, MO_Node const*, bool, bool> moves[] = {
        { scene, bg, false, true },
        { scene, off, true, false },
        { scene, peg, true, true },
        { scene, hero, false, false },
        { single, only, false, false },
        { nullptr, bg, false, false },
        { single, bg, false, false },
    };
    for (auto const& [in, node, up, down] : moves) {
        EXPECT_EQ(layers().canMoveLayerToTop(in, node), up)
            << (node ? node->instanceName().toStdString() : "");
        EXPECT_EQ(layers().canMoveLayerToBottom(in, node), down);
    }
    std::vector<MO_Node*> below;
    Manager::getNodeAndChildren(peg, below, true);
    ASSERT_EQ(below.size(), 3u);
    EXPECT_EQ(below[2]->instanceName(), QStringLiteral("Arm"));
    std::set<MO_Node*> underHero;
    Manager::getNodeAndChildren(hero, underHero, false);
    EXPECT_TRUE(underHero.empty());
    EXPECT_EQ(Manager::getOpacityForLayer(off), 40.0);
    EXPECT_EQ(Manager::getOpacityForLayer(peg), 100.0); // whatever its drawings' opacity
    EXPECT_EQ(Manager::getCameraAlignmentForLayer(peg), CameraAlignment_FaceCamera);
    EXPECT_EQ(Manager::getCameraAlignmentForLayer(scene->getRootGroup()), CameraAlignment_None);
    EXPECT_TRUE(Manager::isLayerOfType(peg, Manager::LayerType_Animated));
    EXPECT_FALSE(Manager::isLayerOfType(hero, Manager::LayerType_All));
}

// Each edit reaches the interface once per engine signal that names the panel, and for
// that panel only; the record gains the names of new layers and keeps the old ones.
TEST_P(PanelLayers, EngineEditsReachTheInterfaceOncePerPanelAndSignal)
{
    QSignalSpy changed(&layers(), &Manager::layerInfoChanged);
    QSignalSpy drawn(&layers(), &Manager::layerDrawingModified);
    QSignalSpy recordChanges(board->changeManager(), &TUSceneChangeManager::metadataChanged);
    struct Edit
    {
        const char* what;
        std::function<void()> apply;
        int infoSignals;
        int drawingSignals;
    };
    const Edit edits[] = {
        { "rename", [&] { rename(bg, "Sky"); }, 1, 0 },
        { "move", [&] { moveNode(off, scene->getRootGroup(), 0); }, 1, 0 },
        { "lock", [&] { setLocked(bg, true); }, 1, 0 },
        { "add", [&] { addPeg(scene->getRootGroup(), "Cam"); }, 1, 0 },
        { "remove", [&] { removeNode(layers().getLayerByName(scene, "Set")); }, 1, 0 },
        { "draw", [&] { ca_celCache->reportDrawingModified(hero->drawingAttr()->key(1.0)); }, 0, 1 },
        { "three renames at once",
            [&] {
                for (MO_Node* node : std::initializer_list<MO_Node*> { bg, peg, off })
                    rename(node, node->instanceName() + "2");
            },
            1, 0 },
    };
    for (Edit const& edit : edits) {
        changed.clear();
        drawn.clear();
        edit.apply();
        board.notify();
        EXPECT_EQ(changed.count(), edit.infoSignals) << edit.what;
        EXPECT_EQ(drawn.count(), edit.drawingSignals) << edit.what;
        for (QList<QVariant> const& signal : changed + drawn)
            EXPECT_EQ(signal.at(0).value<TUScene*>(), scene) << edit.what;
        EXPECT_TRUE(projectViewIsConsistent(board.view())) << edit.what;
    }
    KRC_LayerInfos* infos = board.panelAt(0, 0).layerInfos();
    for (const char* name : { "BG", "Sky", "Sky2", "Cam", "Set" })
        EXPECT_NE(infos->info(name), KRC_LayerInfos::Entry()) << name;
    EXPECT_GE(recordChanges.count(), 3);
}

TEST_P(PanelLayers, DrawingsAreFoundOnceThenRememberedEvenPastTheirPanel)
{
    KRC_DrawingObserver* observer = board->drawingObserver();
    QSignalSpy found(observer, &KRC_DrawingObserver::drawingModified);
    QSignalSpy drawn(&layers(), &Manager::layerDrawingModified);
    layers().setLayerDrawingFlag(hero, static_cast<Manager::eDrawingFlag>(3));
    ca_celCache->reportDrawingModified(CA_CelKey());
    ca_celCache->reportDrawingModified(CA_CelKeyElement(99999, 1, CA_DrawingKind::Kvg, "x.tvg"));
    EXPECT_EQ(found.count(), 0);
    EXPECT_EQ(observer->knownDrawingCount(), 0u);
    MO_Node* only = layers().getLayerByIdx(single, 0);
    const CA_CelKey key = static_cast<MO_ElementModule*>(only)->drawingAttr()->key(1.0);
    for (int report = 1; report <= 2; ++report) {
        ca_celCache->reportDrawingModified(key);
        ASSERT_EQ(found.count(), report);
        EXPECT_EQ(found.last().at(0).value<SC_Id>(), board.panel(0, 1));
        EXPECT_EQ(observer->knownDrawingCount(), 1u);
    }
    ca_celCache->reportDrawingModified(hero->drawingAttr()->key(1.0));
    EXPECT_EQ(layers().getLayerDrawingFlag(hero), Manager::DrawingFlag_None);
    EXPECT_EQ(drawn.count(), 3);

    // A drawing shown through a panel's image field is found by its file; a text field
    // that merely names the file, on a panel walked first, is no match.
    const int sketch = board->insertInfoField(true, KRC_InfoFieldDesc::kImage, "Sketch", INT_MAX, INT_MAX, false);
    const int note = board->insertInfoField(true, KRC_InfoFieldDesc::kText, "Note", INT_MAX, INT_MAX, false);
    board.panelAt(1, 0).infoFieldList()->getInfoField(sketch)->setValue("boards/p1.png");
    board.panelAt(0, 0).infoFieldList()->getInfoField(note)->setValue("boards/p1.png");
    const QString dir = board.project()->projectCommon()->dbSceneData()->projectDir();
    ca_celCache->reportDrawingModified(CA_CelKeyPath(dir + "/boards/p1.png", 1, false));
    ASSERT_EQ(found.count(), 4);
    EXPECT_EQ(found.last().at(0).value<SC_Id>(), board.panel(1, 0));

    // Once its panel is gone the key still names the old id; the layer manager finds no panel.
    ASSERT_TRUE(HostAuthoring::removePanel(board.project(), board.panel(0, 1)));
    board.notify();
    ca_celCache->reportDrawingModified(key);
    EXPECT_EQ(found.last().at(0).value<SC_Id>(), board.panel(0, 1));
    EXPECT_EQ(drawn.count(), 3);
    EXPECT_TRUE(projectViewIsConsistent(board.view()));
}

TEST_P(PanelLayers, LayerRecordsSurviveASaveAndAReload)
{
    board.panelAt(0, 0).layerInfos()->setLayerFlags("Off", LAYER_PitchMode);
    board.panelAt(0, 0).tracking()->setIsTracked(true);
    KRC_MetadataFactory::createInstance(); // as a host does at start-up
    // A file may number an element 0, which no element made in a session gets.
    const QByteArray saved = QString::fromUtf8(HostProjectFile::toXml(board.project()))
                                 .replace(QRegularExpression("<element id=\"\\d+\" name=\"Only\""),
                                     "<element id=\"0\" name=\"Only\"")
                                 .toUtf8();
    KRC_SceneChangeManager manager;
    const UT_SharedPtr<SC_Project> reloaded = HostProjectFile::fromXml(saved, nullptr, &manager);
    ASSERT_TRUE(reloaded);
    KRC_KrolleProject view(reloaded.get());
    const Krolle::Panel_t panel = view.getPanelByID(board.panel(0, 0));
    QStringList stored;
    for (KRC_LayerInfos::Entry const& entry : *panel.layerInfos())
        stored << entry->name;
    stored.sort();
    QStringList listed = names(scene);
    listed.sort();
    EXPECT_EQ(stored, listed);
    EXPECT_EQ(panel.layerInfos()->layerFlags("Off"), LAYER_PitchMode);
    EXPECT_TRUE(panel.tracking()->isTracked());
    QStringList reread;
    view.layerManager()->getLayers(panel.symbol(), reread);
    EXPECT_EQ(reread, names(scene));

    const Krolle::Panel_t second = view.getPanelByID(board.panel(0, 1));
    auto* zero = static_cast<MO_ElementModule*>(view.layerManager()->getLayerByIdx(second.symbol(), 0));
    ASSERT_EQ(zero->drawingAttr()->timedValue()->elementId(), 0);
    QSignalSpy found(view.drawingObserver(), &KRC_DrawingObserver::drawingModified);
    ca_celCache->reportDrawingModified(zero->drawingAttr()->key(1.0));
    ASSERT_EQ(found.count(), 1);
    EXPECT_EQ(found.last().at(0).value<SC_Id>(), board.panel(0, 1));
}

INSTANTIATE_CACHE_STATES(Layers, PanelLayers);

} // namespace
