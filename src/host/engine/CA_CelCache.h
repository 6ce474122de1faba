// The engine's cache of drawings, as far as it reports modified drawings.
#pragma once

#include "host/engine/CA_CelKey.h"

#include <QObject>

/// The process-wide cache of drawings (`ca_celCache`). A host that modified a
/// drawing reports it here by key; the cache emits DrawingModified at once, with
/// `isFirstModif` true the first time a key is reported since the last
/// forgetModifications(). Keys are passed on as given, invalid ones included:
/// listeners decide what they can use. Single-threaded, the host's thread; listeners
/// are called directly.
class CA_CelCache : public QObject
{
    Q_OBJECT
public:
    CA_CelCache();
    ~CA_CelCache() override;

    /// The one cache of the process.
    static CA_CelCache* instance();

    /// Reports a modified drawing; emits DrawingModified.
    void reportDrawingModified(CA_CelKey const& key);
    /// True when the drawing was reported since the last forgetModifications().
    bool isModified(CA_CelKey const& key) const;
    /// Forgets which drawings were modified (after a save): the next report of each
    /// is a first modification again.
    void forgetModifications();

signals:
    void DrawingModified(CA_CelKey const& key, bool isFirstModif);

private:
    class CA_CelCachePrivate;
    CA_CelCachePrivate* d;
};

/// The engine's global cel cache.
extern CA_CelCache* const ca_celCache;
