#include "host/engine/MO_Node.h"

#include "host/engine/AT_DrawingAttr.h"

#include <algorithm>
#include <iterator>

class MO_Node::MO_NodePrivate
{
    HOST_NODE_ARENA_OBJECT

public:
    SC_SceneCommon* scene;
    QString name;
    UT_SharedWeakPtr<MO_Node> parent;
    TUGroup* group = nullptr;
    bool locked = false;
    quint8 enabled = 1;
};

MO_Node::MO_Node(SC_SceneCommon* scene, QString const& instanceName)
    : UT_SharedWeakBase(HostNodeArena::trackers())
    , d(new MO_NodePrivate)
{
    d->scene = scene;
    d->name = instanceName;
}

MO_Node::~MO_Node()
{
    delete d;
}

SC_SceneCommon* MO_Node::sceneCommon() const
{
    return d->scene;
}

MO_Node* MO_Node::getParentNode() const
{
    return d->parent.get();
}

TUGroup* MO_Node::group() const
{
    return d->group;
}

QString const& MO_Node::instanceName() const
{
    return d->name;
}

bool MO_Node::lock() const
{
    return d->locked;
}

quint8 MO_Node::enabled() const
{
    return d->enabled;
}

void MO_Node::setInstanceName(QString const& name)
{
    d->name = name;
}

void MO_Node::setParentNode(MO_Node* parent)
{
    d->parent = parent;
}

void MO_Node::setGroup(TUGroup* group)
{
    d->group = group;
}

void MO_Node::setLock(bool locked)
{
    d->locked = locked;
}

void MO_Node::setEnabled(quint8 enabled)
{
    d->enabled = enabled;
}

class TUGroup::TUGroupPrivate
{
    HOST_NODE_ARENA_OBJECT

public:
    SubNodes nodes;
};

TUGroup::TUGroup(SC_SceneCommon* scene, QString const& instanceName)
    : MO_Module(scene, instanceName)
    , d(new TUGroupPrivate)
{
}

TUGroup::~TUGroup()
{
    // Children may outlive the group through references held elsewhere.
    for (UT_SharedPtr<MO_Node> const& node : d->nodes)
        node->setGroup(nullptr);
    delete d;
}

TUGroup::SubNodeIterator TUGroup::subNodesBegin() const
{
    return d->nodes.cbegin();
}

TUGroup::SubNodeIterator TUGroup::subNodesEnd() const
{
    return d->nodes.cend();
}

int TUGroup::subNodeCount() const
{
    return int(d->nodes.size());
}

int TUGroup::indexOf(MO_Node const* node) const
{
    const auto it = std::find_if(d->nodes.cbegin(), d->nodes.cend(),
        [node](UT_SharedPtr<MO_Node> const& child) { return child.get() == node; });
    return it == d->nodes.cend() ? -1 : int(std::distance(d->nodes.cbegin(), it));
}

MO_Node* TUGroup::subNodeAt(int index) const
{
    if (index < 0 || index >= subNodeCount())
        return nullptr;
    return std::next(d->nodes.cbegin(), index)->get();
}

void TUGroup::insertSubNode(UT_SharedPtr<MO_Node> const& node, int index)
{
    if (index < 0 || index > subNodeCount())
        index = subNodeCount();
    d->nodes.insert(std::next(d->nodes.cbegin(), index), node);
    node->setGroup(this);
}

void TUGroup::takeSubNode(MO_Node* node)
{
    const auto it = std::find_if(d->nodes.cbegin(), d->nodes.cend(),
        [node](UT_SharedPtr<MO_Node> const& child) { return child.get() == node; });
    if (it == d->nodes.cend())
        return;
    node->setGroup(nullptr);
    d->nodes.erase(it);
}

class MO_AnimatedModule::MO_AnimatedModulePrivate
{
    HOST_NODE_ARENA_OBJECT

public:
    CameraAlignment alignment = CameraAlignment_None;
};

MO_AnimatedModule::MO_AnimatedModule(SC_SceneCommon* scene, QString const& instanceName)
    : MO_Module(scene, instanceName)
    , d(new MO_AnimatedModulePrivate)
{
}

MO_AnimatedModule::~MO_AnimatedModule()
{
    delete d;
}

CameraAlignment MO_AnimatedModule::cameraAlignment() const
{
    return d->alignment;
}

void MO_AnimatedModule::setCameraAlignment(CameraAlignment alignment)
{
    d->alignment = alignment;
}

class MO_ElementModule::MO_ElementModulePrivate
{
    HOST_NODE_ARENA_OBJECT

public:
    AT_DrawingAttr* drawing = nullptr;
    AT_DoubleAttr* opacity = nullptr;
};

MO_ElementModule::MO_ElementModule(SC_SceneCommon* scene, QString const& instanceName)
    : MO_AnimatedModule(scene, instanceName)
    , d(new MO_ElementModulePrivate)
{
}

MO_ElementModule::~MO_ElementModule()
{
    delete d->drawing;
    delete d->opacity;
    delete d;
}

AT_DrawingAttr* MO_ElementModule::drawingAttr() const
{
    return d->drawing;
}

AT_DoubleAttr* MO_ElementModule::opacityAttr() const
{
    return d->opacity;
}

void MO_ElementModule::setDrawingAttr(AT_DrawingAttr* attr)
{
    if (attr == d->drawing)
        return;
    delete d->drawing;
    d->drawing = attr;
}

void MO_ElementModule::setOpacityAttr(AT_DoubleAttr* attr)
{
    if (attr == d->opacity)
        return;
    delete d->opacity;
    d->opacity = attr;
}
