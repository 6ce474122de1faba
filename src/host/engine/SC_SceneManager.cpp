#include "host/engine/SC_SceneManager.h"

#include "host/engine/TUScene.h"

#include <unordered_map>

class SC_SceneManager::SC_SceneManagerPrivate
{
public:
    std::unordered_map<SC_Id, SC_SceneBase*> scenes;
};

SC_SceneManager::SC_SceneManager()
    : d(new SC_SceneManagerPrivate)
{
}

SC_SceneManager::~SC_SceneManager()
{
    delete d;
}

SC_SceneBase* SC_SceneManager::find(SC_Id const& id) const
{
    auto it = d->scenes.find(id);
    return it == d->scenes.end() ? nullptr : it->second;
}

unsigned SC_SceneManager::count() const
{
    return unsigned(d->scenes.size());
}

bool SC_SceneManager::add(SC_SceneBase* scene)
{
    if (!scene)
        return false;
    return d->scenes.emplace(scene->id, scene).second;
}

bool SC_SceneManager::remove(SC_Id const& id)
{
    return d->scenes.erase(id) > 0;
}
