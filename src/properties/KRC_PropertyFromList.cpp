#include "properties/KRC_PropertyFromList.h"

#include "properties/KRC_PropertyStream.h"

#include <QStringList>

class KRC_PropertyFromListPrivate
{
public:
    QMap<QString, QVariant> possibleValues;
    bool allowEmpty = false;
    bool allowMultiple = false;
};

KRC_PropertyFromList::KRC_PropertyFromList(QString const& name)
    : KRC_Property(name)
    , d(new KRC_PropertyFromListPrivate)
{
}

KRC_PropertyFromList::KRC_PropertyFromList(QString const& name, KRC_Property const& other,
    QMap<QString, QVariant> const& possibleValues, bool allowEmpty, bool allowMultiple,
    UT_SharedPtr<KRC_PropertyDefinition> definition)
    : KRC_PropertyFromList(name, other.value(), possibleValues, allowEmpty, allowMultiple, definition)
{
}

KRC_PropertyFromList::KRC_PropertyFromList(QString const& name, QVariant const& value,
    QMap<QString, QVariant> const& possibleValues, bool allowEmpty, bool allowMultiple,
    UT_SharedPtr<KRC_PropertyDefinition> definition)
    : KRC_Property(name, value, definition)
    , d(new KRC_PropertyFromListPrivate { possibleValues, allowEmpty, allowMultiple })
{
    KRC_PropertyFromList::validate(true);
}

KRC_PropertyFromList::KRC_PropertyFromList(KRC_PropertyFromList const& other)
    : KRC_Property(other)
    , d(new KRC_PropertyFromListPrivate(*other.d))
{
}

KRC_PropertyFromList& KRC_PropertyFromList::operator=(KRC_PropertyFromList const& other)
{
    KRC_Property::operator=(other);
    *d = *other.d;
    return *this;
}

KRC_PropertyFromList::~KRC_PropertyFromList()
{
    delete d;
}

bool KRC_PropertyFromList::validate(bool fix)
{
    int tested = value().userType();
    if (d->allowMultiple && value().type() == QVariant::List) {
        const QVariantList list = value().toList();
        tested = list.isEmpty() ? int(QMetaType::UnknownType) : list.first().userType();
    }
    if (tested == QMetaType::UnknownType)
        return false;
    for (QVariant const& possible : d->possibleValues) {
        if (possible.userType() != tested) {
            if (fix)
                assignValue(QVariant());
            return false;
        }
    }
    return true;
}

bool KRC_PropertyFromList::store(QDataStream& out) const
{
    KRC_Property::store(out);
    KRC_PropertyStream::writeVariant(out, QVariant(d->possibleValues));
    KRC_PropertyStream::writeFlag(out, d->allowEmpty);
    KRC_PropertyStream::writeFlag(out, d->allowMultiple);
    return out.status() == QDataStream::Ok;
}

bool KRC_PropertyFromList::load(QDataStream& in)
{
    QVariant possibleValues;
    bool allowEmpty = false;
    bool allowMultiple = false;
    const bool ok = loadItems(in, [&](QDataStream& items) {
        return KRC_PropertyStream::readVariant(items, possibleValues)
            && KRC_PropertyStream::readFlag(items, allowEmpty)
            && KRC_PropertyStream::readFlag(items, allowMultiple);
    });
    if (!ok)
        return false;
    d->possibleValues = possibleValues.toMap();
    d->allowEmpty = allowEmpty;
    d->allowMultiple = allowMultiple;
    return validate(true);
}

KRC_Property* KRC_PropertyFromList::clone() const
{
    return new KRC_PropertyFromList(
        name(), value(), d->possibleValues, d->allowEmpty, d->allowMultiple, definition());
}

QString KRC_PropertyFromList::regenarationScript(QString const& objectName)
{
    QStringList items;
    for (auto it = d->possibleValues.cbegin(); it != d->possibleValues.cend(); ++it)
        items << it.key() << toScriptString(it.value());
    const QString possValues = QStringLiteral("var possValues = %1;\n").arg(scriptArray(items));
    const QString call
        = QStringLiteral("%1.addPropertyFromList( %2, %3, %4, %5, possibleValues, %6, %7, %8, %9 );\n")
              .arg(objectName)
              .arg(name())
              .arg(ldesc())
              .arg(sdesc())
              .arg(toScriptString())
              .arg(scriptBool(d->allowEmpty))
              .arg(scriptBool(d->allowMultiple))
              .arg(scriptBool(isReadOnly()))
              .arg(scriptBool(isInternal()));
    return possValues + call;
}

int KRC_PropertyFromList::propertyType() const
{
    return 1;
}

QMap<QString, QVariant> const& KRC_PropertyFromList::possibleValues() const
{
    return d->possibleValues;
}

bool KRC_PropertyFromList::allowEmpty() const
{
    return d->allowEmpty;
}

bool KRC_PropertyFromList::allowMultiple() const
{
    return d->allowMultiple;
}
