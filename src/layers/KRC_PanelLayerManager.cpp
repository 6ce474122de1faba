#include "layers/KRC_PanelLayerManager.h"

#include "layers/ElementModuleCollector.h"
#include "layers/SubElementModuleCollector.h"
#include "project/EngineLinks.h"
#include "project/KRC_KrolleProject.h"
#include "tracking/KRC_DrawingObserver.h"

#include <algorithm>
#include <map>
#include <unordered_map>

unsigned const KRC_PanelLayerManager::invalidLayerIdx;
QString const KRC_PanelLayerManager::pitchModeLayerName = QStringLiteral("Comments");

namespace {

QString const kGlobalNavigationKey = QStringLiteral("ST_ENABLE_GLOBAL_LAYER_NAVIGATION");
QString const kBrushLayerSelectionKey = QStringLiteral("ST_ENABLE_BRUSH_LAYER_SELECTION");
// The change code under which the record reports entries added for new layers.
int const kLayerInfosAddedCode = 10;
QString const kDefaultLayersKey = QStringLiteral("DEFAULT_LAYERS");
QString const kFieldSeparator = QStringLiteral(";");
QString const kEntrySeparator = QStringLiteral(";;");
// A field of two bools packs the first times 2 plus the second; any bit above bit 0
// reads as the first, so 4 gives (true, false).
int packPair(bool high, bool low)
{
    return (high ? 2 : 0) + (low ? 1 : 0);
}
void unpackPair(int value, bool& high, bool& low)
{
    high = (value & ~1) != 0;
    low = (value & 1) != 0;
}
// Map key of the shared lists: ids that no panel has.
SC_Id const kBrushPresetKey{};
SC_Id const kGlobalKey{};
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
    KRC_PanelLayerManager::LayerInfoList defaultLayers;
    bool brushPresetActive = false;
    SL_Selection* selection = nullptr;
    /// Remembered layer names by panel id, and under the two shared keys. Hashed: it
    /// gains an entry for every panel visited, and a lookup must not grow with them.
    /// References to the lists stay good while entries are added.
    std::unordered_map<SC_Id, QStringList> selectedNames;

    /// The list in force for the scene (see currentList in the class).
    QStringList& currentList(TUScene const* scene);
};

QStringList& KRC_PanelLayerManagerPrivate::currentList(TUScene const* scene)
{
    SC_Id const panelKey = scene ? Krolle::objectId(scene) : kGlobalKey;
    SC_Id chosen = panelKey;
    if (brushLayerSelection && brushPresetActive)
        chosen = kBrushPresetKey;
    else if (globalNavigation)
        chosen = kGlobalKey;
    QStringList& names = selectedNames[chosen];
    if (scene && !(chosen == panelKey)) {
        QStringList& own = selectedNames[panelKey];
        if (&own != &names)
            own = names;
    }
    return names;
}

// Default layer values.

KRC_PanelLayerManager::LayerInfo::LayerInfo(QString const& name_, bool locked_, bool enabled_, bool current_,
    bool selected_, int layerFlags_, int exportFlags_, double opacity_, CameraAlignment cameraAlignment_)
    : name(name_)
    , locked(locked_)
    , enabled(enabled_)
    , current(current_)
    , selected(selected_)
    , layerFlags(layerFlags_)
    , exportFlags(exportFlags_)
    , opacity(opacity_)
    , cameraAlignment(cameraAlignment_)
{
}

KRC_PanelLayerManager::LayerInfo::LayerInfo(QString const& text)
{
    fromString(text);
}

QString KRC_PanelLayerManager::LayerInfo::asString() const
{
    return QStringList { name, QString::number(packPair(locked, enabled)), QString::number(layerFlags),
        QString::number(exportFlags), QString::number(packPair(current, selected)), QString::number(opacity, 'g', 6),
        QString::number(static_cast<int>(cameraAlignment)) }
        .join(kFieldSeparator);
}

