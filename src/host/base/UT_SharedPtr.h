// Strong intrusive pointer of the stand-in base library.
#pragma once

#include <QHash>
#include <QtGlobal>

#include <cstddef>
#include <functional>
#include <type_traits>
#include <utility>

/// Strong pointer over any T derived from UT_ShareBase or UT_ShareBaseSafe.
///
/// The count lives in the object, so a UT_SharedPtr can be made from a raw pointer
/// at any time (even from `this`) and all of them share one count. The object is
/// deleted when the last strong pointer lets go. Comparisons and ordering are by
/// address. Threading: as the count of T.
template <class T> class UT_SharedPtr
{
public:
    using element_type = T;

    UT_SharedPtr() = default;
    UT_SharedPtr(std::nullptr_t) { }
    UT_SharedPtr(T* object)
        : m_ptr(object)
    {
        acquire();
    }
    UT_SharedPtr(UT_SharedPtr const& other)
        : m_ptr(other.m_ptr)
    {
        acquire();
    }
    UT_SharedPtr(UT_SharedPtr&& other) noexcept
        : m_ptr(other.m_ptr)
    {
        other.m_ptr = nullptr;
    }
    template <class U, class = std::enable_if_t<std::is_convertible<U*, T*>::value>>
    UT_SharedPtr(UT_SharedPtr<U> const& other)
        : m_ptr(other.get())
    {
        acquire();
    }
    ~UT_SharedPtr() { release(); }

    UT_SharedPtr& operator=(UT_SharedPtr const& other)
    {
        UT_SharedPtr(other).swap(*this);
        return *this;
    }
    UT_SharedPtr& operator=(UT_SharedPtr&& other) noexcept
    {
        UT_SharedPtr(std::move(other)).swap(*this);
        return *this;
    }
    UT_SharedPtr& operator=(T* object)
    {
        UT_SharedPtr(object).swap(*this);
        return *this;
    }

    T* get() const { return m_ptr; }
    T* operator->() const
    {
        Q_ASSERT(m_ptr);
        return m_ptr;
    }
    T& operator*() const
    {
        Q_ASSERT(m_ptr);
        return *m_ptr;
    }
    explicit operator bool() const { return m_ptr != nullptr; }
    bool isNull() const { return m_ptr == nullptr; }

    void reset(T* object = nullptr) { UT_SharedPtr(object).swap(*this); }
    void swap(UT_SharedPtr& other) noexcept { std::swap(m_ptr, other.m_ptr); }

private:
    void acquire() const
    {
        if (m_ptr)
            m_ptr->IncRef();
    }
    void release()
    {
        T* old = m_ptr;
        m_ptr = nullptr;
        if (old)
            old->DecRef();
    }

    T* m_ptr = nullptr;
};

template <class T, class U> bool operator==(UT_SharedPtr<T> const& a, UT_SharedPtr<U> const& b)
{
    return a.get() == b.get();
}
template <class T, class U> bool operator!=(UT_SharedPtr<T> const& a, UT_SharedPtr<U> const& b)
{
    return a.get() != b.get();
}
template <class T, class U> bool operator<(UT_SharedPtr<T> const& a, UT_SharedPtr<U> const& b)
{
    return std::less<void const*>()(a.get(), b.get());
}
template <class T> bool operator==(UT_SharedPtr<T> const& a, T const* b)
{
    return a.get() == b;
}
template <class T> bool operator!=(UT_SharedPtr<T> const& a, T const* b)
{
    return a.get() != b;
}
template <class T> bool operator==(T const* a, UT_SharedPtr<T> const& b)
{
    return a == b.get();
}
template <class T> bool operator!=(T const* a, UT_SharedPtr<T> const& b)
{
    return a != b.get();
}
template <class T> bool operator==(UT_SharedPtr<T> const& a, std::nullptr_t)
{
    return a.isNull();
}
template <class T> bool operator!=(UT_SharedPtr<T> const& a, std::nullptr_t)
{
    return !a.isNull();
}

/// Casts between shared pointers; the result shares the count of the source.
template <class T, class U> UT_SharedPtr<T> UT_staticPointerCast(UT_SharedPtr<U> const& source)
{
    return UT_SharedPtr<T>(static_cast<T*>(source.get()));
}
template <class T, class U> UT_SharedPtr<T> UT_dynamicPointerCast(UT_SharedPtr<U> const& source)
{
    return UT_SharedPtr<T>(dynamic_cast<T*>(source.get()));
}

template <class T> uint qHash(UT_SharedPtr<T> const& pointer, uint seed = 0)
{
    return ::qHash(static_cast<void const*>(pointer.get()), seed);
}

namespace std {
template <class T> struct hash<UT_SharedPtr<T>>
{
    size_t operator()(UT_SharedPtr<T> const& pointer) const { return hash<T*>()(pointer.get()); }
};
} // namespace std
