#include "host/engine/TUTimedValue.h"

#include "host/engine/MO_Node.h"
#include "host/engine/SC_ProjectCommon.h"
#include "host/engine/TUScene.h"
#include "host/engine/TUSceneChangeManager.h"

#include <algorithm>

class TUTimedValue::TUTimedValuePrivate
{
public:
    QString name;
    std::vector<UT_SharedWeakPtr<MO_Node>> links;

    std::vector<UT_SharedWeakPtr<MO_Node>>::iterator find(MO_Node* node)
    {
        return std::find_if(links.begin(), links.end(),
            [node](UT_SharedWeakPtr<MO_Node> const& link) { return link.get() == node; });
    }
};

TUTimedValue::TUTimedValue(SC_SceneCommon* scene, QString const& name)
    : sceneCommon(scene)
    , d(new TUTimedValuePrivate)
{
    d->name = name;
}

TUTimedValue::~TUTimedValue()
{
    delete d;
}

QString const& TUTimedValue::name() const
{
    return d->name;
}

void TUTimedValue::setName(QString const& name)
{
    if (name == d->name)
        return;
    d->name = name;
    if (TUSceneChangeManager* manager = changeManager())
        manager->postTimedValueNameChanged(this);
}

MO_Node* TUTimedValue::linkedNodes(unsigned index) const
{
    return index < d->links.size() ? d->links[index].get() : nullptr;
}

unsigned TUTimedValue::linkedNodeCount() const
{
    return unsigned(d->links.size());
}

void TUTimedValue::linkNode(MO_Node* node)
{
    if (!node || d->find(node) != d->links.end())
        return;
    d->links.emplace_back(node);
    // A node not yet in a network is being built: its network change will announce it.
    TUSceneChangeManager* manager = node->group() ? changeManager() : nullptr;
    if (manager)
        manager->postNodeLinksChanged(node);
}

void TUTimedValue::unlinkNode(MO_Node* node)
{
    auto it = d->find(node);
    if (!node || it == d->links.end())
        return;
    d->links.erase(it);
    if (TUSceneChangeManager* manager = changeManager())
        manager->postNodeLinksChanged(node);
}

TUSceneChangeManager* TUTimedValue::changeManager() const
{
    if (!sceneCommon || !sceneCommon->projectCommon())
        return nullptr;
    return sceneCommon->projectCommon()->changeManager();
}

void TUTimedValue::postChanged()
{
    if (TUSceneChangeManager* manager = changeManager())
        manager->postTimedValueChanged(this);
}

namespace {

// The blocks of one kind (transitions, or all others) in list order, with a coarse
// table from frame to list position so that a lookup touches a few entries only.
struct BlockRun
{
    std::vector<quint32> firsts;
    std::vector<quint32> lasts;
    std::vector<AT_FrameBlock const*> blocks;
    // bucketStart[b]: how many entries start before frame (b << shift).
    std::vector<quint32> bucketStart;
    unsigned shift = 0;
    bool sorted = true; // first frames never decrease
    bool monotone = true; // neither first nor last frames decrease
    // Only for runs that are not monotone (a broken layout): every start and end, sorted.
    std::vector<quint32> sortedFirsts;
    std::vector<quint32> sortedLasts;

    void add(AT_FrameBlock const* block)
    {
        if (!firsts.empty()) {
            sorted = sorted && block->firstFrame >= firsts.back();
            monotone = monotone && sorted && block->lastFrame >= lasts.back();
        }
        firsts.push_back(block->firstFrame);
        lasts.push_back(block->lastFrame);
        blocks.push_back(block);
    }

    void finish()
    {
        if (!monotone) {
            sortedFirsts = firsts;
            sortedLasts = lasts;
            std::sort(sortedFirsts.begin(), sortedFirsts.end());
            std::sort(sortedLasts.begin(), sortedLasts.end());
        }
        if (firsts.empty() || !sorted)
            return;
        // Buckets about as wide as a block, so that each holds one or two starts.
        quint64 const span = std::max<quint64>(1, quint64(firsts.back()) / firsts.size());
        while ((quint64(2) << shift) <= span)
            ++shift;
        size_t const buckets = size_t(firsts.back() >> shift) + 1;
        bucketStart.resize(buckets + 1);
        size_t entry = 0;
        for (size_t b = 0; b <= buckets; ++b) {
            quint64 const start = quint64(b) << shift;
            while (entry < firsts.size() && firsts[entry] < start)
                ++entry;
            bucketStart[b] = quint32(entry);
        }
    }