void KRC_PanelLayerManager::LayerInfo::fromString(QString const& text)
{
    QStringList const parts = text.split(kFieldSeparator, Qt::SkipEmptyParts, Qt::CaseSensitive);
    auto const number = [&parts](int at) { return at < parts.size() ? parts.at(at).toInt(nullptr, 10) : 0; };
    name = parts.isEmpty() ? QString() : parts.first();
    unpackPair(number(1), locked, enabled);
    layerFlags = number(2);
    exportFlags = number(3);
    unpackPair(number(4), current, selected);
    opacity = parts.size() > 5 ? parts.at(5).toDouble() : 100.0;
    // An alignment the engine does not know reads as none, like a missing one.
    int const alignment = number(6);
    cameraAlignment = alignment >= CameraAlignment_None && alignment <= CameraAlignment_FaceCameraUpright
        ? static_cast<CameraAlignment>(alignment)
        : CameraAlignment_None;
}

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
    loadDefaultLayers();
}

KRC_PanelLayerManager::~KRC_PanelLayerManager()
{
    saveDefaultLayers();
}

void KRC_PanelLayerManager::loadDefaultLayers()
{
    d->defaultLayers = defaultLayersFromText(tuPref ? tuPref->getStringValue(kDefaultLayersKey, QString()) : QString());
}

KRC_PanelLayerManager::LayerInfoList KRC_PanelLayerManager::defaultLayersFromText(QString const& stored)
{
    LayerInfoList layers;
    for (QString const& entry : stored.split(kEntrySeparator, Qt::SkipEmptyParts))
        layers.emplace_back(entry);
    if (!layers.empty())
        return layers;
    layers.emplace_back(QStringLiteral("A"), false, true, false, false, 0, 13, 100.0, CameraAlignment_None);
    layers.emplace_back(QStringLiteral("BG"), false, true, false, false, 1, 13, 100.0, CameraAlignment_None);
    return layers;
}

void KRC_PanelLayerManager::saveDefaultLayers() const
{
    if (!tuPref)
        return;
    QStringList entries;
    for (LayerInfo const& info : d->defaultLayers)
        entries << info.asString();
    tuPref->setStringValue(kDefaultLayersKey, entries.join(kEntrySeparator));
}

KRC_PanelLayerManager::LayerInfoList::const_iterator KRC_PanelLayerManager::beginDefaultLayers() const
{
    return d->defaultLayers.cbegin();
}

KRC_PanelLayerManager::LayerInfoList::const_iterator KRC_PanelLayerManager::endDefaultLayers() const
{
    return d->defaultLayers.cend();
}

KRC_PanelLayerManager::LayerInfoList::const_reverse_iterator KRC_PanelLayerManager::rbeginDefaultLayers() const
{
    return d->defaultLayers.crbegin();
}

KRC_PanelLayerManager::LayerInfoList::const_reverse_iterator KRC_PanelLayerManager::rendDefaultLayers() const
{
    return d->defaultLayers.crend();
}

void KRC_PanelLayerManager::updateDefaultLayers(SC_Id const& panelId)
{
    const Krolle::Panel_t panel = d->project->getPanelByID(panelId);
    if (panel.isInvalid())
        return;
    std::vector<MO_Node*> layers;
    if (!getLayers(panel.symbol(), layers, LayerType_All))
        return;
    QStringList const names = d->currentList(panel.symbol());
    KRC_LayerInfos const* infos = panel.layerInfos();
    d->defaultLayers.clear();
    for (MO_Node const* node : layers) {
        QString const& name = node->instanceName();
        auto const* animated = dynamic_cast<MO_AnimatedModule const*>(node);
        d->defaultLayers.emplace_back(name, node->lock(), node->enabled() != 0,
            !names.isEmpty() && names.first() == name, names.contains(name), infos ? infos->layerFlags(name) : 0,
            infos ? infos->exportFlags(name) : 0, getOpacityForLayer(node),
            animated ? animated->cameraAlignment() : CameraAlignment_None);
    }
}

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

