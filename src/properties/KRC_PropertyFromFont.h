// A property that holds a font choice.
#pragma once

#include "properties/KRC_Property.h"

/// A KRC_Property (propertyType() 4) that tells an editor to offer a font picker.
/// It adds no state and no constraint; its stream form is that of KRC_Property.
/// Threading: the host's thread.
class KRC_PropertyFromFont : public KRC_Property
{
public:
    explicit KRC_PropertyFromFont(QString const& name);
    KRC_PropertyFromFont(
        QString const& name, KRC_Property const& other, UT_SharedPtr<KRC_PropertyDefinition> definition);
    KRC_PropertyFromFont(
        QString const& name, QVariant const& value, UT_SharedPtr<KRC_PropertyDefinition> definition);
    KRC_PropertyFromFont(KRC_PropertyFromFont const& other);
    KRC_PropertyFromFont& operator=(KRC_PropertyFromFont const& other);
    ~KRC_PropertyFromFont() override;

    KRC_Property* clone() const override;
    int propertyType() const override;
};
