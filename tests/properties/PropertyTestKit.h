// Shared set-up of the property tests: a described definition and an observer that records.
#pragma once

#include "properties/KRC_Property.h"
#include "properties/KRC_PropertyObserver.h"

#include <utility>
#include <vector>

inline UT_SharedPtr<KRC_PropertyDefinition> testDefinition(
    bool readOnly, bool internal = false, QString const& ldesc = "long", QString const& sdesc = "short")
{
    return UT_SharedPtr<KRC_PropertyDefinition>(new KRC_PropertyDefinition(ldesc, sdesc, readOnly, internal));
}

using PropertyEvents = std::vector<std::pair<char, KRC_Property*>>;

// Records 'm' (modified) and 'd' (deleted) in order; with leaveOnModify it unregisters
// from inside the first notification.
class PropertyRecorder : public KRC_PropertyObserver
{
public:
    void onPropertyModified(KRC_Property* property) override
    {
        events.push_back({ 'm', property });
        if (leaveOnModify)
            unregisterObservable(property);
    }
    void onPropertyDeleted(KRC_Property* property) override { events.push_back({ 'd', property }); }

    PropertyEvents events;
    bool leaveOnModify = false;
};
