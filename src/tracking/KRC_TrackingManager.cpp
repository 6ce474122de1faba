#include "tracking/KRC_TrackingManager.h"

#include "infofields/KRC_InfoFieldList.h"
#include "metadata/KRC_ObjInfo.h"
#include "metadata/KRC_Tracking.h"
#include "metadata/PIO_MetadataAccess.h"
#include "project/KRC_KrolleProject.h"
#include "project/Panel_t.h"
#include "tracking/KRC_DrawingObserver.h"
#include "tracking/ScenePanelIndex.h"

#include <vector>

using Krolle::Panel_t;

namespace {

QString const kAutoTrackingName = QStringLiteral("autoPanelTracking");

// Change codes: an info field list counts only when its values changed, and a panel
// info never for its name.
constexpr int kInfoFieldValuesCode = 4;
constexpr int kObjInfoNameCode = 18;
constexpr int kAutoTrackingCode = 21;

PIO_Metadatas* projectMetadatas(KRC_KrolleProject* project)
{
    return project && project->project() ? project->project()->metadatas() : nullptr;
}

} // namespace

class KRC_TrackingManagerPrivate
{
public:
    explicit KRC_TrackingManagerPrivate(KRC_KrolleProject* owner)
        : project(owner)
        , autoTracking(projectMetadatas(owner), kAutoTrackingName)
        , panels(owner)
    {
    }

    bool collecting() const { return enabled && !scopes.empty(); }

    KRC_KrolleProject* const project;
    std::set<KRC_TrackingManager::AccumScope*> scopes;
    bool enabled = true;
    PIO_MetadataAccess<PIO_MetadataBool> autoTracking;
    ScenePanelIndex panels;
    // Scenes of this delivery that showed no panel when asked: timed values added or
    // removed go out before the changed sequences of the same delivery, which may
    // make one of them a panel's scene.
    std::vector<SC_SceneCommon const*> misses;
};

// Scopes and desactivators.

KRC_TrackingManager::AccumScope::AccumScope(KRC_TrackingManager* owner)
    : manager(owner)
{
    if (manager)
        manager->addAccumScope(this);
}

KRC_TrackingManager::AccumScope::~AccumScope()
{
    if (manager)
        manager->removeAccumScope(this);
}

KRC_TrackingManager::Desactivator::Desactivator(KRC_TrackingManager* owner)
    : manager(owner)
{
    if (!manager)
        return;
    saved = manager->enabled();
    manager->setEnabled(false);
}

KRC_TrackingManager::Desactivator::~Desactivator()
{
    if (manager)
        manager->setEnabled(saved);
}

// The manager.

KRC_TrackingManager::KRC_TrackingManager(KRC_KrolleProject* project)
    : QObject()
    , d(std::make_unique<KRC_TrackingManagerPrivate>(project))
{
}

KRC_TrackingManager::~KRC_TrackingManager() = default;

void KRC_TrackingManager::init()
{
    connect(d->project->drawingObserver(), &KRC_DrawingObserver::drawingModified, this,
        &KRC_TrackingManager::onDrawingModified);
    TUSceneChangeManager* manager = d->project->changeManager();
    if (!manager)
        return;
    // Made first, so that a set holding a sequence is noted before it is attributed.
    connect(manager, &TUSceneChangeManager::sceneChanged, this, [this] { d->misses.clear(); });
    for (auto signal : { &TUSceneChangeManager::timedValuesAdded, &TUSceneChangeManager::timedValuesRemoved,
             &TUSceneChangeManager::timedValuesChanged })
        connect(manager, signal, this, &KRC_TrackingManager::noteTimelineChanges);
    for (auto signal : { &TUSceneChangeManager::nodesChanged, &TUSceneChangeManager::networkChanged,
             &TUSceneChangeManager::subNetworkChanged, &TUSceneChangeManager::childrenOrderingChanged })
        connect(manager, signal, this, &KRC_TrackingManager::onNodeChanged);
    for (auto signal : { &TUSceneChangeManager::timedValuesChanged, &TUSceneChangeManager::timedValuesAdded,
             &TUSceneChangeManager::timedValuesRemoved, &TUSceneChangeManager::timedValueNamesChanged })
        connect(manager, signal, this, &KRC_TrackingManager::onTimedValuesUpdated);
    connect(manager, &TUSceneChangeManager::metadataChanged, this, &KRC_TrackingManager::onMetadataChanged);
}

bool KRC_TrackingManager::enabled() const
{
    return d->enabled;
}

void KRC_TrackingManager::setEnabled(bool enabled)
{
    d->enabled = enabled;
}

bool KRC_TrackingManager::autoPanelTracking() const
{
    PIO_MetadataBool* record = d->autoTracking.get();
    return record && record->valueBool();
}

void KRC_TrackingManager::setAutoPanelTracking(bool autoTracking)
{
    PIO_MetadataBool* record = d->autoTracking.get();
    if (!record)
        return;
    record->setValue(autoTracking);
    TUSceneChangeManager* manager = d->project->changeManager();
    record->emitChanged(manager, kAutoTrackingCode);
    if (manager)
        manager->notify();
}

bool KRC_TrackingManager::isTracked(Panel_t const& panel) const
{
    return panel.tracking()->isTracked();
}

void KRC_TrackingManager::trackPanel(Panel_t& panel)
{
    if (!d->enabled || panel.isInvalid())
        return;
    KRC_Tracking const* record = panel.tracking();
    if (!record)
        return;
    QDateTime const now = QDateTime::currentDateTime();
    bool const tracked = autoPanelTracking() || record->isTracked();
    for (AccumScope* scope : d->scopes)
        scope->map[panel.id()] = { now, tracked };
}

void KRC_TrackingManager::trackPanel(SC_Id const& id)
{
    Panel_t panel = panelById(id);
    trackPanel(panel);
}

