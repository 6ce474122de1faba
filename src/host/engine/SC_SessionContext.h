// The engine's session: change manager, camera manager, selection and project manager.
#pragma once

#include "host/base/Math_Matrix4x4.h"
#include "host/base/UT_SharedPtr.h"

#include <QString>

class MO_FrameKey;
class SC_Project;
class SC_SceneCommon;
class SC_SessionContext;
class SL_Selection;
class TUSceneChangeManager;

/// The plug-in registry of the host application. The engine only passes it on.
class PLUG_Manager
{
public:
    virtual ~PLUG_Manager();
};

/// The action registry of the host application. The engine only passes it on.
class AC_Manager
{
public:
    virtual ~AC_Manager();
};

/// Holds the project that the session has open, and opens, makes and saves it.
/// `clean()` drops the project (it dies with its last reference).
class SC_ProjectManager
{
public:
    explicit SC_ProjectManager(SC_SessionContext* session);
    SC_ProjectManager(SC_ProjectManager const&) = delete;
    SC_ProjectManager& operator=(SC_ProjectManager const&) = delete;
    virtual ~SC_ProjectManager();

    SC_Project* currentProject() const;
    /// Makes the given project the open one (null closes it).
    void setCurrentProject(SC_Project* project);
    /// Makes a new project with its top scene, posting to the session's change
    /// manager, and opens it.
    SC_Project* newProject();
    /// Loads a project file and opens it; null with a message in `error` on failure,
    /// leaving the open project as it was.
    SC_Project* openProject(QString const& path, QString* error = nullptr);
    /// Saves the open project; false with a message in `error` on failure.
    bool saveProject(QString const& path, QString* error = nullptr) const;
    /// Drops the open project.
    virtual void clean();

private:
    SC_SessionContext* m_session;
    UT_SharedPtr<SC_Project> m_project;
};

/// The engine's camera manager: the camera of a scene at a frame. This base answers
/// with the scene's embedded camera times the project's default camera, and with the
/// scene's own planes.
class SC_CameraManager
{
public:
    explicit SC_CameraManager(SC_SessionContext* session);
    SC_CameraManager(SC_CameraManager const&) = default;
    SC_CameraManager& operator=(SC_CameraManager const&) = default;
    virtual ~SC_CameraManager();

    /// embedded(frame) * default; the identity for a null scene.
    virtual Math::Matrix4x4 globalCameraMatrix(SC_SceneCommon* scene, MO_FrameKey const& frame) const;
    /// The scene's planes and true; false (outputs untouched) for a null scene.
    virtual bool cameraPlanes(
        SC_SceneCommon* scene, MO_FrameKey const& frame, double& nearPlane, double& farPlane) const;

    SC_SessionContext* sessionContext() const { return m_session; }

private:
    SC_SessionContext* m_session;
};

/// The engine's session: one per application. Derived sessions are made in two steps,
/// construction then init(), which makes the change manager and the camera manager
/// through the virtual create operations (so through the derived class), then the
/// selection and the project manager.
///
/// The session owns all four for its whole life; they serve every project opened in
/// it. Threading: the host's thread.
class SC_SessionContext
{
public:
    SC_SessionContext(PLUG_Manager* plugins, AC_Manager* actions);
    SC_SessionContext(SC_SessionContext const&) = delete;
    SC_SessionContext& operator=(SC_SessionContext const&) = delete;
    virtual ~SC_SessionContext();

    /// Clears the selection and what the change manager holds about the project
    /// being closed.
    virtual void releaseProject();

    TUSceneChangeManager* changeManager() const;
    SC_CameraManager* cameraManager() const;
    SL_Selection* selection() const;
    SC_ProjectManager* projectManager() const;
    PLUG_Manager* plugManager() const;
    AC_Manager* actionManager() const;

protected:
    /// Makes the change manager, the camera manager, the selection and the project
    /// manager; a second call does nothing.
    virtual void init();
    virtual TUSceneChangeManager* createChangeManager();
    virtual SC_CameraManager* createCameraManager();

private:
    class SC_SessionContextPrivate;
    SC_SessionContextPrivate* d;
};
