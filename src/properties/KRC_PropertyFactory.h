// Builds an empty property of a kind given by number.
#pragma once

#include <QString>

class KRC_Property;

/// Makes the property class of a propertyType() number, by its constructor from the
/// name alone: 0 KRC_Property, 1 KRC_PropertyFromList, 2 KRC_PropertyFromRange,
/// 3 KRC_PropertyFromFile, 4 KRC_PropertyFromFont. Any other number (5, the caption
/// list, among them) gives null. The caller owns the result. This is how a stored
/// property comes back before it reads its stream. Stateless; any thread.
class KRC_PropertyFactory
{
public:
    static KRC_Property* create(int type, QString const& name);
};
