#include "project/HandlePool.h"

#include <array>
#include <memory>
#include <mutex>
#include <new>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#define KROLLE_POOL_BYPASS 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KROLLE_POOL_BYPASS 1
#endif
#endif

namespace Krolle {

namespace {

constexpr std::size_t kGrain = 16; // the alignment of every slot
constexpr std::size_t kLargest = 512;
constexpr std::size_t kSlabBytes = 64 * 1024;

/// The slots of one size: a free list threaded through the free slots.
struct SizeClass
{
    struct FreeSlot
    {
        FreeSlot* next;
    };

    FreeSlot* free = nullptr;

    void* take(std::size_t slot, std::vector<std::unique_ptr<char[]>>& slabs)
    {
        if (!free)
            addSlab(slot, slabs);
        FreeSlot* const taken = free;
        free = taken->next;
        return taken;
    }

    void give(void* memory)
    {
        FreeSlot* const slot = static_cast<FreeSlot*>(memory);
        slot->next = free;
        free = slot;
    }

    /// Threads a new slab onto the list so that its slots come out in address order.
    void addSlab(std::size_t slot, std::vector<std::unique_ptr<char[]>>& slabs)
    {
        std::size_t const count = kSlabBytes / slot;
        slabs.emplace_back(new char[count * slot]);
        char* const base = slabs.back().get();
        for (std::size_t i = count; i-- > 0;)
            give(base + i * slot);
    }
};

struct Pools
{
    std::mutex mutex;
    std::array<SizeClass, kLargest / kGrain> classes;
    std::vector<std::unique_ptr<char[]>> slabs;
    std::size_t inUse = 0; // bytes of the slots handed out
    std::size_t reserved = 0; // bytes of the slabs
};

/// Never destroyed: static handles of the host may go after any static of ours.
Pools& pools()
{
    static Pools* const instance = new Pools;
    return *instance;
}

std::size_t slotSize(std::size_t size)
{
    return (size + kGrain - 1) / kGrain * kGrain;
}

bool pooled(std::size_t size)
{
#ifdef KROLLE_POOL_BYPASS
    (void)size;
    return false;
#else
    return size > 0 && size <= kLargest;
#endif
}

} // namespace

void* HandlePool::take(std::size_t size)
{
    if (!pooled(size))
        return ::operator new(size);
    std::size_t const slot = slotSize(size);
    Pools& all = pools();
    std::lock_guard<std::mutex> lock(all.mutex);
    all.inUse += slot;
    std::size_t const slabs = all.slabs.size();
    void* const taken = all.classes[slot / kGrain - 1].take(slot, all.slabs);
    if (all.slabs.size() != slabs)
        all.reserved += kSlabBytes / slot * slot;
    return taken;
}

void HandlePool::give(void* memory, std::size_t size)
{
    if (!memory)
        return;
    if (!pooled(size)) {
        ::operator delete(memory);
        return;
    }
    Pools& all = pools();
    std::lock_guard<std::mutex> lock(all.mutex);
    all.inUse -= slotSize(size);
    all.classes[slotSize(size) / kGrain - 1].give(memory);
}

std::size_t HandlePool::bytesInUse()
{
    Pools& all = pools();
    std::lock_guard<std::mutex> lock(all.mutex);
    return all.inUse;
}

std::size_t HandlePool::bytesReserved()
{
    Pools& all = pools();
    std::lock_guard<std::mutex> lock(all.mutex);
    return all.reserved;
}

} // namespace Krolle
