#include "properties/KRC_PropertyFromCaptionList.h"

class KRC_PropertyFromCaptionListPrivate
{
public:
    bool dirty = true;
    QStringList captionList;
};

KRC_PropertyFromCaptionList::KRC_PropertyFromCaptionList(QString const& name)
    : KRC_Property(name)
    , d(new KRC_PropertyFromCaptionListPrivate)
{
}

KRC_PropertyFromCaptionList::KRC_PropertyFromCaptionList(
    QString const& name, KRC_Property const& other, UT_SharedPtr<KRC_PropertyDefinition> definition)
    : KRC_PropertyFromCaptionList(name, other.value(), definition)
{
}

KRC_PropertyFromCaptionList::KRC_PropertyFromCaptionList(
    QString const& name, QVariant const& value, UT_SharedPtr<KRC_PropertyDefinition> definition)
    : KRC_Property(name, value, definition)
    , d(new KRC_PropertyFromCaptionListPrivate)
{
}

KRC_PropertyFromCaptionList::KRC_PropertyFromCaptionList(KRC_PropertyFromCaptionList const& other)
    : KRC_Property(other)
    , d(new KRC_PropertyFromCaptionListPrivate(*other.d))
{
}

KRC_PropertyFromCaptionList& KRC_PropertyFromCaptionList::operator=(KRC_PropertyFromCaptionList const& other)
{
    KRC_Property::operator=(other);
    *d = *other.d;
    return *this;
}

KRC_PropertyFromCaptionList::~KRC_PropertyFromCaptionList()
{
    delete d;
}

bool KRC_PropertyFromCaptionList::setValue(KRC_Property const& other)
{
    d->dirty = true;
    return KRC_Property::setValue(other);
}

bool KRC_PropertyFromCaptionList::setValue(QVariant const& value)
{
    d->dirty = true;
    return KRC_Property::setValue(value);
}

KRC_Property* KRC_PropertyFromCaptionList::clone() const
{
    return new KRC_PropertyFromCaptionList(name(), value(), definition());
}

int KRC_PropertyFromCaptionList::propertyType() const
{
    return 5;
}

QStringList const& KRC_PropertyFromCaptionList::captionList() const
{
    if (d->dirty) {
        d->dirty = false;
        d->captionList = toString().split(QLatin1Char(';'), Qt::SkipEmptyParts, Qt::CaseSensitive);
    }
    return d->captionList;
}
