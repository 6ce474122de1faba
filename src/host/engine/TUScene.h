// Scenes of a project: the base of all scenes, the engine scene and its common part.
#pragma once

#include "host/base/Math_Matrix4x4.h"
#include "host/base/UT_ShareBase.h"
#include "host/base/UT_SharedPtr.h"
#include "host/base/UT_SharedWeakPtr.h"
#include "host/engine/HostNodeArena.h"
#include "host/engine/SC_Id.h"

#include <QString>

#include <map>
#include <vector>

class MO_FrameKey;
class PIO_Metadatas;
class SC_ProjectCommon;
class SC_SceneCommon;
class TUGroup;
class TUSeqTimedValue;
class TUTimedValue;

/// Base of every scene of a project. Reference counted (the project holds one
/// reference on each of its scenes) and weak-pointable, so that holders can notice
/// that a scene is gone. `id` is unique in the project and never changes. Scenes,
/// their private parts and common parts live in the HostNodeArena beside their root
/// groups: a walk of the panels reads each panel's scene on the way to its nodes.
class SC_SceneBase : public UT_ShareBase, public UT_SharedWeakBase
{
    HOST_NODE_ARENA_OBJECT

public:
    SC_SceneBase(SC_SceneBase const&) = delete;
    SC_SceneBase& operator=(SC_SceneBase const&) = delete;
    ~SC_SceneBase() override;

    SC_ProjectCommon* projectCommon() const { return m_project; }

    SC_Id const id;

protected:
    SC_SceneBase(SC_ProjectCommon* project, SC_Id const& sceneId);

private:
    SC_ProjectCommon* m_project;
};

/// A scene of the engine: its node tree (through its SC_SceneCommon), its timed
/// values with its sequence first among them, its records and its embedded camera.
///
/// Made by SC_Project::createScene. The scene owns its timed values; a removed one is
/// handed to the change manager and deleted after the notify() that reports it.
/// Threading: the host's thread.
class TUScene : public SC_SceneBase
{
public:
    TUScene(SC_ProjectCommon* project, SC_Id const& sceneId, QString const& name = QString());
    ~TUScene() override;

    QString const& name() const;
    /// Renames the scene; posts sceneChanged when the name differs.
    void setName(QString const& name);

    /// The scene's record container, never null.
    PIO_Metadatas* metadatas() const;
    SC_SceneCommon* sceneCommon() const;
    TUGroup* getRootGroup() const;

    /// Timed values in list order; the sequence is always first.
    std::vector<TUTimedValue*> const& timedValues() const;
    /// The scene's sequence of frame blocks, never null.
    TUSeqTimedValue* sequence() const;
    /// Takes a timed value, appends it and posts timedValuesAdded. A null value, or
    /// one that is already in the list, is ignored.
    void addTimedValue(TUTimedValue* value);
    /// Removes a timed value and posts timedValuesRemoved; the value is deleted after
    /// the next notify() or clear(). False (and nothing done) for the scene's
    /// sequence or a value that is not in the list.
    bool removeTimedValue(TUTimedValue* value);

    /// The embedded camera at a frame: the key at or before the frame, or the first key
    /// for a frame before all keys; the identity when the scene has no key.
    void embeddedCameraMatrix(Math::Matrix4x4& matrix, MO_FrameKey const& frame) const;
    /// Sets the camera key at a frame; posts sceneChanged.
    void setEmbeddedCameraKey(double frame, Math::Matrix4x4 const& matrix);
    /// Removes the key at a frame if there is one; posts sceneChanged.
    void removeEmbeddedCameraKey(double frame);
    std::map<double, Math::Matrix4x4> const& embeddedCameraKeys() const;

private:
    class TUScenePrivate;
    TUScenePrivate* d;
};

/// The part of a scene that nodes and timed values point back to: the root group of
/// the node tree and the scene's camera planes. One per scene, owned by it; its
/// address identifies the scene.
class SC_SceneCommon
{
    HOST_NODE_ARENA_OBJECT

public:
    explicit SC_SceneCommon(TUScene* scene);
    SC_SceneCommon(SC_SceneCommon const&) = delete;
    SC_SceneCommon& operator=(SC_SceneCommon const&) = delete;
    ~SC_SceneCommon();

    /// Root of the scene's node tree, a group named "Top".
    TUGroup* rootGroup() const;
    SC_ProjectCommon* projectCommon() const;
    TUScene* scene() const;

    /// Near and far camera planes (0.1 and 1000.0 until set).
    void cameraPlanes(double& nearPlane, double& farPlane) const;
    /// Sets both planes; posts sceneChanged.
    void setCameraPlanes(double nearPlane, double farPlane);

    /// Drops the node tree; the scene's destructor calls it before its timed values go.
    void releaseRootGroup();

private:
    TUScene* m_scene;
    UT_SharedPtr<TUGroup> m_rootGroup;
    double m_near = 0.1;
    double m_far = 1000.0;
};
