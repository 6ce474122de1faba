// The exposures of an element: its drawings and which one is shown at each frame.
#pragma once

#include "host/base/UT_SharedWeakPtr.h"
#include "host/engine/CA_CelKey.h"
#include "host/engine/HostNodeArena.h"
#include "host/engine/TUTimedValue.h"

#include <QList>

#include <vector>

class HostNodeEdit;

/// The column of an element module: the element's id and kind, its drawings (ids from
/// 1 up, each with its file) and its exposures, runs of whole frames (from 1) that
/// show one drawing. Owned by its TUScene, linked to the element module that shows it
/// (linkedNodes(0)), and weak-pointable, since the module's drawing attribute reads it.
///
/// Element ids are unique in the process: new columns take an id above every id seen,
/// including ids read from files. Edits go through HostNodeAuthoring, which posts
/// timedValuesChanged. Single-threaded, the host's thread.
class TUElementTimedValue : public TUTimedValue, public UT_SharedWeakBase
{
    HOST_NODE_ARENA_OBJECT

public:
    /// One run of exposure: frames `firstFrame` to `lastFrame`, both included.
    struct Exposure
    {
        int firstFrame;
        int lastFrame;
        int drawingId;
    };

    /// A column with the given element id; -1 allots a new one.
    TUElementTimedValue(SC_SceneCommon* scene, QString const& name, CA_DrawingKind kind, int elementId = -1);
    ~TUElementTimedValue() override;

    int typeCode() const override { return eExposureType; }

    int elementId() const;
    CA_DrawingKind drawingKind() const;

    /// Drawing ids, ascending.
    QList<int> drawingIds() const;
    bool hasDrawing(int drawingId) const;
    /// The file of a drawing; a null string for an unknown id.
    QString drawingFileName(int drawingId) const;

    /// The runs of exposure, by first frame; they do not overlap.
    std::vector<Exposure> exposures() const;
    /// The drawing exposed at a frame; -1 where none is.
    int drawingAt(double frame) const;
    /// The key of the drawing exposed at a frame; invalid where none is.
    CA_CelKey keyAt(double frame) const;
    /// The key of one drawing of this element; invalid for an unknown id.
    CA_CelKey drawingKey(int drawingId) const;
    /// True when this column is element `elementId` and exposes the drawing at some frame.
    bool containsDrawing(int elementId, int drawingId) const;

    /// Makes sure that ids allotted later are above `elementId` (ids read from files).
    static void reserveElementId(int elementId);

private:
    friend class HostNodeEdit;
    /// Adds a drawing; `drawingId` -1 takes the next free id. Answers the id, or -1
    /// when the id is taken.
    int addDrawing(QString const& fileName, int drawingId = -1);
    /// Shows `drawingId` on frames first to last, cutting the runs it covers; -1 clears them.
    void expose(int firstFrame, int lastFrame, int drawingId);

    class TUElementTimedValuePrivate;
    TUElementTimedValuePrivate* e;
    // Kept beside the object's own fields: a search for a drawing across a project
    // tells most columns apart by their id without reading their private part.
    int m_elementId;
};
