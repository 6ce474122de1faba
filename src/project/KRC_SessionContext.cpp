#include "project/KRC_SessionContext.h"

// The storyboard camera.
#include "camera/KRC_CameraManager.h"

#include "layers/KRC_PanelLayerManager.h"
#include "project/KRC_KrolleProject.h"
#include "project/KRC_SceneChangeManager.h"

class KRC_SessionContextPrivate
{
public:
    KRC_KrolleProject* krolleProject = nullptr;
};

KRC_SessionContext* KRC_SessionContext::createSessionContext(PLUG_Manager* plugins, AC_Manager* actions)
{
    KRC_SessionContext* session = new KRC_SessionContext(plugins, actions);
    session->init();
    return session;
}

KRC_SessionContext::KRC_SessionContext(PLUG_Manager* plugins, AC_Manager* actions)
    : SC_SessionContext(plugins, actions)
    , d(new KRC_SessionContextPrivate)
{
}

KRC_SessionContext::~KRC_SessionContext()
{
    delete d->krolleProject;
    delete d;
}

void KRC_SessionContext::init()
{
    SC_SessionContext::init();
}

TUSceneChangeManager* KRC_SessionContext::createChangeManager()
{
    return new KRC_SceneChangeManager();
}

SC_CameraManager* KRC_SessionContext::createCameraManager()
{
    // The storyboard's camera: shots compose their embedded camera, panels follow
    // their shot.
    return new KRC_CameraManager(this);
}

KRC_KrolleProject* KRC_SessionContext::createKrolleProject(SC_Project* project)
{
    if (!project)
        return nullptr;
    d->krolleProject = new KRC_KrolleProject(project);
    d->krolleProject->layerManager()->setSelection(selection());
    return d->krolleProject;
}

void KRC_SessionContext::releaseProject()
{
    SC_SessionContext::releaseProject();
    delete d->krolleProject;
    d->krolleProject = nullptr;
    projectManager()->clean();
}

KRC_KrolleProject* KRC_SessionContext::krolleProject() const
{
    return d->krolleProject;
}

KRC_SceneChangeManager* KRC_SessionContext::changeManager() const
{
    return static_cast<KRC_SceneChangeManager*>(SC_SessionContext::changeManager());
}
