#include "host/engine/CA_CelCache.h"

CA_CelCache::CA_CelCache()
{
    qRegisterMetaType<CA_CelKey>("CA_CelKey");
}

CA_CelCache::~CA_CelCache() = default;

CA_CelCache* CA_CelCache::instance()
{
    static CA_CelCache cache;
    return &cache;
}

void CA_CelCache::reportDrawingModified(CA_CelKey const& key)
{
    const bool first = key.isValid() && m_modified.insert(key).second;
    emit DrawingModified(key, first);
}

bool CA_CelCache::isModified(CA_CelKey const& key) const
{
    return m_modified.count(key) != 0;
}

void CA_CelCache::forgetModifications()
{
    m_modified.clear();
}

CA_CelCache* const ca_celCache = CA_CelCache::instance();
