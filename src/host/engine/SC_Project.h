// An engine project: its scenes, with the top scene first, and its records.
#pragma once

#include "host/base/UT_ShareBase.h"
#include "host/engine/SC_Id.h"

#include <QString>

class PIO_Metadatas;
class SC_ProjectCommon;
class SC_SceneBase;
class TUScene;
class TUSceneChangeManager;

/// A project of the engine. Scene 0 is the top scene, whose sequence is the
/// storyboard's timeline; the other scenes (symbols of shots, scenes of panels)
/// follow in the order they were made.
///
/// Reference counted with a plain count (UT_ShareBase): hold it with
/// UT_SharedPtr<SC_Project>; it is destroyed with its last reference, and with it its
/// scenes. HostAuthoring::createProject and HostProjectFile::load make projects.
/// Threading: the host's thread.
class SC_Project : public UT_ShareBase
{
public:
    /// An empty project (no scene yet) posting to `manager`, or to a manager of its
    /// own when null.
    explicit SC_Project(TUSceneChangeManager* manager = nullptr);
    SC_Project(SC_Project const&) = delete;
    SC_Project& operator=(SC_Project const&) = delete;
    ~SC_Project() override;

    /// The scene at a position, null past the end. 0 is the top scene.
    SC_SceneBase* sceneAt(unsigned index) const;
    unsigned sceneCount() const;
    /// The top scene, or null while the project has no scene.
    TUScene* topScene() const;
    /// Position of a scene in the project, or -1.
    int indexOf(SC_SceneBase const* scene) const;

    SC_ProjectCommon* projectCommon() const;
    /// The project's record container, never null.
    PIO_Metadatas* metadatas() const;

    /// Makes a scene, appends it and registers it; a null id allots a new one. Posts
    /// sceneChanged and timedValuesAdded for the scene's sequence. Null (nothing
    /// done) when the id is taken.
    TUScene* createScene(QString const& name = QString(), SC_Id const& id = SC_Id());
    /// Removes a scene other than the top scene; posts sceneChanged and
    /// timedValuesRemoved for its timed values. The scene stays alive until the
    /// notify() that reports it has returned. False when there is no such scene or it
    /// is the top scene.
    bool removeScene(SC_Id const& id);

private:
    class SC_ProjectPrivate;
    SC_ProjectPrivate* d;
};
