// Value handles: the invalid statics, frame arithmetic through time warps,
// comparisons, lazily read transition fields and the panel-or-transition pair.
#include "support/ProjectBoard.h"

#include "project/EngineLinks.h"
#include "project/PanelTrans_t.h"

#include <gtest/gtest.h>

#include <limits>

#include <memory>
#include <vector>

using namespace Krolle;

namespace {

/// A warp that counts how often the engine's map is asked.
class CountingWarp : public AT_TimeWarpSeq
{
public:
    CountingWarp(double start, double end, int* calls)
        : AT_TimeWarpSeq(SC_Id(7), start, end)
        , m_calls(calls)
    {
    }
    double localFrame(double frame, double first, double last) const override
    {
        ++*m_calls;
        return AT_TimeWarpSeq::localFrame(frame, first, last);
    }

private:
    int* m_calls;
};

std::unique_ptr<AT_FrameBlock> warpBlock(quint32 first, quint32 last, double start, double end, int* calls)
{
    return std::make_unique<AT_FrameBlock>(first, last, std::make_unique<CountingWarp>(start, end, calls));
}

std::unique_ptr<AT_FrameBlock> transitionBlock(quint64 id, quint32 first = 1, quint32 last = 4)
{
    return std::make_unique<AT_FrameBlock>(
        first, last, std::make_unique<AT_TransitionSeq>(SC_Id(id), 1, 45, true));
}

} // namespace

TEST(InvalidHandles, AnswerEmptyValuesWithoutAMessageAndShareTheStatics)
{
    testing::internal::CaptureStdout();
    Shot_t const& shot = Shot_t::invalid;
    EXPECT_TRUE(Shot_t().isInvalid());
    EXPECT_EQ((std::vector<double> { double(shot.firstFrame()), double(shot.objNumOfFrame()),
                  shot.projectFrameToShotFrame(5), double(shot.prjFrameToTvFrame(5)),
                  double(shot.shotFrameToProjectFrame(12.0)) }),
        (std::vector<double> { 0, 1, 1, 5, 1 }));
    EXPECT_TRUE(shot.sceneId() == invalidId && !shot.symbol());
    EXPECT_EQ(0u, Panel_t::invalid.firstFrame());
    EXPECT_EQ(Shot_t::invalid, Panel_t::invalid.shot());
    EXPECT_EQ(1.0, Panel_t::invalid.projectFrameToPanelFrame(9));
    Trans_t const& trans = Trans_t::invalid;
    EXPECT_TRUE(trans.type() == -1 && trans.angle() == 0 && !trans.reverse() && trans.name().isNull()
        && !trans.transitionSeq());
    EXPECT_FALSE(PanelTrans_t(Panel_t::invalid).isValid());
    EXPECT_TRUE(PanelTrans_t::invalid.isInvalid() && PanelTrans_t::invalid.id() == invalidId);
    EXPECT_EQ("", testing::internal::GetCapturedStdout());

    // Default handles share the static instances.
    EXPECT_TRUE(sharePrivate(Shot_t(), Shot_t::invalid) && sharePrivate(Panel_t(), Panel_t::invalid)
        && sharePrivate(Trans_t(), Trans_t::invalid)
        && sharePrivate(Panel_t::invalid.shot(), Shot_t::invalid));
    EXPECT_TRUE(SharedPtr<ShotPrivate>(static_cast<ShotPrivate*>(nullptr)).isInvalid());
}

TEST(ShotFrames, ClampPastTheBlockWithoutAskingTheWarp)
{
    int calls = 0;
    auto const block = warpBlock(11, 30, 5.0, 24.0, &calls); // a plain offset of -6
    Shot_t const shot(block.get(), nullptr, nullptr);

    EXPECT_EQ(24.0, shot.projectFrameToShotFrame(31));
    EXPECT_EQ(5.0, shot.projectFrameToShotFrame(10));
    EXPECT_EQ(0, calls);
    EXPECT_EQ(9.0, shot.projectFrameToShotFrame(15));
    EXPECT_EQ(1, calls);

    EXPECT_EQ(11u, shot.shotFrameToProjectFrame(4.0));
    EXPECT_EQ(30u, shot.shotFrameToProjectFrame(25.0));
    EXPECT_EQ(16u, shot.shotFrameToProjectFrame(10.4));
    EXPECT_EQ(5u, shot.prjFrameToTvFrame(1));
    EXPECT_EQ(24u, shot.prjFrameToTvFrame(20));
    // Past the largest frame the sequence frame stays at the largest, not wrapped round.
    EXPECT_EQ(
        std::numeric_limits<unsigned>::max(), shot.prjFrameToTvFrame(std::numeric_limits<unsigned>::max()));
    EXPECT_EQ(20u, shot.objNumOfFrame());

    // A warp that holds one frame maps it to the block's first frame, as the warp does.
    auto const still = warpBlock(11, 30, 7.0, 7.0, &calls);
    EXPECT_EQ(11u, Shot_t(still.get(), nullptr, nullptr).shotFrameToProjectFrame(7.0));

    // Sequence frames below zero stay at zero.
    auto const early = warpBlock(1, 10, -3.5, 6.5, &calls);
    Shot_t const below(early.get(), nullptr, nullptr);
    EXPECT_EQ(0u, below.prjFrameToTvFrame(1));
    EXPECT_EQ(0u, below.prjFrameToTvFrame(5)); // 0.5, truncated
    EXPECT_EQ(1u, below.prjFrameToTvFrame(6));
}

