// The change manager: collection by kind, delivery at notify, clear, holds, and the
// life of removed objects while their removal is delivered.
#include "host/engine/HostEngine.h"
#include "host/persistence/PIO_MetadataGeneric.h"
#include "host/persistence/PIO_Metadatas.h"
#include "support/EngineFixtures.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

// A timed value that reports its own destruction.
class WatchedValue : public TUTimedValue
{
public:
    WatchedValue(SC_SceneCommon* scene, bool* destroyed)
        : TUTimedValue(scene, QStringLiteral("watched"))
        , m_destroyed(destroyed)
    {
    }
    ~WatchedValue() override { *m_destroyed = true; }
    int typeCode() const override { return eAttributeType; }

private:
    bool* m_destroyed;
};

class EngineChanges : public ::testing::Test
{
protected:
    TUSceneChangeManager manager;
    UT_SharedPtr<SC_Project> project = HostAuthoring::createProject(&manager);
    TUScene* top = project->topScene();
};

TEST_F(EngineChanges, nothingGoesOutBeforeNotifyThenEachKindOnceInOrder)
{
    EngineChangeRecorder recorder(manager);
    TUScene* other = project->createScene(QStringLiteral("other"));
    other->sequence()->setName(QStringLiteral("renamed"));
    MO_Node* node = HostNodeAuthoring::addPeg(top->getRootGroup(), QStringLiteral("Peg"));
    manager.postNodeChanged(node);
    manager.postNodeChanged(node);
    manager.postSelectionChanged();
    manager.postTimedValueChanged(top->sequence());
    manager.postTimedValueChanged(other->sequence());
    EXPECT_TRUE(recorder.lines.isEmpty() && manager.hasPendingChanges());

    manager.notify();
    QStringList const lines = recorder.take();
    ASSERT_GE(lines.size(), 5);
    EXPECT_EQ(lines.first(), QStringLiteral("sceneChanged"));
    EXPECT_EQ(lines.last(), QStringLiteral("selectionChanged"));
    EXPECT_TRUE(lines.contains(QStringLiteral("timedValuesAdded 1"))
        && lines.contains(QStringLiteral("timedValuesChanged 2"))
        && lines.contains(QStringLiteral("timedValueNamesChanged 1"))
        && lines.contains(QStringLiteral("nodesChanged 1")))
        << qPrintable(lines.join(' '));
    EXPECT_LT(lines.indexOf(QStringLiteral("timedValuesAdded 1")),
        lines.indexOf(QStringLiteral("timedValuesChanged 2")));
    EXPECT_LT(
        lines.indexOf(QStringLiteral("networkChanged 1")), lines.indexOf(QStringLiteral("nodesChanged 1")));
    EXPECT_EQ(recorder.lastChanged.count(top->sequence()), 1u);
    EXPECT_FALSE(manager.hasPendingChanges());

    manager.notify();
    EXPECT_TRUE(recorder.lines.isEmpty());
}

TEST_F(EngineChanges, clearDropsWhatIsPendingAndDisposesOfRemovedValues)
{
    manager.postSelectionChanged();
    EXPECT_FALSE(manager.hasPendingChanges()) << "a selection alone is no change of the model";
    bool destroyed = false;
    auto* value = new WatchedValue(top->sceneCommon(), &destroyed);
    top->addTimedValue(value);
    top->removeTimedValue(value);
    EngineChangeRecorder recorder(manager);
    manager.postTimedValueChanged(top->sequence());
    manager.markSceneChanged();
    EXPECT_TRUE(manager.hasPendingChanges());
    manager.clear();
    EXPECT_TRUE(destroyed && !manager.hasPendingChanges());
    manager.notify();
    EXPECT_TRUE(recorder.lines.isEmpty());
}

TEST_F(EngineChanges, holdsNestAndKeepEverythingPendingAndListenersPostForTheNextNotify)
{
    QSignalSpy scene(&manager, &TUSceneChangeManager::sceneChanged);
    manager.markSceneChanged();
    {
        TUSceneChangeManager::HoldScope outer(&manager);
        {
            TUSceneChangeManager::HoldScope inner(&manager);
            EXPECT_FALSE(manager.isNotifyEnabled());
            manager.notify();
        }
        EXPECT_FALSE(manager.isNotifyEnabled());
        manager.notify();
        EXPECT_EQ(scene.count(), 0);
    }
    EXPECT_TRUE(manager.isNotifyEnabled());
    EXPECT_EQ(scene.count(), 0) << "releasing the last hold does not notify";
    manager.notify();
    EXPECT_EQ(scene.count(), 1);
    manager.releaseNotify(); // one release too many does no harm
    EXPECT_TRUE(manager.isNotifyEnabled());

    // What a listener posts goes out at the next notify.
    QObject context;
    QObject::connect(&manager, &TUSceneChangeManager::sceneChanged, &context, [&] {
        if (scene.count() == 2) // the spy has seen this one already
            manager.postSceneChanged();
    });
    manager.postSceneChanged();
    std::vector<int> counts;
    for (int i = 0; i < 3; ++i)
        counts.push_back((manager.notify(), scene.count()));
    EXPECT_EQ(counts, std::vector<int>({ 2, 3, 3 }));
}

