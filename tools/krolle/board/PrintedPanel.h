// What a printed board says about one panel.
#pragma once

#include "Timecode.h"

#include <QString>
#include <QStringList>
#include <QVector>

class KRC_KrolleProject;
namespace Krolle {
class Panel_t;
} // namespace Krolle

// The facts of one panel as a page shows them, all read from the library: the
// shot's and the panel's names, the act and sequence, the length in frames and
// as a timecode, the chosen info fields as plain text (rich text rendered),
// the key of its picture (its first image field with a value) and, for a panel
// without one, the names of its layers. A plain value; single-threaded.
struct PrintedPanel
{
    QString shot;
    QString panel;
    QString act; // null for an act without a custom name
    QString sequence;
    unsigned length = 0;
    QString duration; // the length as a timecode
    QStringList fields; // "NAME: value", for the chosen fields that have a value
    QString imageKey;
    QStringList layers; // named on the placeholder when the picture is missing

    // `fieldIds`/`fieldNames`: the panel fields to print, in order.
    static PrintedPanel read(const KRC_KrolleProject& view, const Krolle::Panel_t& panel,
        const QVector<int>& fieldIds, const QStringList& fieldNames, const Timecode& clock);
};
