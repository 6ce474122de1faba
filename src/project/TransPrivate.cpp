#include "project/TransPrivate.h"

namespace Krolle {

TransPrivate::TransPrivate(AT_FrameBlock const* block)
    : ObjectPrivate(block, nullptr)
{
}

TransPrivate::~TransPrivate() = default;

TransPrivate* TransPrivate::invalidInstance()
{
    static TransPrivate* const instance = immortal(new TransPrivate(nullptr));
    return instance;
}

} // namespace Krolle
