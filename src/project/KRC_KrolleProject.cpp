#include "project/KRC_KrolleProject.h"

#include "project/EngineLinks.h"
#include "project/KRC_KrolleProjectPrivate.h"

#include "layers/KRC_PanelLayerManager.h"
#include "tracking/KRC_DrawingObserver.h"
#include "tracking/KRC_TrackingManager.h"

using Krolle::ObjectCache;
using Krolle::Panel_t;
using Krolle::PanelTrans_t;
using Krolle::Shot_t;
using Krolle::TimelineIndex;
using Krolle::Trans_t;

unsigned const KRC_KrolleProject::invalidNdx;

KRC_KrolleProject::KRC_KrolleProject(SC_Project* project)
    : QObject()
    , d(new KRC_KrolleProjectPrivate(project))
{
    if (project) {
        TUSceneChangeManager* manager = project->projectCommon()->changeManager();
        connect(manager, &TUSceneChangeManager::sceneChanged, this, &KRC_KrolleProject::onSceneChanged);
        connect(manager, &TUSceneChangeManager::timedValuesChanged, this,
            &KRC_KrolleProject::onTimedValuesChanged);
    }
    // The owned managers are made here, in this order: drawing observer, panel layer
    // manager, tracking manager, name helper.
    d->drawingObserver = new KRC_DrawingObserver(this);
    d->layerManager = new KRC_PanelLayerManager(this);
    d->trackingManager = new KRC_TrackingManager(this);
    d->nameHelper = new KRC_NameHelper(this);
}

KRC_KrolleProject::~KRC_KrolleProject()
{
    disconnect();
    d->clearCaches();
    // The owned managers are deleted here, in this order: panel layer manager,
    // tracking manager, drawing observer, name helper.
    delete d->layerManager;
    d->layerManager = nullptr;
    delete d->trackingManager;
    d->trackingManager = nullptr;
    delete d->drawingObserver;
    d->drawingObserver = nullptr;
    delete d->nameHelper;
    d->nameHelper = nullptr;
    delete d;
}

SC_Project* KRC_KrolleProject::project() const
{
    return d->project.get();
}

KRC_ReferenceToolData* KRC_KrolleProject::referenceToolData() const
{
    return d->referenceToolData.get();
}

KRC_NameHelper* KRC_KrolleProject::nameHelper() const
{
    return d->nameHelper;
}

KRC_DrawingObserver* KRC_KrolleProject::drawingObserver() const
{
    return d->drawingObserver;
}

KRC_PanelLayerManager* KRC_KrolleProject::layerManager() const
{
    return d->layerManager;
}

KRC_TrackingManager* KRC_KrolleProject::trackingManager() const
{
    return d->trackingManager;
}

SC_ProjectCommon* KRC_KrolleProject::projectCommon() const
{
    return project() ? project()->projectCommon() : nullptr;
}

TUSceneChangeManager* KRC_KrolleProject::changeManager() const
{
    SC_ProjectCommon* common = projectCommon();
    return common ? common->changeManager() : nullptr;
}

TUScene* KRC_KrolleProject::topScene() const
{
    return project() ? dynamic_cast<TUScene*>(project()->sceneAt(0)) : nullptr;
}

TUSeqTimedValue* KRC_KrolleProject::topSceneTv() const
{
    return Krolle::getSeqTimedValueOf(topScene());
}

MO_ElementModule* KRC_KrolleProject::topSceneElemModule() const
{
    TUScene* scene = topScene();
    TUGroup* root = scene ? scene->getRootGroup() : nullptr;
    if (!root)
        return nullptr;
    for (auto it = root->subNodesBegin(); it != root->subNodesEnd(); ++it) {
        if (MO_ElementModule* element = dynamic_cast<MO_ElementModule*>(it->get()))
            return element;
    }
    return nullptr;
}

QString KRC_KrolleProject::name() const
{
    SC_ProjectCommon* common = projectCommon();
    TUDbSceneData* data = common ? common->dbSceneData() : nullptr;
    return data ? data->sceneName() : QString();
}

void KRC_KrolleProject::invalidate()
{
    d->clearCaches();
}

void KRC_KrolleProject::setCacheEnabled(bool on)
{
    if (on == d->cacheEnabled)
        return;
    d->clearCaches();
    d->cacheEnabled = on;
    d->setCachesEnabled(on);
}

bool KRC_KrolleProject::cacheEnabled() const
{
    return d->cacheEnabled;
}

void KRC_KrolleProject::validateAndDump() const { }

