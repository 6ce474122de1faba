// Base of the commands that insert an object beside a named one.
#pragma once

#include "EditCommand.h"

// What insert-shot and insert-panel share: --after NAME | --before NAME,
// --sequence NAME (where to look for the shot), --length FRAMES, and the
// sentences they print; FILE, --dry-run, --json and the names that moved come with
// every edit. The derived command declares its own options, finds the neighbour,
// edits through the engine and names the new object.
class InsertCommand : public EditCommand
{
protected:
    // object: "shot" or "panel", the kind of the named neighbour.
    InsertCommand(const QString& name, const QString& summary, const char* object);

    // The command line's choice of side and length.
    struct Placement
    {
        bool after;
        QString neighbour; // the name given to --after or --before
        QString sequence; // null: any sequence
        unsigned length;
    };
    static Placement placement(const ArgumentValues& arguments);
    void checkUsage(const ArgumentValues& arguments) const override;

    // Throws the failure of an edit that the engine refused.
    [[noreturn]] static void refused(
        const char* object, const Placement& placement, const QString& neighbour, const QString& error);
    // "inserted <label> (<kind> name, frames a-b) after <neighbour>", and the JSON of both objects.
    static Outcome inserted(const QString& label, const QString& proposal, const QJsonValue& object,
        const Placement& placement, const QString& neighbour, const QJsonValue& neighbourObject);

    static const unsigned kDefaultLength = 12;
};