// Selection.

namespace {

void addUnique(QStringList& names, QString const& name)
{
    if (!names.contains(name))
        names << name;
}

MO_Node* mutableNode(MO_Node const* node)
{
    return const_cast<MO_Node*>(node);
}

} // namespace

void KRC_PanelLayerManager::setSelection(SL_Selection* selection)
{
    d->selection = selection;
}

bool KRC_PanelLayerManager::brushPresetSelection() const
{
    return d->brushLayerSelection && d->brushPresetActive;
}

bool KRC_PanelLayerManager::globalLayerNavigation() const
{
    return !brushPresetSelection() && d->globalNavigation;
}

void KRC_PanelLayerManager::setBrushPresetLayer(QString const& name)
{
    d->brushPresetActive = !name.isEmpty();
    if (d->brushPresetActive)
        d->selectedNames[kBrushPresetKey] = QStringList { name };
}

void KRC_PanelLayerManager::clearBrushPresetLayer()
{
    d->brushPresetActive = false;
}

bool KRC_PanelLayerManager::isSelected(TUScene const*, MO_Node const* node) const
{
    return SL_SelectionUtil::isIn(d->selection, mutableNode(node));
}

bool KRC_PanelLayerManager::isSelected(TUScene const* scene, QString const& name) const
{
    MO_Node const* node = getLayerByName(scene, name);
    return node && isSelected(scene, node);
}

MO_Node* KRC_PanelLayerManager::getCurrentLayer(TUScene const* scene) const
{
    std::list<MO_Node*> ignored;
    return getSelectedLayers(scene, ignored, LayerType_All, true);
}

MO_Node* KRC_PanelLayerManager::getSelectedLayers(
    TUScene const* scene, std::list<MO_Node*>& out, LayerType_t type, bool onlySelected) const
{
    if (!scene)
        return nullptr;
    QStringList const names = d->currentList(scene);
    std::vector<MO_Node*> layers;
    if (names.isEmpty() || !getLayers(scene, layers, type))
        return nullptr;
    bool const global = globalLayerNavigation();
    int best = names.size();
    MO_Node* result = nullptr;
    for (MO_Node* layer : layers) {
        if (onlySelected && !SL_SelectionUtil::isIn(d->selection, layer))
            continue;
        QString const name = layer->instanceName();
        if (!global && (!result || name == names.first()))
            result = layer;
        int const at = names.indexOf(name);
        if (at < 0)
            continue;
        out.push_back(layer);
        if (global && at < best) {
            best = at;
            result = layer;
        }
    }
    return result;
}

MO_Node* KRC_PanelLayerManager::getSelectedLayers(
    TUScene const* scene, std::set<MO_Node*>& out, LayerType_t type, bool onlySelected) const
{
    std::list<MO_Node*> found;
    MO_Node* const result = getSelectedLayers(scene, found, type, onlySelected);
    out.insert(found.begin(), found.end());
    return result;
}

QString KRC_PanelLayerManager::getSelectedLayers(
    TUScene const* scene, QStringList& out, LayerType_t type, bool onlySelected) const
{
    std::list<MO_Node*> found;
    MO_Node const* const result = getSelectedLayers(scene, found, type, onlySelected);
    for (MO_Node const* node : found)
        out << node->instanceName();
    return result ? result->instanceName() : QString();
}

MO_Node* KRC_PanelLayerManager::getSelectedLayers(
    SC_Id const& panelId, std::list<MO_Node*>& out, LayerType_t type, bool onlySelected) const
{
    return getSelectedLayers(sceneOf(panelId), out, type, onlySelected);
}

QString KRC_PanelLayerManager::getSelectedLayers(
    SC_Id const& panelId, QStringList& out, LayerType_t type, bool onlySelected) const
{
    return getSelectedLayers(sceneOf(panelId), out, type, onlySelected);
}