    // How many entries start at or before the frame.
    size_t startedBy(quint32 frame) const
    {
        size_t const bucket = frame >> shift;
        if (bucket + 1 >= bucketStart.size())
            return firsts.size();
        auto const begin = firsts.begin();
        return size_t(
            std::upper_bound(begin + bucketStart[bucket], begin + bucketStart[bucket + 1], frame) - begin);
    }

    // The latest-starting entry that covers the frame, or null.
    AT_FrameBlock const* covering(quint32 frame) const
    {
        size_t k = sorted ? startedBy(frame) : firsts.size();
        while (k > 0) {
            --k;
            if (firsts[k] <= frame && lasts[k] >= frame)
                return blocks[k];
            if (monotone)
                return nullptr; // entries before end earlier still
        }
        return nullptr;
    }

    unsigned count(quint32 frame) const
    {
        if (!monotone) {
            auto const started
                = std::upper_bound(sortedFirsts.begin(), sortedFirsts.end(), frame) - sortedFirsts.begin();
            auto const ended
                = std::lower_bound(sortedLasts.begin(), sortedLasts.end(), frame) - sortedLasts.begin();
            return unsigned(started - ended);
        }
        // The entries that cover the frame are the last ones that started by it.
        size_t k = startedBy(frame);
        unsigned covered = 0;
        while (k > 0 && lasts[--k] >= frame)
            ++covered;
        return covered;
    }
};

// Lookup views over a sequence's blocks, rebuilt after an edit.
struct BlockIndex
{
    bool dirty = true;
    BlockRun content;
    BlockRun transitions;
    quint32 lastFrame = 0;

    void rebuild(std::vector<std::unique_ptr<AT_FrameBlock>> const& blocks)
    {
        *this = BlockIndex();
        for (auto const& block : blocks) {
            (block->isTransition() ? transitions : content).add(block.get());
            lastFrame = std::max(lastFrame, block->lastFrame);
        }
        content.finish();
        transitions.finish();
        dirty = false;
    }
};

QString blockProblem(unsigned index, QString const& what)
{
    return QStringLiteral("block %1: %2").arg(index).arg(what);
}

} // namespace

class TUSeqTimedValue::TUSeqTimedValuePrivate
{
public:
    std::vector<std::unique_ptr<AT_FrameBlock>> blocks;
    mutable BlockIndex index;

    BlockIndex const& upToDate() const
    {
        if (index.dirty)
            index.rebuild(blocks);
        return index;
    }
    void renumberFrom(size_t from)
    {
        for (size_t i = from; i < blocks.size(); ++i)
            blocks[i]->m_index = quint32(i);
        index.dirty = true;
    }
};

TUSeqTimedValue::TUSeqTimedValue(SC_SceneCommon* scene, QString const& name)
    : TUTimedValue(scene, name)
    , s(new TUSeqTimedValuePrivate)
{
}

TUSeqTimedValue::~TUSeqTimedValue()
{
    delete s;
}

AT_FrameBlock const* TUSeqTimedValue::getBlock(double frame) const
{
    if (frame < 0.0)
        return nullptr;
    quint32 const whole = AT_Frame::wholeFrame(frame);
    BlockIndex const& index = s->upToDate();
    if (AT_FrameBlock const* transition = index.transitions.covering(whole))
        return transition;
    return index.content.covering(whole);
}

unsigned TUSeqTimedValue::getBlockCount(double frame) const
{
    if (frame < 0.0)
        return 0;
    quint32 const whole = AT_Frame::wholeFrame(frame);
    BlockIndex const& index = s->upToDate();
    return index.transitions.count(whole) + index.content.count(whole);
}

unsigned TUSeqTimedValue::getBlockCount() const
{
    return unsigned(s->blocks.size());
}

AT_FrameBlock const* TUSeqTimedValue::getNextBlock(AT_FrameBlock const* block) const
{
    if (!block || block->m_owner != this)
        return nullptr;
    return blockAt(block->m_index + 1);
}

AT_FrameBlock const* TUSeqTimedValue::getPrevBlock(AT_FrameBlock const* block) const
{
    if (!block || block->m_owner != this || block->m_index == 0)
        return nullptr;
    return blockAt(block->m_index - 1);
}

unsigned TUSeqTimedValue::nFrames() const
{
    return s->upToDate().lastFrame;
}

AT_FrameBlock const* TUSeqTimedValue::blockAt(unsigned index) const
{
    return index < s->blocks.size() ? s->blocks[index].get() : nullptr;
}

int TUSeqTimedValue::indexOf(AT_FrameBlock const* block) const
{
    if (!block || block->m_owner != this)
        return -1;
    return int(block->m_index);
}