TEST(ShotFrames, WithoutAWarpTheTwoMapsDiffer)
{
    auto const block
        = std::make_unique<AT_FrameBlock>(8, 12, std::make_unique<AT_AbstractSceneSeq>(SC_Id(3)));
    Shot_t const shot(block.get(), nullptr, nullptr);
    EXPECT_EQ(1.0, shot.projectFrameToShotFrame(10));
    EXPECT_EQ(8u, shot.shotFrameToProjectFrame(10.0));
    EXPECT_EQ(10u, shot.prjFrameToTvFrame(10));
    EXPECT_EQ(SC_Id(3), shot.id());
}

// Panels of "S[4,6] S[3,5]": shot 2 covers project frames 11-18 and shows its symbol
// frames 1-8; its second panel is symbol frames 4-8, panel frames 1-5.
TEST(PanelFrames, FollowTheShotsWarp)
{
    ProjectBoard board(QStringLiteral("S[4,6] S[3,5]"));
    struct
    {
        size_t shot, panel;
        unsigned first, last, relativeFirst, relativeLast;
        bool firstOfShot, lastOfShot;
    } const cases[] = { { 0, 0, 1, 4, 1, 4, true, false }, { 0, 1, 5, 10, 5, 10, false, true },
        { 1, 0, 11, 13, 1, 3, true, false }, { 1, 1, 14, 18, 4, 8, false, true } };
    for (auto const& c : cases) {
        SCOPED_TRACE(testing::Message() << "panel " << c.shot << "." << c.panel);
        Shot_t const shot = board->getShotAt(c.shot == 0 ? 1 : 11, KRC_KrolleProject::PreferPrevious);
        Panel_t const panel = board->getPanelIn(shot, c.panel == 0 ? 1 : c.relativeFirst);
        ASSERT_EQ(board.panel(c.shot, c.panel), panel.id());
        EXPECT_EQ(c.first, panel.firstFrame());
        EXPECT_EQ(c.last, panel.lastFrame());
        EXPECT_EQ(c.relativeFirst, panel.relativeFirstFrame());
        EXPECT_EQ(c.relativeLast, panel.relativeLastFrame());
        EXPECT_EQ(c.firstOfShot, panel.isFirstOfShot());
        EXPECT_EQ(c.lastOfShot, panel.isLastOfShot());
        EXPECT_EQ(!c.lastOfShot, panel.hasMoreKRPanelInCurKRScene(true));
        EXPECT_EQ(!c.firstOfShot, panel.hasMoreKRPanelInCurKRScene(false));
        EXPECT_EQ(c.last - c.first + 1, panel.objNumOfFrame());
        // Round trip through the panel's own frames.
        EXPECT_EQ(1.0, panel.projectFrameToPanelFrame(c.first));
        EXPECT_EQ(c.last, panel.panelFrameToProjectFrame(panel.projectFrameToPanelFrame(c.last)));
        EXPECT_EQ(c.first, panel.panelFrameToProjectFrame(0.0)); // clamped to the block
    }
}

TEST(PanelFrames, ShotAndPanelNumberingsMeetInTheSymbol)
{
    ProjectBoard board(QStringLiteral("S[3,5]"));
    Panel_t const panel = board->getPanelAt(5, KRC_KrolleProject::PreferPrevious);
    EXPECT_EQ(2.0, panel.shotFrameToPanelFrame(5.0));
    EXPECT_EQ(5.0, panel.panelFrameToShotFrame(2.0));
    EXPECT_EQ(8.0, panel.panelFrameToShotFrame(99.0));
}

TEST(HandleComparison, SameBlockAndIdIsEqualWhateverThePrivateObject)
{
    int calls = 0;
    auto const block = warpBlock(1, 10, 1.0, 10.0, &calls);
    auto const other = warpBlock(1, 10, 1.0, 10.0, &calls); // same id, another block
    Shot_t const a(block.get(), nullptr, nullptr);
    Shot_t const b(block.get(), nullptr, nullptr);
    Shot_t const c(other.get(), nullptr, nullptr);
    EXPECT_EQ(a, b);
    EXPECT_FALSE(sharePrivate(a, b));
    EXPECT_NE(a, c);

    Panel_t const panelInA(block.get(), nullptr, a, nullptr);
    Panel_t const panelInB(block.get(), nullptr, b, nullptr);
    Panel_t const panelInC(block.get(), nullptr, c, nullptr);
    EXPECT_EQ(panelInA, panelInB);
    EXPECT_NE(panelInA, panelInC);
}

