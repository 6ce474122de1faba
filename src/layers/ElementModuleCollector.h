// Collects the layers of a walk: the top-level modules of the kinds a mask accepts.
#pragma once

#include "host/Host.h"
#include "layers/KRC_PanelLayerManager.h"

#include <vector>

/// A short-lived visitor that pushes each top-level module of an accepted kind to the
/// back of `out`, in the order of the walk: an element with a drawing attribute whose
/// key at frame 1 has an accepted kind (3D, then Kvg or bitmap, else other), or any
/// other animated module when the mask holds LayerType_Animated. Nodes with a parent
/// are never collected. Lives for one call; the host's thread.
class ElementModuleCollector : public MO_ModuleVisitor
{
public:
    ElementModuleCollector(std::vector<MO_Node*>& out, KRC_PanelLayerManager::LayerType_t mask);

    using MO_ModuleVisitor::visit;
    void visit(MO_ElementModule& element) override;
    void visit(MO_AnimatedModule& module) override;

    /// The kind of an element by the key it shows at frame 1; the first test that holds
    /// decides, in the order 3D, Kvg, bitmap.
    static KRC_PanelLayerManager::LayerType_t kindOf(MO_ElementModule const& element);

private:
    std::vector<MO_Node*>& m_out;
    KRC_PanelLayerManager::LayerType_t const m_mask;
};
