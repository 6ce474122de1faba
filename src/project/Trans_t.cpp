#include "project/Trans_t.h"

namespace Krolle {

Trans_t::Trans_t(AT_FrameBlock const* block)
    : SharedPtr<TransPrivate>(new TransPrivate(block))
{
}

Trans_t::~Trans_t() = default;

SC_Id const& Trans_t::id() const
{
    return get()->id;
}

AT_FrameBlock* Trans_t::frameBlock() const
{
    return get()->block();
}

unsigned Trans_t::firstFrame() const
{
    return get()->firstFrame;
}

unsigned Trans_t::lastFrame() const
{
    return get()->lastFrame;
}

unsigned Trans_t::objNumOfFrame() const
{
    return lastFrame() - firstFrame() + 1;
}

AT_TransitionSeq const* Trans_t::transitionSeq() const
{
    AT_FrameBlock const* block = get()->frameBlock;
    if (!block || !block->hasSeq)
        return nullptr;
    return AT_TransitionSeq::toTransition(block->seq());
}

QString Trans_t::name() const
{
    TransPrivate* d = get();
    if (d->name.isNull()) {
        if (AT_TransitionSeq const* seq = transitionSeq())
            d->name = seq->typeString();
    }
    return d->name;
}

int Trans_t::type() const
{
    AT_TransitionSeq const* seq = transitionSeq();
    return seq ? seq->type : -1;
}

int Trans_t::angle() const
{
    AT_TransitionSeq const* seq = transitionSeq();
    return seq ? seq->angle : 0;
}

bool Trans_t::reverse() const
{
    AT_TransitionSeq const* seq = transitionSeq();
    return seq ? seq->reverse : false;
}

bool Trans_t::operator==(Trans_t const& other) const
{
    return get()->sameObject(*other.get());
}

bool Trans_t::operator<(Trans_t const& other) const
{
    return get()->idLess(*other.get());
}

} // namespace Krolle
