#include "properties/KRC_PropertiedObject.h"

#include "properties/KRC_PropertyFromCaptionList.h"
#include "properties/KRC_PropertyFromFile.h"
#include "properties/KRC_PropertyFromFont.h"
#include "properties/KRC_PropertyFromList.h"
#include "properties/KRC_PropertyFromRange.h"

#include <QDomDocument>
#include <QDomElement>

#include <algorithm>
#include <set>

namespace {

const QString kNodeName = QStringLiteral("properties");
const QString kInternalDescription = QStringLiteral("Internal");

UT_SharedPtr<KRC_PropertyDefinition> describe(
    QString const& ldesc, QString const& sdesc, bool readOnly, bool internal)
{
    return UT_SharedPtr<KRC_PropertyDefinition>(new KRC_PropertyDefinition(ldesc, sdesc, readOnly, internal));
}

} // namespace

// The two views of the owned properties, always in agreement.
class KRC_PropertiedObjectPrivate
{
public:
    std::list<KRC_Property*> ordered;
    std::map<QString, KRC_Property*> byName;
};

KRC_PropertiedObject::KRC_PropertiedObject()
    : d(new KRC_PropertiedObjectPrivate)
{
}

KRC_PropertiedObject::KRC_PropertiedObject(KRC_PropertiedObject const& other)
    : KRC_PropertyObserver(other)
    , d(new KRC_PropertiedObjectPrivate)
{
    for (KRC_Property* property : other.d->ordered)
        addProperty(property->clone());
}

KRC_PropertiedObject& KRC_PropertiedObject::operator=(KRC_PropertiedObject const& other)
{
    if (this != &other) {
        KRC_PropertyObserver::operator=(other);
        clearProperties();
        for (KRC_Property* property : other.d->ordered)
            addProperty(property->clone());
    }
    return *this;
}

KRC_PropertiedObject::~KRC_PropertiedObject()
{
    clearProperties();
    unregisterToAll();
    delete d;
}

QString KRC_PropertiedObject::nodeName() const
{
    return kNodeName;
}

void KRC_PropertiedObject::getAllProperties(std::map<QString, KRC_Property*>& properties) const
{
    for (KRC_Property* property : d->ordered)
        properties.insert({ property->name(), property });
}

void KRC_PropertiedObject::getAllProperties(std::list<KRC_Property*>& properties) const
{
    if (d->ordered.empty())
        return;
    std::set<QString> present;
    for (KRC_Property* property : properties) {
        if (property)
            present.insert(property->name());
    }
    for (KRC_Property* property : d->ordered) {
        if (present.insert(property->name()).second)
            properties.push_back(property);
    }
}

void KRC_PropertiedObject::getAllProperties(std::list<QString>& names) const
{
    if (d->ordered.empty())
        return;
    std::set<QString> present(names.begin(), names.end());
    for (KRC_Property* property : d->ordered) {
        if (present.insert(property->name()).second)
            names.push_back(property->name());
    }
}

bool KRC_PropertiedObject::exists(QString const& name) const
{
    return d->byName.count(name) != 0;
}

KRC_Property* KRC_PropertiedObject::getProperty(QString const& name) const
{
    const auto it = d->byName.find(name);
    return it == d->byName.end() ? nullptr : it->second;
}

QString KRC_PropertiedObject::getPropertyString(QString const& name, QString const& defaultValue) const
{
    KRC_Property* property = getProperty(name);
    return property ? property->toString() : defaultValue;
}

int KRC_PropertiedObject::getPropertyInt(QString const& name, int defaultValue) const
{
    KRC_Property* property = getProperty(name);
    return property ? property->toInt() : defaultValue;
}

double KRC_PropertiedObject::getPropertyDouble(QString const& name, double defaultValue) const
{
    KRC_Property* property = getProperty(name);
    return property ? property->toDouble() : defaultValue;
}

bool KRC_PropertiedObject::getPropertyBool(QString const& name, bool defaultValue) const
{
    KRC_Property* property = getProperty(name);
    return property ? property->toBool() : defaultValue;
}

unsigned int KRC_PropertiedObject::propertiesCount() const
{
    std::list<KRC_Property*> properties;
    getAllProperties(properties);
    return static_cast<unsigned int>(properties.size());
}

