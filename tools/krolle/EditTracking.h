// Records which panels the tool's own edits touched, as a host does around its commands.
#pragma once

#include <QDateTime>

#include <memory>

class KRC_KrolleProject;

// Opens the view's tracking scope for the length of a document's edit, and before a save
// writes the tracking record of each panel the edit touched: the date of its last change
// and the flag the tracking manager gave it. The time is the clock's, or the ISO date in
// the environment variable KROLLE_NOW (so that outputs can be compared). Owned by a
// ProjectDocument; single-threaded.
class EditTracking
{
public:
    explicit EditTracking(KRC_KrolleProject& view);
    ~EditTracking();
    EditTracking(const EditTracking&) = delete;
    EditTracking& operator=(const EditTracking&) = delete;

    // Writes the records of the panels touched since the last call, reports them to the
    // engine and starts gathering afresh. The changes must have been delivered.
    void writeRecords();

    // The time the tool stamps its records with.
    static QDateTime now();
    static const char* const kNowVariable;

private:
    struct Private;
    std::unique_ptr<Private> const d;
};
