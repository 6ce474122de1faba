// The drawings of a folder, as a board made from them takes them.
#pragma once

#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

// The image files of one folder (not its subfolders, nor its hidden files), in natural
// order of their names (NaturalOrder). A file is taken when Qt recognises an
// image format by its content and can read its size from the header; the
// pixels themselves are not decoded here, so listing a folder of large images
// stays quick. Every other file is named in `skipped`, one sentence each, with
// the reason. A folder that is missing or unreadable is ToolError::file.
// A plain value; single-threaded.
struct DrawingFolder
{
    struct Drawing
    {
        QString path; // as found: the folder's path joined with the file name
        QString fileName;
        QSize size;
    };

    QVector<Drawing> drawings;
    QStringList skipped;

    static DrawingFolder read(const QString& folder);
};
