#include "host/engine/HostAuthoring.h"

#include "host/engine/SC_Project.h"
#include "host/engine/SC_ProjectCommon.h"
#include "host/engine/SC_SceneManager.h"
#include "host/engine/TUScene.h"
#include "host/engine/TUSceneChangeManager.h"
#include "host/engine/TUTimedValue.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_set>
#include <memory>

namespace {

// The top sequence seen as shots and junctions; rebuilt after each step of an edit.
struct Timeline
{
    SC_Project* project = nullptr;
    TUSeqTimedValue* tv = nullptr;
    std::vector<unsigned> shots; // list positions of the blocks that are no transitions
    std::vector<int> junctions; // per junction, the list position of its transition or -1
    mutable std::unordered_set<quint64> transitionIds; // filled by holdsTransition
    mutable bool transitionIdsKnown = false;

    unsigned count() const { return unsigned(shots.size()); }
    AT_FrameBlock const* shot(unsigned k) const { return tv->blockAt(shots[k]); }
    AT_FrameBlock const* transition(unsigned j) const
    {
        return junctions[j] < 0 ? nullptr : tv->blockAt(unsigned(junctions[j]));
    }
    // Length of the transition at a junction, 0 when free or when it is `ignored`.
    quint32 transitionLength(unsigned j, int ignored = -1) const
    {
        AT_FrameBlock const* block = int(j) == ignored ? nullptr : transition(j);
        return block ? block->length() : 0;
    }
};

Timeline scan(SC_Project const* project)
{
    Timeline tl;
    tl.project = const_cast<SC_Project*>(project);
    TUScene* top = project ? project->topScene() : nullptr;
    if (!top)
        return tl;
    tl.tv = top->sequence();
    tl.junctions.push_back(-1);
    for (unsigned i = 0; i < tl.tv->getBlockCount(); ++i) {
        if (tl.tv->blockAt(i)->isTransition()) {
            if (tl.junctions.back() < 0)
                tl.junctions.back() = int(i);
        } else {
            tl.shots.push_back(i);
            tl.junctions.push_back(-1);
        }
    }
    return tl;
}

bool fail(QString* error, QString const& message)
{
    if (error)
        *error = message;
    return false;
}

SC_Id failId(QString* error, QString const& message)
{
    fail(error, message);
    return SC_Id();
}

QString noSuch(char const* what, SC_Id const& id)
{
    return QStringLiteral("no %1 with id %2").arg(QLatin1String(what), id.toString());
}

TUSceneChangeManager* managerOf(SC_Project const* project)
{
    return project->projectCommon()->changeManager();
}

SC_Id sceneIdOf(AT_FrameBlock const* block)
{
    auto const* scene = block ? AT_AbstractSceneSeq::toAbstractScene(block->seq()) : nullptr;
    return scene ? scene->sceneId : SC_Id();
}

TUScene* sceneOf(SC_Project const* project, SC_Id const& id)
{
    if (id.isNull())
        return nullptr;
    return dynamic_cast<TUScene*>(project->projectCommon()->sceneManager()->find(id));
}

int findShot(Timeline const& tl, SC_Id const& id)
{
    if (id.isNull())
        return -1;
    for (unsigned k = 0; k < tl.count(); ++k) {
        if (sceneIdOf(tl.shot(k)) == id)
            return int(k);
    }
    return -1;
}

int findTransition(Timeline const& tl, SC_Id const& id)
{
    for (unsigned j = 0; j < tl.junctions.size(); ++j) {
        auto const* seq
            = tl.transition(j) ? AT_TransitionSeq::toTransition(tl.transition(j)->seq()) : nullptr;
        if (seq && seq->id == id)
            return int(j);
    }
    return -1;
}

// Whether a transition of the timeline has the id; the ids are gathered on first use.
bool holdsTransition(Timeline const& tl, SC_Id const& id)
{
    if (!tl.transitionIdsKnown) {
        for (unsigned j = 0; j < tl.junctions.size(); ++j) {
            if (auto const* seq = tl.transition(j) ? AT_TransitionSeq::toTransition(tl.transition(j)->seq()) : nullptr)
                tl.transitionIds.insert(seq->id.value());
        }
        tl.transitionIdsKnown = true;
    }
    return tl.transitionIds.count(id.value()) > 0;
}

// The id a restored object asked for, if no object of the project has it; else a new one.
SC_Id idFor(Timeline const& tl, SC_Id const& wanted)
{
    SC_ProjectCommon* common = tl.project->projectCommon();
    if (wanted.isNull() || common->sceneManager()->find(wanted) || holdsTransition(tl, wanted))
        return common->allocateId();
    common->reserveId(wanted);
    return wanted;
}

SC_Id wish(std::vector<SC_Id> const& ids, size_t i)
{
    return i < ids.size() ? ids[i] : SC_Id();
}

std::unique_ptr<AT_FrameBlock> warpBlock(quint32 first, quint32 length, SC_Id const& scene)
{
    return std::make_unique<AT_FrameBlock>(
        first, first + length - 1, std::make_unique<AT_TimeWarpSeq>(scene, 1.0, double(length)));
}

// A shot's symbol with one panel scene per length, with the ids asked for where free
// (the shot's first, then its panels'); `total` is the symbol's length.
TUScene* makeSymbol(Timeline const& tl, std::vector<unsigned> const& panelLengths, std::vector<SC_Id> const& ids,
    quint32& total)
{
    TUScene* symbol = tl.project->createScene(QString(), idFor(tl, wish(ids, 0)));
    total = 0;
    for (size_t i = 0; i < panelLengths.size(); ++i) {
        TUScene* panel = tl.project->createScene(QString(), idFor(tl, wish(ids, i + 1)));
        symbol->sequence()->insertBlock(
            symbol->sequence()->getBlockCount(), warpBlock(total + 1, panelLengths[i], panel->id));
        total += panelLengths[i];
    }
    return symbol;
}

// Takes the block at `pos` out and closes the gap: the next block moves to where the
// taken one started.
std::unique_ptr<AT_FrameBlock> cutBlock(TUSeqTimedValue* seq, unsigned pos)
{
    std::unique_ptr<AT_FrameBlock> block = seq->takeBlock(pos);
    if (AT_FrameBlock const* next = seq->blockAt(pos))
        seq->shiftBlocks(pos, -(qint64(next->firstFrame) - qint64(block->firstFrame)));
    return block;
}

// Puts a block at `pos` starting at `first`, moving what stands there and after it.
void pasteBlock(TUSeqTimedValue* seq, unsigned pos, std::unique_ptr<AT_FrameBlock> block, quint32 first)
{
    quint32 const length = block->length();
    seq->shiftBlocks(pos, length);
    block->firstFrame = first;
    block->lastFrame = first + length - 1;
    seq->insertBlock(pos, std::move(block));
}

// Where a block inserted at a list position starts: where the block there starts, or
// after the end of the sequence.
quint32 firstFrameAt(TUSeqTimedValue const* seq, unsigned pos)
{
    AT_FrameBlock const* there = seq->blockAt(pos);
    return there ? there->firstFrame : seq->nFrames() + 1;
}

// --- Shots that follow their symbol ----------------------------------------------

bool followsSymbol(SC_Project const* project, AT_FrameBlock const* shotBlock)
{
    auto const* warp = AT_TimeWarpSeq::toTimeWarp(shotBlock->seq());
    TUScene const* symbol = warp ? sceneOf(project, warp->sceneId) : nullptr;
    if (!symbol)
        return false;
    unsigned const n = symbol->sequence()->nFrames();
    return n > 0 && warp->start == 1.0 && warp->end == double(n) && shotBlock->length() == n;
}

// Room for a shot: it keeps at least one frame outside its transitions.
bool shotLengthFits(Timeline const& tl, unsigned k, qint64 length, int ignoredJunction = -1)
{
    return length
        >= qint64(tl.transitionLength(k, ignoredJunction)) + tl.transitionLength(k + 1, ignoredJunction) + 1;
}

// Changes a shot's length by `delta`, moving what follows; a shot that follows its
// symbol also moves its warp's end.
void reshapeShot(Timeline const& tl, unsigned k, qint64 delta, bool moveWarpEnd)
{
    if (delta == 0)
        return;
    unsigned const pos = tl.shots[k];
    AT_FrameBlock const* block = tl.tv->blockAt(pos);
    tl.tv->setBlockRange(pos, block->firstFrame, quint32(qint64(block->lastFrame) + delta));
    tl.tv->shiftBlocks(pos + 1, delta);
    if (moveWarpEnd) {
        AT_TimeWarpSeq::toTimeWarp(tl.tv->editBlock(pos)->seq())->end += double(delta);
        tl.tv->touch();
    }
}

// --- Transitions ---------------------------------------------------------------

// The longest transition that fits at a junction, the transition at `ignored` set
// aside; 0 when none fits.
qint64 transitionRoom(Timeline const& tl, unsigned j, int ignored)
{
    unsigned const n = tl.count();
    qint64 room = std::numeric_limits<qint64>::max();
    if (j > 0)
        room = std::min(room, qint64(tl.shot(j - 1)->length()) - 1 - tl.transitionLength(j - 1, ignored));
    if (j < n)
        room = std::min(room, qint64(tl.shot(j)->length()) - 1 - tl.transitionLength(j + 1, ignored));
    return n == 0 ? 0 : room;
}

bool checkFreeJunction(Timeline const& tl, unsigned j, int ignored, QString* error)
{
    if (j >= tl.junctions.size())
        return fail(
            error, QStringLiteral("junction %1 is past the last shot (%2 shots)").arg(j).arg(tl.count()));
    if (tl.junctions[j] >= 0 && int(j) != ignored)
        return fail(error, QStringLiteral("junction %1 already holds a transition").arg(j));
    if (j > 0 && j < tl.count() && tl.transitionLength(j, ignored) == 0
        && tl.shot(j)->firstFrame != tl.shot(j - 1)->lastFrame + 1)
        return fail(error, QStringLiteral("shots %1 and %2 are not adjacent").arg(j - 1).arg(j));
    return true;
}

bool checkTransitionLength(Timeline const& tl, unsigned j, qint64 length, int ignored, QString* error)
{
    qint64 const room = transitionRoom(tl, j, ignored);
    if (length < 1 || length > room)
        return fail(error,
            QStringLiteral("a transition of %1 frames does not fit at junction %2 (room for %3)")
                .arg(length)
                .arg(j)
                .arg(std::max<qint64>(room, 0)));
    return true;
}

// Takes the transition at a junction out; the shots it joined no longer overlap.
std::unique_ptr<AT_FrameBlock> detachTransition(Timeline const& tl, unsigned j)
{
    unsigned const pos = unsigned(tl.junctions[j]);
    qint64 overlap = 0;
    if (j > 0 && j < tl.count()) {
        qint64 const aLast = tl.shot(j - 1)->lastFrame;
        qint64 const bFirst = tl.shot(j)->firstFrame;
        overlap = std::max<qint64>(0, aLast - bFirst + 1);
    }
    std::unique_ptr<AT_FrameBlock> block = tl.tv->takeBlock(pos);
    if (overlap > 0)
        tl.tv->shiftBlocks(pos, overlap);
    return block;
}

// Puts a transition of `length` frames at a free junction (checked by the caller).
void attachTransition(Timeline const& tl, unsigned j, std::unique_ptr<AT_FrameBlock> block, quint32 length)
{
    unsigned const n = tl.count();
    unsigned pos;
    if (j < n) {
        pos = tl.shots[j];
        if (j > 0)
            tl.tv->shiftBlocks(pos, -qint64(length));
        block->firstFrame = tl.tv->blockAt(pos)->firstFrame;
    } else {
        pos = tl.shots[n - 1] + 1;
        block->firstFrame = tl.shot(n - 1)->lastFrame - length + 1;
    }
    block->lastFrame = block->firstFrame + length - 1;
    tl.tv->insertBlock(pos, std::move(block));
}

// --- Panels --------------------------------------------------------------------

struct PanelPlace
{
    Timeline tl;
    unsigned shot = 0;
    TUSeqTimedValue* seq = nullptr; // the symbol's sequence
    unsigned pos = 0; // the panel's position in it
};

bool findPanel(SC_Project const* project, SC_Id const& panel, PanelPlace& place)
{
    place.tl = scan(project);
    if (panel.isNull() || !sceneOf(project, panel))
        return false;
    for (unsigned k = 0; k < place.tl.count(); ++k) {
        TUScene* symbol = sceneOf(project, sceneIdOf(place.tl.shot(k)));
        int const pos = symbol ? symbol->sequence()->indexOf(symbol->sequence()->findBlock(panel)) : -1;
        if (pos >= 0) {
            place.shot = k;
            place.seq = symbol->sequence();
            place.pos = unsigned(pos);
            return true;
        }
    }
    return false;
}

// The last symbol frame a shot shows: the whole frame of its warp's end, or its length.
qint64 lastShownFrame(AT_FrameBlock const* shotBlock)
{
    auto const* warp = AT_TimeWarpSeq::toTimeWarp(shotBlock->seq());
    return warp ? qint64(std::trunc(warp->end)) : qint64(shotBlock->length());
}

// A panel edit that changes the symbol's length by `delta`: may the shot follow it? A
// shot that does not follow keeps its warp, whose frames must keep their panels: a
// project file with shown frames outside every panel is not read back.
bool checkFollowingShot(Timeline const& tl, unsigned k, qint64 delta, QString* error)
{
    if (!followsSymbol(tl.project, tl.shot(k))) {
        TUScene const* symbol = sceneOf(tl.project, sceneIdOf(tl.shot(k)));
        qint64 const length = symbol ? qint64(symbol->sequence()->nFrames()) + delta : 0;
        if (delta < 0 && length < lastShownFrame(tl.shot(k)))
            return fail(error,
                QStringLiteral("shot %1 shows frames up to %2 of its panels, which would end at frame %3")
                    .arg(k + 1)
                    .arg(lastShownFrame(tl.shot(k)))
                    .arg(length));
        return true;
    }
    if (!shotLengthFits(tl, k, qint64(tl.shot(k)->length()) + delta))
        return fail(error, QStringLiteral("shot %1 would be too short for its transitions").arg(k + 1));
    return true;
}

// Runs a symbol edit, then lets a following shot take up the change of length.
template <class Edit> void editSymbol(Timeline const& tl, unsigned k, TUSeqTimedValue* seq, Edit edit)
{
    bool const follows = followsSymbol(tl.project, tl.shot(k));
    qint64 const before = seq->nFrames();
    edit();
    if (follows)
        reshapeShot(tl, k, qint64(seq->nFrames()) - before, true);
}

// Gives the panel block at `pos` a new length, moving the panels after it; a panel
// warp that showed the whole panel keeps doing so.
void resizePanelBlock(TUSeqTimedValue* seq, unsigned pos, quint32 newLength)
{
    AT_FrameBlock* block = seq->editBlock(pos);
    qint64 const delta = qint64(newLength) - qint64(block->length());
    auto* warp = AT_TimeWarpSeq::toTimeWarp(block->seq());
    if (warp && warp->start == 1.0 && warp->end == double(block->length()))
        warp->end = double(newLength);
    seq->setBlockRange(pos, block->firstFrame, block->firstFrame + newLength - 1);
    seq->shiftBlocks(pos + 1, delta);
}

void removeSymbolScenes(SC_Project* project, TUScene* symbol)
{
    TUSeqTimedValue const* seq = symbol->sequence();
    for (unsigned i = 0; i < seq->getBlockCount(); ++i)
        project->removeScene(sceneIdOf(seq->blockAt(i)));
    project->removeScene(symbol->id);
}

bool checkProject(SC_Project const* project, QString* error)
{
    if (!project || !project->topScene())
        return fail(error, QStringLiteral("the project has no top scene"));
    return true;
}

bool checkLengths(std::vector<unsigned> const& lengths, QString* error)
{
    if (lengths.empty())
        return fail(error, QStringLiteral("a shot needs at least one panel"));
    for (unsigned length : lengths) {
        if (length < 1)
            return fail(error, QStringLiteral("a panel needs at least one frame"));
    }
    return true;
}

// The project's timeline and the position of a shot in it; false, with the reason,
// for a project without top scene or an unknown shot.
bool locateShot(SC_Project const* project, SC_Id const& shot, Timeline& tl, unsigned& k, QString* error)
{
    if (!checkProject(project, error))
        return false;
    tl = scan(project);
    int const found = findShot(tl, shot);
    if (found < 0)
        return fail(error, noSuch("shot", shot));
    k = unsigned(found);
    return true;
}

// The same for a transition, by junction.
bool locateTransition(
    SC_Project const* project, SC_Id const& transition, Timeline& tl, unsigned& j, QString* error)
{
    if (!checkProject(project, error))
        return false;
    tl = scan(project);
    int const found = findTransition(tl, transition);
    if (found < 0)
        return fail(error, noSuch("transition", transition));
    j = unsigned(found);
    return true;
}

// Takes a shot's block out with the transitions at both its ends; the shots after it
// move up.
std::unique_ptr<AT_FrameBlock> detachShot(SC_Project* project, unsigned k)
{
    for (unsigned j : { k + 1, k }) {
        Timeline const tl = scan(project);
        if (tl.junctions[j] >= 0)
            detachTransition(tl, j);
    }
    Timeline const tl = scan(project);
    return cutBlock(tl.tv, tl.shots[k]);
}

} // namespace

