// Value handle on a shot of the storyboard.
#pragma once

#include "project/SharedPtr.h"
#include "project/ShotPrivate.h"

namespace Krolle {

/// A shot: a scene block of the top scene's sequence, showing its symbol scene
/// through a time warp.
///
/// Behaves like QDomNode: copies share one private object (a copy is one increment),
/// and there is no null handle: an absent shot is `Shot_t::invalid`, on which every
/// operation answers empty values. A handle is good between two changes of the
/// timeline; what stays true across changes is its id. Threading: the host's thread.
class Shot_t : public SharedPtr<ShotPrivate>
{
public:
    static Shot_t const invalid;

    Shot_t() = default;
    Shot_t(AT_FrameBlock const* block, TUScene* symbol, ObjectNameHelper const* helper);

    SC_Id const& id() const;
    AT_FrameBlock* frameBlock() const;
    /// The symbol scene, null once it is gone.
    TUScene* symbol() const;
    /// The id of the scene that the block shows (the default id without a block).
    SC_Id const& sceneId() const;

    /// The shot's record on its symbol scene, made with the shot's first handle; null
    /// without a scene.
    KRC_SceneInfo* sceneInfo() const;
    /// The record's custom name, else the name helper's automatic one (null without a
    /// helper).
    QString name() const;
    /// The record's custom sequence or act name, else "0": shots without one of their
    /// own run together as one group.
    QString sequenceName() const;
    QString actName() const;

    /// The block's ends in project frames; 0 without a block.
    unsigned firstFrame() const;
    unsigned lastFrame() const;
    unsigned objNumOfFrame() const;

    /// Project frame to a frame of the symbol scene; clamped to the warp's ends.
    double projectFrameToShotFrame(unsigned frame) const;
    /// Frame of the symbol scene to a project frame; clamped to the block's ends.
    unsigned shotFrameToProjectFrame(double frame) const;
    /// A 1-based frame inside the shot to a frame of the symbol's sequence:
    /// `frame + start - 1`, truncated; `frame` itself without a warp.
    unsigned prjFrameToTvFrame(unsigned frame) const;

    /// Equal when the ids and the blocks are equal; ordered by id (signed).
    bool operator==(Shot_t const& other) const;
    bool operator!=(Shot_t const& other) const { return !(*this == other); }
    bool operator<(Shot_t const& other) const;
    bool operator>(Shot_t const& other) const { return other < *this; }

private:
    friend class Panel_t;
};

} // namespace Krolle
