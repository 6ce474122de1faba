// Steps of the mixed iterators, which stop at the transitions between objects.
#include "project/objTransIterator.h"

#include "project/KRC_KrolleProject.h"

namespace Krolle {

template <class T> bool objTransIterator<T>::takeFollowingTrans(T const& at)
{
    // For a shot the project asks about its last panel.
    return project && project->isFollowedByTrans(at, &trans);
}

template <class T> objTransIterator<T>& objTransIterator<T>::advance()
{
    if (trans.isValid()) {
        if (transAfterObject)
            object = project ? project->next(object) : T();
        trans = Trans_t::invalid;
        return *this;
    }
    transAfterObject = true;
    if (!takeFollowingTrans(object))
        object = project ? project->next(object) : T();
    return *this;
}

template <class T> objTransIterator<T>& objTransIterator<T>::retreat()
{
    if (trans.isValid()) {
        if (!transAfterObject)
            object = project ? project->prev(object) : T();
        trans = Trans_t::invalid;
        return *this;
    }
    transAfterObject = false;
    T const before = project ? project->prev(object) : T();
    if (!takeFollowingTrans(before))
        object = before;
    return *this;
}

namespace {

/// Puts the iterator on the project's first (last) object, or on a transition that
/// lies at or beyond it: before the first object, after the last.
template <class T> void toEnd(objTransIterator<T>& it, bool last)
{
    KRC_KrolleProject const* project = it.project;
    if (!project) {
        it.object = T();
        it.trans = Trans_t::invalid;
        return;
    }
    Trans_t const end = last ? project->last(Trans_t::invalid) : project->first(Trans_t::invalid);
    it.object = last ? project->last(it.object) : project->first(it.object);
    bool const inside
        = last ? end.lastFrame() < it.object.lastFrame() : end.firstFrame() > it.object.firstFrame();
    if (inside) {
        it.trans = Trans_t::invalid;
    } else {
        it.trans = end;
        it.transAfterObject = last;
    }
}

} // namespace

template <class T> objTransIterator<T>& objTransIterator<T>::toFirst()
{
    toEnd(*this, false);
    return *this;
}

template <class T> objTransIterator<T>& objTransIterator<T>::toLast()
{
    toEnd(*this, true);
    return *this;
}

reverse_objTransIterator<Panel_t>& reverse_objTransIterator<Panel_t>::advance()
{
    Base::retreat();
    return *this;
}

reverse_objTransIterator<Panel_t>& reverse_objTransIterator<Panel_t>::retreat()
{
    Base::advance();
    return *this;
}

reverse_objTransIterator<Panel_t>& reverse_objTransIterator<Panel_t>::toFirst()
{
    Base::toLast();
    return *this;
}

reverse_objTransIterator<Panel_t>& reverse_objTransIterator<Panel_t>::toLast()
{
    Base::toFirst();
    return *this;
}

template class objTransIterator<Shot_t>;
template class objTransIterator<Panel_t>;

} // namespace Krolle
