// The storyboard as an editorial cut: what the interchange formats write.
#pragma once

#include <QJsonObject>
#include <QString>

#include <vector>

class KRC_KrolleProject;
namespace Krolle {
class Panel_t;
} // namespace Krolle

// One clip of the cut: a panel, or a whole shot.
struct CutClip
{
    QString name; // "SH010/1" by panel, "SH010" by shot
    QString shotName;
    unsigned first = 1; // first project frame the clip shows
    unsigned length = 0; // frames shown; 0 when transitions hide all of it
    unsigned hidden = 0; // frames of the object under a transition, not shown
    bool opensShot = false; // the shot's first clip: it carries the shot's marker
    QString image; // the panel's picture (its first image field's key), empty when none
    QJsonObject facts; // the storyboard's own facts, for the "krolle" metadata
};

// A transition between two clips, cut at the middle of its frames.
struct CutTransition
{
    QString name;
    unsigned length = 0;
    unsigned inOffset = 0; // frames of the dissolve before the cut, within the clip before
    unsigned outOffset = 0; // frames after the cut, within the clip after
    QJsonObject facts;
};

struct CutItem
{
    bool isTransition = false;
    CutClip clip;
    CutTransition transition;
};

// Reads a storyboard through the library's walks into the cut that editorial
// sees: one clip per panel (or per shot) in timeline order, each transition
// between two shots centred on their cut. Under a transition two shots share
// frames; the cut gives the first half of them to the shot before and the rest
// to the shot after, so the clips add up to the storyboard's frame count. The
// offsets are the two halves, shortened where a clip beside them is shorter,
// so that no offset is longer than its clip. A transition before the first or
// after the last shot has no cut to sit on: it goes into the timeline's facts.
// A value; single-threaded.
class StoryboardCut
{
public:
    enum class By
    {
        Panel,
        Shot
    };

    static StoryboardCut read(const KRC_KrolleProject& view, By by, const QString& title);

    QString title;
    unsigned frameCount = 0;
    By by = By::Panel;
    std::vector<CutItem> items;
    QJsonObject facts; // timeline-level facts: naming rules, edge transitions

    // The namespace of the storyboard's facts in every metadata dictionary.
    static const QString kNamespace;
    // A panel's tracking record as facts: {"tracked", "date" (ISO, empty when none), "note"}.
    static QJsonObject trackingOf(const Krolle::Panel_t& panel);
};
