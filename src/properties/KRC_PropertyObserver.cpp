#include "properties/KRC_PropertyObserver.h"

#include "properties/KRC_PropertyObservable.h"

#include <set>

class KRC_PropertyObserverPrivate
{
public:
    std::set<KRC_PropertyObservable*> observables;
};

KRC_PropertyObserver::KRC_PropertyObserver()
    : d(new KRC_PropertyObserverPrivate)
{
}

KRC_PropertyObserver::KRC_PropertyObserver(KRC_PropertyObserver const& other)
    : d(new KRC_PropertyObserverPrivate)
{
    registerObservablesOf(other);
}

KRC_PropertyObserver& KRC_PropertyObserver::operator=(KRC_PropertyObserver const& other)
{
    if (this != &other) {
        unregisterToAll();
        registerObservablesOf(other);
    }
    return *this;
}

KRC_PropertyObserver::~KRC_PropertyObserver()
{
    unregisterToAll();
    delete d;
}

void KRC_PropertyObserver::onPropertyModified(KRC_Property*) { }

void KRC_PropertyObserver::onPropertyDeleted(KRC_Property*) { }

void KRC_PropertyObserver::registerObservable(KRC_PropertyObservable* observable)
{
    if (!observable)
        return;
    d->observables.insert(observable);
    observable->linkObserver(this);
}

void KRC_PropertyObserver::unregisterObservable(KRC_PropertyObservable* observable)
{
    if (!observable || !d->observables.erase(observable))
        return;
    observable->unlinkObserver(this);
}

std::size_t KRC_PropertyObserver::observableCount() const
{
    return d->observables.size();
}

bool KRC_PropertyObserver::isObserving(KRC_PropertyObservable const* observable) const
{
    return d->observables.count(const_cast<KRC_PropertyObservable*>(observable)) != 0;
}

void KRC_PropertyObserver::unregisterToAll()
{
    for (KRC_PropertyObservable* observable : d->observables)
        observable->unlinkObserver(this);
    d->observables.clear();
}

void KRC_PropertyObserver::unlinkObservable(KRC_PropertyObservable* observable)
{
    d->observables.erase(observable);
}

void KRC_PropertyObserver::registerObservablesOf(KRC_PropertyObserver const& source)
{
    for (KRC_PropertyObservable* observable : source.d->observables)
        registerObservable(observable);
}
