#include "properties/KRC_Property.h"

#include "properties/KRC_PropertyStream.h"

#include <QDataStream>
#include <QDate>
#include <QDateTime>
#include <QDomDocument>
#include <QDomElement>
#include <QStringList>
#include <QTime>

namespace {

const QString kValueAttribute = QStringLiteral("value");

QString integerText(QVariant const& value)
{
    switch (value.type()) {
    case QVariant::Int:
        return QString::number(value.toInt());
    case QVariant::UInt:
        return QString::number(value.toUInt());
    case QVariant::LongLong:
        return QString::number(value.toLongLong());
    default:
        return QString::number(value.toULongLong());
    }
}

QString dateText(QVariant const& value)
{
    switch (value.type()) {
    case QVariant::Date:
        return value.toDate().toString(Qt::ISODate);
    case QVariant::Time:
        return value.toTime().toString(Qt::ISODate);
    default:
        return value.toDateTime().toString(Qt::ISODate);
    }
}

QString scriptString(QString text)
{
    text.replace(QLatin1Char('"'), QLatin1String("\\\""));
    return QStringLiteral("\"%1\"").arg(text);
}

} // namespace

class KRC_PropertyPrivate
{
public:
    QString name;
    UT_SharedPtr<KRC_PropertyDefinition> definition;
    QVariant value;
};

KRC_Property::KRC_Property(QString const& name)
    : d(new KRC_PropertyPrivate)
{
    d->name = name;
}

KRC_Property::KRC_Property(
    QString const& name, QVariant const& value, UT_SharedPtr<KRC_PropertyDefinition> definition)
    : d(new KRC_PropertyPrivate)
{
    d->name = name;
    d->definition = definition;
    KRC_Property::setValue(value);
}

KRC_Property::KRC_Property(
    QString const& name, KRC_Property const& other, UT_SharedPtr<KRC_PropertyDefinition> definition)
    : KRC_Property(name, other.value(), definition)
{
}

KRC_Property::KRC_Property(KRC_Property const& other)
    : KRC_PropertyObservable(other)
    , d(new KRC_PropertyPrivate(*other.d))
{
}

KRC_Property& KRC_Property::operator=(KRC_Property const& other)
{
    KRC_PropertyObservable::operator=(other);
    *d = *other.d;
    return *this;
}

KRC_Property::~KRC_Property()
{
    notifyDeleted(this);
    delete d;
}

bool KRC_Property::setValue(KRC_Property const& other)
{
    return setValue(other.value());
}

bool KRC_Property::setValue(QVariant const& newValue)
{
    const QVariant previous = d->value;
    if (isReadOnly() && previous.isValid()) {
        qWarning(
            "Could not change value of property %s, property is read only", d->name.toLatin1().constData());
        return false;
    }
    if (previous.isValid() && newValue.userType() != previous.userType()) {
        QVariant converted = newValue;
        if (!converted.convert(previous.userType())) {
            qWarning("Could not change value of property %s, type is not compatible -- from %s to %s",
                d->name.toLatin1().constData(), newValue.typeName(), previous.typeName());
            return false;
        }
        d->value = converted;
    } else {
        d->value = newValue;
    }
    if (!validate(false)) {
        d->value = previous;
        return false;
    }
    notifyModified(this);
    return true;
}

bool KRC_Property::validate(bool)
{
    return true;
}

bool KRC_Property::store(QDomDocument& document, QDomElement& parent) const
{
    QDomElement element = document.createElement(d->name);
    element.setAttribute(kValueAttribute, valueToString());
    parent.appendChild(element);
    return true;
}

bool KRC_Property::store(QDataStream& out) const
{
    KRC_PropertyStream::writeString(out, d->name);
    KRC_PropertyStream::writeVariant(out, d->value);
    KRC_PropertyStream::writeString(out, ldesc());
    KRC_PropertyStream::writeString(out, sdesc());
    KRC_PropertyStream::writeFlag(out, isReadOnly());
    KRC_PropertyStream::writeFlag(out, isInternal());
    return out.status() == QDataStream::Ok;
}

bool KRC_Property::load(QDomElement& element)
{
    if (element.nodeName() != d->name)
        return false;
    return setValueFromString(element.attribute(kValueAttribute, QString()));
}

