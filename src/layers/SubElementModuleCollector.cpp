#include "layers/SubElementModuleCollector.h"

#include "layers/KRC_PanelLayerManager.h"

SubElementModuleCollector::SubElementModuleCollector(MO_Node const* root, std::vector<MO_Node*>& out)
    : m_root(root)
    , m_out(out)
{
}

void SubElementModuleCollector::visit(MO_AnimatedModule& module)
{
    if (&module == m_root)
        return;
    MO_Node* parent = module.getParentNode();
    MO_Node const* top = parent ? KRC_PanelLayerManager::getTopLevelNode(parent) : &module;
    if (top == m_root)
        m_out.push_back(&module);
}
