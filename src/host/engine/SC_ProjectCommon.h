// The shared part of a project: its managers, its context data, its default camera.
#pragma once

#include "host/base/Math_Matrix4x4.h"
#include "host/engine/SC_Id.h"

class SC_Project;
class SC_SceneManager;
class TUDbSceneData;
class TUSceneChangeManager;

/// What every scene of a project reaches through `projectCommon()`: the change
/// manager that its edits post to, the scene manager that finds scenes by id, the
/// scene context data (name and folder of the project), the default camera and the
/// allotment of ids. Owned by its SC_Project. Threading: the host's thread.
class SC_ProjectCommon
{
public:
    /// `manager` null: the project makes and owns a manager of its own.
    SC_ProjectCommon(SC_Project* project, TUSceneChangeManager* manager);
    SC_ProjectCommon(SC_ProjectCommon const&) = delete;
    SC_ProjectCommon& operator=(SC_ProjectCommon const&) = delete;
    ~SC_ProjectCommon();

    SC_Project* project() const;
    /// Never null.
    TUSceneChangeManager* changeManager() const;
    SC_SceneManager* sceneManager() const;
    TUDbSceneData* dbSceneData() const;

    /// The project's default camera (the identity until set).
    Math::Matrix4x4 defaultCameraMatrix() const;
    /// Sets the default camera; posts sceneChanged.
    void setDefaultCameraMatrix(Math::Matrix4x4 const& matrix);

    /// A new id, never handed out before in this project (ids start at 1).
    SC_Id allocateId();
    /// Makes sure that ids handed out later are above `id` (ids read from a file).
    void reserveId(SC_Id const& id);
    /// The value that the next allocateId() returns.
    quint64 nextIdValue() const;

    /// Moves the project to another manager (null: back to one of its own). What the
    /// previous manager had pending about this project is forgotten.
    void setChangeManager(TUSceneChangeManager* manager);

private:
    class SC_ProjectCommonPrivate;
    SC_ProjectCommonPrivate* d;
};