bool KRC_PropertiedObject::propertiesCompare(KRC_PropertiedObject const* other) const
{
    if (!other)
        return true;
    std::list<KRC_Property*> theirs;
    other->getAllProperties(theirs);
    for (KRC_Property* property : theirs) {
        if (!property)
            continue;
        KRC_Property* mine = getProperty(property->name());
        if (!mine)
            return false;
        if (mine != property && *mine != *property)
            return false;
    }
    return true;
}

void KRC_PropertiedObject::qVariantToPropertyList(QVariant const& source, QMap<QString, QVariant>& target)
{
    if (source.type() == QVariant::Map) {
        target = source.toMap();
    } else if (source.type() == QVariant::List) {
        const QVariantList list = source.toList();
        for (int i = 0; i + 1 < list.size(); i += 2)
            target.insert(list.at(i).toString(), list.at(i + 1));
    }
}

KRC_Property* KRC_PropertiedObject::addProperty(KRC_Property* property)
{
    if (!property)
        return nullptr;
    const auto it = d->byName.find(property->name());
    if (it == d->byName.end()) {
        if (std::find(d->ordered.begin(), d->ordered.end(), property) == d->ordered.end()) {
            d->ordered.push_back(property);
            d->byName.insert({ property->name(), property });
        }
        return property;
    }
    KRC_Property* old = it->second;
    if (old == property)
        return property;
    // The newcomer takes the old one's place, so the order of the set does not change.
    auto place = std::find(d->ordered.begin(), d->ordered.end(), old);
    if (place != d->ordered.end())
        *place = property;
    else
        d->ordered.push_back(property);
    it->second = property;
    delete old;
    return property;
}

KRC_Property* KRC_PropertiedObject::addProperty(
    QString const& name, QVariant const& value, KRC_PropertyDefinition* definition)
{
    return addProperty(new KRC_Property(name, value, definition));
}

KRC_Property* KRC_PropertiedObject::addProperty(
    QString const& name, KRC_Property const& source, KRC_PropertyDefinition* definition)
{
    return addProperty(new KRC_Property(name, source, definition));
}

KRC_Property* KRC_PropertiedObject::addPropertyFromList(QString const& name, QVariant const& value,
    QVariant const& possibleValues, bool allowEmpty, bool allowMultiple, KRC_PropertyDefinition* definition)
{
    QMap<QString, QVariant> choices;
    qVariantToPropertyList(possibleValues, choices);
    if (choices.isEmpty())
        return addProperty(name, value, definition);
    return addProperty(new KRC_PropertyFromList(name, value, choices, allowEmpty, allowMultiple, definition));
}

KRC_Property* KRC_PropertiedObject::addPropertyFromRange(QString const& name, QVariant const& value,
    QVariant const& min, QVariant const& max, KRC_PropertyDefinition* definition)
{
    return addProperty(new KRC_PropertyFromRange(name, value, min, max, definition));
}

KRC_Property* KRC_PropertiedObject::addPropertyFromFile(
    QString const& name, QVariant const& value, QString const& filter, KRC_PropertyDefinition* definition)
{
    return addProperty(new KRC_PropertyFromFile(name, value, filter, definition));
}

KRC_Property* KRC_PropertiedObject::addPropertyFromFont(
    QString const& name, QVariant const& value, KRC_PropertyDefinition* definition)
{
    return addProperty(new KRC_PropertyFromFont(name, value, definition));
}

KRC_Property* KRC_PropertiedObject::addPropertyFromCaptionList(
    QString const& name, QVariant const& value, KRC_PropertyDefinition* definition)
{
    return addProperty(new KRC_PropertyFromCaptionList(name, value, definition));
}

// The overloads with descriptions hand a fresh definition to the overloads above, which
// share it with the new property before the temporary pointer lets go.
KRC_Property* KRC_PropertiedObject::addProperty(QString const& name, QVariant const& value,
    QString const& ldesc, QString const& sdesc, bool readOnly, bool internal)
{
    return addProperty(name, value, describe(ldesc, sdesc, readOnly, internal).get());
}

KRC_Property* KRC_PropertiedObject::addProperty(QString const& name, KRC_Property const& source,
    QString const& ldesc, QString const& sdesc, bool readOnly, bool internal)
{
    return addProperty(name, source, describe(ldesc, sdesc, readOnly, internal).get());
}

KRC_Property* KRC_PropertiedObject::addPropertyFromList(QString const& name, QVariant const& value,
    QVariant const& possibleValues, bool allowEmpty, bool allowMultiple, QString const& ldesc,
    QString const& sdesc, bool readOnly, bool internal)
{
    return addPropertyFromList(name, value, possibleValues, allowEmpty, allowMultiple,
        describe(ldesc, sdesc, readOnly, internal).get());
}

