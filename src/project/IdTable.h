// Flat hash table from object ids to handles.
#pragma once

#include "host/engine/SC_Id.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace Krolle {

/// Map from `SC_Id` to T with the operations that the handle caches need: set, find
/// and clear, no erase. The entries sit in one array in the order they came, and a
/// second array of 32-bit slots, open addressing with linear probing and at most half
/// full, points into it. A lookup reads one or two slots and one entry, where a tree
/// would chase a dozen nodes spread over the heap; that keeps lookups by id flat on
/// projects of tens of thousands of panels.
///
/// Threading: none of its own; the owner's lock covers it.
template <class T> class IdTable
{
public:
    /// Sets the value under `id`, adding the entry when it is new.
    void set(SC_Id const& id, T const& value)
    {
        if (2 * (m_entries.size() + 1) > m_slots.size())
            grow();
        quint32& slot = m_slots[slotOf(id)];
        if (slot != 0) {
            m_entries[slot - 1].second = value;
            return;
        }
        m_entries.emplace_back(id, value);
        slot = quint32(m_entries.size());
    }

    /// The value under `id`, or null.
    T const* find(SC_Id const& id) const
    {
        if (m_entries.empty())
            return nullptr;
        quint32 const slot = m_slots[slotOf(id)];
        return slot != 0 ? &m_entries[slot - 1].second : nullptr;
    }

    void clear()
    {
        m_entries.clear();
        m_slots.clear();
    }

    bool isEmpty() const { return m_entries.empty(); }
    std::size_t size() const { return m_entries.size(); }

private:
    /// Fibonacci hashing: ids that count up spread over the whole table.
    std::size_t home(SC_Id const& id) const
    {
        return std::size_t((id.value() * 0x9E3779B97F4A7C15ull) >> m_shift);
    }

    /// The slot that holds `id`, or the empty slot where it would go.
    std::size_t slotOf(SC_Id const& id) const
    {
        std::size_t const mask = m_slots.size() - 1;
        for (std::size_t at = home(id);; at = (at + 1) & mask) {
            quint32 const slot = m_slots[at];
            if (slot == 0 || m_entries[slot - 1].first == id)
                return at;
        }
    }

    void grow()
    {
        std::size_t const size = m_slots.empty() ? 16 : 2 * m_slots.size();
        m_slots.assign(size, 0);
        m_shift = 64;
        for (std::size_t bits = size; bits > 1; bits >>= 1)
            --m_shift;
        for (std::size_t i = 0; i < m_entries.size(); ++i)
            m_slots[slotOf(m_entries[i].first)] = quint32(i + 1);
    }

    std::vector<std::pair<SC_Id, T>> m_entries;
    std::vector<quint32> m_slots; // 0: empty; otherwise the entry's index plus one
    unsigned m_shift = 64;
};

} // namespace Krolle
