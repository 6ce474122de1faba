// Saving and loading a whole engine project as one XML file.
#pragma once

#include "host/base/UT_SharedPtr.h"
#include "host/engine/HostFileFingerprint.h"

#include <QByteArray>
#include <QString>

class SC_Project;
class TUSceneChangeManager;

/// The project file: the whole state of an engine project in one XML document
/// (the form is described in src/host/engine/README.md).
///
/// Saving writes a temporary file beside the target and renames it over the target
/// only once everything is written, so a failed save leaves the previous file as it
/// was. Loading builds a new project and hands it out only when the whole file has
/// been read and checked: a malformed or inconsistent file gives a null project and
/// an error that names the place (line and column, and the scene or block). Loading
/// posts nothing: a loaded project is no edit. Threading: the host's thread.
namespace HostProjectFile {

/// The document of a project; empty, with a sentence in `error`, when a name or a
/// text holds a character that XML cannot carry (a control character, an unpaired
/// surrogate), which the writer would otherwise drop or, worse, write as a document
/// that does not read back.
QByteArray toXml(SC_Project const* project, QString* error = nullptr);
/// A new project from a document, posting to `manager` (a manager of its own when
/// null); null with a message in `error` when the document is refused.
UT_SharedPtr<SC_Project> fromXml(
    QByteArray const& document, QString* error = nullptr, TUSceneChangeManager* manager = nullptr);

/// Saves atomically; false with a message in `error` on failure, the file untouched
/// and no temporary file left. The new file keeps the permission bits of the old one.
/// Refused: a file without write permission, and, given the fingerprint `loaded`
/// took, a file that changed on disk since.
bool save(SC_Project const* project, QString const& path, QString* error = nullptr,
    HostFileFingerprint const* loaded = nullptr);
/// Loads a file, as fromXml, within the limits of PO_XmlLimits (a pipe or a directory
/// is refused before it is opened); `loaded`, when given, receives the file's
/// fingerprint, for HostFileFingerprint::changedOnDisk before a later save.
UT_SharedPtr<SC_Project> load(QString const& path, QString* error = nullptr,
    TUSceneChangeManager* manager = nullptr, HostFileFingerprint* loaded = nullptr);

} // namespace HostProjectFile
