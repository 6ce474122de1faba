#include "metadata/KRC_ObjInfo.h"

class KRC_ObjInfoPrivate
{
public:
    KRC_ObjectName name;
};

KRC_ObjInfo::KRC_ObjInfo(
    QString const& metaType, QString const& metaName, QString const& creator, QString const& version)
    : PIO_Metadata(metaType, metaName, creator, version)
    , d(new KRC_ObjInfoPrivate)
{
}

KRC_ObjInfo::KRC_ObjInfo(KRC_ObjInfo const& other)
    : PIO_Metadata(other)
    , d(new KRC_ObjInfoPrivate(*other.d))
{
}

KRC_ObjInfo& KRC_ObjInfo::operator=(KRC_ObjInfo const& other)
{
    PIO_Metadata::operator=(other);
    *d = *other.d;
    return *this;
}

KRC_ObjInfo::~KRC_ObjInfo()
{
    delete d;
}

KRC_ObjectName& KRC_ObjInfo::name()
{
    return d->name;
}

KRC_ObjectName const& KRC_ObjInfo::name() const
{
    return d->name;
}

bool KRC_ObjInfo::hasUsableName() const
{
    return !d->name.value().isEmpty() || d->name.isAuto();
}

void KRC_ObjInfo::writeName(
    PO_XmlWriter& writer, NameAttributes const& attributes, KRC_ObjectName const& name)
{
    writer.encodeStringAttr(attributes.value, name.value());
    writer.encodeIntAttr(attributes.flag, name.flag());
}

void KRC_ObjInfo::addNameItems(
    QVector<KRC_MetadataDump::Item>& items, NameAttributes const& attributes, KRC_ObjectName const& name)
{
    items.append({ attributes.value, name.value() });
    items.append({ attributes.flag, QString::number(name.flag()) });
}