bool KRC_Property::load(QDataStream& in)
{
    return loadItems(in, nullptr);
}

bool KRC_Property::loadItems(QDataStream& in, std::function<bool(QDataStream&)> const& readExtra)
{
    QString name;
    QVariant value;
    QString ldesc;
    QString sdesc;
    bool readOnly = false;
    bool internal = false;
    const bool ok = KRC_PropertyStream::readString(in, name) && KRC_PropertyStream::readVariant(in, value)
        && KRC_PropertyStream::readString(in, ldesc) && KRC_PropertyStream::readString(in, sdesc)
        && KRC_PropertyStream::readFlag(in, readOnly) && KRC_PropertyStream::readFlag(in, internal)
        && (!readExtra || readExtra(in));
    if (!ok)
        return false;
    if (!d->definition)
        d->definition = new KRC_PropertyDefinition;
    d->name = name;
    d->value = value;
    d->definition->setLdesc(ldesc);
    d->definition->setSdesc(sdesc);
    d->definition->setReadOnly(readOnly);
    d->definition->setInternal(internal);
    return true;
}

KRC_Property* KRC_Property::clone() const
{
    return new KRC_Property(d->name, d->value, d->definition);
}

QString KRC_Property::regenarationScript(QString const& objectName)
{
    const QString script = toScriptString();
    if (script.isEmpty())
        return QString();
    return QStringLiteral("%1.addProperty( %2, %3, %4, %5, %6, %7 );\n")
        .arg(objectName)
        .arg(d->name)
        .arg(ldesc())
        .arg(sdesc())
        .arg(script)
        .arg(scriptBool(isReadOnly()))
        .arg(scriptBool(isInternal()));
}

int KRC_Property::propertyType() const
{
    return 0;
}

QString const& KRC_Property::name() const
{
    return d->name;
}

QVariant const& KRC_Property::value() const
{
    return d->value;
}

int KRC_Property::type() const
{
    return d->value.type();
}

char const* KRC_Property::typeName() const
{
    return d->value.typeName();
}

bool KRC_Property::isValid() const
{
    return d->value.isValid();
}

bool KRC_Property::isNull() const
{
    return d->value.isNull();
}

bool KRC_Property::canConvert(QVariant::Type type) const
{
    return d->value.canConvert(int(type));
}

int KRC_Property::toInt() const
{
    return d->value.toInt();
}

uint KRC_Property::toUInt() const
{
    return d->value.toUInt();
}

double KRC_Property::toDouble() const
{
    return d->value.toDouble();
}

qlonglong KRC_Property::toLongLong() const
{
    return d->value.toLongLong();
}

qulonglong KRC_Property::toULongLong() const
{
    return d->value.toULongLong();
}

bool KRC_Property::toBool() const
{
    return d->value.toBool();
}

QString KRC_Property::toString() const
{
    return d->value.toString();
}

QColor KRC_Property::toColor() const
{
    return d->value.value<QColor>();
}

UT_SharedPtr<KRC_PropertyDefinition> KRC_Property::definition() const
{
    return d->definition;
}

QString KRC_Property::ldesc() const
{
    return d->definition ? d->definition->ldesc() : QString();
}

QString KRC_Property::sdesc() const
{
    return d->definition ? d->definition->sdesc() : QString();
}

bool KRC_Property::isReadOnly() const
{
    return d->definition && d->definition->isReadOnly();
}

bool KRC_Property::isInternal() const
{
    return d->definition && d->definition->isInternal();
}

void KRC_Property::setReadOnly(bool readOnly)
{
    if (d->definition)
        d->definition->setReadOnly(readOnly);
}

void KRC_Property::setInternal(bool internal)
{
    if (d->definition)
        d->definition->setInternal(internal);
}

bool KRC_Property::operator==(KRC_Property const& other) const
{
    if (d->value == other.d->value)
        return true;
    // A null and an empty string are the same text to the user.
    if (d->value.type() == QVariant::String && other.d->value.type() == QVariant::String)
        return d->value.toString() == other.d->value.toString();
    return false;
}

