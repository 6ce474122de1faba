// A numeric property bounded by a minimum and a maximum.
#pragma once

#include "properties/KRC_Property.h"

class KRC_PropertyFromRangePrivate;

/// A KRC_Property (propertyType() 2) whose value lies between `min` and `max`, both
/// included. Value, min and max must share one numeric type (Int, UInt, LongLong,
/// ULongLong or Double), in which they are compared.
///
/// The two ends behave differently on purpose: a value above max is clamped to max
/// and accepted (observers are told), a value below min is refused and the previous
/// value stays. validate(true) mends what it can: mismatching types set all three to
/// the integer 0, a value below min is raised to min. The constructors that take a
/// value validate with `fix`, and so do clone() and a stream load. Each problem is
/// reported through qWarning with a fixed text.
/// The stream form adds min and max, each as a QVariant.
/// Threading: the host's thread.
class KRC_PropertyFromRange : public KRC_Property
{
public:
    explicit KRC_PropertyFromRange(QString const& name);
    KRC_PropertyFromRange(QString const& name, KRC_Property const& other, QVariant const& min,
        QVariant const& max, UT_SharedPtr<KRC_PropertyDefinition> definition);
    KRC_PropertyFromRange(QString const& name, QVariant const& value, QVariant const& min,
        QVariant const& max, UT_SharedPtr<KRC_PropertyDefinition> definition);
    KRC_PropertyFromRange(KRC_PropertyFromRange const& other);
    KRC_PropertyFromRange& operator=(KRC_PropertyFromRange const& other);
    ~KRC_PropertyFromRange() override;

    using KRC_Property::load;
    using KRC_Property::store;
    bool validate(bool fix) override;
    bool store(QDataStream& out) const override;
    bool load(QDataStream& in) override;
    KRC_Property* clone() const override;
    int propertyType() const override;

    QVariant const& min() const;
    QVariant const& max() const;

private:
    KRC_PropertyFromRangePrivate* d;
};
