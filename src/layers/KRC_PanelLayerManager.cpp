#include "layers/KRC_PanelLayerManager.h"

#include "layers/ElementModuleCollector.h"
#include "layers/SubElementModuleCollector.h"
#include "project/KRC_KrolleProject.h"
#include "tracking/KRC_DrawingObserver.h"

#include <algorithm>
#include <map>

unsigned const KRC_PanelLayerManager::invalidLayerIdx;
QString const KRC_PanelLayerManager::pitchModeLayerName = QStringLiteral("Comments");

namespace {

QString const kGlobalNavigationKey = QStringLiteral("ST_ENABLE_GLOBAL_LAYER_NAVIGATION");
QString const kBrushLayerSelectionKey = QStringLiteral("ST_ENABLE_BRUSH_LAYER_SELECTION");
// The change code under which the record reports entries added for new layers.
int const kLayerInfosAddedCode = 10;
// All kinds but 3D: the layers whose opacity a peg could stand for.
auto const kOpacityKinds = static_cast<KRC_PanelLayerManager::LayerType_t>(
    KRC_PanelLayerManager::LayerType_All & ~KRC_PanelLayerManager::LayerType_3d);

} // namespace

class KRC_PanelLayerManagerPrivate
{
public:
    explicit KRC_PanelLayerManagerPrivate(KRC_KrolleProject* owner)
        : project(owner)
    {
    }

    KRC_KrolleProject* const project;
    bool globalNavigation = false;
    bool brushLayerSelection = false;
    /// The host's flags by node, ordered by pointer value.
    std::map<MO_Node const*, KRC_PanelLayerManager::eDrawingFlag> drawingFlags;
};

KRC_PanelLayerManager::KRC_PanelLayerManager(KRC_KrolleProject* project)
    : QObject()
    , d(std::make_unique<KRC_PanelLayerManagerPrivate>(project))
{
    qRegisterMetaType<TUScene*>("TUScene*");
    connect(project->drawingObserver(), &KRC_DrawingObserver::drawingModified, this,
        &KRC_PanelLayerManager::onDrawingModified);
    if (TUSceneChangeManager* manager = project->changeManager()) {
        auto const nodeSetSlot = qOverload<TUNodeSet const&>(&KRC_PanelLayerManager::updateLayerList);
        connect(manager, &TUSceneChangeManager::subNetworkChanged, this, nodeSetSlot);
        connect(manager, &TUSceneChangeManager::networkChanged, this, nodeSetSlot);
        connect(manager, &TUSceneChangeManager::nodeChangeApplied, this,
            qOverload<MO_Node*>(&KRC_PanelLayerManager::updateLayerList));
        connect(manager, &TUSceneChangeManager::nodeInstanceNamesChanged, this, nodeSetSlot);
        connect(manager, &TUSceneChangeManager::childrenOrderingChanged, this, nodeSetSlot);
        connect(manager, &TUSceneChangeManager::nodeLinksChanged, this, nodeSetSlot);
        connect(manager, &TUSceneChangeManager::selectionChanged, this,
            qOverload<>(&KRC_PanelLayerManager::updateLayerList));
    }
    if (tuPref)
        connect(tuPref, &PR_Preference::preferenceChanged, this, &KRC_PanelLayerManager::loadPreferences);
    loadPreferences();
}

KRC_PanelLayerManager::~KRC_PanelLayerManager() = default;

void KRC_PanelLayerManager::notifyChange(TUScene* scene)
{
    emit layerInfoChanged(scene);
}

void KRC_PanelLayerManager::loadPreferences()
{
    d->globalNavigation = tuPref && tuPref->getBoolValue(kGlobalNavigationKey, false);
    d->brushLayerSelection = tuPref && tuPref->getBoolValue(kBrushLayerSelectionKey, false);
}

// Layer lists.

bool KRC_PanelLayerManager::getLayers(
    TUScene const* scene, std::vector<MO_Node*>& out, LayerType_t mask) const
{
    if (!scene)
        return false;
    ElementModuleCollector collector(out, mask);
    scene->getRootGroup()->accept(collector);
    return !out.empty();
}

bool KRC_PanelLayerManager::getLayers(TUScene const* scene, std::list<MO_Node*>& out, LayerType_t mask) const
{
    std::vector<MO_Node*> found;
    getLayers(scene, found, mask);
    out.insert(out.end(), found.begin(), found.end());
    return !found.empty();
}

bool KRC_PanelLayerManager::getLayers(SC_Id const& panelId, std::list<MO_Node*>& out, LayerType_t mask) const
{
    return getLayers(sceneOf(panelId), out, mask);
}

template <class Names>
bool KRC_PanelLayerManager::appendNames(TUScene const* scene, Names& out, LayerType_t mask) const
{
    std::vector<MO_Node*> found;
    getLayers(scene, found, mask);
    for (MO_Node const* node : found)
        out.insert(out.end(), node->instanceName());
    return !found.empty();
}

