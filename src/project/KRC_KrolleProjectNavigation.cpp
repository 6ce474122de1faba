// Stepping along the timeline from a handle: neighbours, ends of shots, acts,
// sequences and the project, transitions beside panels, and the runs of acts and
// sequences, rediscovered at every call by comparing names.
#include "project/KRC_KrolleProject.h"

#include "project/EngineLinks.h"
#include "project/KRC_KrolleProjectPrivate.h"

using Krolle::Panel_t;
using Krolle::Shot_t;
using Krolle::Trans_t;

namespace {

QString actOf(Shot_t const& shot)
{
    return shot.actName();
}

QString sequenceOf(Shot_t const& shot)
{
    return shot.sequenceName();
}

QString actOfPanel(Panel_t const& panel)
{
    return panel.actName();
}

QString sequenceOfPanel(Panel_t const& panel)
{
    return panel.sequenceName();
}

/// The last object of the run of `start` going forward (or back): neighbours with the
/// same name as `start`.
template <class T, class Name>
T runEnd(KRC_KrolleProject const& view, T const& start, bool forward, Name nameOf)
{
    QString const name = nameOf(start);
    T end = start;
    for (T step = forward ? view.next(end) : view.prev(end); step.isValid() && nameOf(step) == name;
         step = forward ? view.next(end) : view.prev(end))
        end = step;
    return end;
}

/// Whether the neighbour after (before) `at` is in its run.
template <class T, class Name>
bool runGoesOn(KRC_KrolleProject const& view, T const& at, bool forward, Name nameOf)
{
    T const step = forward ? view.next(at) : view.prev(at);
    return step.isValid() && nameOf(step) == nameOf(at);
}

/// How many objects the run of `at` holds, `at` included.
template <class T, class Name> unsigned runLength(KRC_KrolleProject const& view, T const& at, Name nameOf)
{
    QString const name = nameOf(at);
    unsigned count = 1;
    for (T step = view.prev(at); step.isValid() && nameOf(step) == name; step = view.prev(step))
        ++count;
    for (T step = view.next(at); step.isValid() && nameOf(step) == name; step = view.next(step))
        ++count;
    return count;
}

} // namespace

// Shots.

Shot_t KRC_KrolleProject::shotFromBlock(AT_FrameBlock const* block, bool forward) const
{
    TUSeqTimedValue* tv = topSceneTv();
    if (!tv)
        return Shot_t::invalid;
    // Only scene blocks are shots: transitions and blocks of other kinds are passed over.
    for (; block; block = forward ? tv->getNextBlock(block) : tv->getPrevBlock(block)) {
        if (!AT_TransitionSeq::isTransition(block->seq())
            && AT_AbstractSceneSeq::toAbstractScene(block->seq()))
            return shotOfBlock(block);
    }
    return Shot_t::invalid;
}

Shot_t KRC_KrolleProject::neighbourShot(Shot_t const& shot, bool forward) const
{
    TUSeqTimedValue* tv = topSceneTv();
    if (shot.isInvalid() || !tv)
        return Shot_t::invalid;
    AT_FrameBlock const* block = shot.frameBlock();
    return shotFromBlock(forward ? tv->getNextBlock(block) : tv->getPrevBlock(block), forward);
}

Shot_t KRC_KrolleProject::next(Shot_t const& shot) const
{
    return neighbourShot(shot, true);
}

Shot_t KRC_KrolleProject::prev(Shot_t const& shot) const
{
    return neighbourShot(shot, false);
}

// A timeline that a host left without a shot at one of its ends is walked from the
// first (last) shot block all the same.
Shot_t KRC_KrolleProject::first(Shot_t const&) const
{
    Shot_t const atStart = getShotAt(1, PreferPrevious);
    TUSeqTimedValue* tv = topSceneTv();
    return atStart.isValid() || !tv ? atStart : shotFromBlock(tv->blockAt(0), true);
}

