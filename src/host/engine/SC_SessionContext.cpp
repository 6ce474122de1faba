#include "host/engine/SC_SessionContext.h"

#include "host/engine/HostAuthoring.h"
#include "host/engine/HostProjectFile.h"
#include "host/engine/MO_FrameKey.h"
#include "host/engine/SC_Project.h"
#include "host/engine/SC_ProjectCommon.h"
#include "host/engine/SL_Selection.h"
#include "host/engine/TUScene.h"
#include "host/engine/TUSceneChangeManager.h"

#include <memory>

PLUG_Manager::~PLUG_Manager() = default;

AC_Manager::~AC_Manager() = default;

SC_ProjectManager::SC_ProjectManager(SC_SessionContext* session)
    : m_session(session)
{
}

SC_ProjectManager::~SC_ProjectManager() = default;

SC_Project* SC_ProjectManager::currentProject() const
{
    return m_project.get();
}

void SC_ProjectManager::setCurrentProject(SC_Project* project)
{
    m_project = project;
}

SC_Project* SC_ProjectManager::newProject()
{
    m_project = HostAuthoring::createProject(m_session ? m_session->changeManager() : nullptr);
    return m_project.get();
}

SC_Project* SC_ProjectManager::openProject(QString const& path, QString* error)
{
    UT_SharedPtr<SC_Project> loaded
        = HostProjectFile::load(path, error, m_session ? m_session->changeManager() : nullptr);
    if (!loaded)
        return nullptr;
    m_project = loaded;
    return m_project.get();
}

bool SC_ProjectManager::saveProject(QString const& path, QString* error) const
{
    if (!m_project) {
        if (error)
            *error = QStringLiteral("no project is open");
        return false;
    }
    return HostProjectFile::save(m_project.get(), path, error);
}

void SC_ProjectManager::clean()
{
    m_project.reset();
}

SC_CameraManager::SC_CameraManager(SC_SessionContext* session)
    : m_session(session)
{
}

SC_CameraManager::~SC_CameraManager() = default;

Math::Matrix4x4 SC_CameraManager::globalCameraMatrix(SC_SceneCommon* scene, MO_FrameKey const& frame) const
{
    if (!scene || !scene->scene())
        return Math::Matrix4x4();
    Math::Matrix4x4 embedded;
    scene->scene()->embeddedCameraMatrix(embedded, frame);
    SC_ProjectCommon* project = scene->projectCommon();
    return project ? embedded * project->defaultCameraMatrix() : embedded;
}

bool SC_CameraManager::cameraPlanes(
    SC_SceneCommon* scene, MO_FrameKey const&, double& nearPlane, double& farPlane) const
{
    if (!scene)
        return false;
    scene->cameraPlanes(nearPlane, farPlane);
    return true;
}

class SC_SessionContext::SC_SessionContextPrivate
{
public:
    PLUG_Manager* plugins = nullptr;
    AC_Manager* actions = nullptr;
    std::unique_ptr<TUSceneChangeManager> changeManager;
    std::unique_ptr<SC_CameraManager> cameraManager;
    std::unique_ptr<SL_Selection> selection;
    std::unique_ptr<SC_ProjectManager> projectManager;
};

SC_SessionContext::SC_SessionContext(PLUG_Manager* plugins, AC_Manager* actions)
    : d(new SC_SessionContextPrivate)
{
    d->plugins = plugins;
    d->actions = actions;
}

SC_SessionContext::~SC_SessionContext()
{
    // The selection lets go of the project's nodes, then the open project goes,
    // before the managers that it posts to.
    if (d->selection)
        d->selection->clear();
    if (d->projectManager)
        d->projectManager->clean();
    d->projectManager.reset();
    d->selection.reset();
    d->cameraManager.reset();
    d->changeManager.reset();
    delete d;
}

void SC_SessionContext::releaseProject()
{
    if (d->selection)
        d->selection->clear();
    if (d->changeManager)
        d->changeManager->clear();
}

TUSceneChangeManager* SC_SessionContext::changeManager() const
{
    return d->changeManager.get();
}

SC_CameraManager* SC_SessionContext::cameraManager() const
{
    return d->cameraManager.get();
}

SL_Selection* SC_SessionContext::selection() const
{
    return d->selection.get();
}

SC_ProjectManager* SC_SessionContext::projectManager() const
{
    return d->projectManager.get();
}

PLUG_Manager* SC_SessionContext::plugManager() const
{
    return d->plugins;
}

AC_Manager* SC_SessionContext::actionManager() const
{
    return d->actions;
}

void SC_SessionContext::init()
{
    if (d->changeManager)
        return;
    d->changeManager.reset(createChangeManager());
    d->cameraManager.reset(createCameraManager());
    d->selection = std::make_unique<SL_Selection>(d->changeManager.get());
    d->projectManager = std::make_unique<SC_ProjectManager>(this);
}

TUSceneChangeManager* SC_SessionContext::createChangeManager()
{
    return new TUSceneChangeManager;
}

SC_CameraManager* SC_SessionContext::createCameraManager()
{
    return new SC_CameraManager(this);
}
