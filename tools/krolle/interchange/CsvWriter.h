// Shot lists as CSV.
#pragma once

#include <QJsonObject>
#include <QString>

// Writes the shots or panels of an outline (StoryboardOutline::read, with
// timecodes) as CSV after RFC 4180: UTF-8, a header row, CRLF line ends,
// fields quoted where they hold a comma, a quote or a line end. One row per
// panel (or per shot) with act, sequence, shot, panel, first and last frame,
// length, timecodes in and out, then one column per panel info field the
// outline carries (StoryboardOutline::addFieldValues), empty on shot rows, and
// the panel's tracking flag and date (the outline's "tracking" of each panel).
class CsvWriter
{
public:
    static QString write(const QJsonObject& outline, bool byShot);
};