Shot_t KRC_KrolleProject::last(Shot_t const&) const
{
    TUSeqTimedValue* tv = topSceneTv();
    if (!tv)
        return Shot_t::invalid;
    Shot_t const atEnd = getShotAt(tv->nFrames(), PreferNext);
    return atEnd.isValid() || tv->getBlockCount() == 0
        ? atEnd
        : shotFromBlock(tv->blockAt(tv->getBlockCount() - 1), false);
}

Shot_t KRC_KrolleProject::firstInAct(Shot_t const& shot) const
{
    return runEnd(*this, shot, false, actOf);
}

Shot_t KRC_KrolleProject::lastInAct(Shot_t const& shot) const
{
    return runEnd(*this, shot, true, actOf);
}

Shot_t KRC_KrolleProject::firstInSequence(Shot_t const& shot) const
{
    return sequenceExists() ? runEnd(*this, shot, false, sequenceOf) : Shot_t::invalid;
}

Shot_t KRC_KrolleProject::lastInSequence(Shot_t const& shot) const
{
    return sequenceExists() ? runEnd(*this, shot, true, sequenceOf) : Shot_t::invalid;
}

Shot_t KRC_KrolleProject::firstInPrevSequence(Shot_t const& shot) const
{
    return firstInSequence(prev(firstInSequence(shot)));
}

Shot_t KRC_KrolleProject::firstInNextSequence(Shot_t const& shot) const
{
    return next(lastInSequence(shot));
}

// Panels.

// A panel's ends come through the shot's warp, while getPanelIn counts frames from the
// warp's start alone, so under a warp that stretches or squeezes the symbol the two
// disagree about which frame is beside a panel. The steps therefore go by the order
// of the symbol's blocks: the panel after (before) a panel is the one of the next
// (previous) block that the shot shows, passing blocks that show no panel (a host may
// build such a timeline; files with one are refused). Blocks are passed in one
// direction only, so every walk ends where the project does.

Panel_t KRC_KrolleProject::panelFrom(
    Shot_t const& shot, AT_FrameBlock const* block, bool forward, bool beyond) const
{
    TUSeqTimedValue const* symbolTv
        = shot.isValid() ? d->symbolSequenceOf(shot.frameBlock()) : nullptr;
    if (!symbolTv)
        return Panel_t::invalid;
    if (beyond && block)
        block = forward ? symbolTv->getNextBlock(block) : symbolTv->getPrevBlock(block);
    // The symbol frames that the shot's frames 1 to its length look up.
    unsigned const atFrame1 = shot.prjFrameToTvFrame(1);
    unsigned const firstShown = std::max(1u, atFrame1);
    unsigned const lastShown = shot.prjFrameToTvFrame(shot.objNumOfFrame());
    for (; block; block = forward ? symbolTv->getNextBlock(block) : symbolTv->getPrevBlock(block)) {
        if (block->lastFrame < firstShown || block->firstFrame > lastShown)
            continue;
        // Looked up at its first frame shown, or at its last where another block
        // overlaps the first.
        for (unsigned const frame :
            { std::max(firstShown, block->firstFrame), std::min(lastShown, block->lastFrame) }) {
            Panel_t const found = getPanelIn(shot, frame - atFrame1 + 1);
            if (found.isValid() && found.frameBlock() == block)
                return found;
        }
    }
    return Panel_t::invalid;
}

Panel_t KRC_KrolleProject::panelOfShots(Shot_t shot, bool forward) const
{
    for (; shot.isValid(); shot = forward ? next(shot) : prev(shot)) {
        Panel_t const found = forward ? firstPanelOf(shot) : lastPanelOf(shot);
        if (found.isValid())
            return found;
    }
    return Panel_t::invalid;
}

