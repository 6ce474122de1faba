// Private state of the project view, shared by the source files of KRC_KrolleProject.
#pragma once

#include "host/Host.h"
#include "metadata/KRC_ReferenceToolData.h"
#include "metadata/PIO_MetadataAccess.h"
#include "naming/KRC_NameHelper.h"
#include "project/ObjectCache.h"
#include "project/Panel_t.h"
#include "project/Shot_t.h"
#include "project/TimelineIndex.h"
#include "project/Trans_t.h"

#include <QMutex>

#include <map>
#include <unordered_map>

class KRC_DrawingObserver;
class KRC_PanelLayerManager;
class KRC_TrackingManager;

/// Everything that KRC_KrolleProject keeps: the owned managers, the reference on the
/// engine project, the caches of handles (all dropped at once by clearCaches), the
/// cached totals and the lock. Owned by the view, made by its constructor.
class KRC_KrolleProjectPrivate
{
public:
    explicit KRC_KrolleProjectPrivate(SC_Project* engineProject);

    /// Drops every cached handle, reverse table and total, in a fixed order.
    void clearCaches();
    /// The panel cache of one shot, made on first use; its state follows `cacheEnabled`.
    Krolle::ObjectCache<Krolle::Panel_t>& panelCacheOf(SC_Id const& shot);
    /// Sets the state of every cache, clearing those whose state changes.
    void setCachesEnabled(bool on);

    /// The span of the timeline index at `frame`; `TimelineIndex::none` where it
    /// cannot answer, while the cache is disabled, and for the first few lookups after
    /// a drop: a walk or a count asks one frame and needs no index, while a pass or a
    /// redraw asks many and pays for it at once.
    std::size_t spanAt(unsigned frame)
    {
        if (!cacheEnabled)
            return Krolle::TimelineIndex::none;
        if (!timelineIndex.isBuilt()) {
            if (++m_lookupsUnindexed < kLookupsBeforeIndex)
                return Krolle::TimelineIndex::none;
            buildTimelineIndex();
        }
        return timelineIndex.spanAt(frame);
    }

    /// The scene that a scene block shows: null for a null block, a block of another
    /// kind, or a scene that the project does not know.
    TUScene* blockScene(AT_FrameBlock const* block) const;

    /// The sequence of the scene that a shot block shows, or null. Kept for the last
    /// block asked while the cache is enabled: a walk asks for it at every panel.
    TUSeqTimedValue* symbolSequenceOf(AT_FrameBlock const* shotBlock);

private:
    void buildTimelineIndex();

    static constexpr unsigned kLookupsBeforeIndex = 8;
    unsigned m_lookupsUnindexed = 0;
    AT_FrameBlock const* m_symbolShot = nullptr;
    TUSeqTimedValue* m_symbolSequence = nullptr;

public:

    // The owned managers go here, made in this order after the view's connections:
    // drawing observer, panel layer manager, tracking manager, name helper.

    /// Turns modified drawings into modified panels; the layer manager listens to it.
    KRC_DrawingObserver* drawingObserver = nullptr;
    /// Says which layers each panel has and keeps their records in step.
    KRC_PanelLayerManager* layerManager = nullptr;
    KRC_TrackingManager* trackingManager = nullptr;

    /// Handed to every shot and panel for its automatic name; made last and deleted
    /// last of the owned managers.
    KRC_NameHelper* nameHelper = nullptr;

    UT_SharedPtr<SC_Project> project; // dropped last: members go in reverse order
    /// The project's reference tool record, made with the view.
    PIO_MetadataAccess<KRC_ReferenceToolData> referenceToolData;
    Krolle::ObjectCache<Krolle::Shot_t> shotCache;
    Krolle::ObjectCache<Krolle::Trans_t> transCache;
    Krolle::ObjectCache<Krolle::Panel_t> panelCache; // read by id only
    /// Frame to shot and panel in a step, for frames that one block covers alone.
    Krolle::TimelineIndex timelineIndex;
    // Hashed: a pass or walk meets a new shot every few panels.
    std::unordered_map<SC_Id, Krolle::ObjectCache<Krolle::Panel_t>> panelCachesByShot;
    // The per-shot cache of the last panelCacheOf(): lookups run shot by shot.
    SC_Id lastShotId;
    Krolle::ObjectCache<Krolle::Panel_t>* lastShotCache = nullptr;
    std::map<SC_SceneCommon const*, SC_Id> sceneCommonToPanelId;
    std::map<SC_SceneCommon const*, SC_Id> sceneCommonToShotId;
    /// Each shot's place in a walk of all shots, under its block with its id (a handle
    /// is that shot when both match). Filled by one walk on first use while the cache
    /// is enabled, since every automatic shot name asks for it.
    std::unordered_map<AT_FrameBlock const*, std::pair<SC_Id, unsigned>> shotPlaces;
    bool cacheEnabled = true;
    quint32 panelTotal = 0;
    quint32 shotTotal = 0;
    quint32 transTotal = 0;
    quint32 sequenceTotal = 0;
    quint32 actTotal = 0;
    QMutex mutex;
    bool locked = false;
};
