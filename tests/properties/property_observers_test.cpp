// The two-sided link between properties and observers, and what observers are told.
#include "PropertyTestKit.h"
#include "support/QtWarningCapture.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

// An observer that leaves from inside its first notification does not disturb the others.
TEST(PropertyObservers, EveryAcceptedSetValueIsToldOnceAndRefusalsAreNot)
{
    KRC_Property property("p", 1, nullptr);
    PropertyRecorder leaving;
    leaving.leaveOnModify = true;
    leaving.registerObservable(&property);
    PropertyRecorder recorder;
    recorder.registerObservable(&property);
    recorder.registerObservable(&property);
    EXPECT_EQ(property.observerCount(), 2u);

    property.setValue(1); // same value: still told
    property.setValue(2);
    QtWarningCapture capture;
    property.setValue(QString("x")); // refused
    EXPECT_EQ(recorder.events, PropertyEvents({ { 'm', &property }, { 'm', &property } }));
    EXPECT_EQ(leaving.events.size(), 1u);

    recorder.unregisterObservable(&property);
    recorder.unregisterObservable(&property);
    property.setValue(3);
    EXPECT_EQ(
        std::pair(recorder.events.size(), size_t(property.observerCount())), std::pair(size_t(2), size_t(0)));
}

TEST(PropertyObservers, EitherSideMayBeDestroyedFirst)
{
    PropertyRecorder recorder;
    auto property = std::make_unique<KRC_Property>("p");
    KRC_Property* identity = property.get();
    recorder.registerObservable(identity);
    property.reset();
    EXPECT_EQ(recorder.events, PropertyEvents({ { 'd', identity } }));
    EXPECT_EQ(recorder.observableCount(), 0u);

    KRC_Property survivor("p", 1, nullptr);
    {
        PropertyRecorder shortLived;
        shortLived.registerObservable(&survivor);
        EXPECT_TRUE(survivor.isObservedBy(&shortLived) && shortLived.isObserving(&survivor));
        EXPECT_FALSE(recorder.isObserving(&survivor));
    }
    EXPECT_TRUE(survivor.observerCount() == 0u && survivor.setValue(2));
}

TEST(PropertyObservers, CopiesAreWatchedOnBothSidesAndClonesAreNot)
{
    PropertyRecorder recorder;
    auto original = std::make_unique<KRC_Property>("p", 1, nullptr);
    recorder.registerObservable(original.get());
    {
        KRC_Property copy(*original);
        EXPECT_EQ(recorder.observableCount(), 2u);
        copy.setValue(5);
        std::unique_ptr<KRC_Property> clone(copy.clone());
        EXPECT_TRUE(clone->observerCount() == 0u && clone->toInt() == 5);
    }
    // The copy's change, then its deletion.
    EXPECT_TRUE(recorder.observableCount() == 1u && recorder.events.size() == 2u);
    {
        PropertyRecorder second(recorder); // a copied observer watches the same properties
        EXPECT_EQ(original->observerCount(), 2u);
    }
    EXPECT_EQ(original->observerCount(), 1u);
    original.reset();
    EXPECT_EQ(recorder.observableCount(), 0u);
}

} // namespace
