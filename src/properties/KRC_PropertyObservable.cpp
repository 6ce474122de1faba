#include "properties/KRC_PropertyObservable.h"

#include "properties/KRC_PropertyObserver.h"

#include <set>

class KRC_PropertyObservablePrivate
{
public:
    std::set<KRC_PropertyObserver*> observers;
};

KRC_PropertyObservable::KRC_PropertyObservable()
    : d(new KRC_PropertyObservablePrivate)
{
}

KRC_PropertyObservable::KRC_PropertyObservable(KRC_PropertyObservable const& other)
    : d(new KRC_PropertyObservablePrivate)
{
    linkObserversOf(other);
}

KRC_PropertyObservable& KRC_PropertyObservable::operator=(KRC_PropertyObservable const& other)
{
    if (this != &other) {
        unlinkAllObservers();
        linkObserversOf(other);
    }
    return *this;
}

KRC_PropertyObservable::~KRC_PropertyObservable()
{
    unlinkAllObservers();
    delete d;
}

std::size_t KRC_PropertyObservable::observerCount() const
{
    return d->observers.size();
}

bool KRC_PropertyObservable::isObservedBy(KRC_PropertyObserver const* observer) const
{
    return d->observers.count(const_cast<KRC_PropertyObserver*>(observer)) != 0;
}

void KRC_PropertyObservable::notifyModified(KRC_Property* property) const
{
    const std::set<KRC_PropertyObserver*> snapshot = d->observers;
    for (KRC_PropertyObserver* observer : snapshot) {
        if (d->observers.count(observer))
            observer->onPropertyModified(property);
    }
}

void KRC_PropertyObservable::notifyDeleted(KRC_Property* property)
{
    const std::set<KRC_PropertyObserver*> snapshot = d->observers;
    for (KRC_PropertyObserver* observer : snapshot) {
        if (!d->observers.count(observer))
            continue;
        observer->onPropertyDeleted(property);
        observer->unlinkObservable(this);
        d->observers.erase(observer);
    }
}

void KRC_PropertyObservable::linkObserver(KRC_PropertyObserver* observer)
{
    d->observers.insert(observer);
}

void KRC_PropertyObservable::unlinkObserver(KRC_PropertyObserver* observer)
{
    d->observers.erase(observer);
}

void KRC_PropertyObservable::unlinkAllObservers()
{
    for (KRC_PropertyObserver* observer : d->observers)
        observer->unlinkObservable(this);
    d->observers.clear();
}

void KRC_PropertyObservable::linkObserversOf(KRC_PropertyObservable const& source)
{
    for (KRC_PropertyObserver* observer : source.d->observers)
        observer->registerObservable(this);
}
