// Intrusive reference-counted bases of the stand-in base library.
#pragma once

#include <atomic>

/// Base of objects shared through UT_SharedPtr, with a plain (non-atomic) count.
///
/// The count starts at 0: a freshly made object belongs to nobody until the first
/// UT_SharedPtr takes it, and it deletes itself when the last one lets go. A copy of
/// an object starts with its own count at 0; assignment leaves both counts alone.
/// Threading: the count is not atomic; share an object on one thread only.
class UT_ShareBase
{
public:
    UT_ShareBase() = default;
    UT_ShareBase(UT_ShareBase const&) { }
    UT_ShareBase& operator=(UT_ShareBase const&) { return *this; }
    virtual ~UT_ShareBase() = default;

    void IncRef() const { ++m_refCount; }
    /// Drops one reference; deletes the object when it was the last one.
    void DecRef() const
    {
        if (--m_refCount == 0)
            delete this;
    }
    int refCount() const { return m_refCount; }

private:
    mutable int m_refCount = 0;
};

/// The same contract as UT_ShareBase with an atomic count, for objects whose
/// references are taken and dropped on several threads.
class UT_ShareBaseSafe
{
public:
    UT_ShareBaseSafe() = default;
    UT_ShareBaseSafe(UT_ShareBaseSafe const&) { }
    UT_ShareBaseSafe& operator=(UT_ShareBaseSafe const&) { return *this; }
    virtual ~UT_ShareBaseSafe() = default;

    void IncRef() const { m_refCount.fetch_add(1, std::memory_order_relaxed); }
    /// Drops one reference; deletes the object when it was the last one.
    void DecRef() const
    {
        if (m_refCount.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete this;
    }
    int refCount() const { return m_refCount.load(std::memory_order_acquire); }

private:
    mutable std::atomic<int> m_refCount { 0 };
};
