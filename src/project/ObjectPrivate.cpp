#include "project/ObjectPrivate.h"

#include "project/EngineLinks.h"

#include <iostream>

namespace Krolle {

ObjectPrivate::ObjectPrivate(AT_FrameBlock const* block, ObjectNameHelper const* helper)
    : frameBlock(block)
    , nameHelper(helper)
    , id(objectId(block))
    , firstFrame(block ? block->firstFrame : 0)
    , lastFrame(block ? block->lastFrame : 0)
{
}

ObjectPrivate::~ObjectPrivate() = default;

AT_TimeWarpSeq const* ObjectPrivate::timeWarp() const
{
    return frameBlock ? AT_TimeWarpSeq::toTimeWarp(frameBlock->seq()) : nullptr;
}

double ObjectPrivate::toLocal(double frame) const
{
    AT_TimeWarpSeq const* warp = timeWarp();
    if (!warp)
        return 1.0;
    if (frame < frameBlock->firstFrame)
        return warp->start;
    if (frame > frameBlock->lastFrame)
        return warp->end;
    return warp->localFrame(frame, frameBlock->firstFrame, frameBlock->lastFrame);
}

double ObjectPrivate::toGlobal(double frame) const
{
    if (!frameBlock)
        return 1.0;
    AT_TimeWarpSeq const* warp = timeWarp();
    if (!warp || frame < warp->start)
        return frameBlock->firstFrame;
    if (frame > warp->end)
        return frameBlock->lastFrame;
    return warp->globalFrame(frame, frameBlock->firstFrame, frameBlock->lastFrame);
}

SC_Id const* ObjectPrivate::sceneIdOfBlock() const
{
    if (!frameBlock)
        return nullptr;
    if (AT_AbstractSceneSeq const* scene = AT_AbstractSceneSeq::toAbstractScene(frameBlock->seq()))
        return &scene->sceneId;
    std::cout << "Err: "
              << "Invalid frame block, cannot get scene id"
              << " - ["
              << "seq"
              << "]\n";
    return nullptr;
}

} // namespace Krolle
