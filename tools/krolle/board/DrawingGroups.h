// How the drawings of a folder become shots and sequences.
#pragma once

#include "interchange/ImportedBoard.h"

#include <QString>
#include <QStringList>

// Cuts a row of drawings (in board order) into shots and sequences by their
// file names. A name is read as an optional sequence prefix ("SQ020_"), a group
// and a trailing number ("SH010_p2", "sh010-2", "forest 3"): the separator
// before the number is "_", "-", " " or "." and the number may carry a "p".
// - By::Image: one shot per drawing, no sequences.
// - By::Shot: neighbouring drawings of one group (case aside) and one sequence
//   make one shot named by the group; a prefix names the shot's sequence.
// - By::Sequence: one shot per drawing; the prefix, or else the group, names
//   its sequence.
// Shots named by no group keep automatic names, and so do all panels. Each
// panel is `length` frames long and holds its key in the image field `field`.
// Pure functions; single-threaded.
class DrawingGroups
{
public:
    enum class By
    {
        Image,
        Shot,
        Sequence,
    };

    struct Parts
    {
        QString sequence; // null without a prefix
        QString group; // the name without its trailing number (all of it without one)
        bool numbered = false;
    };
    // The parts of one file name (its extension is dropped).
    static Parts parts(const QString& fileName);

    // names[i] and keys[i] belong to one drawing.
    static ImportedBoard board(
        const QStringList& names, const QStringList& keys, By by, unsigned length, const QString& field);
};
