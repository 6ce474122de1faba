// Printed pages of a storyboard.
#pragma once

#include "Timecode.h"

#include <QPageSize>
#include <QString>
#include <QStringList>

#include <memory>

class KRC_KrolleProject;
class QIODevice;

// How a board is printed.
struct PrintSettings
{
    QPageSize::PageSizeId page = QPageSize::A4;
    bool landscape = false;
    int columns = 2;
    int rows = 3;
    QStringList fields; // panel fields printed under each panel, in order
    QString fromShot; // null: from the first shot
    QString toShot; // null: to the last shot
    Timecode clock { FrameRate(24, 1) }; // of the lengths printed
    QString title; // the project's name in the header
    QString file; // the project file, named in errors
    QStringList imageFolders; // where image keys are looked up, in order
};

// Writes the panels of a project as PDF pages (Qt's own writer, fonts
// embedded): in timeline order, `columns` x `rows` to a page, each page headed
// by the project's name, the acts and sequences on it and "page N of M". A
// panel whose PDF options disable its export is left out. Pages are painted
// and written one at a time, so memory does not grow with their number; a
// progress bar runs for large boards. Needs a QGuiApplication (fonts); an
// unknown shot or field is ToolError::failure. Single-threaded.
class BoardPrinter
{
public:
    BoardPrinter(const KRC_KrolleProject& view, const PrintSettings& settings);
    ~BoardPrinter();
    BoardPrinter(const BoardPrinter&) = delete;
    BoardPrinter& operator=(const BoardPrinter&) = delete;

    // The panels that will be printed and those left out by their options.
    unsigned panelCount() const;
    unsigned leftOut() const;
    unsigned pageCount() const;

    // Prints to the open device; false when the writer fails.
    bool print(QIODevice& out) const;

private:
    struct Private;
    std::unique_ptr<Private> const d;
};
