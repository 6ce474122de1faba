#include "properties/KRC_PropertyFromRange.h"

#include "properties/KRC_PropertyStream.h"

namespace {

bool isNumeric(int type)
{
    return type == QVariant::Int || type == QVariant::UInt || type == QVariant::LongLong
        || type == QVariant::ULongLong || type == QVariant::Double;
}

// -1, 0 or 1 as `a` is below, equal to or above `b`, compared in their common type.
template <class T> int compareAs(T a, T b)
{
    return a < b ? -1 : (b < a ? 1 : 0);
}

int compareNumbers(QVariant const& a, QVariant const& b)
{
    switch (a.type()) {
    case QVariant::Int:
        return compareAs(a.toInt(), b.toInt());
    case QVariant::UInt:
        return compareAs(a.toUInt(), b.toUInt());
    case QVariant::LongLong:
        return compareAs(a.toLongLong(), b.toLongLong());
    case QVariant::ULongLong:
        return compareAs(a.toULongLong(), b.toULongLong());
    default:
        return compareAs(a.toDouble(), b.toDouble());
    }
}

} // namespace

class KRC_PropertyFromRangePrivate
{
public:
    QVariant min;
    QVariant max;
};

KRC_PropertyFromRange::KRC_PropertyFromRange(QString const& name)
    : KRC_Property(name)
    , d(new KRC_PropertyFromRangePrivate)
{
}

KRC_PropertyFromRange::KRC_PropertyFromRange(QString const& name, KRC_Property const& other,
    QVariant const& min, QVariant const& max, UT_SharedPtr<KRC_PropertyDefinition> definition)
    : KRC_PropertyFromRange(name, other.value(), min, max, definition)
{
}

KRC_PropertyFromRange::KRC_PropertyFromRange(QString const& name, QVariant const& value, QVariant const& min,
    QVariant const& max, UT_SharedPtr<KRC_PropertyDefinition> definition)
    : KRC_Property(name, value, definition)
    , d(new KRC_PropertyFromRangePrivate { min, max })
{
    KRC_PropertyFromRange::validate(true);
}

KRC_PropertyFromRange::KRC_PropertyFromRange(KRC_PropertyFromRange const& other)
    : KRC_Property(other)
    , d(new KRC_PropertyFromRangePrivate(*other.d))
{
}

KRC_PropertyFromRange& KRC_PropertyFromRange::operator=(KRC_PropertyFromRange const& other)
{
    KRC_Property::operator=(other);
    *d = *other.d;
    return *this;
}

KRC_PropertyFromRange::~KRC_PropertyFromRange()
{
    delete d;
}

bool KRC_PropertyFromRange::validate(bool fix)
{
    const int type = value().userType();
    if (!isNumeric(type) || d->min.userType() != type || d->max.userType() != type) {
        qWarning("Invalid KRC_PropertyFromRange, not numerical or not the same type.");
        if (fix) {
            assignValue(QVariant(0));
            d->min = QVariant(0);
            d->max = QVariant(0);
        }
        return false;
    }
    if (compareNumbers(value(), d->max) > 0) {
        qWarning("Invalid KRC_PropertyFromRange, out of range (over). Init value to max.");
        assignValue(d->max);
        return true;
    }
    if (compareNumbers(value(), d->min) < 0) {
        qWarning("Invalid KRC_PropertyFromRange, out of range (lower). Init value to min.");
        if (fix)
            assignValue(d->min);
        return false;
    }
    return true;
}

bool KRC_PropertyFromRange::store(QDataStream& out) const
{
    KRC_Property::store(out);
    KRC_PropertyStream::writeVariant(out, d->min);
    KRC_PropertyStream::writeVariant(out, d->max);
    return out.status() == QDataStream::Ok;
}

bool KRC_PropertyFromRange::load(QDataStream& in)
{
    QVariant min;
    QVariant max;
    const bool ok = loadItems(in, [&](QDataStream& items) {
        return KRC_PropertyStream::readVariant(items, min) && KRC_PropertyStream::readVariant(items, max);
    });
    if (!ok)
        return false;
    d->min = min;
    d->max = max;
    return validate(true);
}

KRC_Property* KRC_PropertyFromRange::clone() const
{
    return new KRC_PropertyFromRange(name(), value(), d->min, d->max, definition());
}

int KRC_PropertyFromRange::propertyType() const
{
    return 2;
}

QVariant const& KRC_PropertyFromRange::min() const
{
    return d->min;
}

QVariant const& KRC_PropertyFromRange::max() const
{
    return d->max;
}
