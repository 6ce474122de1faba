// The shared part of every shot, panel and transition handle.
#pragma once

#include "host/base/HostBase.h"
#include "host/engine/HostEngine.h"
#include "project/HandlePool.h"

#include <cstddef>

namespace Krolle {

class ObjectNameHelper;

/// What a handle knows of the frame block it stands for: the block (not owned, good
/// until the next change of its sequence), the name helper (not owned; null for
/// transitions and invalid handles), and the object's id and ends, fixed at
/// construction.
///
/// It also holds the two frame maps of the block's time warp that all frame
/// conversions of the handles are made of. Reference counted, shared by all copies
/// of a handle. Threading: the host's thread; the count is not atomic.
class ObjectPrivate : public UT_ShareBase
{
public:
    ObjectPrivate(AT_FrameBlock const* block, ObjectNameHelper const* helper);
    ObjectPrivate(ObjectPrivate const&) = delete;
    ObjectPrivate& operator=(ObjectPrivate const&) = delete;
    ~ObjectPrivate() override;

    // Every private object lives in the handle pool; the sized delete gives it back
    // to the pool of its own (derived) size.
    static void* operator new(std::size_t size) { return HandlePool::take(size); }
    static void operator delete(void* memory, std::size_t size) { HandlePool::give(memory, size); }

    /// The block as the handles hand it out.
    AT_FrameBlock* block() const { return const_cast<AT_FrameBlock*>(frameBlock); }

    /// Same object on the same block: the equality of every handle.
    bool sameObject(ObjectPrivate const& other) const
    {
        return id == other.id && frameBlock == other.frameBlock;
    }
    /// Order of handles: by id, read as a signed 64-bit value.
    bool idLess(ObjectPrivate const& other) const { return qint64(id.value()) < qint64(other.id.value()); }

    /// The block's time warp, null without a block or for another kind of sequence.
    AT_TimeWarpSeq const* timeWarp() const;

    /// Outer frame to a frame of the shown scene. Without a warp the answer is 1.0;
    /// frames past the block clamp to the warp's start or end.
    double toLocal(double frame) const;
    /// Frame of the shown scene to an outer frame. Without a warp the answer is the
    /// block's first frame (not 1.0: the two maps differ on purpose); frames past
    /// the warp clamp to the block's ends.
    double toGlobal(double frame) const;

    /// The scene id of the block's scene sequence. Null without a block; for a block
    /// of another kind, null after a line on standard output.
    SC_Id const* sceneIdOfBlock() const;

    /// Makes `object` live for the rest of the process: the invalid instances are
    /// shared by static handles whose destruction order is unknown.
    template <class T> static T* immortal(T* object)
    {
        object->IncRef();
        return object;
    }

    AT_FrameBlock const* frameBlock;
    ObjectNameHelper const* nameHelper;
    SC_Id id;
    /// The object's ends in project frames, fixed at construction like the id: a walk
    /// reads them at every step, and a handle answers for the timeline it was made
    /// from. The block's own ends here; a panel puts its ends through its shot's warp.
    unsigned firstFrame;
    unsigned lastFrame;
};

} // namespace Krolle
