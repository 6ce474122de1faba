// Where each frame of the timeline lies, in one flat table per level.
#pragma once

#include "host/engine/HostEngine.h"
#include "project/Panel_t.h"
#include "project/Shot_t.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Krolle {

/// A panel span's block of the symbol and the handle given out there.
struct IndexedPanel
{
    AT_FrameBlock const* block;
    Panel_t panel; // invalid until the first answer in the span
    bool byEngine; // panel lookups in the span take the long way
};

/// The frames of the timeline cut into spans that one block covers alone, so that a
/// warm lookup by frame is one step into a flat table instead of a search of the
/// caches plus the engine's block count.
///
/// Two levels. The top level cuts the top sequence's frames into disjoint spans:
/// where exactly one block covers them, the span names that block (a shot when it is
/// a scene block), and where several do (a transition over two shots) the span says
/// so and the caller asks the engine, as every lookup did before. A bucket
/// directory over the spans (one entry per few frames) takes a frame to its span in
/// one load and a short scan. The second level is made per top span on the first
/// panel lookup there: the symbol's blocks that the shot shows, cut the same way
/// and moved to project frames by the offset that `Shot_t::prjFrameToTvFrame`
/// applies, in one vector shared by all spans.
///
/// The index holds the handles it has given out, one per span, filled by the caller
/// from its first answer there (which the caller works out the long way, so every
/// first answer, message and record mark stays what it was). A span whose first
/// answer is not its own block is marked for the long way for good. The index
/// knows nothing of changes: the view drops it with its other caches, and it is
/// rebuilt from the engine on the next lookup. Building is linear in the blocks.
/// Threading: the host's thread; the owner's lock covers it.
class TimelineIndex
{
public:
    static constexpr std::size_t none = std::size_t(-1);

    bool isBuilt() const { return m_built; }
    /// Cuts the top sequence into spans; an index over a null sequence has no spans.
    void build(TUSeqTimedValue const* timeline);
    void clear();

    /// The span of `frame` when one block covers it alone, or `none`.
    std::size_t spanAt(unsigned frame) const
    {
        if (m_spans.empty() || frame < m_spans.front().first || frame > m_spans.back().last)
            return none;
        std::size_t at = m_buckets[(frame - m_spans.front().first) >> m_shift];
        while (m_spans[at].last < frame)
            ++at;
        Span const& span = m_spans[at];
        return span.first <= frame && span.block ? at : none;
    }

    AT_FrameBlock const* blockOf(std::size_t span) const { return m_spans[span].block; }
    /// The shot handed out for the span; invalid until the caller sets it.
    Shot_t& shotOf(std::size_t span) { return m_shots[span]; }
    /// Whether shot lookups in the span take the long way.
    bool shotByEngine(std::size_t span) const { return m_spans[span].shotByEngine; }
    void setShotByEngine(std::size_t span) { m_spans[span].shotByEngine = true; }

    bool hasPanels(std::size_t span) const { return m_spans[span].panelsEnd != noPanels; }
    /// Cuts the symbol's blocks that the span's shot shows: `symbol` is the shot's
    /// symbol sequence (none gives no panel spans), `shotFirst` the shot's first frame
    /// and `offset` the symbol frame of the shot's first frame.
    void buildPanels(std::size_t span, TUSeqTimedValue const* symbol, unsigned shotFirst, unsigned offset);
    /// The panel slot of `frame` in the top span, or null. A shot shows a dozen
    /// panels or so: the frames of its spans lie in a line or two, scanned in order.
    IndexedPanel* panelAt(std::size_t span, unsigned frame)
    {
        Span const& top = m_spans[span];
        for (std::uint32_t at = top.panelsBegin; at < top.panelsEnd; ++at) {
            Frames const& frames = m_panelFrames[at];
            if (frames.last >= frame)
                return frames.first <= frame ? &m_panelSlots[at] : nullptr;
        }
        return nullptr;
    }

    /// Bytes that the index holds, for memory figures.
    std::size_t bytes() const;

private:
    static constexpr std::uint32_t noPanels = std::uint32_t(-1);

    struct Frames
    {
        unsigned first;
        unsigned last;
    };

    struct Span
    {
        unsigned first;
        unsigned last;
        AT_FrameBlock const* block; // null where several blocks cover the span
        std::uint32_t panelsBegin;
        std::uint32_t panelsEnd;
        bool shotByEngine;
    };

    void addSpan(unsigned first, unsigned last, AT_FrameBlock const* block);
    void buildBuckets();

    std::vector<Span> m_spans;
    std::vector<Shot_t> m_shots;
    std::vector<std::uint32_t> m_buckets;
    unsigned m_shift = 0;
    std::vector<Frames> m_panelFrames;
    std::vector<IndexedPanel> m_panelSlots;
    bool m_built = false;
};

} // namespace Krolle
