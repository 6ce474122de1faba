#include "host/engine/AT_FrameBlock.h"

#include <cmath>
#include <limits>

namespace {

// Answer of seq() for a block that carries nothing.
TUSeq const& emptySeq()
{
    static TUSeq const empty;
    return empty;
}

// Frames are whole numbers below 2^32; anything beyond saturates.
quint32 clampToFrame(double value)
{
    if (!(value > 0.0))
        return 0;
    if (value >= double(std::numeric_limits<quint32>::max()))
        return std::numeric_limits<quint32>::max();
    return quint32(value);
}

// Linear map of x from [a0, a1] onto [b0, b1]; a degenerate source maps to b0.
double mapLinear(double x, double a0, double a1, double b0, double b1)
{
    if (a1 == a0)
        return b0;
    return b0 + (x - a0) * (b1 - b0) / (a1 - a0);
}

} // namespace

int AT_Frame::roundToUnsigned(double frame)
{
    if (!(frame > 0.0))
        return 0;
    if (frame >= double(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    return int(std::floor(frame + 0.5));
}

quint32 AT_Frame::wholeFrame(double frame)
{
    return clampToFrame(std::floor(frame));
}

TUSeq::~TUSeq() = default;

std::unique_ptr<TUSeq> TUSeq::clone() const
{
    return std::make_unique<TUSeq>();
}

bool TUSeq::equals(TUSeq const& other) const
{
    return m_kind == other.m_kind;
}

AT_AbstractSceneSeq const* AT_AbstractSceneSeq::toAbstractScene(TUSeq const* seq)
{
    if (!seq || (seq->kind() != eScene && seq->kind() != eTimeWarp))
        return nullptr;
    return static_cast<AT_AbstractSceneSeq const*>(seq);
}

AT_AbstractSceneSeq* AT_AbstractSceneSeq::toAbstractScene(TUSeq* seq)
{
    return const_cast<AT_AbstractSceneSeq*>(toAbstractScene(static_cast<TUSeq const*>(seq)));
}

std::unique_ptr<TUSeq> AT_AbstractSceneSeq::clone() const
{
    return std::make_unique<AT_AbstractSceneSeq>(sceneId);
}

bool AT_AbstractSceneSeq::equals(TUSeq const& other) const
{
    return TUSeq::equals(other) && static_cast<AT_AbstractSceneSeq const&>(other).sceneId == sceneId;
}

AT_TimeWarpSeq const* AT_TimeWarpSeq::toTimeWarp(TUSeq const* seq)
{
    if (!seq || seq->kind() != eTimeWarp)
        return nullptr;
    return static_cast<AT_TimeWarpSeq const*>(seq);
}

AT_TimeWarpSeq* AT_TimeWarpSeq::toTimeWarp(TUSeq* seq)
{
    return const_cast<AT_TimeWarpSeq*>(toTimeWarp(static_cast<TUSeq const*>(seq)));
}

double AT_TimeWarpSeq::localFrame(double frame, double first, double last) const
{
    return mapLinear(frame, first, last, start, end);
}

double AT_TimeWarpSeq::globalFrame(double frame, double first, double last) const
{
    return mapLinear(frame, start, end, first, last);
}

std::unique_ptr<TUSeq> AT_TimeWarpSeq::clone() const
{
    return std::make_unique<AT_TimeWarpSeq>(sceneId, start, end);
}

bool AT_TimeWarpSeq::equals(TUSeq const& other) const
{
    if (!AT_AbstractSceneSeq::equals(other))
        return false;
    auto const& warp = static_cast<AT_TimeWarpSeq const&>(other);
    return warp.start == start && warp.end == end;
}

AT_TransitionSeq const* AT_TransitionSeq::toTransition(TUSeq const* seq)
{
    if (!seq || seq->kind() != eTransition)
        return nullptr;
    return static_cast<AT_TransitionSeq const*>(seq);
}

AT_TransitionSeq* AT_TransitionSeq::toTransition(TUSeq* seq)
{
    return const_cast<AT_TransitionSeq*>(toTransition(static_cast<TUSeq const*>(seq)));
}

namespace {

struct TransitionTypeName
{
    int type;
    char const* name;
};

TransitionTypeName const transitionTypeNames[] = {
    { AT_TransitionSeq::eDissolve, "Dissolve" },
    { AT_TransitionSeq::eWipe, "Wipe" },
    { AT_TransitionSeq::eClockWipe, "Clock Wipe" },
    { AT_TransitionSeq::eSlide, "Slide" },
    { AT_TransitionSeq::eEdgeWipe, "Edge Wipe" },
};

QString squeezed(QString const& name)
{
    QString result = name.toLower();
    result.remove(QLatin1Char(' '));
    return result;
}

} // namespace

QString AT_TransitionSeq::typeString() const
{
    for (auto const& entry : transitionTypeNames) {
        if (entry.type == type)
            return QString::fromLatin1(entry.name);
    }
    return QStringLiteral("Unknown");
}

int AT_TransitionSeq::typeFromString(QString const& name)
{
    QString const wanted = squeezed(name);
    for (auto const& entry : transitionTypeNames) {
        if (squeezed(QString::fromLatin1(entry.name)) == wanted)
            return entry.type;
    }
    return -1;
}

std::unique_ptr<TUSeq> AT_TransitionSeq::clone() const
{
    return std::make_unique<AT_TransitionSeq>(id, type, angle, reverse);
}

bool AT_TransitionSeq::equals(TUSeq const& other) const
{
    if (!TUSeq::equals(other))
        return false;
    auto const& transition = static_cast<AT_TransitionSeq const&>(other);
    return transition.id == id && transition.type == type && transition.angle == angle
        && transition.reverse == reverse;
}

AT_FrameBlock::AT_FrameBlock(quint32 first, quint32 last, std::unique_ptr<TUSeq> seq)
    : firstFrame(first)
    , lastFrame(last)
    , hasSeq(seq != nullptr)
    , m_seq(std::move(seq))
{
}

AT_FrameBlock::~AT_FrameBlock() = default;

TUSeq const* AT_FrameBlock::seq() const
{
    return m_seq ? m_seq.get() : &emptySeq();
}

TUSeq* AT_FrameBlock::seq()
{
    return m_seq ? m_seq.get() : const_cast<TUSeq*>(&emptySeq());
}

std::unique_ptr<AT_FrameBlock> AT_FrameBlock::clone() const
{
    return std::make_unique<AT_FrameBlock>(firstFrame, lastFrame, m_seq ? m_seq->clone() : nullptr);
}
