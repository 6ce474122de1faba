#include "host/engine/MO_ModuleVisitor.h"

#include "host/engine/MO_Modules.h"
#include "host/engine/MO_Node.h"

#include <QVarLengthArray>

#include <vector>

MO_AbstractModuleVisitor::~MO_AbstractModuleVisitor() = default;

UT_DynKey MO_AbstractModuleVisitor::key() const
{
    return UT_DynKey(typeid(*this));
}

MO_AbstractModuleVisitorWithModuleFallback::~MO_AbstractModuleVisitorWithModuleFallback() = default;

#define HOST_DEFINE_FALLBACK_VISIT_ROOT(Class, Base)
#define HOST_DEFINE_FALLBACK_VISIT_CORE(Class, Base)                                                         \
    void MO_AbstractModuleVisitorWithModuleFallback::visit(Class& module)                                    \
    {                                                                                                        \
        visit(static_cast<Base&>(module));                                                                   \
    }
#define HOST_DEFINE_FALLBACK_VISIT_PLAIN(Class, Base) HOST_DEFINE_FALLBACK_VISIT_CORE(Class, Base)
#define HOST_DEFINE_FALLBACK_VISIT(Class, Base, Kind) HOST_DEFINE_FALLBACK_VISIT_##Kind(Class, Base)
HOST_MODULE_CLASSES(HOST_DEFINE_FALLBACK_VISIT)
#undef HOST_DEFINE_FALLBACK_VISIT
#undef HOST_DEFINE_FALLBACK_VISIT_PLAIN
#undef HOST_DEFINE_FALLBACK_VISIT_CORE
#undef HOST_DEFINE_FALLBACK_VISIT_ROOT

MO_ModuleVisitor::~MO_ModuleVisitor() = default;

void MO_ModuleVisitor::visit(TUGroup& group)
{
    // Walk a snapshot held by strong pointers: a visitor that edits the network
    // cannot pull a node or the list out from under its own walk.
    // The buffer holds the usual group without a heap allocation.
    QVarLengthArray<UT_SharedPtr<MO_Node>, 32> nodes;
    for (auto node = group.subNodesBegin(); node != group.subNodesEnd(); ++node)
        nodes.append(*node);
    for (UT_SharedPtr<MO_Node> const& node : nodes)
        node->accept(*this);
}

void MO_ModuleVisitor::visit(MO_Module&) { }
