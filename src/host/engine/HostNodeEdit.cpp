#include "host/engine/HostNodeEdit.h"

#include "host/engine/AT_DrawingAttr.h"
#include "host/engine/SC_ProjectCommon.h"
#include "host/engine/TUElementTimedValue.h"
#include "host/engine/TUScene.h"

void HostNodeEdit::setOpacity(MO_ElementModule* element, double opacity)
{
    if (AT_DoubleAttr* attr = element->opacityAttr())
        attr->setLocalValue(opacity);
    else
        element->setOpacityAttr(new AT_DoubleAttr(opacity));
}

UT_SharedPtr<MO_Node> HostNodeEdit::take(MO_Node* node)
{
    UT_SharedPtr<MO_Node> held(node);
    if (TUGroup* group = node->group())
        group->takeSubNode(node);
    return held;
}

void HostNodeEdit::attachColumn(MO_ElementModule* element, TUElementTimedValue* column)
{
    element->setDrawingAttr(new AT_DrawingAttr(column));
    column->linkNode(element);
}

int HostNodeEdit::addDrawing(TUElementTimedValue* column, QString const& fileName, int drawingId)
{
    return column->addDrawing(fileName, drawingId);
}

void HostNodeEdit::expose(TUElementTimedValue* column, int firstFrame, int lastFrame, int drawingId)
{
    column->expose(firstFrame, lastFrame, drawingId);
}

std::vector<MO_Node*> HostNodeEdit::subtree(MO_Node* node)
{
    std::vector<MO_Node*> nodes { node };
    // Breadth of the list grows as groups are met; each group's children follow it.
    for (size_t i = 0; i < nodes.size(); ++i) {
        if (auto* group = dynamic_cast<TUGroup*>(nodes[i])) {
            for (auto it = group->subNodesBegin(); it != group->subNodesEnd(); ++it)
                nodes.push_back(it->get());
        }
    }
    return nodes;
}

bool HostNodeEdit::isInside(MO_Node const* node, MO_Node const* ancestor)
{
    for (MO_Node const* at = node; at; at = at->group()) {
        if (at == ancestor)
            return true;
    }
    return false;
}

TUSceneChangeManager* HostNodeEdit::changeManager(SC_SceneCommon const* scene)
{
    SC_ProjectCommon* project = scene ? scene->projectCommon() : nullptr;
    return project ? project->changeManager() : nullptr;
}
