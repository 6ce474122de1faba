#include "project/TimelineIndex.h"

#include <algorithm>
#include <limits>

namespace Krolle {

namespace {

struct Interval
{
    quint64 first;
    quint64 last;
    AT_FrameBlock const* block;
};

/// The blocks of a sequence that cover a frame at all, by first frame.
std::vector<Interval> intervalsOf(TUSeqTimedValue const* sequence)
{
    std::vector<Interval> blocks;
    unsigned const count = sequence ? sequence->getBlockCount() : 0;
    blocks.reserve(count);
    for (unsigned i = 0; i < count; ++i) {
        AT_FrameBlock const* block = sequence->blockAt(i);
        if (block && block->firstFrame <= block->lastFrame)
            blocks.push_back(Interval { block->firstFrame, block->lastFrame, block });
    }
    auto const byFirst = [](Interval const& a, Interval const& b) { return a.first < b.first; };
    // List order is by first frame; a host's timeline that is not still gets its spans.
    if (!std::is_sorted(blocks.begin(), blocks.end(), byFirst))
        std::stable_sort(blocks.begin(), blocks.end(), byFirst);
    return blocks;
}

/// Cuts the covered frames of a sequence into maximal spans of one set of covering
/// blocks, in frame order: `cut(first, last, block)` with the block when it covers
/// the span alone, null when several do. One pass; the blocks open at once are few.
template <class Cut> void cutIntoSpans(TUSeqTimedValue const* sequence, Cut cut)
{
    std::vector<Interval> const blocks = intervalsOf(sequence);
    std::vector<Interval> open;
    quint64 const never = std::numeric_limits<quint64>::max();
    quint64 at = 0;
    std::size_t next = 0;
    auto const cutHere = [&](quint64 last) {
        cut(unsigned(at), unsigned(last), open.size() == 1 ? open.front().block : nullptr);
    };
    while (next < blocks.size() || !open.empty()) {
        quint64 const start = next < blocks.size() ? blocks[next].first : never;
        quint64 end = never;
        for (Interval const& block : open)
            end = std::min(end, block.last);
        if (open.empty())
            at = start;
        if (start <= end) {
            if (start > at) {
                cutHere(start - 1);
                at = start;
            }
            while (next < blocks.size() && blocks[next].first == start)
                open.push_back(blocks[next++]);
        } else {
            cutHere(end);
            at = end + 1;
            open.erase(std::remove_if(open.begin(), open.end(),
                           [end](Interval const& block) { return block.last == end; }),
                open.end());
        }
    }
}

} // namespace

void TimelineIndex::build(TUSeqTimedValue const* timeline)
{
    clear();
    cutIntoSpans(timeline, [this](unsigned first, unsigned last, AT_FrameBlock const* block) {
        m_spans.push_back(Span { first, last, block, 0, noPanels, false });
    });
    m_shots.resize(m_spans.size());
    buildBuckets();
    m_built = true;
}

void TimelineIndex::buildBuckets()
{
    if (m_spans.empty())
        return;
    quint64 const base = m_spans.front().first;
    quint64 const frames = quint64(m_spans.back().last) - base + 1;
    // About one span per bucket: a lookup reads its bucket and a span or two.
    m_shift = 0;
    while ((quint64(1) << (m_shift + 1)) <= frames / m_spans.size())
        ++m_shift;
    std::size_t const count = std::size_t(((frames - 1) >> m_shift) + 1);
    m_buckets.resize(count);
    std::uint32_t span = 0;
    for (std::size_t bucket = 0; bucket < count; ++bucket) {
        quint64 const start = base + (quint64(bucket) << m_shift);
        while (m_spans[span].last < start)
            ++span;
        m_buckets[bucket] = span;
    }
}

void TimelineIndex::clear()
{
    m_spans.clear();
    m_shots.clear();
    m_buckets.clear();
    m_panelFrames.clear();
    m_panelSlots.clear();
    m_built = false;
}

void TimelineIndex::buildPanels(
    std::size_t span, TUSeqTimedValue const* symbol, unsigned shotFirst, unsigned offset)
{
    Span& top = m_spans[span];
    top.panelsBegin = std::uint32_t(m_panelFrames.size());
    // A symbol frame s lies at project frame s + shotFirst - offset.
    qint64 const shift = qint64(shotFirst) - qint64(offset);
    cutIntoSpans(symbol, [&](unsigned first, unsigned last, AT_FrameBlock const* block) {
        qint64 const from = std::max<qint64>(qint64(first) + shift, top.first);
        qint64 const to = std::min<qint64>(qint64(last) + shift, top.last);
        if (!block || from > to)
            return;
        m_panelFrames.push_back(Frames { unsigned(from), unsigned(to) });
        m_panelSlots.push_back(IndexedPanel { block, Panel_t::invalid, false });
    });
    top.panelsEnd = std::uint32_t(m_panelFrames.size());
}

std::size_t TimelineIndex::bytes() const
{
    return m_spans.capacity() * sizeof(Span) + m_shots.capacity() * sizeof(Shot_t)
        + m_buckets.capacity() * sizeof(std::uint32_t) + m_panelFrames.capacity() * sizeof(Frames)
        + m_panelSlots.capacity() * sizeof(IndexedPanel);
}

} // namespace Krolle