MO_Node* KRC_PanelLayerManager::getSelectedLayers(
    TUScene const* scene, LayersByPanel& out, LayerType_t type, bool onlySelected) const
{
    if (!scene)
        return nullptr;
    std::list<MO_Node*> found;
    MO_Node* const result = getSelectedLayers(scene, found, type, onlySelected);
    out[Krolle::objectId(scene)].insert(found.begin(), found.end());
    return result;
}

MO_Node* KRC_PanelLayerManager::getSelectedLayers(
    SC_Id const& panelId, std::set<MO_Node*>& out, LayerType_t type, bool onlySelected) const
{
    return getSelectedLayers(sceneOf(panelId), out, type, onlySelected);
}

MO_Node* KRC_PanelLayerManager::getSelectedLayers(
    SC_Id const& panelId, LayersByPanel& out, LayerType_t type, bool onlySelected) const
{
    return getSelectedLayers(sceneOf(panelId), out, type, onlySelected);
}

namespace {

/// The by-id form of each valid panel in order, into the same output.
template <class Out>
void selectedOfPanels(KRC_PanelLayerManager const& manager, std::vector<SC_Id> const& panelIds, Out& out,
    KRC_PanelLayerManager::LayerType_t type, bool onlySelected)
{
    for (SC_Id const& id : panelIds)
        manager.getSelectedLayers(id, out, type, onlySelected);
}

} // namespace

void KRC_PanelLayerManager::getSelectedLayers(
    std::vector<SC_Id> const& panelIds, std::list<MO_Node*>& out, LayerType_t type, bool onlySelected) const
{
    selectedOfPanels(*this, panelIds, out, type, onlySelected);
}

void KRC_PanelLayerManager::getSelectedLayers(
    std::vector<SC_Id> const& panelIds, std::set<MO_Node*>& out, LayerType_t type, bool onlySelected) const
{
    selectedOfPanels(*this, panelIds, out, type, onlySelected);
}

void KRC_PanelLayerManager::getSelectedLayers(
    std::vector<SC_Id> const& panelIds, LayersByPanel& out, LayerType_t type, bool onlySelected) const
{
    selectedOfPanels(*this, panelIds, out, type, onlySelected);
}

void KRC_PanelLayerManager::getSelectedLayers(
    std::vector<SC_Id> const& panelIds, QStringList& out, LayerType_t type, bool onlySelected) const
{
    for (SC_Id const& id : panelIds) {
        QStringList names;
        getSelectedLayers(id, names, type, onlySelected);
        for (QString const& name : names)
            addUnique(out, name);
    }
}

void KRC_PanelLayerManager::layerSetFromSelection(
    Krolle::Panel_t const& panel, SL_Selection* selection, std::set<MO_Node*>& out, LayerType_t type)
{
    out.clear();
    if (panel.isInvalid() || !selection || !panel.symbol())
        return;
    SC_SceneCommon const* const common = panel.symbol()->sceneCommon();
    for (auto const& entry : *selection) {
        auto const* nodeEntry = dynamic_cast<SLB_NodeInterface const*>(entry.get());
        MO_Node* const node = nodeEntry ? nodeEntry->selectable() : nullptr;
        if (node && isLayerOfType(node, type) && node->sceneCommon() == common)
            out.insert(node);
    }
}

MO_Node* KRC_PanelLayerManager::getPitchModeLayer(TUScene const* scene) const
{
    if (!scene || getLayersCount(scene) == 0)
        return nullptr;
    const Krolle::Panel_t panel = d->project->getPanelByID(Krolle::objectId(scene));
    KRC_LayerInfos const* infos = panel.isValid() ? panel.layerInfos() : nullptr;
    std::vector<KRC_LayerInfos::Entry> entries;
    if (!infos || !infos->infoByLayerFlags(static_cast<LAYER_FLAGS>(16), entries) || entries.size() != 1)
        return nullptr;
    return getLayerByName(scene, entries.front()->name);
}