Panel_t KRC_KrolleProject::endPanelOf(Shot_t const& shot, bool last) const
{
    // The frame at the end shows the end panel but on a timeline with a hole there.
    Panel_t const atEnd = getPanelIn(shot, last ? shot.objNumOfFrame() : 1);
    if (atEnd.isValid() || shot.isInvalid())
        return atEnd;
    TUSeqTimedValue const* symbolTv = d->symbolSequenceOf(shot.frameBlock());
    unsigned const count = symbolTv ? symbolTv->getBlockCount() : 0;
    return count == 0 ? Panel_t::invalid
                      : panelFrom(shot, symbolTv->blockAt(last ? count - 1 : 0), !last, false);
}

Panel_t KRC_KrolleProject::firstPanelOf(Shot_t const& shot) const
{
    return endPanelOf(shot, false);
}

Panel_t KRC_KrolleProject::lastPanelOf(Shot_t const& shot) const
{
    return endPanelOf(shot, true);
}

Panel_t KRC_KrolleProject::next(Panel_t const& panel) const
{
    if (panel.isInvalid())
        return panel;
    Shot_t const& shot = panel.shot();
    Panel_t const found = panelFrom(shot, panel.frameBlock(), true, true);
    return found.isValid() ? found : panelOfShots(next(shot), true);
}

Panel_t KRC_KrolleProject::prev(Panel_t const& panel) const
{
    if (panel.isInvalid())
        return panel;
    Shot_t const& shot = panel.shot();
    Panel_t const found = panelFrom(shot, panel.frameBlock(), false, true);
    return found.isValid() ? found : panelOfShots(prev(shot), false);
}

Panel_t KRC_KrolleProject::first(Panel_t const&) const
{
    return panelOfShots(first(Shot_t::invalid), true);
}

Panel_t KRC_KrolleProject::last(Panel_t const&) const
{
    return panelOfShots(last(Shot_t::invalid), false);
}

Panel_t KRC_KrolleProject::firstInShot(Panel_t const& panel) const
{
    return firstPanelOf(panel.shot());
}

Panel_t KRC_KrolleProject::lastInShot(Panel_t const& panel) const
{
    return lastPanelOf(panel.shot());
}

Panel_t KRC_KrolleProject::firstInAct(Panel_t const& panel) const
{
    return firstPanelOf(firstInAct(panel.shot()));
}

Panel_t KRC_KrolleProject::lastInAct(Panel_t const& panel) const
{
    return lastPanelOf(lastInAct(panel.shot()));
}

Panel_t KRC_KrolleProject::firstInSequence(Panel_t const& panel) const
{
    return firstPanelOf(firstInSequence(panel.shot()));
}

Panel_t KRC_KrolleProject::lastInSequence(Panel_t const& panel) const
{
    return lastPanelOf(lastInSequence(panel.shot()));
}

Panel_t KRC_KrolleProject::firstInPrevSequence(Panel_t const& panel) const
{
    return firstInSequence(prev(firstInSequence(panel)));
}

Panel_t KRC_KrolleProject::firstInNextSequence(Panel_t const& panel) const
{
    return next(lastInSequence(panel));
}

// Transitions.

Trans_t KRC_KrolleProject::transOfBlock(AT_FrameBlock const* block) const
{
    Trans_t const cached = d->transCache.findById(Krolle::objectId(block));
    if (cached.isValid())
        return cached;
    Trans_t const transition(block);
    d->transCache.insert(block->firstFrame, block->length(), transition);
    return transition;
}

Trans_t KRC_KrolleProject::following_transition(
    bool backwards, AT_FrameBlock const* block, TUSeqTimedValue* tv) const
{
    if (!tv)
        return Trans_t::invalid;
    for (; block; block = backwards ? tv->getPrevBlock(block) : tv->getNextBlock(block)) {
        if (AT_TransitionSeq::toTransition(block->seq()))
            return transOfBlock(block);
    }
    return Trans_t::invalid;
}

Trans_t KRC_KrolleProject::next(Trans_t const& trans) const
{
    if (trans.isInvalid())
        return trans;
    TUSeqTimedValue* tv = topSceneTv();
    return tv ? following_transition(false, tv->getNextBlock(trans.frameBlock()), tv) : Trans_t::invalid;
}

