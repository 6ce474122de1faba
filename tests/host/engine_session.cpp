// The engine's session: two-step making through the derived class, the objects it
// owns, releasing a project, the project manager and the base camera manager.
#include "host/engine/HostEngine.h"
#include "support/EngineFixtures.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

// A session that records which of its create operations ran, in order.
class RecordingSession : public SC_SessionContext
{
public:
    static RecordingSession* create()
    {
        auto* session = new RecordingSession;
        session->init();
        return session;
    }

    QStringList calls;

protected:
    RecordingSession()
        : SC_SessionContext(nullptr, nullptr)
    {
    }
    TUSceneChangeManager* createChangeManager() override
    {
        calls << QStringLiteral("changeManager");
        return SC_SessionContext::createChangeManager();
    }
    SC_CameraManager* createCameraManager() override
    {
        calls << QStringLiteral("cameraManager");
        return SC_SessionContext::createCameraManager();
    }
};

TEST(EngineSession, initMakesEverythingThroughTheDerivedClass)
{
    std::unique_ptr<RecordingSession> session(RecordingSession::create());
    EXPECT_EQ(
        session->calls, QStringList({ QStringLiteral("changeManager"), QStringLiteral("cameraManager") }));
    ASSERT_TRUE(session->changeManager() && session->cameraManager() && session->selection()
        && session->projectManager());
    EXPECT_EQ(session->cameraManager()->sessionContext(), session.get());
    EXPECT_EQ(session->projectManager()->currentProject(), nullptr);
}

TEST(EngineSession, projectManagerMakesSavesOpensAndCleans)
{
    std::unique_ptr<RecordingSession> session(RecordingSession::create());
    SC_ProjectManager* projects = session->projectManager();
    SC_Project* made = projects->newProject();
    ASSERT_NE(made, nullptr);
    EXPECT_TRUE(made->projectCommon()->changeManager() == session->changeManager()
        && !session->changeManager()->hasPendingChanges());
    ASSERT_FALSE(HostAuthoring::insertShot(made, 0, { 3, 4 }).isNull());

    QTemporaryDir dir;
    QString const file = dir.filePath(QStringLiteral("p.xml"));
    QString error;
    ASSERT_TRUE(projects->saveProject(file, &error)) << qPrintable(error);
    QString const saved = engineDump(made);

    EXPECT_EQ(projects->openProject(dir.filePath(QStringLiteral("none.xml")), &error), nullptr);
    EXPECT_EQ(projects->currentProject(), made) << "a failed open keeps the open project";
    SC_Project* opened = projects->openProject(file, &error);
    ASSERT_NE(opened, nullptr) << qPrintable(error);
    EXPECT_EQ(engineDump(opened), saved);
    EXPECT_EQ(opened->projectCommon()->changeManager(), session->changeManager());
    projects->clean();
    EXPECT_TRUE(!projects->currentProject() && !projects->saveProject(file, &error));
}

TEST(EngineSession, releaseDropsWhatIsPendingAndTheSessionGoesWithItsOpenProject)
{
    std::unique_ptr<RecordingSession> session(RecordingSession::create());
    HostAuthoring::insertShot(session->projectManager()->newProject(), 0, { 2 });
    EXPECT_TRUE(session->changeManager()->hasPendingChanges());
    {
        EngineChangeRecorder recorder(*session->changeManager());
        session->releaseProject();
        session->changeManager()->notify();
        EXPECT_TRUE(recorder.lines.isEmpty());
    }
    HostAuthoring::insertShot(session->projectManager()->newProject(), 0, { 2 });
    session.reset(); // the project and its pending changes go first, without harm
}

Math::Matrix4x4 shifted(double x, double z)
{
    Math::Matrix4x4 matrix;
    matrix.translate(x, 0, z);
    return matrix;
}

TEST(EngineCamera, baseManagerCombinesEmbeddedAndDefaultCameras)
{
    std::unique_ptr<RecordingSession> session(RecordingSession::create());
    SC_Project* project = session->projectManager()->newProject();
    SC_Id const shot = HostAuthoring::insertShot(project, 0, { 4 });
    TUScene* symbol = HostAuthoring::symbolOf(project, shot);
    Math::Matrix4x4 const projectCamera = shifted(0, 10);
    project->projectCommon()->setDefaultCameraMatrix(projectCamera);
    Math::Matrix4x4 const early = shifted(1, 0);
    Math::Matrix4x4 const late = shifted(2, 0);
    symbol->setEmbeddedCameraKey(2.0, early);
    symbol->setEmbeddedCameraKey(5.0, late);

    SC_CameraManager const* cameras = session->cameraManager();
    for (double frame : { 1.0, 2.0, 4.9, 5.0, 9.0 }) {
        Math::Matrix4x4 embedded;
        symbol->embeddedCameraMatrix(embedded, MO_FrameKey(frame, MO_FrameKey::eExact));
        EXPECT_EQ(embedded, frame < 5 ? early : late) << frame;
        EXPECT_EQ(cameras->globalCameraMatrix(symbol->sceneCommon(), MO_FrameKey(frame, 1)),
            embedded * projectCamera)
            << frame;
    }
    Math::Matrix4x4 none;
    project->topScene()->embeddedCameraMatrix(none, MO_FrameKey(3.0, 1));
    EXPECT_TRUE(none.isIdentity() && cameras->globalCameraMatrix(nullptr, MO_FrameKey(1.0, 1)).isIdentity());

    symbol->sceneCommon()->setCameraPlanes(0.5, 80.0);
    double nearPlane = -1;
    double farPlane = -1;
    EXPECT_TRUE(cameras->cameraPlanes(symbol->sceneCommon(), MO_FrameKey(1.0, 1), nearPlane, farPlane));
    EXPECT_EQ(std::pair(nearPlane, farPlane), std::pair(0.5, 80.0));
    nearPlane = farPlane = -1;
    EXPECT_FALSE(cameras->cameraPlanes(nullptr, MO_FrameKey(1.0, 1), nearPlane, farPlane));
    EXPECT_DOUBLE_EQ(nearPlane, -1);

    symbol->removeEmbeddedCameraKey(2.0);
    Math::Matrix4x4 first;
    symbol->embeddedCameraMatrix(first, MO_FrameKey(1.0, 1));
    EXPECT_EQ(first, late) << "before all keys, the first key holds";
}

} // namespace