MO_Node* KRC_PanelLayerManager::getPitchModeLayer(SC_Id const& panelId) const
{
    return getPitchModeLayer(sceneOf(panelId));
}

void KRC_PanelLayerManager::changedIf(bool notify, TUScene const* scene)
{
    if (notify)
        emit layerInfoChanged(const_cast<TUScene*>(scene));
}

void KRC_PanelLayerManager::addSelectedLayer(TUScene const* scene, QString const& name, bool notify)
{
    if (!scene)
        return;
    addUnique(d->currentList(scene), name);
    changedIf(notify, scene);
}

void KRC_PanelLayerManager::addSelectedLayer(SC_Id const& panelId, QString const& name, bool notify)
{
    addSelectedLayer(sceneOf(panelId), name, notify);
}

void KRC_PanelLayerManager::setSelectedLayers(TUScene const* scene, QStringList const& names, bool notify)
{
    if (!scene)
        return;
    QStringList& list = d->currentList(scene);
    list.clear();
    QStringList layers;
    if (getLayers(scene, layers, LayerType_All)) {
        for (QString const& name : names) {
            if (layers.contains(name))
                addUnique(list, name);
        }
    }
    changedIf(notify, scene);
}

void KRC_PanelLayerManager::setSelectedLayers(SC_Id const& panelId, QStringList const& names, bool notify)
{
    setSelectedLayers(sceneOf(panelId), names, notify);
}

void KRC_PanelLayerManager::setSelectedLayers(
    std::vector<SC_Id> const& panelIds, QStringList const& names, bool notify)
{
    if (brushPresetSelection() || !d->globalNavigation) {
        for (SC_Id const& id : panelIds)
            setSelectedLayers(id, names, notify);
        return;
    }
    QStringList& shared = d->selectedNames[kGlobalKey];
    shared.clear();
    for (QString const& name : names)
        addUnique(shared, name);
    changedIf(notify, nullptr);
}

bool KRC_PanelLayerManager::selectLayer(
    TUScene const* scene, MO_Node const* node, eLayerSelectionMode mode, bool notify)
{
    if ((!scene || !node) && mode != eSelectClear)
        return false;
    SL_Selection::BatchSelectionModeScope batch(d->selection);
    if (mode == eSelectClear || mode == eSelectReplace) {
        if (d->selection)
            d->selection->clear();
        d->currentList(scene).clear();
        changedIf(notify && mode == eSelectClear, scene);
    }
    return !node || applySelection(scene, node, mode, notify);
}

bool KRC_PanelLayerManager::applySelection(
    TUScene const* scene, MO_Node const* node, eLayerSelectionMode mode, bool notify)
{
    QStringList& names = d->currentList(scene);
    QString const& name = node->instanceName();
    bool const remembered = names.contains(name);
    if (mode == eSelectAdd && remembered)
        return true;
    if ((mode == eSelectRemove || mode == eSelectToggle) && remembered) {
        names.removeAll(name);
        SL_SelectionUtil::removeFromSelection(d->selection, mutableNode(node));
        changedIf(notify, scene);
        return true;
    }
    if (mode == eSelectRemove)
        return true;
    std::vector<MO_Node const*> add { node };
    if (mode == eSelectRange) {
        MO_Node const* const current = getCurrentLayer(scene);
        if (current == node)
            return false;
        if (current) {
            unsigned const from = getLayerIdx(scene, current);
            unsigned const to = getLayerIdx(scene, node);
            if (from == invalidLayerIdx || to == invalidLayerIdx)
                return false;
            int const step = to > from ? 1 : -1;
            for (unsigned at = from + step; at != to; at += step) {
                MO_Node const* between = getLayerByIdx(scene, at);
                if (between && !names.contains(between->instanceName()))
                    add.push_back(between);
            }
        }
    }
    for (MO_Node const* each : add) {
        SL_SelectionUtil::addToSelection(d->selection, mutableNode(each));
        if (mode != eSelectEngineOnly)
            addUnique(names, each->instanceName());
    }
    changedIf(notify, scene);
    return true;
}

