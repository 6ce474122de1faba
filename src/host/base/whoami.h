// Name of the running program, for the stand-in base library.
#pragma once

class QString;

/// The running program's name, as records store it for their creator.
///
/// A host may set the name once at start-up; until it does, the name is the
/// QCoreApplication's applicationName() when an application exists, otherwise the
/// executable's file name. Returned pointers stay valid for the life of the process,
/// also after a later `setProgName`. Threading: host's thread.
class whoami
{
public:
    static char const* progName();
    /// Sets the name; an empty name goes back to the default.
    static void setProgName(QString const& name);

    whoami() = delete;
};