void KRC_KrolleProject::onSceneChanged()
{
    d->clearCaches();
}

void KRC_KrolleProject::onTimedValuesChanged(const TUTvSet& values)
{
    // Only the timeline itself matters here: a symbol's sequence changing leaves the
    // caches alone until sceneChanged() comes.
    TUSeqTimedValue* timeline = topSceneTv();
    if (timeline && values.count(timeline) > 0)
        d->clearCaches();
}

Shot_t KRC_KrolleProject::shotOfBlock(AT_FrameBlock const* block) const
{
    Shot_t const cached = d->shotCache.findById(Krolle::objectId(block));
    if (cached.isValid())
        return cached;
    Shot_t const shot(block, d->blockScene(block), d->nameHelper);
    d->shotCache.insert(block->firstFrame, block->length(), shot);
    return shot;
}

namespace {

/// From a transition to the shot on the asked side, or the other side when there is
/// none; null when the transition has no neighbour at all.
AT_FrameBlock const* neighbourOfTransition(
    TUSeqTimedValue const* tv, AT_FrameBlock const* transition, bool forward)
{
    AT_FrameBlock const* next = tv->getNextBlock(transition);
    AT_FrameBlock const* prev = tv->getPrevBlock(transition);
    AT_FrameBlock const* preferred = forward ? next : prev;
    return preferred ? preferred : (forward ? prev : next);
}

/// A shot's record that is still fresh (custom and empty) takes the name
/// "internalSymbol", its flag left alone, so the shot has a name to show.
void markFreshSceneInfo(Shot_t const& shot)
{
    PIO_Metadatas* metas = Krolle::metadatasOf(shot.symbol());
    if (!metas)
        return;
    QString const& keyword = KRC_SceneInfo::kPIO_KRMETA_Keyword;
    auto* info = dynamic_cast<KRC_SceneInfo*>(metas->metadata(keyword, keyword));
    if (info && !info->isValid())
        info->name().setValue(QStringLiteral("internalSymbol"));
}

} // namespace

Shot_t KRC_KrolleProject::getShotAt(unsigned frame, ResolutionPriority priority) const
{
    std::size_t const span = d->spanAt(frame);
    if (span == TimelineIndex::none)
        return shotAtByEngine(frame, priority);
    TimelineIndex& index = d->timelineIndex;
    Shot_t& known = index.shotOf(span);
    if (known.isValid() || index.shotByEngine(span))
        return known.isValid() ? known : shotAtByEngine(frame, priority);
    Shot_t const found = shotAtByEngine(frame, priority);
    if (found.isValid() && found.frameBlock() == index.blockOf(span))
        known = found;
    else
        index.setShotByEngine(span);
    return found;
}

Shot_t KRC_KrolleProject::shotAtByEngine(unsigned frame, ResolutionPriority priority) const
{
    bool const forward = priority != PreferPrevious;
    Shot_t const hit = d->shotCache.findByFrame(frame, !forward);
    TUSeqTimedValue* tv = topSceneTv();
    if (!tv)
        return Shot_t::invalid;
    unsigned const covering = tv->getBlockCount(frame);
    if (covering == 0)
        return Shot_t::invalid;
    // Under an overlap the cache cannot tell the sides apart: ask the engine.
    if (covering == 1 && hit.isValid())
        return hit;
    AT_FrameBlock const* block = tv->getBlock(frame);
    // A well-formed timeline needs one step off a transition; the bound only keeps
    // an engine with overlapping transitions from sending the walk round in circles.
    for (unsigned steps = 0; block && steps <= covering; ++steps) {
        if (!block->isInRange(frame))
            return Shot_t::invalid;
        if (AT_TransitionSeq::isTransition(block->seq())) {
            block = neighbourOfTransition(tv, block, forward);
            continue;
        }
        if (!AT_AbstractSceneSeq::toAbstractScene(block->seq()))
            return Shot_t::invalid;
        // Only this lookup marks a new shot's record; navigation does not.
        bool const isNew = d->shotCache.findById(Krolle::objectId(block)).isInvalid();
        Shot_t const shot = shotOfBlock(block);
        if (isNew)
            markFreshSceneInfo(shot);
        return shot;
    }
    return Shot_t::invalid;
}

Trans_t KRC_KrolleProject::getTransAt(unsigned frame) const
{
    Trans_t const hit = d->transCache.findByFrame(frame, true);
    if (hit.isValid())
        return hit;
    TUSeqTimedValue* tv = topSceneTv();
    if (!tv || tv->getBlockCount(frame) <= 1)
        return Trans_t::invalid;
    AT_FrameBlock const* block = tv->getBlock(frame);
    if (!block || !AT_TransitionSeq::toTransition(block->seq()))
        return Trans_t::invalid;
    Trans_t const transition(block);
    d->transCache.insert(block->firstFrame, block->length(), transition);
    return transition;
}

