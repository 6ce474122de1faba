// The engine's edit operations on timelines: projects, shots, panels, transitions, warps.
#pragma once

#include "host/base/UT_SharedPtr.h"
#include "host/engine/AT_FrameBlock.h"
#include "host/engine/SC_Id.h"

#include <QString>

#include <vector>

class SC_Project;
class TUScene;
class TUSceneChangeManager;

/// Edits of the storyboard-shaped timeline, as the engine's own commands make them.
///
/// Model. The top scene's sequence holds shot blocks and transition blocks. A shot
/// shows its symbol scene through an AT_TimeWarpSeq; the symbol's sequence holds one
/// block per panel, each showing the panel's own scene through a warp [1, length].
/// The id of a shot is its symbol's id, the id of a panel its scene's id.
///
/// Positions. Shots are counted from 0 among the blocks of the top sequence that are
/// not transitions. A junction is a place between shots: junction 0 is before the
/// first shot, junction k (0 < k < shot count) between shots k-1 and k, junction
/// `shotCount` after the last. A junction holds at most one transition. An inner
/// transition of length L overlaps the last L frames of the shot before it and the
/// first L frames of the shot after it (which therefore starts L frames earlier); one
/// at either end overlaps its shot only. Every shot keeps at least one frame outside
/// its transitions. Refusals, written for people, number shots from 1 ("shot 1" is the
/// shot at position 0).
///
/// A shot "follows its symbol" while its warp is [1, n] over a block of n frames, n
/// being the length of the symbol's sequence: panel edits on such a shot resize the
/// shot with them, and resizing such a shot resizes its last panel. Shots with another
/// warp keep their block when their panels change.
///
/// Each operation either does its whole edit, posting what the engine posts
/// (timedValuesChanged for each sequence touched, sceneChanged, timedValuesAdded and
/// timedValuesRemoved for scenes made and removed), or refuses it: it then changes
/// nothing, posts nothing, and says why in `error` when given. Nothing goes out before
/// the change manager's notify(). Threading: the host's thread.
namespace HostAuthoring {

/// A new project with its top scene (named "Top"), posting to `manager`, or to a
/// manager of its own when null. The making is not posted: a new project is no edit.
UT_SharedPtr<SC_Project> createProject(TUSceneChangeManager* manager = nullptr);

// Reading the timeline (no posting).

unsigned shotCount(SC_Project const* project);
/// The shot at a position, or the null id.
SC_Id shotId(SC_Project const* project, unsigned shotIndex);
/// Position of a shot, or -1.
int shotIndex(SC_Project const* project, SC_Id const& shot);
/// The symbol scene of a shot, or null.
TUScene* symbolOf(SC_Project const* project, SC_Id const& shot);
unsigned panelCount(SC_Project const* project, SC_Id const& shot);
/// The panel at a position in a shot, or the null id.
SC_Id panelId(SC_Project const* project, SC_Id const& shot, unsigned panelIndex);
/// The shot that holds a panel, or the null id.
SC_Id shotOfPanel(SC_Project const* project, SC_Id const& panel);
/// The transition at a junction, or the null id.
SC_Id transitionAt(SC_Project const* project, unsigned junction);

// Shots.

/// Inserts a shot at a position (`shotCount` appends) with one panel per entry of
/// `panelLengths` (each at least 1 frame, at least one panel). The shot follows its
/// symbol. Refused where a transition holds the junction. Returns the shot's id, or
/// the null id when refused.
///
/// `ids` restores objects a host had before (an undo, a pasted or imported board): the
/// shot's id first, then its panels' in order. An id that is null, missing, or used by
/// another object of the project is allotted anew, so ids stay unique.
SC_Id insertShot(SC_Project* project, unsigned shotIndex, std::vector<unsigned> const& panelLengths,
    QString* error = nullptr, std::vector<SC_Id> const& ids = {});
/// Appends shots after the last one, as insertShot at the end would one by one, in time
/// linear in what is added (for builders and importers); `ids` per shot as insertShot's.
/// Returns the new shots' ids, or an empty list when refused (nothing is then added);
/// `panelIds`, when given, receives the ids of their panels.
std::vector<SC_Id> appendShots(SC_Project* project, std::vector<std::vector<unsigned>> const& panelLengths,
    QString* error = nullptr, std::vector<std::vector<SC_Id>> const& ids = {},
    std::vector<std::vector<SC_Id>>* panelIds = nullptr);
/// Removes a shot with its symbol and panel scenes, and the transitions at both its
/// ends; the shots after it move up to close the gap.
bool removeShot(SC_Project* project, SC_Id const& shot, QString* error = nullptr);
/// Moves a shot so that it stands at `newIndex` among the shots afterwards, keeping
/// its id, symbol and panels. The transitions at its ends are removed; refused where
/// a transition holds the junction of arrival.
bool moveShot(SC_Project* project, SC_Id const& shot, unsigned newIndex, QString* error = nullptr);
/// Gives a shot's block a new length; what follows moves with its end.
bool resizeShot(SC_Project* project, SC_Id const& shot, unsigned newLength, QString* error = nullptr);
/// Sets the range of the symbol's frames that the shot shows (start <= end, both
/// finite). The block keeps its frames.
bool setTimeWarp(SC_Project* project, SC_Id const& shot, double start, double end, QString* error = nullptr);

// Panels.

/// Inserts a panel of `length` frames at a position in a shot (`panelCount` appends).
SC_Id insertPanel(
    SC_Project* project, SC_Id const& shot, unsigned panelIndex, unsigned length, QString* error = nullptr);
/// Removes a panel and its scene. A shot that follows its symbol keeps at least one.
bool removePanel(SC_Project* project, SC_Id const& panel, QString* error = nullptr);
/// Moves a panel, keeping its id and scene, so that it stands at `newIndex` among
/// the panels of `toShot` afterwards (the same shot or another).
bool movePanel(SC_Project* project, SC_Id const& panel, SC_Id const& toShot, unsigned newIndex,
    QString* error = nullptr);
/// Gives a panel a new length (at least 1).
bool resizePanel(SC_Project* project, SC_Id const& panel, unsigned newLength, QString* error = nullptr);

// Transitions.

/// Inserts a transition of `length` frames at a free junction. Returns its id, or the
/// null id when refused. `id` restores a transition's id, as `ids` of insertShot does.
SC_Id insertTransition(SC_Project* project, unsigned junction, unsigned length,
    int type = AT_TransitionSeq::eDissolve, int angle = 0, bool reverse = false, QString* error = nullptr,
    SC_Id const& id = SC_Id());
/// Removes a transition; the shots it joined no longer overlap.
bool removeTransition(SC_Project* project, SC_Id const& transition, QString* error = nullptr);
/// Gives a transition a new length, keeping its id and style.
bool resizeTransition(
    SC_Project* project, SC_Id const& transition, unsigned newLength, QString* error = nullptr);
/// Moves a transition to another free junction, keeping its id, length and style.
bool moveTransition(
    SC_Project* project, SC_Id const& transition, unsigned junction, QString* error = nullptr);
/// Sets the type, wipe angle and reversed flag of a transition.
bool setTransitionStyle(SC_Project* project, SC_Id const& transition, int type, int angle, bool reverse,
    QString* error = nullptr);

} // namespace HostAuthoring
