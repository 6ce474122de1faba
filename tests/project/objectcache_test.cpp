// The frame side of the handle cache: which entries a frame hits, and which of
// them comes back for each end of the list of hits.
#include "project/ObjectCache.h"
#include "project/Trans_t.h"

#include <gtest/gtest.h>

#include <memory>
#include <numeric>
#include <vector>

using Krolle::ObjectCache;
using Krolle::Trans_t;

namespace {

struct Interval
{
    unsigned first, length;
};

struct FindCase
{
    char const* what;
    std::vector<Interval> entries;
    unsigned frame;
    int front; // index of the entry expected with takeFront, -1 for none
    int back; // ... without takeFront
};

/// Blocks over `entries` (ids counting from 1) and a cache filled in `order`.
struct FilledCache
{
    std::vector<std::unique_ptr<AT_FrameBlock>> blocks;
    ObjectCache<Trans_t> cache;

    FilledCache(std::vector<Interval> const& entries, std::vector<size_t> const& order)
    {
        for (size_t i = 0; i < entries.size(); ++i) {
            Interval const& e = entries[i];
            blocks.push_back(std::make_unique<AT_FrameBlock>(
                e.first, e.first + e.length - 1, std::make_unique<AT_TransitionSeq>(SC_Id(i + 1), 0)));
        }
        for (size_t i : order)
            cache.insert(entries[i].first, entries[i].length, Trans_t(blocks[i].get()));
    }
};

class ObjectCacheFrames : public testing::TestWithParam<FindCase>
{
};

TEST_P(ObjectCacheFrames, CollectFromTheLatestStartBack)
{
    FindCase const& c = GetParam();
    std::vector<size_t> order(c.entries.size());
    std::iota(order.begin(), order.end(), size_t(0));
    FilledCache const filled(c.entries, order);
    auto const expected = [&](int index) {
        return index < 0 ? Trans_t::invalid : Trans_t(filled.blocks[size_t(index)].get());
    };
    EXPECT_EQ(expected(c.front), filled.cache.findByFrame(c.frame, true));
    EXPECT_EQ(expected(c.back), filled.cache.findByFrame(c.frame, false));
    for (size_t i = 0; i < order.size(); ++i)
        EXPECT_EQ(expected(int(i)), filled.cache.findById(SC_Id(i + 1)));
}

INSTANTIATE_TEST_SUITE_P(Caches, ObjectCacheFrames,
    testing::Values(FindCase { "empty", {}, 3, -1, -1 }, FindCase { "inside", { { 1, 10 } }, 5, 0, 0 },
        FindCase { "first frame", { { 4, 3 } }, 4, 0, 0 }, FindCase { "last frame", { { 4, 3 } }, 6, 0, 0 },
        FindCase { "before all", { { 4, 3 } }, 3, -1, -1 }, FindCase { "after all", { { 4, 3 } }, 7, -1, -1 },
        FindCase { "in a gap", { { 1, 3 }, { 8, 2 } }, 5, -1, -1 },
        FindCase { "overlap: front is the latest start", { { 1, 10 }, { 8, 5 } }, 9, 1, 0 },
        FindCase { "overlap of three", { { 1, 10 }, { 5, 10 }, { 8, 5 } }, 9, 2, 0 },
        FindCase { "stops at the first entry not covering", { { 1, 10 }, { 3, 2 }, { 8, 5 } }, 9, 2, 2 },
        FindCase { "same start", { { 4, 2 }, { 4, 6 } }, 5, 1, 0 }),
    [](testing::TestParamInfo<FindCase> const& info) {
        std::string name = info.param.what;
        for (char& c : name)
            c = std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
        return name;
    });

std::vector<Interval> const kRun = { { 1, 10 }, { 8, 5 }, { 13, 1 }, { 14, 6 }, { 14, 2 }, { 25, 3 } };

TEST(ObjectCache, TheLastLookupsPlaceChangesNoAnswer)
{
    FilledCache filled(kRun, { 0, 1, 2, 3, 4, 5 });
    // Forward, backward and jumping orders, each compared with a cache that has had
    // no lookup yet.
    unsigned const frames[]
        = { 0, 1, 2, 8, 9, 12, 13, 14, 15, 16, 20, 24, 25, 27, 28, 27, 14, 13, 9, 3, 26, 8, 0 };
    for (unsigned frame : frames) {
        for (bool front : { true, false }) {
            FilledCache const fresh(kRun, { 0, 1, 2, 3, 4, 5 });
            EXPECT_EQ(fresh.cache.findByFrame(frame, front).id(), filled.cache.findByFrame(frame, front).id())
                << frame;
        }
    }
}

// Entries that come out of frame order land where a multimap would put them: by
// start, and after the entries with the same start that came before them.
TEST(ObjectCache, InsertsOutOfOrderAnswerLikeInOrder)
{
    FilledCache const inOrder(kRun, { 0, 1, 2, 3, 4, 5 });
    FilledCache shuffled(kRun, { 5, 3, 1, 4, 0, 2 });
    shuffled.cache.findByFrame(14, true); // a finger placed before the later inserts
    FilledCache late(kRun, { 5, 0 });
    late.cache.findByFrame(26, false);
    for (size_t i : { 3, 1, 4, 2 })
        late.cache.insert(kRun[i].first, kRun[i].length, Trans_t(late.blocks[i].get()));
    for (unsigned frame = 0; frame <= 28; ++frame) {
        for (bool front : { true, false }) {
            Trans_t const expected = inOrder.cache.findByFrame(frame, front);
            EXPECT_EQ(expected.id(), shuffled.cache.findByFrame(frame, front).id()) << frame;
            EXPECT_EQ(expected.id(), late.cache.findByFrame(frame, front).id()) << frame;
        }
    }
}

TEST(ObjectCache, DisabledStoresAndFindsNothing)
{
    auto const block = std::make_unique<AT_FrameBlock>(1, 5, std::make_unique<AT_TransitionSeq>(SC_Id(3), 0));
    ObjectCache<Trans_t> cache;
    cache.enabled = false;
    cache.insert(1, 5, Trans_t(block.get()));
    EXPECT_TRUE(cache.isEmpty());
    cache.enabled = true;
    cache.insert(1, 5, Trans_t(block.get()));
    cache.enabled = false;
    EXPECT_TRUE(cache.findByFrame(3, true).isInvalid() && cache.findById(SC_Id(3)).isInvalid());
    cache.enabled = true;
    EXPECT_TRUE(cache.findById(SC_Id(3)).isValid());
    cache.clear();
    EXPECT_TRUE(cache.findById(SC_Id(3)).isInvalid() && cache.findByFrame(3, true).isInvalid());
}

} // namespace
