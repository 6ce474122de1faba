// The storyboard's camera manager: the camera of a timeline scene at a frame.
#pragma once

#include "host/engine/HostEngine.h"

class KRC_KrolleProject;
class KRC_SessionContext;

namespace Krolle {
class Shot_t;
}

/// Answers the engine's camera questions for the scenes of the storyboard timeline.
///
/// A shot's camera is its scene's embedded camera composed with the project's default
/// camera, the embedded one on the left. A panel's scene has no camera of its own: for the
/// matrix it is led to its shot, the frame carried over into the shot's frames. The top
/// scene sees the project's default camera for the matrix, but its planes are those of
/// the shot under the frame. Planes are never looked up through a panel: a panel's scene
/// answers false there. Where no project or no shot can be reached the matrix is
/// `defaultMatrix()`.
///
/// Holds no state of its own; every answer reads the session's open view, whose lookups
/// are by frame and id, not walks. Threading: the host's thread, as the view.
class KRC_CameraManager : public SC_CameraManager
{
public:
    explicit KRC_CameraManager(KRC_SessionContext* session);
    KRC_CameraManager(KRC_CameraManager const&) = default;
    KRC_CameraManager& operator=(KRC_CameraManager const&) = default;
    ~KRC_CameraManager() override;

    /// The shot scene's embedded camera at `frame` (a frame of the shot's scene); the
    /// identity for an invalid shot or one without a scene.
    static Math::Matrix4x4 shotEmbeddedCameraMatrix(Krolle::Shot_t const& shot, double frame);
    /// embedded(frame) * the project's default camera; defaultMatrix() for an invalid
    /// shot or one without a scene.
    static Math::Matrix4x4 shotCameraMatrix(Krolle::Shot_t const& shot, double frame);

    Math::Matrix4x4 globalCameraMatrix(SC_SceneCommon* sceneCommon, MO_FrameKey const& frameKey) const override;
    bool cameraPlanes(SC_SceneCommon* sceneCommon, MO_FrameKey const& frameKey, double& nearPlane,
        double& farPlane) const override;

protected:
    KRC_SessionContext* sessionContext() const;
    KRC_KrolleProject* krolleProject() const;
    /// The identity translated by 8/3 along z: the camera where nothing can be reached.
    static Math::Matrix4x4 defaultMatrix();
};
