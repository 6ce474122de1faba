// The flat id table under the handle caches: growth must keep every entry, and
// ids that collide in the table's home slots must still tell each other apart.
#include "project/IdTable.h"

#include <gtest/gtest.h>

using Krolle::IdTable;

namespace {

TEST(IdTable, KeepsEveryIdThroughGrowthAndOverwrites)
{
    IdTable<int> table;
    EXPECT_EQ(nullptr, table.find(SC_Id(7)));
    // Counting ids, ids far apart and ids that differ only in high bits.
    std::vector<quint64> ids;
    for (quint64 i = 0; i < 300; ++i)
        ids.push_back(i);
    for (quint64 i = 1; i < 40; ++i)
        ids.push_back(i << 40);
    ids.push_back(~quint64(0));
    for (size_t i = 0; i < ids.size(); ++i)
        table.set(SC_Id(ids[i]), int(i));
    table.set(SC_Id(5), -5);
    ASSERT_EQ(ids.size(), table.size());
    for (size_t i = 0; i < ids.size(); ++i) {
        int const* found = table.find(SC_Id(ids[i]));
        ASSERT_NE(nullptr, found) << ids[i];
        EXPECT_EQ(ids[i] == 5 ? -5 : int(i), *found);
    }
    EXPECT_EQ(nullptr, table.find(SC_Id(301)));
    table.clear();
    EXPECT_TRUE(table.isEmpty());
    EXPECT_EQ(nullptr, table.find(SC_Id(5)));
    table.set(SC_Id(5), 1);
    EXPECT_EQ(1, *table.find(SC_Id(5)));
}

} // namespace
