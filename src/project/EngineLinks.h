// Links from engine objects to the ids and sequences that the handles are built on.
#pragma once

#include "host/engine/HostEngine.h"

namespace Krolle {

/// The id that stands for "no object": a default SC_Id. Every id lookup that finds
/// nothing answers it.
extern SC_Id const invalidId;

/// The id of the object that a block carries: the scene id of a scene sequence
/// (shot or panel), else the id of a transition, else invalidId (also for null).
SC_Id objectId(AT_FrameBlock const* block);

/// The scene's own id, invalidId for null.
SC_Id objectId(TUScene const* scene);

/// The scene's sequence of frame blocks: its first timed value with type code 0,
/// cast to TUSeqTimedValue. Null for a null scene or when there is none.
TUSeqTimedValue* getSeqTimedValueOf(TUScene* scene);

/// The scene's record collection, null for a null scene.
PIO_Metadatas* metadatasOf(TUScene* scene);

} // namespace Krolle