bool KRC_Property::operator!=(KRC_Property const& other) const
{
    return !(*this == other);
}

QString KRC_Property::valueToString() const
{
    switch (d->value.type()) {
    case QVariant::Bool:
        return scriptBool(d->value.toBool());
    case QVariant::Int:
    case QVariant::UInt:
    case QVariant::LongLong:
    case QVariant::ULongLong:
        return integerText(d->value);
    case QVariant::Double:
        return QString::number(d->value.toDouble(), 'g', 6);
    case QVariant::List:
    case QVariant::StringList:
        return d->value.toStringList().join(QLatin1Char(','));
    case QVariant::String:
        return d->value.toString();
    case QVariant::Date:
    case QVariant::Time:
    case QVariant::DateTime:
        return dateText(d->value);
    case QVariant::Color:
        return d->value.value<QColor>().name();
    default:
        qWarning("Cannot convert property of type %s to string.", d->value.typeName());
        return QString();
    }
}

bool KRC_Property::setValueFromString(QString const& text)
{
    switch (d->value.type()) {
    case QVariant::Bool:
        return setValue(QVariant(text == QLatin1String("true")));
    case QVariant::Int:
        return setValue(QVariant(text.toInt()));
    case QVariant::UInt:
        return setValue(QVariant(text.toUInt()));
    case QVariant::LongLong:
        return setValue(QVariant(text.toLongLong()));
    case QVariant::ULongLong:
        return setValue(QVariant(text.toULongLong()));
    case QVariant::Double:
        return setValue(QVariant(text.toDouble()));
    case QVariant::List:
    case QVariant::StringList:
        return setValue(QVariant(text.split(QLatin1Char(','), Qt::SkipEmptyParts, Qt::CaseSensitive)));
    case QVariant::String:
        return setValue(QVariant(text));
    case QVariant::Date:
        return setValue(QVariant(QDate::fromString(text, Qt::ISODate)));
    case QVariant::Time:
        return setValue(QVariant(QTime::fromString(text, Qt::ISODate)));
    case QVariant::DateTime:
        return setValue(QVariant(QDateTime::fromString(text, Qt::ISODate)));
    case QVariant::Color: {
        QColor color;
        color.setNamedColor(text);
        return setValue(QVariant(color));
    }
    default:
        qWarning("Cannot convert property of type %s from string = %s.", d->value.typeName(),
            text.toLatin1().constData());
        return false;
    }
}

QString KRC_Property::toScriptString(QVariant const& value)
{
    switch (value.type()) {
    case QVariant::Bool:
        return scriptBool(value.toBool());
    case QVariant::Int:
    case QVariant::UInt:
    case QVariant::LongLong:
    case QVariant::ULongLong:
        return integerText(value);
    case QVariant::Double:
        return QString::number(value.toDouble(), 'g', 6);
    case QVariant::List: {
        QStringList items;
        for (QVariant const& element : value.toList())
            items << toScriptString(element);
        return scriptArray(items);
    }
    case QVariant::String:
        return scriptString(value.toString());
    case QVariant::StringList: {
        QStringList items;
        for (QString const& text : value.toStringList())
            items << scriptString(text);
        return scriptArray(items);
    }
    case QVariant::Date:
    case QVariant::Time:
    case QVariant::DateTime:
        // The quoted ISO text goes between quotes of its own: the doubled quotes are the format.
        return QStringLiteral("new Date( Date.parse(  \"%1\" ) )").arg(scriptString(dateText(value)));
    case QVariant::Color: {
        const QColor color = value.value<QColor>();
        if (!color.isValid())
            return QStringLiteral("new Color()");
        return QStringLiteral("new Color( \"%1\" )").arg(color.name());
    }
    default:
        qWarning("Cannot convert property of type %s to scriptString.", value.typeName());
        return QString();
    }
}

QString KRC_Property::toScriptString() const
{
    return toScriptString(d->value);
}

QString KRC_Property::scriptBool(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString KRC_Property::scriptArray(QStringList const& items)
{
    return QStringLiteral("new Array( %1 )").arg(items.join(QStringLiteral(", ")));
}

void KRC_Property::assignValue(QVariant const& value)
{
    d->value = value;
}
