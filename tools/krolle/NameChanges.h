// What an edit did to the names of the objects it did not name: the "what moved" report.
#pragma once

#include <QJsonArray>

#include <memory>

class KRC_KrolleProject;

// Takes the names the library gives every shot and panel when made, and compares them
// with the names it gives after an edit. Automatic names follow the objects' places, so
// inserting, removing or moving one object renames those around it; this lists each
// object present before and after whose name changed, unless it was custom on both
// sides (a custom name only changes when the edit names it). Objects are matched by id.
// Holds ids and names only, never handles, so it outlives every change. Single-threaded.
class NameChanges
{
public:
    explicit NameChanges(const KRC_KrolleProject& view);
    ~NameChanges();
    NameChanges(const NameChanges&) = delete;
    NameChanges& operator=(const NameChanges&) = delete;

    // One object per changed name, in timeline order, shots before their panels:
    // {"kind", "id", "number", "shot" (a panel's shot number), "before", "after"}.
    // The changes must have been delivered (ProjectDocument::notify).
    QJsonArray since(const KRC_KrolleProject& view) const;

    // The table form of since(): a heading and one row per name; empty without changes.
    static QString table(const QJsonArray& changes);

private:
    struct Private;
    std::unique_ptr<Private> const d;
};