TEST_F(EngineChanges, metadataChangesCarryRecordAndCode)
{
    auto* record = new PIO_MetadataString(QStringLiteral("note"));
    project->metadatas()->add(record);
    record->emitChanged(&manager, 21);
    record->emitChanged(&manager, 21);
    record->emitChanged(&manager, 4);
    record->emitChanged(nullptr, 9);
    EngineChangeRecorder recorder(manager);
    manager.notify();
    EXPECT_EQ(recorder.lines, QStringList { QStringLiteral("metadataChanged 2") });
    EXPECT_EQ(recorder.lastMetadata.count(PIO_MetaModif(record, 21)), 1u);
    EXPECT_EQ(recorder.lastMetadata.count(PIO_MetaModif(record, 4)), 1u);
}

TEST_F(EngineChanges, nodeChangeAppliedGoesOutOncePerLivingNode)
{
    MO_Node* kept = HostNodeAuthoring::addPeg(top->getRootGroup(), QStringLiteral("Kept"));
    MO_Node* gone = HostNodeAuthoring::addPeg(top->getRootGroup(), QStringLiteral("Gone"));
    manager.clear();
    manager.postNodeChangeApplied(kept);
    manager.postNodeChangeApplied(kept);
    manager.postNodeChangeApplied(gone);
    ASSERT_TRUE(HostNodeAuthoring::removeNode(gone));
    std::vector<MO_Node*> applied;
    QObject context;
    QObject::connect(&manager, &TUSceneChangeManager::nodeChangeApplied, &context,
        [&](MO_Node* node) { applied.push_back(node); });
    manager.notify();
    EXPECT_EQ(applied, std::vector<MO_Node*> { kept });
}

TEST_F(EngineChanges, removedValueLivesUntilItsRemovalIsDelivered)
{
    bool destroyed = false;
    auto* value = new WatchedValue(top->sceneCommon(), &destroyed);
    top->addTimedValue(value);
    EXPECT_FALSE(top->removeTimedValue(top->sequence()) || top->removeTimedValue(nullptr))
        << "the sequence stays";
    manager.notify();

    QString seenName;
    QObject context;
    QObject::connect(
        &manager, &TUSceneChangeManager::timedValuesRemoved, &context, [&](TUTvSet const& values) {
            for (TUTimedValue* removed : values)
                seenName = removed->name();
        });
    ASSERT_TRUE(top->removeTimedValue(value));
    EXPECT_TRUE(top->timedValues().size() == 1u && !destroyed);
    manager.notify();
    EXPECT_TRUE(seenName == QStringLiteral("watched") && destroyed);
}

TEST_F(EngineChanges, removedSceneStaysFindableByPointerUntilNotify)
{
    TUScene* scene = project->createScene(QStringLiteral("doomed"));
    SC_Id const id = scene->id;
    UT_SharedWeakPtr<TUScene> watch(scene);
    manager.notify();
    EXPECT_FALSE(project->removeScene(top->id)) << "the top scene stays";
    ASSERT_TRUE(project->removeScene(id));
    EXPECT_TRUE(
        !project->projectCommon()->sceneManager()->find(id) && project->indexOf(scene) == -1 && watch);
    EngineChangeRecorder recorder(manager);
    manager.notify();
    EXPECT_TRUE(recorder.lines.contains(QStringLiteral("timedValuesRemoved 1")) && !watch);
}

TEST(EngineChangesLifetime, projectGoingAwayTakesItsPendingChangesWithIt)
{
    TUSceneChangeManager manager;
    EngineChangeRecorder recorder(manager);
    {
        HostStoryboard board = engineBoard(QStringLiteral("S[3,4] T1 S[5]"), &manager);
        auto* record = new PIO_MetadataString(QStringLiteral("gone"));
        board.project->metadatas()->add(record);
        record->emitChanged(&manager, 1);
        ASSERT_TRUE(HostAuthoring::removeShot(board.project.get(), board.shots[1]));
        manager.postSelectionChanged();
    }
    manager.notify();
    EXPECT_EQ(
        recorder.lines, QStringList({ QStringLiteral("sceneChanged"), QStringLiteral("selectionChanged") }));
}

TEST(EngineChangesLifetime, projectsMoveBetweenManagers)
{
    TUSceneChangeManager first;
    TUSceneChangeManager second;
    UT_SharedPtr<SC_Project> project = HostAuthoring::createProject(&first);
    EXPECT_FALSE(first.hasPendingChanges()) << "a new project is no edit";
    project->topScene()->sequence()->touch();
    EXPECT_TRUE(first.hasPendingChanges());
    project->projectCommon()->setChangeManager(&second);
    EXPECT_TRUE(!first.hasPendingChanges() && project->projectCommon()->changeManager() == &second);
    project->projectCommon()->setChangeManager(nullptr);
    EXPECT_NE(project->projectCommon()->changeManager(), nullptr);
    EXPECT_NE(project->projectCommon()->changeManager(), &second);
}

} // namespace
