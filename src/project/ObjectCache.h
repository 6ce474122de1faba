// Frame-interval and id index over the handles of one kind.
#pragma once

#include "host/engine/HostEngine.h"

#include <map>
#include <utility>

namespace Krolle {

/// Cache of shot, panel or transition handles, by frame interval and by id.
///
/// `byFrame` holds each object under the first frame of its block with the block's
/// length; blocks may overlap (shots under a transition), so one frame can hit
/// several entries. A disabled cache stores nothing and finds nothing. Lookups are
/// tree searches: O(log n) plus the number of overlapping hits.
/// Threading: the host's thread; the owner's lock covers it.
template <class T> class ObjectCache
{
public:
    using FrameEntry = std::pair<unsigned, T>; // block length, object
    using FrameMap = std::multimap<unsigned, FrameEntry>;
    using IdMap = std::map<SC_Id, T>;

    void insert(unsigned first, unsigned length, T const& object)
    {
        if (!enabled)
            return;
        byFrame.emplace(first, FrameEntry(length, object));
        byId[object.id()] = object;
    }

    /// The object covering `frame`. The hits are collected from the latest start
    /// back to the earliest, stopping at the first entry that does not cover the
    /// frame; with several hits `takeFront` picks the latest start, otherwise the
    /// earliest.
    T findByFrame(unsigned frame, bool takeFront) const
    {
        if (!enabled || byFrame.empty())
            return T();
        auto it = byFrame.upper_bound(frame);
        if (it == byFrame.begin())
            return T();
        --it;
        T front;
        T back;
        int hits = 0;
        for (;;) {
            unsigned const key = it->first;
            unsigned const length = it->second.first;
            T const& object = it->second.second;
            if (object.isInvalid() || key > frame || !covers(key, length, frame))
                break;
            if (hits == 0)
                front = object;
            back = object;
            ++hits;
            if (it == byFrame.begin())
                break;
            --it;
        }
        if (hits == 0)
            return T();
        return (hits == 1 || takeFront) ? front : back;
    }

    T findById(SC_Id const& id) const
    {
        if (!enabled)
            return T();
        auto const it = byId.find(id);
        return it == byId.end() ? T() : it->second;
    }

    void clear()
    {
        byFrame.clear();
        byId.clear();
    }

    FrameMap byFrame;
    IdMap byId;
    bool enabled = true;

private:
    // key + length - 1 >= frame, written so that a zero length covers nothing.
    static bool covers(unsigned key, unsigned length, unsigned frame)
    {
        return length > 0 && quint64(key) + length - 1 >= frame;
    }
};

} // namespace Krolle
