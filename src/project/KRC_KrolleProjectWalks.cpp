// Counts, lookups by index, id and name, lists of ids, indices of acts and
// sequences, and the way back from engine objects to handles: all walks of the
// timeline with the iterators. Only the totals, the shots' places and the two reverse
// tables are kept, and they go with the caches.
#include "project/KRC_KrolleProject.h"

#include "project/KRC_KrolleProjectPrivate.h"

#include <cmath>
#include <type_traits>

using Krolle::objiterator;
using Krolle::objTransIterator;
using Krolle::Panel_t;
using Krolle::PanelTrans_t;
using Krolle::Shot_t;
using Krolle::Trans_t;

namespace {

/// The number of objects from `it` to `end`.
template <class Iterator> quint32 walkLength(Iterator it, Iterator const& end)
{
    quint32 count = 0;
    for (; it != end; ++it)
        ++count;
    return count;
}

/// The first object from `it` on that passes `test`, else the end's object.
template <class Iterator, class Test> auto findInWalk(Iterator it, Iterator const& end, Test test)
{
    for (; it != end; ++it) {
        if (test(*it))
            return *it;
    }
    return *end;
}

/// The 0-based place of the first object that passes `test`, else invalidNdx.
template <class Iterator, class Test> unsigned placeInWalk(Iterator it, Iterator const& end, Test test)
{
    for (unsigned place = 0; it != end; ++it, ++place) {
        if (test(*it))
            return place;
    }
    return KRC_KrolleProject::invalidNdx;
}

/// The object `steps` places after `it`, stopping at the invalid handle.
template <class Iterator> auto stepInWalk(Iterator it, unsigned steps)
{
    for (; steps > 0 && it->isValid(); --steps)
        ++it;
    return *it;
}

/// A cached total, recounted by `count` when it is not known; never kept while the
/// cache is disabled.
template <class Count> unsigned keptTotal(quint32& total, bool cacheEnabled, Count count)
{
    if (!cacheEnabled)
        total = 0;
    if (total == 0)
        total = count();
    return total;
}

/// The sequence index of the first object that passes `isTarget`: runs of equal
/// sequence names counted from the first object's.
template <class Iterator, class Test> unsigned sequenceIndex(Iterator it, Iterator const& end, Test isTarget)
{
    if (it == end)
        return KRC_KrolleProject::invalidNdx;
    QString previous = it->sequenceName();
    for (unsigned count = 0; it != end; ++it) {
        QString const name = it->sequenceName();
        if (name != previous)
            ++count;
        if (isTarget(*it))
            return count;
        previous = name;
    }
    return KRC_KrolleProject::invalidNdx;
}

/// The act index of `target`. The test comes before the count, so the first object of
/// an act answers with the index of the act before it.
template <class Iterator, class T> unsigned actIndex(Iterator it, Iterator const& end, T const& target)
{
    QString previous;
    // The first object is told by its place: a custom act name may be null.
    for (unsigned count = 0, place = 0; it != end; ++it, ++place) {
        if (*it == target)
            return count;
        QString const name = it->actName();
        if (place > 0 && name != previous)
            ++count;
        previous = name;
    }
    return KRC_KrolleProject::invalidNdx;
}

bool sameName(QString const& name, QString const& wanted, bool upperCase)
{
    return name == wanted || (upperCase && name.toUpper() == wanted);
}

unsigned truncatedFrame(double frame)
{
    return frame > 0.0 ? unsigned(std::trunc(frame)) : 0u;
}

} // namespace

// Counts.

unsigned KRC_KrolleProject::shotCount() const
{
    return keptTotal(d->shotTotal, d->cacheEnabled, [this] { return walkLength(beginShot(), endShot()); });
}

unsigned KRC_KrolleProject::panelCount() const
{
    return keptTotal(d->panelTotal, d->cacheEnabled, [this] { return walkLength(beginPanel(), endPanel()); });
}

unsigned KRC_KrolleProject::transCount() const
{
    return keptTotal(d->transTotal, d->cacheEnabled, [this] { return walkLength(beginTrans(), endTrans()); });
}

