#include "camera/KRC_CameraManager.h"

#include "project/KRC_KrolleProject.h"
#include "project/KRC_SessionContext.h"
#include "project/Panel_t.h"
#include "project/Shot_t.h"

namespace {

// The engine's conversion of a floating-point frame; the only one this manager uses.
MO_FrameKey::ConversionType const kFrameConversion = MO_FrameKey::eExact;

bool hasScene(Krolle::Shot_t const& shot)
{
    return shot.isValid() && shot.symbol();
}

} // namespace

KRC_CameraManager::KRC_CameraManager(KRC_SessionContext* session)
    : SC_CameraManager(session)
{
}

KRC_CameraManager::~KRC_CameraManager() = default;

KRC_SessionContext* KRC_CameraManager::sessionContext() const
{
    // Only a KRC_SessionContext makes this manager.
    return static_cast<KRC_SessionContext*>(SC_CameraManager::sessionContext());
}

KRC_KrolleProject* KRC_CameraManager::krolleProject() const
{
    KRC_SessionContext* session = sessionContext();
    return session ? session->krolleProject() : nullptr;
}

Math::Matrix4x4 KRC_CameraManager::defaultMatrix()
{
    Math::Matrix4x4 matrix;
    matrix.translate(0.0, 0.0, 8.0 / 3.0);
    return matrix;
}

Math::Matrix4x4 KRC_CameraManager::shotEmbeddedCameraMatrix(Krolle::Shot_t const& shot, double frame)
{
    Math::Matrix4x4 matrix;
    if (hasScene(shot))
        shot.symbol()->embeddedCameraMatrix(matrix, MO_FrameKey(frame, kFrameConversion));
    return matrix;
}

Math::Matrix4x4 KRC_CameraManager::shotCameraMatrix(Krolle::Shot_t const& shot, double frame)
{
    if (!hasScene(shot))
        return defaultMatrix();
    const Math::Matrix4x4 projectCamera = shot.symbol()->projectCommon()->defaultCameraMatrix();
    return shotEmbeddedCameraMatrix(shot, frame) * projectCamera;
}

Math::Matrix4x4 KRC_CameraManager::globalCameraMatrix(
    SC_SceneCommon* sceneCommon, MO_FrameKey const& frameKey) const
{
    KRC_KrolleProject* project = krolleProject();
    if (!sceneCommon || !project)
        return defaultMatrix();
    double frame = frameKey.frame();
    Krolle::Shot_t shot = project->sceneCommonToShot(sceneCommon);
    if (!shot.isValid()) {
        // A panel's scene lives inside its shot: answer the shot's camera at the same time.
        const Krolle::Panel_t panel = project->sceneCommonToPanel(sceneCommon);
        if (panel.isValid()) {
            frame = panel.panelFrameToShotFrame(frameKey.frame());
            shot = panel.shot();
        }
    }
    if (shot.isValid())
        return shotCameraMatrix(shot, frame);
    return project->projectCommon()->defaultCameraMatrix();
}

bool KRC_CameraManager::cameraPlanes(
    SC_SceneCommon* sceneCommon, MO_FrameKey const& frameKey, double& nearPlane, double& farPlane) const
{
    KRC_KrolleProject* project = krolleProject();
    if (!sceneCommon || !project)
        return false;
    Krolle::Shot_t shot;
    TUScene* top = project->topScene();
    if (top && sceneCommon == top->sceneCommon())
        shot = project->getShotAt(frameKey.frameInt(), KRC_KrolleProject::PreferPrevious);
    // Panels are deliberately not led to their shot here: their planes stay unknown.
    if (!shot.isValid())
        shot = project->sceneCommonToShot(sceneCommon);
    if (!hasScene(shot))
        return false;
    shot.symbol()->sceneCommon()->cameraPlanes(nearPlane, farPlane);
    return true;
}
