// A named set of properties that owns them.
#pragma once

#include "properties/KRC_Property.h"
#include "properties/KRC_PropertyObserver.h"

#include <QMap>
#include <QString>
#include <QVariant>

#include <list>
#include <map>

class QDomDocument;
class QDomElement;
class KRC_PropertiedObjectPrivate;

/// Owns a set of properties with unique names, keeps them in the order in which they
/// were added, finds them by name, stores them as XML and copies them from another set.
///
/// Adding a property under a name that is already taken puts the new one in the old
/// one's place in the order and deletes the old one (whose observers are told). Every
/// add operation returns the property that is now in the set; a raw definition pointer
/// given to one may be null and becomes shared by the new property.
///
/// The three virtual getAllProperties operations form a union by name, entries already
/// in the caller's container winning: a subclass can put its own properties ahead of
/// the owned ones, and propertiesCount, propertiesCompare and propertiesCopyFrom see
/// them; null entries that a subclass puts in the list are passed over (but counted by
/// propertiesCount). store writes only the owned properties; load only sets owned ones (a file
/// can't add properties) and stops at the first child whose value does not set.
///
/// It is a KRC_PropertyObserver for subclasses to use; it does not watch its own
/// properties. A copy holds clones of the source's owned properties, in order, and
/// watches what the source watches; assignment does the same to an existing object.
/// Threading: the host's thread; nothing here is locked.
class KRC_PropertiedObject : public KRC_PropertyObserver
{
public:
    KRC_PropertiedObject();
    KRC_PropertiedObject(KRC_PropertiedObject const& other);
    KRC_PropertiedObject& operator=(KRC_PropertiedObject const& other);
    /// Deletes the properties (telling their observers), then leaves what it observes.
    ~KRC_PropertiedObject() override;

    /// Name of the XML element of the set: "properties".
    virtual QString nodeName() const;
    virtual void getAllProperties(std::map<QString, KRC_Property*>& properties) const;
    virtual void getAllProperties(std::list<KRC_Property*>& properties) const;
    virtual void getAllProperties(std::list<QString>& names) const;

    bool exists(QString const& name) const;
    KRC_Property* getProperty(QString const& name) const;
    QString getPropertyString(QString const& name, QString const& defaultValue) const;
    int getPropertyInt(QString const& name, int defaultValue) const;
    double getPropertyDouble(QString const& name, double defaultValue) const;
    bool getPropertyBool(QString const& name, bool defaultValue) const;
    /// The number of properties that getAllProperties delivers, additions included.
    unsigned int propertiesCount() const;
    /// True when every property of `other` is found here under its name with an equal
    /// value. One direction only: properties that only this object has don't count.
    bool propertiesCompare(KRC_PropertiedObject const* other) const;
    /// A Map replaces `target`; a List of key, value, key, value... sets those entries
    /// (a last key without a value is dropped); any other type changes nothing.
    static void qVariantToPropertyList(QVariant const& source, QMap<QString, QVariant>& target);

    /// Takes ownership of `property` (null is ignored and returned).
    KRC_Property* addProperty(KRC_Property* property);
    KRC_Property* addProperty(
        QString const& name, QVariant const& value, KRC_PropertyDefinition* definition = nullptr);
    KRC_Property* addProperty(
        QString const& name, KRC_Property const& source, KRC_PropertyDefinition* definition = nullptr);
    /// A plain property when `possibleValues` gives no choices (the flags are then dropped).
    KRC_Property* addPropertyFromList(QString const& name, QVariant const& value,
        QVariant const& possibleValues, bool allowEmpty, bool allowMultiple,
        KRC_PropertyDefinition* definition = nullptr);
    KRC_Property* addPropertyFromRange(QString const& name, QVariant const& value, QVariant const& min,
        QVariant const& max, KRC_PropertyDefinition* definition = nullptr);
    KRC_Property* addPropertyFromFile(QString const& name, QVariant const& value, QString const& filter,
        KRC_PropertyDefinition* definition = nullptr);
    KRC_Property* addPropertyFromFont(
        QString const& name, QVariant const& value, KRC_PropertyDefinition* definition = nullptr);
    KRC_Property* addPropertyFromCaptionList(
        QString const& name, QVariant const& value, KRC_PropertyDefinition* definition = nullptr);

    // The same with a new definition made of the four descriptive arguments.
    KRC_Property* addProperty(QString const& name, QVariant const& value, QString const& ldesc,
        QString const& sdesc, bool readOnly, bool internal);
    KRC_Property* addProperty(QString const& name, KRC_Property const& source, QString const& ldesc,
        QString const& sdesc, bool readOnly, bool internal);
    KRC_Property* addPropertyFromList(QString const& name, QVariant const& value,
        QVariant const& possibleValues, bool allowEmpty, bool allowMultiple, QString const& ldesc,
        QString const& sdesc, bool readOnly, bool internal);
    KRC_Property* addPropertyFromRange(QString const& name, QVariant const& value, QVariant const& min,
        QVariant const& max, QString const& ldesc, QString const& sdesc, bool readOnly, bool internal);
    KRC_Property* addPropertyFromFile(QString const& name, QVariant const& value, QString const& filter,
        QString const& ldesc, QString const& sdesc, bool readOnly, bool internal);
    KRC_Property* addPropertyFromFont(QString const& name, QVariant const& value, QString const& ldesc,
        QString const& sdesc, bool readOnly, bool internal);
    KRC_Property* addPropertyFromCaptionList(QString const& name, QVariant const& value, QString const& ldesc,
        QString const& sdesc, bool readOnly, bool internal);
    /// A plain property described "Internal", internal, read-only as told.
    KRC_Property* addPropertyInternal(QString const& name, QVariant const& value, bool readOnly);

    /// setValue on the existing property, or a new plain one without a definition.
    void setProperty(QString const& name, QVariant const& value);
    void setProperty(QString const& name, KRC_Property const& value);
    void removeProperty(QString const& name);
    void clearProperties();

    /// Sets this object's `targetName` (or `sourceName` when empty) from the source's
    /// `sourceName`; a missing target is added as a plain property without definition.
    void propertyCopyFrom(
        KRC_PropertiedObject const* source, QString const& sourceName, QString const& targetName);
    /// Sets each same-named property from the source's; with `addMissing`, the others
    /// are added as clones (kind and definition travel).
    void propertiesCopyFrom(KRC_PropertiedObject const* source, bool addMissing);
    /// Clears, then holds clones of all the source's properties in the source's order.
    void propertiesSetFrom(KRC_PropertiedObject const* source);

    bool store(QDomDocument& document, QDomElement& parent) const;
    bool load(QDomElement& element);

private:
    KRC_PropertiedObjectPrivate* d;
};
