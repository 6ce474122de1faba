// Frame blocks of a sequence: lookups under overlaps and at both ends, neighbours,
// the layout rules, time warps and frame rounding.
#include "host/engine/HostEngine.h"
#include "support/EngineFixtures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

// What getBlock answers, as text: "A", "B", "C" for the shots in order, "T" for a
// transition, "-" for none.
QString blockName(HostStoryboard const& board, AT_FrameBlock const* block)
{
    if (!block)
        return QStringLiteral("-");
    if (block->isTransition())
        return QStringLiteral("T");
    auto const* scene = AT_AbstractSceneSeq::toAbstractScene(block->seq());
    for (size_t i = 0; i < board.shots.size(); ++i) {
        if (scene && scene->sceneId == board.shots[i])
            return QString(QChar('A' + int(i)));
    }
    return QStringLiteral("?");
}

TEST(EngineBlocks, countAndBlockAtFrame)
{
    struct Probe
    {
        double frame;
        unsigned count;
        char const* block;
    };
    struct
    {
        char const* description;
        std::vector<Probe> probes;
    } const cases[] = {
        // A [1,10], T [7,10], B [7,14], C [15,19].
        { "S[10] T4 S[8] S[5]",
            { { -1.0, 0, "-" }, { 0.0, 0, "-" }, { 0.5, 0, "-" }, { 1.0, 1, "A" }, { 6.0, 1, "A" },
                { 7.0, 3, "T" }, { 10.0, 3, "T" }, { 10.75, 3, "T" }, { 11.0, 1, "B" }, { 14.0, 1, "B" },
                { 15.0, 1, "C" }, { 19.0, 1, "C" }, { 19.99, 1, "C" }, { 20.0, 0, "-" } } },
        { "T3 S[10]", { { 1.0, 2, "T" }, { 3.0, 2, "T" }, { 4.0, 1, "A" } } },
        { "S[10] T2", { { 8.0, 1, "A" }, { 9.0, 2, "T" }, { 10.0, 2, "T" }, { 11.0, 0, "-" } } },
        { "", { { 1.0, 0, "-" } } },
        { "S[3] T1 S[3] T1 S[3]", { { 3.0, 3, "T" }, { 4.0, 1, "B" }, { 5.0, 3, "T" }, { 7.0, 1, "C" } } },
    };
    for (auto const& c : cases) {
        HostStoryboard board = engineBoard(QString::fromLatin1(c.description));
        TUSeqTimedValue const* tv = board.project->topScene()->sequence();
        for (Probe const& at : c.probes) {
            EXPECT_EQ(tv->getBlockCount(at.frame), at.count) << c.description << " at " << at.frame;
            EXPECT_EQ(blockName(board, tv->getBlock(at.frame)), QString::fromLatin1(at.block))
                << c.description << " at " << at.frame;
        }
    }
}

TEST(EngineBlocks, neighboursFollowListOrderWithTransitions)
{
    HostStoryboard board = engineBoard(QStringLiteral("S[10] T4 S[8] S[5]"));
    TUSeqTimedValue const* tv = board.project->topScene()->sequence();
    ASSERT_EQ(tv->getBlockCount(), 4u);
    EXPECT_EQ(tv->nFrames(), 19u);
    AT_FrameBlock const* a = tv->blockAt(0);
    EXPECT_EQ(tv->getPrevBlock(a), nullptr);
    EXPECT_EQ(blockName(board, tv->getNextBlock(a)), QStringLiteral("T"));
    EXPECT_EQ(blockName(board, tv->getNextBlock(tv->getNextBlock(a))), QStringLiteral("B"));
    EXPECT_EQ(tv->getPrevBlock(tv->getNextBlock(a)), a);
    EXPECT_EQ(tv->getNextBlock(tv->blockAt(3)), nullptr);
    EXPECT_EQ(tv->getNextBlock(nullptr), nullptr);

    // A block of another sequence is no neighbour of anything here.
    TUScene const* symbol = HostAuthoring::symbolOf(board.project.get(), board.shots[0]);
    AT_FrameBlock const* panel = symbol->sequence()->blockAt(0);
    EXPECT_EQ(tv->getNextBlock(panel), nullptr);
    EXPECT_EQ(tv->getPrevBlock(panel), nullptr);
    EXPECT_EQ(tv->indexOf(panel), -1);
}

