#include "properties/KRC_PropertyFromFont.h"

KRC_PropertyFromFont::KRC_PropertyFromFont(QString const& name)
    : KRC_Property(name)
{
}

KRC_PropertyFromFont::KRC_PropertyFromFont(
    QString const& name, KRC_Property const& other, UT_SharedPtr<KRC_PropertyDefinition> definition)
    : KRC_Property(name, other, definition)
{
}

KRC_PropertyFromFont::KRC_PropertyFromFont(
    QString const& name, QVariant const& value, UT_SharedPtr<KRC_PropertyDefinition> definition)
    : KRC_Property(name, value, definition)
{
}

KRC_PropertyFromFont::KRC_PropertyFromFont(KRC_PropertyFromFont const& other) = default;

KRC_PropertyFromFont& KRC_PropertyFromFont::operator=(KRC_PropertyFromFont const& other) = default;

KRC_PropertyFromFont::~KRC_PropertyFromFont() = default;

KRC_Property* KRC_PropertyFromFont::clone() const
{
    return new KRC_PropertyFromFont(name(), value(), definition());
}

int KRC_PropertyFromFont::propertyType() const
{
    return 4;
}
