// Walker over shots or panels that also stops at the transitions between them.
#pragma once

#include "project/Panel_t.h"
#include "project/Shot_t.h"
#include "project/Trans_t.h"
#include "project/WalkSteps.h"

#include <cstddef>
#include <iterator>

class KRC_KrolleProject;

namespace Krolle {

/// Walks shots or panels (T is Shot_t or Panel_t) in frame order and stops on each
/// transition between two of them: object, transition, next object. While it stands on
/// a transition, `object` is the neighbour from whose side it was reached and
/// `transAfterObject` tells on which side of it the transition lies. Every step asks the
/// project; the iterator owns nothing of the timeline and is good for as long as its
/// handles.
///
/// The end is an invalid `object` with no transition. Two iterators are equal when they
/// stand on equal objects and equal transitions. Threading: the host's thread.
template <class T> class objTransIterator : public WalkSteps<objTransIterator<T>>
{
public:
    using iterator_category = std::bidirectional_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = T const*;
    using reference = T const&;

    objTransIterator() = default;
    objTransIterator(T const& at, Trans_t const& between, bool after, KRC_KrolleProject const* owner)
        : object(at)
        , trans(between)
        , transAfterObject(after)
        , project(owner)
    {
    }
    objTransIterator(objTransIterator const&) = default;
    objTransIterator& operator=(objTransIterator const&) = default;
    virtual ~objTransIterator() = default;

    /// Steps to the transition after the object, or to the next object.
    virtual objTransIterator& advance();
    /// Steps to the transition before the object, or to the previous object.
    virtual objTransIterator& retreat();
    /// Goes to the first object, or to a transition that starts at or before it.
    virtual objTransIterator& toFirst();
    /// Goes to the last object, or to a transition that ends at or after it.
    virtual objTransIterator& toLast();

    /// True while the iterator stands on a transition rather than on `object`.
    bool onTrans() const { return trans.isValid(); }

    reference operator*() const { return object; }
    pointer operator->() const { return &object; }

    bool operator==(objTransIterator const& other) const
    {
        return object == other.object && trans == other.trans;
    }
    bool operator!=(objTransIterator const& other) const { return !(*this == other); }

    /// The object at or next to the position.
    T object;
    /// The transition where the iterator stands; invalid when it stands on `object`.
    Trans_t trans;
    /// While `trans` is valid: whether it lies after `object` (else before it).
    bool transAfterObject = true;
    KRC_KrolleProject const* project = nullptr;

protected:
    // Whether the transition follows `at`, stored into `trans` when it does.
    bool takeFollowingTrans(T const& at);
};

template <class T> class reverse_objTransIterator;

/// An objTransIterator over panels that walks backward: `++` steps toward the project's
/// start. There is no backward form for shots. Same contract and threading.
template <>
class reverse_objTransIterator<Panel_t> : public objTransIterator<Panel_t>,
                                          public WalkSteps<reverse_objTransIterator<Panel_t>>
{
    using Base = objTransIterator<Panel_t>;

public:
    reverse_objTransIterator() = default;
    reverse_objTransIterator(
        Panel_t const& at, Trans_t const& between, bool after, KRC_KrolleProject const* owner)
        : Base(at, between, after, owner)
    {
    }

    reverse_objTransIterator& advance() override;
    reverse_objTransIterator& retreat() override;
    reverse_objTransIterator& toFirst() override;
    reverse_objTransIterator& toLast() override;

    using WalkSteps<reverse_objTransIterator>::operator++;
    using WalkSteps<reverse_objTransIterator>::operator--;
};

extern template class objTransIterator<Shot_t>;
extern template class objTransIterator<Panel_t>;

} // namespace Krolle
