#include "host/engine/SC_ProjectCommon.h"

#include "host/context/TUDbSceneData.h"
#include "host/engine/SC_SceneManager.h"
#include "host/engine/TUSceneChangeManager.h"

#include <algorithm>
#include <memory>

class SC_ProjectCommon::SC_ProjectCommonPrivate
{
public:
    SC_Project* project = nullptr;
    TUSceneChangeManager* manager = nullptr;
    std::unique_ptr<TUSceneChangeManager> ownManager;
    SC_SceneManager sceneManager;
    TUDbSceneData dbSceneData;
    Math::Matrix4x4 defaultCamera;
    quint64 nextId = 1;

    void useManager(TUSceneChangeManager* external)
    {
        if (external) {
            manager = external;
            ownManager.reset();
            return;
        }
        if (!ownManager)
            ownManager = std::make_unique<TUSceneChangeManager>();
        manager = ownManager.get();
    }
};

SC_ProjectCommon::SC_ProjectCommon(SC_Project* project, TUSceneChangeManager* manager)
    : d(new SC_ProjectCommonPrivate)
{
    d->project = project;
    d->useManager(manager);
}

SC_ProjectCommon::~SC_ProjectCommon()
{
    delete d;
}

SC_Project* SC_ProjectCommon::project() const
{
    return d->project;
}

TUSceneChangeManager* SC_ProjectCommon::changeManager() const
{
    return d->manager;
}

SC_SceneManager* SC_ProjectCommon::sceneManager() const
{
    return &d->sceneManager;
}

TUDbSceneData* SC_ProjectCommon::dbSceneData() const
{
    return &d->dbSceneData;
}

Math::Matrix4x4 SC_ProjectCommon::defaultCameraMatrix() const
{
    return d->defaultCamera;
}

void SC_ProjectCommon::setDefaultCameraMatrix(Math::Matrix4x4 const& matrix)
{
    d->defaultCamera = matrix;
    d->manager->postSceneChanged();
}

SC_Id SC_ProjectCommon::allocateId()
{
    return SC_Id(d->nextId++);
}

void SC_ProjectCommon::reserveId(SC_Id const& id)
{
    d->nextId = std::max(d->nextId, id.value() + 1);
}

quint64 SC_ProjectCommon::nextIdValue() const
{
    return d->nextId;
}

void SC_ProjectCommon::setChangeManager(TUSceneChangeManager* manager)
{
    if (manager && manager == d->manager)
        return;
    // A manager of the project's own holds nothing but this project's changes.
    if (d->manager == d->ownManager.get())
        d->manager->clear();
    else
        d->manager->forgetProject(this);
    d->useManager(manager);
}
