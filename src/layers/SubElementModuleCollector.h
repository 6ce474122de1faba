// Collects every node whose top-level ancestor is a given layer.
#pragma once

#include "host/Host.h"

#include <vector>

/// A short-lived visitor that pushes to the back of `out`, in the order of the walk,
/// each animated module other than `root` whose top-level ancestor (through
/// getParentNode) is `root`. Every animated module ends in visit(MO_AnimatedModule&),
/// elements included. Lives for one call; the host's thread.
class SubElementModuleCollector : public MO_ModuleVisitor
{
public:
    SubElementModuleCollector(MO_Node const* root, std::vector<MO_Node*>& out);

    using MO_ModuleVisitor::visit;
    void visit(MO_AnimatedModule& module) override;

private:
    MO_Node const* const m_root;
    std::vector<MO_Node*>& m_out;
};