unsigned KRC_KrolleProject::panelCount(Shot_t const& shot) const
{
    if (shot.isInvalid())
        return 0;
    AT_TimeWarpSeq const* warp = AT_TimeWarpSeq::toTimeWarp(shot.frameBlock()->seq());
    TUSeqTimedValue* symbolTv = d->symbolSequenceOf(shot.frameBlock());
    if (!warp || !symbolTv)
        return 0;
    // A panel that runs past the end of the warp is not counted.
    unsigned const lastShown = truncatedFrame(warp->end);
    unsigned count = 0;
    for (AT_FrameBlock const* block = symbolTv->getBlock(truncatedFrame(warp->start));
         block && block->lastFrame <= lastShown; block = symbolTv->getNextBlock(block))
        ++count;
    return count;
}

void KRC_KrolleProject::buildAll() const
{
    walkLength(beginPanel(), endPanel());
    walkLength(beginTrans(), endTrans());
}

// Lookups.

Shot_t KRC_KrolleProject::getShotByNdx(unsigned ndx) const
{
    return stepInWalk(beginShot(), ndx);
}

Panel_t KRC_KrolleProject::getPanelByNdx(unsigned ndx) const
{
    return stepInWalk(beginPanel(), ndx);
}

Trans_t KRC_KrolleProject::getTransByNdx(unsigned ndx) const
{
    return stepInWalk(beginTrans(), ndx);
}

namespace {

/// The cached object with that id (a hash lookup), else the first of a walk that has
/// it; the walk fills the cache as it goes.
template <class Handle, class Iterator>
Handle findById(
    Krolle::ObjectCache<Handle> const& cache, SC_Id const& id, Iterator const& begin, Iterator const& end)
{
    Handle const cached = cache.findById(id);
    if (cached.isValid())
        return cached;
    return findInWalk(begin, end, [&id](Handle const& object) { return object.id() == id; });
}

} // namespace

Shot_t KRC_KrolleProject::getShotByID(SC_Id const& id) const
{
    return findById(d->shotCache, id, beginShot(), endShot());
}

// The panel cache answers only while the cache is enabled, like every cache.
Panel_t KRC_KrolleProject::getPanelByID(SC_Id const& id) const
{
    return findById(d->panelCache, id, beginPanel(), endPanel());
}

Trans_t KRC_KrolleProject::getTransByID(SC_Id const& id) const
{
    return findById(d->transCache, id, beginTrans(), endTrans());
}

PanelTrans_t KRC_KrolleProject::getPanelTransById(SC_Id const& id) const
{
    Trans_t const trans = getTransByID(id);
    return trans.isValid() ? PanelTrans_t(trans) : PanelTrans_t(getPanelByID(id));
}

bool KRC_KrolleProject::isShotValid(SC_Id const& id) const
{
    return getShotByID(id).isValid();
}

bool KRC_KrolleProject::isPanelValid(SC_Id const& id) const
{
    return getPanelByID(id).isValid();
}

bool KRC_KrolleProject::isTransValid(SC_Id const& id) const
{
    return getTransByID(id).isValid();
}

Shot_t KRC_KrolleProject::getShotByName(
    QString const& name, QString const& sequenceName, bool upperCase) const
{
    return findInWalk(beginShot(), endShot(), [&](Shot_t const& shot) {
        return (sequenceName.isEmpty() || sameName(shot.sequenceName(), sequenceName, upperCase))
            && sameName(shot.name(), name, upperCase);
    });
}

unsigned KRC_KrolleProject::getNumOfFrames() const
{
    return rbeginShot()->lastFrame();
}

// Sequences by name.

Shot_t KRC_KrolleProject::firstInSequence(QString const& name, bool upperCase) const
{
    return findInWalk(beginShot(), endShot(),
        [&](Shot_t const& shot) { return sameName(shot.sequenceName(), name, upperCase); });
}

Shot_t KRC_KrolleProject::lastInSequence(QString const& name, bool upperCase) const
{
    return lastInSequence(firstInSequence(name, upperCase));
}

bool KRC_KrolleProject::sequenceNameExists(QString const& name) const
{
    if (!sequenceExists() || name.isEmpty())
        return false;
    return firstInSequence(name, false).isValid();
}

