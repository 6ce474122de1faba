#include "host/engine/TUScene.h"

#include "host/engine/MO_FrameKey.h"
#include "host/engine/MO_Node.h"
#include "host/engine/SC_ProjectCommon.h"
#include "host/engine/TUSceneChangeManager.h"
#include "host/engine/TUTimedValue.h"
#include "host/persistence/PIO_Metadatas.h"

#include <algorithm>
#include <memory>

namespace {

TUSceneChangeManager* managerOf(SC_ProjectCommon const* project)
{
    return project ? project->changeManager() : nullptr;
}

void postSceneChange(SC_ProjectCommon const* project)
{
    if (TUSceneChangeManager* manager = managerOf(project))
        manager->postSceneChanged();
}

} // namespace

SC_SceneBase::SC_SceneBase(SC_ProjectCommon* project, SC_Id const& sceneId)
    : UT_SharedWeakBase(HostNodeArena::trackers())
    , id(sceneId)
    , m_project(project)
{
}

SC_SceneBase::~SC_SceneBase() = default;

class TUScene::TUScenePrivate
{
    HOST_NODE_ARENA_OBJECT

public:
    QString name;
    std::unique_ptr<PIO_Metadatas> metadatas;
    std::unique_ptr<SC_SceneCommon> sceneCommon;
    std::vector<TUTimedValue*> timedValues;
    std::map<double, Math::Matrix4x4> cameraKeys;
};

TUScene::TUScene(SC_ProjectCommon* project, SC_Id const& sceneId, QString const& name)
    : SC_SceneBase(project, sceneId)
    , d(new TUScenePrivate)
{
    d->name = name;
    d->metadatas = std::make_unique<PIO_Metadatas>();
    d->sceneCommon = std::make_unique<SC_SceneCommon>(this);
    d->timedValues.push_back(new TUSeqTimedValue(d->sceneCommon.get()));
}

TUScene::~TUScene()
{
    // Nodes go first: they may point to timed values, never the other way round.
    d->sceneCommon->releaseRootGroup();
    for (TUTimedValue* value : d->timedValues)
        delete value;
    delete d;
}

QString const& TUScene::name() const
{
    return d->name;
}

void TUScene::setName(QString const& name)
{
    if (name == d->name)
        return;
    d->name = name;
    postSceneChange(projectCommon());
}

PIO_Metadatas* TUScene::metadatas() const
{
    return d->metadatas.get();
}

SC_SceneCommon* TUScene::sceneCommon() const
{
    return d->sceneCommon.get();
}

TUGroup* TUScene::getRootGroup() const
{
    return d->sceneCommon->rootGroup();
}

std::vector<TUTimedValue*> const& TUScene::timedValues() const
{
    return d->timedValues;
}

TUSeqTimedValue* TUScene::sequence() const
{
    return static_cast<TUSeqTimedValue*>(d->timedValues.front());
}

void TUScene::addTimedValue(TUTimedValue* value)
{
    auto& values = d->timedValues;
    if (!value || std::find(values.begin(), values.end(), value) != values.end())
        return;
    values.push_back(value);
    if (TUSceneChangeManager* manager = managerOf(projectCommon()))
        manager->postTimedValueAdded(value);
}

bool TUScene::removeTimedValue(TUTimedValue* value)
{
    auto& values = d->timedValues;
    auto it = std::find(values.begin(), values.end(), value);
    if (it == values.end() || it == values.begin())
        return false;
    values.erase(it);
    TUSceneChangeManager* manager = managerOf(projectCommon());
    if (!manager) {
        delete value;
        return true;
    }
    manager->postTimedValueRemoved(value);
    manager->disposeLater(value);
    return true;
}

void TUScene::embeddedCameraMatrix(Math::Matrix4x4& matrix, MO_FrameKey const& frame) const
{
    auto const& keys = d->cameraKeys;
    if (keys.empty()) {
        matrix = Math::Matrix4x4();
        return;
    }
    auto it = keys.upper_bound(frame.frame());
    if (it != keys.begin())
        --it;
    matrix = it->second;
}

void TUScene::setEmbeddedCameraKey(double frame, Math::Matrix4x4 const& matrix)
{
    d->cameraKeys[frame] = matrix;
    postSceneChange(projectCommon());
}

void TUScene::removeEmbeddedCameraKey(double frame)
{
    if (d->cameraKeys.erase(frame))
        postSceneChange(projectCommon());
}

std::map<double, Math::Matrix4x4> const& TUScene::embeddedCameraKeys() const
{
    return d->cameraKeys;
}

SC_SceneCommon::SC_SceneCommon(TUScene* scene)
    : m_scene(scene)
{
    m_rootGroup = new TUGroup(this, QStringLiteral("Top"));
}

SC_SceneCommon::~SC_SceneCommon() = default;

TUGroup* SC_SceneCommon::rootGroup() const
{
    return m_rootGroup.get();
}

SC_ProjectCommon* SC_SceneCommon::projectCommon() const
{
    return m_scene ? m_scene->projectCommon() : nullptr;
}

TUScene* SC_SceneCommon::scene() const
{
    return m_scene;
}

void SC_SceneCommon::cameraPlanes(double& nearPlane, double& farPlane) const
{
    nearPlane = m_near;
    farPlane = m_far;
}

void SC_SceneCommon::setCameraPlanes(double nearPlane, double farPlane)
{
    if (nearPlane == m_near && farPlane == m_far)
        return;
    m_near = nearPlane;
    m_far = farPlane;
    postSceneChange(projectCommon());
}

void SC_SceneCommon::releaseRootGroup()
{
    m_rootGroup.reset();
}
