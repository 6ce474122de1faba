#include "host/engine/HostNodeArena.h"

#include <cstdint>
#include <cstdlib>
#include <mutex>
#include <new>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define HOST_ARENA_SANITIZED 1
#endif
#endif
#if defined(__SANITIZE_ADDRESS__)
#define HOST_ARENA_SANITIZED 1
#endif

namespace {

std::mutex g_lock;
std::size_t g_chunks = 0; // held from the system now

} // namespace

#ifdef HOST_ARENA_SANITIZED

bool HostNodeArena::usesChunks()
{
    return false;
}

void* HostNodeArena::allocate(std::size_t size)
{
    return ::operator new(size);
}

void HostNodeArena::release(void* object) noexcept
{
    ::operator delete(object);
}

#else

namespace {

// Chunks are aligned to their size, so an object finds its chunk's header by masking
// its address.
constexpr std::size_t kChunkBytes = std::size_t(64) << 10;
constexpr std::size_t kAlignment = alignof(std::max_align_t);

constexpr std::size_t roundUp(std::size_t bytes, std::size_t unit)
{
    return (bytes + unit - 1) / unit * unit;
}

struct Chunk
{
    std::size_t live; // objects not yet released
    std::size_t used; // bytes handed out, header included
};

constexpr std::size_t kHeaderBytes = roundUp(sizeof(Chunk), kAlignment);

Chunk* g_current = nullptr; // the chunk being filled

Chunk* newChunk(std::size_t bytes)
{
    void* memory = std::aligned_alloc(kChunkBytes, bytes);
    if (!memory)
        throw std::bad_alloc();
    ++g_chunks;
    return new (memory) Chunk { 0, kHeaderBytes };
}

void freeChunk(Chunk* chunk)
{
    --g_chunks;
    std::free(chunk);
}

Chunk* chunkOf(void* object)
{
    return reinterpret_cast<Chunk*>(reinterpret_cast<std::uintptr_t>(object) & ~std::uintptr_t(kChunkBytes - 1));
}

void* take(Chunk* chunk, std::size_t bytes)
{
    void* object = reinterpret_cast<char*>(chunk) + chunk->used;
    chunk->used += bytes;
    ++chunk->live;
    return object;
}

} // namespace

bool HostNodeArena::usesChunks()
{
    return true;
}

void* HostNodeArena::allocate(std::size_t size)
{
    std::size_t const bytes = roundUp(size ? size : 1, kAlignment);
    std::lock_guard<std::mutex> const lock(g_lock);
    if (kHeaderBytes + bytes > kChunkBytes) {
        Chunk* own = newChunk(roundUp(kHeaderBytes + bytes, kChunkBytes));
        return take(own, bytes);
    }
    if (!g_current || g_current->used + bytes > kChunkBytes) {
        // A full chunk lives on until its last object goes.
        Chunk* full = g_current;
        g_current = nullptr;
        if (full && full->live == 0)
            freeChunk(full);
        g_current = newChunk(kChunkBytes);
    }
    return take(g_current, bytes);
}

void HostNodeArena::release(void* object) noexcept
{
    if (!object)
        return;
    std::lock_guard<std::mutex> const lock(g_lock);
    Chunk* chunk = chunkOf(object);
    if (--chunk->live != 0)
        return;
    if (chunk == g_current)
        chunk->used = kHeaderBytes; // empty again: fill it from the start
    else
        freeChunk(chunk);
}

#endif

std::size_t HostNodeArena::chunkCount()
{
    std::lock_guard<std::mutex> const lock(g_lock);
    return g_chunks;
}
