// The session's camera manager over a live view: shots, panels, the top scene, no project.
#include "camera/KRC_CameraManager.h"
#include "project/KRC_KrolleProject.h"
#include "project/KRC_SceneChangeManager.h"
#include "project/KRC_SessionContext.h"
#include "support/EngineFixtures.h"
#include "support/ProjectInvariants.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

Math::Matrix4x4 scaleX(double factor)
{
    Math::Matrix4x4 matrix;
    matrix.set(0, 0, factor);
    return matrix;
}

Math::Matrix4x4 translated(double x, double z)
{
    return Math::Matrix4x4().translate(x, 0.0, z);
}

// Exposes the static answers the engine does not ask for directly.
struct Camera : KRC_CameraManager
{
    using KRC_CameraManager::defaultMatrix;
};

TEST(CameraManager, AnswersByTheKindOfScene)
{
    std::unique_ptr<KRC_SessionContext> session(KRC_SessionContext::createSessionContext(nullptr, nullptr));
    SC_CameraManager* camera = session->cameraManager();
    HostStoryboard board = engineBoard(QStringLiteral("S[4,4] S[6]"), session->changeManager());
    SC_SceneCommon* any
        = dynamic_cast<TUScene*>(board.project->projectCommon()->sceneManager()->find(board.shots.at(0)))
              ->sceneCommon();
    double nearPlane = -1.0, farPlane = -1.0;
    EXPECT_EQ(Camera::defaultMatrix(), translated(0.0, 8.0 / 3.0));
    EXPECT_EQ(Camera::defaultMatrix(), camera->globalCameraMatrix(any, MO_FrameKey(1.0, 1)));
    EXPECT_FALSE(camera->cameraPlanes(any, MO_FrameKey(1.0, 1), nearPlane, farPlane));

    KRC_KrolleProject* view = session->createKrolleProject(board.project.get());
    board.project->projectCommon()->setDefaultCameraMatrix(translated(1.0, 0.0));
    const Krolle::Shot_t first = view->getShotByID(board.shots.at(0));
    const Krolle::Shot_t second = view->getShotByID(board.shots.at(1));
    first.symbol()->setEmbeddedCameraKey(1.0, scaleX(2.0));
    first.symbol()->setEmbeddedCameraKey(5.0, scaleX(3.0));
    second.symbol()->sceneCommon()->setCameraPlanes(0.5, 50.0);
    session->changeManager()->notify();
    const Krolle::Panel_t panel = view->getPanelByID(board.panels.at(0).at(1));
    SC_SceneCommon* top = view->topScene()->sceneCommon();

    struct Case
    {
        const char* what;
        SC_SceneCommon* scene;
        double frame;
        Math::Matrix4x4 matrix;
        double farPlane; // -1 where no planes are answered
    };
    const Case cases[] = {
        { "shot, first key", first.symbol()->sceneCommon(), 2.0, scaleX(2.0) * translated(1.0, 0.0), 1000.0 },
        { "shot, embedded on the left", first.symbol()->sceneCommon(), 6.0, scaleX(3.0) * translated(1.0, 0.0),
            1000.0 },
        { "shot without keys", second.symbol()->sceneCommon(), 1.0, translated(1.0, 0.0), 50.0 },
        { "panel led to its shot", panel.symbol()->sceneCommon(), 1.0,
            KRC_CameraManager::shotCameraMatrix(first, panel.panelFrameToShotFrame(1.0)), -1.0 },
        { "top scene under the second shot", top, 10.0, translated(1.0, 0.0), 50.0 },
        { "top scene past the end", top, 100.0, translated(1.0, 0.0), -1.0 },
        { "no scene", nullptr, 1.0, Camera::defaultMatrix(), -1.0 },
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(c.matrix, camera->globalCameraMatrix(c.scene, MO_FrameKey(c.frame, 1)));
        nearPlane = farPlane = -1.0;
        EXPECT_EQ(c.farPlane >= 0.0, camera->cameraPlanes(c.scene, MO_FrameKey(c.frame, 1), nearPlane, farPlane));
        EXPECT_EQ(c.farPlane, farPlane);
    }
    // The panel's frame 1 is the shot's frame 5, where the second key stands.
    EXPECT_EQ(scaleX(3.0) * translated(1.0, 0.0),
        camera->globalCameraMatrix(panel.symbol()->sceneCommon(), MO_FrameKey(1.0, 1)));
    // The manager keeps nothing: an edit of the engine shows at once.
    first.symbol()->removeEmbeddedCameraKey(5.0);
    session->changeManager()->notify();
    EXPECT_TRUE(projectViewIsConsistent(*view));
    EXPECT_EQ(scaleX(2.0) * translated(1.0, 0.0),
        camera->globalCameraMatrix(panel.symbol()->sceneCommon(), MO_FrameKey(1.0, 1)));
    EXPECT_EQ(Camera::defaultMatrix(), KRC_CameraManager::shotCameraMatrix(Krolle::Shot_t::invalid, 1.0));
    EXPECT_TRUE(KRC_CameraManager::shotEmbeddedCameraMatrix(Krolle::Shot_t::invalid, 1.0).isIdentity());
}

} // namespace
