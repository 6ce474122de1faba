#include "host/base/UT_SharedWeakPtr.h"

#include <new>

UT_SharedWeakBase::UT_SharedWeakBase()
    : m_tracker(new Tracker)
{
    m_tracker->target = this;
    m_tracker->refCount = 1;
}

UT_SharedWeakBase::UT_SharedWeakBase(TrackerMemory const& memory)
    : m_tracker(new (memory.allocate(sizeof(Tracker))) Tracker)
{
    m_tracker->target = this;
    m_tracker->refCount = 1;
    m_tracker->release = memory.release;
}

UT_SharedWeakBase::UT_SharedWeakBase(UT_SharedWeakBase const&)
    : UT_SharedWeakBase()
{
}

UT_SharedWeakBase::~UT_SharedWeakBase()
{
    // Weak pointers may outlive us: leave them a dead tracker to read.
    m_tracker->target = nullptr;
    unref(m_tracker);
}

void UT_SharedWeakBase::unref(Tracker* tracker)
{
    if (--tracker->refCount != 0)
        return;
    if (!tracker->release) {
        delete tracker;
        return;
    }
    auto const release = tracker->release;
    tracker->~Tracker();
    release(tracker);
}

UT_SharedWeakPtrBase::UT_SharedWeakPtrBase(UT_SharedWeakBase* target)
{
    assign(target);
}

UT_SharedWeakPtrBase::UT_SharedWeakPtrBase(UT_SharedWeakPtrBase const& other)
    : m_tracker(other.m_tracker)
    , m_address(other.m_address)
{
    if (m_tracker)
        ++m_tracker->refCount;
}

UT_SharedWeakPtrBase& UT_SharedWeakPtrBase::operator=(UT_SharedWeakPtrBase const& other)
{
    if (other.m_tracker)
        ++other.m_tracker->refCount;
    release();
    m_tracker = other.m_tracker;
    m_address = other.m_address;
    return *this;
}

UT_SharedWeakPtrBase::~UT_SharedWeakPtrBase()
{
    release();
}

void UT_SharedWeakPtrBase::assign(UT_SharedWeakBase* target)
{
    UT_SharedWeakBase::Tracker* tracker = target ? target->m_tracker : nullptr;
    if (tracker)
        ++tracker->refCount;
    release();
    m_tracker = tracker;
    m_address = target;
}

void UT_SharedWeakPtrBase::release()
{
    if (m_tracker)
        UT_SharedWeakBase::unref(m_tracker);
    m_tracker = nullptr;
    m_address = nullptr;
}