AT_FrameBlock const* TUSeqTimedValue::findBlock(SC_Id const& id) const
{
    for (auto const& block : s->blocks) {
        if (auto const* scene = AT_AbstractSceneSeq::toAbstractScene(block->seq())) {
            if (scene->sceneId == id)
                return block.get();
        } else if (auto const* transition = AT_TransitionSeq::toTransition(block->seq())) {
            if (transition->id == id)
                return block.get();
        }
    }
    return nullptr;
}

bool TUSeqTimedValue::isConsistent(QString* why) const
{
    auto fail = [why](unsigned index, QString const& what) {
        if (why)
            *why = blockProblem(index, what);
        return false;
    };
    AT_FrameBlock const* previous = nullptr;
    AT_FrameBlock const* contentBefore = nullptr; // the content block before `content`
    AT_FrameBlock const* content = nullptr; // the last content block seen
    AT_FrameBlock const* transition = nullptr; // the last transition seen
    for (unsigned i = 0; i < s->blocks.size(); ++i) {
        AT_FrameBlock const* block = s->blocks[i].get();
        if (block->firstFrame < 1)
            return fail(i, QStringLiteral("first frame %1 is below 1").arg(block->firstFrame));
        if (block->lastFrame < block->firstFrame)
            return fail(i,
                QStringLiteral("last frame %1 is before first frame %2")
                    .arg(block->lastFrame)
                    .arg(block->firstFrame));
        if (previous
            && (block->firstFrame < previous->firstFrame
                || (block->firstFrame == previous->firstFrame
                    && !(previous->isTransition() && !block->isTransition()))))
            return fail(i,
                QStringLiteral("out of order: starts at frame %1, the block before at %2")
                    .arg(block->firstFrame)
                    .arg(previous->firstFrame));
        previous = block;
        if (block->isTransition()) {
            if (transition && block->firstFrame <= transition->lastFrame)
                return fail(i, QStringLiteral("transition overlaps the transition before it"));
            transition = block;
            continue;
        }
        if (content && block->lastFrame <= content->lastFrame)
            return fail(i, QStringLiteral("lies inside the block before it"));
        if (contentBefore && block->firstFrame <= contentBefore->lastFrame)
            return fail(i, QStringLiteral("overlaps two blocks before it"));
        if (content && block->firstFrame <= content->lastFrame) {
            BlockIndex const& index = s->upToDate();
            AT_FrameBlock const* cover = index.transitions.covering(block->firstFrame);
            if (!cover || cover->lastFrame < content->lastFrame)
                return fail(i,
                    QStringLiteral("overlaps the block before it (frames %1 to %2) outside a transition")
                        .arg(block->firstFrame)
                        .arg(content->lastFrame));
        }
        contentBefore = content;
        content = block;
    }
    return true;
}

AT_FrameBlock* TUSeqTimedValue::insertBlock(unsigned index, std::unique_ptr<AT_FrameBlock> block)
{
    if (!block)
        return nullptr;
    size_t const at = std::min<size_t>(index, s->blocks.size());
    AT_FrameBlock* raw = block.get();
    raw->m_owner = this;
    s->blocks.insert(s->blocks.begin() + at, std::move(block));
    s->renumberFrom(at);
    postChanged();
    return raw;
}

std::unique_ptr<AT_FrameBlock> TUSeqTimedValue::takeBlock(unsigned index)
{
    if (index >= s->blocks.size())
        return nullptr;
    std::unique_ptr<AT_FrameBlock> block = std::move(s->blocks[index]);
    s->blocks.erase(s->blocks.begin() + index);
    block->m_owner = nullptr;
    block->m_index = 0;
    s->renumberFrom(index);
    postChanged();
    return block;
}

void TUSeqTimedValue::setBlockRange(unsigned index, quint32 first, quint32 last)
{
    if (index >= s->blocks.size())
        return;
    s->blocks[index]->firstFrame = first;
    s->blocks[index]->lastFrame = last;
    s->index.dirty = true;
    postChanged();
}

void TUSeqTimedValue::shiftBlocks(unsigned from, qint64 delta)
{
    for (size_t i = from; i < s->blocks.size(); ++i) {
        AT_FrameBlock& block = *s->blocks[i];
        block.firstFrame = quint32(qint64(block.firstFrame) + delta);
        block.lastFrame = quint32(qint64(block.lastFrame) + delta);
    }
    s->index.dirty = true;
    postChanged();
}

AT_FrameBlock* TUSeqTimedValue::editBlock(unsigned index)
{
    if (index >= s->blocks.size())
        return nullptr;
    s->index.dirty = true;
    return s->blocks[index].get();
}

void TUSeqTimedValue::touch()
{
    s->index.dirty = true;
    postChanged();
}

void TUSeqTimedValue::clearBlocks()
{
    s->blocks.clear();
    s->index.dirty = true;
    postChanged();
}
