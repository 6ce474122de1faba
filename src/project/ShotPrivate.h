// The private object of a shot handle.
#pragma once

#include "metadata/KRC_SceneInfo.h"
#include "metadata/PIO_MetadataAccess.h"
#include "project/ObjectPrivate.h"

namespace Krolle {

/// A shot's block in the top scene's sequence, with a weak pointer to the symbol
/// scene that the block shows and the accesses to the symbol's records.
///
/// Made by the project view when a shot is first asked for and shared by every
/// handle it gives out until its caches drop. Threading: the host's thread.
class ShotPrivate : public ObjectPrivate
{
public:
    ShotPrivate(AT_FrameBlock const* block, TUScene* symbolScene, ObjectNameHelper const* helper);
    ~ShotPrivate() override;

    /// The private object of every invalid shot: null block, helper and scene.
    static ShotPrivate* invalidInstance();

    UT_SharedWeakPtr<TUScene> symbol;

    // Record accesses over the symbol's metadatas(), with a null name; a missing
    // record is created and added when the object is made.
    PIO_MetadataAccess<KRC_SceneInfo> sceneInfo;
};

} // namespace Krolle
