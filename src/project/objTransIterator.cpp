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

template <class T> objTransIterator<T>& objTransIterator<T>::toFirst()
{
    if (!project) {
        object = T();
        trans = Trans_t::invalid;
        return *this;
    }
    Trans_t const firstTrans = project->first(Trans_t::invalid);
    object = project->first(object);
    // A transition that starts at or before the first object stands before it.
    if (firstTrans.firstFrame() > object.firstFrame()) {
        trans = Trans_t::invalid;
    } else {
        trans = firstTrans;
        transAfterObject = false;
    }
    return *this;
}

template <class T> objTransIterator<T>& objTransIterator<T>::toLast()
{
    if (!project) {
        object = T();
        trans = Trans_t::invalid;
        return *this;
    }
    Trans_t const lastTrans = project->last(Trans_t::invalid);
    object = project->last(object);
    if (lastTrans.lastFrame() < object.lastFrame()) {
        trans = Trans_t::invalid;
    } else {
        trans = lastTrans;
        transAfterObject = true;
    }
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
