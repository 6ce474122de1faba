// Frame-interval and id index over the handles of one kind.
#pragma once

#include "host/engine/HostEngine.h"
#include "project/IdTable.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace Krolle {

/// Cache of shot, panel or transition handles, by frame interval and by id.
///
/// The frame side holds each object under the first frame of its block, with the
/// block's length, ordered by first frame; entries with the same first frame keep the
/// order they came in, as in a multimap. Blocks may overlap (shots under a
/// transition), so one frame can hit several entries. A disabled cache stores nothing
/// and finds nothing.
///
/// Both sides are flat arrays, because a project of tens of thousands of panels must
/// not cost more per lookup than a small one: the frame side is sorted and searched by
/// halves, the id side is an `IdTable`. Handles mostly come in frame order (passes,
/// walks), which appends; an insert out of order moves the entries after it. The frame
/// side also keeps a finger on the entry of its last lookup: a lookup at the same entry
/// or the one after it (a host playing or scrubbing through frames) starts there
/// instead of searching. Threading: the host's thread; the owner's lock covers it.
template <class T> class ObjectCache
{
public:
    void insert(unsigned first, unsigned length, T const& object)
    {
        if (!enabled)
            return;
        if (m_byFrame.empty() || m_byFrame.back().first <= first) {
            m_byFrame.push_back(FrameEntry { first, length, object });
        } else {
            m_byFrame.insert(firstStartingAfter(first), FrameEntry { first, length, object });
            m_finger = noFinger; // the entries behind the new one moved
        }
        m_byId.set(object.id(), object);
    }

    /// The id side alone, for a cache that is only ever read by id: no frame entry to
    /// keep in order.
    void insertById(T const& object)
    {
        if (enabled)
            m_byId.set(object.id(), object);
    }

    /// The object covering `frame`. The hits are collected from the latest start
    /// back to the earliest, stopping at the first entry that does not cover the
    /// frame; with several hits `takeFront` picks the latest start, otherwise the
    /// earliest.
    T findByFrame(unsigned frame, bool takeFront) const
    {
        if (!enabled)
            return T();
        std::size_t at = lastStartingAtOrBefore(frame);
        if (at == noFinger)
            return T();
        // Point at the hits rather than copy them: a copy of a handle touches its
        // private object, and only one of them is handed out.
        T const* front = nullptr;
        T const* back = nullptr;
        for (;;) {
            FrameEntry const& entry = m_byFrame[at];
            if (entry.object.isInvalid() || entry.first > frame || !covers(entry, frame))
                break;
            if (!front)
                front = &entry.object;
            back = &entry.object;
            if (at == 0)
                break;
            --at;
        }
        if (!front)
            return T();
        return takeFront ? *front : *back;
    }

    T findById(SC_Id const& id) const
    {
        if (!enabled)
            return T();
        T const* found = m_byId.find(id);
        return found ? *found : T();
    }

    void clear()
    {
        m_finger = noFinger;
        m_byFrame.clear();
        m_byId.clear();
    }

    bool isEmpty() const { return m_byFrame.empty() && m_byId.isEmpty(); }

    bool enabled = true;

private:
    struct FrameEntry
    {
        unsigned first;
        unsigned length;
        T object;
    };

    static constexpr std::size_t noFinger = std::size_t(-1);

    // first + length - 1 >= frame, written so that a zero length covers nothing.
    static bool covers(FrameEntry const& entry, unsigned frame)
    {
        return entry.length > 0 && quint64(entry.first) + entry.length - 1 >= frame;
    }

    /// The first entry that starts above `frame` (a search by halves), or end().
    typename std::vector<FrameEntry>::const_iterator firstStartingAfter(unsigned frame) const
    {
        return std::upper_bound(m_byFrame.begin(), m_byFrame.end(), frame,
            [](unsigned key, FrameEntry const& entry) { return key < entry.first; });
    }

    /// Whether the entry at `at` (past the end counts) starts above `frame`.
    bool startsAbove(std::size_t at, unsigned frame) const
    {
        return at >= m_byFrame.size() || m_byFrame[at].first > frame;
    }

    /// The last entry whose start is not above `frame`, or noFinger when there is
    /// none. Staying on the finger's entry or moving to the next one costs no search.
    std::size_t lastStartingAtOrBefore(unsigned frame) const
    {
        if (m_finger != noFinger && m_byFrame[m_finger].first <= frame) {
            if (startsAbove(m_finger + 1, frame))
                return m_finger;
            if (startsAbove(m_finger + 2, frame))
                return m_finger = m_finger + 1;
        }
        auto const after = firstStartingAfter(frame);
        if (after == m_byFrame.begin())
            return noFinger;
        return m_finger = std::size_t(after - m_byFrame.begin()) - 1;
    }

    std::vector<FrameEntry> m_byFrame;
    IdTable<T> m_byId;
    mutable std::size_t m_finger = noFinger;
};

} // namespace Krolle