TEST(EngineBlocks, lookupsFollowEdits)
{
    HostStoryboard board = engineBoard(QStringLiteral("S[4] S[4]"));
    SC_Project* project = board.project.get();
    TUSeqTimedValue const* tv = project->topScene()->sequence();
    EXPECT_EQ(blockName(board, tv->getBlock(5)), QStringLiteral("B"));
    ASSERT_FALSE(HostAuthoring::insertTransition(project, 1, 2).isNull());
    EXPECT_EQ(tv->getBlockCount(3), 3u);
    EXPECT_EQ(blockName(board, tv->getBlock(3)), QStringLiteral("T"));
    EXPECT_EQ(tv->nFrames(), 6u);
    ASSERT_TRUE(HostAuthoring::removeShot(project, board.shots[0]));
    EXPECT_EQ(tv->getBlockCount(), 1u);
    EXPECT_EQ(tv->nFrames(), 4u);
    EXPECT_EQ(blockName(board, tv->getBlock(1)), QStringLiteral("B"));
}

TEST(EngineBlocks, blockWithoutSequenceStillAnswersASequence)
{
    AT_FrameBlock empty(1, 3, nullptr);
    EXPECT_FALSE(empty.hasSeq);
    ASSERT_NE(empty.seq(), nullptr);
    EXPECT_EQ(AT_AbstractSceneSeq::toAbstractScene(empty.seq()), nullptr);
    EXPECT_FALSE(AT_TransitionSeq::isTransition(empty.seq()));
    EXPECT_TRUE(empty.isInRange(1));
    EXPECT_TRUE(empty.isInRange(3));
    EXPECT_FALSE(empty.isInRange(4));
    EXPECT_FALSE(empty.isInRange(0));
}

TEST(EngineBlocks, castsAnswerOnlyTheirOwnKind)
{
    AT_TimeWarpSeq warp(SC_Id(5), 1, 10);
    AT_AbstractSceneSeq scene(SC_Id(6));
    AT_TransitionSeq transition(SC_Id(7), AT_TransitionSeq::eWipe, 90, true);
    TUSeq other;
    EXPECT_EQ(AT_AbstractSceneSeq::toAbstractScene(&warp), &warp);
    EXPECT_EQ(AT_TimeWarpSeq::toTimeWarp(&warp), &warp);
    EXPECT_EQ(AT_AbstractSceneSeq::toAbstractScene(&scene), &scene);
    EXPECT_EQ(AT_TimeWarpSeq::toTimeWarp(&scene), nullptr);
    EXPECT_EQ(AT_TransitionSeq::toTransition(&transition), &transition);
    EXPECT_EQ(AT_AbstractSceneSeq::toAbstractScene(&transition), nullptr);
    for (TUSeq const* seq : { static_cast<TUSeq const*>(&other), static_cast<TUSeq const*>(nullptr) }) {
        EXPECT_EQ(AT_AbstractSceneSeq::toAbstractScene(seq), nullptr);
        EXPECT_EQ(AT_TimeWarpSeq::toTimeWarp(seq), nullptr);
        EXPECT_EQ(AT_TransitionSeq::toTransition(seq), nullptr);
    }
    EXPECT_EQ(transition.typeString(), QStringLiteral("Wipe"));
    EXPECT_EQ(AT_TransitionSeq(SC_Id(8), 99).typeString(), QStringLiteral("Unknown"));
    EXPECT_EQ(
        AT_TransitionSeq::typeFromString(QStringLiteral("clockwipe")), int(AT_TransitionSeq::eClockWipe));
    EXPECT_EQ(
        AT_TransitionSeq::typeFromString(QStringLiteral("Edge Wipe")), int(AT_TransitionSeq::eEdgeWipe));
    EXPECT_EQ(AT_TransitionSeq::typeFromString(QStringLiteral("spin")), -1);
}

TEST(EngineBlocks, lookupsStayExactOnABrokenLayout)
{
    // Raw edits may break the layout rules; counts and lookups still tell the truth.
    UT_SharedPtr<SC_Project> project = HostAuthoring::createProject();
    TUSeqTimedValue* tv = project->topScene()->sequence();
    auto add = [tv](quint32 first, quint32 last, quint64 id) {
        tv->insertBlock(tv->getBlockCount(),
            std::make_unique<AT_FrameBlock>(first, last, std::make_unique<AT_AbstractSceneSeq>(SC_Id(id))));
    };
    add(1, 9, 1);
    add(3, 5, 2);
    add(4, 12, 3);
    ASSERT_FALSE(tv->isConsistent());
    struct
    {
        double frame;
        unsigned count;
        quint64 id;
    } const cases[] = { { 1, 1, 1 }, { 3, 2, 2 }, { 4, 3, 3 }, { 6, 2, 3 }, { 10, 1, 3 }, { 13, 0, 0 } };
    for (auto const& c : cases) {
        EXPECT_EQ(tv->getBlockCount(c.frame), c.count) << c.frame;
        AT_FrameBlock const* block = tv->getBlock(c.frame);
        auto const* seq = block ? AT_AbstractSceneSeq::toAbstractScene(block->seq()) : nullptr;
        EXPECT_EQ(seq ? seq->sceneId.value() : 0u, c.id) << c.frame;
    }
}

