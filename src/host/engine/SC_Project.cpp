#include "host/engine/SC_Project.h"

#include "host/engine/SC_ProjectCommon.h"
#include "host/engine/SC_SceneManager.h"
#include "host/engine/TUScene.h"
#include "host/engine/TUSceneChangeManager.h"
#include "host/engine/TUTimedValue.h"
#include "host/persistence/PIO_Metadatas.h"

#include <algorithm>
#include <memory>
#include <vector>

class SC_Project::SC_ProjectPrivate
{
public:
    std::unique_ptr<SC_ProjectCommon> common;
    PIO_Metadatas metadatas;
    std::vector<UT_SharedPtr<SC_SceneBase>> scenes;
};

SC_Project::SC_Project(TUSceneChangeManager* manager)
    : d(new SC_ProjectPrivate)
{
    d->common = std::make_unique<SC_ProjectCommon>(this, manager);
}

SC_Project::~SC_Project()
{
    d->common->changeManager()->forgetProject(d->common.get());
    // Scenes go in reverse order of making, the top scene last.
    while (!d->scenes.empty())
        d->scenes.pop_back();
    delete d;
}

SC_SceneBase* SC_Project::sceneAt(unsigned index) const
{
    return index < d->scenes.size() ? d->scenes[index].get() : nullptr;
}

unsigned SC_Project::sceneCount() const
{
    return unsigned(d->scenes.size());
}

TUScene* SC_Project::topScene() const
{
    return dynamic_cast<TUScene*>(sceneAt(0));
}

int SC_Project::indexOf(SC_SceneBase const* scene) const
{
    auto it = std::find_if(d->scenes.begin(), d->scenes.end(),
        [scene](UT_SharedPtr<SC_SceneBase> const& held) { return held.get() == scene; });
    return it == d->scenes.end() ? -1 : int(it - d->scenes.begin());
}

SC_ProjectCommon* SC_Project::projectCommon() const
{
    return d->common.get();
}

PIO_Metadatas* SC_Project::metadatas() const
{
    return &d->metadatas;
}

TUScene* SC_Project::createScene(QString const& name, SC_Id const& id)
{
    SC_ProjectCommon* common = d->common.get();
    SC_Id const sceneId = id.isNull() ? common->allocateId() : id;
    if (common->sceneManager()->find(sceneId))
        return nullptr;
    common->reserveId(sceneId);
    auto* scene = new TUScene(common, sceneId, name);
    d->scenes.emplace_back(scene);
    common->sceneManager()->add(scene);
    TUSceneChangeManager* manager = common->changeManager();
    manager->postSceneChanged();
    manager->postTimedValueAdded(scene->sequence());
    return scene;
}

bool SC_Project::removeScene(SC_Id const& id)
{
    SC_ProjectCommon* common = d->common.get();
    SC_SceneBase* scene = common->sceneManager()->find(id);
    int const index = indexOf(scene);
    if (index <= 0)
        return false;
    UT_SharedPtr<SC_SceneBase> held = d->scenes[size_t(index)];
    d->scenes.erase(d->scenes.begin() + index);
    common->sceneManager()->remove(id);
    TUSceneChangeManager* manager = common->changeManager();
    manager->postSceneChanged();
    if (auto* tuScene = dynamic_cast<TUScene*>(scene)) {
        for (TUTimedValue* value : tuScene->timedValues())
            manager->postTimedValueRemoved(value);
    }
    manager->disposeLater(scene);
    return true;
}
