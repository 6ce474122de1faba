// Which panel shows a scene, kept across edits that leave the timeline's blocks alone.
#pragma once

#include "host/Host.h"

#include <memory>

class KRC_KrolleProject;

namespace Krolle {
class Panel_t;
} // namespace Krolle

/// Answers which panel's scene a scene is, as the view's `sceneCommonToPanel` does,
/// without a walk of the project after each change.
///
/// The view drops its own scene-to-panel table on every change, by contract, so the
/// first lookup after any edit walks every panel. Yet only an edit of a sequence (a
/// block inserted, taken, moved, resized or given another scene) can change which
/// panel shows which scene, and the engine reports every such edit as a change of
/// that sequence. This table is made by one walk, keeps for each panel's scene the
/// panel's id and first project frame, and is marked stale by the owner when a
/// changed timed value is the sequence of the top scene or of a shot's symbol (the
/// sequences of the panels' own scenes place no panel). While it is not stale, an answer is a search
/// of the table plus one or two frame lookups of the view, which also check that the
/// panel found there still has that id and shows that scene; a failed check, or a
/// stale table, costs one walk that makes the table anew and answers from it.
///
/// The owner (the tracking manager) must call `noteChanges` with every set of timed
/// values the engine reports, whatever its own state. Threading: the host's thread.
class ScenePanelIndex
{
public:
    explicit ScenePanelIndex(KRC_KrolleProject* view);
    ~ScenePanelIndex();
    ScenePanelIndex(ScenePanelIndex const&) = delete;
    ScenePanelIndex& operator=(ScenePanelIndex const&) = delete;

    /// The panel whose scene has this common part, or the invalid panel.
    Krolle::Panel_t panelOf(SC_SceneCommon const* scene);
    /// Marks the table stale when one of the values is the sequence of the top scene or
    /// of a shot's symbol; true if so.
    bool noteChanges(TUTvSet const& values);
    /// Whether the next answer walks the project.
    bool isStale() const;

private:
    class Private;
    std::unique_ptr<Private> const d;
};
