// Writes names into the library's name records.
#pragma once

#include <QString>

class KRC_ObjectName;
class PIO_Metadata;
class TUSceneChangeManager;

// Gives a KRC_ObjectName a custom name (the text stands) or makes it
// automatic (the library then computes the name from the object's place).
// The locked bit is left as it was.
class NameWriter
{
public:
    // A null or empty value makes the name automatic; any other value custom.
    static void set(KRC_ObjectName& name, const QString& value);
    // Takes the value and the custom bit of another name.
    static void copy(KRC_ObjectName& name, const KRC_ObjectName& from);
    // Posts that the record holding a name changed, as a host posts a rename: a change
    // of the record, not of the panel's content, so no panel counts as touched.
    static void announce(PIO_Metadata& record, TUSceneChangeManager* manager);
};