TEST(HandleComparison, OrderIsBySignedId)
{
    auto const high = transitionBlock(0x8000000000000001ull);
    auto const low = transitionBlock(1);
    Trans_t const negative(high.get());
    Trans_t const positive(low.get());
    EXPECT_TRUE(negative < positive);
    EXPECT_FALSE(positive < negative);
    EXPECT_TRUE(positive > negative);
}

TEST(SceneId, ABlockOfAnotherKindIsReportedOnStandardOutput)
{
    auto const block = transitionBlock(5);
    Shot_t const shot(block.get(), nullptr, nullptr);
    Panel_t const panel(block.get(), nullptr, shot, nullptr);

    testing::internal::CaptureStdout();
    EXPECT_EQ(SC_Id(), shot.sceneId());
    EXPECT_EQ(SC_Id(), panel.sceneId());
    EXPECT_EQ(SC_Id(), Shot_t::invalid.sceneId());
    EXPECT_EQ("Err: Invalid frame block, cannot get scene id - [seq]\n"
              "Err: Invalid frame block, cannot get scene id - [seq]\n",
        testing::internal::GetCapturedStdout());

    ProjectBoard board(QStringLiteral("S[2]"));
    Shot_t const real = board->getShotAt(1, KRC_KrolleProject::PreferPrevious);
    EXPECT_EQ(board.shot(0), real.sceneId());
}

TEST(TransitionFields, ReadLazilyAndABlockWithoutASequenceIsNoTransition)
{
    auto const empty = std::make_unique<AT_FrameBlock>(3, 8, nullptr);
    Trans_t const bare(empty.get());
    EXPECT_EQ(nullptr, bare.transitionSeq());
    EXPECT_TRUE(bare.name().isNull());
    EXPECT_EQ(-1, bare.type());
    EXPECT_EQ(3u, bare.firstFrame());
    EXPECT_EQ(6u, bare.objNumOfFrame());

    // The name is read once for all copies; the plain fields each time.
    auto const block = transitionBlock(9);
    Trans_t const transition(block.get());
    Trans_t const copy = transition;
    EXPECT_EQ(QStringLiteral("Wipe"), copy.name());
    EXPECT_EQ(45, transition.angle());
    EXPECT_TRUE(transition.reverse());
    AT_TransitionSeq::toTransition(block->seq())->type = AT_TransitionSeq::eSlide;
    EXPECT_EQ(QStringLiteral("Wipe"), transition.name());
    EXPECT_EQ(AT_TransitionSeq::eSlide, transition.type());
    EXPECT_EQ(QStringLiteral("Slide"), Trans_t(block.get()).name());
}

/// A transition and a panel over blocks of their own.
class PanelOrTransition : public testing::Test
{
protected:
    int calls = 0;
    std::unique_ptr<AT_FrameBlock> const transBlock = transitionBlock(4);
    std::unique_ptr<AT_FrameBlock> const panelBlock = warpBlock(1, 4, 1.0, 4.0, &calls);
    Trans_t const transition { transBlock.get() };
    Panel_t const panel { panelBlock.get(), nullptr, Shot_t(), nullptr };
};

TEST_F(PanelOrTransition, HoldsOneHalfAndCopiesDeeply)
{
    PanelTrans_t holder(panel);
    EXPECT_TRUE(holder.isPanel());
    EXPECT_FALSE(holder.isTrans());
    EXPECT_EQ(panel.id(), holder.id());

    PanelTrans_t copy(holder);
    copy.asPanel() = Panel_t();
    EXPECT_TRUE(holder.isPanel());

    holder = PanelTrans_t(transition);
    EXPECT_TRUE(holder.isTrans());
    EXPECT_TRUE(holder.asPanel().isInvalid());
    EXPECT_EQ(SC_Id(4), holder.id());
    EXPECT_EQ(transBlock.get(), holder.frameBlock());

    holder = holder; // self-assignment keeps the pair
    EXPECT_TRUE(holder.isTrans());
}

TEST_F(PanelOrTransition, Comparisons)
{
    Panel_t const samePanel(panelBlock.get(), nullptr, Shot_t(), nullptr);
    auto const otherBlock = transitionBlock(5);

    struct Case
    {
        PanelTrans_t a, b;
        bool equal;
    } const cases[] = {
        { PanelTrans_t(), PanelTrans_t(), true },
        { PanelTrans_t(), PanelTrans_t(panel), false },
        { PanelTrans_t(panel), PanelTrans_t(transition), false },
        { PanelTrans_t(panel), PanelTrans_t(samePanel), true },
        { PanelTrans_t(transition), PanelTrans_t(Trans_t(transBlock.get())), true },
        { PanelTrans_t(transition), PanelTrans_t(Trans_t(otherBlock.get())), false },
    };
    for (Case const& c : cases) {
        EXPECT_EQ(c.equal, c.a == c.b);
        EXPECT_EQ(c.equal, c.b == c.a);
        EXPECT_NE(c.equal, c.a != c.b);
    }
    EXPECT_TRUE(PanelTrans_t(panel) == samePanel);
    EXPECT_TRUE(PanelTrans_t(transition) == Trans_t(transBlock.get()));
    EXPECT_TRUE(PanelTrans_t(transition) != panel);
}