bool KRC_PanelLayerManager::getLayers(TUScene const* scene, QStringList& out, LayerType_t mask) const
{
    return appendNames(scene, out, mask);
}

bool KRC_PanelLayerManager::getLayers(SC_Id const& panelId, QStringList& out, LayerType_t mask) const
{
    return appendNames(sceneOf(panelId), out, mask);
}

bool KRC_PanelLayerManager::getLayers(TUScene const* scene, std::set<QString>& out, LayerType_t mask) const
{
    return appendNames(scene, out, mask);
}

bool KRC_PanelLayerManager::getLayers(SC_Id const& panelId, std::set<QString>& out, LayerType_t mask) const
{
    return appendNames(sceneOf(panelId), out, mask);
}

// Layers by name and index.

MO_Node* KRC_PanelLayerManager::getLayerByName(TUScene const* scene, QString const& name) const
{
    std::vector<MO_Node*> layers;
    getLayers(scene, layers);
    auto found = std::find_if(
        layers.begin(), layers.end(), [&](MO_Node const* node) { return node->instanceName() == name; });
    return found != layers.end() ? *found : nullptr;
}

MO_Node* KRC_PanelLayerManager::getLayerByName(SC_Id const& panelId, QString const& name) const
{
    return getLayerByName(sceneOf(panelId), name);
}

MO_Node* KRC_PanelLayerManager::getLayerByIdx(TUScene const* scene, unsigned index) const
{
    std::vector<MO_Node*> layers;
    getLayers(scene, layers);
    return index < layers.size() ? layers[index] : nullptr;
}

MO_Node* KRC_PanelLayerManager::getLayerByIdx(SC_Id const& panelId, unsigned index) const
{
    return getLayerByIdx(sceneOf(panelId), index);
}

unsigned KRC_PanelLayerManager::indexIn(std::vector<MO_Node*> const& layers, MO_Node const* node)
{
    std::vector<MO_Node*>::const_iterator it;
    return getLayerIterator(node, layers, it) ? static_cast<unsigned>(it - layers.begin()) : invalidLayerIdx;
}

unsigned KRC_PanelLayerManager::getLayerIdx(TUScene const* scene, MO_Node const* node) const
{
    std::vector<MO_Node*> layers;
    getLayers(scene, layers);
    return indexIn(layers, node);
}

unsigned KRC_PanelLayerManager::getLayerIdx(SC_Id const& panelId, MO_Node const* node) const
{
    return getLayerIdx(sceneOf(panelId), node);
}

unsigned KRC_PanelLayerManager::getLayersCount(TUScene const* scene) const
{
    std::vector<MO_Node*> layers;
    getLayers(scene, layers);
    return static_cast<unsigned>(layers.size());
}

unsigned KRC_PanelLayerManager::getLayersCount(SC_Id const& panelId) const
{
    return getLayersCount(sceneOf(panelId));
}

// Moves.

bool KRC_PanelLayerManager::canMoveLayerUp(TUScene const* scene, MO_Node const* node) const
{
    if (!scene || !node)
        return false;
    const unsigned index = getLayerIdx(scene, node);
    return index != invalidLayerIdx && index > 0;
}

bool KRC_PanelLayerManager::canMoveLayerDown(TUScene const* scene, MO_Node const* node) const
{
    if (!scene || !node)
        return false;
    std::vector<MO_Node*> layers;
    getLayers(scene, layers);
    const unsigned index = indexIn(layers, node);
    return index != invalidLayerIdx && index + 1 < layers.size();
}

bool KRC_PanelLayerManager::canMoveLayerToTop(TUScene const* scene, MO_Node const* node) const
{
    return canMoveLayerUp(scene, node);
}

bool KRC_PanelLayerManager::canMoveLayerToBottom(TUScene const* scene, MO_Node const* node) const
{
    return canMoveLayerDown(scene, node);
}

bool KRC_PanelLayerManager::getLayerIterator(
    MO_Node const* node, std::vector<MO_Node*> const& layers, std::vector<MO_Node*>::const_iterator& it)
{
    it = std::find(layers.begin(), layers.end(), node);
    return it != layers.end();
}

// Static queries on nodes.

bool KRC_PanelLayerManager::isLayerOfType(MO_Node* node, LayerType_t mask)
{
    if (!node)
        return false;
    std::vector<MO_Node*> collected;
    ElementModuleCollector collector(collected, mask);
    node->accept(collector);
    return std::find(collected.begin(), collected.end(), node) != collected.end();
}

MO_Node* KRC_PanelLayerManager::getTopLevelNode(MO_Node const* node)
{
    if (!node)
        return nullptr;
    while (MO_Node* parent = node->getParentNode())
        node = parent;
    return const_cast<MO_Node*>(node);
}

