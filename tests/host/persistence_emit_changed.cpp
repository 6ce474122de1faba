// A record's change reaches the scene engine's change manager.
#include "host/engine/HostEngine.h"
#include "host/persistence/HostPersistence.h"

#include <gtest/gtest.h>

namespace {

TEST(PersistenceEmitChanged, ReachesTheManagerWithItsCode)
{
    TUSceneChangeManager manager;
    PIO_MetadataBool record(QStringLiteral("autoPanelTracking"));
    std::vector<TUMetadataSet> delivered;
    QObject::connect(&manager, &TUSceneChangeManager::metadataChanged,
        [&](TUMetadataSet const& records) { delivered.push_back(records); });

    record.emitChanged(nullptr, 3); // no manager: nothing happens
    record.emitChanged(&manager, 6);
    record.emitChanged(&manager, 5);
    EXPECT_TRUE(delivered.empty()); // the manager collects until notify
    manager.notify();
    ASSERT_EQ(delivered.size(), 1u);
    EXPECT_EQ(delivered.front(), (TUMetadataSet { PIO_MetaModif(&record, 5), PIO_MetaModif(&record, 6) }));
}

} // namespace
