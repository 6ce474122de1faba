// Frame blocks of a sequence and the sequence objects they carry.
#pragma once

#include "host/engine/HostNodeArena.h"
#include "host/engine/SC_Id.h"

#include <QString>
#include <QtGlobal>

#include <memory>

class TUSeqTimedValue;

/// Frame arithmetic shared by the engine and its callers.
///
/// Frames of a sequence are whole numbers from 1; a fractional frame f lies in the
/// whole frame floor(f) (frame 3.7 is inside frame 3).
class AT_Frame
{
public:
    /// Rounds a frame value to the nearest whole frame, halves away from zero,
    /// never below 0 (NaN gives 0). Every conversion back to project frames ends here.
    static int roundToUnsigned(double frame);
    /// The whole frame that a frame value lies in: floor, never below 0.
    static quint32 wholeFrame(double frame);
};

/// What a frame block carries. Three kinds matter to callers: scene sequences
/// (AT_AbstractSceneSeq, with the time-warp form AT_TimeWarpSeq) and transitions
/// (AT_TransitionSeq). A plain TUSeq is "some other kind" (sound, images...), which
/// the storyboard walks pass over. Owned by its block; not copyable, clone instead.
/// Lives in the HostNodeArena, made just before its block.
class TUSeq
{
    HOST_NODE_ARENA_OBJECT

public:
    enum Kind
    {
        eOther = 0,
        eScene = 1,
        eTimeWarp = 2,
        eTransition = 3
    };

    TUSeq()
        : m_kind(eOther)
    {
    }
    TUSeq(TUSeq const&) = delete;
    TUSeq& operator=(TUSeq const&) = delete;
    virtual ~TUSeq();

    Kind kind() const { return m_kind; }
    virtual std::unique_ptr<TUSeq> clone() const;
    /// Same kind and same values (ids included).
    virtual bool equals(TUSeq const& other) const;

protected:
    explicit TUSeq(Kind kind)
        : m_kind(kind)
    {
    }

private:
    Kind m_kind;
};

/// A sequence that shows a scene: `sceneId` is the scene shown, and the id of the
/// block as a storyboard object (shot or panel). Without a warp, the shown scene's
/// frames are not mapped (callers treat it as "no warp").
class AT_AbstractSceneSeq : public TUSeq
{
public:
    explicit AT_AbstractSceneSeq(SC_Id const& scene)
        : TUSeq(eScene)
        , sceneId(scene)
    {
    }

    /// The sequence as a scene sequence (warps included), or null for another kind.
    static AT_AbstractSceneSeq const* toAbstractScene(TUSeq const* seq);
    static AT_AbstractSceneSeq* toAbstractScene(TUSeq* seq);

    std::unique_ptr<TUSeq> clone() const override;
    bool equals(TUSeq const& other) const override;

    SC_Id sceneId;

protected:
    AT_AbstractSceneSeq(Kind kind, SC_Id const& scene)
        : TUSeq(kind)
        , sceneId(scene)
    {
    }
};

/// A scene sequence with a time warp: the block's frames [first, last] show the
/// frames [start, end] of the scene, mapped linearly end to end:
///
///     local  = start + (frame - first) * (end - start) / (last - first)
///     global = first + (local - start) * (last - first) / (end - start)
///
/// A one-frame block (first == last) maps to `start`; a warp with start == end maps
/// back to `first`. With end - start == last - first the map is a plain offset.
/// Both maps are defined for values outside the ranges too (they extrapolate);
/// callers clamp.
class AT_TimeWarpSeq : public AT_AbstractSceneSeq
{
public:
    AT_TimeWarpSeq(SC_Id const& scene, double startFrame, double endFrame)
        : AT_AbstractSceneSeq(eTimeWarp, scene)
        , start(startFrame)
        , end(endFrame)
    {
    }

    static AT_TimeWarpSeq const* toTimeWarp(TUSeq const* seq);
    static AT_TimeWarpSeq* toTimeWarp(TUSeq* seq);

    /// Frame of the outer sequence inside the block [first, last] -> frame of the scene.
    virtual double localFrame(double frame, double first, double last) const;
    /// Frame of the scene between start and end -> frame of the outer sequence.
    virtual double globalFrame(double frame, double first, double last) const;

    std::unique_ptr<TUSeq> clone() const override;
    bool equals(TUSeq const& other) const override;

    double start;
    double end;
};

/// A transition between two neighbouring blocks. Its block overlaps the end of the
/// block before it and the start of the block after it.
class AT_TransitionSeq : public TUSeq
{
public:
    /// Type codes; `typeString` names them.
    enum Type
    {
        eDissolve = 0,
        eWipe = 1,
        eClockWipe = 2,
        eSlide = 3,
        eEdgeWipe = 4
    };

    AT_TransitionSeq(SC_Id const& transitionId, int transitionType, int wipeAngle = 0, bool reversed = false)
        : TUSeq(eTransition)
        , id(transitionId)
        , type(transitionType)
        , angle(wipeAngle)
        , reverse(reversed)
    {
    }

    static AT_TransitionSeq const* toTransition(TUSeq const* seq);
    static AT_TransitionSeq* toTransition(TUSeq* seq);
    static bool isTransition(TUSeq const* seq) { return toTransition(seq) != nullptr; }

    /// Display name of the type: "Dissolve", "Wipe", "Clock Wipe", "Slide",
    /// "Edge Wipe"; "Unknown" for any other code.
    QString typeString() const;
    /// The type code of a display name (case-insensitive, spaces optional), or -1.
    static int typeFromString(QString const& name);

    std::unique_ptr<TUSeq> clone() const override;
    bool equals(TUSeq const& other) const override;

    SC_Id id;
    int type;
    int angle;
    bool reverse;
};

/// An interval of whole frames [firstFrame, lastFrame], both ends included, in the
/// numbering of the sequence that holds it, carrying one sequence object.
///
/// Blocks belong to their TUSeqTimedValue; a block pointer is good until the next
/// change of that sequence. A block without a sequence (hasSeq false) answers seq()
/// with a shared empty TUSeq, so seq() is never null.
///
/// Blocks live in the HostNodeArena: a walk of the panels steps from block to block
/// of each symbol sequence, and blocks made one after another (a storyboard built or
/// read) lie side by side there, beside their panels' scenes.
class AT_FrameBlock
{
    HOST_NODE_ARENA_OBJECT

public:
    /// A block over [first, last] that takes `seq`; a null seq makes a block
    /// without sequence.
    AT_FrameBlock(quint32 first, quint32 last, std::unique_ptr<TUSeq> seq);
    AT_FrameBlock(AT_FrameBlock const&) = delete;
    AT_FrameBlock& operator=(AT_FrameBlock const&) = delete;
    ~AT_FrameBlock();

    TUSeq const* seq() const;
    TUSeq* seq();
    bool isInRange(unsigned frame) const { return frame >= firstFrame && frame <= lastFrame; }
    quint32 length() const { return lastFrame - firstFrame + 1; }
    bool isTransition() const { return hasSeq && m_seq->kind() == TUSeq::eTransition; }
    /// A deep copy over the same frames.
    std::unique_ptr<AT_FrameBlock> clone() const;

    quint32 firstFrame;
    quint32 lastFrame;
    bool hasSeq;

private:
    friend class TUSeqTimedValue;

    std::unique_ptr<TUSeq> m_seq;
    // Position in the owning sequence's list, kept by that sequence.
    quint32 m_index = 0;
    TUSeqTimedValue const* m_owner = nullptr;
};