void KRC_PanelLayerManager::getNodeAndChildren(
    MO_Node const* node, std::vector<MO_Node*>& out, bool includeNode)
{
    if (!node)
        return;
    if (includeNode)
        out.push_back(const_cast<MO_Node*>(node));
    SC_SceneCommon* scene = node->sceneCommon();
    if (!scene || !scene->rootGroup())
        return;
    SubElementModuleCollector collector(node, out);
    scene->rootGroup()->accept(collector);
}

void KRC_PanelLayerManager::getNodeAndChildren(
    MO_Node const* node, std::list<MO_Node*>& out, bool includeNode)
{
    std::vector<MO_Node*> found;
    getNodeAndChildren(node, found, includeNode);
    out.insert(out.end(), found.begin(), found.end());
}

void KRC_PanelLayerManager::getNodeAndChildren(MO_Node const* node, std::set<MO_Node*>& out, bool includeNode)
{
    std::vector<MO_Node*> found;
    getNodeAndChildren(node, found, includeNode);
    out.insert(found.begin(), found.end());
}

double KRC_PanelLayerManager::getOpacityForLayer(MO_Node const* node)
{
    static double const kOpaque = 100.0;
    if (auto const* element = dynamic_cast<MO_ElementModule const*>(node)) {
        AT_DoubleAttr const* opacity = element->opacityAttr();
        return opacity ? opacity->localValue() : kOpaque;
    }
    if (dynamic_cast<TUPegModule const*>(node)) {
        // The entries under a peg all have a parent, and isLayerOfType refuses those:
        // a peg reports full opacity, whatever its drawings'.
        std::vector<MO_Node*> below;
        getNodeAndChildren(node, below, false);
        for (MO_Node* entry : below) {
            if (dynamic_cast<MO_ElementModule*>(entry) && isLayerOfType(entry, kOpacityKinds))
                return getOpacityForLayer(entry);
        }
    }
    return kOpaque;
}

CameraAlignment KRC_PanelLayerManager::getCameraAlignmentForLayer(MO_Node const* node)
{
    auto const* module = dynamic_cast<MO_AnimatedModule const*>(node);
    return module ? module->cameraAlignment() : CameraAlignment_None;
}

// Drawing flags.

KRC_PanelLayerManager::eDrawingFlag KRC_PanelLayerManager::getLayerDrawingFlag(MO_Node const* node) const
{
    auto found = d->drawingFlags.find(node);
    return found != d->drawingFlags.end() ? found->second : DrawingFlag_None;
}

void KRC_PanelLayerManager::setLayerDrawingFlag(MO_Node const* node, eDrawingFlag flag)
{
    d->drawingFlags[node] = flag;
}

// Upkeep and signals.

void KRC_PanelLayerManager::updateLayerList()
{
    emit layerInfoChanged(nullptr);
}

void KRC_PanelLayerManager::updateLayerList(MO_Node* node)
{
    if (!node)
        return;
    const Krolle::Panel_t panel = d->project->nodeToPanel(node);
    if (panel.isValid())
        doUpdateLayerList(panel);
}

void KRC_PanelLayerManager::updateLayerList(TUNodeSet const& nodes)
{
    std::set<SC_Id> updated;
    for (UT_SharedWeakPtr<MO_Node> const& weak : nodes) {
        const UT_SharedPtr<MO_Node> node(weak.get());
        if (!node)
            continue;
        const Krolle::Panel_t panel = d->project->nodeToPanel(node.get());
        if (panel.isValid() && updated.insert(panel.id()).second)
            doUpdateLayerList(panel);
    }
}

void KRC_PanelLayerManager::doUpdateLayerList(Krolle::Panel_t const& panel)
{
    if (panel.isInvalid())
        return;
    std::set<QString> names;
    KRC_LayerInfos* infos = panel.layerInfos();
    if (getLayers(panel.symbol(), names) && infos) {
        bool added = false;
        for (QString const& name : names) {
            if (!infos->info(name, false)) {
                infos->info(name, true);
                added = true;
            }
        }
        if (added)
            infos->emitChanged(d->project->changeManager(), kLayerInfosAddedCode);
    }
    emit layerInfoChanged(panel.symbol());
}

void KRC_PanelLayerManager::onDrawingModified(SC_Id const& panelId, MO_Node const* node)
{
    if (!node)
        return;
    d->drawingFlags.erase(node);
    const Krolle::Panel_t panel = d->project->getPanelByID(panelId);
    if (panel.isValid())
        emit layerDrawingModified(panel.symbol());
}

TUScene const* KRC_PanelLayerManager::sceneOf(SC_Id const& panelId) const
{
    const Krolle::Panel_t panel = d->project->getPanelByID(panelId);
    return panel.isValid() ? panel.symbol() : nullptr;
}
