// Timed values of a scene: the base class and the scene's sequence of frame blocks.
#pragma once

#include "host/engine/AT_FrameBlock.h"

#include <QString>

#include <memory>
#include <vector>

class MO_Node;
class SC_SceneCommon;
class TUSceneChangeManager;

/// A value of a scene that varies with time (a column of the scene), owned by its
/// TUScene. Nodes can be linked to it (the nodes that read it).
///
/// Type codes: `eExposureType` (0) marks the timed values that expose things over
/// frames: the scene's sequence (TUSeqTimedValue), which the scene keeps first in its
/// list, and the exposures of elements (TUElementTimedValue). Other kinds answer
/// `eAttributeType` (1) or their own codes above it.
///
/// Edits post to the project's change manager (none go out before its notify()).
/// Threading: the host's thread.
class TUTimedValue
{
public:
    enum TypeCode
    {
        eExposureType = 0,
        eAttributeType = 1
    };

    explicit TUTimedValue(SC_SceneCommon* scene, QString const& name = QString());
    TUTimedValue(TUTimedValue const&) = delete;
    TUTimedValue& operator=(TUTimedValue const&) = delete;
    virtual ~TUTimedValue();

    virtual int typeCode() const = 0;

    QString const& name() const;
    /// Renames; posts timedValueNamesChanged when the name differs.
    void setName(QString const& name);

    /// The node linked at `index` (0 is the first), or null past the end or once
    /// that node is gone.
    MO_Node* linkedNodes(unsigned index) const;
    unsigned linkedNodeCount() const;
    /// Links a node (once; a second link of the same node does nothing) and posts
    /// nodeLinksChanged for it when the node is already in a group.
    void linkNode(MO_Node* node);
    /// Unlinks a node if linked and posts nodeLinksChanged for it.
    void unlinkNode(MO_Node* node);

    /// The change manager of the owning project, or null while there is none.
    TUSceneChangeManager* changeManager() const;

    /// The scene that owns the value.
    SC_SceneCommon* sceneCommon;

protected:
    /// Posts timedValuesChanged for this value.
    void postChanged();

private:
    class TUTimedValuePrivate;
    TUTimedValuePrivate* d;
};

/// The sequence of a scene: the list of its frame blocks, in list order.
///
/// List order is by first frame; at equal first frames a transition comes before
/// the block it leads into. Blocks other than transitions (shots, panels) have
/// increasing first and last frames; two of them overlap only under a transition,
/// and transitions do not overlap each other. `isConsistent` checks these rules,
/// which every edit of HostAuthoring keeps.
///
/// Lookups by frame are binary searches over an index that is rebuilt lazily after
/// an edit: getBlock, getBlockCount and nFrames are O(log n), getNextBlock and
/// getPrevBlock O(1). A fractional frame lies in the whole frame below it.
///
/// The edit primitives post timedValuesChanged for this sequence and keep the index;
/// they do not keep the layout rules, which is HostAuthoring's business.
class TUSeqTimedValue : public TUTimedValue
{
public:
    explicit TUSeqTimedValue(SC_SceneCommon* scene, QString const& name = QString());
    ~TUSeqTimedValue() override;

    int typeCode() const override { return eExposureType; }

    /// The block at the frame. Where a transition covers the frame, the transition;
    /// otherwise the block that covers it; null where none does.
    AT_FrameBlock const* getBlock(double frame) const;
    /// How many blocks cover the frame; 0 past the ends and in gaps.
    unsigned getBlockCount(double frame) const;
    unsigned getBlockCount() const;
    /// Neighbours in list order, transitions included; null past either end and for a
    /// block of another sequence.
    AT_FrameBlock const* getNextBlock(AT_FrameBlock const* block) const;
    AT_FrameBlock const* getPrevBlock(AT_FrameBlock const* block) const;
    /// The last frame of the sequence (the largest last frame), 0 when empty.
    unsigned nFrames() const;

    /// The block at a list position, or null.
    AT_FrameBlock const* blockAt(unsigned index) const;
    /// List position of a block of this sequence, or -1.
    int indexOf(AT_FrameBlock const* block) const;
    /// The first block whose sequence shows `sceneId`, or the transition with that
    /// id; null if none. Linear.
    AT_FrameBlock const* findBlock(SC_Id const& id) const;

    /// True when the layout rules hold; otherwise false, with the first broken rule
    /// (naming the block's list position) in `why` if given.
    bool isConsistent(QString* why = nullptr) const;

    // Edit primitives. Each posts timedValuesChanged for this sequence.

    /// Inserts a block at a list position (clamped to the end) and takes it.
    AT_FrameBlock* insertBlock(unsigned index, std::unique_ptr<AT_FrameBlock> block);
    /// Removes the block at a list position and gives it back; null past the end.
    std::unique_ptr<AT_FrameBlock> takeBlock(unsigned index);
    /// Sets the frames of the block at a list position.
    void setBlockRange(unsigned index, quint32 first, quint32 last);
    /// Moves the blocks at list positions [from, end) by `delta` frames.
    void shiftBlocks(unsigned from, qint64 delta);
    /// The block at a list position, for changing its sequence's values in place;
    /// call `touch` after the change.
    AT_FrameBlock* editBlock(unsigned index);
    /// Posts the change of this sequence (after editBlock).
    void touch();
    /// Removes every block.
    void clearBlocks();

private:
    class TUSeqTimedValuePrivate;
    TUSeqTimedValuePrivate* s;
};
