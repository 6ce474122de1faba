// The pool under the handles' private objects: whatever the mix of sizes and the
// order of giving back, no two live blocks may overlap and each keeps its bytes.
#include "project/HandlePool.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

using Krolle::HandlePool;

namespace {

struct Block
{
    unsigned char* memory;
    std::size_t size;
    unsigned char fill;
};

bool intact(Block const& block)
{
    for (std::size_t i = 0; i < block.size; ++i) {
        if (block.memory[i] != block.fill)
            return false;
    }
    return true;
}

TEST(HandlePool, BlocksOfMixedSizesStayApartAndAligned)
{
    std::size_t const sizes[] = { 1, 8, 16, 17, 40, 48, 100, 112, 511, 512, 513, 4000 };
    std::vector<Block> live;
    auto const takeRound = [&live, &sizes](int round) {
        for (int i = 0; i < 300; ++i) {
            std::size_t const size = sizes[size_t(i + round) % (sizeof sizes / sizeof *sizes)];
            auto* memory = static_cast<unsigned char*>(HandlePool::take(size));
            ASSERT_EQ(0u, reinterpret_cast<std::uintptr_t>(memory) % 16) << size;
            unsigned char const fill = static_cast<unsigned char>(live.size() * 7 + 1);
            std::memset(memory, fill, size);
            live.push_back(Block { memory, size, fill });
        }
    };
    takeRound(0);
    // Give back every other block, then take again: the holes are refilled.
    std::vector<Block> kept;
    for (size_t i = 0; i < live.size(); ++i) {
        if (i % 2)
            HandlePool::give(live[i].memory, live[i].size);
        else
            kept.push_back(live[i]);
    }
    live = kept;
    takeRound(1);
    for (Block const& block : live)
        EXPECT_TRUE(intact(block)) << block.size;
    for (Block const& block : live)
        HandlePool::give(block.memory, block.size);
    HandlePool::give(nullptr, 40); // as delete of a null pointer
}

} // namespace
