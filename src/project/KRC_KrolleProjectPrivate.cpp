#include "project/KRC_KrolleProjectPrivate.h"

#include "project/EngineLinks.h"

KRC_KrolleProjectPrivate::KRC_KrolleProjectPrivate(SC_Project* engineProject)
    : project(engineProject)
    , referenceToolData(engineProject ? engineProject->metadatas() : nullptr)
{
}

void KRC_KrolleProjectPrivate::clearCaches()
{
    shotCache.clear();
    for (auto& shotPanels : panelCachesByShot)
        shotPanels.second.clear();
    panelCachesByShot.clear();
    lastShotCache = nullptr;
    panelCache.clear();
    timelineIndex.clear();
    m_lookupsUnindexed = 0;
    m_symbolShot = nullptr;
    m_symbolSequence = nullptr;
    transCache.clear();
    sceneCommonToPanelId.clear();
    sceneCommonToShotId.clear();
    shotPlaces.clear();
    panelTotal = 0;
    shotTotal = 0;
    transTotal = 0;
    sequenceTotal = 0;
    actTotal = 0;
}

namespace {

template <class T> void alignCache(Krolle::ObjectCache<T>& cache, bool on)
{
    if (cache.enabled == on)
        return;
    cache.enabled = on;
    cache.clear();
}

} // namespace

Krolle::ObjectCache<Krolle::Panel_t>& KRC_KrolleProjectPrivate::panelCacheOf(SC_Id const& shot)
{
    if (!lastShotCache || lastShotId != shot) {
        lastShotCache = &panelCachesByShot[shot];
        lastShotId = shot;
    }
    alignCache(*lastShotCache, cacheEnabled);
    return *lastShotCache;
}

void KRC_KrolleProjectPrivate::setCachesEnabled(bool on)
{
    alignCache(shotCache, on);
    alignCache(transCache, on);
    alignCache(panelCache, on);
    for (auto& shotPanels : panelCachesByShot)
        alignCache(shotPanels.second, on);
}

void KRC_KrolleProjectPrivate::buildTimelineIndex()
{
    TUScene* top = project ? dynamic_cast<TUScene*>(project->sceneAt(0)) : nullptr;
    timelineIndex.build(Krolle::getSeqTimedValueOf(top));
}

TUSeqTimedValue* KRC_KrolleProjectPrivate::symbolSequenceOf(AT_FrameBlock const* shotBlock)
{
    if (cacheEnabled && shotBlock && shotBlock == m_symbolShot)
        return m_symbolSequence;
    TUSeqTimedValue* sequence = Krolle::getSeqTimedValueOf(blockScene(shotBlock));
    if (cacheEnabled) {
        m_symbolShot = shotBlock;
        m_symbolSequence = sequence;
    }
    return sequence;
}

TUScene* KRC_KrolleProjectPrivate::blockScene(AT_FrameBlock const* block) const
{
    if (!block || !project)
        return nullptr;
    AT_AbstractSceneSeq const* seq = AT_AbstractSceneSeq::toAbstractScene(block->seq());
    if (!seq)
        return nullptr;
    SC_ProjectCommon* common = project->projectCommon();
    SC_SceneManager* scenes = common ? common->sceneManager() : nullptr;
    return scenes ? dynamic_cast<TUScene*>(scenes->find(seq->sceneId)) : nullptr;
}