// Lists.

std::vector<SC_Id> KRC_KrolleProject::panelsIdBetween(
    Panel_t const& a, Panel_t const& b, bool inclusive) const
{
    std::vector<SC_Id> ids;
    if (a.isInvalid() || b.isInvalid() || (a == b && !inclusive))
        return ids;
    objiterator<Panel_t> it(a, this);
    objiterator<Panel_t> stop(b, this);
    if (inclusive)
        ++stop;
    else
        ++it;
    for (; it != stop; ++it) {
        // `a` after `b`: the walk ran off the timeline without meeting `b`.
        if (it->isInvalid())
            return {};
        ids.push_back(it->id());
    }
    return ids;
}

std::vector<SC_Id> KRC_KrolleProject::panelsIdIn(Shot_t const& shot) const
{
    return panelsIdBetween(firstPanelOf(shot), lastPanelOf(shot), true);
}

std::vector<SC_Id> KRC_KrolleProject::shotsIdInSequence(QString const& name) const
{
    std::vector<SC_Id> ids;
    for (auto it = beginShot(); it != endShot(); ++it) {
        if (it->sequenceName() == name)
            ids.push_back(it->id());
    }
    return ids;
}

// Acts and sequences.

unsigned KRC_KrolleProject::actCount() const
{
    return keptTotal(d->actTotal, d->cacheEnabled, [this] {
        quint32 count = 0;
        for (Shot_t shot = first(Shot_t::invalid); shot.isValid(); shot = next(lastInAct(shot)))
            ++count;
        return count;
    });
}

unsigned KRC_KrolleProject::sequenceCount() const
{
    if (!sequenceExists())
        return 0;
    return keptTotal(d->sequenceTotal, d->cacheEnabled, [this] {
        quint32 count = 0;
        for (Shot_t shot = first(Shot_t::invalid); shot.isValid(); shot = next(lastInSequence(shot)))
            ++count;
        return count;
    });
}

unsigned KRC_KrolleProject::getActNdx(Shot_t const& shot) const
{
    return actIndex(beginShot(), endShot(), shot);
}

unsigned KRC_KrolleProject::getActNdx(Panel_t const& panel) const
{
    return actIndex(beginPanel(), endPanel(), panel);
}

unsigned KRC_KrolleProject::getActNdx(QString const& name) const
{
    bool const found = findInWalk(beginShot(), endShot(), [&name](Shot_t const& shot) {
        return shot.actName() == name;
    }).isValid();
    return found ? 0 : invalidNdx;
}

unsigned KRC_KrolleProject::getSequenceNdx(Shot_t const& shot) const
{
    if (!sequenceExists())
        return invalidNdx;
    return sequenceIndex(beginShot(), endShot(), [&shot](Shot_t const& at) { return at == shot; });
}

unsigned KRC_KrolleProject::getSequenceNdx(Panel_t const& panel) const
{
    if (!sequenceExists())
        return invalidNdx;
    return sequenceIndex(beginPanel(), endPanel(), [&panel](Panel_t const& at) { return at == panel; });
}

unsigned KRC_KrolleProject::getSequenceNdx(QString const& name) const
{
    if (!sequenceExists())
        return invalidNdx;
    return sequenceIndex(
        beginShot(), endShot(), [&name](Shot_t const& at) { return at.sequenceName() == name; });
}

unsigned KRC_KrolleProject::getShotNdx(Shot_t const& shot) const
{
    if (!d->cacheEnabled)
        return placeInWalk(beginShot(), endShot(), [&shot](Shot_t const& at) { return at == shot; });
    // The same answer as the walk, kept: a shot's automatic name asks for its place,
    // and a search by name over automatic names would otherwise walk once per shot.
    if (d->shotPlaces.empty()) {
        unsigned place = 0;
        for (auto it = beginShot(); it != endShot(); ++it, ++place)
            d->shotPlaces.emplace(it->frameBlock(), std::make_pair(it->id(), place));
    }
    auto const found = d->shotPlaces.find(shot.frameBlock());
    return found != d->shotPlaces.end() && found->second.first == shot.id() ? found->second.second : invalidNdx;
}

