// Intrusive pointer shared by the value handles of shots, panels and transitions.
#pragma once

#include <functional>

namespace Krolle {

/// Reference-counted pointer to a handle's private object, never null.
///
/// T is ShotPrivate, PanelPrivate or TransPrivate; each provides a static
/// `invalidInstance()`, the one private object that all invalid handles of its kind
/// share. A default SharedPtr, and one made from a null pointer, refers to it, so a
/// handle is always safe to call. Comparisons are by address: two handles made
/// separately for the same block differ here, while the handles' own operator==
/// (by id and block) says they are equal. Threading: the count is not atomic.
template <class T> class SharedPtr
{
public:
    using element_type = T;

    SharedPtr()
        : m_ptr(T::invalidInstance())
    {
        m_ptr->IncRef();
    }
    SharedPtr(T* object)
        : m_ptr(object ? object : T::invalidInstance())
    {
        m_ptr->IncRef();
    }
    SharedPtr(SharedPtr const& other)
        : m_ptr(other.m_ptr)
    {
        m_ptr->IncRef();
    }
    ~SharedPtr() { m_ptr->DecRef(); }

    // The new reference is taken before the old one goes, so self-assignment is safe.
    SharedPtr& operator=(T* object)
    {
        T* fresh = object ? object : T::invalidInstance();
        fresh->IncRef();
        T* old = m_ptr;
        m_ptr = fresh;
        old->DecRef();
        return *this;
    }
    SharedPtr& operator=(SharedPtr const& other) { return *this = other.m_ptr; }

    bool isValid() const { return m_ptr != T::invalidInstance(); }
    bool isInvalid() const { return m_ptr == T::invalidInstance(); }

    bool operator==(SharedPtr const& other) const { return m_ptr == other.m_ptr; }
    bool operator!=(SharedPtr const& other) const { return m_ptr != other.m_ptr; }
    bool operator<(SharedPtr const& other) const { return std::less<T*>()(m_ptr, other.m_ptr); }
    bool operator>(SharedPtr const& other) const { return std::less<T*>()(other.m_ptr, m_ptr); }

protected:
    T* get() const { return m_ptr; }

private:
    T* m_ptr;
};

} // namespace Krolle
