#include "ProjectDocument.h"

#include "EditTracking.h"
#include "ProgressBar.h"
#include "ToolError.h"

#include "host/engine/HostEngine.h"
#include "project/KRC_KrolleProject.h"
#include "project/KRC_SceneChangeManager.h"
#include "project/KRC_SessionContext.h"
#include "tracking/KRC_TrackingManager.h"

#include "Console.h"
#include "OutputFile.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLockFile>
#include <QTemporaryDir>

namespace {

// Files and projects below these sizes load and save too fast for a progress bar.
const qint64 kLargeFileBytes = 4 * 1024 * 1024;
const unsigned kLargeSceneCount = 4000;

const QFileDevice::Permissions kAnyWrite
    = QFileDevice::WriteOwner | QFileDevice::WriteGroup | QFileDevice::WriteOther;

QString lockAge(const QString& lockPath)
{
    const qint64 seconds = QFileInfo(lockPath).lastModified().secsTo(QDateTime::currentDateTime());
    return QStringLiteral("%1 s").arg(qMax<qint64>(seconds, 0));
}

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

SC_CameraManager* ProjectDocument::cameraManager() const
{
    return m_session->cameraManager();
}

void ProjectDocument::lock(const QString& path)
{
    const QString lockPath = path + QStringLiteral(".lock");
    m_lock.reset(new QLockFile(lockPath));
    // Only a dead holder makes a lock stale: a long save must not look abandoned.
    m_lock->setStaleLockTime(0);
    qint64 pid = 0;
    QString host;
    QString application;
    const bool existed = m_lock->getLockInfo(&pid, &host, &application);
    const QString age = lockAge(lockPath);
    if (m_lock->tryLock(0)) {
        if (existed)
            Console::err(
                QStringLiteral("note: took over the stale lock %1 of process %2, which is gone (%3 old)\n")
                    .arg(lockPath)
                    .arg(pid)
                    .arg(age));
        return;
    }
    if (m_lock->error() == QLockFile::LockFailedError && m_lock->getLockInfo(&pid, &host, &application))
        throw ToolError::file(
            QStringLiteral("%1 is being edited by process %2 on %3 (lock %4, taken %5 ago); "
                           "nothing was changed")
                .arg(path)
                .arg(pid)
                .arg(host, lockPath, lockAge(lockPath)));
    throw ToolError::file(
        QStringLiteral("cannot take the lock %1 beside %2; nothing was changed").arg(lockPath, path));
}

bool ProjectDocument::isStandardStream(const QString& path)
{
    return path == QLatin1String("-");
}

// Standard input is copied to a scratch file, since the engine loads files; errors
// name it as standard input.
void ProjectDocument::openStandardInput(Access access)
{
    if (access == Access::Edit)
        throw ToolError::usage(QStringLiteral("cannot edit standard input: give the project's file"));
    QTemporaryDir scratch;
    const QString copy = scratch.filePath(QStringLiteral("standard-input.xml"));
    OutputFile::write(copy, Console::readIn());
    QString error;
    UT_SharedPtr<SC_Project> project = HostProjectFile::load(copy, &error, changeManager(), &m_loaded);
    if (!project)
        throw ToolError::file(QStringLiteral("cannot load %1").arg(error.replace(copy, QStringLiteral("standard input"))));
    m_path = QStringLiteral("standard input");
    m_loaded = HostFileFingerprint();
    adopt(project);
    notify();
}

void ProjectDocument::open(const QString& path, Access access)
{
    if (isStandardStream(path)) {
        openStandardInput(access);
        return;
    }
    if (access == Access::Edit) {
        lock(path);
        // Said before any work is done; the save checks again, for a change meanwhile.
        const QFileInfo file(path);
        if (file.isFile() && (file.permissions() & kAnyWrite) == 0)
            throw ToolError::file(
                QStringLiteral("cannot edit %1: it is read-only; it is left as it is").arg(path));
    }
    std::unique_ptr<ProgressBar> progress;
    if (QFileInfo(path).size() >= kLargeFileBytes)
        progress.reset(new ProgressBar(QStringLiteral("loading %1").arg(path), 0));
    QString error;
    UT_SharedPtr<SC_Project> project = HostProjectFile::load(path, &error, changeManager(), &m_loaded);
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
    if (isStandardStream(path)) {
        // The engine saves files: save to a scratch file, then copy it out.
        QTemporaryDir scratch;
        const QString copy = scratch.filePath(QStringLiteral("standard-output.xml"));
        save(copy);
        QFile saved(copy);
        if (!saved.open(QIODevice::ReadOnly))
            throw ToolError::file(QStringLiteral("cannot read back %1").arg(copy));
        OutputFile::write(path, saved.readAll());
        return;
    }
    if (m_tracking) {
        notify();
        m_tracking->writeRecords();
    }
    std::unique_ptr<ProgressBar> progress;
    if (m_project->sceneCount() >= kLargeSceneCount)
        progress.reset(new ProgressBar(QStringLiteral("saving %1").arg(path), 0));
    QString error;
    const HostFileFingerprint* loaded = path == m_path && !m_loaded.isNull() ? &m_loaded : nullptr;
    if (!HostProjectFile::save(m_project.get(), path, &error, loaded))
        throw ToolError::file(QStringLiteral("cannot save %1").arg(error));
}
