// Base of the commands that change one thing in a project file.
#pragma once

#include "Command.h"

#include "host/engine/SC_Id.h"

#include <QJsonObject>

#include <vector>

class KRC_KrolleProject;
class ProjectDocument;

// What every edit shares: FILE, --dry-run and --json, the one load-edit-save path
// (ProjectDocument opened for editing: lock, fingerprint, tracking, atomic save), and
// the report of what the edit did to the names around it (NameChanges). The derived
// command reads its own options, finds its objects and edits through the engine's
// authoring; it returns what it did, and this class notifies, compares the names,
// saves unless it is a dry run, and prints. A dry run makes the edit in memory only
// and leaves the file (and its lock) alone. A refused edit throws before anything is
// saved.
class EditCommand : public Command
{
public:
    // What the edit did: one sentence in the past tense without the file ('removed
    // shot 3 "SH030"'), and the keys of the JSON document that say the same, each
    // object with its name and id.
    struct Outcome
    {
        QString sentence;
        QJsonObject json;
    };

protected:
    EditCommand(const QString& name, const QString& summary);

    virtual Outcome edit(ProjectDocument& document, const ArgumentValues& arguments) = 0;
    // Checks the command line before the file is opened, so that bad usage is said first.
    virtual void checkUsage(const ArgumentValues& arguments) const;

    // The failure of an edit that the engine refused; what: 'remove shot 3 "SH030"'.
    [[noreturn]] static void refused(const QString& what, const QString& error);
    // A length given to an option in frames, or as a timecode duration at --fps; every
    // edit reads lengths through here.
    static unsigned frameCount(const ArgumentValues& arguments, const QString& option);
    // Counts panels as changed by the edit, so that their tracking records are written:
    // the engine reports a move or a retiming as a change of a shot's sequence, which
    // names no panel. Call it after the edit's notify, with ids of panels that exist.
    static void touch(const KRC_KrolleProject& view, const std::vector<SC_Id>& panels);

private:
    ExitStatus run(const ArgumentValues& arguments) final;
};
