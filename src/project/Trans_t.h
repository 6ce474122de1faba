// Value handle on a transition between two shots.
#pragma once

#include "project/SharedPtr.h"
#include "project/TransPrivate.h"

#include <QString>

namespace Krolle {

/// A transition: a block of the top scene's sequence that overlaps the end of the
/// shot before it and the start of the shot after it. Its fields are read from the
/// block's AT_TransitionSeq; where none can be read they answer -1, 0, false and a
/// null name.
///
/// Copies share one private object; an absent transition is `Trans_t::invalid`.
/// Threading: the host's thread.
class Trans_t : public SharedPtr<TransPrivate>
{
public:
    static Trans_t const invalid;

    Trans_t() = default;
    explicit Trans_t(AT_FrameBlock const* block);
    virtual ~Trans_t();
    Trans_t(Trans_t const&) = default;
    Trans_t& operator=(Trans_t const&) = default;

    SC_Id const& id() const;
    AT_FrameBlock* frameBlock() const;
    /// The block's ends in project frames; 0 without a block.
    unsigned firstFrame() const;
    unsigned lastFrame() const;
    unsigned objNumOfFrame() const;

    /// The block's transition sequence; null without a block, without a sequence,
    /// or for a sequence of another kind.
    AT_TransitionSeq const* transitionSeq() const;
    /// The display name of the transition's type, read once and shared by all copies.
    QString name() const;
    int type() const;
    int angle() const;
    bool reverse() const;

    /// Equal when the ids and the blocks are equal; ordered by id (signed).
    bool operator==(Trans_t const& other) const;
    bool operator!=(Trans_t const& other) const { return !(*this == other); }
    bool operator<(Trans_t const& other) const;
    bool operator>(Trans_t const& other) const { return other < *this; }
};

} // namespace Krolle
