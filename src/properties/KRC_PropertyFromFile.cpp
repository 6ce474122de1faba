#include "properties/KRC_PropertyFromFile.h"

#include "properties/KRC_PropertyStream.h"

class KRC_PropertyFromFilePrivate
{
public:
    QString fileFilter = QStringLiteral("*.*");
};

KRC_PropertyFromFile::KRC_PropertyFromFile(QString const& name)
    : KRC_Property(name)
    , d(new KRC_PropertyFromFilePrivate)
{
}

KRC_PropertyFromFile::KRC_PropertyFromFile(QString const& name, KRC_Property const& other,
    QString const& fileFilter, UT_SharedPtr<KRC_PropertyDefinition> definition)
    : KRC_PropertyFromFile(name, other.value(), fileFilter, definition)
{
}

KRC_PropertyFromFile::KRC_PropertyFromFile(QString const& name, QVariant const& value,
    QString const& fileFilter, UT_SharedPtr<KRC_PropertyDefinition> definition)
    : KRC_Property(name, value, definition)
    , d(new KRC_PropertyFromFilePrivate { fileFilter })
{
}

KRC_PropertyFromFile::KRC_PropertyFromFile(KRC_PropertyFromFile const& other)
    : KRC_Property(other)
    , d(new KRC_PropertyFromFilePrivate(*other.d))
{
}

KRC_PropertyFromFile& KRC_PropertyFromFile::operator=(KRC_PropertyFromFile const& other)
{
    KRC_Property::operator=(other);
    *d = *other.d;
    return *this;
}

KRC_PropertyFromFile::~KRC_PropertyFromFile()
{
    delete d;
}

bool KRC_PropertyFromFile::store(QDataStream& out) const
{
    KRC_Property::store(out);
    KRC_PropertyStream::writeString(out, d->fileFilter);
    return out.status() == QDataStream::Ok;
}

bool KRC_PropertyFromFile::load(QDataStream& in)
{
    QString fileFilter;
    if (!loadItems(in, [&](QDataStream& items) { return KRC_PropertyStream::readString(items, fileFilter); }))
        return false;
    d->fileFilter = fileFilter;
    return true;
}

KRC_Property* KRC_PropertyFromFile::clone() const
{
    return new KRC_PropertyFromFile(name(), value(), d->fileFilter, definition());
}

int KRC_PropertyFromFile::propertyType() const
{
    return 3;
}

QString const& KRC_PropertyFromFile::fileFilter() const
{
    return d->fileFilter;
}