Trans_t KRC_KrolleProject::prev(Trans_t const& trans) const
{
    if (trans.isInvalid())
        return trans;
    TUSeqTimedValue* tv = topSceneTv();
    return tv ? following_transition(true, tv->getPrevBlock(trans.frameBlock()), tv) : Trans_t::invalid;
}

Trans_t KRC_KrolleProject::first(Trans_t const&) const
{
    TUSeqTimedValue* tv = topSceneTv();
    return tv ? following_transition(false, tv->getBlock(1.0), tv) : Trans_t::invalid;
}

Trans_t KRC_KrolleProject::last(Trans_t const&) const
{
    TUSeqTimedValue* tv = topSceneTv();
    return tv ? following_transition(true, tv->getBlock(tv->nFrames()), tv) : Trans_t::invalid;
}

bool KRC_KrolleProject::isBesideTrans(Panel_t const& panel, bool atEnd, Trans_t* trans) const
{
    if (trans)
        *trans = Trans_t::invalid;
    Shot_t const& shot = panel.shot();
    if (atEnd ? panel.lastFrame() != shot.lastFrame() : panel.firstFrame() != shot.firstFrame())
        return false;
    TUSeqTimedValue* tv = topSceneTv();
    if (!tv)
        return false;
    AT_FrameBlock const* beside
        = atEnd ? tv->getNextBlock(shot.frameBlock()) : tv->getPrevBlock(shot.frameBlock());
    if (!beside || !AT_TransitionSeq::isTransition(beside->seq()))
        return false;
    if (trans)
        *trans = getTransAt(atEnd ? panel.lastFrame() : panel.firstFrame());
    return true;
}

bool KRC_KrolleProject::isFollowedByTrans(Panel_t const& panel, Trans_t* trans) const
{
    return isBesideTrans(panel, true, trans);
}

bool KRC_KrolleProject::isPrecededByTrans(Panel_t const& panel, Trans_t* trans) const
{
    return isBesideTrans(panel, false, trans);
}

bool KRC_KrolleProject::isFollowedByTrans(Shot_t const& shot, Trans_t* trans) const
{
    return isBesideTrans(lastPanelOf(shot), true, trans);
}

bool KRC_KrolleProject::isPrecededByTrans(Shot_t const& shot, Trans_t* trans) const
{
    return isBesideTrans(firstPanelOf(shot), false, trans);
}

// Runs.

bool KRC_KrolleProject::hasMoreKRSceneInCurKRSequence(Shot_t const& shot, bool forward) const
{
    return sequenceExists() && runGoesOn(*this, shot, forward, sequenceOf);
}

bool KRC_KrolleProject::hasMoreKRSceneInCurKRAct(Shot_t const& shot, bool forward) const
{
    return runGoesOn(*this, shot, forward, actOf);
}

bool KRC_KrolleProject::hasMoreKRPanelInCurKRSequence(Panel_t const& panel, bool forward) const
{
    return sequenceExists() && runGoesOn(*this, panel, forward, sequenceOfPanel);
}

bool KRC_KrolleProject::hasMoreKRPanelInCurKRAct(Panel_t const& panel, bool forward) const
{
    return runGoesOn(*this, panel, forward, actOfPanel);
}

unsigned KRC_KrolleProject::numOfKRScenesInCurKRSequence(Shot_t const& shot) const
{
    return sequenceExists() ? runLength(*this, shot, sequenceOf) : 0;
}

unsigned KRC_KrolleProject::numOfKRScenesInCurKRAct(Shot_t const& shot) const
{
    return runLength(*this, shot, actOf);
}

unsigned KRC_KrolleProject::numOfKRPanelsInCurKRSequence(Panel_t const& panel) const
{
    return sequenceExists() ? runLength(*this, panel, sequenceOfPanel) : 0;
}

unsigned KRC_KrolleProject::numOfKRPanelsInCurKRAct(Panel_t const& panel) const
{
    return runLength(*this, panel, actOfPanel);
}