bool KRC_PanelLayerManager::selectLayer(
    TUScene const* scene, QString const& name, eLayerSelectionMode mode, bool notify)
{
    MO_Node const* node = getLayerByName(scene, name);
    return node && selectLayer(scene, node, mode, notify);
}

bool KRC_PanelLayerManager::selectLayers(TUScene const* scene, std::list<MO_Node*> const& nodes, bool notify)
{
    SL_Selection::BatchSelectionModeScope batch(d->selection);
    bool result = !nodes.empty();
    bool const global = globalLayerNavigation();
    QStringList& names = d->currentList(scene);
    if (!global)
        names.clear();
    for (MO_Node const* node : nodes) {
        SL_Selection::BatchSelectionModeScope each(d->selection);
        result = selectLayer(scene, node, global ? eSelectEngineOnly : eSelectAdd, false) && result;
        if (global && node)
            addUnique(d->currentList(scene), node->instanceName());
    }
    changedIf(notify, scene);
    return result;
}

bool KRC_PanelLayerManager::selectAllLayers(TUScene const* scene, bool notify)
{
    std::list<MO_Node*> layers;
    getLayers(scene, layers, LayerType_All);
    return selectLayers(scene, layers, notify);
}

void KRC_PanelLayerManager::selectPreferedLayers(TUScene const* scene, bool keepEmpty, bool includeLocked)
{
    if (!scene)
        return;
    bool const noFallback = keepEmpty || brushPresetSelection();
    SL_Selection::BatchSelectionModeScope batch(d->selection);
    std::vector<MO_Node*> layers;
    getLayers(scene, layers, LayerType_All);
    MO_Node* first = nullptr;
    int matched = 0;
    for (MO_Node* layer : layers) {
        if (!includeLocked && layer->lock())
            continue;
        if (!first)
            first = layer;
        if (d->currentList(scene).contains(layer->instanceName())) {
            ++matched;
            SL_Selection::BatchSelectionModeScope each(d->selection);
            applySelection(scene, layer, eSelectEngineOnly, false);
        }
    }
    if (!noFallback && matched == 0 && first)
        selectLayer(scene, first, eSelectReplace, false);
    emit layerInfoChanged(const_cast<TUScene*>(scene));
}

void KRC_PanelLayerManager::selectPreferedLayers(SC_Id const& panelId, bool keepEmpty, bool includeLocked)
{
    selectPreferedLayers(sceneOf(panelId), keepEmpty, includeLocked);
}

void KRC_PanelLayerManager::selectPreferedLayers(
    std::vector<SC_Id> const& panelIds, bool keepEmpty, bool includeLocked)
{
    SL_Selection::BatchSelectionModeScope batch(d->selection);
    for (auto it = panelIds.rbegin(); it != panelIds.rend(); ++it)
        selectPreferedLayers(*it, keepEmpty, includeLocked);
}

MO_Node* KRC_PanelLayerManager::selectPitchModeLayer(TUScene const* scene, bool notify)
{
    MO_Node* const node = getPitchModeLayer(scene);
    if (!node)
        return nullptr;
    SL_Selection::BatchSelectionModeScope batch(d->selection);
    selectLayer(scene, node, eSelectReplace, notify);
    return node;
}

MO_Node* KRC_PanelLayerManager::selectPitchModeLayer(SC_Id const& panelId, bool notify)
{
    return selectPitchModeLayer(sceneOf(panelId), notify);
}

bool KRC_PanelLayerManager::clearSelection(bool notify)
{
    SL_Selection::BatchSelectionModeScope batch(d->selection);
    if (d->selection)
        d->selection->clear();
    d->currentList(nullptr).clear();
    changedIf(notify, nullptr);
    return true;
}
