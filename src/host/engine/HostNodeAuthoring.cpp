#include "host/engine/HostNodeAuthoring.h"

#include "host/engine/AT_DrawingAttr.h"
#include "host/engine/HostNodeEdit.h"
#include "host/engine/MO_Modules.h"
#include "host/engine/TUElementTimedValue.h"
#include "host/engine/TUScene.h"
#include "host/engine/TUSceneChangeManager.h"

#include <cmath>
#include <set>

namespace {

TUSceneChangeManager* managerOf(MO_Node const* node)
{
    return HostNodeEdit::changeManager(node->sceneCommon());
}

// Posts one kind of node change for each node given; null nodes are passed over.
void post(MO_Node const* context, void (TUSceneChangeManager::*kind)(MO_Node*),
    std::initializer_list<MO_Node*> nodes)
{
    TUSceneChangeManager* manager = managerOf(context);
    if (!manager)
        return;
    for (MO_Node* node : nodes) {
        if (node)
            (manager->*kind)(node);
    }
}

// Posts subNetworkChanged for the groups given that are sub-networks, nested in another
// group. A root group's network is the scene's own: its changes go out as
// networkChanged alone, so a host hears of a new top-level node once.
void postSubNetworks(MO_Node const* context, std::initializer_list<TUGroup*> groups)
{
    for (TUGroup* group : groups) {
        if (group && group->group())
            post(context, &TUSceneChangeManager::postSubNetworkChanged, { group });
    }
}

// An attribute edit of a node: posted as a change of the node that has been applied.
void postAttributeChange(MO_Node* node)
{
    post(node, &TUSceneChangeManager::postNodeChanged, { node });
    post(node, &TUSceneChangeManager::postNodeChangeApplied, { node });
}

// Sets one attribute of a node: null is refused, an equal value changes nothing,
// anything else is written and posted as an attribute change.
template <class Node, class Value, class Read, class Write>
bool setAttribute(Node* node, Value value, Read read, Write write)
{
    if (!node)
        return false;
    if (read(node) != value) {
        write(node, value);
        postAttributeChange(node);
    }
    return true;
}

void postColumnChange(TUElementTimedValue* column)
{
    if (TUSceneChangeManager* manager = column->changeManager())
        manager->postTimedValueChanged(column);
}

bool sameScene(MO_Node const* a, MO_Node const* b)
{
    return a->sceneCommon() == b->sceneCommon();
}

// True when `parent` may become the parent of `node`: a node of a group (not a root
// group) of the same scene, and `node` is neither `parent` nor above it in the chain
// of parents.
bool canLink(MO_Node const* node, MO_Node const* parent)
{
    if (!sameScene(node, parent) || !parent->group())
        return false;
    for (MO_Node const* at = parent; at; at = at->getParentNode()) {
        if (at == node)
            return false;
    }
    return true;
}

template <class T> T* insertNew(TUGroup* group, T* node, MO_Node* parent, int index)
{
    HostNodeEdit::insert(group, UT_SharedPtr<MO_Node>(node), index);
    post(group, &TUSceneChangeManager::postNetworkChanged, { node });
    postSubNetworks(group, { group });
    if (parent) {
        HostNodeEdit::setParent(node, parent);
        post(group, &TUSceneChangeManager::postNodeLinksChanged, { node, parent });
    }
    return node;
}

bool acceptsParent(TUGroup const* group, MO_Node const* parent)
{
    return group && (!parent || (parent->sceneCommon() == group->sceneCommon() && parent->group()));
}

TUElementTimedValue* columnOf(MO_ElementModule const* element)
{
    AT_DrawingAttr const* attr = element ? element->drawingAttr() : nullptr;
    return attr ? attr->timedValue() : nullptr;
}

bool setExposureRange(MO_ElementModule* element, int firstFrame, int lastFrame, int drawingId)
{
    TUElementTimedValue* column = columnOf(element);
    if (!column || firstFrame < 1 || lastFrame < firstFrame)
        return false;
    if (drawingId >= 0 && !column->hasDrawing(drawingId))
        return false;
    HostNodeEdit::expose(column, firstFrame, lastFrame, drawingId);
    postColumnChange(column);
    return true;
}

// Every node of the scene of `node`, from its root group down.
std::vector<MO_Node*> sceneNodes(MO_Node const* node)
{
    SC_SceneCommon* scene = node->sceneCommon();
    return scene && scene->rootGroup() ? HostNodeEdit::subtree(scene->rootGroup()) : std::vector<MO_Node*>();
}

// Removes from the scene the columns that only the removed elements show.
void removeColumns(std::set<MO_Node*> const& removed)
{
    for (MO_Node* node : removed) {
        TUElementTimedValue* column = columnOf(dynamic_cast<MO_ElementModule*>(node));
        if (!column)
            continue;
        bool shownElsewhere = false;
        for (unsigned i = 0; i < column->linkedNodeCount(); ++i) {
            MO_Node* linked = column->linkedNodes(i);
            shownElsewhere = shownElsewhere || (linked && !removed.count(linked));
        }
        TUScene* scene = column->sceneCommon ? column->sceneCommon->scene() : nullptr;
        if (!shownElsewhere && scene)
            scene->removeTimedValue(column);
    }
}

} // namespace

