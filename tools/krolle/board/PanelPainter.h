// Paints one panel into its cell of a printed page.
#pragma once

#include <QStringList>

#include <memory>

class PageLayout;
class QPainter;
class QRectF;
struct PrintedPanel;

// Draws a panel's picture, scaled into the picture box with its aspect kept,
// or a framed placeholder that names its layers when it has none (or its file
// is missing or unreadable); below it the shot and panel names, the length in
// frames and as a timecode, and the chosen fields, cut with an ellipsis where
// the cell ends. A picture is read from the first of `folders` that holds its
// key, decoded at the print's image resolution (not the file's), drawn, and
// dropped at once, so memory does not grow with the pages. Uses the painter
// it is given; single-threaded.
class PanelPainter
{
public:
    PanelPainter(QPainter& painter, const PageLayout& layout, const QStringList& folders);
    ~PanelPainter();
    PanelPainter(const PanelPainter&) = delete;
    PanelPainter& operator=(const PanelPainter&) = delete;

    void paint(const PrintedPanel& panel, const QRectF& cell) const;
    // Text cut to what fits in `box` with the painter's font, an ellipsis at the cut.
    static QString fitted(const QPainter& painter, const QString& text, const QRectF& box, int flags);

    // Pictures are decoded at this many pixels per inch of paper.
    static const int kImageDpi = 150;

private:
    struct Private;
    std::unique_ptr<Private> const d;
};
