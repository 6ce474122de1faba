// The engine's edit operations on node networks, for hosts and tests.
#pragma once

#include "host/engine/CA_CelKey.h"
#include "host/engine/MO_Node.h"

#include <QString>

class MO_ElementModule;
class TUGroup;
class TUPegModule;

/// Builds and edits the node network of a scene. Each operation posts to the change
/// manager of the scene's project what the edit changed, and nothing goes out before
/// its notify():
///
// clang-format off
/// | Edit | Posted |
/// |---|---|
/// | add a node | networkChanged (node), subNetworkChanged (group, when nested); nodeLinksChanged (node, parent) when linked |
/// | add an element | as a node, and timedValuesAdded (its column) |
/// | add a drawing, change exposures | timedValuesChanged (the column) |
/// | rename | nodeInstanceNamesChanged (node) |
/// | relink | nodeLinksChanged (node, old parent, new parent) |
/// | reorder in a group | childrenOrderingChanged (group) |
/// | move to another group | networkChanged (node), subNetworkChanged (the nested ones of both groups) |
/// | remove | networkChanged (group), nodeLinksChanged (nodes linked under it, which become top-level), timedValuesRemoved (element columns) |
/// | lock, enable, opacity, camera alignment | nodesChanged (node), nodeChangeApplied (node) |
// clang-format on
///
/// An edit that would change nothing answers true and posts nothing. Refused input
/// (null, a node of another scene, a link that would make a cycle, ...) answers
/// false or null and changes nothing. Single-threaded, the host's thread.
namespace HostNodeAuthoring {

/// A new node of a module class by name ("TUPegModule"), at `index` of the group
/// (-1: at the end). Null for a null group or an unknown class. An element made this
/// way has no column; use addElement for a working one.
MO_Node* addNode(TUGroup* group, QString const& typeName, QString const& name, int index = -1);
TUGroup* addGroup(TUGroup* group, QString const& name, int index = -1);
/// A peg, linked under `parent` when one is given (in the same scene).
TUPegModule* addPeg(TUGroup* group, QString const& name, MO_Node* parent = nullptr, int index = -1);
/// An element with a new column of the given kind (added to the group's scene), a
/// drawing attribute on it and an opacity of 100. Null when the group belongs to no
/// scene.
MO_ElementModule* addElement(
    TUGroup* group, QString const& name, CA_DrawingKind kind, MO_Node* parent = nullptr, int index = -1);

/// An element of `kind` (as addElement) that shows one drawing, from `fileName`, on
/// frames first to last: the usual shape of a layer drawn over a whole panel. Null
/// where addElement refuses, for an empty file name or a bad range (then nothing is
/// added).
MO_ElementModule* addDrawingElement(TUGroup* group, QString const& name, CA_DrawingKind kind,
    QString const& fileName, int firstFrame, int lastFrame, MO_Node* parent = nullptr);

/// Adds a drawing to the element's column; answers its id (from 1 up), or -1 for an
/// element without a column or an empty file name.
int addDrawing(MO_ElementModule* element, QString const& fileName);
/// Shows a drawing on frames first to last (both included, from 1). Refused for an
/// element without a column, an unknown drawing or a bad range.
bool setExposure(MO_ElementModule* element, int firstFrame, int lastFrame, int drawingId);
/// Shows nothing on frames first to last.
bool clearExposure(MO_ElementModule* element, int firstFrame, int lastFrame);

bool rename(MO_Node* node, QString const& name);
/// Links the node under `parent` (null: makes it top-level). Refused across scenes,
/// under a node in no group (a root group), and where the parent is the node or is
/// linked under it.
bool setParent(MO_Node* node, MO_Node* parent);
/// Moves a node to `index` of a group (-1: at the end); in its own group this
/// reorders it. Refused for a root group, across scenes, and into the node itself
/// or a group inside it.
bool moveNode(MO_Node* node, TUGroup* group, int index = -1);
/// Removes a node from its group and the scene, a group with everything in it.
/// Refused for a root group and a node in no group.
bool removeNode(MO_Node* node);

bool setLocked(MO_Node* node, bool locked);
bool setEnabled(MO_Node* node, bool enabled);
/// Opacity in percent, 0 to 100; gives the element an opacity attribute if needed.
bool setOpacity(MO_ElementModule* element, double opacity);
bool setCameraAlignment(MO_AnimatedModule* module, CameraAlignment alignment);

} // namespace HostNodeAuthoring
