// Where node networks live in memory: nodes, their parts and element columns.
#pragma once

#include "host/base/UT_SharedWeakPtr.h"

#include <cstddef>
#include <limits>
#include <new>

/// The memory of node networks. Nodes with their private parts and attributes, and
/// element columns with theirs, are placed one after another in large chunks, in the
/// order they are made. A network built in one go (a panel authored, a scene read from
/// a file) thus lies in a few consecutive cache lines instead of dozens of lines
/// scattered over the general heap between strings, maps and records, and a walk of
/// many scenes reads it with far fewer trips to main memory.
///
/// A chunk goes back to the system when the last object in it is freed; room freed
/// earlier in a chunk is not reused before that. An object too large for a chunk gets
/// one of its own. Built with AddressSanitizer, every object comes from the general
/// heap instead, so that the sanitizer keeps watching each one.
///
/// Thread-safe: one lock around the bookkeeping (the engine itself is single-threaded,
/// but two hosts' threads may each build a project).
class HostNodeArena
{
public:
    /// Room for `size` bytes, aligned for any object; throws std::bad_alloc.
    static void* allocate(std::size_t size);
    /// Gives back what allocate handed out; null does nothing.
    static void release(void* object) noexcept;
    /// Chunks held from the system now.
    static std::size_t chunkCount();
    /// False in a sanitized build, where objects come from the general heap.
    static bool usesChunks();
    /// For the weak-pointable objects of the arena: their trackers are made right after
    /// them, since a read through a weak pointer reads the tracker and then the object.
    static UT_SharedWeakBase::TrackerMemory trackers() { return { &allocate, &release }; }
};

/// Makes the class (and the classes derived from it) take its objects from the arena.
#define HOST_NODE_ARENA_OBJECT                                                                               \
public:                                                                                                      \
    static void* operator new(std::size_t size) { return HostNodeArena::allocate(size); }                    \
    static void operator delete(void* object) noexcept { HostNodeArena::release(object); }

/// A standard allocator on the arena, for the containers inside nodes and columns.
template <class T> class HostNodeArenaAllocator
{
public:
    using value_type = T;

    HostNodeArenaAllocator() = default;
    template <class U> HostNodeArenaAllocator(HostNodeArenaAllocator<U> const&) noexcept { }

    T* allocate(std::size_t count)
    {
        if (count > std::numeric_limits<std::size_t>::max() / sizeof(T))
            throw std::bad_alloc();
        return static_cast<T*>(HostNodeArena::allocate(count * sizeof(T)));
    }
    void deallocate(T* object, std::size_t) noexcept { HostNodeArena::release(object); }

    template <class U> bool operator==(HostNodeArenaAllocator<U> const&) const noexcept { return true; }
    template <class U> bool operator!=(HostNodeArenaAllocator<U> const&) const noexcept { return false; }
};
