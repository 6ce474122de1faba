// Internal to the engine stand-in: the edit primitives of nodes and element columns.
#pragma once

#include "host/base/UT_SharedPtr.h"
#include "host/engine/MO_Node.h"

#include <QString>

#include <vector>

class SC_SceneCommon;
class TUElementTimedValue;
class TUSceneChangeManager;

/// The one friend of the node classes: changes nodes, groups and element columns
/// without posting anything. HostNodeAuthoring posts around these; the network
/// reader builds with them, since a loaded tree is no edit. Not for hosts.
class HostNodeEdit
{
public:
    static void setName(MO_Node* node, QString const& name) { node->setInstanceName(name); }
    static void setParent(MO_Node* node, MO_Node* parent) { node->setParentNode(parent); }
    static void setLock(MO_Node* node, bool locked) { node->setLock(locked); }
    static void setEnabled(MO_Node* node, quint8 enabled) { node->setEnabled(enabled); }
    static void setCameraAlignment(MO_AnimatedModule* module, CameraAlignment alignment)
    {
        module->setCameraAlignment(alignment);
    }
    /// Sets the opacity, giving the element an opacity attribute if it has none.
    static void setOpacity(MO_ElementModule* element, double opacity);
    static void removeOpacity(MO_ElementModule* element) { element->setOpacityAttr(nullptr); }

    /// Puts a node into a group at `index` (-1 or past the end: at the end).
    static void insert(TUGroup* group, UT_SharedPtr<MO_Node> const& node, int index)
    {
        group->insertSubNode(node, index);
    }
    /// Takes a node out of its group; the answer holds it.
    static UT_SharedPtr<MO_Node> take(MO_Node* node);

    /// Gives the element a drawing attribute on the column and links it to the column.
    static void attachColumn(MO_ElementModule* element, TUElementTimedValue* column);
    static int addDrawing(TUElementTimedValue* column, QString const& fileName, int drawingId = -1);
    static void expose(TUElementTimedValue* column, int firstFrame, int lastFrame, int drawingId);

    /// The node first, then, for a group, every node below it.
    static std::vector<MO_Node*> subtree(MO_Node* node);
    /// True when `node` is `ancestor` or stands in it (through groups).
    static bool isInside(MO_Node const* node, MO_Node const* ancestor);
    /// The change manager that edits of the scene post to, or null.
    static TUSceneChangeManager* changeManager(SC_SceneCommon const* scene);
};
