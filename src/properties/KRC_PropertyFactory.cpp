#include "properties/KRC_PropertyFactory.h"

#include "properties/KRC_PropertyFromFile.h"
#include "properties/KRC_PropertyFromFont.h"
#include "properties/KRC_PropertyFromList.h"
#include "properties/KRC_PropertyFromRange.h"

KRC_Property* KRC_PropertyFactory::create(int type, QString const& name)
{
    switch (type) {
    case 0:
        return new KRC_Property(name);
    case 1:
        return new KRC_PropertyFromList(name);
    case 2:
        return new KRC_PropertyFromRange(name);
    case 3:
        return new KRC_PropertyFromFile(name);
    case 4:
        return new KRC_PropertyFromFont(name);
    default:
        return nullptr;
    }
}
