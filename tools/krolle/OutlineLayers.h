// The layer counts that `krolle outline --layers` adds to an outline.
#pragma once

#include <QJsonObject>

class KRC_KrolleProject;

// Puts into each panel of an outline document the number of layers that the
// library's layer manager finds in it ("layers"), walking the panels in the
// outline's own order (shot by shot, first to last), and marks the document
// ("layerCounts": true) so that its table shows a column of them.
class OutlineLayers
{
public:
    static void add(QJsonObject& outline, const KRC_KrolleProject& view);
    // The cell of a panel's row; empty when the outline has no counts.
    static QString cell(const QJsonObject& panel);
};
