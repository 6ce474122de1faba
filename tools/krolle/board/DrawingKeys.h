// The keys by which a board's image fields name its drawings.
#pragma once

#include "DrawingFolder.h"

#include <QString>
#include <QStringList>

// An image field holds a key: the image's path relative to the project's
// folder. A board made from a folder of drawings either keeps copies of them
// in a folder of its own beside the project file (the default, so that the
// project travels whole) or names them where they are. Failures are
// ToolError::file naming the file. Single-threaded.
class DrawingKeys
{
public:
    // The folder beside the project file that holds its copies: "BOARD_images".
    static QString copyFolder(const QString& projectFile);
    // The key of each drawing once it stands in `where` (its own folder, or the copy folder).
    static QStringList keys(const DrawingFolder& folder, const QString& projectDir, const QString& where);
    // Copies every drawing into `where` (made when missing), replacing older copies;
    // a drawing that already is its own copy is left alone.
    static void copy(const DrawingFolder& folder, const QString& where);

    // Where the tool looks for the picture of a key, in order: the project's folder,
    // where the library resolves keys, and the folder beside the project file, so that
    // a board moved with its pictures still finds them. projectDir may be empty.
    static QStringList searchFolders(const QString& projectFile, const QString& projectDir);
    // The file of `key` in the first of `folders` that holds it; null when none does.
    static QString find(const QString& key, const QStringList& folders);
};
