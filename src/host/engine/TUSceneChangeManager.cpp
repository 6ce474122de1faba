#include "host/engine/TUSceneChangeManager.h"

#include "host/engine/MO_Node.h"
#include "host/engine/SC_Project.h"
#include "host/engine/SC_ProjectCommon.h"
#include "host/engine/TUScene.h"
#include "host/engine/TUTimedValue.h"
#include "host/persistence/PIO_Metadata.h"
#include "host/persistence/PIO_Metadatas.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

bool operator<(PIO_MetaModif const& a, PIO_MetaModif const& b)
{
    if (a.metadata != b.metadata)
        return std::less<PIO_Metadata const*>()(a.metadata, b.metadata);
    return a.code < b.code;
}

bool operator==(PIO_MetaModif const& a, PIO_MetaModif const& b)
{
    return a.metadata == b.metadata && a.code == b.code;
}

void PIO_postMetadataChange(TUSceneChangeManager* manager, PIO_Metadata* meta, int code)
{
    if (manager)
        manager->postMetadataChanged(meta, code);
}

namespace {

// Everything collected between two deliveries.
struct Pending
{
    bool scene = false;
    bool selection = false;
    TUTvSet added;
    TUTvSet removed;
    TUTvSet changed;
    TUTvSet renamed;
    TUNodeSet network;
    TUNodeSet subNetwork;
    TUNodeSet ordering;
    TUNodeSet links;
    TUNodeSet nodes;
    TUNodeSet instanceNames;
    TUNodeSet applied;
    // Kept in posting order and made a set at notify: an edit of many records posts
    // thousands, and a tree insertion each would cost more than the edit itself.
    std::vector<PIO_MetaModif> metadata;

    bool hasModelChanges() const
    {
        return scene || !added.empty() || !removed.empty() || !changed.empty() || !renamed.empty()
            || !network.empty() || !subNetwork.empty() || !ordering.empty() || !links.empty()
            || !nodes.empty() || !instanceNames.empty() || !applied.empty() || !metadata.empty();
    }

    std::vector<TUTvSet*> valueSets() { return { &added, &removed, &changed, &renamed }; }
};

// Removed objects, kept alive until the delivery that reports them is over.
// Timed values go before scenes, as a value may point to its scene.
struct Disposal
{
    std::vector<std::unique_ptr<TUTimedValue>> values;
    std::vector<UT_SharedPtr<SC_SceneBase>> scenes;

    void release()
    {
        values.clear();
        scenes.clear();
    }
};

bool belongsTo(TUTimedValue const* value, SC_ProjectCommon const* project)
{
    return value->sceneCommon && value->sceneCommon->projectCommon() == project;
}

void collectRecords(PIO_Metadatas const* container, std::set<PIO_Metadata const*>& out)
{
    if (!container)
        return;
    for (auto it = container->begin(); it != container->end(); ++it)
        out.insert(*it);
}

void collectSceneRecords(SC_SceneBase const* scene, std::set<PIO_Metadata const*>& out)
{
    if (auto const* tuScene = dynamic_cast<TUScene const*>(scene))
        collectRecords(tuScene->metadatas(), out);
}

} // namespace

class TUSceneChangeManager::TUSceneChangeManagerPrivate
{
public:
    Pending pending;
    Disposal disposal;
    int holds = 0;

    void addNode(TUNodeSet& set, MO_Node* node)
    {
        if (node)
            set.insert(UT_SharedWeakPtr<MO_Node>(node));
    }
    void addValue(TUTvSet& set, TUTimedValue* value)
    {
        if (value)
            set.insert(value);
    }
};

TUSceneChangeManager::TUSceneChangeManager(QObject* parent)
    : QObject(parent)
    , d(new TUSceneChangeManagerPrivate)
{
}

TUSceneChangeManager::~TUSceneChangeManager()
{
    d->disposal.release();
    delete d;
}

void TUSceneChangeManager::notify()
{
    if (!isNotifyEnabled())
        return;
    // Take everything out first: what listeners post now belongs to the next round.
    Pending p = std::move(d->pending);
    d->pending = Pending();
    Disposal disposal = std::move(d->disposal);
    d->disposal = Disposal();

    if (p.scene)
        emit sceneChanged();
    if (!p.added.empty())
        emit timedValuesAdded(p.added);
    if (!p.removed.empty())
        emit timedValuesRemoved(p.removed);
    if (!p.changed.empty())
        emit timedValuesChanged(p.changed);
    if (!p.renamed.empty())
        emit timedValueNamesChanged(p.renamed);
    if (!p.network.empty())
        emit networkChanged(p.network);
    if (!p.subNetwork.empty())
        emit subNetworkChanged(p.subNetwork);
    if (!p.ordering.empty())
        emit childrenOrderingChanged(p.ordering);
    if (!p.links.empty())
        emit nodeLinksChanged(p.links);
    if (!p.nodes.empty())
        emit nodesChanged(p.nodes);
    if (!p.instanceNames.empty())
        emit nodeInstanceNamesChanged(p.instanceNames);
    for (auto const& node : p.applied) {
        UT_SharedPtr<MO_Node> alive = node.lock();
        if (alive)
            emit nodeChangeApplied(alive.get());
    }
    if (!p.metadata.empty()) {
        std::sort(p.metadata.begin(), p.metadata.end());
        emit metadataChanged(TUMetadataSet(p.metadata.begin(), p.metadata.end()));
    }
    if (p.selection)
        emit selectionChanged();
    disposal.release();
}

