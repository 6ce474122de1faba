// Member definitions of KRC_MetadataRecord. Included only by a record's source file,
// where its private class is complete, before the explicit instantiation:
//   template class KRC_MetadataRecord<KRC_PanelInfo, KRC_PanelInfoPrivate, KRC_ObjInfo>;
#pragma once

#include "host/base/HostBase.h"
#include "metadata/KRC_MetadataRecord.h"

#include <new>
#include <utility>

namespace KRC_MetadataRecordMemory {

/// A private state made in the handle pool, beside the private states made before it.
template <class Private, class... Args> Private* make(Args&&... args)
{
    void* const memory = Krolle::HandlePool::take(sizeof(Private));
    try {
        return new (memory) Private(std::forward<Args>(args)...);
    } catch (...) {
        Krolle::HandlePool::give(memory, sizeof(Private));
        throw;
    }
}

template <class Private> void destroy(Private* state)
{
    state->~Private();
    Krolle::HandlePool::give(state, sizeof(Private));
}

} // namespace KRC_MetadataRecordMemory

template <class Derived, class Private, class Base>
KRC_MetadataRecord<Derived, Private, Base>::KRC_MetadataRecord()
    : KRC_MetadataRecord(QString())
{
}

template <class Derived, class Private, class Base>
KRC_MetadataRecord<Derived, Private, Base>::KRC_MetadataRecord(QString const& name)
    : KRC_MetadataRecord(name, QString::fromUtf8(whoami::progName()), Derived::kPIO_KRMETA_Version)
{
}

template <class Derived, class Private, class Base>
KRC_MetadataRecord<Derived, Private, Base>::KRC_MetadataRecord(
    QString const& name, QString const& creator, QString const& version)
    : Base(Derived::kPIO_KRMETA_Keyword, name, creator, version)
    , m_private(KRC_MetadataRecordMemory::make<Private>())
{
}

template <class Derived, class Private, class Base>
KRC_MetadataRecord<Derived, Private, Base>::KRC_MetadataRecord(KRC_MetadataRecord const& other)
    : Base(other)
    , m_private(KRC_MetadataRecordMemory::make<Private>(*other.m_private))
{
}

template <class Derived, class Private, class Base>
KRC_MetadataRecord<Derived, Private, Base>& KRC_MetadataRecord<Derived, Private, Base>::operator=(
    KRC_MetadataRecord const& other)
{
    Base::operator=(other);
    *m_private = *other.m_private;
    return *this;
}

template <class Derived, class Private, class Base>
KRC_MetadataRecord<Derived, Private, Base>::~KRC_MetadataRecord()
{
    KRC_MetadataRecordMemory::destroy(m_private);
}
