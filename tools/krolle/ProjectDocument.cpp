#include "ProjectDocument.h"

#include "EditTracking.h"
#include "ProgressBar.h"
#include "ToolError.h"

#include "host/engine/HostEngine.h"
#include "project/KRC_KrolleProject.h"
#include "project/KRC_SceneChangeManager.h"
#include "project/KRC_SessionContext.h"
#include "tracking/KRC_TrackingManager.h"

#include <QFileInfo>

namespace {

// Files and projects below these sizes load and save too fast for a progress bar.
const qint64 kLargeFileBytes = 4 * 1024 * 1024;
const unsigned kLargeSceneCount = 4000;

} // namespace

ProjectDocument::ProjectDocument()
    : m_session(KRC_SessionContext::createSessionContext(nullptr, nullptr))
{
}

ProjectDocument::~ProjectDocument()
{
    m_tracking.reset();
    m_session->releaseProject();
    m_project = nullptr;
    delete m_session;
}

TUSceneChangeManager* ProjectDocument::changeManager() const
{
    return m_session->changeManager();
}

void ProjectDocument::open(const QString& path)
{
    std::unique_ptr<ProgressBar> progress;
    if (QFileInfo(path).size() >= kLargeFileBytes)
        progress.reset(new ProgressBar(QStringLiteral("loading %1").arg(path), 0));
    QString error;
    UT_SharedPtr<SC_Project> project = HostProjectFile::load(path, &error, changeManager());
    if (!project)
        throw ToolError::file(QStringLiteral("cannot load %1").arg(error));
    m_path = path;
    adopt(project);
    // Edits of a file are tracked; what loading posted is not an edit.
    notify();
    m_tracking = std::make_unique<EditTracking>(*m_view);
}

void ProjectDocument::adopt(const UT_SharedPtr<SC_Project>& project)
{
    m_tracking.reset();
    m_session->releaseProject();
    m_project = project;
    m_view = m_session->createKrolleProject(m_project.get());
    m_view->trackingManager()->init();
}

KRC_KrolleProject& ProjectDocument::view() const
{
    return *m_view;
}

void ProjectDocument::notify() const
{
    changeManager()->notify();
}

void ProjectDocument::save(const QString& path) const
{
    if (m_tracking) {
        notify();
        m_tracking->writeRecords();
    }
    std::unique_ptr<ProgressBar> progress;
    if (m_project->sceneCount() >= kLargeSceneCount)
        progress.reset(new ProgressBar(QStringLiteral("saving %1").arg(path), 0));
    QString error;
    if (!HostProjectFile::save(m_project.get(), path, &error))
        throw ToolError::file(QStringLiteral("cannot save %1").arg(error));
}
