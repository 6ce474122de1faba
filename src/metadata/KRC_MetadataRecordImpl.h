// Member definitions of KRC_MetadataRecord. Included only by a record's source file,
// where its private class is complete, before the explicit instantiation:
//   template class KRC_MetadataRecord<KRC_PanelInfo, KRC_PanelInfoPrivate, KRC_ObjInfo>;
#pragma once

#include "host/base/HostBase.h"
#include "metadata/KRC_MetadataRecord.h"

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
    , m_private(new Private)
{
}

template <class Derived, class Private, class Base>
KRC_MetadataRecord<Derived, Private, Base>::KRC_MetadataRecord(KRC_MetadataRecord const& other)
    : Base(other)
    , m_private(new Private(*other.m_private))
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
    delete m_private;
}
