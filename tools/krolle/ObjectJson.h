// The JSON form of shots, panels and transitions, shared by every command that shows them.
#pragma once

#include "Timecode.h"

#include <QJsonObject>
#include <QJsonValue>

class KRC_KrolleProject;
namespace Krolle {
class Panel_t;
class Shot_t;
class Trans_t;
} // namespace Krolle

// Describes the library's handles as the JSON objects of the tool's schema
// (docs/tool.md): numbers count from 1 (a panel's inside its shot), frames are
// project frames, names are what the handles answer, "custom" says whether the
// name is stored or computed from the object's place. With a frame rate, each
// object also carries "timecode": {"in", "out", "duration"}. An invalid handle
// gives null. The table forms are made from these objects, so both forms of
// every command always agree.
class ObjectJson
{
public:
    // An invalid clock: no timecodes.
    ObjectJson(const KRC_KrolleProject& view, const Timecode& clock);

    // "fps" (a number, or null without a clock) and, with a clock, "dropFrame" and
    // "startTimecode", into a command's document.
    static void addClock(QJsonObject& document, const Timecode& clock);

    QJsonValue shot(const Krolle::Shot_t& shot, unsigned number) const;
    QJsonValue panel(const Krolle::Panel_t& panel, unsigned number) const;
    // after, before: numbers of the shots on either side, 0 where there is none.
    QJsonValue transition(
        const Krolle::Trans_t& transition, unsigned number, unsigned after, unsigned before) const;
    // An act or a sequence: a run of shots with one name.
    QJsonObject run(const QString& name, unsigned number, unsigned firstShot, unsigned shotCount,
        unsigned firstFrame, unsigned lastFrame) const;

    // The same objects where the caller knows no numbers: asks the view for them.
    QJsonValue shot(const Krolle::Shot_t& shot) const;
    QJsonValue panel(const Krolle::Panel_t& panel) const;
    QJsonValue transition(const Krolle::Trans_t& transition) const;

    // The sequence name of a shot, or null in a project without sequences.
    QJsonValue sequenceOf(const Krolle::Shot_t& shot) const;

private:
    void addFrames(QJsonObject& object, unsigned first, unsigned last) const;

    const KRC_KrolleProject& m_view;
    Timecode m_clock;
};
