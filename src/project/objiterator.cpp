// Steps of the plain iterators: each asks the project, so they are compiled here,
// beside the view, for the three kinds of handle.
#include "project/objiterator.h"

#include "project/KRC_KrolleProject.h"

namespace Krolle {

template <class T> objiterator<T>& objiterator<T>::advance()
{
    object = project ? project->next(object) : T();
    return *this;
}

template <class T> objiterator<T>& objiterator<T>::retreat()
{
    object = project ? project->prev(object) : T();
    return *this;
}

template <class T> objiterator<T>& objiterator<T>::toFirst()
{
    object = project ? project->first(object) : T();
    return *this;
}

template <class T> objiterator<T>& objiterator<T>::toLast()
{
    object = project ? project->last(object) : T();
    return *this;
}

// Backward: each operation is the forward one of the other direction.
template <class T> reverse_objiterator<T>& reverse_objiterator<T>::advance()
{
    Base::retreat();
    return *this;
}

template <class T> reverse_objiterator<T>& reverse_objiterator<T>::retreat()
{
    Base::advance();
    return *this;
}

template <class T> reverse_objiterator<T>& reverse_objiterator<T>::toFirst()
{
    Base::toLast();
    return *this;
}

template <class T> reverse_objiterator<T>& reverse_objiterator<T>::toLast()
{
    Base::toFirst();
    return *this;
}

template class objiterator<Shot_t>;
template class objiterator<Panel_t>;
template class objiterator<Trans_t>;
template class reverse_objiterator<Shot_t>;
template class reverse_objiterator<Panel_t>;
template class reverse_objiterator<Trans_t>;

} // namespace Krolle