TEST(EngineScenes, sceneManagerFindsEveryLivingSceneAfterManyRemovals)
{
    UT_SharedPtr<SC_Project> project = HostAuthoring::createProject();
    SC_SceneManager const* scenes = project->projectCommon()->sceneManager();
    std::vector<SC_Id> ids;
    for (int i = 0; i < 1000; ++i)
        ids.push_back(project->createScene()->id);
    for (size_t i = 0; i < ids.size(); i += 3)
        ASSERT_TRUE(project->removeScene(ids[i]));
    EXPECT_FALSE(project->removeScene(ids[0]));
    EXPECT_EQ(scenes->count(), 1u + 1000 - 334);
    for (size_t i = 0; i < ids.size(); ++i) {
        SC_SceneBase const* found = scenes->find(ids[i]);
        if (i % 3 == 0) {
            EXPECT_EQ(found, nullptr) << i;
        } else {
            ASSERT_NE(found, nullptr) << i;
            EXPECT_EQ(found->id, ids[i]);
        }
    }
    EXPECT_EQ(scenes->find(SC_Id()), nullptr);
    EXPECT_EQ(project->createScene(QString(), ids[1]), nullptr) << "an id in use is refused";
    EXPECT_NE(project->createScene(QString(), ids[0]), nullptr)
        << "a removed scene's id may come back from a file";
}

// --- Layout rules --------------------------------------------------------------

struct LayoutBlock
{
    quint32 first;
    quint32 last;
    bool transition;
};

struct LayoutCase
{
    char const* name;
    std::vector<LayoutBlock> blocks;
    char const* problem; // null when consistent; else a part of the message
};

class BlockLayout : public ::testing::TestWithParam<LayoutCase>
{
};

TEST_P(BlockLayout, isConsistentNamesTheFirstBrokenRule)
{
    LayoutCase const& c = GetParam();
    UT_SharedPtr<SC_Project> project = HostAuthoring::createProject();
    TUSeqTimedValue* tv = project->topScene()->sequence();
    quint64 id = 100;
    for (LayoutBlock const& b : c.blocks) {
        std::unique_ptr<TUSeq> seq;
        if (b.transition)
            seq = std::make_unique<AT_TransitionSeq>(SC_Id(++id), 0);
        else
            seq = std::make_unique<AT_TimeWarpSeq>(SC_Id(++id), 1, b.last - b.first + 1);
        tv->insertBlock(
            tv->getBlockCount(), std::make_unique<AT_FrameBlock>(b.first, b.last, std::move(seq)));
    }
    QString why;
    bool const consistent = tv->isConsistent(&why);
    if (!c.problem) {
        EXPECT_TRUE(consistent) << c.name << ": " << qPrintable(why);
    } else {
        EXPECT_FALSE(consistent) << c.name;
        EXPECT_TRUE(why.contains(QString::fromLatin1(c.problem))) << c.name << ": " << qPrintable(why);
    }
}

INSTANTIATE_TEST_SUITE_P(Engine, BlockLayout,
    ::testing::Values(LayoutCase { "empty", {}, nullptr },
        LayoutCase { "shots end to end", { { 1, 5, false }, { 6, 9, false } }, nullptr },
        LayoutCase { "gap between shots", { { 1, 5, false }, { 8, 9, false } }, nullptr },
        LayoutCase {
            "transition joins overlap", { { 1, 5, false }, { 4, 5, true }, { 4, 9, false } }, nullptr },
        LayoutCase { "longer transition", { { 1, 5, false }, { 3, 6, true }, { 4, 9, false } }, nullptr },
        LayoutCase { "first frame 0", { { 0, 5, false } }, "block 0: first frame 0" },
        LayoutCase {
            "reversed block", { { 1, 5, false }, { 9, 6, false } }, "block 1: last frame 6 is before" },
        LayoutCase { "out of order", { { 6, 9, false }, { 1, 5, false } }, "block 1: out of order" },
        LayoutCase { "shot before transition at same frame",
            { { 1, 5, false }, { 4, 9, false }, { 4, 5, true } }, "block 2: out of order" },
        LayoutCase { "shot inside shot", { { 1, 9, false }, { 3, 5, false } }, "block 1: lies inside" },
        LayoutCase { "overlap without transition", { { 1, 5, false }, { 4, 9, false } }, "frames 4 to 5" },
        LayoutCase { "transition too short", { { 1, 5, false }, { 4, 4, true }, { 4, 9, false } },
            "outside a transition" },
        LayoutCase { "overlapping transitions",
            { { 1, 5, false }, { 4, 5, true }, { 4, 9, false }, { 5, 9, true }, { 8, 12, false } },
            "block 3: transition overlaps" },
        LayoutCase { "three shots on one frame",
            { { 1, 5, false }, { 2, 6, true }, { 3, 7, false }, { 5, 9, false } }, "overlaps two blocks" }));