void TUSceneChangeManager::clear()
{
    d->pending = Pending();
    d->disposal.release();
}

bool TUSceneChangeManager::isNotifyEnabled() const
{
    return d->holds == 0;
}

void TUSceneChangeManager::holdNotify()
{
    ++d->holds;
}

void TUSceneChangeManager::releaseNotify()
{
    if (d->holds > 0)
        --d->holds;
}

TUSceneChangeManager::HoldScope::HoldScope(TUSceneChangeManager* manager)
    : m_manager(manager)
{
    if (m_manager)
        m_manager->holdNotify();
}

TUSceneChangeManager::HoldScope::~HoldScope()
{
    if (m_manager)
        m_manager->releaseNotify();
}

bool TUSceneChangeManager::hasPendingChanges() const
{
    return d->pending.hasModelChanges();
}

void TUSceneChangeManager::markSceneChanged()
{
    d->pending.scene = true;
}

void TUSceneChangeManager::postSceneChanged()
{
    d->pending.scene = true;
}

void TUSceneChangeManager::postTimedValueChanged(TUTimedValue* value)
{
    d->addValue(d->pending.changed, value);
}

void TUSceneChangeManager::postTimedValueAdded(TUTimedValue* value)
{
    d->addValue(d->pending.added, value);
}

void TUSceneChangeManager::postTimedValueRemoved(TUTimedValue* value)
{
    d->addValue(d->pending.removed, value);
}

void TUSceneChangeManager::postTimedValueNameChanged(TUTimedValue* value)
{
    d->addValue(d->pending.renamed, value);
}

void TUSceneChangeManager::postNodeChanged(MO_Node* node)
{
    d->addNode(d->pending.nodes, node);
}

void TUSceneChangeManager::postNetworkChanged(MO_Node* node)
{
    d->addNode(d->pending.network, node);
}

void TUSceneChangeManager::postSubNetworkChanged(MO_Node* node)
{
    d->addNode(d->pending.subNetwork, node);
}

void TUSceneChangeManager::postChildrenOrderingChanged(MO_Node* node)
{
    d->addNode(d->pending.ordering, node);
}

void TUSceneChangeManager::postNodeLinksChanged(MO_Node* node)
{
    d->addNode(d->pending.links, node);
}

void TUSceneChangeManager::postNodeInstanceNameChanged(MO_Node* node)
{
    d->addNode(d->pending.instanceNames, node);
}

void TUSceneChangeManager::postNodeChangeApplied(MO_Node* node)
{
    d->addNode(d->pending.applied, node);
}

void TUSceneChangeManager::postSelectionChanged()
{
    d->pending.selection = true;
}

void TUSceneChangeManager::postMetadataChanged(PIO_Metadata* record, int code)
{
    if (record)
        d->pending.metadata.emplace_back(record, code);
}

void TUSceneChangeManager::disposeLater(TUTimedValue* value)
{
    if (value)
        d->disposal.values.emplace_back(value);
}

void TUSceneChangeManager::disposeLater(SC_SceneBase* scene)
{
    if (scene)
        d->disposal.scenes.emplace_back(scene);
}

void TUSceneChangeManager::forgetProject(SC_ProjectCommon* project)
{
    if (!project)
        return;
    // Records of the project and of all its scenes, removed ones included.
    std::set<PIO_Metadata const*> records;
    if (SC_Project const* owner = project->project()) {
        collectRecords(owner->metadatas(), records);
        for (unsigned i = 0; i < owner->sceneCount(); ++i)
            collectSceneRecords(owner->sceneAt(i), records);
    }
    for (auto const& scene : d->disposal.scenes) {
        if (scene->projectCommon() == project)
            collectSceneRecords(scene.get(), records);
    }
    std::vector<PIO_MetaModif>& posted = d->pending.metadata;
    posted.erase(std::remove_if(posted.begin(), posted.end(),
                     [&records](PIO_MetaModif const& change) { return records.count(change.metadata) != 0; }),
        posted.end());

    for (TUTvSet* set : d->pending.valueSets()) {
        for (auto it = set->begin(); it != set->end();) {
            if (belongsTo(*it, project))
                it = set->erase(it);
            else
                ++it;
        }
    }

    auto& values = d->disposal.values;
    for (auto it = values.begin(); it != values.end();) {
        if (belongsTo(it->get(), project))
            it = values.erase(it);
        else
            ++it;
    }
    auto& scenes = d->disposal.scenes;
    for (auto it = scenes.begin(); it != scenes.end();) {
        if ((*it)->projectCommon() == project)
            it = scenes.erase(it);
        else
            ++it;
    }
}
