// A property whose value is chosen from a list of possible values.
#pragma once

#include "properties/KRC_Property.h"

#include <QMap>

class KRC_PropertyFromListPrivate;

/// A KRC_Property (propertyType() 1) with a map of possible values (key: the caption
/// shown to the user) and two editor hints, allowEmpty and allowMultiple.
///
/// validate() checks types, not membership: the value (or, with allowMultiple and a
/// list value, its first element) must have the type of every possible value; an
/// invalid type fails, an empty map passes. With `fix` a mismatching value becomes
/// invalid. The constructors that take a value validate with `fix`, and so do clone()
/// and a stream load. allowEmpty is only stored and handed on.
/// The stream form adds the map as one QVariant, then allowEmpty and allowMultiple.
/// The script form is two lines: "var possValues = new Array( key, value, ... );" and
/// an "addPropertyFromList" call that names "possibleValues", as the host expects.
/// Threading: the host's thread.
class KRC_PropertyFromList : public KRC_Property
{
public:
    explicit KRC_PropertyFromList(QString const& name);
    KRC_PropertyFromList(QString const& name, KRC_Property const& other,
        QMap<QString, QVariant> const& possibleValues, bool allowEmpty, bool allowMultiple,
        UT_SharedPtr<KRC_PropertyDefinition> definition);
    KRC_PropertyFromList(QString const& name, QVariant const& value,
        QMap<QString, QVariant> const& possibleValues, bool allowEmpty, bool allowMultiple,
        UT_SharedPtr<KRC_PropertyDefinition> definition);
    KRC_PropertyFromList(KRC_PropertyFromList const& other);
    KRC_PropertyFromList& operator=(KRC_PropertyFromList const& other);
    ~KRC_PropertyFromList() override;

    using KRC_Property::load;
    using KRC_Property::store;
    bool validate(bool fix) override;
    bool store(QDataStream& out) const override;
    bool load(QDataStream& in) override;
    KRC_Property* clone() const override;
    QString regenarationScript(QString const& objectName) override;
    int propertyType() const override;

    QMap<QString, QVariant> const& possibleValues() const;
    bool allowEmpty() const;
    bool allowMultiple() const;

private:
    KRC_PropertyFromListPrivate* d;
};
