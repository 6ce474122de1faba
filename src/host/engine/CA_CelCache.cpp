#include "host/engine/CA_CelCache.h"

#include <set>

class CA_CelCache::CA_CelCachePrivate
{
public:
    std::set<CA_CelKey> modified;
};

CA_CelCache::CA_CelCache()
    : d(new CA_CelCachePrivate)
{
    qRegisterMetaType<CA_CelKey>("CA_CelKey");
}

CA_CelCache::~CA_CelCache()
{
    delete d;
}

CA_CelCache* CA_CelCache::instance()
{
    static CA_CelCache cache;
    return &cache;
}

void CA_CelCache::reportDrawingModified(CA_CelKey const& key)
{
    const bool first = key.isValid() && d->modified.insert(key).second;
    emit DrawingModified(key, first);
}

bool CA_CelCache::isModified(CA_CelKey const& key) const
{
    return d->modified.count(key) != 0;
}

void CA_CelCache::forgetModifications()
{
    d->modified.clear();
}

CA_CelCache* const ca_celCache = CA_CelCache::instance();
