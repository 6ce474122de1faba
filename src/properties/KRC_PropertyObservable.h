// The watched side of the link between properties and their observers.
#pragma once

#include <cstddef>

class KRC_Property;
class KRC_PropertyObserver;
class KRC_PropertyObservablePrivate;

/// An object that KRC_PropertyObserver instances can watch; the base of KRC_Property.
///
/// The link is two-sided: the observable keeps the set of its observers, each observer
/// the set of what it observes, and both sets are kept in step whichever side is
/// destroyed first, so no side ever holds a dangling pointer. Observers are visited
/// in pointer order.
///
/// A copy (or an assignment) becomes watched by the same observers as its source,
/// on both sides of the link, without any callback being run.
/// Threading: the host's thread; nothing here is locked.
class KRC_PropertyObservable
{
public:
    KRC_PropertyObservable();
    KRC_PropertyObservable(KRC_PropertyObservable const& other);
    KRC_PropertyObservable& operator=(KRC_PropertyObservable const& other);
    /// Unlinks the observers that are still registered, without a callback:
    /// a KRC_Property has already told them in its own destructor.
    virtual ~KRC_PropertyObservable();

    std::size_t observerCount() const;
    bool isObservedBy(KRC_PropertyObserver const* observer) const;

protected:
    /// Calls onPropertyModified(property) on each observer, in pointer order. An
    /// observer that unregisters (itself or another one) during the walk is safe:
    /// only observers still registered at their turn are called.
    void notifyModified(KRC_Property* property) const;
    /// Calls onPropertyDeleted(property) on each observer and unlinks it, so that
    /// afterwards no observer knows this object.
    void notifyDeleted(KRC_Property* property);

private:
    friend class KRC_PropertyObserver;
    void linkObserver(KRC_PropertyObserver* observer);
    void unlinkObserver(KRC_PropertyObserver* observer);
    void unlinkAllObservers();
    void linkObserversOf(KRC_PropertyObservable const& source);

    KRC_PropertyObservablePrivate* d;
};
