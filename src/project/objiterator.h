// Walkers over the shots, panels or transitions of the project view, in frame order.
#pragma once

#include "project/Panel_t.h"
#include "project/Shot_t.h"
#include "project/Trans_t.h"
#include "project/WalkSteps.h"

#include <cstddef>
#include <iterator>

class KRC_KrolleProject;

namespace Krolle {

/// Stands on one shot, panel or transition (T is Shot_t, Panel_t or Trans_t) and
/// steps by asking the project at every step, so it sees the project's caches as they
/// are at that moment. It owns nothing of the timeline: it is good for as long as the
/// handle in it, and a change of the timeline between two steps leaves it on an old
/// handle.
///
/// The invalid handle stands for the end; a step off either end gives it, and from
/// there every step stays on it. A null project makes every step give the invalid
/// handle. Two iterators are equal when they stand on equal handles, so a walk stops
/// when it meets the end's handle. Threading: the host's thread.
template <class T> class objiterator : public WalkSteps<objiterator<T>>
{
public:
    using iterator_category = std::bidirectional_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = T const*;
    using reference = T const&;

    objiterator() = default;
    objiterator(T const& at, KRC_KrolleProject const* owner)
        : object(at)
        , project(owner)
    {
    }
    objiterator(objiterator const&) = default;
    objiterator& operator=(objiterator const&) = default;
    virtual ~objiterator() = default;

    /// Steps to the next object.
    virtual objiterator& advance();
    /// Steps to the previous object.
    virtual objiterator& retreat();
    /// Goes to the project's first object.
    virtual objiterator& toFirst();
    /// Goes to the project's last object.
    virtual objiterator& toLast();

    reference operator*() const { return object; }
    pointer operator->() const { return &object; }

    bool operator==(objiterator const& other) const { return object == other.object; }
    bool operator!=(objiterator const& other) const { return !(object == other.object); }

    /// Where the iterator stands; the invalid handle at the end.
    T object;
    KRC_KrolleProject const* project = nullptr;
};

/// An objiterator that walks backward: its advance is the forward retreat and its
/// toFirst the forward toLast, so `++` steps toward the project's start. Same contract
/// and threading as objiterator.
template <class T> class reverse_objiterator : public objiterator<T>, public WalkSteps<reverse_objiterator<T>>
{
    using Base = objiterator<T>;

public:
    reverse_objiterator() = default;
    reverse_objiterator(T const& at, KRC_KrolleProject const* owner)
        : Base(at, owner)
    {
    }

    reverse_objiterator& advance() override;
    reverse_objiterator& retreat() override;
    reverse_objiterator& toFirst() override;
    reverse_objiterator& toLast() override;

    using WalkSteps<reverse_objiterator>::operator++;
    using WalkSteps<reverse_objiterator>::operator--;
};

/// Two iterators as a range, for a range-for loop over any of the walks:
///
///     for (Krolle::Shot_t const& shot : Krolle::range(view.beginShot(), view.endShot()))
template <class Iterator> struct objrange
{
    Iterator first;
    Iterator last;

    Iterator begin() const { return first; }
    Iterator end() const { return last; }
};

template <class Iterator> objrange<Iterator> range(Iterator const& begin, Iterator const& end)
{
    return { begin, end };
}

// The steps ask the project, so they are compiled once, beside it, for the three kinds
// of handle.
extern template class objiterator<Shot_t>;
extern template class objiterator<Panel_t>;
extern template class objiterator<Trans_t>;
extern template class reverse_objiterator<Shot_t>;
extern template class reverse_objiterator<Panel_t>;
extern template class reverse_objiterator<Trans_t>;

} // namespace Krolle
