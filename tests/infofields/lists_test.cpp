// The id rules of the definition and value lists, and the undo pairs they give.
#include "infofields/InfoFieldTestKit.h"
#include "infofields/KRC_ExtraInfoFieldDescList.h"
#include "infofields/KRC_InfoFieldImage.h"
#include "infofields/KRC_InfoFieldUtil.h"

#include <gtest/gtest.h>

using namespace fieldtest;

namespace {

struct MoveCase
{
    Ids ids;
    int id, beforeId, answer;
    Ids after;
};

// Every list moves alike; the answer moves the entry back.
TEST(InfoFieldLists, MoveAnswersTheWayBack)
{
    const MoveCase cases[] = {
        { { 0, 1, 2 }, 1, 2, 1, { 0, 1, 2 } }, // in front of its follower: stays
        { { 0, 1, 2 }, 1, 1, 1, { 0, 1, 2 } }, // in front of itself: stays
        { { 0, 1, 2 }, 9, 0, INT_MAX, { 0, 1, 2 } }, // unknown
        { { 0, 1, 2 }, 2, INT_MIN, INT_MAX, { 2, 0, 1 } }, // last to the front
        { { 0, 1, 2 }, 0, INT_MAX, 1, { 1, 2, 0 } },
        { { 0, 1, 2 }, 0, 77, 1, { 1, 2, 0 } }, // unknown destination: the end
        { { 3, -1, 5 }, 5, -1, INT_MAX, { 3, 5, -1 } },
    };
    for (MoveCase const& c : cases) {
        KRC_PanelInfoFieldDescList descs = descsOf(c.ids);
        KRC_InfoFieldList values = valuesOf(c.ids);
        EXPECT_EQ(descs.move(c.id, c.beforeId), c.answer) << c.id << " before " << c.beforeId;
        EXPECT_EQ(values.moveInfoField(c.id, c.beforeId), c.answer);
        EXPECT_EQ(idsOf(descs), c.after);
        EXPECT_EQ(idsOf(values), c.after);
        if (c.after != c.ids) {
            values.move(c.id, c.answer);
            EXPECT_EQ(idsOf(values), c.ids) << "moved back";
        }
    }
}

TEST(InfoFieldLists, IdsAllottedAndMerged)
{
    EXPECT_EQ(descsOf({ 0, 1, 3 }).getUniqId(), 2);
    EXPECT_EQ(descsOf({}).getUniqId(), 0);
    EXPECT_EQ(valuesOf({ 3, -1, 5 }).getUniqId(), -2);
    EXPECT_TRUE(descsOf({ 4 }).contain(INT_MIN));
    EXPECT_FALSE(descsOf({}).contain(INT_MIN));
    EXPECT_FALSE(descsOf({ 4 }).contain(INT_MAX));

    const struct
    {
        Ids arranged, merged;
    } merges[] = { { {}, { 0, 1, 2 } }, { { 2, -1 }, { 2, -1, 0, 1 } }, { { -1, 1 }, { -1, 1, 2, 0 } } };
    for (auto const& m : merges) {
        std::list<int> ids(m.arranged.begin(), m.arranged.end());
        descsOf({ 0, 1, 2 }).getIds(ids);
        EXPECT_EQ(Ids(ids.begin(), ids.end()), m.merged);
    }

    KRC_PanelInfoFieldDescList swapped = descsOf({ 0, 1, 2 });
    swapped.remap({ { 0, 1 }, { 1, 0 } });
    EXPECT_EQ(idsOf(swapped), (Ids { 1, 0, 2 }));
    swapped.add(KRC_InfoFieldDesc::kImage, 0, QStringLiteral("again"), KRC_InfoFieldDesc::kDefault);
    EXPECT_EQ(swapped.find(0)->name(), QStringLiteral("D1")); // duplicates: the first wins
}

TEST(InfoFieldLists, PreviousGlobalField)
{
    const struct
    {
        Ids list;
        int id, previous;
    } cases[] = { { { 0, -1, 1, -2 }, -2, 1 }, { { 0, -1, 1, -2 }, -1, 0 }, { { -1, 0 }, -1, -1 },
        { { 0, -1 }, 5, 5 }, { { 0, -1 }, -9, -9 }, { { 0, -1 }, INT_MIN, INT_MIN } };
    for (auto const& c : cases)
        EXPECT_EQ(valuesOf(c.list).getPreviousGlobalInfoField(c.id), c.previous) << c.id;
}

// removeInfoField and insertInfoField(field, nextId) are one another's undo.
TEST(InfoFieldLists, RemovedValueGoesBackToItsPlace)
{
    for (int id : { 3, -1, 5 }) {
        KRC_InfoFieldList list = valuesOf({ 3, -1, 5 });
        const UT_SharedPtr<KRC_InfoField> removed = list.removeInfoField(id);
        ASSERT_TRUE(removed);
        EXPECT_EQ(removed->nextId(), id == 5 ? INT_MAX : (id == 3 ? -1 : 5));
        EXPECT_FALSE(list.contain(id));
        list.insertInfoField(removed, removed->nextId());
        EXPECT_EQ(idsOf(list), (Ids { 3, -1, 5 }));
    }
    EXPECT_FALSE(valuesOf({ 3 }).removeInfoField(4));
}

TEST(InfoFieldLists, MadeValuesFollowTheIdRules)
{
    KRC_InfoFieldList list;
    list.insertInfoField(KRC_InfoFieldDesc::kText, QStringLiteral("abc"), 4, QStringLiteral("v"), INT_MAX);
    list.insertInfoField(KRC_InfoFieldDesc::kText, QStringLiteral("abc"), -4, QStringLiteral("v"), INT_MAX);
    list.insertInfoField(17, QStringLiteral("c"), INT_MAX, QString(), INT_MIN);
    list.insertInfoField(KRC_InfoFieldDesc::kImage, 7, QStringLiteral("a/b.png"), INT_MAX);
    EXPECT_EQ(idsOf(list), (Ids { -1, 4, -4, 7 }));
    EXPECT_TRUE(list.getInfoField(4)->name().isNull()); // a global value has no name
    EXPECT_EQ(list.getInfoField(-4)->name(), QStringLiteral("abc"));
    EXPECT_EQ(list.getInfoField(-1)->type(), KRC_InfoFieldDesc::kText); // no comment bit on values
    auto* image = dynamic_cast<KRC_InfoFieldImage*>(list.getInfoField(7).get());
    ASSERT_TRUE(image);
    EXPECT_EQ(image->key(), QStringLiteral("a/b.png"));

    EXPECT_EQ(list.renameInfoField(4, QStringLiteral("x")), INT_MAX);
    QString old;
    EXPECT_EQ(list.renameInfoField(-4, QStringLiteral("x"), old), -4);
    EXPECT_EQ(old, QStringLiteral("abc"));

    // clone is deep, a copy shares.
    std::unique_ptr<KRC_InfoFieldList> deep(static_cast<KRC_InfoFieldList*>(list.clone()));
    KRC_InfoFieldList shallow(list);
    list.getInfoField(7)->setValue(QStringLiteral("changed"));
    EXPECT_EQ(shallow.getInfoField(7)->value(), QStringLiteral("changed"));
    EXPECT_EQ(deep->getInfoField(7)->value(), QStringLiteral("a/b.png"));
}

// copyExtra on one panel and reserveExtraInfoFields on another carry the local layout.
TEST(InfoFieldLists, LocalLayoutCarriesOver)
{
    const struct
    {
        Ids source;
        std::vector<int> positions;
        Ids rebuilt;
    } cases[] = { { { 0, -1, -2, 1 }, { 1, 1 }, { 0, -1, -2, 1 } }, { { 0, -1 }, { INT_MAX }, { 0, 1, -1 } } };
    for (auto const& c : cases) {
        KRC_ExtraInfoFieldDescList extras;
        KRC_InfoFieldList source = valuesOf(c.source);
        source.push_back(UT_SharedPtr<KRC_InfoField>()); // null entries are passed over
        source.copyExtra(&extras);
        std::vector<int> positions;
        for (KRC_ExtraInfoFieldDesc const& extra : extras)
            positions.push_back(extra.position());
        EXPECT_EQ(positions, c.positions);
        KRC_InfoFieldList other;
        other.reserveInfoFields(descsOf({ 0, 1 }));
        other.reserveExtraInfoFields(extras);
        EXPECT_EQ(idsOf(other), c.rebuilt);
        EXPECT_EQ(other.getInfoField(-1)->name(), QStringLiteral("L-1"));
        EXPECT_TRUE(other.getInfoField(-1)->value().isNull());
    }
}

TEST(InfoFieldLists, OrderFollowsDefinitions)
{
    KRC_InfoFieldList list = valuesOf({ 1, -1, 2, 7 });
    KRC_InfoFieldUtil::order_infofield_based_on_desc(descsOf({ 2, 1 }), list);
    EXPECT_EQ(idsOf(list), (Ids { 2, 1, -1, 7 }));
}

} // namespace
