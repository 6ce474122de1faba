// Frame-interval and id index over the handles of one kind.
#pragma once

#include "host/engine/HostEngine.h"

#include <iterator>
#include <map>
#include <utility>

namespace Krolle {

/// Cache of shot, panel or transition handles, by frame interval and by id.
///
/// The frame side holds each object under the first frame of its block, with the
/// block's length; blocks may overlap (shots under a transition), so one frame can
/// hit several entries. A disabled cache stores nothing and finds nothing.
///
/// Lookups are tree searches, O(log n) plus the overlapping hits. The frame side
/// also keeps a finger on the entry of its last lookup: a lookup at the same entry
/// or the one after it (a host playing or scrubbing through frames) starts there
/// instead of at the root. Threading: the host's thread; the owner's lock covers it.
template <class T> class ObjectCache
{
public:
    using FrameEntry = std::pair<unsigned, T>; // block length, object
    using FrameMap = std::multimap<unsigned, FrameEntry>;
    using IdMap = std::map<SC_Id, T>;

    ObjectCache() = default;
    // A copy has its own maps, so it cannot share the finger.
    ObjectCache(ObjectCache const& other)
        : enabled(other.enabled)
        , m_byFrame(other.m_byFrame)
        , m_byId(other.m_byId)
    {
    }
    ObjectCache& operator=(ObjectCache const& other)
    {
        enabled = other.enabled;
        m_byFrame = other.m_byFrame;
        m_byId = other.m_byId;
        m_hasFinger = false;
        return *this;
    }

    void insert(unsigned first, unsigned length, T const& object)
    {
        if (!enabled)
            return;
        m_hasFinger = false; // the entry may land between the finger and its successor
        m_byFrame.emplace(first, FrameEntry(length, object));
        m_byId[object.id()] = object;
    }

    /// The object covering `frame`. The hits are collected from the latest start
    /// back to the earliest, stopping at the first entry that does not cover the
    /// frame; with several hits `takeFront` picks the latest start, otherwise the
    /// earliest.
    T findByFrame(unsigned frame, bool takeFront) const
    {
        if (!enabled || m_byFrame.empty())
            return T();
        auto it = lastStartingAtOrBefore(frame);
        if (it == m_byFrame.end())
            return T();
        // Point at the hits rather than copy them: a copy of a handle touches its
        // private object, and only one of them is handed out.
        T const* front = nullptr;
        T const* back = nullptr;
        for (;;) {
            T const& object = it->second.second;
            if (object.isInvalid() || it->first > frame || !covers(it->first, it->second.first, frame))
                break;
            if (!front)
                front = &object;
            back = &object;
            if (it == m_byFrame.begin())
                break;
            --it;
        }
        if (!front)
            return T();
        return takeFront ? *front : *back;
    }

    T findById(SC_Id const& id) const
    {
        if (!enabled)
            return T();
        auto const it = m_byId.find(id);
        return it == m_byId.end() ? T() : it->second;
    }

    void clear()
    {
        m_hasFinger = false;
        m_byFrame.clear();
        m_byId.clear();
    }

    bool isEmpty() const { return m_byFrame.empty() && m_byId.empty(); }

    bool enabled = true;

private:
    using FrameIterator = typename FrameMap::const_iterator;

    // key + length - 1 >= frame, written so that a zero length covers nothing.
    static bool covers(unsigned key, unsigned length, unsigned frame)
    {
        return length > 0 && quint64(key) + length - 1 >= frame;
    }

    /// Whether `next` (the entry after the one asked about) starts above `frame`.
    bool startsAbove(FrameIterator next, unsigned frame) const
    {
        return next == m_byFrame.end() || next->first > frame;
    }

    /// The last entry whose start is not above `frame`, or end() when there is none.
    /// The finger and its successor are kept together, so that staying on an entry
    /// costs no step in the tree and moving to the next one costs one.
    FrameIterator lastStartingAtOrBefore(unsigned frame) const
    {
        if (m_hasFinger && m_finger->first <= frame) {
            if (startsAbove(m_fingerNext, frame))
                return m_finger;
            auto const afterNext = std::next(m_fingerNext);
            if (startsAbove(afterNext, frame))
                return setFinger(m_fingerNext, afterNext);
        }
        auto const after = m_byFrame.upper_bound(frame);
        return after == m_byFrame.begin() ? m_byFrame.end() : setFinger(std::prev(after), after);
    }

    FrameIterator setFinger(FrameIterator finger, FrameIterator next) const
    {
        m_finger = finger;
        m_fingerNext = next;
        m_hasFinger = true;
        return finger;
    }

    FrameMap m_byFrame;
    IdMap m_byId;
    mutable FrameIterator m_finger;
    mutable FrameIterator m_fingerNext;
    mutable bool m_hasFinger = false;
};

} // namespace Krolle