Panel_t KRC_KrolleProject::getPanelIn(Shot_t const& shot, unsigned frame) const
{
    unsigned const tvFrame = shot.prjFrameToTvFrame(frame);
    if (shot == Shot_t::invalid || frame > shot.objNumOfFrame())
        return Panel_t::invalid;
    ObjectCache<Panel_t>& cache = d->panelCacheOf(shot.id());
    Panel_t const hit = cache.findByFrame(tvFrame, true);
    if (hit.isValid())
        return hit;
    if (TUSeqTimedValue* symbolTv = d->symbolSequenceOf(shot.frameBlock())) {
        if (symbolTv->getBlockCount() == 0)
            return Panel_t::invalid;
        AT_FrameBlock const* block = symbolTv->getBlock(tvFrame);
        if (TUScene* panelScene = d->blockScene(block))
            return makePanel(shot, cache, block, panelScene);
    }
    reportPanelNotFound(shot, frame);
    return Panel_t::invalid;
}

Panel_t KRC_KrolleProject::makePanel(
    Shot_t const& shot, ObjectCache<Panel_t>& cache, AT_FrameBlock const* block, TUScene* scene) const
{
    Panel_t const panel(block, scene, shot, d->nameHelper);
    // The project-wide panel cache is only read by id. Frame entries there, keyed by the
    // symbol's frames, came out of order at every transition, and each such insert moved
    // the entries behind it: quadratic over a walk of a large project.
    d->panelCache.insertById(panel);
    cache.insert(block->firstFrame, block->length(), panel);
    return panel;
}

void KRC_KrolleProject::reportPanelNotFound(Shot_t const& shot, unsigned frame) const
{
    char const* const text
        = "Invalid search for a panel at frame %1 of shot named %2... nothing can be found there";
    MSG_Scope message(text, tr(text), MSG_Scope::Action(5));
    message.arg(frame).arg(shot.name());
}

Panel_t KRC_KrolleProject::getPanelAt(unsigned frame, ResolutionPriority priority) const
{
    std::size_t const span = d->spanAt(frame);
    Krolle::IndexedPanel* slot = span == TimelineIndex::none ? nullptr : indexedPanel(span, frame);
    if (slot && slot->panel.isValid())
        return slot->panel;
    Panel_t const found = panelAtByEngine(frame, priority);
    if (slot && !slot->byEngine) {
        if (found.isValid() && found.frameBlock() == slot->block)
            slot->panel = found;
        else
            slot->byEngine = true;
    }
    return found;
}

Krolle::IndexedPanel* KRC_KrolleProject::indexedPanel(std::size_t span, unsigned frame) const
{
    TimelineIndex& index = d->timelineIndex;
    if (!index.hasPanels(span)) {
        // The span has one shot: either side finds it.
        Shot_t const shot = getShotAt(frame, PreferPrevious);
        index.buildPanels(span, symbolSequenceIndexed(shot), shot.firstFrame(), shot.prjFrameToTvFrame(1));
    }
    return index.panelAt(span, frame);
}

TUSeqTimedValue const* KRC_KrolleProject::symbolSequenceIndexed(Shot_t const& shot) const
{
    if (shot.isInvalid())
        return nullptr;
    // Panels are looked up at the symbol frame prjFrameToTvFrame gives, which steps
    // with the project frame only from a warp start of 0 up.
    AT_TimeWarpSeq const* warp = AT_TimeWarpSeq::toTimeWarp(shot.frameBlock()->seq());
    if (warp && !(warp->start >= 0.0 && warp->start < 1e9))
        return nullptr;
    return d->symbolSequenceOf(shot.frameBlock());
}

Panel_t KRC_KrolleProject::panelAtByEngine(unsigned frame, ResolutionPriority priority) const
{
    Shot_t const shot = getShotAt(frame, priority);
    if (shot.isInvalid())
        return Panel_t::invalid;
    return getPanelIn(shot, frame - shot.firstFrame() + 1);
}

PanelTrans_t KRC_KrolleProject::getPanelTransAt(unsigned frame) const
{
    Trans_t const transition = getTransAt(frame);
    if (transition.isValid())
        return PanelTrans_t(transition);
    return PanelTrans_t(getPanelAt(frame, PreferPrevious));
}
