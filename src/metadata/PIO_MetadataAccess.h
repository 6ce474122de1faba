// Finds a typed record in a collection, creating it on demand.
#pragma once

#include "host/persistence/HostPersistence.h"

#include <QString>

#include <atomic>
#include <cstddef>
#include <typeinfo>

namespace PIO_MetadataTypes {

/// The dynamic types of records known not to be some record type: a few per type.
/// A panel handle looks for seven record types among its scene's records; each failed
/// dynamic_cast walks the type's hierarchy and compares type names, so asking once per
/// dynamic type saves most of the cost of making a handle. Relaxed atomics: a thread
/// that misses another's entry only asks dynamic_cast again.
struct KnownOthers
{
    static constexpr std::size_t size = 8;
    std::atomic<std::type_info const*> types[size] = {};
    std::atomic<std::size_t> nextSlot { 0 };

    bool contains(std::type_info const* type) const
    {
        for (auto const& known : types) {
            if (known.load(std::memory_order_relaxed) == type)
                return true;
        }
        return false;
    }

    void add(std::type_info const* type)
    {
        std::size_t const slot = nextSlot.fetch_add(1, std::memory_order_relaxed) % size;
        types[slot].store(type, std::memory_order_relaxed);
    }
};

} // namespace PIO_MetadataTypes

/// Access to the first record of type `T` in a `PIO_Metadatas`, by name when one is given.
///
/// Lookup: the collection is walked in its own order and each entry is tested by a
/// run-time cast to `T`, so a subclass of `T` matches too. With a null name the first `T`
/// is the answer whatever its metaName; otherwise the first `T` whose metaName equals
/// the name.
///
/// The constructor over a collection looks up at once and, when nothing is found, makes
/// `new T(name)` and adds it to the collection, which owns it from then on: the access
/// never owns its record. A later `get()` that holds no record yet (the collection was
/// filled afterwards, or the access was made without creation) looks up again, never
/// creating (`lookupOnly` makes such an access from the start). With a null collection nothing is looked up
/// and every answer is null.
///
/// A value type; copies share the same record. The record pointer is only good while the
/// collection holds it. Threading: the host's thread.
template <class T> class PIO_MetadataAccess
{
public:
    /// An access over no collection: answers null.
    PIO_MetadataAccess() = default;

    /// Looks the record up in `metas` and creates it there when it is missing.
    explicit PIO_MetadataAccess(PIO_Metadatas* metas, QString const& name = QString())
        : m_metas(metas)
        , m_meta(findOrCreate(metas, name))
        , m_name(name)
    {
    }

    virtual ~PIO_MetadataAccess() = default;

    /// An access over `metas` that looks up on each read but never creates.
    static PIO_MetadataAccess lookupOnly(PIO_Metadatas* metas, QString const& name = QString())
    {
        PIO_MetadataAccess access;
        access.m_metas = metas;
        access.m_name = name;
        return access;
    }

    /// The record, looked up again (without creating) while none is held.
    T* get() const
    {
        if (!m_meta)
            m_meta = find(m_metas, m_name);
        return m_meta;
    }
    T* operator->() const { return get(); }
    explicit operator bool() const { return get() != nullptr; }

    PIO_Metadatas* metadatas() const { return m_metas; }
    QString const& name() const { return m_name; }

    /// The first matching record of `metas`, or null; null for a null collection.
    static T* find(PIO_Metadatas* metas, QString const& name)
    {
        if (!metas)
            return nullptr;
        // The collection's table of types is read first: a record is only touched
        // when its type may match, so a lookup over a panel's records reads one
        // array instead of seven objects spread over the heap.
        auto it = metas->begin();
        for (int i = 0, n = metas->size(); i < n; ++i, ++it) {
            T* candidate = castTo(*it, metas->typeAt(i));
            if (candidate && (name.isNull() || candidate->metaName() == name))
                return candidate;
        }
        return nullptr;
    }

    /// The first matching record of `metas`, added as `new T(name)` when there is none;
    /// null for a null collection.
    static T* findOrCreate(PIO_Metadatas* metas, QString const& name)
    {
        if (!metas)
            return nullptr;
        if (T* found = find(metas, name))
            return found;
        T* created = new T(name);
        metas->add(created);
        return created;
    }

private:
    /// The record as a `T`, or null; a subclass of `T` is a `T`.
    static T* castTo(PIO_Metadata* meta, std::type_info const& type)
    {
        static PIO_MetadataTypes::KnownOthers others;
        if (type == typeid(T))
            return static_cast<T*>(meta); // the type itself: no hierarchy to walk
        if (others.contains(&type))
            return nullptr;
        T* cast = dynamic_cast<T*>(meta);
        if (!cast)
            others.add(&type);
        return cast;
    }

    PIO_Metadatas* m_metas = nullptr;
    mutable T* m_meta = nullptr;
    QString m_name;
};
