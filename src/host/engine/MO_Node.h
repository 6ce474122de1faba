// Nodes of a scene's network: the node base, modules, groups, animated modules,
// elements and pegs. The remaining module classes are in MO_Modules.h.
#pragma once

#include "host/base/UT_ShareBase.h"
#include "host/base/UT_SharedPtr.h"
#include "host/base/UT_SharedWeakPtr.h"
#include "host/engine/HostNodeArena.h"
#include "host/engine/MO_ModuleVisitor.h"

#include <QString>
#include <QtGlobal>

#include <vector>

class AT_DoubleAttr;
class AT_DrawingAttr;
class HostNodeEdit;
class SC_SceneCommon;

/// How an animated module faces the camera. 0 is the value of a module that is not
/// aligned; the numbers are stored in files and preferences.
enum CameraAlignment
{
    CameraAlignment_None = 0,
    CameraAlignment_FaceCamera = 1,
    CameraAlignment_PinToCamera = 2,
    CameraAlignment_FaceCameraUpright = 3
};

/// Declares the two per-class virtuals of a module class; their bodies are generated
/// for all module classes at once in MO_Modules.cpp.
#define HOST_MODULE_DISPATCH                                                                                 \
public:                                                                                                      \
    void accept(MO_AbstractModuleVisitor& visitor) override;                                                 \
    QString typeName() const override;

/// A node of a scene's network.
///
/// Two relations hold a node, and they are separate: its group (the TUGroup whose
/// list holds it, by strong pointer) and its parent (the node it is linked under, by
/// weak pointer, in the same scene; null for a top-level node). A drawing under a peg
/// stands in the scene's root group and has the peg as its parent.
///
/// Nodes are shared by UT_SharedPtr and weak-pointable (the change manager's node
/// sets hold weak pointers). Everything here only reads: nodes are edited through
/// HostNodeAuthoring, which posts each change to the scene's change manager.
/// Nodes and their parts live in the HostNodeArena, so that a network made in one go
/// lies side by side in memory. Single-threaded, the host's thread.
class MO_Node : public UT_ShareBase, public UT_SharedWeakBase
{
    HOST_NODE_ARENA_OBJECT

public:
    MO_Node(SC_SceneCommon* scene, QString const& instanceName);
    ~MO_Node() override;
    MO_Node(MO_Node const&) = delete;
    MO_Node& operator=(MO_Node const&) = delete;

    /// Calls the visitor's `visit` overload of the node's own class.
    virtual void accept(MO_AbstractModuleVisitor& visitor) = 0;
    /// The class name, as stored in files ("TUPegModule").
    virtual QString typeName() const = 0;

    SC_SceneCommon* sceneCommon() const;
    /// The node this one is linked under; null for a top-level node or once it is gone.
    MO_Node* getParentNode() const;
    /// The group whose list holds this node; null for a root group or a node in none.
    TUGroup* group() const;
    QString const& instanceName() const;
    bool lock() const;
    /// The enabled byte: 0 is switched off, anything else on. New nodes are on (1).
    quint8 enabled() const;

private:
    friend class HostNodeEdit;
    friend class TUGroup;
    void setInstanceName(QString const& name);
    void setParentNode(MO_Node* parent);
    void setGroup(TUGroup* group);
    void setLock(bool locked);
    void setEnabled(quint8 enabled);

    class MO_NodePrivate;
    MO_NodePrivate* d;
};

/// A module: the base of every node class that a visitor tells apart.
class MO_Module : public MO_Node
{
    HOST_MODULE_DISPATCH
public:
    using MO_Node::MO_Node;
};

/// A group: an ordered list of nodes, owned by strong pointer. The list order is the
/// order of the visitor walk and hence the layer order. A scene's root group is named
/// "Top" and belongs to its SC_SceneCommon.
class TUGroup : public MO_Module
{
    HOST_MODULE_DISPATCH
public:
    // A vector in the arena: walks read the children side by side, next to the nodes.
    using SubNodes = std::vector<UT_SharedPtr<MO_Node>, HostNodeArenaAllocator<UT_SharedPtr<MO_Node>>>;
    using SubNodeIterator = SubNodes::const_iterator;

    TUGroup(SC_SceneCommon* scene, QString const& instanceName);
    ~TUGroup() override;

    /// Direct children, in order.
    SubNodeIterator subNodesBegin() const;
    SubNodeIterator subNodesEnd() const;
    int subNodeCount() const;
    /// Position of a direct child, or -1.
    int indexOf(MO_Node const* node) const;
    /// The direct child at `index`, or null.
    MO_Node* subNodeAt(int index) const;

private:
    friend class HostNodeEdit;
    /// Puts `node` at `index` (clamped; -1 appends) and makes this its group.
    void insertSubNode(UT_SharedPtr<MO_Node> const& node, int index);
    /// Takes a direct child out of the list; the caller holds its own reference.
    void takeSubNode(MO_Node* node);

    class TUGroupPrivate;
    TUGroupPrivate* d;
};

/// A module with a transformation of its own: pegs and elements.
class MO_AnimatedModule : public MO_Module
{
    HOST_MODULE_DISPATCH
public:
    MO_AnimatedModule(SC_SceneCommon* scene, QString const& instanceName);
    ~MO_AnimatedModule() override;

    CameraAlignment cameraAlignment() const;

private:
    friend class HostNodeEdit;
    void setCameraAlignment(CameraAlignment alignment);

    class MO_AnimatedModulePrivate;
    MO_AnimatedModulePrivate* d;
};

/// An element: shows the drawings of an element column (TUElementTimedValue) through
/// its drawing attribute. Both attributes are owned by the module and may be absent:
/// an element without a drawing attribute shows nothing, one without an opacity
/// attribute is fully opaque.
class MO_ElementModule : public MO_AnimatedModule
{
    HOST_MODULE_DISPATCH
public:
    MO_ElementModule(SC_SceneCommon* scene, QString const& instanceName);
    ~MO_ElementModule() override;

    AT_DrawingAttr* drawingAttr() const;
    /// The opacity in percent, or null when the element has no opacity of its own.
    AT_DoubleAttr* opacityAttr() const;

private:
    friend class HostNodeEdit;
    /// Replace the attributes; the module owns what it is given and deletes the old one.
    void setDrawingAttr(AT_DrawingAttr* attr);
    void setOpacityAttr(AT_DoubleAttr* attr);

    class MO_ElementModulePrivate;
    MO_ElementModulePrivate* d;
};

/// A peg: an animated module that other nodes are linked under.
class TUPegModule : public MO_AnimatedModule
{
    HOST_MODULE_DISPATCH
public:
    using MO_AnimatedModule::MO_AnimatedModule;
};
