// The id rules shared by the descriptor lists and the value lists.
#pragma once

#include "host/base/UT_SharedPtr.h"
#include "infofields/KRC_InfoFieldDesc.h"

#include <algorithm>
#include <climits>
#include <iterator>
#include <list>
#include <map>
#include <set>

/// One implementation of the list operations that descriptors and values have in
/// common, over any std::list whose entries are descriptors or shared pointers to
/// values. In every operation `INT_MAX` names the end of the list (and is what a search
/// that finds nothing answers), `INT_MIN` the first entry. Null value entries have no
/// id: they are never found, and they take part in no rule.
namespace InfoFieldIds {

inline int idOf(KRC_InfoFieldDesc const& desc)
{
    return desc.id();
}
template <class T> int idOf(UT_SharedPtr<T> const& field)
{
    return field ? field->id() : INT_MAX;
}
inline void setIdOf(KRC_InfoFieldDesc& desc, int id)
{
    desc.setId(id);
}
template <class T> void setIdOf(UT_SharedPtr<T>& field, int id)
{
    if (field)
        field->setId(id);
}

/// The entry of `id`; the end for `INT_MAX` and an unknown id, the first for `INT_MIN`.
template <class List> auto find(List& list, int id) -> decltype(list.begin())
{
    if (id == INT_MIN)
        return list.begin();
    if (id == INT_MAX)
        return list.end();
    return std::find_if(list.begin(), list.end(), [id](auto const& entry) { return idOf(entry) == id; });
}

template <class List> bool contain(List const& list, int id)
{
    if (id == INT_MAX)
        return false;
    return find(list, id) != list.end();
}

/// The id of the entry behind `it`, or `INT_MAX` when `it` is the last one.
template <class List, class Iterator> int idBehind(List const& list, Iterator it)
{
    const auto next = std::next(it);
    return next == list.end() ? INT_MAX : idOf(*next);
}

template <class List> bool remove(List& list, std::set<int> const& ids)
{
    list.remove_if([&ids](auto const& entry) { return ids.count(idOf(entry)) != 0; });
    return true;
}

/// One pass over the list, so a map that swaps two ids needs no step in between.
template <class List> bool remap(List& list, std::map<int, int> const& ids)
{
    for (auto& entry : list) {
        const auto mapped = ids.find(idOf(entry));
        if (mapped != ids.end())
            setIdOf(entry, mapped->second);
    }
    return true;
}

template <class List> void getIds(List const& list, std::set<int>& ids)
{
    for (auto const& entry : list)
        ids.insert(idOf(entry));
}

/// Merges the ids into `ids`, keeping what it holds: a missing id goes behind the id of
/// the entry before it in `list` when `ids` has that one, otherwise to the end.
template <class List> void getIds(List const& list, std::list<int>& ids)
{
    int previous = INT_MAX;
    for (auto const& entry : list) {
        const int id = idOf(entry);
        if (std::find(ids.begin(), ids.end(), id) == ids.end()) {
            auto place = std::find(ids.begin(), ids.end(), previous);
            ids.insert(place == ids.end() ? place : std::next(place), id);
        }
        previous = id;
    }
}

/// The first of `first`, `first + step`, ... that no entry has.
template <class List> int freeId(List const& list, int first, int step)
{
    std::set<int> taken;
    getIds(list, taken);
    int id = first;
    while (taken.count(id))
        id += step;
    return id;
}

/// Moves the entry of `id` in front of the entry of `beforeId` (the end for `INT_MAX`
/// and an unknown id, the front for `INT_MIN`). Answers the `beforeId` that moves it
/// back: the id that followed it, `INT_MAX` when it was last; `id` itself when nothing
/// moves; `INT_MAX` for an unknown `id`.
template <class List> int move(List& list, int id, int beforeId)
{
    const auto entry = find(list, id);
    if (entry == list.end())
        return INT_MAX;
    const auto destination = find(list, beforeId);
    if (destination == entry || destination == std::next(entry))
        return id;
    const int back = idBehind(list, entry);
    list.splice(destination, list, entry);
    return back;
}

} // namespace InfoFieldIds
