// Memory of the handles' private objects.
#pragma once

#include <cstddef>

namespace Krolle {

/// Where the private objects of shots, panels, transitions (and records with their
/// states) live: slabs of slots of one size, from a free list. A pass makes one private
/// object per panel, mixed in time with the engine's own allocations (records made on
/// first use); from the general heap they would land wherever a hole fits, and a later
/// walk would jump between pages at every step. From slabs, objects made together lie
/// together, so a walk over tens of thousands of panels reads memory in order.
///
/// Slots are reused, never handed back to the system: the memory kept is that of the
/// most handles alive at once. Sizes above 512 bytes go to the general heap, and so
/// does everything in a build with the address sanitizer, which must see each object
/// freed. Threading: any thread; one lock covers every pool.
class HandlePool
{
public:
    HandlePool() = delete;

    /// Memory for an object of `size` bytes, aligned for any handle's private object.
    static void* take(std::size_t size);
    /// Gives back memory that `take(size)` handed out, with the same size.
    static void give(void* memory, std::size_t size);

    /// Bytes of the slots handed out and not given back (a memory figure for hosts
    /// and benchmarks).
    static std::size_t bytesInUse();
    /// Bytes of every slab taken from the heap so far.
    static std::size_t bytesReserved();
};

} // namespace Krolle
