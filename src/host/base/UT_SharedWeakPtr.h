// Weak pointers of the stand-in base library.
#pragma once

#include "host/base/UT_SharedPtr.h"

#include <QHash>

#include <cstddef>
#include <functional>

class UT_SharedWeakPtrBase;

/// Base that a class adds to be weak-pointable (beside UT_ShareBase, or alone).
///
/// The object owns a small tracker that outlives it while weak pointers remain;
/// the destructor marks the tracker dead, so every weak pointer reads null from
/// then on. A copy of an object is a new target with its own tracker.
///
/// Every read through a weak pointer reads the tracker first. A class that places its
/// objects in memory of its own can have their trackers made there too (the protected
/// constructor), so that the tracker lies beside its object instead of somewhere on
/// the general heap.
/// Threading: not thread-safe; weak pointers and their target stay on one thread.
class UT_SharedWeakBase
{
public:
    UT_SharedWeakBase();
    UT_SharedWeakBase(UT_SharedWeakBase const&);
    UT_SharedWeakBase& operator=(UT_SharedWeakBase const&) { return *this; }
    virtual ~UT_SharedWeakBase();

    /// Where trackers are made: `allocate` gives room for one (throwing on failure),
    /// `release` takes it back when the target and its last weak pointer are gone.
    struct TrackerMemory
    {
        void* (*allocate)(std::size_t size);
        void (*release)(void* memory) noexcept;
    };

    /// Shared between the target and its weak pointers; `target` goes null when it dies.
    struct Tracker
    {
        UT_SharedWeakBase* target = nullptr;
        int refCount = 0;
        /// Null for a tracker of the general heap.
        void (*release)(void* memory) noexcept = nullptr;
    };

protected:
    /// A target whose tracker is made in `memory`. A copy made with the copy
    /// constructor has its tracker on the general heap.
    explicit UT_SharedWeakBase(TrackerMemory const& memory);

private:
    friend class UT_SharedWeakPtrBase;
    /// Drops one reference on `tracker`; the last one frees it where it was made.
    static void unref(Tracker* tracker);

    Tracker* m_tracker;
};

/// Untyped part of a weak pointer: the tracker and the target's UT_SharedWeakBase
/// address recorded at assignment. Equality and ordering use that recorded address,
/// so they stay the same after the target dies (a dead pointer keeps its place in an
/// ordered set), and they agree between pointers of different static types.
class UT_SharedWeakPtrBase
{
public:
    UT_SharedWeakPtrBase() = default;
    explicit UT_SharedWeakPtrBase(UT_SharedWeakBase* target);
    UT_SharedWeakPtrBase(UT_SharedWeakPtrBase const& other);
    UT_SharedWeakPtrBase& operator=(UT_SharedWeakPtrBase const& other);
    ~UT_SharedWeakPtrBase();

    /// Points at `target` (may be null), letting go of the previous target.
    void assign(UT_SharedWeakBase* target);
    /// The target, or null once it has been destroyed or when never assigned.
    UT_SharedWeakBase* base() const { return m_tracker ? m_tracker->target : nullptr; }
    bool expired() const { return base() == nullptr; }
    /// Address recorded at assignment; kept after the target dies.
    void const* recordedAddress() const { return m_address; }

private:
    void release();

    UT_SharedWeakBase::Tracker* m_tracker = nullptr;
    void const* m_address = nullptr;
};

/// Typed weak pointer to a T derived from UT_SharedWeakBase; reads null once the
/// target is gone. `lock()` gives a strong pointer when T is also reference counted.
template <class T> class UT_SharedWeakPtr : public UT_SharedWeakPtrBase
{
public:
    UT_SharedWeakPtr() = default;
    UT_SharedWeakPtr(std::nullptr_t) { }
    UT_SharedWeakPtr(T* target) { set(target); }
    UT_SharedWeakPtr(UT_SharedPtr<T> const& target) { set(target.get()); }
    template <class U, class = std::enable_if_t<std::is_convertible<U*, T*>::value>>
    UT_SharedWeakPtr(UT_SharedWeakPtr<U> const& other)
    {
        set(other.get());
        if (!other.get())
            UT_SharedWeakPtrBase::operator=(other);
    }

    UT_SharedWeakPtr& operator=(T* target)
    {
        set(target);
        return *this;
    }
    UT_SharedWeakPtr& operator=(UT_SharedPtr<T> const& target)
    {
        set(target.get());
        return *this;
    }

    T* get() const { return base() ? m_typed : nullptr; }
    T* operator->() const
    {
        Q_ASSERT(get());
        return get();
    }
    T& operator*() const
    {
        Q_ASSERT(get());
        return *get();
    }
    explicit operator bool() const { return get() != nullptr; }
    bool isNull() const { return get() == nullptr; }
    void reset() { set(nullptr); }

    /// A strong reference on the target, or null when it is gone.
    UT_SharedPtr<T> lock() const { return UT_SharedPtr<T>(get()); }

private:
    void set(T* target)
    {
        m_typed = target;
        assign(target);
    }

    T* m_typed = nullptr;
};

inline bool operator==(UT_SharedWeakPtrBase const& a, UT_SharedWeakPtrBase const& b)
{
    return a.recordedAddress() == b.recordedAddress();
}
inline bool operator!=(UT_SharedWeakPtrBase const& a, UT_SharedWeakPtrBase const& b)
{
    return !(a == b);
}
inline bool operator<(UT_SharedWeakPtrBase const& a, UT_SharedWeakPtrBase const& b)
{
    return std::less<void const*>()(a.recordedAddress(), b.recordedAddress());
}
template <class T> bool operator==(UT_SharedWeakPtr<T> const& a, std::nullptr_t)
{
    return a.isNull();
}
template <class T> bool operator!=(UT_SharedWeakPtr<T> const& a, std::nullptr_t)
{
    return !a.isNull();
}

inline uint qHash(UT_SharedWeakPtrBase const& pointer, uint seed = 0)
{
    return ::qHash(pointer.recordedAddress(), seed);
}