namespace HostNodeAuthoring {

MO_Node* addNode(TUGroup* group, QString const& typeName, QString const& name, int index)
{
    MO_Node* node = group ? MO_ModuleFactory::create(typeName, group->sceneCommon(), name) : nullptr;
    return node ? insertNew(group, node, nullptr, index) : nullptr;
}

TUGroup* addGroup(TUGroup* group, QString const& name, int index)
{
    return group ? insertNew(group, new TUGroup(group->sceneCommon(), name), nullptr, index) : nullptr;
}

TUPegModule* addPeg(TUGroup* group, QString const& name, MO_Node* parent, int index)
{
    if (!acceptsParent(group, parent))
        return nullptr;
    return insertNew(group, new TUPegModule(group->sceneCommon(), name), parent, index);
}

MO_ElementModule* addElement(
    TUGroup* group, QString const& name, CA_DrawingKind kind, MO_Node* parent, int index)
{
    if (!acceptsParent(group, parent) || !group->sceneCommon() || !group->sceneCommon()->scene())
        return nullptr;
    SC_SceneCommon* scene = group->sceneCommon();
    auto* element = new MO_ElementModule(scene, name);
    auto* column = new TUElementTimedValue(scene, name, kind);
    scene->scene()->addTimedValue(column);
    HostNodeEdit::attachColumn(element, column);
    HostNodeEdit::setOpacity(element, 100.0);
    return insertNew(group, element, parent, index);
}

int addDrawing(MO_ElementModule* element, QString const& fileName)
{
    TUElementTimedValue* column = columnOf(element);
    if (!column || fileName.isEmpty())
        return -1;
    const int id = HostNodeEdit::addDrawing(column, fileName);
    postColumnChange(column);
    return id;
}

bool setExposure(MO_ElementModule* element, int firstFrame, int lastFrame, int drawingId)
{
    return drawingId >= 0 && setExposureRange(element, firstFrame, lastFrame, drawingId);
}

MO_ElementModule* addDrawingElement(TUGroup* group, QString const& name, CA_DrawingKind kind,
    QString const& fileName, int firstFrame, int lastFrame, MO_Node* parent)
{
    if (fileName.isEmpty() || firstFrame < 1 || lastFrame < firstFrame)
        return nullptr;
    MO_ElementModule* element = addElement(group, name, kind, parent);
    if (element)
        setExposure(element, firstFrame, lastFrame, addDrawing(element, fileName));
    return element;
}

bool clearExposure(MO_ElementModule* element, int firstFrame, int lastFrame)
{
    return setExposureRange(element, firstFrame, lastFrame, -1);
}

bool rename(MO_Node* node, QString const& name)
{
    if (!node)
        return false;
    if (node->instanceName() != name) {
        HostNodeEdit::setName(node, name);
        post(node, &TUSceneChangeManager::postNodeInstanceNameChanged, { node });
    }
    return true;
}

bool setParent(MO_Node* node, MO_Node* parent)
{
    if (!node || (parent && !canLink(node, parent)))
        return false;
    MO_Node* previous = node->getParentNode();
    if (previous != parent) {
        HostNodeEdit::setParent(node, parent);
        post(node, &TUSceneChangeManager::postNodeLinksChanged, { node, previous, parent });
    }
    return true;
}

bool moveNode(MO_Node* node, TUGroup* group, int index)
{
    if (!node || !group || !node->group() || !sameScene(node, group) || HostNodeEdit::isInside(group, node))
        return false;
    TUGroup* from = node->group();
    const int last = from == group ? group->subNodeCount() - 1 : group->subNodeCount();
    const int target = index < 0 || index > last ? last : index;
    if (from == group && from->indexOf(node) == target)
        return true;
    const UT_SharedPtr<MO_Node> held = HostNodeEdit::take(node);
    HostNodeEdit::insert(group, held, target);
    if (from == group) {
        post(node, &TUSceneChangeManager::postChildrenOrderingChanged, { group });
    } else {
        post(node, &TUSceneChangeManager::postNetworkChanged, { node });
        postSubNetworks(node, { from, group });
    }
    return true;
}

bool removeNode(MO_Node* node)
{
    if (!node || !node->group())
        return false;
    const std::vector<MO_Node*> subtree = HostNodeEdit::subtree(node);
    const std::set<MO_Node*> removed(subtree.begin(), subtree.end());
    for (MO_Node* other : sceneNodes(node)) {
        if (!removed.count(other) && removed.count(other->getParentNode())) {
            HostNodeEdit::setParent(other, nullptr);
            post(node, &TUSceneChangeManager::postNodeLinksChanged, { other });
        }
    }
    removeColumns(removed);
    TUGroup* group = node->group();
    // The removed node is gone by the time the change goes out: its group is what a
    // listener can still look at.
    post(node, &TUSceneChangeManager::postNetworkChanged, { group });
    HostNodeEdit::take(node);
    return true;
}

bool setLocked(MO_Node* node, bool locked)
{
    return setAttribute(
        node, locked, [](MO_Node* n) { return n->lock(); }, &HostNodeEdit::setLock);
}

bool setEnabled(MO_Node* node, bool enabled)
{
    return setAttribute(
        node, enabled, [](MO_Node* n) { return bool(n->enabled()); },
        [](MO_Node* n, bool on) { HostNodeEdit::setEnabled(n, on ? 1 : 0); });
}

bool setOpacity(MO_ElementModule* element, double opacity)
{
    if (!std::isfinite(opacity) || opacity < 0.0 || opacity > 100.0)
        return false;
    // An element without an opacity attribute reads NaN, which differs from any value.
    return setAttribute(
        element, opacity,
        [](MO_ElementModule* e) { return e->opacityAttr() ? e->opacityAttr()->localValue() : std::nan(""); },
        &HostNodeEdit::setOpacity);
}

bool setCameraAlignment(MO_AnimatedModule* module, CameraAlignment alignment)
{
    return setAttribute(
        module, alignment, [](MO_AnimatedModule* m) { return m->cameraAlignment(); },
        &HostNodeEdit::setCameraAlignment);
}

} // namespace HostNodeAuthoring
