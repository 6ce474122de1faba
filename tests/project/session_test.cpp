// The session's ownership and order of making and releasing, and the change
// manager's posted events: their order, their pending state and clear().
#include "support/ProjectBoard.h"

#include "project/KRC_KrolleProject.h"
#include "project/KRC_SceneChangeManager.h"
#include "project/KRC_SessionContext.h"

#include <QSignalSpy>
#include <QStringList>

#include <gtest/gtest.h>

#include <memory>

using namespace Krolle;

namespace {

/// Records every event of a storyboard change manager, the engine's sceneChanged
/// included, one line per delivery.
class EventLog
{
public:
    explicit EventLog(KRC_SceneChangeManager& manager)
    {
        auto const record
            = [this](char const* name) { return [this, name] { lines << QString::fromLatin1(name); }; };
        QObject::connect(&manager, &TUSceneChangeManager::sceneChanged, &context, record("sceneChanged"));
        QObject::connect(&manager, &KRC_SceneChangeManager::sceneResized, &context, record("sceneResized"));
        QObject::connect(&manager, &KRC_SceneChangeManager::exportRangeChanged, &context,
            [this](QString const& range) { lines << QStringLiteral("exportRangeChanged ") + range; });
        QObject::connect(&manager, &KRC_SceneChangeManager::cameraKeyframeSelectionChanged, &context,
            record("cameraKeyframeSelectionChanged"));
        QObject::connect(
            &manager, &KRC_SceneChangeManager::projectUnloaded, &context, record("projectUnloaded"));
        QObject::connect(
            &manager, &KRC_SceneChangeManager::externalPanelsDrop, &context, record("externalPanelsDrop"));
        QObject::connect(&manager, &KRC_SceneChangeManager::shotCollapsedUncollapsed, &context,
            record("shotCollapsedUncollapsed"));
    }

    QStringList take()
    {
        QStringList const taken = lines;
        lines.clear();
        return taken;
    }

    QStringList lines;
    QObject context;
};

void postAllInReverse(KRC_SceneChangeManager& manager)
{
    manager.emitShotCollapsedUncollapsed();
    manager.emitExternalPanelsDrop();
    manager.emitProjectUnloaded();
    manager.emitCameraKeyframeSelectionChanged();
    manager.emitExportRangeChanged(QStringLiteral("b"));
    manager.emitExportRangeChanged(QStringLiteral("a"));
    manager.emitSceneResized();
}

QStringList const kAllInOrder = { QStringLiteral("sceneResized"), QStringLiteral("exportRangeChanged b"),
    QStringLiteral("exportRangeChanged a"), QStringLiteral("cameraKeyframeSelectionChanged"),
    QStringLiteral("projectUnloaded"), QStringLiteral("externalPanelsDrop"),
    QStringLiteral("shotCollapsedUncollapsed") };

} // namespace

TEST(ChangeManager, RangesKeepDuplicatesAndFlagsDoNot)
{
    KRC_SceneChangeManager manager;
    QSignalSpy ranges(&manager, &KRC_SceneChangeManager::exportRangeChanged);
    QSignalSpy resized(&manager, &KRC_SceneChangeManager::sceneResized);
    manager.emitExportRangeChanged(QStringLiteral("a"));
    manager.emitExportRangeChanged(QStringLiteral("a"));
    manager.emitSceneResized();
    manager.emitSceneResized();
    manager.notify();
    EXPECT_EQ(std::make_pair(2, 1), std::make_pair(ranges.count(), resized.count()));
    EXPECT_EQ(QStringLiteral("a"), ranges.value(1).value(0).toString());
}

TEST(ChangeManager, NotifyDeliversInOrderUnlessHeldAndClearDropsResizeAndRanges)
{
    KRC_SceneChangeManager manager;
    EventLog log(manager);
    postAllInReverse(manager);
    EXPECT_TRUE(log.lines.isEmpty());
    manager.notify();
    EXPECT_EQ(kAllInOrder, log.take());
    manager.notify();
    EXPECT_TRUE(log.lines.isEmpty());
    {
        TUSceneChangeManager::HoldScope hold(&manager);
        postAllInReverse(manager);
        manager.notify();
        EXPECT_TRUE(log.lines.isEmpty());
    }
    manager.notify();
    EXPECT_EQ(kAllInOrder, log.take());
    postAllInReverse(manager);
    manager.clear();
    manager.notify();
    EXPECT_EQ(kAllInOrder.mid(3), log.take());
}

