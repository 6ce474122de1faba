// The outline of a storyboard, read from the library's walks.
#pragma once

#include <QJsonObject>
#include <QString>

#include <functional>

class KRC_KrolleProject;
class Timecode;
namespace Krolle {
class Panel_t;
} // namespace Krolle

// Reads a whole project through the library: shots from first to last with
// next(), panels of each shot from its first with next(), the transitions at
// the shots' ends (isPrecededByTrans, isFollowedByTrans), acts and sequences
// as the runs the library finds (hasMoreKRSceneInCurKRAct, lastInAct,
// numOfKRScenesInCurKRAct and their sequence forms), counts from the
// library's counts. The result is the "outline" JSON document of the tool's
// schema; the table form is printed from it.
class StoryboardOutline
{
public:
    // An invalid clock: no timecodes.
    static QJsonObject read(const KRC_KrolleProject& view, const QString& file, const Timecode& clock);
    // The aligned table of an outline document.
    static QString table(const QJsonObject& outline);
    // Puts the panels' visible info field values (plain text) into an outline, as
    // "fields" of each panel, and the column names as "fieldNames".
    static void addFieldValues(QJsonObject& outline, const KRC_KrolleProject& view);
    // Puts what `of` says of each panel into the panel's entry of an outline, under `key`.
    static void addToPanels(QJsonObject& outline, const KRC_KrolleProject& view, const QString& key,
        const std::function<QJsonValue(const Krolle::Panel_t&)>& of);
};