namespace HostAuthoring {

UT_SharedPtr<SC_Project> createProject(TUSceneChangeManager* manager)
{
    UT_SharedPtr<SC_Project> project(new SC_Project);
    project->createScene(QStringLiteral("Top"));
    // Made on a manager of its own, so that the making reaches no listener.
    project->projectCommon()->setChangeManager(manager);
    return project;
}

unsigned shotCount(SC_Project const* project)
{
    return scan(project).count();
}

SC_Id shotId(SC_Project const* project, unsigned index)
{
    Timeline const tl = scan(project);
    return index < tl.count() ? sceneIdOf(tl.shot(index)) : SC_Id();
}

int shotIndex(SC_Project const* project, SC_Id const& shot)
{
    return findShot(scan(project), shot);
}

TUScene* symbolOf(SC_Project const* project, SC_Id const& shot)
{
    return shotIndex(project, shot) < 0 ? nullptr : sceneOf(project, shot);
}

unsigned panelCount(SC_Project const* project, SC_Id const& shot)
{
    TUScene const* symbol = symbolOf(project, shot);
    return symbol ? symbol->sequence()->getBlockCount() : 0;
}

SC_Id panelId(SC_Project const* project, SC_Id const& shot, unsigned index)
{
    TUScene const* symbol = symbolOf(project, shot);
    return symbol ? sceneIdOf(symbol->sequence()->blockAt(index)) : SC_Id();
}

SC_Id shotOfPanel(SC_Project const* project, SC_Id const& panel)
{
    PanelPlace place;
    return findPanel(project, panel, place) ? sceneIdOf(place.tl.shot(place.shot)) : SC_Id();
}

SC_Id transitionAt(SC_Project const* project, unsigned junction)
{
    Timeline const tl = scan(project);
    AT_FrameBlock const* block = junction < tl.junctions.size() ? tl.transition(junction) : nullptr;
    auto const* seq = block ? AT_TransitionSeq::toTransition(block->seq()) : nullptr;
    return seq ? seq->id : SC_Id();
}

SC_Id insertShot(SC_Project* project, unsigned index, std::vector<unsigned> const& panelLengths,
    QString* error, std::vector<SC_Id> const& ids)
{
    if (!checkProject(project, error) || !checkLengths(panelLengths, error))
        return SC_Id();
    Timeline const tl = scan(project);
    if (index > tl.count())
        return failId(
            error, QStringLiteral("shot position %1 is past the end (%2 shots)").arg(index).arg(tl.count()));
    if (tl.junctions[index] >= 0)
        return failId(error, QStringLiteral("junction %1 holds a transition").arg(index));

    quint32 total = 0;
    TUScene* symbol = makeSymbol(tl, panelLengths, ids, total);
    unsigned const pos = index < tl.count() ? tl.shots[index] : tl.tv->getBlockCount();
    pasteBlock(tl.tv, pos, warpBlock(1, total, symbol->id), firstFrameAt(tl.tv, pos));
    managerOf(project)->postSceneChanged();
    return symbol->id;
}

std::vector<SC_Id> appendShots(SC_Project* project, std::vector<std::vector<unsigned>> const& panelLengths,
    QString* error, std::vector<std::vector<SC_Id>> const& ids, std::vector<std::vector<SC_Id>>* panelIds)
{
    if (!checkProject(project, error))
        return {};
    for (auto const& lengths : panelLengths) {
        if (!checkLengths(lengths, error))
            return {};
    }
    Timeline const tl = scan(project);
    if (tl.junctions.back() >= 0)
        return fail(error, QStringLiteral("junction %1 holds a transition").arg(tl.count())), std::vector<SC_Id>();
    // Each shot starts after the last; nothing is asked of the sequence meanwhile, so
    // its index is rebuilt once, when next read.
    quint32 first = tl.tv->nFrames() + 1;
    std::vector<SC_Id> shots;
    shots.reserve(panelLengths.size());
    for (size_t k = 0; k < panelLengths.size(); ++k) {
        quint32 total = 0;
        TUScene* symbol = makeSymbol(tl, panelLengths[k], k < ids.size() ? ids[k] : std::vector<SC_Id>(), total);
        tl.tv->insertBlock(tl.tv->getBlockCount(), warpBlock(first, total, symbol->id));
        first += total;
        shots.push_back(symbol->id);
        if (panelIds) {
            panelIds->emplace_back();
            for (unsigned i = 0; i < symbol->sequence()->getBlockCount(); ++i)
                panelIds->back().push_back(sceneIdOf(symbol->sequence()->blockAt(i)));
        }
    }
    managerOf(project)->postSceneChanged();
    return shots;
}

bool removeShot(SC_Project* project, SC_Id const& shot, QString* error)
{
    Timeline tl;
    unsigned k = 0;
    if (!locateShot(project, shot, tl, k, error))
        return false;
    detachShot(project, k);
    if (TUScene* symbol = sceneOf(project, shot))
        removeSymbolScenes(project, symbol);
    managerOf(project)->postSceneChanged();
    return true;
}

bool moveShot(SC_Project* project, SC_Id const& shot, unsigned newIndex, QString* error)
{
    Timeline before;
    unsigned k = 0;
    if (!locateShot(project, shot, before, k, error))
        return false;
    if (newIndex >= before.count())
        return fail(error,
            QStringLiteral("shot position %1 is past the end (%2 shots)").arg(newIndex).arg(before.count()));
    // The junction of arrival, numbered before the move; the shot's own two go away.
    unsigned const arrival = newIndex < k ? newIndex : newIndex + 1;
    if (newIndex != k && before.junctions[arrival] >= 0)
        return fail(error, QStringLiteral("junction %1 holds a transition").arg(newIndex));
    std::unique_ptr<AT_FrameBlock> block = detachShot(project, k);
    Timeline const tl = scan(project);
    unsigned const pos = newIndex < tl.count() ? tl.shots[newIndex] : tl.tv->getBlockCount();
    pasteBlock(tl.tv, pos, std::move(block), firstFrameAt(tl.tv, pos));
    managerOf(project)->postSceneChanged();
    return true;
}

bool resizeShot(SC_Project* project, SC_Id const& shot, unsigned newLength, QString* error)
{
    Timeline tl;
    unsigned k = 0;
    if (!locateShot(project, shot, tl, k, error))
        return false;
    AT_FrameBlock const* block = tl.shot(k);
    qint64 const delta = qint64(newLength) - qint64(block->length());
    if (!shotLengthFits(tl, k, newLength))
        return fail(error,
            QStringLiteral("shot %1 needs more than %2 frames for its transitions").arg(k + 1).arg(newLength));
    if (delta == 0)
        return true;
    TUScene* symbol = sceneOf(project, shot);
    bool const follows = followsSymbol(project, block);
    if (follows) {
        TUSeqTimedValue* seq = symbol->sequence();
        unsigned const last = seq->getBlockCount() - 1;
        AT_FrameBlock const* panel = seq->blockAt(last);
        if (qint64(panel->length()) + delta < 1)
            return fail(error, QStringLiteral("the last panel of shot %1 would have no frame left").arg(k + 1));
        resizePanelBlock(seq, last, quint32(qint64(panel->length()) + delta));
    }
    reshapeShot(tl, k, delta, follows);
    managerOf(project)->postSceneChanged();
    return true;
}

bool setTimeWarp(SC_Project* project, SC_Id const& shot, double start, double end, QString* error)
{
    Timeline tl;
    unsigned k = 0;
    if (!locateShot(project, shot, tl, k, error))
        return false;
    if (!std::isfinite(start) || !std::isfinite(end) || start < 1.0 || end < start)
        return fail(
            error, QStringLiteral("a time warp needs 1 <= start <= end (got %1 to %2)").arg(start).arg(end));
    unsigned const pos = tl.shots[k];
    auto* warp = AT_TimeWarpSeq::toTimeWarp(tl.tv->editBlock(pos)->seq());
    if (!warp)
        return fail(error, QStringLiteral("shot %1 has no time warp").arg(k + 1));
    warp->start = start;
    warp->end = end;
    tl.tv->touch();
    managerOf(project)->postSceneChanged();
    return true;
}

SC_Id insertPanel(SC_Project* project, SC_Id const& shot, unsigned index, unsigned length, QString* error)
{
    if (!checkProject(project, error))
        return SC_Id();
    Timeline const tl = scan(project);
    int const k = findShot(tl, shot);
    TUScene* symbol = k < 0 ? nullptr : sceneOf(project, shot);
    if (!symbol)
        return failId(error, noSuch("shot", shot));
    TUSeqTimedValue* seq = symbol->sequence();
    if (index > seq->getBlockCount())
        return failId(error,
            QStringLiteral("panel position %1 is past the end (%2 panels)")
                .arg(index)
                .arg(seq->getBlockCount()));
    if (length < 1)
        return failId(error, QStringLiteral("a panel needs at least one frame"));
    TUScene* panel = project->createScene();
    editSymbol(tl, unsigned(k), seq,
        [&] { pasteBlock(seq, index, warpBlock(1, length, panel->id), firstFrameAt(seq, index)); });
    managerOf(project)->postSceneChanged();
    return panel->id;
}

bool removePanel(SC_Project* project, SC_Id const& panel, QString* error)
{
    if (!checkProject(project, error))
        return false;
    PanelPlace place;
    if (!findPanel(project, panel, place))
        return fail(error, noSuch("panel", panel));
    bool const follows = followsSymbol(project, place.tl.shot(place.shot));
    if (follows && place.seq->getBlockCount() == 1)
        return fail(error,
            QStringLiteral("shot %1 keeps at least one panel; remove the shot instead").arg(place.shot + 1));
    AT_FrameBlock const* next = place.seq->blockAt(place.pos + 1);
    AT_FrameBlock const* block = place.seq->blockAt(place.pos);
    qint64 const shrink = next
        ? qint64(next->firstFrame) - block->firstFrame
        : qint64(place.seq->nFrames()) - (place.pos > 0 ? place.seq->blockAt(place.pos - 1)->lastFrame : 0);
    if (!checkFollowingShot(place.tl, place.shot, -shrink, error))
        return false;
    editSymbol(place.tl, place.shot, place.seq, [&] { cutBlock(place.seq, place.pos); });
    project->removeScene(panel);
    managerOf(project)->postSceneChanged();
    return true;
}

bool movePanel(
    SC_Project* project, SC_Id const& panel, SC_Id const& toShot, unsigned newIndex, QString* error)
{
    if (!checkProject(project, error))
        return false;
    PanelPlace from;
    if (!findPanel(project, panel, from))
        return fail(error, noSuch("panel", panel));
    int const target = findShot(from.tl, toShot);
    TUScene* targetSymbol = target < 0 ? nullptr : sceneOf(project, toShot);
    if (!targetSymbol)
        return fail(error, noSuch("shot", toShot));
    TUSeqTimedValue* targetSeq = targetSymbol->sequence();
    bool const sameShot = targetSeq == from.seq;
    unsigned const limit = targetSeq->getBlockCount() - (sameShot ? 1 : 0);
    if (newIndex > limit)
        return fail(
            error, QStringLiteral("panel position %1 is past the end (%2 panels)").arg(newIndex).arg(limit));
    AT_FrameBlock const* block = from.seq->blockAt(from.pos);
    if (!sameShot && followsSymbol(project, from.tl.shot(from.shot)) && from.seq->getBlockCount() == 1)
        return fail(error, QStringLiteral("shot %1 keeps at least one panel").arg(from.shot + 1));
    if (!sameShot && !checkFollowingShot(from.tl, from.shot, -qint64(block->length()), error))
        return false;
    if (sameShot) {
        // The symbol keeps its length: the shot is not touched.
        std::unique_ptr<AT_FrameBlock> taken = cutBlock(from.seq, from.pos);
        pasteBlock(targetSeq, newIndex, std::move(taken), firstFrameAt(targetSeq, newIndex));
        managerOf(project)->postSceneChanged();
        return true;
    }
    std::unique_ptr<AT_FrameBlock> taken;
    editSymbol(from.tl, from.shot, from.seq, [&] { taken = cutBlock(from.seq, from.pos); });
    Timeline const tl = scan(project);
    unsigned const k = unsigned(findShot(tl, toShot));
    editSymbol(tl, k, targetSeq,
        [&] { pasteBlock(targetSeq, newIndex, std::move(taken), firstFrameAt(targetSeq, newIndex)); });
    managerOf(project)->postSceneChanged();
    return true;
}

bool resizePanel(SC_Project* project, SC_Id const& panel, unsigned newLength, QString* error)
{
    if (!checkProject(project, error))
        return false;
    PanelPlace place;
    if (!findPanel(project, panel, place))
        return fail(error, noSuch("panel", panel));
    if (newLength < 1)
        return fail(error, QStringLiteral("a panel needs at least one frame"));
    AT_FrameBlock const* block = place.seq->blockAt(place.pos);
    qint64 const delta = qint64(newLength) - qint64(block->length());
    if (delta == 0)
        return true;
    if (!checkFollowingShot(place.tl, place.shot, delta, error))
        return false;
    editSymbol(place.tl, place.shot, place.seq, [&] { resizePanelBlock(place.seq, place.pos, newLength); });
    managerOf(project)->postSceneChanged();
    return true;
}

SC_Id insertTransition(SC_Project* project, unsigned junction, unsigned length, int type, int angle,
    bool reverse, QString* error, SC_Id const& wanted)
{
    if (!checkProject(project, error))
        return SC_Id();
    Timeline const tl = scan(project);
    if (!checkFreeJunction(tl, junction, -1, error)
        || !checkTransitionLength(tl, junction, length, -1, error))
        return SC_Id();
    SC_Id const id = idFor(tl, wanted);
    attachTransition(tl, junction,
        std::make_unique<AT_FrameBlock>(1, 1, std::make_unique<AT_TransitionSeq>(id, type, angle, reverse)),
        length);
    managerOf(project)->postSceneChanged();
    return id;
}

bool removeTransition(SC_Project* project, SC_Id const& transition, QString* error)
{
    Timeline tl;
    unsigned j = 0;
    if (!locateTransition(project, transition, tl, j, error))
        return false;
    detachTransition(tl, j);
    managerOf(project)->postSceneChanged();
    return true;
}

bool resizeTransition(SC_Project* project, SC_Id const& transition, unsigned newLength, QString* error)
{
    Timeline tl;
    unsigned j = 0;
    if (!locateTransition(project, transition, tl, j, error))
        return false;
    if (!checkTransitionLength(tl, j, newLength, j, error))
        return false;
    if (newLength == tl.transition(j)->length())
        return true;
    std::unique_ptr<AT_FrameBlock> block = detachTransition(tl, j);
    attachTransition(scan(project), j, std::move(block), newLength);
    managerOf(project)->postSceneChanged();
    return true;
}

bool moveTransition(SC_Project* project, SC_Id const& transition, unsigned junction, QString* error)
{
    Timeline tl;
    unsigned j = 0;
    if (!locateTransition(project, transition, tl, j, error))
        return false;
    if (junction == j)
        return true;
    quint32 const length = tl.transition(j)->length();
    if (!checkFreeJunction(tl, junction, j, error) || !checkTransitionLength(tl, junction, length, j, error))
        return false;
    std::unique_ptr<AT_FrameBlock> block = detachTransition(tl, j);
    attachTransition(scan(project), junction, std::move(block), length);
    managerOf(project)->postSceneChanged();
    return true;
}

bool setTransitionStyle(
    SC_Project* project, SC_Id const& transition, int type, int angle, bool reverse, QString* error)
{
    Timeline tl;
    unsigned j = 0;
    if (!locateTransition(project, transition, tl, j, error))
        return false;
    auto* seq = AT_TransitionSeq::toTransition(tl.tv->editBlock(unsigned(tl.junctions[j]))->seq());
    seq->type = type;
    seq->angle = angle;
    seq->reverse = reverse;
    tl.tv->touch();
    managerOf(project)->postSceneChanged();
    return true;
}

} // namespace HostAuthoring
