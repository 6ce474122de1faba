// The memory of node networks: what the arena hands out is usable, and every chunk
// goes back once the objects in it are gone, whatever the order of release.
#include "nodes_Fixture.h"

#include "host/engine/HostNodeArena.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

struct ArenaCase
{
    std::size_t size;
    int count;
};

} // namespace

TEST(NodeArena, ChunksGoBackWhenTheirObjectsGo)
{
    if (!HostNodeArena::usesChunks())
        GTEST_SKIP() << "sanitized build: objects come from the general heap";
    // Small objects, some to fill several chunks, and objects larger than a chunk.
    for (ArenaCase const& c : { ArenaCase { 1, 10 }, ArenaCase { 48, 5000 }, ArenaCase { 70000, 3 } }) {
        std::size_t const before = HostNodeArena::chunkCount();
        std::vector<void*> objects;
        for (int i = 0; i < c.count; ++i) {
            objects.push_back(HostNodeArena::allocate(c.size));
            std::memset(objects.back(), i & 0xFF, c.size);
        }
        for (int i = 0; i < c.count; ++i)
            EXPECT_EQ(static_cast<unsigned char*>(objects[size_t(i)])[c.size - 1], i & 0xFF) << c.size;
        std::reverse(objects.begin() + c.count / 2, objects.end());
        for (void* object : objects)
            HostNodeArena::release(object);
        // The chunk being filled may stay for the next objects.
        EXPECT_LE(HostNodeArena::chunkCount(), std::max<std::size_t>(before, 1)) << c.size;
    }
}

TEST(NodeArena, ANetworkOutlivesItsChunkNeighbours)
{
    UT_SharedPtr<MO_Node> kept;
    {
        NodeBench bench;
        for (int i = 0; i < 2000; ++i)
            Author::addDrawingElement(bench.root(), QStringLiteral("L%1").arg(i), CA_DrawingKind::Kvg,
                QStringLiteral("l.tvg"), 1, 3);
        kept = bench.root()->subNodeAt(1000);
    }
    // The scene and every other node are gone; the node kept stays whole.
    EXPECT_EQ(kept->instanceName(), QStringLiteral("L1000"));
    EXPECT_EQ(kept->enabled(), 1);
}
