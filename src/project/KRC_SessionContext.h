// The storyboard library's session: the entry point of a host application.
#pragma once

#include "host/engine/HostEngine.h"

class KRC_KrolleProject;
class KRC_SceneChangeManager;
class KRC_SessionContextPrivate;

/// One per application. Made by `createSessionContext`, which also makes the change
/// manager and the camera manager; the host then opens each project with
/// `createKrolleProject` and closes it with `releaseProject`.
///
/// The session owns its change manager and camera manager (through its base, for its
/// whole life) and the open project view. The host owns the session. Threading: the
/// host's thread.
class KRC_SessionContext : public SC_SessionContext
{
public:
    /// A new session, initialised; the caller owns it.
    static KRC_SessionContext* createSessionContext(PLUG_Manager* plugins, AC_Manager* actions);
    ~KRC_SessionContext() override;

    /// Closes the open project: the engine's release, then the view is deleted (it
    /// drops its reference on the project), then the project manager is cleaned,
    /// whether or not a view was open.
    void releaseProject() override;

    /// Opens a view over `project` and returns it; null (and nothing changed) for a
    /// null project. A view already open is not deleted: release it first.
    KRC_KrolleProject* createKrolleProject(SC_Project* project);

    /// The open view, or null.
    KRC_KrolleProject* krolleProject() const;
    KRC_SceneChangeManager* changeManager() const;

protected:
    KRC_SessionContext(PLUG_Manager* plugins, AC_Manager* actions);

    void init() override;
    TUSceneChangeManager* createChangeManager() override;
    SC_CameraManager* createCameraManager() override;

private:
    KRC_SessionContextPrivate* d;
};