unsigned KRC_KrolleProject::getShotNdx(QString const& name) const
{
    return placeInWalk(beginShot(), endShot(), [&name](Shot_t const& at) { return at.name() == name; });
}

unsigned KRC_KrolleProject::getPanelNdx(Panel_t const& panel, bool inShot) const
{
    auto const isPanel = [&panel](Panel_t const& at) { return at == panel; };
    if (inShot)
        return placeInWalk(beginPanel(panel.shot()), endPanel(panel.shot()), isPanel);
    return placeInWalk(beginPanel(), endPanel(), isPanel);
}

// Engine objects to handles.

namespace {

/// Looks a scene up in a reverse table, filling the table by one walk when it is
/// empty: each object's scene to its id, the first pair for a scene staying. On the
/// filling walk the answer is the last object of that scene.
template <class Iterator, class ById>
auto sceneToObject(std::map<SC_SceneCommon const*, SC_Id>& table, SC_SceneCommon const* scene, Iterator it,
    Iterator const& end, ById byId) -> std::decay_t<decltype(*end)>
{
    using Handle = std::decay_t<decltype(*end)>;
    if (!scene)
        return Handle::invalid;
    if (!table.empty()) {
        auto const found = table.find(scene);
        return found == table.end() ? Handle::invalid : byId(found->second);
    }
    Handle match = Handle::invalid;
    for (; it != end; ++it) {
        TUScene const* symbol = it->symbol();
        if (!symbol)
            continue;
        table.emplace(symbol->sceneCommon(), it->id());
        if (symbol->sceneCommon() == scene)
            match = *it;
    }
    return match;
}

} // namespace

Shot_t KRC_KrolleProject::sceneCommonToShot(SC_SceneCommon const* sceneCommon) const
{
    return sceneToObject(d->sceneCommonToShotId, sceneCommon, beginShot(), endShot(),
        [this](SC_Id const& id) { return getShotByID(id); });
}

Panel_t KRC_KrolleProject::sceneCommonToPanel(SC_SceneCommon const* sceneCommon) const
{
    return sceneToObject(d->sceneCommonToPanelId, sceneCommon, beginPanel(), endPanel(),
        [this](SC_Id const& id) { return getPanelByID(id); });
}

Shot_t KRC_KrolleProject::tvToShot(TUTimedValue const* tv) const
{
    return tv ? sceneCommonToShot(tv->sceneCommon) : Shot_t::invalid;
}

Panel_t KRC_KrolleProject::tvToPanel(TUTimedValue const* tv) const
{
    return tv ? sceneCommonToPanel(tv->sceneCommon) : Panel_t::invalid;
}

Panel_t KRC_KrolleProject::nodeToPanel(MO_Node const* node) const
{
    return node ? sceneCommonToPanel(node->sceneCommon()) : Panel_t::invalid;
}

// Same-shot tests.

bool KRC_KrolleProject::areAllPanelsOfSameScene(std::vector<SC_Id>& panelIds) const
{
    if (panelIds.empty())
        return false;
    Panel_t const first = getPanelByID(panelIds.front());
    if (first.isInvalid() || first.shot().isInvalid())
        return false;
    SC_Id const shot = first.shot().id();
    for (SC_Id const& id : panelIds) {
        Panel_t const panel = getPanelByID(id);
        if (panel.isInvalid() || panel.shot().isInvalid() || panel.shot().id() != shot)
            return false;
    }
    return true;
}

bool KRC_KrolleProject::neighborIsOfSameScene(SC_Id first, SC_Id last) const
{
    Panel_t const firstPanel = getPanelByID(first);
    if (firstPanel.isInvalid())
        return false;
    Panel_t const before = prev(firstPanel);
    if (before.isInvalid())
        return false;
    if (before.shot() == firstPanel.shot())
        return true;
    Panel_t const lastPanel = getPanelByID(last);
    if (lastPanel.isInvalid())
        return false;
    Panel_t const after = next(lastPanel);
    return after.isValid() && after.shot() == lastPanel.shot();
}
