// What the library expects of its host process, set up for one run of the tool.
#pragma once

#include <memory>

class PR_Preference;

// Lives for the length of one command. Registers the library's record factory
// (so that project files read back the library's records) and installs the
// process-wide preference store: an empty store, or the file named by the
// environment variable KROLLE_PREFERENCES (read-only; the tool never writes
// preferences). A damaged preference file is a file error (exit status 2).
// Restores the previous preference object on destruction. The library's rich text
// (info field values read from a file) needs no GUI application, so the tool stays on
// a QCoreApplication and runs without a display (see src/infofields/README.md).
// Single-threaded.
class ToolEnvironment
{
public:
    ToolEnvironment();
    ~ToolEnvironment();
    ToolEnvironment(const ToolEnvironment&) = delete;
    ToolEnvironment& operator=(const ToolEnvironment&) = delete;

    static const char* const kPreferencesVariable;

private:
    std::unique_ptr<PR_Preference> m_preferences;
    PR_Preference* m_previous;
};