KRC_Property* KRC_PropertiedObject::addPropertyFromRange(QString const& name, QVariant const& value,
    QVariant const& min, QVariant const& max, QString const& ldesc, QString const& sdesc, bool readOnly,
    bool internal)
{
    return addPropertyFromRange(name, value, min, max, describe(ldesc, sdesc, readOnly, internal).get());
}

KRC_Property* KRC_PropertiedObject::addPropertyFromFile(QString const& name, QVariant const& value,
    QString const& filter, QString const& ldesc, QString const& sdesc, bool readOnly, bool internal)
{
    return addPropertyFromFile(name, value, filter, describe(ldesc, sdesc, readOnly, internal).get());
}

KRC_Property* KRC_PropertiedObject::addPropertyFromFont(QString const& name, QVariant const& value,
    QString const& ldesc, QString const& sdesc, bool readOnly, bool internal)
{
    return addPropertyFromFont(name, value, describe(ldesc, sdesc, readOnly, internal).get());
}

KRC_Property* KRC_PropertiedObject::addPropertyFromCaptionList(QString const& name, QVariant const& value,
    QString const& ldesc, QString const& sdesc, bool readOnly, bool internal)
{
    return addPropertyFromCaptionList(name, value, describe(ldesc, sdesc, readOnly, internal).get());
}

KRC_Property* KRC_PropertiedObject::addPropertyInternal(
    QString const& name, QVariant const& value, bool readOnly)
{
    return addProperty(name, value, kInternalDescription, kInternalDescription, readOnly, true);
}

void KRC_PropertiedObject::setProperty(QString const& name, QVariant const& value)
{
    if (KRC_Property* property = getProperty(name))
        property->setValue(value);
    else
        addProperty(new KRC_Property(name, value, nullptr));
}

void KRC_PropertiedObject::setProperty(QString const& name, KRC_Property const& value)
{
    if (KRC_Property* property = getProperty(name))
        property->setValue(value);
    else
        addProperty(new KRC_Property(name, value, nullptr));
}

void KRC_PropertiedObject::removeProperty(QString const& name)
{
    const auto it = d->byName.find(name);
    if (it == d->byName.end())
        return;
    KRC_Property* property = it->second;
    d->byName.erase(it);
    d->ordered.remove(property);
    delete property;
}

void KRC_PropertiedObject::clearProperties()
{
    std::list<KRC_Property*> doomed;
    doomed.swap(d->ordered);
    d->byName.clear();
    for (KRC_Property* property : doomed)
        delete property;
}

void KRC_PropertiedObject::propertyCopyFrom(
    KRC_PropertiedObject const* source, QString const& sourceName, QString const& targetName)
{
    KRC_Property* from = source ? source->getProperty(sourceName) : nullptr;
    if (!from)
        return;
    const QString name = targetName.isEmpty() ? sourceName : targetName;
    if (KRC_Property* target = getProperty(name))
        target->setValue(*from);
    else
        addProperty(new KRC_Property(name, *from, nullptr));
}

void KRC_PropertiedObject::propertiesCopyFrom(KRC_PropertiedObject const* source, bool addMissing)
{
    if (!source)
        return;
    std::list<KRC_Property*> theirs;
    source->getAllProperties(theirs);
    for (KRC_Property* property : theirs) {
        KRC_Property* mine = property ? getProperty(property->name()) : nullptr;
        if (!property || mine == property)
            continue;
        if (mine)
            mine->setValue(*property);
        else if (addMissing)
            addProperty(property->clone());
    }
}

void KRC_PropertiedObject::propertiesSetFrom(KRC_PropertiedObject const* source)
{
    if (source == this)
        return;
    clearProperties();
    propertiesCopyFrom(source, true);
}

bool KRC_PropertiedObject::store(QDomDocument& document, QDomElement& parent) const
{
    QDomElement element = document.createElement(nodeName());
    parent.appendChild(element);
    for (KRC_Property* property : d->ordered)
        property->store(document, element);
    return true;
}

bool KRC_PropertiedObject::load(QDomElement& element)
{
    if (element.nodeName() != nodeName())
        return false;
    for (QDomNode node = element.firstChild(); !node.isNull(); node = node.nextSibling()) {
        QDomElement child = node.toElement();
        if (child.isNull())
            continue;
        KRC_Property* property = getProperty(child.nodeName());
        if (property && !property->load(child))
            return false;
    }
    return true;
}
