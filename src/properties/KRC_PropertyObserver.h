// The watching side of the link between properties and their observers.
#pragma once

#include <cstddef>

class KRC_Property;
class KRC_PropertyObservable;
class KRC_PropertyObserverPrivate;

/// Watches any number of KRC_PropertyObservable objects (in practice properties).
///
/// registerObservable and unregisterObservable change both sides of the link at once;
/// doing either twice has the effect of doing it once. onPropertyModified is called
/// after each accepted KRC_Property::setValue, onPropertyDeleted when a watched
/// property is destroyed; during the latter the pointer is only an identity and the
/// property must not be called. The default callbacks do nothing.
///
/// Destruction unregisters from everything still watched, without a callback, so a
/// property never keeps a dead observer. A copy (or an assignment) watches the same
/// objects as its source, registered on both sides, without a callback.
/// Threading: the host's thread; nothing here is locked.
class KRC_PropertyObserver
{
public:
    KRC_PropertyObserver();
    KRC_PropertyObserver(KRC_PropertyObserver const& other);
    KRC_PropertyObserver& operator=(KRC_PropertyObserver const& other);
    virtual ~KRC_PropertyObserver();

    virtual void onPropertyModified(KRC_Property* property);
    virtual void onPropertyDeleted(KRC_Property* property);

    void registerObservable(KRC_PropertyObservable* observable);
    void unregisterObservable(KRC_PropertyObservable* observable);

    std::size_t observableCount() const;
    bool isObserving(KRC_PropertyObservable const* observable) const;

protected:
    /// Leaves every observable, on both sides, without a callback.
    void unregisterToAll();

private:
    friend class KRC_PropertyObservable;
    void unlinkObservable(KRC_PropertyObservable* observable);
    void registerObservablesOf(KRC_PropertyObserver const& source);

    KRC_PropertyObserverPrivate* d;
};