TEST(ChangeManager, AnEventPostedWhileItIsDeliveredGoesOutAtTheNextNotify)
{
    KRC_SceneChangeManager manager;
    EventLog log(manager);
    int resized = 0;
    int ranges = 0;
    QObject::connect(&manager, &KRC_SceneChangeManager::sceneResized, &log.context, [&] {
        if (resized++ == 0)
            manager.emitSceneResized();
    });
    QObject::connect(&manager, &KRC_SceneChangeManager::exportRangeChanged, &log.context, [&] {
        if (ranges++ == 0)
            manager.emitExportRangeChanged(QStringLiteral("again"));
    });
    manager.emitSceneResized();
    manager.emitExportRangeChanged(QStringLiteral("a"));
    manager.notify();
    EXPECT_EQ((QStringList { "sceneResized", "exportRangeChanged a" }), log.take());
    manager.notify();
    EXPECT_EQ((QStringList { "sceneResized", "exportRangeChanged again" }), log.take());
    manager.notify();
    EXPECT_TRUE(log.lines.isEmpty());
}

TEST(ChangeManager, TheViewHasDroppedItsCachesBeforeTheStoryboardEvents)
{
    ProjectBoard board(QStringLiteral("S[4] S[5]"));
    EventLog log(board.manager);
    Shot_t const before = board->getShotAt(1, KRC_KrolleProject::PreferPrevious);
    bool renewed = false;
    QObject::connect(&board.manager, &KRC_SceneChangeManager::sceneResized, &log.context, [&] {
        Shot_t const now = board->getShotAt(1, KRC_KrolleProject::PreferPrevious);
        renewed = !sharePrivate(now, before);
    });
    ASSERT_TRUE(HostAuthoring::resizeShot(board.project(), board.shot(0), 6));
    board.manager.emitSceneResized();
    board.notify();
    EXPECT_TRUE(renewed);
    EXPECT_EQ((QStringList { "sceneChanged", "sceneResized" }), log.take());
    EXPECT_EQ(6u, board->getShotAt(1, KRC_KrolleProject::PreferPrevious).lastFrame());
}

TEST(Session, OpensAndReleasesAView)
{
    std::unique_ptr<KRC_SessionContext> session(KRC_SessionContext::createSessionContext(nullptr, nullptr));
    ASSERT_NE(nullptr, session->changeManager());
    EXPECT_TRUE(session->changeManager() == session->SC_SessionContext::changeManager()
        && session.get() == session->cameraManager()->sessionContext() && !session->krolleProject());
    SC_Project* project = session->projectManager()->newProject();
    ASSERT_NE(nullptr, project);
    ASSERT_NE(0u, HostAuthoring::insertShot(project, 0, { 3, 4 }).value());
    session->changeManager()->notify();

    KRC_KrolleProject* view = session->createKrolleProject(project);
    ASSERT_NE(nullptr, view);
    EXPECT_TRUE(project == view->project() && view == session->krolleProject());
    EXPECT_EQ(nullptr, session->createKrolleProject(nullptr));
    EXPECT_EQ(5u, view->getPanelAt(5, KRC_KrolleProject::PreferPrevious).lastFrame() - 2);

    // The view listens to the session's manager.
    ASSERT_TRUE(HostAuthoring::insertShot(project, 0, { 2 }).value() != 0);
    session->changeManager()->notify();
    EXPECT_EQ(2u, view->getShotAt(1, KRC_KrolleProject::PreferPrevious).lastFrame());

    session->releaseProject();
    EXPECT_FALSE(session->krolleProject() || session->projectManager()->currentProject());
}

TEST(Session, ReleaseWithoutAViewCleansTheProjectManagerAndDeletingDeletesAnOpenView)
{
    KRC_SessionContext* session = KRC_SessionContext::createSessionContext(nullptr, nullptr);
    ASSERT_NE(nullptr, session->projectManager()->newProject());
    session->releaseProject();
    EXPECT_EQ(nullptr, session->projectManager()->currentProject());
    SC_Project* project = session->projectManager()->newProject();
    QPointer<KRC_KrolleProject> view = session->createKrolleProject(project);
    ASSERT_FALSE(view.isNull());
    delete session;
    EXPECT_TRUE(view.isNull());
}
