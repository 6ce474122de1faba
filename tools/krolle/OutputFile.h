// Documents the tool writes beside project files (exports).
#pragma once

#include <QByteArray>
#include <QString>

// Writes a whole document to a file atomically (the new content replaces the
// old only once it is complete), or to standard output for "-" or an empty
// path. A failure is ToolError::file naming the file and the reason.
class OutputFile
{
public:
    static void write(const QString& path, const QByteArray& content);
    static bool isStandardOutput(const QString& path) { return path.isEmpty() || path == QLatin1String("-"); }
};
