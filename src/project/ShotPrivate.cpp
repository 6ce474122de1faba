#include "project/ShotPrivate.h"

#include "project/EngineLinks.h"

namespace Krolle {

ShotPrivate::ShotPrivate(AT_FrameBlock const* block, TUScene* symbolScene, ObjectNameHelper const* helper)
    : ObjectPrivate(block, helper)
    , symbol(symbolScene)
    , sceneInfo(metadatasOf(symbolScene))
{
}

ShotPrivate::~ShotPrivate() = default;

ShotPrivate* ShotPrivate::invalidInstance()
{
    static ShotPrivate* const instance = immortal(new ShotPrivate(nullptr, nullptr, nullptr));
    return instance;
}

} // namespace Krolle
