// One engine project opened by the tool and seen through the library.
#pragma once

#include "host/base/UT_SharedPtr.h"
#include "host/engine/HostFileFingerprint.h"

#include <QString>
#include <memory>

class QLockFile;

class EditTracking;
class KRC_KrolleProject;
class KRC_SessionContext;
class SC_CameraManager;
class SC_Project;
class TUSceneChangeManager;

// A library session with one project open in it: the project comes from a
// file (open) or from the engine's authoring (adopt, for projects the tool
// generates), and the library's view over it answers every question the
// commands ask. Edits go through the engine and are followed by notify(), so
// the view drops what it cached. Saving goes through the engine's atomic save:
// a failed save leaves the previous file as it was.
// A document opened for editing holds the lock file beside its file ("FILE.lock")
// from the load to its end, so that two edits of one file never interleave; a lock
// held by a live process is refused, one left by a dead process is taken over with a
// note. Its save refuses a file that changed on disk since the load.
// Every edit of an opened file is tracked as a host tracks its commands: the panels it
// touched get their tracking record written before each save (see EditTracking).
// Projects made in memory (adopt) are not tracked: making them is no edit.
// Failures are ToolError::file (exit status 2) naming the file and the place.
// Owns the session, which owns the view; holds one reference on the project.
// Single-threaded.
class ProjectDocument
{
public:
    ProjectDocument();
    ~ProjectDocument();
    ProjectDocument(const ProjectDocument&) = delete;
    ProjectDocument& operator=(const ProjectDocument&) = delete;

    // The manager that projects made for adopt() must post to.
    TUSceneChangeManager* changeManager() const;
    // The session's camera manager, the one the engine asks about cameras.
    SC_CameraManager* cameraManager() const;

    enum class Access
    {
        Read,
        Edit, // the lock is taken before the load and held until the document goes
    };

    // Loads a project file, or standard input for "-" (read only); throws
    // ToolError::file when it is missing, refused or locked.
    void open(const QString& path, Access access = Access::Read);
    // "-": standard input to open(), standard output to save().
    static bool isStandardStream(const QString& path);
    // Opens a view over a project made in memory with changeManager().
    void adopt(const UT_SharedPtr<SC_Project>& project);

    const QString& path() const { return m_path; }
    SC_Project* project() const { return m_project.get(); }
    KRC_KrolleProject& view() const;

    // Delivers the changes posted since the last call, so that the view forgets stale handles.
    void notify() const;
    // Saves atomically to path, or to standard output for "-"; throws ToolError::file
    // when the file cannot be written.
    void save(const QString& path) const;
    // Saves over the file that open() read.
    void save() const { save(m_path); }

private:
    void lock(const QString& path);
    void openStandardInput(Access access);

    KRC_SessionContext* m_session;
    UT_SharedPtr<SC_Project> m_project;
    KRC_KrolleProject* m_view = nullptr;
    std::unique_ptr<EditTracking> m_tracking;
    QString m_path;
    HostFileFingerprint m_loaded;
    std::unique_ptr<QLockFile> m_lock;
};
