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
    // Each probe is "frame:count:block".
    struct
    {
        char const* description;
        char const* probes;
    } const cases[] = { // A [1,10], T [7,10], B [7,14], C [15,19].
        { "S[10] T4 S[8] S[5]",
            "-1:0:- 0:0:- 0.5:0:- 1:1:A 6:1:A 7:3:T 10:3:T 10.75:3:T 11:1:B 14:1:B 15:1:C 19:1:C "
            "19.99:1:C 20:0:-" },
        { "T3 S[10]", "1:2:T 3:2:T 4:1:A" }, { "S[10] T2", "8:1:A 9:2:T 10:2:T 11:0:-" }, { "", "1:0:-" },
        { "S[3] T1 S[3] T1 S[3]", "3:3:T 4:1:B 5:3:T 7:1:C" }
    };
    for (auto const& c : cases) {
        HostStoryboard board = engineBoard(QString::fromLatin1(c.description));
        TUSeqTimedValue const* tv = board.project->topScene()->sequence();
        for (QString const& probe : QString::fromLatin1(c.probes).split(' ')) {
            QStringList const at = probe.split(':');
            double const frame = at[0].toDouble();
            EXPECT_EQ(tv->getBlockCount(frame), at[1].toUInt()) << c.description << " at " << frame;
            EXPECT_EQ(blockName(board, tv->getBlock(frame)), at[2]) << c.description << " at " << frame;
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
    AT_FrameBlock const* panel
        = HostAuthoring::symbolOf(board.project.get(), board.shots[0])->sequence()->blockAt(0);
    EXPECT_TRUE(!tv->getNextBlock(panel) && !tv->getPrevBlock(panel));
    EXPECT_EQ(tv->indexOf(panel), -1);
}

TEST(EngineBlocks, lookupsFollowEdits)
{
    HostStoryboard board = engineBoard(QStringLiteral("S[4] S[4]"));
    SC_Project* project = board.project.get();
    TUSeqTimedValue const* tv = project->topScene()->sequence();
    EXPECT_EQ(blockName(board, tv->getBlock(5)), QStringLiteral("B"));
    ASSERT_FALSE(HostAuthoring::insertTransition(project, 1, 2).isNull());
    EXPECT_EQ(std::tuple(tv->getBlockCount(3), blockName(board, tv->getBlock(3)), tv->nFrames()),
        std::tuple(3u, QStringLiteral("T"), 6u));
    ASSERT_TRUE(HostAuthoring::removeShot(project, board.shots[0]));
    EXPECT_EQ(std::tuple(tv->getBlockCount(), blockName(board, tv->getBlock(1)), tv->nFrames()),
        std::tuple(1u, QStringLiteral("B"), 4u));
}

TEST(EngineBlocks, castsAnswerOnlyTheirOwnKindAndABlockWithoutSequenceStillHasOne)
{
    AT_TimeWarpSeq warp(SC_Id(5), 1, 10);
    AT_AbstractSceneSeq scene(SC_Id(6));
    AT_TransitionSeq transition(SC_Id(7), AT_TransitionSeq::eWipe, 90, true);
    TUSeq other;
    AT_FrameBlock empty(1, 3, nullptr);
    EXPECT_FALSE(empty.hasSeq);
    ASSERT_NE(empty.seq(), nullptr);
    EXPECT_TRUE(AT_AbstractSceneSeq::toAbstractScene(&warp) == &warp
        && AT_TimeWarpSeq::toTimeWarp(&warp) == &warp
        && AT_AbstractSceneSeq::toAbstractScene(&scene) == &scene && !AT_TimeWarpSeq::toTimeWarp(&scene)
        && AT_TransitionSeq::toTransition(&transition) == &transition
        && !AT_AbstractSceneSeq::toAbstractScene(&transition));
    for (TUSeq const* seq : { static_cast<TUSeq const*>(&other), static_cast<TUSeq const*>(empty.seq()),
             static_cast<TUSeq const*>(nullptr) }) {
        EXPECT_TRUE(!AT_AbstractSceneSeq::toAbstractScene(seq) && !AT_TimeWarpSeq::toTimeWarp(seq)
            && !AT_TransitionSeq::toTransition(seq));
    }
    for (quint32 frame : { 0, 1, 3, 4 })
        EXPECT_EQ(empty.isInRange(frame), frame == 1 || frame == 3) << frame;
    EXPECT_EQ(QStringList({ transition.typeString(), AT_TransitionSeq(SC_Id(8), 99).typeString() }),
        QStringList({ "Wipe", "Unknown" }));
    EXPECT_EQ(std::vector<int>({ AT_TransitionSeq::typeFromString("clockwipe"),
                  AT_TransitionSeq::typeFromString("Edge Wipe"), AT_TransitionSeq::typeFromString("spin") }),
        std::vector<int>({ AT_TransitionSeq::eClockWipe, AT_TransitionSeq::eEdgeWipe, -1 }));
}

// Adds raw blocks "first-last" (a "T" before it makes a transition) to a sequence:
// raw edits may break the layout rules.
void addBlocks(TUSeqTimedValue* tv, QString const& blocks, bool warps)
{
    quint64 id = 100;
    for (QString block : blocks.split(' ', Qt::SkipEmptyParts)) {
        bool const transition = block.startsWith('T');
        QStringList const range = block.remove('T').split('-');
        quint32 const first = range[0].toUInt();
        quint32 const last = range[1].toUInt();
        std::unique_ptr<TUSeq> seq;
        if (transition)
            seq = std::make_unique<AT_TransitionSeq>(SC_Id(++id), 0);
        else if (warps)
            seq = std::make_unique<AT_TimeWarpSeq>(SC_Id(++id), 1, last - first + 1);
        else
            seq = std::make_unique<AT_AbstractSceneSeq>(SC_Id(++id));
        tv->insertBlock(tv->getBlockCount(), std::make_unique<AT_FrameBlock>(first, last, std::move(seq)));
    }
}

TEST(EngineBlocks, lookupsStayExactOnABrokenLayout)
{
    UT_SharedPtr<SC_Project> project = HostAuthoring::createProject();
    TUSeqTimedValue* tv = project->topScene()->sequence();
    addBlocks(tv, QStringLiteral("1-9 3-5 4-12"), false);
    ASSERT_FALSE(tv->isConsistent());
    struct
    {
        double frame;
        unsigned count;
        quint64 id;
    } const cases[]
        = { { 1, 1, 101 }, { 3, 2, 102 }, { 4, 3, 103 }, { 6, 2, 103 }, { 10, 1, 103 }, { 13, 0, 0 } };
    for (auto const& c : cases) {
        EXPECT_EQ(tv->getBlockCount(c.frame), c.count) << c.frame;
        AT_FrameBlock const* block = tv->getBlock(c.frame);
        auto const* seq = block ? AT_AbstractSceneSeq::toAbstractScene(block->seq()) : nullptr;
        EXPECT_EQ(seq ? seq->sceneId.value() : 0u, c.id) << c.frame;
    }
}

TEST(EngineBlocks, isConsistentNamesTheFirstBrokenRule)
{
    struct
    {
        char const* blocks;
        char const* problem; // null when consistent; else a part of the message
    } const cases[] = { { "", nullptr }, { "1-5 6-9", nullptr }, { "1-5 8-9", nullptr },
        { "1-5 T4-5 4-9", nullptr }, { "1-5 T3-6 4-9", nullptr }, { "0-5", "block 0: first frame 0" },
        { "1-5 9-6", "block 1: last frame 6 is before" }, { "6-9 1-5", "block 1: out of order" },
        { "1-5 4-9 T4-5", "block 2: out of order" }, { "1-9 3-5", "block 1: lies inside" },
        { "1-5 4-9", "frames 4 to 5" }, { "1-5 T4-4 4-9", "outside a transition" },
        { "1-5 T4-5 4-9 T5-9 8-12", "block 3: transition overlaps" },
        { "1-5 T2-6 3-7 5-9", "overlaps two blocks" } };
    for (auto const& c : cases) {
        UT_SharedPtr<SC_Project> project = HostAuthoring::createProject();
        TUSeqTimedValue* tv = project->topScene()->sequence();
        addBlocks(tv, QString::fromLatin1(c.blocks), true);
        QString why;
        EXPECT_EQ(tv->isConsistent(&why), !c.problem) << c.blocks << ": " << qPrintable(why);
        EXPECT_TRUE(!c.problem || why.contains(QString::fromLatin1(c.problem)))
            << c.blocks << ": " << qPrintable(why);
    }
}

TEST(EngineWarp, localFrameAndItsInverse)
{
    struct
    {
        double start, end, first, last, frame, local;
    } const cases[] = { { 1, 10, 11, 20, 11, 1 }, { 1, 10, 11, 20, 20, 10 }, { 1, 10, 11, 20, 15.5, 5.5 },
        { 5, 14, 1, 10, 1, 5 }, { 1, 20, 1, 10, 10, 20 }, { 1, 20, 1, 10, 5.5, 10.5 }, { 1, 5, 1, 9, 9, 5 },
        { 1, 5, 1, 9, 5, 3 }, { 3, 7, 5, 5, 5, 3 }, { 3, 3, 1, 9, 7, 3 } };
    for (auto const& c : cases) {
        AT_TimeWarpSeq warp(SC_Id(1), c.start, c.end);
        EXPECT_DOUBLE_EQ(warp.localFrame(c.frame, c.first, c.last), c.local) << c.start << ":" << c.end;
        if (c.first != c.last && c.start != c.end) {
            EXPECT_DOUBLE_EQ(warp.globalFrame(c.local, c.first, c.last), c.frame) << c.start << ":" << c.end;
        }
    }
    // Degenerate ranges map to their start.
    EXPECT_DOUBLE_EQ(AT_TimeWarpSeq(SC_Id(1), 4, 4).globalFrame(4, 10, 20), 10.0);
    EXPECT_DOUBLE_EQ(AT_TimeWarpSeq(SC_Id(1), 3, 7).globalFrame(7, 5, 5), 5.0);
}

TEST(EngineFrame, roundingAndFrameKeys)
{
    struct
    {
        double value;
        int rounded;
        quint32 whole;
    } const cases[] = { { -3.2, 0, 0 }, { 0.0, 0, 0 }, { 0.49, 0, 0 }, { 0.5, 1, 0 }, { 1.5, 2, 1 },
        { 2.4999, 2, 2 }, { 7.0, 7, 7 }, { std::nan(""), 0, 0 },
        { 1e20, std::numeric_limits<int>::max(), std::numeric_limits<quint32>::max() } };
    for (auto const& c : cases) {
        EXPECT_EQ(AT_Frame::roundToUnsigned(c.value), c.rounded) << c.value;
        EXPECT_EQ(AT_Frame::wholeFrame(c.value), c.whole) << c.value;
    }
    EXPECT_EQ(
        std::vector<double>({ MO_FrameKey(3.7, MO_FrameKey::eExact).frame(), MO_FrameKey(3.7, 1).frame(),
            MO_FrameKey(3.7, MO_FrameKey::eFloor).frame(), MO_FrameKey(3.5, MO_FrameKey::eRound).frame() }),
        std::vector<double>({ 3.7, 3.7, 3.0, 4.0 }));
    EXPECT_EQ(std::pair(MO_FrameKey(3.7, 1).frameInt(), MO_FrameKey(-2.0, 1).frameInt()), std::pair(3u, 0u));
    EXPECT_EQ(MO_FrameKey(3.7, 42).conversion(), MO_FrameKey::eExact);
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
        EXPECT_EQ(found ? found->id : SC_Id(), i % 3 == 0 ? SC_Id() : ids[i]) << i;
    }
    EXPECT_EQ(scenes->find(SC_Id()), nullptr);
    EXPECT_EQ(project->createScene(QString(), ids[1]), nullptr) << "an id in use is refused";
    EXPECT_NE(project->createScene(QString(), ids[0]), nullptr)
        << "a removed scene's id may come back from a file";
}

} // namespace
