#include "project/EngineLinks.h"

namespace Krolle {

SC_Id objectId(AT_FrameBlock const* block)
{
    if (!block)
        return invalidId;
    if (AT_AbstractSceneSeq const* scene = AT_AbstractSceneSeq::toAbstractScene(block->seq()))
        return scene->sceneId;
    if (AT_TransitionSeq const* transition = AT_TransitionSeq::toTransition(block->seq()))
        return transition->id;
    return invalidId;
}

SC_Id objectId(TUScene const* scene)
{
    return scene ? scene->id : invalidId;
}

PIO_Metadatas* metadatasOf(TUScene* scene)
{
    return scene ? scene->metadatas() : nullptr;
}

TUSeqTimedValue* getSeqTimedValueOf(TUScene* scene)
{
    if (!scene)
        return nullptr;
    for (TUTimedValue* value : scene->timedValues()) {
        if (value && value->typeCode() == 0)
            return dynamic_cast<TUSeqTimedValue*>(value);
    }
    return nullptr;
}

} // namespace Krolle