// --- Warps and rounding --------------------------------------------------------

struct WarpCase
{
    double start, end;
    double first, last;
    double frame;
    double local;
};

class WarpMap : public ::testing::TestWithParam<WarpCase>
{
};

TEST_P(WarpMap, localFrameAndItsInverse)
{
    WarpCase const& c = GetParam();
    AT_TimeWarpSeq warp(SC_Id(1), c.start, c.end);
    EXPECT_DOUBLE_EQ(warp.localFrame(c.frame, c.first, c.last), c.local);
    if (c.first != c.last && c.start != c.end) {
        EXPECT_DOUBLE_EQ(warp.globalFrame(c.local, c.first, c.last), c.frame);
    }
}

INSTANTIATE_TEST_SUITE_P(Engine, WarpMap,
    ::testing::Values(WarpCase { 1, 10, 11, 20, 11, 1 }, WarpCase { 1, 10, 11, 20, 20, 10 },
        WarpCase { 1, 10, 11, 20, 15.5, 5.5 }, WarpCase { 5, 14, 1, 10, 1, 5 },
        WarpCase { 1, 20, 1, 10, 10, 20 }, WarpCase { 1, 20, 1, 10, 5.5, 10.5 },
        WarpCase { 1, 5, 1, 9, 9, 5 }, WarpCase { 1, 5, 1, 9, 5, 3 }, WarpCase { 3, 7, 5, 5, 5, 3 },
        WarpCase { 3, 3, 1, 9, 7, 3 }));

TEST(EngineWarp, degenerateRangesMapToTheirStart)
{
    EXPECT_DOUBLE_EQ(AT_TimeWarpSeq(SC_Id(1), 4, 4).globalFrame(4, 10, 20), 10.0);
    EXPECT_DOUBLE_EQ(AT_TimeWarpSeq(SC_Id(1), 3, 7).globalFrame(7, 5, 5), 5.0);
}

struct RoundCase
{
    double value;
    int rounded;
    quint32 whole;
};

class FrameRounding : public ::testing::TestWithParam<RoundCase>
{
};

TEST_P(FrameRounding, roundToUnsignedAndWholeFrame)
{
    RoundCase const& c = GetParam();
    EXPECT_EQ(AT_Frame::roundToUnsigned(c.value), c.rounded) << c.value;
    EXPECT_EQ(AT_Frame::wholeFrame(c.value), c.whole) << c.value;
}

INSTANTIATE_TEST_SUITE_P(Engine, FrameRounding,
    ::testing::Values(RoundCase { -3.2, 0, 0 }, RoundCase { 0.0, 0, 0 }, RoundCase { 0.49, 0, 0 },
        RoundCase { 0.5, 1, 0 }, RoundCase { 1.5, 2, 1 }, RoundCase { 2.4999, 2, 2 }, RoundCase { 7.0, 7, 7 },
        RoundCase { std::nan(""), 0, 0 },
        RoundCase { 1e20, std::numeric_limits<int>::max(), std::numeric_limits<quint32>::max() }));

TEST(EngineFrameKey, conversionsAndWholeFrame)
{
    EXPECT_DOUBLE_EQ(MO_FrameKey(3.7, MO_FrameKey::eExact).frame(), 3.7);
    EXPECT_DOUBLE_EQ(MO_FrameKey(3.7, 1).frame(), 3.7);
    EXPECT_DOUBLE_EQ(MO_FrameKey(3.7, MO_FrameKey::eFloor).frame(), 3.0);
    EXPECT_DOUBLE_EQ(MO_FrameKey(3.5, MO_FrameKey::eRound).frame(), 4.0);
    EXPECT_EQ(MO_FrameKey(3.7, 1).frameInt(), 3u);
    EXPECT_EQ(MO_FrameKey(-2.0, 1).frameInt(), 0u);
    EXPECT_EQ(MO_FrameKey(3.7, 42).conversion(), MO_FrameKey::eExact);
}

} // namespace