Panel_t KRC_TrackingManager::panelById(SC_Id const& id)
{
    // A panel's id is the id of the scene it shows, so the scene leads to the panel.
    SC_ProjectCommon* common = d->project->projectCommon();
    SC_SceneManager* scenes = common ? common->sceneManager() : nullptr;
    auto const* scene = scenes ? dynamic_cast<TUScene const*>(scenes->find(id)) : nullptr;
    return scene ? d->panels.panelOf(scene->sceneCommon()) : Panel_t::invalid;
}

Panel_t KRC_TrackingManager::attribute(SC_SceneCommon const* scene)
{
    Panel_t panel = d->panels.panelOf(scene);
    if (panel.isInvalid() && scene)
        d->misses.push_back(scene);
    return panel;
}

void KRC_TrackingManager::noteTimelineChanges(TUTvSet const& values)
{
    if (!d->panels.noteChanges(values) || d->misses.empty())
        return;
    std::vector<SC_SceneCommon const*> const retry = std::move(d->misses);
    d->misses.clear();
    for (SC_SceneCommon const* scene : retry)
        if (Panel_t panel = attribute(scene); panel.isValid())
            trackPanel(panel);
}

void KRC_TrackingManager::trackPanels(std::vector<Panel_t> const& panels)
{
    for (Panel_t panel : panels)
        trackPanel(panel);
}

void KRC_TrackingManager::trackPanels(std::vector<SC_Id> const& ids)
{
    for (SC_Id const& id : ids)
        trackPanel(id);
}

void KRC_TrackingManager::trackPanels(std::set<Panel_t> const& panels)
{
    for (Panel_t panel : panels)
        trackPanel(panel);
}

void KRC_TrackingManager::trackPanels(std::set<SC_Id> const& ids)
{
    for (SC_Id const& id : ids)
        trackPanel(id);
}

// Queries.

template <class Take> void KRC_TrackingManager::forFilteredPanels(int filter, Take take) const
{
    for (auto it = d->project->beginPanel(); it != d->project->endPanel(); ++it) {
        KRC_Tracking const* record = it->tracking();
        if (filter == 0 || record->isTracked() == (filter > 0))
            take(*it, *record);
    }
}

void KRC_TrackingManager::getTrackedPanels(std::vector<SC_Id>& out, bool tracked) const
{
    out.clear();
    forFilteredPanels(tracked ? 1 : -1, [&out](Panel_t const& panel, KRC_Tracking const&) {
        out.push_back(panel.id());
    });
}

void KRC_TrackingManager::getTrackedPanels(
    std::vector<SC_Id>& out, QDate const& from, QDate const& to, int filter) const
{
    out.clear();
    forFilteredPanels(filter, [&](Panel_t const& panel, KRC_Tracking const& record) {
        QDateTime const& date = record.trackingDate();
        if (!date.isValid() || (!(date.date() < from) && !(date.date() > to)))
            out.push_back(panel.id());
    });
}

unsigned int KRC_TrackingManager::getTrackedPanelsCount() const
{
    std::vector<SC_Id> out;
    getTrackedPanels(out, true);
    return static_cast<unsigned int>(out.size());
}

void KRC_TrackingManager::getFirstTrackingDate(QDate& date, int filter) const
{
    forFilteredPanels(filter, [&date](Panel_t const&, KRC_Tracking const& record) {
        QDateTime const& when = record.trackingDate();
        if (when.isValid() && when.date() < date)
            date = when.date();
    });
}

void KRC_TrackingManager::addAccumScope(AccumScope* scope)
{
    d->scopes.insert(scope);
}

void KRC_TrackingManager::removeAccumScope(AccumScope* scope)
{
    d->scopes.erase(scope);
}

// Slots.

void KRC_TrackingManager::onDrawingModified(SC_Id const& id, MO_Node const*)
{
    if (d->collecting())
        trackPanel(id);
}

void KRC_TrackingManager::onNodeChanged(TUNodeSet const& nodes)
{
    if (!d->collecting())
        return;
    for (auto const& weak : nodes) {
        UT_SharedPtr<MO_Node> const node = weak.lock();
        if (!node)
            continue;
        Panel_t panel = attribute(node->sceneCommon());
        if (panel.isValid())
            trackPanel(panel);
    }
}

void KRC_TrackingManager::onTimedValuesUpdated(TUTvSet const& values)
{
    if (!d->collecting())
        return;
    for (TUTimedValue* value : values) {
        Panel_t panel = value ? attribute(value->sceneCommon) : Panel_t::invalid;
        if (panel.isValid())
            trackPanel(panel);
    }
}

bool KRC_TrackingManager::countsAsPanelChange(PIO_MetaModif const& modification)
{
    PIO_Metadata* record = modification.metadata;
    if (!record)
        return false;
    if (dynamic_cast<KRC_Tracking*>(record) && modification.code != kTrackingSetCode)
        return false;
    if (dynamic_cast<KRC_InfoFieldList*>(record) && modification.code != kInfoFieldValuesCode)
        return false;
    if (dynamic_cast<KRC_ObjInfo*>(record) && modification.code == kObjInfoNameCode)
        return false;
    return true;
}

void KRC_TrackingManager::onMetadataChanged(TUMetadataSet const& modifications)
{
    if (!d->enabled)
        return;
    for (PIO_MetaModif const& modification : modifications) {
        if (!countsAsPanelChange(modification))
            continue;
        for (auto it = d->project->beginPanel(); it != d->project->endPanel(); ++it) {
            TUScene* scene = it->symbol();
            if (scene && scene->metadatas() && scene->metadatas()->contains(modification.metadata)) {
                Panel_t panel = *it;
                trackPanel(panel);
                break;
            }
        }
    }
}
